// The control file temp/ecalc$.tmp: what kind of run, which weather, which
// days, which months stand empty, the comfort limits. Eight lines of a
// 12-character label and the values.
#pragma once

#include <array>
#include <string>

namespace marloven {

struct ControlFile {
  int runKind = 3;        // 2 abbreviated, 3 with HVAC, 4 passive comfort
  int weatherFormat = 0;  // 0 simulated; 1 TMY2, 2 WYEC2, 3 Custom, 4 IWEC
  int firstWeekday = 1;   // of 1 January, 1 Sunday .. 7 Saturday
  int beginDay = 1;       // days of the year
  int endDay = 365;
  bool hourly = false;
  std::array<bool, 12> skip{};  // January .. December
  float comfortLow = 68;
  float comfortHigh = 79;
};

std::string controlFileText(const ControlFile& c);

}  // namespace marloven
