// The sketch screen without its widgets: zones are painted on the raster in
// the colour of the current zone, and the cells of the level are read back
// from the colours after every gesture, so the last paint of a cell decides
// and marks in colours of no zone (guide lines, grid dots, letters) count for
// nothing. Each event returns what the screen has to show again.
//
// Coordinates are those of the raster's user scale (sketch/raster.h): the
// drawing area is x 0..800, y 0..600 (y up); the strip left of x = 0 holds the
// zone name boxes and their colour swatches, and the compass.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "common/prompt.h"
#include "project/project_model.h"
#include "sketch/level_files.h"
#include "sketch/raster.h"
#include "sketch/sketch_matrix.h"

namespace marloven {

// The zone colours before they are read back from the swatches: entries 0..24
// are zones 1..25, 25 is white, the colour of an empty cell.
inline constexpr int kColourTableSize = kZonesPerLevel + 1;
std::array<Colour, kColourTableSize> stockZoneColours();

// Where the strip's parts stand, in drawing units: the name box of zone
// index+1 has its top at 496 - 16 * index, its left at -85, 85 wide and 17
// high; its swatch lies at -99..-87.
inline constexpr double kNameBoxLeft = -85;
inline constexpr double kNameBoxWidth = 85;
inline constexpr double kNameBoxHeight = 17;
inline constexpr double kSwatchLeft = -99;
inline constexpr double kSwatchRight = -87;
inline double nameBoxTop(int index) { return 496 - 16.0 * index; }

enum class DrawTool { FreeLine, GuideBox, FilledBox, Circle, Pen, CellPaint };
enum class Pointer { Default, Cross, Arrow };
enum class SketchField { GridSize, Orientation, Floors, RoomHeight };
inline constexpr int kSketchFields = 4;

// What an event asks the screen to show again.
enum Redraw : unsigned {
  kRedrawNothing = 0,
  kRedrawCanvas = 1,
  kRedrawStatus = 2,   // the status boxes and the pointer
  kRedrawFields = 4,   // the four edit boxes and the level
  kRedrawNames = 8,    // the 25 zone name boxes
  kRedrawAll = 15,
};

struct SketchStatus {
  std::string zoneArea = "Zn area=";
  std::string floorArea = "FlrArea=";
  std::string stories = "Stories=";
  std::string level = "Level= ";
  std::string position = "X,Y=";     // Coordinates(0)
  std::string dimensions = "Dim: ";  // Coordinates(1)
};

// The label each edit box shows ahead of its number; the key filter keeps the
// label from being erased.
std::string sketchFieldLabel(SketchField f);

class SketchEditor {
 public:
  SketchEditor(std::string installDir, Project& project, Prompt& prompt, double pixelsPerUnit = 1.0);

  // The screen opens: bld_mtx.all split into level files, level 1 loaded,
  // drawn, and its cells read back. FileError when the files fail.
  unsigned open();

  std::string caption() const;
  const SketchMatrix& matrix() const { return m_; }
  const Raster& raster() const { return raster_; }
  const SketchStatus& status() const { return status_; }
  const std::string& fieldText(SketchField f) const { return fields_[static_cast<int>(f)]; }
  const std::array<Colour, kColourTableSize>& zoneColours() const { return colours_; }
  DrawTool tool() const { return tool_; }
  Pointer pointer() const { return pointer_; }
  Colour foreground() const { return foreground_; }
  int scrollValue() const { return scroll_; }
  bool isTopLevel() const { return m_.currentLevel >= m_.levelCount; }

  // Mouse, left button only; the other buttons do nothing.
  unsigned mouseDown(double x, double y);
  unsigned mouseMove(double x, double y, bool leftDown);
  unsigned mouseUp(double x, double y);
  // A character typed with the canvas in focus, lettered at the current point.
  unsigned typed(char ch);

  // Draw Mode menu and the commands without one.
  unsigned chooseTool(DrawTool t);
  // A zone picked by its name box (index 0..24).
  unsigned selectZone(int index);
  unsigned renameZone(int index, const std::string& name);
  // A colour mixed on the control panel.
  unsigned setColour(Colour c);

  unsigned refreshGrid();  // View / Refresh Grid
  unsigned cleanup();      // View / Cleanup: the level redrawn from its cells
  unsigned eraseWindow();  // Edit / Erase Window
  unsigned eraseAll();     // Edit / Erase All, with its questions

  // The level bar and the two level commands. FileError when a level file fails.
  unsigned scroll(int value);
  unsigned levelUp();
  unsigned levelDown();

  // The four edit boxes: the key filter (true keeps the key), a change of the
  // text, and a click into the box.
  bool fieldKey(SketchField f, char key);
  unsigned fieldChanged(SketchField f, const std::string& text);
  void fieldClicked(SketchField f);

  // Drawing Units: asks for the size of one grid.
  unsigned drawingUnits();

  // Exit: saves the level and makes the zones. Cancel Changes: true when the
  // user confirmed and the screen closes without saving.
  void exit();
  bool cancelChanges();
  // A saved sketch file replaces the one open, without a question: copied
  // over bld_mtx.all and opened anew. FileError for a file that is missing or
  // is no sketch (then nothing changes).
  unsigned loadDrawing(const std::string& path);

  // A picture pasted over the canvas from its top left corner, rows from the
  // top; the cells follow at the next gesture.
  unsigned pastePicture(const std::vector<Colour>& pixels, int width, int height);

  // Reads the cells back from the raster; the areas and header follow.
  void rebuildCells();

 private:
  void drawSwatches();
  void readColourTable();
  void drawGrid();
  void drawCompass();
  void drawCompassAt(double degrees);
  void clearCanvas();
  void paintCells();
  void redrawLevel();
  unsigned afterLoad(LevelLoad loaded);
  int zoneOfColour(Colour c) const;
  void addToZone(int zone, double area);
  void showZoneArea();
  void showFloorArea();
  void showStories();
  void showFields();
  // Moves the XOR band to the corner (x, y); kNoBand only wipes it.
  void rubberBand(double x, double y);
  static constexpr double kNoBand = -1e9;
  bool inDrawingArea(double x, double y) const;

  std::string installDir_;
  Project& p_;
  Prompt& prompt_;
  SketchMatrix m_;
  Raster raster_;
  SketchStatus status_;
  std::array<std::string, kSketchFields> fields_;
  std::array<Colour, kColourTableSize> colours_;

  DrawTool tool_ = DrawTool::FilledBox;
  Pointer pointer_ = Pointer::Default;
  Colour foreground_;
  Colour paintColour_ = kWhite;
  int scroll_ = 0;
  bool dragging_ = false;
  double startX_ = 0, startY_ = 0;    // snapped drag start
  double currentX_ = 0, currentY_ = 0;
  double lastX_ = 0, lastY_ = 0;      // the rubber band's other corner
  bool bandShown_ = false;
  double lastPressX_ = 0;
  std::optional<double> needle_;      // the compass needle's angle on screen
};

}  // namespace marloven
