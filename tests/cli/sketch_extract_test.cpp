// marloven-cli sketch extract: the working sketch or a project's sketch block
// split, extracted and rebuilt, with the zones printed.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/commands.h"
#include "run_cli.h"
#include "project/project_test_util.h"
#include "project/zone_scratch.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

const std::string kTemplate = std::string(FIXTURE_DIR) + "/../../../install/sketch/bld_mtx2.000";

// The template with zone 1 drawn 20 cells wide and 10 high, a row of zone 2
// in the bottom row of the screen.
std::string drawnTemplate() {
  std::vector<std::string> lines = splitLines(readFile(kTemplate));
  for (int r = 40; r < 50; ++r) lines[r].replace(10, 20, std::string(20, '1'));
  lines[90].replace(0, 5, "22222");
  return joinCrlf(lines);
}

TEST(SketchExtract, ProjectSketchBlockGivesItsZones) {
  TempInstall inst;
  inst.write("in.inp", fixture("full_project.inp"));
  const Result r = runCli({"--install", inst.dir(), "sketch", "extract", "--from", inst.path("in.inp").string()});
  ASSERT_EQ(r.status, 0) << r.err;
  // Level 2's bottom row is lost on the way in, as in the sketch screen.
  EXPECT_EQ(r.out,
            "Zone  Name               Area sq.ft  Rows\n"
            "11     Zone 1-1                2080     6\n"
            "12     Zone 1-2                1600     6\n"
            "21     Zone 2-1                1976     5\n"
            "Total floor area 5656 sq.ft in 3 zones\n");
  EXPECT_EQ(readScratchRows(inst.read("temp/temp12.zon")).count, 6);
  EXPECT_EQ(inst.read("temp/zname.tmp"), crlf({"11    Zone 1-1", "12    Zone 1-2", "21    Zone 2-1", "99"}));
  const auto lines = fixtureLines("full_project.inp");
  const auto sketch = splitLines(inst.read("sketch/bld_mtx.all"));
  ASSERT_EQ(sketch.size(), 182u);
  EXPECT_TRUE(std::equal(sketch.begin(), sketch.end() - 1, lines.end() - 182));
  EXPECT_EQ(sketch.back(), std::string(80, '0'));
}

TEST(SketchExtract, WorkingSketchInTheRememberedUnits) {
  TempInstall inst;
  inst.write("sketch/bld_mtx.all", drawnTemplate());
  inst.write("temp/ecalc$.unt", "1\r\n");
  Result r = runCli({"--install", inst.dir(), "sketch", "extract"});
  ASSERT_EQ(r.status, 0) << r.err;
  // 200 cells of 2 ft; the row of zone 2 was the bottom row of the top level.
  EXPECT_EQ(r.out,
            "Zone  Name               Area sq.ft  Rows\n"
            "11     Zone 1-1                 800     7\n"
            "Total floor area 800 sq.ft in 1 zone\n");

  // In SI the strip is 1 wide and the sill 0.75; the template is not new here.
  inst.write("temp/ecalc$.unt", "2\r\n");
  inst.write("sketch/bld_mtx.all", drawnTemplate());
  r = runCli({"--install", inst.dir(), "sketch", "extract"});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("Area sq.m."), std::string::npos);
  const ScratchRows rows = readScratchRows(inst.read("temp/temp11.zon"));
  EXPECT_FLOAT_EQ(rows.rows[1].sillHeight, 0.75f);
  EXPECT_EQ(rows.rows[7].surfaceExposure, 76);  // 800 over a strip of 120
}

TEST(SketchExtract, FailuresAndUsage) {
  TempInstall inst;
  Result r = runCli({"--install", inst.dir(), "sketch", "extract"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err.rfind("Marloven Error #  53", 0), 0u) << r.err;

  // A zone character outside the 25 zones reaches the extraction's handler.
  std::string damaged = drawnTemplate();
  damaged.replace(damaged.find("1111"), 1, "Z");
  inst.write("sketch/bld_mtx.all", damaged);
  r = runCli({"--install", inst.dir(), "sketch", "extract"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "Sketch subroutine error: Draw Error, Click OK to recover\n");
  EXPECT_FALSE(inst.exists("temp/zname.tmp"));
  EXPECT_EQ(inst.read("sketch/bld_mtx.all"), damaged);

  // A project without a sketch block.
  const auto lines = fixtureLines("full_project.inp");
  inst.write("bare.inp", joinCrlf({lines.begin(), lines.begin() + indexOf(lines, "BUILDING MATRIX") + 1}));
  r = runCli({"--install", inst.dir(), "sketch", "extract", "--from", inst.path("bare.inp").string()});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("has no sketch"), std::string::npos);

  for (const std::vector<std::string>& args : {std::vector<std::string>{"sketch", "extract", "--from"},
                                              {"sketch", "extract", "x.inp"}, {"sketch", "draw"}}) {
    r = runCli(args);
    EXPECT_EQ(r.status, 2) << args.back();
    EXPECT_NE(r.err.find("sketch extract [--from PROJECT.inp]"), std::string::npos);
  }
}

}  // namespace
}  // namespace marloven::testing
