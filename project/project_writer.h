// Writing the model as a project file, the numbers as they stand (the "straight"
// writer). The converting writers print the same lines with converted numbers.
#pragma once

#include <string>
#include <vector>

#include "common/column_printer.h"
#include "project/project_model.h"

namespace marloven {

// Line 1: "MARLOVEN  ", the seed, column 21, weeks per month as printed, a blank
// and the units marker "IP" or "SI". The caller decides seed and marker.
void printHeader(ColumnPrinter& out, const std::string& seed, int weeksPerMonth, UnitSystem marker);

// Lines 2 to the end. The model changes where the writer's rules say so:
// missing design temperatures are estimated, an outside-air text without a kind
// gets "CP" in front, daylighting in use is recomputed. sketchLines are the
// lines of sketch/bld_mtx.all, copied after "BUILDING MATRIX".
void writeProjectStraight(ColumnPrinter& out, Project& p, const std::vector<std::string>& sketchLines);

// Reads installDir/sketch/bld_mtx.all as lines; FileError 53 when it is missing.
std::vector<std::string> readSketchLines(const std::string& installDir);

}  // namespace marloven
