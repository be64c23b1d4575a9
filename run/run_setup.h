// Setting up a run: the options of the run screen, their checks, and the
// files the engine is given in the scratch directory (run copy, control file,
// daylighting file, the report's front part). One function does the whole
// set-up, so the desktop program and the command line run the same way.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "common/prompt.h"
#include "project/app_state.h"
#include "report/front_report.h"
#include "run/control_file.h"

namespace marloven {

// What the run screen holds, or the command line's options.
struct RunChoices {
  int kind = 3;                 // 2 abbreviated, 3 with HVAC, 4 passive
  bool recordedWeather = false;
  std::string from = "1-Jan";   // day-month
  std::string to = "31-Dec";
  std::string year;             // the year box
  std::array<bool, 4> weeks{};  // highlighted week labels: weeks per month 1..4
  std::array<bool, 12> skip{};  // highlighted months
  std::string lower, upper;     // comfort limits
  std::array<std::string, 3> designTemps;  // summer dry-bulb, summer wet-bulb, winter dry-bulb
  bool hourly = false;
  bool repeatWeather = false;   // the fixed seed: the same weather as before
};

// The choices a run screen starts with: the last run's period and comfort
// limits (or the year's whole and the unit system's defaults), the project's
// year and weeks per month, week 4 alone for recorded weather.
RunChoices initialChoices(const AppState& s);

// Day of the year of "15-Oct-2013" (day, month, year; months by their English
// names, three letters or whole, in any case, or by number); nothing for a
// text that is no date.
std::optional<int> dayOfYear(const std::string& dayMonthYear);

// The seed of a run that repeats the weather sequence.
inline constexpr const char* kRepeatedSeed = ".83774665";

struct RunClock {
  std::string dateText;  // "22 Nov 2026"
  std::string timeText;  // "14:05"
};

struct RunSetup {
  ControlFile control;
  ReportSetup report;
};

// The whole set-up in scratchDir, in the order of the run screen: the checks
// (each told through the prompt), the year, the period, the run copy with a
// fresh seed (or the repeated one) and I-P numbers whatever the marker, the
// control file, the daylighting file, the report's front part. Nothing when
// the run does not start; a file error is shown as the error report. On
// success the project remembers the run (period, limits, kind, flags).
// random gives the fresh seed, a number in [0, 1).
// sketchLines stand in for the installation's sketch/bld_mtx.all when a
// project was read without touching the installation (runs side by side).
std::optional<RunSetup> setUpRun(AppState& s, RunChoices& c, const std::string& scratchDir, Prompt& prompt,
                                 const std::function<double()>& random, const RunClock& clock,
                                 const std::optional<std::vector<std::string>>& sketchLines = std::nullopt);

// The report as the results read it: the engine's sections, weather and
// comfort table appended to the front part in scratchDir. FileError when one
// of them is missing (the join stops there).
void joinReport(const std::string& scratchDir);

// The ERROR lines of the engine's log in scratchDir (empty when it has none
// or there is no log).
std::vector<std::string> engineErrors(const std::string& scratchDir);

// The engine program: $MARLOVEN_TARN64 when set, else tarn64 beside the
// program (or in the build tree's engine folder), else "tarn64" for the PATH.
std::string findEngine(const std::string& programDir);

}  // namespace marloven
