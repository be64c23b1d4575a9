// Start-up: from process start until the main screen is up, the remembered unit
// choice, the scratch clean-up at exit and the reset of File New.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/file_error.h"
#include "project/app_state.h"

namespace marloven {

// The model's start-up defaults (names, weeks per month, sketch scale, flags,
// empty profile IDs).
void setStartupDefaults(Project& p);

// The name of a building type from line 1 of its file: the line without its
// last 3 characters, a blank, and its last 2 characters, so the two-letter code
// stands one blank apart whatever preceded it. FileError 5 when the line has
// fewer than 3 characters.
std::string buildingTypeName(std::string_view line1);

// Loads the building type names (btype/bdtype1..42.dat, line 1 each) and the
// default profile lines (profiles/bprof1..4.dat: one heading line, then 42
// lines). FileError 53 when a file is missing, 62 when one has too few lines.
// Every file is tried; the first failure is raised once the rest are loaded.
void loadStartupTables(const Installation& inst, StartupTables& t);

// "22 Nov 2026" from the month table.
std::string dateText(const Date& d);

// The remembered unit system: temp/ecalc$.unt holding "1" gives I-P; anything
// else (another number, an empty or missing or unreadable file) gives SI.
UnitSystem readUnitChoice(const Installation& inst);
// Rewrites temp/ecalc$.unt with "1" or "2". FileError on failure.
void writeUnitChoice(const Installation& inst, UnitSystem units);

// The whole start-up in order: month table, defaults, spreadsheet look-up,
// tables, date, unit choice. A file error of the tables is returned (the caller
// shows the error report) and start-up still completes the rest, so the
// program comes up usable.
std::optional<FileError> startUp(AppState& s, const Date& today);

// Finds a spreadsheet program on this system; empty when there is none.
std::string findSpreadsheetProgram();

// At exit: deletes temp/*.zon when this session ever had project data (a kind
// loaded or touched, a project from a file, a save, a sketch). Errors ignored.
void killZoneScratch(const Installation& inst, const Project& p);

// File New: the reset of names, flags and tables (temp/*.tmp goes when the
// sketch was opened).
void resetProject(const Installation& inst, Project& p);

}  // namespace marloven
