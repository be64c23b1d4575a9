// The control file ecalc$.tmp: what kind of run, which weather, which days.
#pragma once

#include <array>
#include <string_view>

namespace tarn {

struct RunControl {
  int runType = 3;         // 1 check, 2 abbreviated, 3 with HVAC, 4 passive
  int weatherFormat = 0;   // 0 simulated, 1 TMY2, 2 WYEC2, 3 Custom, 4 IWEC (EPW)
  int firstWeekday = 1;    // weekday of 1 January, 1 = Sunday
  int beginDay = 1, endDay = 365;
  bool hourlyOut = false;
  std::array<bool, 13> skipMonth{};  // 1..12
  double comfortLow = 68, comfortHigh = 79;  // in the report's units as written
};

// Parses the control file. Raises RunFailure(BadInput) naming the line for a
// missing line or a value outside its range; swapped comfort limits are put
// right with a warning in the log.
class RunLog;
RunControl parseControl(std::string_view bytes, RunLog& log);

}  // namespace tarn
