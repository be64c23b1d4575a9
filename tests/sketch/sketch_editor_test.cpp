// The sketch screen's rules, driven through the editor as the screen drives
// it: gestures painted on the raster and read back into cells, the level
// moves and their questions, the edit boxes, and a whole session that leaves
// through Exit into the zone extraction.
#include "sketch/sketch_editor.h"

#include <gtest/gtest.h>

#include "common/file_error.h"
#include "common/file_io.h"
#include "sketch/extract_zones.h"
#include "sketch/sketch_copies.h"
#include "sketch_test_util.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

const std::string kTemplate = std::string(MARLOVEN_SOURCE_DIR) + "/install/sketch/bld_mtx2.000";

TEST(Raster, XorDrawingTwiceLeavesThePixelsAsTheyWere) {
  Raster r;
  r.fillRect(0, 0, 100, 100, 0x123456);
  const std::vector<Colour> before = r.pixels();
  r.outline(-50, 20, 150, 300, kWhite, DrawMode::Xor, true);
  r.outline(-50, 20, 150, 300, kWhite, DrawMode::Xor, true);
  r.circle(30, 30, 57, kWhite, DrawMode::Xor);
  r.circle(30, 30, 57, kWhite, DrawMode::Xor);
  EXPECT_EQ(r.pixels(), before);
  // Once: the corners of an outline are inverted too, not twice.
  r.outline(0, 0, 50, 50, kWhite, DrawMode::Xor);
  EXPECT_EQ(r.pixel(0, 0), 0x123456u ^ 0xFFFFFFu);
  EXPECT_EQ(r.pixel(50.5, 50), 0x123456u ^ 0xFFFFFFu);
}

TEST(Raster, ScaleEndsAreDrawableAndFillsIncludeBothEdges) {
  Raster r;
  EXPECT_EQ(r.width(), 901);
  EXPECT_EQ(r.height(), 601);
  r.fillRect(10, 10, 20, 20, 0xAB);
  EXPECT_EQ(r.pixel(10, 10), 0xABu);
  EXPECT_EQ(r.pixel(20.9, 19.5), 0xABu);
  EXPECT_EQ(r.pixel(21, 15), kWhite);
  r.dot(800, 0, 2, kBlack);
  EXPECT_EQ(r.pixelAt(900, 600), kBlack);
  EXPECT_EQ(r.pixel(-1000, 5), kWhite);  // outside reads as the background
  Raster fine(2.0);
  EXPECT_EQ(fine.width(), 1801);
  fine.fillRect(0, 0, 10, 10, 0x55);
  EXPECT_EQ(fine.pixel(5, 2.5), 0x55u);
}

TEST(ZoneColours, TableFromThePaletteWithItsShiftedEntries) {
  const auto t = stockZoneColours();
  EXPECT_EQ(t[0], 0x000000u);
  EXPECT_EQ(t[1], 0x800000u);
  EXPECT_EQ(t[14], 0x00FFFFu);
  EXPECT_EQ(t[15], 0x0000A0u);  // palette[4] + 32
  EXPECT_EQ(t[22], 0x000020u);  // palette[0] + 32
  EXPECT_EQ(t[23], 0x7FFFE0u);  // palette[1] - 32, borrowing across the channels
  EXPECT_EQ(t[24], 0x007FE0u);
  EXPECT_EQ(t[25], kWhite);
  for (int i = 0; i < 25; ++i)
    for (int j = i + 1; j < 26; ++j) EXPECT_NE(t[i], t[j]) << i << " " << j;
}

TEST(SketchCopies, NamesAndPathsOfTheSaveDialog) {
  EXPECT_EQ(sketchCopyName("C:\\jobs\\school.inp", ".wri"), "school.wri");
  EXPECT_EQ(sketchCopyName("D:OFFICE.INP", ".jpg"), "OFFICE.jpg");
  EXPECT_EQ(sketchCopyName("/home/me/plan.inp.bak", ".wri"), "plan.inp.bak.wri");
  EXPECT_EQ(sketchCopyName("New_Project", ".wri"), "New_Project.wri");
  EXPECT_EQ(dialogPath("/home/me", "a.wri"), "/home/me/a.wri");
  EXPECT_EQ(dialogPath("/", "a.wri"), "/a.wri");
  EXPECT_EQ(dialogPath("/home/me", "/tmp/a.jpg"), "/tmp/a.jpg");
  EXPECT_EQ(dialogPath("/home/me", "C:a.jpg"), "C:a.jpg");
}

struct Sketch {
  explicit Sketch(const std::string& whole = readFile(kTemplate)) {
    inst.write("sketch/bld_mtx.all", whole);
    p.fileName = "/home/me/office.inp";
    p.data[kFloorArea] = "1000";
    ed.open();
  }

  // A filled box of the zone, dragged from corner to corner.
  void box(int zone, double x1, double y1, double x2, double y2) {
    ed.selectZone(zone - 1);
    ed.mouseDown(x1, y1);
    ed.mouseMove((x1 + x2) / 2, (y1 + y2) / 2, true);
    ed.mouseMove(x2, y2, true);
    ed.mouseUp(x2, y2);
  }
  void click(double x, double y) {
    ed.mouseDown(x, y);
    ed.mouseUp(x, y);
  }
  int cell(int r, int c) const { return ed.matrix().cells[r][c]; }
  int count(int zone) const {
    int n = 0;
    for (int r = 1; r <= kGridRows; ++r)
      for (int c = 1; c <= kGridCols; ++c) n += cell(r, c) == zone;
    return n;
  }

  TempInstall inst;
  Project p;
  FakePrompt prompt;
  SketchEditor ed{inst.dir(), p, prompt};
};

TEST(SketchEditor, OpensOnLevelOneDrawnFromItsCells) {
  Building b;
  b.level(Plan().rect(59, 1, 2, 3, 4), 12, 2);  // rows 59-60 from the top: the bottom two rows
  Sketch s(b.levels[0] + b.levels[0]);
  EXPECT_EQ(s.ed.caption(), "MARLOVEN -- Building Sketch -- /home/me/office.inp");
  EXPECT_EQ(s.ed.matrix().currentLevel, 1);
  EXPECT_EQ(s.ed.matrix().levelCount, 2);
  EXPECT_EQ(s.ed.zoneColours(), stockZoneColours());
  // The bottom row of the top level is lost at every load, not level 1's.
  EXPECT_EQ(s.cell(1, 1), 4);
  EXPECT_EQ(s.cell(2, 3), 4);
  EXPECT_EQ(s.count(4), 6);
  EXPECT_EQ(s.ed.raster().pixel(5, 2.5), stockZoneColours()[3]);
  EXPECT_FLOAT_EQ(s.ed.matrix().zoneArea[4], 24);
  EXPECT_FLOAT_EQ(s.ed.matrix().levelHeader[kHeaderSectionArea], 48);
  EXPECT_EQ(s.ed.fieldText(SketchField::GridSize), "2");
  EXPECT_EQ(s.ed.fieldText(SketchField::Floors), "2");
  EXPECT_EQ(s.ed.fieldText(SketchField::RoomHeight), "12");
  EXPECT_EQ(s.ed.status().level, "Level= 1");
  EXPECT_EQ(s.ed.status().stories, "Stories=1");
  EXPECT_EQ(s.ed.status().floorArea, "FlrArea=1000");
  EXPECT_EQ(s.ed.tool(), DrawTool::FilledBox);
  // Grid dots in zone 1's colour, the compass needle in pure red pointing north.
  EXPECT_EQ(s.ed.raster().pixel(400, 300), kBlack);
  EXPECT_EQ(s.ed.raster().pixel(-20, 35), kPureRed);
  EXPECT_TRUE(s.prompt.log.empty());
}

TEST(SketchEditor, FilledBoxesPaintCellsAndTheLastPaintDecides) {
  Sketch s;
  s.box(1, 0, 0, 100, 100);  // 10 x 10 cells
  EXPECT_EQ(s.count(1), 100);
  EXPECT_FLOAT_EQ(s.ed.matrix().zoneArea[1], 400);
  EXPECT_EQ(s.ed.status().zoneArea, "Zn area=400");
  EXPECT_EQ(s.ed.status().dimensions, "Dim: >20, ^20");
  // Dragged the other way round, over part of zone 1.
  s.box(2, 150, 50, 50, 0);
  EXPECT_EQ(s.cell(1, 5), 1);
  EXPECT_EQ(s.cell(1, 6), 2);
  EXPECT_EQ(s.cell(5, 10), 2);
  EXPECT_EQ(s.cell(6, 10), 1);
  EXPECT_EQ(s.count(1), 75);
  EXPECT_EQ(s.count(2), 50);
  EXPECT_FLOAT_EQ(s.ed.matrix().zoneArea[1], 300);
  EXPECT_FLOAT_EQ(s.ed.matrix().zoneArea[2], 200);
  EXPECT_FLOAT_EQ(s.ed.matrix().levelHeader[kHeaderFloorArea], 500);
  // The running floor area adds the whole zone each time: only a hint.
  EXPECT_FLOAT_EQ(s.p.sketchFloorArea, 1000 + 400 + 200);
  // Mouse up beyond the area stops at its edge; the strip stays clear.
  s.box(3, 790, 590, 850, 700);
  EXPECT_EQ(s.cell(60, 80), 3);
  EXPECT_EQ(s.ed.raster().pixel(-93, nameBoxTop(0) - 7), stockZoneColours()[0]);
}

TEST(SketchEditor, BoxesWithoutWidthAndPressesOutsideAddNothing) {
  Sketch s;
  s.box(1, 100, 100, 100, 300);
  s.box(1, 100, 100, 300, 100);
  EXPECT_EQ(s.count(1), 0);
  EXPECT_EQ(s.ed.status().zoneArea, "Zn area=0");
  EXPECT_EQ(s.ed.raster().pixel(100, 205), kWhite);
  // A press in the strip but right of the swatches, and below the area.
  EXPECT_EQ(s.ed.mouseDown(-50, 300), kRedrawNothing);
  EXPECT_EQ(s.ed.mouseUp(50, 300), kRedrawNothing);
  EXPECT_EQ(s.count(1), 0);
}

TEST(SketchEditor, GridFillTogglesCellsOnAndOffAndDragsOver) {
  Sketch s;
  s.ed.chooseTool(DrawTool::CellPaint);
  s.ed.selectZone(2);
  s.click(15, 15);
  EXPECT_EQ(s.cell(2, 2), 3);
  EXPECT_EQ(s.ed.status().zoneArea, "Zn area=4");
  // A second press on the painted cell erases it, whatever zone is current.
  s.ed.selectZone(0);
  s.click(19, 11);
  EXPECT_EQ(s.cell(2, 2), 0);
  EXPECT_EQ(s.count(3), 0);
  // A drag paints every cell it crosses in the colour of the press.
  s.ed.mouseDown(5, 5);
  for (double x = 5; x <= 45; x += 3) s.ed.mouseMove(x, 5, true);
  s.ed.mouseUp(45, 5);
  EXPECT_EQ(s.count(1), 5);
  EXPECT_EQ(s.cell(1, 5), 1);
  EXPECT_FLOAT_EQ(s.ed.matrix().zoneArea[1], 20);
  // Started on a painted cell, the drag erases.
  s.ed.mouseDown(25, 5);
  s.ed.mouseMove(35, 5, true);
  s.ed.mouseMove(45, 5, true);
  s.ed.mouseUp(45, 5);
  EXPECT_EQ(s.count(1), 2);
}

TEST(SketchEditor, GuideLinesLettersAndColoursOfNoZoneChangeNoCell) {
  Sketch s;
  s.box(1, 0, 0, 200, 200);
  s.ed.chooseTool(DrawTool::GuideBox);
  EXPECT_EQ(s.ed.pointer(), Pointer::Cross);
  s.ed.selectZone(4);
  s.box(5, 100, 100, 400, 400);
  EXPECT_EQ(s.count(1), 400);
  EXPECT_EQ(s.count(5), 0);
  s.ed.chooseTool(DrawTool::FilledBox);
  s.ed.setColour(rgb(12, 200, 77));
  s.ed.mouseDown(0, 0);
  s.ed.mouseUp(300, 300);
  EXPECT_EQ(s.ed.raster().pixel(105, 102.5), rgb(12, 200, 77));
  EXPECT_EQ(s.count(1), 400);  // kept as they were
  EXPECT_EQ(s.count(0), 4800 - 400);
  // Letters go at the point of the last press, in the drawing colour.
  s.ed.mouseDown(100, 250);
  s.ed.mouseUp(100, 250);
  s.ed.typed('H');
  s.ed.typed('i');
  EXPECT_EQ(s.ed.raster().pixel(100.5, 249.5), rgb(12, 200, 77));
  EXPECT_EQ(s.ed.raster().pixel(107.5, 249.5), rgb(12, 200, 77));
  // Erase Window is a white box: it clears what it covers.
  s.ed.eraseWindow();
  s.ed.mouseDown(0, 0);
  s.ed.mouseUp(300, 100);
  EXPECT_EQ(s.count(1), 200);
  EXPECT_EQ(s.count(0), 4800 - 200);
  // Guide lines go at Cleanup; the cells stay.
  s.ed.cleanup();
  EXPECT_EQ(s.ed.raster().pixel(105, 205), kWhite);
  EXPECT_EQ(s.ed.raster().pixel(105, 152.5), kBlack);
  EXPECT_EQ(s.count(1), 200);
}

TEST(SketchEditor, SwatchesAndNameBoxesPickTheZone) {
  Sketch s;
  s.box(7, 0, 0, 20, 20);
  s.ed.selectZone(0);
  s.ed.mouseDown(-93, nameBoxTop(6) - 7);
  EXPECT_EQ(s.ed.matrix().currentZone, 7);
  EXPECT_EQ(s.ed.foreground(), stockZoneColours()[6]);
  EXPECT_EQ(s.ed.status().zoneArea, "Zn area=16");
  s.ed.renameZone(6, "Lobby");
  EXPECT_EQ(s.ed.matrix().zoneNames[7], "Lobby");
  // A zone drawn away gets its stock name back.
  s.ed.eraseWindow();
  s.ed.mouseDown(1, 1);
  s.ed.mouseUp(20, 20);
  EXPECT_EQ(s.ed.matrix().zoneNames[7], " Zone 1-7");
}

TEST(SketchEditor, EraseAllAsksAndOnTheOnlyLevelRemovesIt) {
  Sketch s;
  s.box(1, 0, 0, 100, 100);
  s.prompt.answers = {Answer::Cancel};
  s.ed.eraseAll();
  EXPECT_EQ(s.count(1), 100);
  s.prompt.answers = {Answer::Ok, Answer::Cancel};
  s.ed.eraseAll();
  EXPECT_EQ(s.count(1), 100);
  ASSERT_EQ(s.prompt.log.size(), 3u);
  EXPECT_EQ(s.prompt.log[1].title, "Warning - Drawing will be lost");
  EXPECT_EQ(s.prompt.log[2].title, "Remove Top Floor?  Building Height to be Reduced!");
  EXPECT_EQ(s.prompt.log[2].buttons, Buttons::YesNoCancel);

  s.prompt.answers = {Answer::Ok, Answer::Yes};
  s.ed.eraseAll();
  EXPECT_EQ(s.count(1), 0);
  EXPECT_EQ(s.ed.matrix().levelCount, 0);
  EXPECT_EQ(s.ed.matrix().currentLevel, 1);
  EXPECT_FLOAT_EQ(s.p.sketchFloorArea, 1000);
  EXPECT_EQ(s.ed.status().zoneArea, "Zn area=0");
  // Exit then makes no zones and leaves the whole file alone.
  const std::string whole = s.inst.read("sketch/bld_mtx.all");
  s.ed.exit();
  EXPECT_FALSE(s.inst.exists("temp/zname.tmp"));
  EXPECT_EQ(s.inst.read("sketch/bld_mtx.all"), whole);
  EXPECT_EQ(s.prompt.unscripted, 0);
}

TEST(SketchEditor, LevelMovesSaveLoadAndAskAtTheTop) {
  Sketch s;
  s.box(1, 0, 0, 100, 100);
  // Down from level 1 stays there, with the drawing.
  s.ed.levelDown();
  EXPECT_EQ(s.ed.matrix().currentLevel, 1);
  EXPECT_EQ(s.count(1), 100);
  EXPECT_TRUE(s.prompt.log.empty());
  // Up from the top asks; No stays, and the level was saved.
  s.ed.levelUp();
  ASSERT_EQ(s.prompt.log.size(), 1u);
  EXPECT_EQ(s.prompt.log[0].title, "Maximum Levels Exceeded");
  EXPECT_EQ(s.ed.matrix().currentLevel, 1);
  EXPECT_NE(s.inst.read("sketch/bld_mtx.i1").find("1111111111"), std::string::npos);
  // Yes adds a level that starts as a copy of the top one; the bar counts stories.
  s.prompt.answers = {Answer::Yes};
  s.ed.scroll(1);
  EXPECT_EQ(s.ed.matrix().currentLevel, 2);
  EXPECT_EQ(s.ed.matrix().levelCount, 2);
  EXPECT_EQ(s.ed.status().level, "Level= 2");
  EXPECT_EQ(s.ed.status().stories, "Stories=2");
  EXPECT_EQ(s.count(1), 100);
  EXPECT_EQ(s.ed.matrix().zoneNames[1], " Zone 2-1");
  // Level 2 changed, then back down by the bar: level 1 is as it was.
  s.box(2, 0, 0, 50, 50);
  s.ed.scroll(0);
  EXPECT_EQ(s.ed.matrix().currentLevel, 1);
  EXPECT_EQ(s.count(1), 100);
  EXPECT_EQ(s.count(2), 0);
  s.ed.scroll(100);  // a large step still goes one level
  EXPECT_EQ(s.ed.matrix().currentLevel, 2);
  EXPECT_EQ(s.count(2), 25);
  // Erase All on the top level with No clears it but keeps the level.
  s.prompt.answers = {Answer::Ok, Answer::No};
  s.ed.eraseAll();
  EXPECT_EQ(s.ed.matrix().levelCount, 2);
  EXPECT_EQ(s.ed.matrix().currentLevel, 2);
  EXPECT_EQ(s.count(0), 4800);
  // Below the top only the first question is asked; Yes there removes nothing.
  s.ed.levelDown();
  s.prompt.log.clear();
  s.prompt.answers = {Answer::Ok};
  s.ed.eraseAll();
  EXPECT_EQ(s.prompt.log.size(), 1u);
  EXPECT_EQ(s.ed.matrix().levelCount, 2);
  EXPECT_EQ(s.count(1), 0);
}

TEST(SketchEditor, EditBoxesFilterKeysAndSetTheLevel) {
  Sketch s;
  s.box(1, 0, 0, 20, 20);
  for (char k : {'0', '9', '.', ' ', '\r', '\b'}) EXPECT_TRUE(s.ed.fieldKey(SketchField::GridSize, k)) << k;
  EXPECT_TRUE(s.prompt.log.empty());
  EXPECT_FALSE(s.ed.fieldKey(SketchField::RoomHeight, 'x'));
  EXPECT_FALSE(s.ed.fieldKey(SketchField::Floors, '-'));
  ASSERT_EQ(s.prompt.log.size(), 4u);
  EXPECT_EQ(s.prompt.log[0].kind, FakePrompt::Kind::Beep);
  EXPECT_EQ(s.prompt.log[1].title, "Error");
  EXPECT_EQ(s.prompt.log[1].text, "You should use numerical value.");
  s.ed.fieldChanged(SketchField::Floors, "A=");
  EXPECT_FALSE(s.ed.fieldKey(SketchField::Floors, '\b'));

  // The grid size follows the box, and the areas follow the grid size.
  s.ed.fieldChanged(SketchField::GridSize, "3x");
  EXPECT_FLOAT_EQ(s.ed.matrix().gridSize, 3);
  EXPECT_FLOAT_EQ(s.ed.matrix().unitsPerDrawingUnit, 0.3f);
  EXPECT_EQ(s.ed.status().zoneArea, "Zn area=36");
  s.ed.fieldChanged(SketchField::GridSize, "");
  EXPECT_FLOAT_EQ(s.ed.matrix().gridSize, 0);
  EXPECT_EQ(s.ed.status().zoneArea, "Zn area=36");  // no rebuild at 0
  s.ed.fieldChanged(SketchField::GridSize, "3");
  // Floors keep only digits; the level height follows both boxes.
  s.ed.fieldChanged(SketchField::Floors, "2.5");
  s.ed.fieldChanged(SketchField::RoomHeight, "1o.5");
  EXPECT_FLOAT_EQ(s.ed.matrix().floorsInLevel, 25);
  EXPECT_FLOAT_EQ(s.ed.matrix().roomHeight, 1.5f);
  EXPECT_DOUBLE_EQ(s.ed.matrix().levelHeight[1], 37.5);
  s.ed.fieldChanged(SketchField::Floors, "2");
  // An accepted key turns the needle at once: east.
  s.ed.fieldChanged(SketchField::Orientation, "9");
  EXPECT_TRUE(s.ed.fieldKey(SketchField::Orientation, '0'));
  EXPECT_EQ(s.ed.raster().pixel(-5, 20), kPureRed);
  EXPECT_NE(s.ed.raster().pixel(-20, 35), kPureRed);
  s.ed.fieldChanged(SketchField::Orientation, "90");
  EXPECT_FLOAT_EQ(s.ed.matrix().orientation, 90);
  EXPECT_EQ(s.ed.matrix().orientationText, "90");

  // Clicks into the two building-wide boxes warn above level 1 only.
  s.prompt.log.clear();
  s.ed.fieldClicked(SketchField::GridSize);
  EXPECT_TRUE(s.prompt.log.empty());
  s.prompt.answers = {Answer::Yes};
  s.ed.levelUp();
  s.prompt.log.clear();
  s.ed.fieldClicked(SketchField::GridSize);
  s.ed.fieldClicked(SketchField::Orientation);
  s.ed.fieldClicked(SketchField::RoomHeight);
  ASSERT_EQ(s.prompt.log.size(), 2u);
  EXPECT_EQ(s.prompt.log[0].title, "Grid Size Change");
  EXPECT_EQ(s.prompt.log[0].text, "Grid size change can only be made from first level");
  EXPECT_EQ(s.prompt.log[1].title, "Orientation Change");
  EXPECT_EQ(s.prompt.log[1].icon, Icon::Information);
}

TEST(SketchEditor, DrawingUnitsAsksForTheGridSize) {
  Sketch s;
  s.prompt.inputs = {std::string(), std::string("2.5")};
  EXPECT_EQ(s.ed.drawingUnits(), kRedrawNothing);
  EXPECT_FLOAT_EQ(s.ed.matrix().gridSize, 2);
  s.ed.drawingUnits();
  EXPECT_EQ(s.prompt.log[1].title, "Drawing Scale");
  EXPECT_EQ(s.prompt.log[1].text, "Enter the dimension represented by one drawing grid");
  EXPECT_FLOAT_EQ(s.ed.matrix().gridSize, 2.5f);
  EXPECT_EQ(s.ed.fieldText(SketchField::GridSize), "2.5");
  s.ed.mouseMove(41, 19, false);
  EXPECT_EQ(s.ed.status().position, "X,Y=10,5");
}

TEST(SketchEditor, CancelAsksAndLoadingAFileReplacesTheSketch) {
  Sketch s;
  s.prompt.answers = {Answer::Cancel, Answer::Ok};
  EXPECT_FALSE(s.ed.cancelChanges());
  EXPECT_TRUE(s.ed.cancelChanges());
  EXPECT_EQ(s.prompt.log[0].title, "Warning - Drawing update will not occur");

  s.box(1, 0, 0, 100, 100);
  Building b;
  b.level(Plan().rect(1, 1, 3, 3, 9)).level(Plan());
  s.inst.write("saved.wri", b.levels[0] + b.levels[1]);
  s.ed.loadDrawing((s.inst.root() / "saved.wri").string());
  EXPECT_EQ(s.count(1), 0);
  EXPECT_EQ(s.count(9), 9);
  EXPECT_EQ(s.cell(60, 1), 9);
  EXPECT_EQ(s.ed.matrix().levelCount, 2);
  EXPECT_EQ(s.inst.read("sketch/bld_mtx.all"), b.levels[0] + b.levels[1]);
}

TEST(SketchEditor, LoadingAMissingFileOrOneThatIsNoSketchChangesNothing) {
  Sketch s;
  s.box(3, 0, 0, 100, 100);
  const std::string whole = s.inst.read("sketch/bld_mtx.all");
  const std::string level1 = s.inst.read("sketch/bld_mtx.i1");
  s.inst.write("notes.wri", "Dear Sir,\r\nplease find the plans enclosed.\r\n");
  s.inst.write("empty.wri", "");
  std::string overrun = readFile(kTemplate);
  overrun.insert(overrun.find("ZoneName[1 ]"), "ZoneName[0]: extra\r\n");
  s.inst.write("overrun.wri", overrun);
  for (const auto& [name, number] : std::vector<std::pair<std::string, int>>{
           {"missing.wri", err::kFileNotFound}, {"notes.wri", err::kBadFileName}, {"empty.wri", err::kBadFileName},
           {"overrun.wri", err::kSubscriptOutOfRange}}) {
    try {
      s.ed.loadDrawing((s.inst.root() / name).string());
      ADD_FAILURE() << name << " was loaded";
    } catch (const FileError& e) {
      EXPECT_EQ(e.number(), number) << name;
    }
    EXPECT_EQ(s.inst.read("sketch/bld_mtx.all"), whole) << name;
    EXPECT_EQ(s.inst.read("sketch/bld_mtx.i1"), level1) << name;
    EXPECT_EQ(s.count(3), 100) << name;
  }
}

// A two-level building drawn, left by Exit: the model and the scratch files
// get exactly what the extraction makes of the same plans.
TEST(SketchEditor, DrawnBuildingReachesTheModelThroughExit) {
  Sketch s;
  s.box(1, 100, 100, 300, 300);   // level 1: two zones side by side
  s.box(2, 300, 100, 400, 200);
  s.ed.renameZone(1, "Shop");
  s.prompt.answers = {Answer::Yes};
  s.ed.scroll(1);
  s.prompt.answers = {Answer::Ok, Answer::No};
  s.ed.eraseAll();
  s.box(1, 100, 100, 200, 300);   // level 2: set back over part of zone 1
  s.ed.fieldChanged(SketchField::RoomHeight, "10");
  s.ed.exit();

  // Row 1 of a plan is the top of the screen: y 600..590.
  Building b(2, "0");
  b.level(Plan().rect(31, 11, 20, 20, 1).rect(41, 31, 10, 10, 2), 13);
  b.m.zoneNames[2] = "Shop";
  b.levels[0] = formatLevel(b.m);
  b.level(Plan().rect(31, 11, 20, 10, 1), 10);
  const Extraction x = computeExtraction(b.m, b.levels, s.p.units);

  ASSERT_EQ(s.p.zoneCount, 3);
  ASSERT_EQ(x.zones.size(), 3u);
  for (int k = 0; k < 3; ++k) {
    EXPECT_EQ(s.p.zones[k + 1].listedId, x.zones[k].id);
    EXPECT_EQ(s.p.zones[k + 1].listedName, x.zones[k].name);
    EXPECT_FLOAT_EQ(s.p.zones[k + 1].listedFloorArea, x.zones[k].area);
    EXPECT_EQ(s.p.zones[k + 1].rowCount, x.zones[k].rowCount);
  }
  EXPECT_EQ(s.p.zones[2].listedName, "Shop");
  EXPECT_FLOAT_EQ(s.p.zones[1].listedFloorArea, 1600);
  EXPECT_FLOAT_EQ(s.p.sketchFloorArea, x.totalFloorArea);
  EXPECT_EQ(s.inst.read("temp/zname.tmp"), x.zoneNames);
  EXPECT_EQ(s.inst.read("temp/zarea.tmp"), x.zoneAreas);
  for (const ZoneScratchFile& f : x.zoneFiles) EXPECT_EQ(s.inst.read("temp/" + f.name), f.text) << f.name;
  EXPECT_EQ(splitLines(s.inst.read("sketch/bld_mtx.all")).size(), 2u * kLevelLines);
}

}  // namespace
}  // namespace marloven::testing
