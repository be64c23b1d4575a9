#include "sketch/sketch_matrix.h"

#include "common/number_text.h"

namespace marloven {

char encodeCell(int zone) {
  // Two paths for one rule, as the files have always been written: the
  // hexadecimal digit below 16, code + 55 above; both give the same letter.
  if (zone >= 0 && zone < 10) return static_cast<char>('0' + zone);
  if (zone >= 10 && zone < 16) return static_cast<char>('A' + zone - 10);
  return static_cast<char>(zone + 55);
}

int decodeCell(char c) {
  const int code = static_cast<unsigned char>(c);
  if (c > '9' || c < '0') return code - 55;
  return code - '0';
}

std::string stockZoneName(int level, int zone) {
  return " Zone " + std::to_string(level) + "-" + std::to_string(zone);
}

bool isStockZoneName(const std::string& name) { return name.rfind(" Zone", 0) == 0 || name == " "; }

SketchMatrix::SketchMatrix() {
  for (int z = 1; z <= kZonesPerLevel; ++z) zoneNames[z] = stockZoneName(1, z);
}

void SketchMatrix::setGridSize(float size) {
  gridSize = size;
  unitsPerDrawingUnit = size / static_cast<float>(kCellUnits);
}

void SketchMatrix::setFloorsInLevel(float floors) {
  floorsInLevel = floors;
  if (currentLevel >= 1 && currentLevel <= kMaxLevels)
    levelHeight[currentLevel] = static_cast<double>(floorsInLevel) * roomHeight;
}

void SketchMatrix::setRoomHeight(float height) {
  roomHeight = height;
  if (currentLevel >= 1 && currentLevel <= kMaxLevels)
    levelHeight[currentLevel] = static_cast<double>(floorsInLevel) * roomHeight;
}

void SketchMatrix::clearCells() {
  for (auto& row : cells) row.fill(0);
}

void SketchMatrix::sumZoneAreas() {
  zoneArea.fill(0);
  const double cellArea = static_cast<double>(gridSize) * gridSize;
  for (int r = 1; r <= kGridRows; ++r)
    for (int c = 1; c <= kGridCols; ++c) {
      const int z = cells[r][c];
      if (z >= 1 && z <= kZonesPerLevel) zoneArea[z] = roundTo(zoneArea[z] + cellArea, 1);
    }
  float sum = 0;
  for (int z = 1; z <= kZonesPerLevel; ++z) sum += zoneArea[z];
  levelHeader[kHeaderFloorArea] = sum;
  levelHeader[kHeaderSectionArea] = sum * floorsInLevel;
}

}  // namespace marloven
