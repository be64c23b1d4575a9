// marloven-cli inp normalize: a project read and written back as a save would.
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "cli/commands.h"
#include "run_cli.h"
#include "project/project_test_util.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

TEST(Normalize, WritesTheProjectAsASaveWouldWithItsSideFiles) {
  TempInstall inst;
  inst.write("in.inp", fixture("full_project.inp"));
  const Result r = runCli({"--install", inst.dir(), "inp", "normalize", inst.path("in.inp").string(),
                           inst.path("out.inp").string()});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_TRUE(r.err.empty());

  ReadSideFiles side;
  Project p = readFresh(fixture("full_project.inp"), &side);
  EXPECT_EQ(inst.read("out.inp"), writeAsSaved(p, side.sketchLines));
  EXPECT_EQ(inst.read("temp/temp21.zon"), side.zoneFiles[2].text);
  EXPECT_EQ(inst.read("sketch/bld_mtx.all"), joinCrlf(side.sketchLines));

  // The written file normalizes to itself but for the design temperature line.
  const Result again = runCli({"--install", inst.dir(), "inp", "normalize", inst.path("out.inp").string(),
                               inst.path("again.inp").string()});
  ASSERT_EQ(again.status, 0);
  const auto a = splitLines(inst.read("out.inp")), b = splitLines(inst.read("again.inp"));
  ASSERT_EQ(a.size(), b.size());
  for (std::size_t i = 0; i < a.size(); ++i)
    if (a[i].rfind("DesTemps", 0) != 0) {
      EXPECT_EQ(a[i], b[i]) << "line " << i + 1;
    }
}

TEST(Normalize, BadFilesGiveTheErrorReportAndKeepTheOldOutput) {
  TempInstall inst;
  inst.write("out.inp", "precious\r\n");
  const auto good = fixtureLines("full_project.inp");
  struct Case {
    std::string name, bytes, message;
  } cases[] = {
      {"empty.inp", "",
       "Marloven Error #  62: MARLOVEN is unable to open your input file because it has a wrong format.  "
       "Check your input file."},
      {"cut.inp", joinCrlf({good.begin(), good.begin() + 100}), "Marloven Error #  62: "},
      {"binary.inp", std::string("\x7f" "ELF\x02\x01\x01\0\0\0\0\0\0\0\0\0\x03\0>\0", 20), "Marloven Error #  62: "},
  };
  for (const auto& c : cases) {
    inst.write(c.name, c.bytes);
    const Result r = runCli({"--install", inst.dir(), "inp", "normalize", inst.path(c.name).string(),
                             inst.path("out.inp").string()});
    EXPECT_EQ(r.status, 1) << c.name;
    EXPECT_EQ(r.err.rfind(c.message, 0), 0u) << c.name << ": " << r.err;
    EXPECT_EQ(inst.read("out.inp"), "precious\r\n") << c.name;
  }
  const Result missing = runCli({"--install", inst.dir(), "inp", "normalize", inst.path("none.inp").string(),
                                 inst.path("out.inp").string()});
  EXPECT_EQ(missing.status, 1);
  EXPECT_NE(missing.err.find("Marloven Error #  53: Bad file name, or some files are missing"), std::string::npos);
}

TEST(Normalize, UsageMistakesExitWithTwo) {
  TempInstall inst;
  for (const std::vector<std::string>& args :
       {std::vector<std::string>{}, {"inp"}, {"inp", "normalize", "only-in"}, {"inp", "frobnicate", "a", "b"},
        {"--install"}, {"--bogus", "inp", "normalize", "a", "b"}}) {
    const Result r = runCli(args);
    EXPECT_EQ(r.status, 2) << (args.empty() ? "(none)" : args.back());
    EXPECT_NE(r.err.find("usage: marloven-cli"), std::string::npos);
  }
  EXPECT_EQ(runCli({"--help"}).status, 0);
  const Result noTree = runCli({"--install", inst.path("nowhere").string(), "inp", "normalize", "a", "b"});
  EXPECT_EQ(noTree.status, 1);
  EXPECT_EQ(noTree.err.rfind("Marloven Error #  76: Path not found or path/file access error.", 0), 0u);
}

TEST(Normalize, TheProgramItselfRunsInTheCurrentDirectoryByDefault) {
  TempInstall inst;
  inst.write("in.inp", fixture("full_project.inp"));
  const std::string cmd = "cd '" + inst.dir() + "' && '" CLI_BINARY "' inp normalize in.inp out.inp 2>err.txt";
  EXPECT_EQ(std::system(cmd.c_str()), 0) << inst.read("err.txt");
  EXPECT_TRUE(inst.exists("temp/temp11.zon"));
  EXPECT_EQ(splitLines(inst.read("out.inp")).front(), "MARLOVEN   .7055475  4  IP");

  const std::string bad = "cd '" + inst.dir() + "' && '" CLI_BINARY "' inp normalize err.txt x.inp 2>err2.txt";
  EXPECT_NE(std::system(bad.c_str()), 0);
  EXPECT_NE(inst.read("err2.txt").find("Marloven Error #  62"), std::string::npos);
  EXPECT_FALSE(inst.exists("x.inp"));
}

TEST(Convert, WritesTheOtherSystemWithItsMarker) {
  TempInstall inst;
  inst.write("in.inp", fixture("full_project.inp"));
  const std::string in = inst.path("in.inp").string(), si = inst.path("si.inp").string(),
                    ip = inst.path("ip.inp").string(), same = inst.path("same.inp").string();
  ASSERT_EQ(runCli({"--install", inst.dir(), "inp", "convert", "--to", "si", in, si}).status, 0);
  ASSERT_EQ(runCli({"--install", inst.dir(), "inp", "convert", "--to", "ip", si, ip}).status, 0);
  const auto siLines = splitLines(inst.read("si.inp")), ipLines = splitLines(inst.read("ip.inp"));
  EXPECT_EQ(siLines[0], "MARLOVEN   .7055475  4  SI");
  EXPECT_NE(indexOf(siLines, "FloorArea   1338"), -1);
  EXPECT_EQ(ipLines[0], "MARLOVEN   .7055475  4  IP");
  EXPECT_NE(indexOf(ipLines, "FloorArea   14402.1"), -1);
  // Already in the target system: written as a save in that system would be.
  ASSERT_EQ(runCli({"--install", inst.dir(), "inp", "convert", "--to", "si", si, same}).status, 0);
  const auto sameLines = splitLines(inst.read("same.inp"));
  EXPECT_NE(indexOf(sameLines, "FloorArea   1338"), -1);
}

TEST(Convert, BadFilesAndBadTargets) {
  TempInstall inst;
  inst.write("bad.inp", "MARLOVEN   .5  4  IP\r\nonly a header\r\n");
  inst.write("out.inp", "keep\r\n");
  const Result bad = runCli({"--install", inst.dir(), "inp", "convert", "--to", "si",
                             inst.path("bad.inp").string(), inst.path("out.inp").string()});
  EXPECT_EQ(bad.status, 1);
  EXPECT_EQ(bad.err.rfind("Marloven Error #  62: MARLOVEN is unable to open your input file", 0), 0u) << bad.err;
  EXPECT_EQ(inst.read("out.inp"), "keep\r\n");
  for (const std::vector<std::string>& args : {std::vector<std::string>{"inp", "convert", "--to", "cgs", "a", "b"},
                                              {"inp", "convert", "a", "b"},
                                              {"inp", "convert", "--to", "si", "a"}})
    EXPECT_EQ(runCli(args).status, 2);
}

}  // namespace
}  // namespace marloven::testing
