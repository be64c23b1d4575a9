#include "sketch/extract_zones.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>

#include "common/column_printer.h"
#include "common/error_report.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "project/zone_scratch.h"
#include "sketch/level_files.h"

namespace marloven {

namespace {

constexpr int kInvalidCall = 5;
constexpr int kDivisionByZero = 11;
constexpr int kZoneTableSize = kZoneSlots - 1;  // the model's zone table ends at 100

// Index 3 and 4 (" F", " T  ") belong to the shading grammar of the zone
// table; a sketch wall only ever gets the first three.
constexpr std::array<const char*, 5> kShadingCodes = {" N0.", " R1.", " L1.", " F", " T  "};

enum Kind : int { kWall = 2, kRoof = 6, kFloor = 7 };

struct Run {
  int zone = 0;
  int facing = 0;     // 1 north, 2 east, 3 south, 4 west; 1 for roofs and floors
  double length = 0;  // cell edges or cells, after merging
  int left = 0;       // 0 or 1
  int right = 0;      // 0 or 2
  float far = 0;      // obstruction factor of the straight scan
  int kind = kWall;
};

bool alike(const Run& a, const Run& b) {
  return a.zone == b.zone && a.facing == b.facing && a.left == b.left && a.right == b.right &&
         a.far == b.far && a.kind == b.kind;
}

// Steps in grid rows (row 1 north) and columns for each facing: to the
// neighbour (also the straight scan's step) and the two diagonal scans.
struct FacingSteps {
  int dr, dc, d1r, d1c, d2r, d2c;
};
constexpr std::array<FacingSteps, 5> kFacings = {{
    {0, 0, 0, 0, 0, 0},
    {-1, 0, -1, -1, -1, 1},  // north
    {0, 1, -1, 1, 1, 1},     // east
    {1, 0, 1, 1, 1, -1},     // south
    {0, -1, 1, -1, -1, -1},  // west
}};

using Grid = std::array<std::array<std::int16_t, kGridCols + 2>, kGridRows + 2>;

bool inside(int r, int c) { return r >= 1 && r <= kGridRows && c >= 1 && c <= kGridCols; }

bool diagonalHit(const Grid& g, int r, int c, int dr, int dc) {
  for (int k = 1;; ++k) {
    const int rr = r + k * dr, cc = c + k * dc;
    if (!inside(rr, cc)) return false;
    if (g[rr][cc] != 0) return true;
  }
}

double divide(double a, double b) {
  if (b == 0) throw FileError(kDivisionByZero, "sketch extraction");
  return a / b;
}

float headerValue(std::string_view line) { return static_cast<float>(leadingNumber(midText(line, 14, 8))); }

std::string farShadeText(float far) {
  if (!(far > 0)) return " N0.";
  if (far >= 1) return " F1.";
  return " F" + padded(far).substr(1, 2);  // " .7" gives ".7"
}

const char* coreKind(double ratio) {
  if (ratio > 6) return "76  ";
  if (ratio > 5) return "75  ";
  if (ratio > 4) return "74  ";
  if (ratio > 3) return "73  ";
  if (ratio > 2) return "72  ";
  return "71  ";
}

class Extractor {
 public:
  Extractor(const SketchMatrix& m, const std::vector<std::string>& levels, UnitSystem units)
      : m_(m), levels_(levels), units_(units), cellArea_(static_cast<double>(m.gridSize) * m.gridSize) {
    if (levels.size() > static_cast<std::size_t>(kMaxLevels))
      throw FileError(err::kSubscriptOutOfRange, "more than 98 sketch levels");
    for (std::size_t l = 1; l <= levels.size(); ++l) totalHeight_ += m.levelHeight[l];
  }

  Extraction run() {
    const int count = static_cast<int>(levels_.size());
    for (int level = 1; level <= count; ++level) extractLevel(level, level == count);
    if (fileCode_ > 0) x_.zoneFiles.back().text += "end\r\n9999\r\n";
    x_.zoneNames = names_.take();
    x_.zoneAreas = areas_.take();
    return std::move(x_);
  }

 private:
  void extractLevel(int level, bool top);
  void readLevel(int level);
  void addRun(const Run& r) {
    if (n_ >= kMaxSurfaceRuns) throw FileError(err::kSubscriptOutOfRange, "more than 3300 surface runs");
    runs_[++n_] = r;
  }
  void scanWalls(bool top, double aboveBase);
  void mergeRuns();
  void writeRows(int level, bool top);
  void emitRow(const char* wallId, float area, int facing, std::string_view kind, const std::string& shade, int zone);

  const SketchMatrix& m_;
  const std::vector<std::string>& levels_;
  UnitSystem units_;
  double cellArea_;
  double totalHeight_ = 0;
  double heightPassed_ = 0;
  int fileCode_ = 0;
  Extraction x_;
  ColumnPrinter names_, areas_;

  // Per level.
  std::vector<Run> runs_ = std::vector<Run>(kMaxSurfaceRuns + 1);
  int n_ = 0;
  Grid grid_{};
  std::vector<std::string> above_;  // the next level's rows, as texts
  float floors_ = 0;
  int lastZone_ = 0;
  std::array<std::string, kZonesPerLevel + 1> zoneName_;
  std::array<double, kZonesPerLevel + 1> zoneCells_{};  // cell count, then area of all floors
  std::array<double, kZonesPerLevel + 1> perimeter_{};
  std::array<int, kZonesPerLevel + 1> openAbove_{};
  std::array<std::size_t, kZonesPerLevel + 1> zoneIndex_{};  // into x_.zones
};

void Extractor::readLevel(int level) {
  LineReader in = LineReader::fromText(levels_[level - 1]);
  std::array<float, kLevelHeaderLines + 1> header{};
  for (int i = 1; i <= kLevelHeaderLines; ++i) header[i] = headerValue(in.next());
  floors_ = header[kHeaderFloors];
  // Names are cut shorter here than on the sketch screen.
  for (int z = 1; z <= kZonesPerLevel; ++z) zoneName_[z] = std::string(midText(in.next(), 14, 16));
  for (auto& row : grid_) row.fill(0);
  lastZone_ = 0;
  for (int r = 1; r <= kGridRows && !in.atEnd(); ++r) {
    const std::string& line = in.next();
    for (int c = 1; c <= kGridCols; ++c) {
      if (c > static_cast<int>(line.size()))
        throw FileError(kInvalidCall, "level " + std::to_string(level) + " row " + std::to_string(r) + " is short");
      if (line[c - 1] == '0') continue;
      const int z = decodeCell(line[c - 1]);
      if (z < 1 || z > kZonesPerLevel)
        throw FileError(err::kSubscriptOutOfRange, "level " + std::to_string(level) + " cell \"" +
                                                       std::string(1, line[c - 1]) + "\"");
      lastZone_ = std::max(lastZone_, z);
      zoneCells_[z] += 1;
      grid_[r][c] = static_cast<std::int16_t>(z);
    }
  }
}

void Extractor::scanWalls(bool top, double aboveBase) {
  for (int r = 1; r <= kGridRows; ++r)
    for (int c = 1; c <= kGridCols; ++c) {
      const int z = grid_[r][c];
      if (z == 0) continue;
      for (int f = 1; f <= 4; ++f) {
        const FacingSteps& s = kFacings[f];
        Run run;
        run.zone = z;
        run.facing = f;
        if (!inside(r + s.dr, c + s.dc)) {
          addRun(run);  // nothing beyond the grid's edge: no scans
          continue;
        }
        if (grid_[r + s.dr][c + s.dc] != 0) continue;  // shared with a zone: no surface
        if (diagonalHit(grid_, r, c, s.d1r, s.d1c)) run.left = 1;
        if (diagonalHit(grid_, r, c, s.d2r, s.d2c)) run.right = 2;
        // The cell next to the wall is known to be empty.
        for (int k = 2;; ++k) {
          const int rr = r + k * s.dr, cc = c + k * s.dc;
          if (!inside(rr, cc)) break;
          if (grid_[rr][cc] != 0) {
            run.far = obstructionFactor(aboveBase, (k - 1) * static_cast<double>(m_.gridSize));
            break;
          }
        }
        addRun(run);
      }
      // A character missing from a short file above does not count.
      if (!top && r <= static_cast<int>(above_.size()) && c <= static_cast<int>(above_[r - 1].size()) &&
          above_[r - 1][c - 1] == '0')
        ++openAbove_[z];
    }
}

// The order this leaves the runs in decides the order of a zone's rows.
void Extractor::mergeRuns() {
  int i = 0;
  do {
    ++i;
    runs_[i].length = 1;
    if (i == n_) break;
    int j = i;
    do {
      ++j;
      if (alike(runs_[j], runs_[i])) {
        runs_[i].length += 1;
        if (j != n_) {
          runs_[j] = runs_[n_];
          --j;  // look at the moved run in this place again
        }
        --n_;
      }
    } while (j < n_);
  } while (i < n_);
  // An empty level leaves n at -1 here; nothing follows from it.
}

void Extractor::emitRow(const char* wallId, float area, int facing, std::string_view kind, const std::string& shade,
                        int zone) {
  if (!(area > 0)) return;
  ++x_.zones[zoneIndex_[zone]].rowCount;
  const bool ip = units_ == UnitSystem::IP;
  std::string& out = x_.zoneFiles.back().text;
  ColumnPrinter p;
  p.line(wallId);
  p.number(area).endLine();
  p.number((facing - 1) * 90).endLine();
  p.line(kind);
  p.line(shade);
  p.line(" 1  ");
  p.line("0.0 ");
  p.line(leadingNumber(kind) < 6 ? "90" : "0");
  p.line("B");
  p.number(0).endLine();
  p.number(0).endLine();
  p.number(ip ? 2.5f : 0.75f).endLine();
  p.number(ip ? 7.5f : 2.25f).endLine();
  p.line("0.0");
  out += p.str();
}

void Extractor::writeRows(int level, bool top) {
  const double strip = units_ == UnitSystem::IP ? 3.0 : 1.0;
  for (int i = 1; i <= n_; ++i) {
    const Run& r = runs_[i];
    if (r.kind == kWall) perimeter_[r.zone] += r.length * m_.gridSize * strip;
    if (perimeter_[r.zone] > zoneCells_[r.zone]) perimeter_[r.zone] = zoneCells_[r.zone];
  }

  for (int i = 1; i <= n_; ++i) {
    const Run& r = runs_[i];
    const int z = r.zone;
    const int code = z < 10 ? 10 * level + z : 100 * level + z;
    if (code != fileCode_) {
      if (fileCode_ > 0) x_.zoneFiles.back().text += "end\r\n";
      x_.zoneFiles.push_back({zoneScratchName(std::to_string(level) + std::to_string(z)), {}});
      fileCode_ = code;
      x_.zones[zoneIndex_[z]].rowCount = 0;
    }
    const std::string shade = std::string(kShadingCodes[r.left]) + kShadingCodes[r.right] + farShadeText(r.far);
    if (r.kind == kRoof) {
      const float area = top ? roundTo(divide(zoneCells_[z], floors_), 1) : roundTo(r.length * cellArea_, 1);
      emitRow(" 8  ", area, r.facing, "6   ", shade, z);
    } else if (r.kind == kFloor) {
      emitRow(" 14 ", roundTo(perimeter_[z], 1), r.facing, "7   ", shade, z);
      const double ratio = perimeter_[z] > 0.1 ? zoneCells_[z] / perimeter_[z] : 0;
      if (ratio > 1)
        emitRow(" 14 ", roundTo(divide(zoneCells_[z], floors_) - perimeter_[z], 1), r.facing, coreKind(ratio), shade, z);
    } else {
      emitRow(" 1  ", roundTo(r.length * m_.gridSize * m_.levelHeight[level], 1), r.facing, "2   ", shade, z);
    }
  }
}

void Extractor::extractLevel(int level, bool top) {
  const double aboveBase = totalHeight_ - heightPassed_;
  std::fill(runs_.begin() + 1, runs_.end(), Run{});
  zoneCells_.fill(0);
  perimeter_.fill(0);
  openAbove_.fill(0);
  zoneIndex_.fill(0);
  n_ = 0;

  readLevel(level);
  heightPassed_ += m_.levelHeight[level];
  above_.clear();
  if (!top) {
    LineReader next = LineReader::fromText(levels_[level]);
    for (int i = 0; i < kLevelHeaderLines + kZonesPerLevel; ++i) next.next();
    while (!next.atEnd() && static_cast<int>(above_.size()) < kGridRows) above_.push_back(next.next());
  }

  scanWalls(top, aboveBase);
  mergeRuns();

  // Roofs where nothing stands above; floors on the ground only.
  for (int z = 1; z <= lastZone_; ++z) {
    if (zoneCells_[z] == 0) continue;
    if (top || openAbove_[z] > 0) {
      Run roof;
      roof.zone = z;
      roof.facing = 1;
      roof.length = openAbove_[z];
      roof.kind = kRoof;
      addRun(roof);
    }
    if (level == 1) {
      Run floor;
      floor.zone = z;
      floor.facing = 1;
      floor.kind = kFloor;
      addRun(floor);
    }
  }

  // By zone, first smallest taken: not stable, and the rows' order within a
  // zone is what it leaves.
  for (int i = 1; i <= n_ - 1; ++i) {
    int k = i;
    for (int j = i + 1; j <= n_; ++j)
      if (runs_[j].zone < runs_[k].zone) k = j;
    if (k != i) std::swap(runs_[i], runs_[k]);
  }
  if (!top)
    for (int i = 1; i <= n_ - 1; ++i)
      if (runs_[i].kind == kRoof && runs_[i + 1].zone == runs_[i].zone && runs_[i + 1].kind != kFloor)
        std::swap(runs_[i], runs_[i + 1]);

  const std::string levelText = std::to_string(level);
  for (int z = 1; z <= lastZone_; ++z) {
    if (zoneCells_[z] == 0) continue;
    if (static_cast<int>(x_.zones.size()) >= kZoneTableSize)
      throw FileError(err::kSubscriptOutOfRange, "more than 100 zones");
    const float area = roundTo(zoneCells_[z] * cellArea_ * floors_, 1);
    zoneCells_[z] = area;
    zoneIndex_[z] = x_.zones.size();
    x_.zones.push_back({levelText + std::to_string(z), zoneName_[z], area, 0});
    x_.totalFloorArea += area;
    names_.text(x_.zones.back().id).tab(6).text(zoneName_[z]).endLine();
  }
  if (top) names_.line("99");
  if (level == 1) areas_.line("Zone..Area ");
  for (int z = 1; z <= lastZone_; ++z)
    if (zoneCells_[z] > 0) areas_.text(levelText + std::to_string(z)).tab(6).text(padded(static_cast<float>(zoneCells_[z]))).endLine();
  if (top) {
    areas_.line(m_.orientationText);
    areas_.line("99");
  }

  writeRows(level, top);
}

void applyToModel(const Extraction& x, const SketchMatrix& m, Project& p) {
  p.zoneCount = static_cast<std::int16_t>(x.zones.size());
  for (std::size_t k = 0; k < x.zones.size(); ++k) {
    ZoneRecord& zone = p.zones[k + 1];
    zone.listedId = x.zones[k].id;
    zone.listedName = x.zones[k].name;
    zone.listedFloorArea = x.zones[k].area;
    zone.rowCount = x.zones[k].rowCount;
  }
  p.sketchFloorArea = x.totalFloorArea;
  p.sketchOrientation = m.orientationText;
}

}  // namespace

float obstructionFactor(double height, double distance) {
  return roundTo(std::sin(std::atan(divide(height, distance))), 1);
}

Extraction computeExtraction(const SketchMatrix& m, const std::vector<std::string>& levelTexts, UnitSystem units) {
  return Extractor(m, levelTexts, units).run();
}

ExtractOutcome extractZones(const SketchMatrix& m, const std::string& installDir, Project& p, Prompt& prompt) {
  if (m.levelCount <= 0) return ExtractOutcome::NoLevels;
  bool writing = false;
  try {
    std::vector<std::string> levels;
    for (int level = 1; level <= m.levelCount; ++level) levels.push_back(readFile(levelFilePath(installDir, level)));
    const Extraction x = computeExtraction(m, levels, p.units);
    const std::string temp = joinPath(installDir, "temp");
    writing = true;
    for (const ZoneScratchFile& f : x.zoneFiles) writeFileAtomic(joinPath(temp, f.name), f.text);
    writeFileAtomic(joinPath(temp, "zname.tmp"), x.zoneNames);
    writeFileAtomic(joinPath(temp, "zarea.tmp"), x.zoneAreas);
    applyToModel(x, m, p);
    rebuildWholeFile(m, installDir);
    return ExtractOutcome::Done;
  } catch (const FileError& e) {
    // A full or failing disk while the results are written is that fault,
    // under its own number, not a drawing error.
    if (writing) {
      reportError(prompt, e);
      return ExtractOutcome::Failed;
    }
  } catch (const std::exception&) {
    // The pass's one handler: nothing of it travels further.
  }
  prompt.message(Icon::None, "Sketch subroutine error", "Draw Error, Click OK to recover");
  return ExtractOutcome::Failed;
}

}  // namespace marloven
