// Zone and surface extraction: turns the finished sketch (its level files) into
// the project's zones and their exterior surfaces. Every cell edge between a
// zone and an empty cell, or the grid's edge, is a piece of wall; walls of a
// zone with the same facing and shading merge into one surface, whatever their
// place in the plan. Zones get a roof where nothing stands above them and, on
// level 1, a floor on the ground split into a perimeter strip and a core.
//
// The results go to the zone scratch files temp/temp<level><zone>.zon (read by
// zone entry, project/zone_scratch.h), temp/zname.tmp and temp/zarea.tmp, and
// into the model's zone list. Zone 11 of level 1 and zone 1 of level 11 both
// are "111" and share a file; the later one wins, as it always has.
#pragma once

#include <string>
#include <vector>

#include "common/prompt.h"
#include "project/project_model.h"
#include "project/project_reader.h"
#include "sketch/sketch_matrix.h"

namespace marloven {

inline constexpr int kMaxSurfaceRuns = 3300;  // working rows of one level

// How much a building part at a distance shades a wall: the sine of the angle
// under which a part of the given height is seen, to one decimal.
float obstructionFactor(double height, double distance);

struct ExtractedZone {
  std::string id;    // level and zone number side by side: "13", "212"
  std::string name;  // the first 16 characters of the level file's name
  float area = 0;    // all floors of the level, one decimal
  std::int16_t rowCount = 0;
};

struct Extraction {
  std::vector<ExtractedZone> zones;  // by level, then zone number
  float totalFloorArea = 0;
  // In the order opened; a later file of the same name replaces an earlier one.
  // The last holds the closing "9999" after its "end".
  std::vector<ZoneScratchFile> zoneFiles;
  std::string zoneNames;  // temp/zname.tmp
  std::string zoneAreas;  // temp/zarea.tmp
};

// The pass itself on the texts of level files 1..n, with the building's grid
// size, level heights and orientation text from m. Raises FileError where the
// sketch cannot be made into zones: 5 for a cell row shorter than 80
// characters, 9 for a zone character outside 1..25, more than 3300 surface runs
// on a level or more than 100 zones, 11 for a division by zero (no floors or a
// grid size of 0), 62 for a level file cut short.
Extraction computeExtraction(const SketchMatrix& m, const std::vector<std::string>& levelTexts, UnitSystem units);

enum class ExtractOutcome {
  Done,
  NoLevels,  // level count 0: nothing read, nothing written
  Failed,    // the handler's message was shown
};

// ExtractZones: reads the level files, writes the scratch files, replaces the
// model's zone list (ids, names, areas, row counts, count), the sketch's total
// floor area and orientation, and rebuilds bld_mtx.all. Any failure shows
// "Draw Error, Click OK to recover" under "Sketch subroutine error" and stops
// the pass; a failure before the files are written leaves files and model as
// they were.
ExtractOutcome extractZones(const SketchMatrix& m, const std::string& installDir, Project& p, Prompt& prompt);

}  // namespace marloven
