// The sketch document and its files: cell characters, level files written and
// read back, the "+1" way of loading and the add-a-level question, splitting
// bld_mtx.all (older files, new SI sketches, the lost bottom row) and its rebuild.
#include "sketch/level_files.h"

#include <gtest/gtest.h>

#include "common/file_error.h"
#include "sketch_test_util.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

const std::string kTemplate = std::string(MARLOVEN_SOURCE_DIR) + "/install/sketch/bld_mtx2.000";

std::string joinLines(const std::vector<std::string>& lines) {
  std::string s;
  for (const auto& l : lines) s += l + "\r\n";
  return s;
}

TEST(CellEncoding, ZoneNumbersAndTheirCharacters) {
  const std::string expected = "0123456789ABCDEFGHIJKLMNOP";
  for (int z = 0; z <= 25; ++z) {
    EXPECT_EQ(encodeCell(z), expected[z]) << z;
    EXPECT_EQ(decodeCell(expected[z]), z) << z;
  }
  // Damage decodes to numbers outside the zones and is written back as it was.
  for (char c : {'Z', 'a', ' ', '*'}) EXPECT_EQ(encodeCell(decodeCell(c)), c) << c;
  EXPECT_EQ(decodeCell('Z'), 35);
  EXPECT_EQ(decodeCell(' '), -23);
}

TEST(LevelFile, WrittenLayoutAndReadBack) {
  SketchMatrix m;
  m.currentLevel = 1;
  m.setGridSize(2.5f);
  m.orientation = 15;
  m.floorsInLevel = 2;
  m.roomHeight = 12;
  m.zoneNames[3] = "Lobby";
  m.cells[60][1] = 16;  // top left
  m.cells[1][80] = 25;  // bottom right
  m.cells[30][40] = 10;
  m.sumZoneAreas();
  EXPECT_FLOAT_EQ(m.zoneArea[16], 6.3f);  // 6.25 rounded to one decimal
  TempInstall inst;
  saveLevel(m, inst.dir());
  const std::vector<std::string> lines = splitLines(inst.read("sketch/bld_mtx.i1"));
  ASSERT_EQ(lines.size(), 91u);
  EXPECT_EQ(lines[0], "Grid Size   : 2.5");
  EXPECT_EQ(lines[1], "Orientation : 15");
  EXPECT_EQ(lines[2], "No. of Flrs : 2");
  EXPECT_EQ(lines[3], "Room Height : 12");
  EXPECT_EQ(lines[4], "Floor Area  : 18.9");
  EXPECT_EQ(lines[5], "Section Area: 37.8");
  EXPECT_EQ(lines[6], "ZoneName[1 ]: Zone 1-1");
  EXPECT_EQ(lines[8], "ZoneName[3 ]:Lobby");
  EXPECT_EQ(lines[30], "ZoneName[25]: Zone 1-25");
  EXPECT_EQ(lines[31], "G" + std::string(79, '0') + " ");  // row 60 comes first
  EXPECT_EQ(lines[90], std::string(79, '0') + "P ");
  EXPECT_EQ(lines[31 + 30][39], 'A');

  SketchMatrix back;
  back.currentLevel = 1;
  applyLevelText(back, inst.read("sketch/bld_mtx.i1"));
  EXPECT_EQ(back.cells, m.cells);
  EXPECT_EQ(back.zoneNames, m.zoneNames);
  EXPECT_FLOAT_EQ(back.gridSize, 2.5f);
  EXPECT_FLOAT_EQ(back.unitsPerDrawingUnit, 0.25f);
  EXPECT_EQ(back.orientationText, "15");
  EXPECT_DOUBLE_EQ(back.levelHeight[1], 24);

  // Loaded as level 2: stock names follow the level, a user's name stays, and
  // grid size and orientation are level 1's only.
  SketchMatrix second;
  second.currentLevel = 2;
  applyLevelText(second, inst.read("sketch/bld_mtx.i1"));
  EXPECT_EQ(second.zoneNames[1], " Zone 2-1");
  EXPECT_EQ(second.zoneNames[3], "Lobby");
  EXPECT_FLOAT_EQ(second.gridSize, 2.0f);
  EXPECT_DOUBLE_EQ(second.levelHeight[2], 24);
}

TEST(LevelFile, ShortAndMissingRowsLeaveCellsAsTheyWere) {
  SketchMatrix m;
  m.currentLevel = 1;
  for (auto& row : m.cells) row.fill(7);
  std::vector<std::string> lines = splitLines(readFile(kTemplate));
  lines[31] = "12345";  // row 60
  lines.resize(40);     // rows 52..1 missing
  applyLevelText(m, joinLines(lines));
  EXPECT_EQ(m.cells[60][1], 1);
  EXPECT_EQ(m.cells[60][5], 5);
  EXPECT_EQ(m.cells[60][6], 7);
  EXPECT_EQ(m.cells[59][80], 0);
  EXPECT_EQ(m.cells[52][1], 0);
  EXPECT_EQ(m.cells[51][1], 7);
}

class LevelMoves : public ::testing::Test {
 protected:
  void SetUp() override {
    Building b;
    b.level(Plan().cell(1, 1, 3)).level(Plan().cell(2, 2, 4));
    b.save(inst.dir());
    m = b.m;
    m.currentLevel = 0;
    ASSERT_EQ(loadNextLevel(m, inst.dir(), prompt), LevelLoad::Loaded);
  }
  TempInstall inst;
  FakePrompt prompt;
  SketchMatrix m;
};

TEST_F(LevelMoves, LoadingGoesOneUpAndNeverBelowLevelOne) {
  EXPECT_EQ(m.currentLevel, 1);
  EXPECT_EQ(m.cells[60][1], 3);
  EXPECT_EQ(loadLevelBelow(m, inst.dir(), prompt), LevelLoad::BelowFirst);
  EXPECT_EQ(m.currentLevel, 1);
  EXPECT_EQ(loadNextLevel(m, inst.dir(), prompt), LevelLoad::Loaded);
  EXPECT_EQ(m.currentLevel, 2);
  EXPECT_EQ(m.cells[59][2], 4);
  EXPECT_EQ(m.cells[60][1], 0);
  EXPECT_EQ(reloadLevel(m, inst.dir(), prompt), LevelLoad::Loaded);
  EXPECT_EQ(m.currentLevel, 2);
  EXPECT_TRUE(prompt.log.empty());
}

TEST_F(LevelMoves, AboveTheTopTheUserIsAskedToAddALevel) {
  loadNextLevel(m, inst.dir(), prompt);
  prompt.answers = {Answer::No};
  EXPECT_EQ(loadNextLevel(m, inst.dir(), prompt), LevelLoad::Declined);
  EXPECT_EQ(m.currentLevel, 2);
  EXPECT_EQ(m.levelCount, 2);
  ASSERT_EQ(prompt.log.size(), 1u);
  EXPECT_EQ(prompt.log[0].title, "Maximum Levels Exceeded");
  EXPECT_EQ(prompt.log[0].text, "Maximum number of floors exceeded!  Do you wish to add another floor?");
  EXPECT_EQ(prompt.log[0].buttons, Buttons::YesNo);
  EXPECT_EQ(prompt.log[0].icon, Icon::Exclamation);
  EXPECT_FALSE(inst.exists("sketch/bld_mtx.i3"));

  prompt.answers = {Answer::Yes};
  EXPECT_EQ(loadNextLevel(m, inst.dir(), prompt), LevelLoad::Loaded);
  EXPECT_EQ(m.currentLevel, 3);
  EXPECT_EQ(m.levelCount, 3);
  EXPECT_EQ(inst.read("sketch/bld_mtx.i3"), inst.read("sketch/bld_mtx.i2"));
  EXPECT_EQ(m.cells[59][2], 4);
  EXPECT_EQ(m.zoneNames[4], " Zone 3-4");
}

TEST(SplitWholeFile, TemplateInIpAndANewSketchInSi) {
  SketchMatrix ip;
  const auto levels = splitWholeText(readFile(kTemplate), ip, UnitSystem::IP, true);
  ASSERT_EQ(levels.size(), 1u);
  // The bottom row comes back as 80 "0" without the closing blank.
  const std::string tmpl = readFile(kTemplate);
  EXPECT_EQ(levels[0], tmpl.substr(0, tmpl.size() - 83) + std::string(80, '0') + "\r\n");
  EXPECT_EQ(ip.levelCount, 1);
  EXPECT_FLOAT_EQ(ip.gridSize, 2);
  EXPECT_DOUBLE_EQ(ip.levelHeight[1], 13);

  SketchMatrix si;
  const auto siLevels = splitWholeText(readFile(kTemplate), si, UnitSystem::SI, true);
  const auto lines = splitLines(siLevels[0]);
  EXPECT_EQ(lines[0], "Grid Size   : 1");
  EXPECT_EQ(lines[3], "Room Height : 3.5");
  EXPECT_FLOAT_EQ(si.gridSize, 1);
  EXPECT_FLOAT_EQ(si.unitsPerDrawingUnit, 0.1f);
  EXPECT_DOUBLE_EQ(si.levelHeight[1], 3.5);

  SketchMatrix old;  // an SI project that already has its sketch
  splitWholeText(readFile(kTemplate), old, UnitSystem::SI, false);
  EXPECT_FLOAT_EQ(old.gridSize, 2);
}

TEST(SplitWholeFile, BottomRowOfTheTopLevelIsLostAtEveryLoad) {
  Building b(2, "30");
  b.level(Plan().rect(60, 1, 1, 80, 1), 10, 2).level(Plan().rect(60, 1, 1, 80, 2), 12);
  SketchMatrix m;
  const auto levels = splitWholeText(b.levels[0] + b.levels[1], m, UnitSystem::IP, false);
  ASSERT_EQ(levels.size(), 2u);
  EXPECT_EQ(levels[0], b.levels[0]);
  const auto top = splitLines(levels[1]);
  ASSERT_EQ(top.size(), 91u);
  EXPECT_EQ(top[90], std::string(80, '0'));
  EXPECT_EQ(top[89], splitLines(b.levels[1])[89]);
  EXPECT_EQ(m.levelCount, 2);
  EXPECT_DOUBLE_EQ(m.levelHeight[1], 20);
  EXPECT_DOUBLE_EQ(m.levelHeight[2], 12);
  EXPECT_EQ(m.orientationText, "30");
}

TEST(SplitWholeFile, OldFormatGetsFifteenNamesAndEightyColumnRows) {
  // Ten names and rows of 48 cells and a blank, two levels.
  std::string old;
  for (int level = 1; level <= 2; ++level) {
    old += crlf({"Grid Size   : 2", "Orientation : 0", "No. of Flrs : 1", "Room Height : 10", "Floor Area  : 0",
                 "Section Area: 0"});
    for (int z = 1; z <= 10; ++z)
      old += "ZoneName[" + std::to_string(z) + (z < 10 ? " " : "") + "]: Zone " + std::to_string(level) + "-" +
             std::to_string(z) + "\r\n";
    for (int r = 1; r <= 60; ++r) old += std::string(47, '0') + "1 \r\n";
  }
  SketchMatrix m;
  const auto levels = splitWholeText(old, m, UnitSystem::IP, false);
  ASSERT_EQ(levels.size(), 2u);
  for (int level = 1; level <= 2; ++level) {
    const auto lines = splitLines(levels[level - 1]);
    ASSERT_EQ(lines.size(), 91u) << level;
    EXPECT_EQ(lines[16], "ZoneName[11]: Zone " + std::to_string(level) + "-11");
    EXPECT_EQ(lines[30], "ZoneName[25]: Zone " + std::to_string(level) + "-25");
    // Cut to 44 cells, then 32 and 4 blank cells: column 48 is gone.
    EXPECT_EQ(lines[31], std::string(80, '0')) << level;
  }
  EXPECT_EQ(splitLines(levels[1])[90], std::string(80, '0'));
  // Read back as a level, all 25 names are there.
  m.currentLevel = 2;
  applyLevelText(m, levels[1]);
  EXPECT_EQ(m.zoneNames[25], " Zone 2-25");
}

TEST(SplitWholeFile, TextThatDoesNotBeginALevelIsRefused) {
  SketchMatrix m;
  for (const std::string& text : {std::string(), crlf({"BUILDING MATRIX", "Grid Size   : 2"}), crlf({"Grid Size   : 2"})}) {
    try {
      splitWholeText(text, m, UnitSystem::IP, false);
      ADD_FAILURE() << text;
    } catch (const FileError& e) {
      EXPECT_EQ(e.number(), err::kBadFileName);
    }
  }
}

TEST(OpenSketch, SplitsLoadsLevelOneAndClearsTheNewSketchFlag) {
  TempInstall inst;
  inst.write("sketch/bld_mtx.all", readFile(kTemplate));
  Project p;
  p.units = UnitSystem::SI;
  p.flags.newSketch = true;
  SketchMatrix m;
  FakePrompt prompt;
  EXPECT_EQ(openSketch(m, inst.dir(), p, prompt), LevelLoad::Loaded);
  EXPECT_FALSE(p.flags.newSketch);
  EXPECT_EQ(m.currentLevel, 1);
  EXPECT_FLOAT_EQ(m.gridSize, 1);
  EXPECT_FLOAT_EQ(m.roomHeight, 3.5f);
  EXPECT_TRUE(inst.exists("sketch/bld_mtx.i1"));

  inst.write("sketch/bld_mtx.all", "");
  EXPECT_THROW(openSketch(m, inst.dir(), p, prompt), FileError);
}

TEST(RebuildWholeFile, LevelFilesEndToEndThroughTheBackup) {
  TempInstall inst;
  Building b;
  b.level(Plan().cell(5, 5, 1)).level(Plan().cell(6, 6, 2)).level(Plan());
  b.save(inst.dir());
  inst.write("sketch/bld_mtx.all", "old\r\n");
  rebuildWholeFile(b.m, inst.dir());
  EXPECT_EQ(inst.read("sketch/bld_mtx.all"), b.levels[0] + b.levels[1] + b.levels[2]);
  EXPECT_FALSE(inst.exists("sketch/bld_mtx.bak"));

  // A level cut short ends the copying there.
  const auto lines = splitLines(b.levels[1]);
  inst.write("sketch/bld_mtx.i2", joinLines({lines.begin(), lines.begin() + 50}));
  rebuildWholeFile(b.m, inst.dir());
  EXPECT_EQ(inst.read("sketch/bld_mtx.all"), b.levels[0] + joinLines({lines.begin(), lines.begin() + 50}));

  // A missing level leaves the old file.
  inst.write("sketch/bld_mtx.i2", b.levels[1]);
  std::filesystem::remove(inst.path("sketch/bld_mtx.i3"));
  inst.write("sketch/bld_mtx.all", "old\r\n");
  EXPECT_THROW(rebuildWholeFile(b.m, inst.dir()), FileError);
  EXPECT_EQ(inst.read("sketch/bld_mtx.all"), "old\r\n");
}

}  // namespace
}  // namespace marloven::testing
