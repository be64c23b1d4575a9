// The sketch document: a stack of levels drawn on a 60 x 80 grid, each level a
// plan that repeats on one or more identical floors. Only the level on screen
// is held here; the others live in their level files (sketch/level_files.h).
//
// Tables keep the 1-based indexes of the files and screens: cells[r][c] with
// row 1 the bottom row of the screen and column 1 the left-most, zone names and
// areas 1..25, level heights 1..98. Entry 0 exists but holds nothing.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace marloven {

inline constexpr int kGridRows = 60;
inline constexpr int kGridCols = 80;
inline constexpr int kCellUnits = 10;                 // drawing units per cell side
inline constexpr int kLevelHeaderLines = 6;
inline constexpr int kZonesPerLevel = 25;
inline constexpr int kLevelLines = kGridRows + 31;    // 6 header, 25 names, 60 rows
inline constexpr int kMaxLevels = 98;
inline constexpr int kOldFormatZones = 10;            // files of the older, 10-zone format
inline constexpr int kOldFormatCols = 48;             // and their 48-column rows

// The header lines of a level file, in file order.
enum LevelHeaderLine : int {
  kHeaderGridSize = 1, kHeaderOrientation, kHeaderFloors, kHeaderRoomHeight, kHeaderFloorArea,
  kHeaderSectionArea
};
inline constexpr std::array<const char*, kLevelHeaderLines + 1> kLevelHeaderLabels = {
    "", "Grid Size", "Orientation", "No. of Flrs", "Room Height", "Floor Area", "Section Area"};

// One cell as a character of a level file: "0" empty, "1".."9", "A".."F" for
// 10..15 and "G".."P" for 16..25 (character code = zone + 55). Values outside
// 0..25 (read from a damaged file) are written back as the character they came
// from, so a level passes through load and save unchanged.
char encodeCell(int zone);
// Any character above "9" or below "0" is its code less 55; the others are their
// digit. Never fails: the range is checked where a zone number is used.
int decodeCell(char c);

// The stock zone name " Zone <level>-<zone>", which follows the level it is on.
std::string stockZoneName(int level, int zone);
// A name that loading replaces by the stock name: one starting " Zone" or a
// single blank.
bool isStockZoneName(const std::string& name);

struct SketchMatrix {
  // One per building, taken from level 1.
  float gridSize = 2.0f;              // ft or m per cell side
  float unitsPerDrawingUnit = 0.2f;   // gridSize / kCellUnits
  float orientation = 0;              // degrees; 0: the top of the sketch points north
  std::string orientationText = "0";  // as read, handed on by the extraction

  // The level on screen.
  float floorsInLevel = 1;
  float roomHeight = 0;
  std::array<float, kLevelHeaderLines + 1> levelHeader{};  // 1..6, file order
  std::array<std::array<std::int16_t, kGridCols + 1>, kGridRows + 1> cells{};
  std::array<float, kZonesPerLevel + 1> zoneArea{};        // one floor, 1 decimal
  std::array<std::string, kZonesPerLevel + 1> zoneNames;   // up to 25 characters

  // The whole stack.
  std::array<double, kMaxLevels + 1> levelHeight{};  // floors x room height per level
  std::int16_t levelCount = 0;
  std::int16_t currentLevel = 0;
  std::int16_t currentZone = 1;
  float stories = 1;

  SketchMatrix();

  void setGridSize(float size);
  // Both keep levelHeight[currentLevel] up to date.
  void setFloorsInLevel(float floors);
  void setRoomHeight(float height);

  void clearCells();
  // Zone areas of one floor from the cells, each cell adding gridSize squared
  // rounded to one decimal; header lines 5 and 6 follow (line 5 times the
  // floors). Cells outside 1..25 count for nothing.
  void sumZoneAreas();
};

}  // namespace marloven
