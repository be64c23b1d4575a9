#include "sketch/level_files.h"

#include <algorithm>
#include <filesystem>

#include "common/column_printer.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"

namespace marloven {

namespace {

constexpr int kMaxSplitLines = 10000;
constexpr int kValueColumn = 14;
constexpr int kValueWidth = 8;

bool startsWith(std::string_view s, std::string_view prefix) { return s.substr(0, prefix.size()) == prefix; }
bool isGridLine(std::string_view s) { return startsWith(s, "Grid") || startsWith(s, "grid"); }
bool isNameLine(std::string_view s) { return startsWith(s, "Zone") || startsWith(s, "zone"); }

float headerValue(std::string_view line) {
  return static_cast<float>(leadingNumber(midText(line, kValueColumn, kValueWidth)));
}

// The value's text as it stands in the file, without its blanks.
std::string headerValueText(std::string_view line) {
  std::string_view v = midText(line, kValueColumn, kValueWidth);
  while (!v.empty() && v.front() == ' ') v.remove_prefix(1);
  while (!v.empty() && v.back() == ' ') v.remove_suffix(1);
  return std::string(v);
}

void setOrientation(SketchMatrix& m, std::string_view line) {
  m.orientation = headerValue(line);
  m.orientationText = headerValueText(line);
}

std::string nameLine(int zone, std::string_view name) {
  std::string s = "ZoneName[" + std::to_string(zone);
  if (zone < 10) s += ' ';
  s += "]:";
  s += name;
  return s;
}

void checkLevelNumber(int level) {
  if (level < 1 || level > kMaxLevels)
    throw FileError(err::kSubscriptOutOfRange, "sketch level " + std::to_string(level));
}

std::string levelText(int level) {
  checkLevelNumber(level);
  return std::to_string(level);
}

}  // namespace

std::string levelFilePath(const std::string& installDir, int level) {
  return joinPath(installDir, "sketch/bld_mtx.i" + levelText(level));
}
std::string wholeSketchPath(const std::string& installDir) { return joinPath(installDir, "sketch/bld_mtx.all"); }
std::string sketchBackupPath(const std::string& installDir) { return joinPath(installDir, "sketch/bld_mtx.bak"); }
std::string sketchTemplatePath(const std::string& installDir) {
  return joinPath(installDir, "sketch/bld_mtx2.000");
}

std::string formatLevel(const SketchMatrix& m) {
  ColumnPrinter out;
  for (int i = 1; i <= kLevelHeaderLines; ++i)
    out.text(kLevelHeaderLabels[i]).tab(13).text(":").text(padded(m.levelHeader[i])).endLine();
  for (int z = 1; z <= kZonesPerLevel; ++z) out.line(nameLine(z, m.zoneNames[z]));
  std::string row(kGridCols, '0');
  for (int r = kGridRows; r >= 1; --r) {
    for (int c = 1; c <= kGridCols; ++c) row[c - 1] = encodeCell(m.cells[r][c]);
    // The closing blank is part of the format; readers stop at column 80.
    out.text(row).text(" ").endLine();
  }
  return out.take();
}

void saveLevel(SketchMatrix& m, const std::string& installDir) {
  m.levelHeader[kHeaderGridSize] = m.gridSize;
  m.levelHeader[kHeaderOrientation] = m.orientation;
  m.levelHeader[kHeaderFloors] = m.floorsInLevel;
  m.levelHeader[kHeaderRoomHeight] = m.roomHeight;
  writeFileAtomic(levelFilePath(installDir, m.currentLevel), formatLevel(m));
}

void applyLevelText(SketchMatrix& m, std::string_view text) {
  const int level = m.currentLevel;
  checkLevelNumber(level);
  const std::vector<std::string> lines = splitLines(text);
  int row = kGridRows + 1;
  const int count = std::min<int>(kLevelLines, static_cast<int>(lines.size()));
  for (int line = 1; line <= count; ++line) {
    const std::string& s = lines[line - 1];
    if (line <= kLevelHeaderLines) {
      m.levelHeader[line] = headerValue(s);
      if (line == kHeaderOrientation && level == 1) m.orientationText = headerValueText(s);
    } else if (startsWith(s, "Zone")) {
      const int zone = line - kLevelHeaderLines;
      if (zone > kZonesPerLevel) throw FileError(err::kSubscriptOutOfRange, "zone name on line " + std::to_string(line));
      std::string name(midText(s, kValueColumn, 25));
      if (isStockZoneName(name)) name = stockZoneName(level, zone);
      m.zoneNames[zone] = std::move(name);
    } else {
      if (--row < 1) throw FileError(err::kSubscriptOutOfRange, "cell row on line " + std::to_string(line));
      const int cols = std::min<int>(kGridCols, static_cast<int>(s.size()));
      for (int c = 1; c <= cols; ++c) m.cells[row][c] = static_cast<std::int16_t>(decodeCell(s[c - 1]));
    }
  }
  // Levels of files with only 10 name lines keep the names 11..25 they had,
  // relabelled for this level.
  for (int z = kOldFormatZones + 1; z <= kZonesPerLevel; ++z)
    if (isStockZoneName(m.zoneNames[z])) m.zoneNames[z] = stockZoneName(level, z);
  if (level == 1) {
    m.setGridSize(m.levelHeader[kHeaderGridSize]);
    m.orientation = m.levelHeader[kHeaderOrientation];
  }
  m.floorsInLevel = m.levelHeader[kHeaderFloors];
  m.roomHeight = m.levelHeader[kHeaderRoomHeight];
  m.levelHeight[level] = static_cast<double>(m.floorsInLevel) * m.roomHeight;
}

LevelLoad loadNextLevel(SketchMatrix& m, const std::string& installDir, Prompt& prompt) {
  ++m.currentLevel;
  if (m.currentLevel < 1) {
    m.currentLevel = 1;
    return LevelLoad::BelowFirst;
  }
  if (m.currentLevel > m.levelCount) {
    const Answer a = prompt.ask(Buttons::YesNo, Icon::Exclamation, "Maximum Levels Exceeded",
                                "Maximum number of floors exceeded!  Do you wish to add another floor?");
    if (a != Answer::Yes || m.currentLevel > kMaxLevels) {
      const bool full = a == Answer::Yes;
      m.currentLevel = m.levelCount;
      if (full) throw FileError(err::kSubscriptOutOfRange, "no room for a level above " + std::to_string(kMaxLevels));
      return LevelLoad::Declined;
    }
    // A new level starts as a copy of the top one.
    LineReader top = LineReader::fromText(readFile(levelFilePath(installDir, m.levelCount)));
    std::string copy;
    for (int i = 0; i < kLevelLines; ++i) copy += top.next() + "\r\n";
    writeFileAtomic(levelFilePath(installDir, m.currentLevel), copy);
    ++m.levelCount;
  }
  applyLevelText(m, readFile(levelFilePath(installDir, m.currentLevel)));
  return LevelLoad::Loaded;
}

std::vector<std::string> splitWholeText(std::string_view whole, SketchMatrix& m, UnitSystem units,
                                        bool newSketch) {
  const std::vector<std::string> lines = splitLines(whole);
  const std::string blankRow(kGridCols, '0');
  const std::string shortBlankRow(kGridCols - kOldFormatCols, '0');
  const bool siDefaults = units == UnitSystem::SI && newSketch;

  std::vector<std::string> levels;
  std::string* out = nullptr;
  auto write = [&](const std::string& s) {
    if (!out) throw FileError(err::kBadFileName, "sketch file does not begin with a Grid Size line");
    *out += s;
    *out += "\r\n";
  };

  int level = 0;
  int inLevel = 0;   // lines written for the level
  int names = 0;     // zone name lines seen in the level
  int lastCount = 0;
  std::string suffix;
  const int total = std::min<int>(kMaxSplitLines, static_cast<int>(lines.size()));
  for (int idx = 0; idx < total; ++idx) {
    std::string line = lines[idx];
    const bool last = idx + 1 == static_cast<int>(lines.size());

    if (names == kOldFormatZones && !isNameLine(line)) {
      // An older file with 10 zones: add the other names, widen its rows.
      for (int k = kOldFormatZones + 1; k <= kZonesPerLevel; ++k) {
        write("ZoneName[" + std::to_string(k) + "]: Zone " + std::to_string(level) + "-" + std::to_string(k));
        ++inLevel;
      }
      names = 0;
      suffix = "0000";
    }
    if (isNameLine(line)) ++names;

    if (isGridLine(line) || last) {
      if (idx > 0)
        for (int k = inLevel; k < kLevelLines; ++k) write(blankRow);
      lastCount = inLevel;
      inLevel = 0;
      // The last line of the file is never written: the bottom row of the top
      // level comes back blank at every load.
      if (last) break;
      suffix.clear();
      names = 0;
      checkLevelNumber(++level);
      m.levelCount = static_cast<std::int16_t>(level);
      levels.emplace_back();
      out = &levels.back();
    }

    if (siDefaults && idx == 0) line = line.substr(0, 13) + " 1";
    if (siDefaults && idx == 3) line = line.substr(0, 13) + " 3.5";

    ++inLevel;
    if (inLevel > 31 && static_cast<int>(line.size()) < kGridCols)
      line = line.substr(0, kOldFormatCols - suffix.size()) + shortBlankRow;
    write(line + suffix);

    if (inLevel <= 5) m.levelHeader[inLevel] = headerValue(line);
    if (idx == 0) m.setGridSize(headerValue(line));
    if (idx == 1) setOrientation(m, line);
    if (inLevel == kHeaderRoomHeight)
      m.levelHeight[level] =
          static_cast<double>(m.levelHeader[kHeaderFloors]) * m.levelHeader[kHeaderRoomHeight];
  }
  if (total < static_cast<int>(lines.size()) || lines.empty()) lastCount = inLevel;
  // Tops a short last level up beyond its end; readers stop at 91 lines.
  for (int k = lastCount; k <= kGridRows; ++k) write(blankRow);
  return levels;
}

void splitWholeFile(SketchMatrix& m, const std::string& installDir, UnitSystem units, bool newSketch) {
  const std::vector<std::string> levels = splitWholeText(readFile(wholeSketchPath(installDir)), m, units, newSketch);
  for (std::size_t i = 0; i < levels.size(); ++i)
    writeFileAtomic(levelFilePath(installDir, static_cast<int>(i) + 1), levels[i]);
}

LevelLoad openSketch(SketchMatrix& m, const std::string& installDir, Project& p, Prompt& prompt) {
  m.currentLevel = 0;
  m.zoneArea.fill(0);
  m.clearCells();
  splitWholeFile(m, installDir, p.units, p.flags.newSketch);
  p.flags.newSketch = false;
  m.currentLevel = 0;
  return loadNextLevel(m, installDir, prompt);
}

void rebuildWholeFile(const SketchMatrix& m, const std::string& installDir) {
  std::string whole;
  for (int level = 1; level <= m.levelCount; ++level) {
    const std::vector<std::string> lines = splitLines(readFile(levelFilePath(installDir, level)));
    const int count = std::min<int>(kLevelLines, static_cast<int>(lines.size()));
    for (int i = 0; i < count; ++i) whole += lines[i] + "\r\n";
    if (count < kLevelLines) break;
  }
  const std::string backup = sketchBackupPath(installDir);
  writeFileAtomic(backup, whole);
  std::error_code ec;
  std::filesystem::rename(backup, wholeSketchPath(installDir), ec);
  if (ec) throw FileError(errorNumberFromErrno(ec.value()), "renaming " + backup);
}

}  // namespace marloven
