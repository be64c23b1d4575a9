// The few figures a finished run is judged by, read from the joined report:
// site energy by end use and in all, energy use intensity, peak loads and
// unmet hours. The command line prints them and puts many runs side by side.
#pragma once

#include <array>
#include <string>

#include "results/chart_readers.h"
#include "results/read_status.h"

namespace marloven {

struct RunSummary {
  OutputUnits units = OutputUnits::IP;
  std::string project;                 // the report's project caption
  std::array<double, 7> endUse{};      // by EndUse: MBtu (I-P) or GJ (SI)
  double siteTotal = 0;                // MBtu or GJ
  double floorArea = 0;                // ft2 or m2
  double intensity = 0;                // site energy per floor area: kBtu/ft2 or MJ/m2
  double peakHeating = 0;              // building total of the load table: kBtu/h or kW
  double peakCooling = 0;
  int unmetHours = 0;
};

// Reads <scratchDir>/ecalc$.out.
ReadStatus readRunSummary(const std::string& scratchDir, RunSummary& s);

// The summary as the command line prints it after a run.
std::string summaryText(const RunSummary& s);

// One CSV line per run, with its header; the name identifies the run.
std::string summaryCsvHeader();
std::string summaryCsvLine(const std::string& name, const RunSummary& s);

}  // namespace marloven
