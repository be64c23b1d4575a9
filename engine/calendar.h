// The run's calendar: weekdays, holidays, occupied days, the days simulated
// with their weights, and the order they are run in (with warm-up days).
#pragma once

#include <vector>

#include "engine/control_file.h"

namespace tarn {

class RunLog;

struct DayInfo {
  int month = 1, dayOfMonth = 1, weekday = 1;  // weekday 1 = Sunday
  bool occupied = false;
  bool inPeriod = false;
  bool simulated = false;
  double weight = 0;  // how many calendar days this simulated day stands for
};

struct RunDay {
  int day;          // day of year 1..yearDays
  bool accumulate;  // false for warm-up days
};

struct Calendar {
  int year = 2001;
  int yearDays = 365;
  std::vector<DayInfo> days;     // index day - 1
  std::vector<RunDay> sequence;  // in run order
  int firstMonth = 1, lastMonth = 12;  // months reported
  const DayInfo& at(int day) const { return days[day - 1]; }
};

// Holidays of a year as days of the year, observed (Saturday -> Friday,
// Sunday -> Monday), the first `count` of the fixed list.
std::vector<int> holidays(int year, int firstWeekday, int count);

// occupiedDaysText and holidaysText are the project's "Occ. Days" and
// "An Hldays" values; weeksPerMonth 1..4.
Calendar buildCalendar(int year, const RunControl& control, double occupiedDays, double holidayCount,
                       int weeksPerMonth, RunLog& log);

}  // namespace tarn
