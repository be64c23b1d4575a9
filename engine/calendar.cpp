#include "engine/calendar.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "engine/run_log.h"
#include "engine/weather.h"

namespace tarn {

namespace {
int weekdayOf(int day, int firstWeekday) { return (firstWeekday - 1 + day - 1) % 7 + 1; }
}  // namespace

std::vector<int> holidays(int year, int firstWeekday, int count) {
  auto doy = [&](int m, int d) { return firstDayOfMonth(m, year) + d - 1; };
  // n-th given weekday of a month (n = -1: the last one).
  auto nth = [&](int m, int weekday, int n) {
    if (n > 0) {
      int d = doy(m, 1);
      while (weekdayOf(d, firstWeekday) != weekday) ++d;
      return d + 7 * (n - 1);
    }
    int d = doy(m, daysInMonth(m, year));
    while (weekdayOf(d, firstWeekday) != weekday) --d;
    return d;
  };
  constexpr int kMon = 2, kThu = 5;
  const int thanksgiving = nth(11, kThu, 4);
  const std::vector<int> list = {doy(1, 1),   nth(5, kMon, -1), doy(7, 4),       nth(9, kMon, 1),
                                 thanksgiving, doy(12, 25),     nth(1, kMon, 3), nth(2, kMon, 3),
                                 nth(10, kMon, 2), doy(11, 11), thanksgiving + 1, doy(12, 24),
                                 doy(12, 31)};
  const int yearDays = isLeapYear(year) ? 366 : 365;
  std::vector<int> out;
  for (int i = 0; i < count && i < static_cast<int>(list.size()); ++i) {
    int d = list[i];
    const int w = weekdayOf(d, firstWeekday);
    if (w == 7) d = std::max(1, d - 1);
    if (w == 1) d = std::min(yearDays, d + 1);
    out.push_back(d);
  }
  // Beyond the list: the working days from 26 December on.
  for (int d = doy(12, 26); static_cast<int>(out.size()) < count && d <= yearDays; ++d) {
    const int w = weekdayOf(d, firstWeekday);
    if (w != 1 && w != 7 && std::find(out.begin(), out.end(), d) == out.end()) out.push_back(d);
  }
  return out;
}

Calendar buildCalendar(int year, const RunControl& control, double occupiedDays, double holidayCount,
                       int weeksPerMonth, RunLog& log) {
  Calendar cal;
  cal.year = year;
  cal.yearDays = isLeapYear(year) ? 366 : 365;
  cal.days.resize(cal.yearDays);

  int perWeek = 5;
  if (occupiedDays <= 0) {
    log.warning("ecalc$.inp", "occupied days per week is 0 or less; 5 (Monday to Friday) is used");
  } else if (occupiedDays <= 7) {
    perWeek = static_cast<int>(occupiedDays);
  } else {
    perWeek = std::clamp(static_cast<int>(std::lround(occupiedDays / 52.0)), 0, 7);
  }
  // Monday first: Mon..Fri, then Saturday, then Sunday.
  auto occupiedWeekday = [&](int w) {
    const int rank = w == 1 ? 7 : w - 1;  // Mon 1 .. Sat 6, Sun 7
    return rank <= perWeek;
  };

  const int begin = std::min(control.beginDay, cal.yearDays);
  const int end = std::min(control.endDay, cal.yearDays);
  auto inPeriod = [&](int d) { return begin <= end ? (d >= begin && d <= end) : (d <= end || d >= begin); };

  const std::vector<int> hol = holidays(year, control.firstWeekday,
                                        static_cast<int>(std::clamp(holidayCount, 0.0, 366.0)));
  for (int d = 1; d <= cal.yearDays; ++d) {
    DayInfo& di = cal.days[d - 1];
    int m = 1;
    while (m < 12 && d >= firstDayOfMonth(m + 1, year)) ++m;
    di.month = m;
    di.dayOfMonth = d - firstDayOfMonth(m, year) + 1;
    di.weekday = weekdayOf(d, control.firstWeekday);
    di.inPeriod = inPeriod(d);
    di.occupied = occupiedWeekday(di.weekday) && !control.skipMonth[m] &&
                  std::find(hol.begin(), hol.end(), d) == hol.end();
  }

  int n = weeksPerMonth;
  if (n < 1 || n > 4) {
    log.warning("ecalc$.inp line 1", "weeks per month " + std::to_string(n) + " is outside 1 to 4; clamped");
    n = std::clamp(n, 1, 4);
  }
  bool any = false;
  for (int m = 1; m <= 12; ++m) {
    std::vector<int> daysIn;
    for (int d = firstDayOfMonth(m, year); d < firstDayOfMonth(m, year) + daysInMonth(m, year); ++d)
      if (cal.days[d - 1].inPeriod) daysIn.push_back(d);
    const int dCount = static_cast<int>(daysIn.size());
    if (dCount == 0) continue;
    any = true;
    if (n == 4 || dCount <= 7 * n) {
      for (int d : daysIn) cal.days[d - 1].simulated = true, cal.days[d - 1].weight = 1.0;
      continue;
    }
    const double w = static_cast<double>(dCount) / (7.0 * n);
    std::vector<int> starts;
    if (n == 1) starts.push_back((dCount - 7) / 2);
    else
      for (int k = 0; k < n; ++k)
        starts.push_back(static_cast<int>(std::lround(static_cast<double>(k) * (dCount - 7) / (n - 1))));
    for (int s : starts)
      for (int i = s; i < s + 7 && i < dCount; ++i) {
        cal.days[daysIn[i] - 1].simulated = true;
        cal.days[daysIn[i] - 1].weight = w;
      }
  }
  if (!any) throw RunFailure(ExitCode::BadInput, "ecalc$.tmp", "the run period holds no day of the year");

  // Reported months: the first to the last touched calendar month; a period
  // over New Year reports the whole year.
  if (begin <= end) {
    cal.firstMonth = cal.days[begin - 1].month;
    cal.lastMonth = cal.days[end - 1].month;
  } else {
    cal.firstMonth = 1;
    cal.lastMonth = 12;
  }

  // Run order: from the period's first day on, wrapping; warm-up before the
  // first run of days (7 days) and before every run that does not follow on (3).
  const int startDay = begin;
  int previous = -1;
  for (int i = 0; i < cal.yearDays; ++i) {
    const int d = (startDay - 1 + i) % cal.yearDays + 1;
    if (!cal.days[d - 1].simulated) continue;
    if (previous < 0 || (previous % cal.yearDays) + 1 != d) {
      const int warm = previous < 0 ? 7 : 3;
      for (int k = warm; k >= 1; --k) cal.sequence.push_back({(d - 1 - k + 2 * cal.yearDays) % cal.yearDays + 1, false});
    }
    cal.sequence.push_back({d, true});
    previous = d;
  }
  return cal;
}

}  // namespace tarn
