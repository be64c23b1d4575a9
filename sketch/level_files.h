// The persistent form of the sketch, under the installation's sketch folder:
// one file per level, bld_mtx.i<N> (91 lines: 6 header lines, 25 zone name
// lines, the 60 cell rows from the top of the screen down), and the whole
// building bld_mtx.all, the level files end to end. The whole file is also what
// a project file carries behind its "BUILDING MATRIX" line.
//
// The level files are the truth of every level but the one on screen while the
// sketch is open; bld_mtx.all is rebuilt from them when the sketch is left by
// its exit, and left alone when the user cancels.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/prompt.h"
#include "project/project_model.h"
#include "sketch/sketch_matrix.h"

namespace marloven {

std::string levelFilePath(const std::string& installDir, int level);  // sketch/bld_mtx.i<N>
std::string wholeSketchPath(const std::string& installDir);           // sketch/bld_mtx.all
std::string sketchBackupPath(const std::string& installDir);          // sketch/bld_mtx.bak
std::string sketchTemplatePath(const std::string& installDir);        // sketch/bld_mtx2.000

// The level file of the level in memory. Header lines 1..4 are taken from the
// matrix's scalars; lines 5 and 6 are what the last area summing left.
std::string formatLevel(const SketchMatrix& m);
// Copies the scalars into header lines 1..4 and rewrites bld_mtx.i<currentLevel>.
void saveLevel(SketchMatrix& m, const std::string& installDir);

// Fills the in-memory level m.currentLevel from a level file's text: header
// values, zone names (a stock name, or a single blank, becomes the stock name of
// this level), and the cells the rows reach; cells that a short row or a missing
// row does not reach keep their value. On level 1 the grid size and orientation
// are taken too. FileError 9 for a file whose names and rows overrun the level.
void applyLevelText(SketchMatrix& m, std::string_view text);

enum class LevelLoad {
  Loaded,    // the level was read; the screen redraws it
  BelowFirst,  // the step went below level 1: level 1 stays, nothing was read
  Declined,  // the step went above the top and the user did not add a level
};

// Loading a level goes one level UP from m.currentLevel: a caller that wants to
// go down first subtracts 2, one that wants to stay subtracts 1 (or uses the
// helpers below). Above the top level the user is asked whether to add one; a
// new level starts as a copy of the top level's file. FileError for a missing
// or unreadable level file.
LevelLoad loadNextLevel(SketchMatrix& m, const std::string& installDir, Prompt& prompt);
inline LevelLoad loadLevelBelow(SketchMatrix& m, const std::string& installDir, Prompt& prompt) {
  m.currentLevel = static_cast<std::int16_t>(m.currentLevel - 2);
  return loadNextLevel(m, installDir, prompt);
}
inline LevelLoad reloadLevel(SketchMatrix& m, const std::string& installDir, Prompt& prompt) {
  m.currentLevel = static_cast<std::int16_t>(m.currentLevel - 1);
  return loadNextLevel(m, installDir, prompt);
}

// Splitting the whole-building text into level texts, with the older format
// (10 zone names, 48-column rows) upgraded on the way and, for a new sketch in
// SI, the template's grid size and room height replaced by 1 and 3.5. Sets the
// level count, the level heights, grid size and orientation of m. The last line
// of the text (the bottom row of the top level) is not taken: a blank row
// replaces it, at every load. FileError 52 when the text does not begin a level
// with a "Grid" line, 9 for more than 98 levels.
std::vector<std::string> splitWholeText(std::string_view whole, SketchMatrix& m, UnitSystem units,
                                        bool newSketch);
// The same from bld_mtx.all to the level files.
void splitWholeFile(SketchMatrix& m, const std::string& installDir, UnitSystem units, bool newSketch);

// What the sketch screen does when it opens: clears the level in memory, splits
// bld_mtx.all (with the new-sketch defaults when the project's flag says so, and
// clears the flag) and loads level 1.
LevelLoad openSketch(SketchMatrix& m, const std::string& installDir, Project& p, Prompt& prompt);

// Rewrites bld_mtx.all from the level files 1..levelCount: written whole as
// bld_mtx.bak first and then renamed over it, so a failure leaves the old file.
// A level file shorter than 91 lines ends the copying there.
void rebuildWholeFile(const SketchMatrix& m, const std::string& installDir);

}  // namespace marloven
