// Building sketches for tests: plans drawn as rectangles of zones, level files
// made by the document's own writer, and the rows of a zone scratch file.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "common/file_io.h"
#include "common/text_lines.h"
#include "sketch/level_files.h"
#include "sketch/sketch_matrix.h"

namespace marloven::testing {

// A level's cells as the extraction sees them: row 1 is the top of the screen
// (north), column 1 the west edge.
struct Plan {
  std::vector<std::string> rows = std::vector<std::string>(kGridRows, std::string(kGridCols, '0'));

  Plan& rect(int top, int left, int height, int width, int zone) {
    for (int r = top; r < top + height; ++r)
      for (int c = left; c < left + width; ++c) rows[r - 1][c - 1] = encodeCell(zone);
    return *this;
  }
  Plan& cell(int row, int col, int zone) { return rect(row, col, 1, 1, zone); }
};

// A building of levels added bottom up, each written by formatLevel.
struct Building {
  SketchMatrix m;
  std::vector<std::string> levels;

  explicit Building(float gridSize = 2, std::string orientation = "0") {
    m.setGridSize(gridSize);
    m.orientation = static_cast<float>(std::stod(orientation));
    m.orientationText = std::move(orientation);
  }

  Building& level(const Plan& plan, float roomHeight = 10, float floors = 1) {
    m.currentLevel = static_cast<std::int16_t>(levels.size() + 1);
    m.levelCount = m.currentLevel;
    m.floorsInLevel = floors;
    m.setRoomHeight(roomHeight);
    for (int z = 1; z <= kZonesPerLevel; ++z) m.zoneNames[z] = stockZoneName(m.currentLevel, z);
    m.clearCells();
    for (int r = 1; r <= kGridRows; ++r)
      for (int c = 1; c <= kGridCols; ++c)
        m.cells[kGridRows + 1 - r][c] = static_cast<std::int16_t>(decodeCell(plan.rows[r - 1][c - 1]));
    m.levelHeader = {0, m.gridSize, m.orientation, floors, roomHeight, 0, 0};
    levels.push_back(formatLevel(m));
    return *this;
  }

  // The level files written under installDir, as the sketch screen leaves them.
  void save(const std::string& installDir) const {
    for (std::size_t i = 0; i < levels.size(); ++i)
      writeFileAtomic(levelFilePath(installDir, static_cast<int>(i) + 1), levels[i]);
  }
};

// The 14 values of each row of a zone scratch file, up to "end".
inline std::vector<std::array<std::string, 14>> scratchRows(const std::string& text) {
  const std::vector<std::string> lines = splitLines(text);
  std::vector<std::array<std::string, 14>> rows;
  for (std::size_t i = 0; i + 14 <= lines.size() && lines[i] != "end"; i += 14) {
    std::array<std::string, 14> row;
    for (std::size_t k = 0; k < 14; ++k) row[k] = lines[i + k];
    rows.push_back(row);
  }
  return rows;
}

// Wall ID, area, orientation, exposure and shading of a row, joined by "|".
inline std::string brief(const std::array<std::string, 14>& row) {
  return row[0] + "|" + row[1] + "|" + row[2] + "|" + row[3] + "|" + row[4];
}

}  // namespace marloven::testing
