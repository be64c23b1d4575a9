// Writing the model as a project file. The straight writer prints the numbers
// as they stand; the converting writers print the same lines with the numbers
// in the other unit system (the model itself is not converted).
#pragma once

#include <string>
#include <vector>

#include "common/column_printer.h"
#include "project/project_model.h"

namespace marloven {

enum class Conversion { None, ToIP, ToSI };

// Line 1: "MARLOVEN  ", the seed, column 21, weeks per month as printed, a blank
// and the units marker "IP" or "SI". The caller decides seed and marker.
void printHeader(ColumnPrinter& out, const std::string& seed, int weeksPerMonth, UnitSystem marker);

// Lines 2 to the end. sketchLines are the lines of sketch/bld_mtx.all, which
// follow "BUILDING MATRIX". The model changes where the writers' rules say so:
// - every writer puts "CP" in front of an outside-air text without a kind and
//   sets daylighting in use when a zone has it;
// - the straight writer estimates missing design temperatures;
// - the writer to SI always replaces them with estimated ones first;
// - the converting writers fill the weather month tables.
// The writer to I-P ends a zone's rows at the first row whose wall ID, window
// ID or exposure is 0; the others print all rows. FileError 62 when the sketch
// lines end inside a level that a converting writer walks.
void writeProject(ColumnPrinter& out, Project& p, const std::vector<std::string>& sketchLines,
                  Conversion conversion);

inline void writeProjectStraight(ColumnPrinter& out, Project& p, const std::vector<std::string>& sketchLines) {
  writeProject(out, p, sketchLines, Conversion::None);
}

// The units marker of a file written with a conversion from a project in p's units.
UnitSystem targetUnits(UnitSystem current, Conversion conversion);

// Reads installDir/sketch/bld_mtx.all as lines; FileError 53 when it is missing.
std::vector<std::string> readSketchLines(const std::string& installDir);

}  // namespace marloven
