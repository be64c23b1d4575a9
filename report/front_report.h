// The front part of the report temp/ecalc$.out, written before the engine
// starts: banner, simulation period, location and weather, economics, the
// two catalogs, the light shelf pages of a daylighted project, and sections I
// (project and building, with the compliance figures) and II (zone by zone).
// The engine appends its sections to the same file.
#pragma once

#include <string>
#include <vector>

#include "common/prompt.h"
#include "project/project_model.h"

namespace marloven {

// What the run set-up decided, as the report echoes it.
struct ReportSetup {
  std::string periodFrom;  // "1-Jan-2013"
  std::string periodTo;
  int periodKind = 0;      // above 0 recorded weather, 0 synthetic, below 0 not shown
  int weeksPerMonth = 4;
  std::vector<std::string> skippedMonths;  // names of the unoccupied months
  int year = 0;
  int firstWeekday = 0;    // of 1 January, 1 Sunday .. 7 Saturday
  std::string dateText;    // "22 Nov 2026"
  std::string timeText;    // "14:05"
  // The level the sketch screen last had on screen, as the program keeps it
  // after the screen closes; 0 while the sketch has not been opened. Any other
  // value puts a page feed before each zone's compliance block.
  int sketchLevel = 0;
};

// The files the report copies or reads, as text.
struct ReportSources {
  std::string hvacCatalog;  // btype/tcool.dat
  std::string lightShelf;   // temp/ltshlf.dat, needed when a zone is daylighted
  std::string sketch;       // sketch/bld_mtx.all
};

struct FrontReport {
  std::string text;
  // Set when a zone names a profile the library does not hold: the report
  // stops there, and the user is told which.
  bool abandoned = false;
  std::string warningTitle;
  std::string warningText;
};

// Composes the report from the model; touches no file. FileError 11 when a
// building figure divides by zero (no roof, no walls, no floor area, nobody
// in the building), 62 when the light shelf file is too short.
FrontReport composeFrontReport(const Project& p, const ReportSetup& setup, const ReportSources& sources);

// Reads the sources under the installation, writes temp/ecalc$.out and
// returns the run status: 0 written, 5 abandoned (the warning shown, the part
// written so far on disk). FileError for the files and for the faults of
// composeFrontReport; the report then holds what was written before the
// fault, and nothing when a source could not be read.
int writeFrontReport(const std::string& installDir, const Project& p, const ReportSetup& setup, Prompt& prompt);
// The same with the sources given, written to path (a run's own scratch folder).
int writeFrontReportTo(const std::string& path, const Project& p, const ReportSetup& setup,
                       const ReportSources& sources, Prompt& prompt);

// Floors and the floor height of the last block of a sketch file.
struct SketchStack {
  float floors = 0;
  int blocks = 0;
  int lastHeight = 0;
};
SketchStack readSketchStack(const std::string& sketchText);

}  // namespace marloven
