#include "sketch/sketch_editor.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "common/file_io.h"
#include "common/number_text.h"
#include "sketch/extract_zones.h"

namespace marloven {

namespace {

constexpr std::array<Colour, 16> kPalette = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080,
                                             0x008080, 0xC0C0C0, 0x808080, 0xFF0000, 0x00FF00, 0xFFFF00,
                                             0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
constexpr int kEmptyColour = kZonesPerLevel;  // colour table entry of an empty cell
constexpr double kSwatchPickLeft = -85;       // a press left of this picks a swatch's colour
constexpr double kCompassX = -20;
constexpr double kCompassY = 20;
constexpr double kCompassRadius = 12;
constexpr double kNeedleLength = 20;

// The int function of the scale: towards minus infinity.
double gridPoint(double v) { return std::floor(v / kCellUnits + 0.5) * kCellUnits; }
double cellCorner(double v) { return std::floor(v / kCellUnits) * kCellUnits; }

// Sampling point of the cell whose corner is at (cx, cy): a quarter cell up
// from the bottom, not the middle, as cells have always been read.
double sampleX(double cx) { return cx + 0.5 * kCellUnits; }
double sampleY(double cy) { return cy + 0.25 * kCellUnits; }

std::string keepDigits(const std::string& text, bool point) {
  std::string out;
  for (char c : text)
    if ((c >= '0' && c <= '9') || (point && c == '.')) out += c;
  return out;
}

std::string scaled(double units, float unitsPerDrawingUnit) {
  return bare(roundTo(units * unitsPerDrawingUnit, 1));
}

}  // namespace

std::array<Colour, kColourTableSize> stockZoneColours() {
  std::array<Colour, kColourTableSize> t{};
  for (int k = 0; k <= 14; ++k) t[k] = kPalette[k];
  for (int k = 15; k <= 22; ++k) t[k] = kPalette[k % 11] + 32;
  for (int k = 23; k <= 24; ++k) t[k] = kPalette[k % 11] - 32;
  t[kEmptyColour] = kWhite;
  return t;
}

std::string sketchFieldLabel(SketchField f) {
  switch (f) {
    case SketchField::GridSize: return "Grid Size";
    case SketchField::Orientation: return "Orientation";
    case SketchField::Floors: return "No. of Flrs";
    case SketchField::RoomHeight: return "Room Height";
  }
  return {};
}

SketchEditor::SketchEditor(std::string installDir, Project& project, Prompt& prompt, double pixelsPerUnit)
    : installDir_(std::move(installDir)),
      p_(project),
      prompt_(prompt),
      raster_(pixelsPerUnit),
      colours_(stockZoneColours()),
      foreground_(colours_[0]) {}

std::string SketchEditor::caption() const { return "MARLOVEN -- Building Sketch -- " + p_.fileName; }

unsigned SketchEditor::open() {
  p_.sketchFloorArea = static_cast<float>(leadingNumber(p_.data[kFloorArea]));
  m_.stories = 1;
  scroll_ = 0;
  tool_ = DrawTool::FilledBox;
  pointer_ = Pointer::Default;
  dragging_ = bandShown_ = false;
  colours_ = stockZoneColours();
  clearCanvas();
  readColourTable();
  m_.currentZone = 1;
  foreground_ = colours_[0];
  m_.setGridSize(2.0f);
  m_.currentLevel = 0;
  const LevelLoad loaded = openSketch(m_, installDir_, p_, prompt_);
  afterLoad(loaded);
  rebuildCells();
  showFloorArea();
  showStories();
  return kRedrawAll;
}

// ---- drawing the screen ----

void SketchEditor::drawSwatches() {
  for (int k = 0; k < kZonesPerLevel; ++k)
    raster_.fillRect(kSwatchLeft, nameBoxTop(k), kSwatchRight, nameBoxTop(k) - 14, colours_[k]);
}

void SketchEditor::readColourTable() {
  drawSwatches();
  for (int k = 0; k < kZonesPerLevel; ++k)
    colours_[k] = raster_.pixel((kSwatchLeft + kSwatchRight) / 2, nameBoxTop(k) - 7);
  colours_[kEmptyColour] = kWhite;
}

void SketchEditor::clearCanvas() {
  raster_.clear(kWhite);
  needle_.reset();
  drawSwatches();
}

void SketchEditor::drawGrid() {
  drawSwatches();
  for (int y = 0; y <= 600; y += kCellUnits)
    for (int x = 0; x <= 800; x += kCellUnits)
      raster_.dot(x, y, x % 40 == 0 && y % 40 == 0 ? 2 : 1, colours_[0]);
  pointer_ = Pointer::Default;
}

void SketchEditor::drawCompass() { drawCompassAt(m_.orientation); }

void SketchEditor::drawCompassAt(double degrees) {
  auto needle = [&](double a, Colour c) {
    raster_.line(kCompassX, kCompassY, kCompassX + kNeedleLength * std::sin(a), kCompassY + kNeedleLength * std::cos(a), c);
  };
  if (needle_) needle(*needle_, kWhite);
  raster_.circle(kCompassX, kCompassY, kCompassRadius, colours_[1]);
  const double a = degrees * 3.141593 / 180;
  needle(a, kPureRed);
  needle_ = a;
}

void SketchEditor::paintCells() {
  for (int r = 1; r <= kGridRows; ++r)
    for (int c = 1; c <= kGridCols; ++c) {
      const int z = m_.cells[r][c];
      if (z < 1 || z > kZonesPerLevel) continue;
      raster_.fillRect((c - 1) * kCellUnits, (r - 1) * kCellUnits, c * kCellUnits, r * kCellUnits,
                       colours_[(z + kZonesPerLevel) % kColourTableSize]);
    }
}

void SketchEditor::redrawLevel() {
  clearCanvas();
  paintCells();
  drawGrid();
  drawCompass();
}

unsigned SketchEditor::refreshGrid() {
  drawGrid();
  drawCompass();
  return kRedrawCanvas | kRedrawStatus;
}

unsigned SketchEditor::cleanup() {
  redrawLevel();
  return kRedrawCanvas | kRedrawStatus;
}

// ---- areas and status ----

int SketchEditor::zoneOfColour(Colour c) const {
  for (int z = 1; z <= kZonesPerLevel; ++z)
    if (colours_[z - 1] == c) return z;
  return 0;
}

void SketchEditor::addToZone(int zone, double area) {
  if (zone < 1 || zone > kZonesPerLevel) return;
  m_.zoneArea[zone] = roundTo(m_.zoneArea[zone] + area, 1);
}

void SketchEditor::showZoneArea() { status_.zoneArea = "Zn area=" + bare(m_.zoneArea[m_.currentZone]); }
void SketchEditor::showFloorArea() { status_.floorArea = "FlrArea=" + bare(p_.sketchFloorArea); }
void SketchEditor::showStories() { status_.stories = "Stories=" + bare(m_.stories); }

void SketchEditor::showFields() {
  fields_[static_cast<int>(SketchField::GridSize)] = bare(m_.gridSize);
  fields_[static_cast<int>(SketchField::Orientation)] = m_.orientationText;
  fields_[static_cast<int>(SketchField::Floors)] = bare(m_.floorsInLevel);
  fields_[static_cast<int>(SketchField::RoomHeight)] = bare(m_.roomHeight);
  status_.level = "Level= " + std::to_string(m_.currentLevel);
}

void SketchEditor::rebuildCells() {
  for (int z = 1; z <= kZonesPerLevel; ++z) m_.zoneArea[z] = 0;
  m_.levelHeader[kHeaderFloorArea] = 0;
  m_.levelHeader[kHeaderSectionArea] = 0;
  const double cellArea = static_cast<double>(m_.gridSize) * m_.gridSize;
  for (int r = 1; r <= kGridRows; ++r)
    for (int c = 1; c <= kGridCols; ++c) {
      const Colour colour = raster_.pixel(sampleX((c - 1) * kCellUnits), sampleY((r - 1) * kCellUnits));
      if (colour == kWhite) {
        m_.cells[r][c] = 0;
        continue;
      }
      // A colour of no zone (guide lines, letters) leaves the cell as it was.
      const int z = zoneOfColour(colour);
      if (z == 0) continue;
      m_.cells[r][c] = static_cast<std::int16_t>(z);
      addToZone(z, cellArea);
    }
  float sum = 0;
  for (int z = 1; z <= kZonesPerLevel; ++z) sum += m_.zoneArea[z];
  m_.levelHeader[kHeaderFloorArea] = sum;
  m_.levelHeader[kHeaderSectionArea] = sum * m_.floorsInLevel;
  showZoneArea();
  // A zone drawn away gets its stock name back, unless the press was in the strip.
  if (lastPressX_ > 0)
    for (int z = 1; z <= kZonesPerLevel; ++z)
      if (m_.zoneArea[z] == 0) m_.zoneNames[z] = stockZoneName(m_.currentLevel, z);
}

// ---- mouse ----

bool SketchEditor::inDrawingArea(double x, double y) const { return x >= 0 && x <= 800 && y >= 0 && y <= 600; }

unsigned SketchEditor::mouseDown(double x, double y) {
  lastPressX_ = x;
  if (x < kSwatchPickLeft) {
    foreground_ = raster_.pixel(x, y);
    if (const int z = zoneOfColour(foreground_); z > 0) {
      m_.currentZone = static_cast<std::int16_t>(z);
      showZoneArea();
    }
    return kRedrawStatus;
  }
  if (!inDrawingArea(x, y)) return kRedrawNothing;
  status_.dimensions = "Dim: 0., 0.";
  startX_ = currentX_ = lastX_ = gridPoint(x);
  startY_ = currentY_ = lastY_ = gridPoint(y);
  dragging_ = true;
  bandShown_ = false;
  unsigned redraw = kRedrawStatus;
  switch (tool_) {
    case DrawTool::GuideBox: pointer_ = Pointer::Cross; break;
    case DrawTool::FilledBox: pointer_ = Pointer::Default; break;
    case DrawTool::CellPaint: {
      const double cx = cellCorner(x), cy = cellCorner(y);
      const Colour under = raster_.pixel(sampleX(cx), sampleY(cy));
      const double cellArea = static_cast<double>(m_.gridSize) * m_.gridSize;
      if (under == kWhite) {
        paintColour_ = foreground_;
        addToZone(m_.currentZone, cellArea);
      } else {
        paintColour_ = kWhite;
        addToZone(zoneOfColour(under), -cellArea);
      }
      raster_.fillRect(cx, cy, cx + kCellUnits, cy + kCellUnits, paintColour_);
      showZoneArea();
      p_.sketchFloorArea += m_.floorsInLevel * m_.zoneArea[m_.currentZone];
      showFloorArea();
      redraw |= kRedrawCanvas;
      break;
    }
    default: break;
  }
  return redraw;
}

void SketchEditor::rubberBand(double gx, double gy) {
  auto shape = [&](double x, double y) {
    switch (tool_) {
      case DrawTool::GuideBox: raster_.outline(startX_, startY_, x, y, kWhite, DrawMode::Xor, true); break;
      case DrawTool::FilledBox: raster_.outline(startX_, startY_, x, y, kWhite, DrawMode::Xor); break;
      case DrawTool::Circle:
        raster_.circle(startX_, startY_, std::hypot(x - startX_, y - startY_), kWhite, DrawMode::Xor);
        break;
      default: break;
    }
  };
  if (bandShown_) shape(lastX_, lastY_);
  if (gx == kNoBand) {
    bandShown_ = false;
    return;
  }
  shape(gx, gy);
  lastX_ = gx;
  lastY_ = gy;
  bandShown_ = true;
}

unsigned SketchEditor::mouseMove(double x, double y, bool leftDown) {
  if (!inDrawingArea(x, y)) return kRedrawNothing;
  const double gx = gridPoint(x), gy = gridPoint(y);
  const float u = m_.unitsPerDrawingUnit;
  status_.position = "X,Y=" + scaled(gx, u) + "," + scaled(gy, u);
  if (!leftDown || !dragging_) return kRedrawStatus;
  status_.dimensions = std::string("Dim: ") + (gx > startX_ ? ">" : "<") + scaled(std::abs(gx - startX_), u) + ", " +
                       (gy > startY_ ? "^" : "v") + scaled(std::abs(gy - startY_), u);
  switch (tool_) {
    case DrawTool::GuideBox:
    case DrawTool::FilledBox:
    case DrawTool::Circle: rubberBand(gx, gy); break;
    case DrawTool::FreeLine:
      raster_.line(currentX_, currentY_, x, y, foreground_);
      currentX_ = x;
      currentY_ = y;
      break;
    case DrawTool::CellPaint: {
      const double cx = cellCorner(x), cy = cellCorner(y);
      const Colour under = raster_.pixel(sampleX(cx), sampleY(cy));
      if (under == paintColour_) break;
      const double cellArea = static_cast<double>(m_.gridSize) * m_.gridSize;
      if (under == foreground_) addToZone(m_.currentZone, cellArea);
      raster_.fillRect(cx, cy, cx + kCellUnits, cy + kCellUnits, paintColour_);
      if (under != kWhite) addToZone(zoneOfColour(under), -cellArea);
      showZoneArea();
      p_.sketchFloorArea += m_.floorsInLevel * m_.zoneArea[m_.currentZone];
      showFloorArea();
      break;
    }
    case DrawTool::Pen: break;
  }
  return kRedrawCanvas | kRedrawStatus;
}

unsigned SketchEditor::mouseUp(double x, double y) {
  if (!dragging_) return kRedrawNothing;
  dragging_ = false;
  // A drag let go beyond the drawing area ends on its edge, not in the strip.
  const double gx = std::clamp(gridPoint(x), 0.0, 800.0);
  const double gy = std::clamp(gridPoint(y), 0.0, 600.0);
  rubberBand(kNoBand, kNoBand);
  switch (tool_) {
    case DrawTool::GuideBox: raster_.outline(startX_, startY_, gx, gy, foreground_, DrawMode::Copy, true); break;
    case DrawTool::FilledBox: {
      const double dx = std::abs(gx - startX_), dy = std::abs(gy - startY_);
      // A box without width or height covers no cell and is not painted.
      if (dx > 0 && dy > 0) raster_.fillRect(startX_, startY_, gx, gy, foreground_);
      const double u = m_.unitsPerDrawingUnit;
      addToZone(m_.currentZone, dx * dy * u * u);
      showZoneArea();
      p_.sketchFloorArea += m_.floorsInLevel * m_.zoneArea[m_.currentZone];
      showFloorArea();
      break;
    }
    case DrawTool::Circle:
      raster_.circle(startX_, startY_, std::hypot(gx - startX_, gy - startY_), foreground_);
      break;
    default: break;
  }
  rebuildCells();
  return kRedrawCanvas | kRedrawStatus | kRedrawNames;
}

unsigned SketchEditor::typed(char ch) {
  if (static_cast<unsigned char>(ch) < 32) return kRedrawNothing;
  currentX_ += raster_.character(currentX_, currentY_, ch, foreground_);
  return kRedrawCanvas;
}

// ---- commands ----

unsigned SketchEditor::chooseTool(DrawTool t) {
  tool_ = t;
  pointer_ = t == DrawTool::GuideBox ? Pointer::Cross : Pointer::Arrow;
  return kRedrawStatus;
}

unsigned SketchEditor::selectZone(int index) {
  if (index < 0 || index >= kZonesPerLevel) return kRedrawNothing;
  m_.currentZone = static_cast<std::int16_t>(index + 1);
  foreground_ = colours_[index];
  showZoneArea();
  return kRedrawStatus;
}

unsigned SketchEditor::renameZone(int index, const std::string& name) {
  if (index < 0 || index >= kZonesPerLevel) return kRedrawNothing;
  m_.zoneNames[index + 1] = name.substr(0, 25);
  return kRedrawNothing;
}

unsigned SketchEditor::setColour(Colour c) {
  foreground_ = c & 0xFFFFFF;
  return kRedrawStatus;
}

unsigned SketchEditor::eraseWindow() {
  tool_ = DrawTool::FilledBox;
  foreground_ = kWhite;
  pointer_ = Pointer::Arrow;
  return kRedrawStatus;
}

unsigned SketchEditor::eraseAll() {
  if (prompt_.ask(Buttons::OkCancel, Icon::Exclamation, "Warning - Drawing will be lost", "Are you sure?") !=
      Answer::Ok)
    return kRedrawNothing;
  Answer top = Answer::No;
  if (isTopLevel()) {
    top = prompt_.ask(Buttons::YesNoCancel, Icon::Question, "Remove Top Floor?  Building Height to be Reduced!",
                      "Click YES to remove this floor; Click NO to erase and revise this floor; Click CANCEL to "
                      "keep drawing as is.");
    if (top == Answer::Cancel) return kRedrawNothing;
  }
  clearCanvas();
  drawGrid();
  for (int z = 1; z <= kZonesPerLevel; ++z) {
    p_.sketchFloorArea -= m_.floorsInLevel * m_.zoneArea[z];
    m_.zoneArea[z] = 0;
  }
  m_.levelHeader[kHeaderFloorArea] = 0;
  m_.levelHeader[kHeaderSectionArea] = 0;
  showZoneArea();
  showFloorArea();
  m_.clearCells();
  drawCompass();
  if (top == Answer::Yes) {
    --m_.levelCount;
    m_.currentLevel = static_cast<std::int16_t>(m_.currentLevel - 2);
    afterLoad(loadNextLevel(m_, installDir_, prompt_));
  }
  return kRedrawAll;
}

unsigned SketchEditor::afterLoad(LevelLoad loaded) {
  if (loaded == LevelLoad::Loaded) redrawLevel();
  showFields();
  return kRedrawAll;
}

unsigned SketchEditor::scroll(int value) {
  if (value == scroll_) return kRedrawNothing;
  saveLevel(m_, installDir_);
  if (value < scroll_) {
    m_.currentLevel = static_cast<std::int16_t>(m_.currentLevel - 2);
  } else {
    m_.stories += m_.floorsInLevel;
    showStories();
  }
  scroll_ = value;
  return afterLoad(loadNextLevel(m_, installDir_, prompt_));
}

unsigned SketchEditor::levelUp() {
  saveLevel(m_, installDir_);
  return afterLoad(loadNextLevel(m_, installDir_, prompt_));
}

unsigned SketchEditor::levelDown() {
  saveLevel(m_, installDir_);
  return afterLoad(loadLevelBelow(m_, installDir_, prompt_));
}

// ---- edit boxes ----

bool SketchEditor::fieldKey(SketchField f, char key) {
  const std::string& text = fields_[static_cast<int>(f)];
  if (key == '\b') return text.empty() || text.back() != '=';
  const bool passes = (key >= '0' && key <= '9') || key == ' ' || key == '\r' || key == '.';
  if (!passes) {
    prompt_.beep();
    prompt_.message(Icon::Exclamation, "Error", "You should use numerical value.");
    return false;
  }
  if (f == SketchField::Orientation) drawCompassAt(leadingNumber(keepDigits(text + key, true)));
  return true;
}

unsigned SketchEditor::fieldChanged(SketchField f, const std::string& text) {
  const std::string kept = keepDigits(text, f != SketchField::Floors);
  const auto value = static_cast<float>(leadingNumber(kept));
  fields_[static_cast<int>(f)] = text;
  switch (f) {
    case SketchField::GridSize:
      m_.setGridSize(value);
      if (value != 0) {
        rebuildCells();
        return kRedrawStatus | kRedrawNames;
      }
      return kRedrawNothing;
    case SketchField::Orientation:
      m_.orientation = value;
      m_.orientationText = kept;
      return kRedrawNothing;
    case SketchField::Floors: m_.setFloorsInLevel(value); return kRedrawNothing;
    case SketchField::RoomHeight: m_.setRoomHeight(value); return kRedrawNothing;
  }
  return kRedrawNothing;
}

void SketchEditor::fieldClicked(SketchField f) {
  if (m_.currentLevel <= 1) return;
  if (f == SketchField::GridSize)
    prompt_.message(Icon::Information, "Grid Size Change", "Grid size change can only be made from first level");
  if (f == SketchField::Orientation)
    prompt_.message(Icon::Information, "Orientation Change", "Orientation can only be changed from first level");
}

unsigned SketchEditor::drawingUnits() {
  const std::optional<std::string> answer =
      prompt_.input("Drawing Scale", "Enter the dimension represented by one drawing grid", bare(m_.gridSize));
  if (!answer || answer->empty()) return kRedrawNothing;
  m_.setGridSize(static_cast<float>(leadingNumber(*answer)));
  fields_[static_cast<int>(SketchField::GridSize)] = bare(m_.gridSize);
  redrawLevel();
  return kRedrawAll;
}

unsigned SketchEditor::pastePicture(const std::vector<Colour>& pixels, int width, int height) {
  raster_.paste(pixels, width, height);
  return kRedrawCanvas;
}

// ---- leaving ----

void SketchEditor::exit() {
  saveLevel(m_, installDir_);
  extractZones(m_, installDir_, p_, prompt_);
}

bool SketchEditor::cancelChanges() {
  return prompt_.ask(Buttons::OkCancel, Icon::Exclamation, "Warning - Drawing update will not occur",
                     "Are you sure?  Drawing will revert to original status!  New sketching will not be added!") ==
         Answer::Ok;
}

unsigned SketchEditor::loadDrawing(const std::string& path) {
  const std::string whole = readFile(path);
  // A file that cannot be split must not replace the building on disk: it is
  // tried on a scratch matrix first, so a bad choice leaves everything as it was.
  SketchMatrix trial;
  const std::vector<std::string> levels = splitWholeText(whole, trial, p_.units, false);
  for (std::size_t i = 0; i < levels.size(); ++i) {
    trial.currentLevel = static_cast<std::int16_t>(i + 1);
    applyLevelText(trial, levels[i]);
  }
  writeFileAtomic(wholeSketchPath(installDir_), whole);
  return open();
}

}  // namespace marloven
