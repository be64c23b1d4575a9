// Zone and surface extraction: the worked cases, the order rows come out in,
// the shading scans, the files zone entry reads, and the handler on damage.
#include "sketch/extract_zones.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <algorithm>
#include <csignal>

#include "common/file_error.h"
#include "common/file_io.h"
#include "project/zone_scratch.h"
#include "sketch_test_util.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

const std::string kNoShade = " N0. N0. N0.";

std::vector<std::string> briefRows(const Extraction& x, const std::string& fileName) {
  std::vector<std::string> out;
  for (const ZoneScratchFile& f : x.zoneFiles)
    if (f.name == fileName) {
      out.clear();  // a later file of the same name replaces an earlier one
      for (const auto& row : scratchRows(f.text)) out.push_back(brief(row));
    }
  return out;
}

std::string row(const char* id, const char* area, const char* orientation, const char* kind,
                const std::string& shade = kNoShade) {
  return std::string(id) + "|" + area + "|" + orientation + "|" + kind + "|" + shade;
}

bool has(const std::vector<std::string>& rows, const std::string& r) {
  return std::find(rows.begin(), rows.end(), r) != rows.end();
}

TEST(ObstructionFactor, SineOfTheAngleToOneDecimal) {
  EXPECT_FLOAT_EQ(obstructionFactor(10, 8), 0.8f);   // .781
  EXPECT_FLOAT_EQ(obstructionFactor(20, 8), 0.9f);   // .928
  EXPECT_FLOAT_EQ(obstructionFactor(30, 2), 1.0f);   // .998
  EXPECT_FLOAT_EQ(obstructionFactor(1, 100), 0.0f);
  EXPECT_THROW(obstructionFactor(10, 0), FileError);
}

TEST(Extraction, SingleCellOnTheOnlyLevelHasFourWallsRoofAndAFloorWithoutCore) {
  Building b;
  b.level(Plan().cell(30, 40, 1));
  const Extraction x = computeExtraction(b.m, b.levels, UnitSystem::IP);
  ASSERT_EQ(x.zones.size(), 1u);
  EXPECT_EQ(x.zones[0].id, "11");
  EXPECT_EQ(x.zones[0].name, " Zone 1-1");
  EXPECT_FLOAT_EQ(x.zones[0].area, 4);
  EXPECT_EQ(x.zones[0].rowCount, 6);
  // The strip (4 edges x 2 x 3 = 24) is capped at the cell's 4: ratio 1, no core.
  EXPECT_EQ(briefRows(x, "temp11.zon"),
            (std::vector<std::string>{row(" 1  ", " 20 ", " 0 ", "2   "), row(" 1  ", " 20 ", " 90 ", "2   "),
                                      row(" 1  ", " 20 ", " 180 ", "2   "), row(" 1  ", " 20 ", " 270 ", "2   "),
                                      row(" 8  ", " 4 ", " 0 ", "6   "), row(" 14 ", " 4 ", " 0 ", "7   ")}));
  ASSERT_EQ(x.zoneFiles.size(), 1u);
  EXPECT_TRUE(x.zoneFiles[0].text.ends_with("0.0\r\nend\r\n9999\r\n"));
}

TEST(Extraction, TwentyByTenZoneMergesWallsAndSplitsTheFloorByRatio) {
  Building b;
  b.level(Plan().rect(21, 31, 10, 20, 1));
  const Extraction x = computeExtraction(b.m, b.levels, UnitSystem::IP);
  // Strip (20+20+10+10) x 2 x 3 = 360 of 800: ratio 2.22, core "72  " of 440.
  EXPECT_EQ(briefRows(x, "temp11.zon"),
            (std::vector<std::string>{row(" 1  ", " 400 ", " 0 ", "2   "), row(" 1  ", " 200 ", " 270 ", "2   "),
                                      row(" 1  ", " 400 ", " 180 ", "2   "), row(" 1  ", " 200 ", " 90 ", "2   "),
                                      row(" 8  ", " 800 ", " 0 ", "6   "), row(" 14 ", " 360 ", " 0 ", "7   "),
                                      row(" 14 ", " 440 ", " 0 ", "72  ")}));
  EXPECT_FLOAT_EQ(x.totalFloorArea, 800);
}

TEST(Extraction, ThreeFloorTopLevelCountsAreaThriceRoofOnceWallsFullHeight) {
  Building b;
  b.level(Plan().rect(21, 31, 10, 20, 1), 10, 3);
  const Extraction x = computeExtraction(b.m, b.levels, UnitSystem::IP);
  EXPECT_FLOAT_EQ(x.zones[0].area, 2400);
  // Ratio 2400 / 360 = 6.7; the core is one floor less the strip.
  EXPECT_EQ(briefRows(x, "temp11.zon"),
            (std::vector<std::string>{row(" 1  ", " 1200 ", " 0 ", "2   "), row(" 1  ", " 600 ", " 270 ", "2   "),
                                      row(" 1  ", " 1200 ", " 180 ", "2   "), row(" 1  ", " 600 ", " 90 ", "2   "),
                                      row(" 8  ", " 800 ", " 0 ", "6   "), row(" 14 ", " 360 ", " 0 ", "7   "),
                                      row(" 14 ", " 440 ", " 0 ", "76  ")}));
}

TEST(Extraction, ZonesSharingAnEdgeHaveNoSurfaceThereAndTheSortIsNotStable) {
  Building b;
  b.level(Plan().cell(30, 40, 1).cell(30, 41, 2));
  const Extraction x = computeExtraction(b.m, b.levels, UnitSystem::IP);
  EXPECT_EQ(briefRows(x, "temp11.zon"),
            (std::vector<std::string>{row(" 1  ", " 20 ", " 0 ", "2   "), row(" 1  ", " 20 ", " 180 ", "2   "),
                                      row(" 1  ", " 20 ", " 270 ", "2   "), row(" 8  ", " 4 ", " 0 ", "6   "),
                                      row(" 14 ", " 4 ", " 0 ", "7   ")}));
  // Zone 2's north wall was swapped behind its south wall by the sort.
  EXPECT_EQ(briefRows(x, "temp12.zon"),
            (std::vector<std::string>{row(" 1  ", " 20 ", " 180 ", "2   "), row(" 1  ", " 20 ", " 0 ", "2   "),
                                      row(" 1  ", " 20 ", " 90 ", "2   "), row(" 8  ", " 4 ", " 0 ", "6   "),
                                      row(" 14 ", " 4 ", " 0 ", "7   ")}));
}

TEST(Extraction, UpperLevelSetBackGivesTheLowerZoneARoofOfItsOpenCellsOnly) {
  Building b;
  b.level(Plan().rect(29, 39, 3, 3, 1)).level(Plan().cell(30, 40, 1));
  const Extraction x = computeExtraction(b.m, b.levels, UnitSystem::IP);
  // 8 of 9 cells open above: 32; the strip 72 is capped at 36.
  EXPECT_EQ(briefRows(x, "temp11.zon"),
            (std::vector<std::string>{row(" 1  ", " 60 ", " 0 ", "2   "), row(" 1  ", " 60 ", " 270 ", "2   "),
                                      row(" 1  ", " 60 ", " 180 ", "2   "), row(" 1  ", " 60 ", " 90 ", "2   "),
                                      row(" 8  ", " 32 ", " 0 ", "6   "), row(" 14 ", " 36 ", " 0 ", "7   ")}));
  // The top level's cell: walls and a roof, no floor.
  EXPECT_EQ(briefRows(x, "temp21.zon"),
            (std::vector<std::string>{row(" 1  ", " 20 ", " 0 ", "2   "), row(" 1  ", " 20 ", " 90 ", "2   "),
                                      row(" 1  ", " 20 ", " 180 ", "2   "), row(" 1  ", " 20 ", " 270 ", "2   "),
                                      row(" 8  ", " 4 ", " 0 ", "6   ")}));
  EXPECT_FLOAT_EQ(x.totalFloorArea, 40);
}

TEST(Extraction, RoofBelowTheTopStandsJustBeforeItsZonesFloor) {
  // Two zones side by side on level 1, nothing above: every cell is open.
  Building b;
  b.level(Plan().rect(20, 20, 2, 3, 1).rect(20, 23, 2, 3, 2)).level(Plan());
  const Extraction x = computeExtraction(b.m, b.levels, UnitSystem::IP);
  for (const char* name : {"temp11.zon", "temp12.zon"}) {
    const auto rows = briefRows(x, name);
    ASSERT_GE(rows.size(), 3u) << name;
    EXPECT_EQ(rows[rows.size() - 2], row(" 8  ", " 24 ", " 0 ", "6   ")) << name;
    EXPECT_EQ(rows.back().substr(0, 4), " 14 ") << name;
  }
  // The empty top level gives no zones but closes the name list.
  EXPECT_EQ(x.zones.size(), 2u);
  EXPECT_EQ(x.zoneNames, crlf({"11    Zone 1-1", "12    Zone 1-2", "99"}));
}

TEST(Extraction, ShadingScansDiagonalsAndTheFarObstruction) {
  // Zone 1 at (30,40); zone 2 two cells out on both diagonals to the north and
  // five cells straight north: distance 4 cells of 2 ft.
  const Plan plan = Plan().cell(30, 40, 1).cell(28, 38, 2).cell(28, 42, 2).cell(25, 40, 2);
  Building one;
  one.level(plan);
  auto rows = briefRows(computeExtraction(one.m, one.levels, UnitSystem::IP), "temp11.zon");
  ASSERT_EQ(rows.size(), 6u);
  EXPECT_TRUE(has(rows, row(" 1  ", " 20 ", " 0 ", "2   ", " R1. L1. F.8")));  // sin(atan(10 / 8))
  EXPECT_TRUE(has(rows, row(" 1  ", " 20 ", " 90 ", "2   ", " R1. N0. N0.")));
  EXPECT_TRUE(has(rows, row(" 1  ", " 20 ", " 180 ", "2   ", kNoShade)));
  EXPECT_TRUE(has(rows, row(" 1  ", " 20 ", " 270 ", "2   ", " N0. L1. N0.")));

  // On level 1 of two levels the whole building's height counts: 20 over 8.
  Building two;
  two.level(plan).level(Plan().cell(30, 40, 1));
  rows = briefRows(computeExtraction(two.m, two.levels, UnitSystem::IP), "temp11.zon");
  EXPECT_TRUE(has(rows, row(" 1  ", " 20 ", " 0 ", "2   ", " R1. L1. F.9")));

  // A tall building right across: the factor reaches 1.
  Building near;
  near.level(Plan().cell(30, 40, 1).cell(28, 40, 2), 30);
  rows = briefRows(computeExtraction(near.m, near.levels, UnitSystem::IP), "temp11.zon");
  EXPECT_TRUE(has(rows, row(" 1  ", " 60 ", " 0 ", "2   ", " N0. N0. F1.")));
}

TEST(Extraction, EdgeWallsAreNotScanned) {
  Building b;
  b.level(Plan().cell(10, 1, 1).cell(9, 2, 2).cell(1, 5, 3).cell(2, 6, 4));
  const Extraction x = computeExtraction(b.m, b.levels, UnitSystem::IP);
  const auto west = briefRows(x, "temp11.zon");
  EXPECT_TRUE(has(west, row(" 1  ", " 20 ", " 270 ", "2   ", kNoShade)));
  // Its north wall, off the edge, does see zone 2 on the diagonal.
  EXPECT_TRUE(has(west, row(" 1  ", " 20 ", " 0 ", "2   ", " N0. L1. N0.")));
  EXPECT_TRUE(has(briefRows(x, "temp13.zon"), row(" 1  ", " 20 ", " 0 ", "2   ", kNoShade)));
}

TEST(Extraction, NameAndAreaListsAndTwoDigitZones) {
  Building b(2, "15");
  b.level(Plan().cell(30, 40, 1).cell(40, 40, 12));
  const Extraction x = computeExtraction(b.m, b.levels, UnitSystem::IP);
  EXPECT_EQ(x.zoneNames, crlf({"11    Zone 1-1", "112   Zone 1-12", "99"}));
  EXPECT_EQ(x.zoneAreas, crlf({"Zone..Area ", "11    4", "112   4", "15", "99"}));
  ASSERT_EQ(x.zoneFiles.size(), 2u);
  EXPECT_EQ(x.zoneFiles[1].name, "temp112.zon");

  // Nothing drawn: the lists alone, no zone file.
  Building empty;
  empty.level(Plan());
  const Extraction none = computeExtraction(empty.m, empty.levels, UnitSystem::IP);
  EXPECT_TRUE(none.zones.empty());
  EXPECT_TRUE(none.zoneFiles.empty());
  EXPECT_EQ(none.zoneNames, crlf({"99"}));
  EXPECT_EQ(none.zoneAreas, crlf({"Zone..Area ", "0", "99"}));
}

TEST(Extraction, DamagedLevelsRaiseTheirErrors) {
  Building b;
  b.level(Plan().cell(30, 40, 1));
  auto withRow = [&](const std::string& row31) {
    std::vector<std::string> lines = splitLines(b.levels[0]);
    lines[31 + 29] = row31;  // grid row 30
    std::string text;
    for (const auto& l : lines) text += l + "\r\n";
    return std::vector<std::string>{text};
  };
  struct Case {
    std::string name;
    std::vector<std::string> levels;
    int number;
  } cases[] = {
      {"zone character Z", withRow(std::string(79, '0') + "Z"), 9},
      {"zone character *", withRow("*" + std::string(79, '0')), 9},
      {"short row", withRow(std::string(79, '0')), 5},
      {"cut after the names", {b.levels[0].substr(0, b.levels[0].find("000"))}, 0},
      {"cut in the header", {"Grid Size   : 2\r\n"}, err::kInputPastEnd},
  };
  for (const auto& c : cases) {
    if (c.number == 0) {
      EXPECT_NO_THROW(computeExtraction(b.m, c.levels, UnitSystem::IP)) << c.name;  // rows may be missing
      continue;
    }
    try {
      computeExtraction(b.m, c.levels, UnitSystem::IP);
      ADD_FAILURE() << c.name;
    } catch (const FileError& e) {
      EXPECT_EQ(e.number(), c.number) << c.name;
    }
  }
  // A checkerboard needs more than 3300 runs.
  Plan board;
  for (int r = 1; r <= kGridRows; ++r)
    for (int c = 1 + r % 2; c <= kGridCols; c += 2) board.cell(r, c, 1);
  Building checker;
  checker.level(board);
  EXPECT_THROW(computeExtraction(checker.m, checker.levels, UnitSystem::IP), FileError);
}

// --- The whole pass on an installation -------------------------------------

TEST(ExtractZones, WritesFilesZoneEntryReadsAndFillsTheModel) {
  TempInstall inst;
  Building b(2, "15");
  b.level(Plan().rect(21, 31, 10, 20, 1)).level(Plan().rect(21, 31, 10, 10, 1));
  b.save(inst.dir());
  Project p;
  p.units = UnitSystem::IP;
  p.zoneCount = 7;
  FakePrompt prompt;
  ASSERT_EQ(extractZones(b.m, inst.dir(), p, prompt), ExtractOutcome::Done);
  EXPECT_TRUE(prompt.log.empty());

  ASSERT_EQ(p.zoneCount, 2);
  EXPECT_EQ(p.zones[1].listedId, "11");
  EXPECT_EQ(p.zones[2].listedId, "21");
  EXPECT_EQ(p.zones[2].listedName, " Zone 2-1");
  EXPECT_FLOAT_EQ(p.zones[2].listedFloorArea, 400);
  EXPECT_FLOAT_EQ(p.sketchFloorArea, 1200);
  EXPECT_EQ(p.sketchOrientation, "15");

  for (int z = 1; z <= 2; ++z) {
    const ScratchRows rows = readScratchRows(inst.read("temp/temp" + p.zones[z].listedId + ".zon"));
    EXPECT_EQ(rows.count, p.zones[z].rowCount) << z;
  }
  const ScratchRows lower = readScratchRows(inst.read("temp/temp11.zon"));
  ASSERT_EQ(lower.count, 7);
  EXPECT_EQ(lower.rows[1].wallId, 1);
  EXPECT_FLOAT_EQ(lower.rows[1].wallArea, 400);
  EXPECT_FLOAT_EQ(lower.rows[1].slope, 90);
  EXPECT_EQ(lower.rows[5].wallId, 8);  // the roof of the half not built over
  EXPECT_FLOAT_EQ(lower.rows[5].wallArea, 400);
  EXPECT_EQ(lower.rows[7].wallId, 14);
  EXPECT_EQ(lower.rows[7].surfaceExposure, 72);
  EXPECT_FLOAT_EQ(lower.rows[7].slope, 0);
  EXPECT_FLOAT_EQ(lower.rows[7].sillHeight, 2.5f);
  EXPECT_FLOAT_EQ(lower.rows[7].windowHeight, 7.5f);
  EXPECT_TRUE(inst.read("temp/temp21.zon").ends_with("end\r\n9999\r\n"));

  EXPECT_EQ(inst.read("sketch/bld_mtx.all"), b.levels[0] + b.levels[1]);
  EXPECT_FALSE(inst.exists("sketch/bld_mtx.bak"));
}

TEST(ExtractZones, ZoneElevenOfLevelOneAndZoneOneOfLevelElevenShareAFile) {
  TempInstall inst;
  Building b;
  b.level(Plan().cell(30, 40, 1).cell(40, 40, 11));
  for (int level = 2; level <= 11; ++level) b.level(Plan().cell(30, 40, 1));
  b.save(inst.dir());
  Project p;
  p.units = UnitSystem::IP;
  FakePrompt prompt;
  ASSERT_EQ(extractZones(b.m, inst.dir(), p, prompt), ExtractOutcome::Done);
  ASSERT_EQ(p.zoneCount, 12);
  EXPECT_EQ(p.zones[2].listedId, "111");
  EXPECT_EQ(p.zones[12].listedId, "111");
  // Level 11's zone wrote the file last: walls and a roof, and the closing 9999.
  const std::string text = inst.read("temp/temp111.zon");
  EXPECT_EQ(readScratchRows(text).count, 5);
  EXPECT_TRUE(text.ends_with("end\r\n9999\r\n"));
}

TEST(ExtractZones, DamagedLevelShowsTheHandlersMessageAndChangesNothing) {
  for (const std::string& damage : {std::string("Z"), std::string("")}) {
    TempInstall inst;
    Building b;
    b.level(Plan().cell(30, 40, 1)).level(Plan().cell(30, 40, 1));
    b.save(inst.dir());
    std::string level2 = b.levels[1];
    const std::size_t at = level2.rfind(" \r\n");                  // end of the bottom row
    level2.replace(at - 1, 2, damage.empty() ? "" : damage + " ");  // a zone "Z", or a row of 79
    inst.write("sketch/bld_mtx.i2", level2);
    inst.write("temp/zname.tmp", "old\r\n");
    inst.write("sketch/bld_mtx.all", "old sketch\r\n");
    Project p;
    p.zoneCount = 3;
    p.sketchFloorArea = 99;
    FakePrompt prompt;
    EXPECT_EQ(extractZones(b.m, inst.dir(), p, prompt), ExtractOutcome::Failed);
    ASSERT_EQ(prompt.log.size(), 1u);
    EXPECT_EQ(prompt.log[0].title, "Sketch subroutine error");
    EXPECT_EQ(prompt.log[0].text, "Draw Error, Click OK to recover");
    EXPECT_EQ(p.zoneCount, 3);
    EXPECT_FLOAT_EQ(p.sketchFloorArea, 99);
    EXPECT_EQ(inst.read("temp/zname.tmp"), "old\r\n");
    EXPECT_FALSE(inst.exists("temp/temp11.zon"));
    EXPECT_EQ(inst.read("sketch/bld_mtx.all"), "old sketch\r\n");
  }
}

TEST(ExtractZones, AFullDiskIsReportedAsAFullDiskNotAsADrawingError) {
  TempInstall inst;
  Building b;
  b.level(Plan().cell(30, 40, 1));
  b.save(inst.dir());
  Project p;
  FakePrompt prompt;
  // The file-size limit stands in for a full disk: every write past 16 bytes fails.
  rlimit old{};
  getrlimit(RLIMIT_FSIZE, &old);
  rlimit small = old;
  small.rlim_cur = 16;
  void (*oldHandler)(int) = signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  const ExtractOutcome outcome = extractZones(b.m, inst.dir(), p, prompt);
  setrlimit(RLIMIT_FSIZE, &old);
  signal(SIGXFSZ, oldHandler);
  EXPECT_EQ(outcome, ExtractOutcome::Failed);
  ASSERT_EQ(prompt.log.size(), 1u);
  EXPECT_EQ(prompt.log[0].title, "Marloven Error #  61");
  EXPECT_EQ(prompt.log[0].text, "Disk is full.  Save to another disk.");
  try {
    setrlimit(RLIMIT_FSIZE, &small);
    signal(SIGXFSZ, SIG_IGN);
    writeFileAtomic(inst.path("big.txt").string(), std::string(100, 'x'));
    ADD_FAILURE() << "a write past the limit succeeded";
  } catch (const FileError& e) {
    EXPECT_EQ(e.number(), err::kDiskFull);
  }
  setrlimit(RLIMIT_FSIZE, &old);
  signal(SIGXFSZ, oldHandler);
}

TEST(ExtractZones, MissingLevelFileAndNoLevels) {
  TempInstall inst;
  Building b;
  b.level(Plan().cell(30, 40, 1)).level(Plan());
  writeFileAtomic(levelFilePath(inst.dir(), 1), b.levels[0]);  // level 2 never written
  Project p;
  FakePrompt prompt;
  EXPECT_EQ(extractZones(b.m, inst.dir(), p, prompt), ExtractOutcome::Failed);
  EXPECT_EQ(prompt.log.size(), 1u);

  b.m.levelCount = 0;  // Erase All took the only level
  EXPECT_EQ(extractZones(b.m, inst.dir(), p, prompt), ExtractOutcome::NoLevels);
  EXPECT_EQ(prompt.log.size(), 1u);
  EXPECT_FALSE(inst.exists("temp/zname.tmp"));
}

}  // namespace
}  // namespace marloven::testing
