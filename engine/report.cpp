#include "engine/report.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "common/column_printer.h"
#include "common/number_text.h"
#include "engine/psychro.h"
#include "engine/run_log.h"

namespace tarn {

using marloven::ColumnPrinter;

namespace {

const char* const kMonths[12] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
const char* const kMonthNames[12] = {"JANUARY", "FEBRUARY", "MARCH", "APRIL", "MAY", "JUNE", "JULY",
                                     "AUGUST", "SEPTEMBER", "OCTOBER", "NOVEMBER", "DECEMBER"};
const char* const kMixedMonths[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
const char* const kWeekdays[7] = {"SUN", "MON", "TUE", "WED", "THU", "FRI", "SAT"};
const char* const kMixedWeekdays[7] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
const char* const kRowLabels[kCategories] = {
    "ROOF", "WALLS AND GROUND", "WINDOW CONDUCTION", "WINDOW SOLAR", "LIGHTS AND EQUIPMENT",
    "PEOPLE SENSIBLE", "PEOPLE LATENT", "INFILTRATION SENSIBLE", "INFILTRATION LATENT",
    "VENTILATION SENSIBLE", "VENTILATION LATENT", "MASS EFFECT"};

std::string pageMark(int page) { return "... PAGE " + marloven::printed(page) + "..."; }

std::string cut(const std::string& s, std::size_t n) { return s.size() > n ? s.substr(0, n) : s; }

void pageStart(ColumnPrinter& p, int& page) {
  p.pageFeedLine();
  p.tab(115).text(pageMark(page++)).endLine();
  p.endLine();
}

void projectHeader(ColumnPrinter& p, const ReportContext& c) {
  const SimModel& m = c.model;
  p.text("*** PROJECT: ").text(cut(m.projectName, 74)).tab(88).text("LOCATION: ").text(cut(m.location, 35)).endLine();
  p.text("    DESCRIPTION: ").text(cut(m.description, 66)).tab(88).text("Design Phase: ").text(cut(m.designStage, 30)).endLine();
  p.text("    SCHEME: ").text(cut(m.scheme, 20)).tab(35).text("TYPE: ").text(cut(m.buildingType, 22)).tab(60)
      .text("Weather Year: ").text(std::to_string(m.year)).tab(88).text("Date of Run: ").text(c.dateOfRun).endLine();
}

void sectionOpening(ColumnPrinter& p, const ReportContext& c, int& page, const std::string& title) {
  pageStart(p, page);
  p.line(title);
  p.text("      ").text(std::string(title.size() - 6, '-')).endLine();
  projectHeader(p, c);
  p.endLine();
}

std::string dayText(const Calendar& cal, int day) {
  const DayInfo& d = cal.at(day);
  return std::to_string(d.dayOfMonth) + "-" + kMixedMonths[d.month - 1] + "-" + std::to_string(cal.year);
}

std::string periodText(const ReportContext& c) {
  const int yearDays = c.calendar.yearDays;
  return dayText(c.calendar, std::min(c.control.beginDay, yearDays)) + " TO " +
         dayText(c.calendar, std::min(c.control.endDay, yearDays));
}

double toTemp(double f, bool si) { return si ? (f - 32.0) / 1.8 : f; }

std::string rightIn(const std::string& s, std::size_t width) {
  return s.size() >= width ? s : std::string(width - s.size(), ' ') + s;
}

std::string two(int v) { return (v < 10 ? "0" : "") + std::to_string(v); }

}  // namespace

std::string numberField(double value, int width, int decimals, RunLog* log) {
  for (int d = decimals; d >= 0; --d) {
    const double scale = std::pow(10.0, d);
    double v = std::round(value * scale) / scale;
    if (v == 0.0) v = 0.0;  // no "-0.0"
    char buf[64];
    const auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::fixed, d);
    std::string s(buf, r.ptr);
    if (static_cast<int>(s.size()) <= width - 1) return rightIn(s, static_cast<std::size_t>(width));
  }
  if (log) log->warning("report", "value " + marloven::bare(value) + " does not fit a field of " + std::to_string(width));
  return std::string(static_cast<std::size_t>(width), '*');
}

std::vector<double> roundParts(const std::vector<double>& parts, int decimals) {
  const double scale = std::pow(10.0, decimals);
  double total = 0;
  for (double v : parts) total += v;
  const long long target = std::llround(total * scale);
  std::vector<long long> units(parts.size());
  std::vector<double> remainder(parts.size());
  long long sum = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    units[i] = std::llround(parts[i] * scale);
    remainder[i] = parts[i] * scale - static_cast<double>(units[i]);
    sum += units[i];
  }
  long long diff = target - sum;
  while (diff != 0) {
    // The non-zero part whose rounding moved it furthest from the direction needed.
    std::size_t best = parts.size();
    for (std::size_t i = 0; i < parts.size(); ++i) {
      if (parts[i] == 0.0) continue;
      if (best == parts.size() || (diff > 0 ? remainder[i] > remainder[best] : remainder[i] < remainder[best])) best = i;
    }
    if (best == parts.size()) break;
    const long long step = diff > 0 ? 1 : -1;
    units[best] += step;
    remainder[best] -= static_cast<double>(step);
    diff -= step;
  }
  std::vector<double> out(parts.size() + 1);
  for (std::size_t i = 0; i < parts.size(); ++i) out[i] = static_cast<double>(units[i]) / scale;
  out.back() = static_cast<double>(target) / scale;
  return out;
}

std::string writeSimOut(const ReportContext& c, const LoadsResult& loads, int& page) {
  const bool si = c.model.siReport;
  const bool passive = c.control.runType == 4;
  const double rateUnit = si ? 0.29307107e-3 : 1e-3;  // Btu/h -> kW or kBtu/h
  const double energyUnit = si ? 1.05505585e-6 : 1e-6;  // Btu -> GJ or MBtu
  ColumnPrinter p;
  sectionOpening(p, c, page, "III.  M O N T H L Y   S U M M A R I E S   A N D   A N N U A L   L O A D S");
  if (passive) p.line("    PASSIVE RUN: NO HEATING OR COOLING. SEE SECTION IX.");
  else
    p.text("    BUILDING LOAD COMPONENTS, ALL ZONES.  ").text(c.control.runType == 2 ? "ABBREVIATED RUN" : "HVAC RUN")
        .text(", ").text(std::to_string(c.model.weeksPerMonth > 0 ? std::clamp(c.model.weeksPerMonth, 1, 4) : 4))
        .text(" WEEK(S) PER MONTH,  ").text(periodText(c)).endLine();
  p.endLine();
  const std::string rate = si ? "    KW" : "KBTU/H", energy = si ? "  GJ" : "MBTU";
  p.text("                              PEAK HEATING    PEAK COOLING  |                                    |  ANNUAL HEATING   ANNUAL COOLING").endLine();
  p.text("COMPONENT                     ").text(rate).text("     %    ").text(rate)
      .text("     %  |                                    |     ").text(energy).text("     %       ").text(energy).text("     %").endLine();
  p.line("--------------------------- ------------------------------  |                                    | -------------------------------");

  auto column = [&](const LoadRows& r, double unit) {
    std::vector<double> parts(kCategories);
    for (int i = 0; i < kCategories; ++i) parts[i] = passive ? 0.0 : r.rows[i] * unit;
    return roundParts(parts, 1);
  };
  const LoadRows annualHeat = loads.annualHeating(), annualCool = loads.annualCooling();
  const std::vector<double> cols[4] = {column(loads.peakHeating.load, rateUnit), column(loads.peakCooling.load, rateUnit),
                                       column(annualHeat, energyUnit), column(annualCool, energyUnit)};
  auto pct = [&](const std::vector<double>& col, int i) {
    const double total = col.back();
    return total == 0.0 ? 0.0 : 100.0 * col[i] / total;
  };
  auto row = [&](const std::string& label, int i) {
    p.text(label).tab(29).text(numberField(cols[0][i], 8, 1, c.log)).tab(38).text(numberField(pct(cols[0], i), 5, 1))
        .tab(45).text(numberField(cols[1][i], 8, 1, c.log)).tab(54).text(numberField(pct(cols[1], i), 5, 1))
        .tab(61).text("|").tab(63).text(label).tab(98).text("|")
        .tab(100).text(numberField(cols[2][i], 8, 1, c.log)).tab(109).text(numberField(pct(cols[2], i), 5, 1))
        .tab(117).text(numberField(cols[3][i], 8, 1, c.log)).tab(126).text(numberField(pct(cols[3], i), 5, 1)).endLine();
  };
  for (int i = 0; i < kCategories; ++i) row(kRowLabels[i], i);
  p.line("--------------------------- ------------------------------  |                                    | -------------------------------");
  row("TOTAL", kCategories);
  p.endLine();
  p.line("    HEATING COLUMNS: - IS A LOSS THAT ADDS TO THE HEATING LOAD, + IS A GAIN THAT OFFSETS IT.");
  p.line("    COOLING COLUMNS: + IS A GAIN THAT ADDS TO THE COOLING LOAD, - IS A LOSS THAT OFFSETS IT.");
  p.line("    PEAKS ARE THE BUILDING-COINCIDENT HOURS, LOCAL STANDARD TIME.  OUTSIDE AIR IS COUNTED AT THE COILS.");
  p.endLine();
  p.line("                                PEAK HEATING    PEAK COOLING");
  auto timeText = [&](const Peak& pk) {
    if (passive || !pk.any) return rightIn("(NONE)", 15);
    return rightIn(two(pk.hour - 1) + ":00-" + two(pk.hour) + ":00", 15);
  };
  auto dateText = [&](const Peak& pk) {
    if (passive || !pk.any) return std::string(17, ' ');
    const DayInfo& d = c.calendar.at(pk.day);
    const std::string dom = d.dayOfMonth < 10 ? " " + std::to_string(d.dayOfMonth) : std::to_string(d.dayOfMonth);
    return std::string(" ") + kMixedWeekdays[d.weekday - 1] + " " + kMixedMonths[d.month - 1] + " " + dom + ", " +
           std::to_string(c.calendar.year);
  };
  p.text("TIME OF PEAK").tab(30).text(timeText(loads.peakHeating)).tab(46).text(timeText(loads.peakCooling)).endLine();
  p.text("DATE OF PEAK").tab(30).text(dateText(loads.peakHeating)).text(dateText(loads.peakCooling)).endLine();
  p.endLine();

  // Monthly loads of the building (indented: no reader anchor).
  p.text("    MONTHLY BUILDING LOADS").endLine();
  p.text("          HEATING     COOLING    PEAK HEATING  PEAK COOLING").endLine();
  p.text("     ").text(si ? "       GJ          GJ              KW            KW" : "     MBTU        MBTU          KBTU/H        KBTU/H").endLine();
  std::vector<double> heat, cool;
  for (int mo = c.calendar.firstMonth; mo <= c.calendar.lastMonth; ++mo) {
    heat.push_back(passive ? 0.0 : loads.monthHeating[mo - 1].total * energyUnit);
    cool.push_back(passive ? 0.0 : loads.monthCooling[mo - 1].total * energyUnit);
  }
  const std::vector<double> heatR = roundParts(heat, 1), coolR = roundParts(cool, 1);
  for (int mo = c.calendar.firstMonth, i = 0; mo <= c.calendar.lastMonth; ++mo, ++i) {
    p.text("    ").text(kMonths[mo - 1]).tab(8).text(numberField(heatR[i], 10, 1, c.log)).tab(20)
        .text(numberField(coolR[i], 10, 1, c.log)).tab(34).text(numberField(passive ? 0.0 : loads.monthPeakHeating[mo - 1] * rateUnit, 12, 1, c.log))
        .tab(48).text(numberField(passive ? 0.0 : loads.monthPeakCooling[mo - 1] * rateUnit, 12, 1, c.log)).endLine();
  }
  p.text("    YEAR").tab(8).text(numberField(heatR.back(), 10, 1, c.log)).tab(20).text(numberField(coolR.back(), 10, 1, c.log)).endLine();
  return p.take();
}

std::string writeWeatherSummary(const ReportContext& c, int& page) {
  const bool si = c.model.siReport;
  const WeatherYear& w = c.weather;
  const MonthlyStats& s = c.model.stats;
  ColumnPrinter p;
  sectionOpening(p, c, page, "VIII.  W E A T H E R   S U M M A R Y");
  const std::string source = c.control.weatherFormat == 0
                                 ? "SIMULATED FROM THE MONTHLY STATISTICS, SEED " + c.model.seed
                                 : w.source;
  p.text("    WEATHER: ").text(source).endLine();
  auto deg = [](double v) { return numberField(std::fabs(v), 6, 1).substr(1); };
  p.text("    LATITUDE").text(deg(w.site.latitude)).text(w.site.latitude >= 0 ? " N" : " S").text(", LONGITUDE")
      .text(deg(w.site.longitude)).text(w.site.longitude >= 0 ? " W" : " E").text(", STANDARD MERIDIAN")
      .text(deg(w.site.meridian)).text(w.site.meridian >= 0 ? " W" : " E").text(", ELEVATION")
      .text(si ? numberField(w.site.elevation * 0.3048, 7, 0) + " M" : numberField(w.site.elevation, 7, 0) + " FT")
      .text(", PRESSURE").text(si ? numberField(pressureAtElevation(w.site.elevation) * 3.38639, 7, 1) + " KPA"
                                  : numberField(pressureAtElevation(w.site.elevation), 7, 2) + " IN HG").endLine();
  const std::string tu = si ? " C" : " F";
  p.text("    DESIGN TEMPERATURES: SUMMER").text(numberField(toTemp(c.model.designTemps[1], si), 6, 1)).text(tu + " DB /")
      .text(numberField(toTemp(c.model.designTemps[2], si), 6, 1)).text(tu + " WB, WINTER")
      .text(numberField(toTemp(c.model.designTemps[3], si), 6, 1)).text(tu + " DB").endLine();
  p.endLine();

  const double solarUnit = si ? 11.357 : 1.0;   // Btu/ft² -> kJ/m²
  const double windUnit = si ? 0.44704 : 1.0;   // mph -> m/s
  const double ddUnit = si ? 1.0 / 1.8 : 1.0;
  const double base = 65.0;
  struct DayStats { double max, min, mean, dew, wb, rh, solar, wind, hdd, cdd, kt; };
  auto dayStats = [&](int d) {
    DayStats ds{-1e9, 1e9, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    for (int h = 0; h < 24; ++h) {
      const WeatherHour& wh = w.hours[static_cast<std::size_t>(d - 1) * 24 + h];
      ds.max = std::max(ds.max, wh.dryBulb);
      ds.min = std::min(ds.min, wh.dryBulb);
      ds.mean += wh.dryBulb / 24.0;
      ds.dew += wh.dewPoint / 24.0;
      ds.wb += wetBulb(wh.dryBulb, wh.dewPoint, wh.pressure) / 24.0;
      ds.rh += relativeHumidity(wh.dryBulb, wh.dewPoint) * 100.0 / 24.0;
      ds.solar += wh.globalH;
      ds.wind += wh.wind / 24.0;
    }
    ds.hdd = std::max(0.0, base - ds.mean);
    ds.cdd = std::max(0.0, ds.mean - base);
    ds.kt = d - 1 < static_cast<int>(w.dailyClearness.size()) ? w.dailyClearness[d - 1] : 0.0;
    return ds;
  };

  p.line("    MONTHLY SUMMARY OF THE WEATHER USED");
  p.line("     MON  MEAN DB   INPUT   MAX DB   INPUT  MEAN DP   INPUT    SOLAR    INPUT   WIND  INPUT    HDD65   CDD65   LOWEST HIGHEST");
  p.text("          ").text(si ? "    (C)     (C)     (C)     (C)     (C)     (C)  (KJ/M2)  (KJ/M2)  (M/S)  (M/S)    (C-D)   (C-D)      (C)     (C)"
                                 : "    (F)     (F)     (F)     (F)     (F)     (F) (BTU/SF) (BTU/SF)  (MPH)  (MPH)    (F-D)   (F-D)      (F)     (F)").endLine();
  const std::string rule(119, '-');
  p.text("    ").text(rule.substr(4)).endLine();
  std::vector<std::array<double, 8>> monthRows;
  std::array<double, 8> year{};
  double yearLow = 1e9, yearHigh = -1e9;
  int yearDays = 0;
  for (int mo = c.calendar.firstMonth; mo <= c.calendar.lastMonth; ++mo) {
    const int first = firstDayOfMonth(mo, w.year), len = daysInMonth(mo, w.year);
    std::array<double, 8> a{};  // mean, max, dew, solar, wind, hdd, cdd
    double low = 1e9, high = -1e9;
    for (int d = first; d < first + len; ++d) {
      const DayStats ds = dayStats(d);
      a[0] += ds.mean / len, a[1] += ds.max / len, a[2] += ds.dew / len, a[3] += ds.solar / len, a[4] += ds.wind / len;
      a[5] += ds.hdd, a[6] += ds.cdd;
      low = std::min(low, ds.min), high = std::max(high, ds.max);
    }
    for (int k = 0; k < 5; ++k) year[k] += a[k] * len;
    year[5] += a[5], year[6] += a[6];
    yearDays += len;
    yearLow = std::min(yearLow, low), yearHigh = std::max(yearHigh, high);
    const int i = mo - 1;
    p.text("     ").text(kMonths[i]).tab(9).text(numberField(toTemp(a[0], si), 7, 1)).tab(17).text(numberField(toTemp(s.dbAve[i], si), 7, 1))
        .tab(25).text(numberField(toTemp(a[1], si), 7, 1)).tab(33).text(numberField(toTemp(s.dbMax[i], si), 7, 1))
        .tab(41).text(numberField(toTemp(a[2], si), 7, 1)).tab(49).text(numberField(toTemp(s.dpAve[i], si), 7, 1))
        .tab(57).text(numberField(a[3] * solarUnit, 8, 0)).tab(66).text(numberField(s.solar[i] * solarUnit, 8, 0))
        .tab(75).text(numberField(a[4] * windUnit, 6, 1)).tab(82).text(numberField(s.wind[i] * windUnit, 6, 1))
        .tab(89).text(numberField(a[5] * ddUnit, 7, 0)).tab(97).text(numberField(a[6] * ddUnit, 7, 0))
        .tab(105).text(numberField(toTemp(low, si), 7, 1)).tab(113).text(numberField(toTemp(high, si), 7, 1)).endLine();
  }
  p.text("    ").text(rule.substr(4)).endLine();
  p.text("    YEAR").tab(9).text(numberField(toTemp(year[0] / yearDays, si), 7, 1)).tab(25).text(numberField(toTemp(year[1] / yearDays, si), 7, 1))
      .tab(41).text(numberField(toTemp(year[2] / yearDays, si), 7, 1)).tab(57).text(numberField(year[3] / yearDays * solarUnit, 8, 0))
      .tab(75).text(numberField(year[4] / yearDays * windUnit, 6, 1)).tab(89).text(numberField(year[5] * ddUnit, 7, 0))
      .tab(97).text(numberField(year[6] * ddUnit, 7, 0)).tab(105).text(numberField(toTemp(yearLow, si), 7, 1))
      .tab(113).text(numberField(toTemp(yearHigh, si), 7, 1)).endLine();

  if (c.control.runType == 3 || c.control.runType == 4) {
    const std::string shortSource = c.control.weatherFormat == 0 ? "SIMULATED FROM MONTHLY STATISTICS, SEED " + c.model.seed
                                                                 : "RECORDED WEATHER";
    for (int mo = c.calendar.firstMonth; mo <= c.calendar.lastMonth; ++mo) {
      const int i = mo - 1;
      p.endLine();
      p.text(" DAILY WEATHER, ").text(kMonthNames[i]).text(" ").text(std::to_string(w.year)).tab(40)
          .text("* = DAY SIMULATED").tab(70).text(cut(shortSource, 62)).endLine();
      p.line(" DAY  WEEKDAY     MAX DB   MIN DB   AVE DB   AVE DP   AVE WB    RH    SOLAR   WIND   HDD65   CDD65   CLEAR-");
      p.text("                  ").text(si ? "   (C)      (C)      (C)      (C)      (C)   (%)  (KJ/M2)  (M/S)   (C-D)   (C-D)    NESS"
                                           : "   (F)      (F)      (F)      (F)      (F)   (%) (BTU/SF)  (MPH)   (F-D)   (F-D)    NESS").endLine();
      const int first = firstDayOfMonth(mo, w.year), len = daysInMonth(mo, w.year);
      DayStats sum{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
      for (int d = first; d < first + len; ++d) {
        const DayInfo& di = c.calendar.at(d);
        if (!di.inPeriod) continue;
        const DayStats ds = dayStats(d);
        sum.max += ds.max / len, sum.min += ds.min / len, sum.mean += ds.mean / len, sum.dew += ds.dew / len;
        sum.wb += ds.wb / len, sum.rh += ds.rh / len, sum.solar += ds.solar / len, sum.wind += ds.wind / len;
        sum.hdd += ds.hdd, sum.cdd += ds.cdd, sum.kt += ds.kt / len;
        p.text(rightIn(std::to_string(di.dayOfMonth), 4)).text(di.simulated ? "*" : " ").tab(7).text(kWeekdays[di.weekday - 1])
            .tab(17).text(numberField(toTemp(ds.max, si), 8, 1)).tab(26).text(numberField(toTemp(ds.min, si), 8, 1))
            .tab(35).text(numberField(toTemp(ds.mean, si), 8, 1)).tab(44).text(numberField(toTemp(ds.dew, si), 8, 1))
            .tab(53).text(numberField(toTemp(ds.wb, si), 8, 1)).tab(62).text(numberField(ds.rh, 5, 0))
            .tab(68).text(numberField(ds.solar * solarUnit, 8, 0)).tab(77).text(numberField(ds.wind * windUnit, 6, 1))
            .tab(84).text(numberField(ds.hdd * ddUnit, 7, 1)).tab(92).text(numberField(ds.cdd * ddUnit, 7, 1))
            .tab(100).text(numberField(ds.kt, 8, 2)).endLine();
      }
      p.text(" ").text(std::string(106, '-')).endLine();
      p.text(" MONTH").tab(17).text(numberField(toTemp(sum.max, si), 8, 1)).tab(26).text(numberField(toTemp(sum.min, si), 8, 1))
          .tab(35).text(numberField(toTemp(sum.mean, si), 8, 1)).tab(44).text(numberField(toTemp(sum.dew, si), 8, 1))
          .tab(53).text(numberField(toTemp(sum.wb, si), 8, 1)).tab(62).text(numberField(sum.rh, 5, 0))
          .tab(68).text(numberField(sum.solar * solarUnit, 8, 0)).tab(77).text(numberField(sum.wind * windUnit, 6, 1))
          .tab(84).text(numberField(sum.hdd * ddUnit, 7, 1)).tab(92).text(numberField(sum.cdd * ddUnit, 7, 1))
          .tab(100).text(numberField(sum.kt, 8, 2)).endLine();
      p.text(" INPUT").tab(17).text(numberField(toTemp(s.dbMax[i], si), 8, 1)).tab(35).text(numberField(toTemp(s.dbAve[i], si), 8, 1))
          .tab(44).text(numberField(toTemp(s.dpAve[i], si), 8, 1)).tab(68).text(numberField(s.solar[i] * solarUnit, 8, 0))
          .tab(77).text(numberField(s.wind[i] * windUnit, 6, 1)).endLine();
      const double dd = si ? 1.0 / 1.8 : 1.0;
      p.text(" INPUT STD").tab(17).text(numberField(s.maxStd[i] * dd, 8, 1)).tab(35).text(numberField(s.aveStd[i] * dd, 8, 1))
          .tab(44).text(numberField(s.dpStd[i] * dd, 8, 1)).endLine();
    }
  }
  pageStart(p, page);
  p.line("IX.  S P A C E   C O M F O R T   C O N D I T I O N S");
  p.line("     -----------------------------------------------");
  p.line(c.control.runType == 4 ? "     THE COMFORT TABLE FOLLOWS." : "     NO COMFORT TABLE: THIS RUN HAD HEATING AND COOLING.");
  return p.take();
}

std::string writeComfort(const ReportContext& c, const LoadsResult& loads, int& page) {
  if (c.control.runType != 4) return std::string();
  const bool si = c.model.siReport;
  const std::string tu = si ? " C" : " F";
  const double lowF = si ? c.control.comfortLow * 1.8 + 32.0 : c.control.comfortLow;
  const double highF = si ? c.control.comfortHigh * 1.8 + 32.0 : c.control.comfortHigh;
  const int weeks = std::clamp(c.model.weeksPerMonth, 1, 4);
  ColumnPrinter p;
  p.line("     SPACE COMFORT CONDITIONS -- PASSIVE RUN: NO HEATING, COOLING OR MECHANICAL VENTILATION");
  p.text("     COMFORT LIMITS").text(numberField(c.control.comfortLow, 6, 1)).text(" TO").text(numberField(c.control.comfortHigh, 6, 1))
      .text(tu + ".  PERIOD ").text(periodText(c)).text(".  ").text(std::to_string(weeks)).text(" WEEK(S) PER MONTH, HOURS SCALED TO WHOLE MONTHS.").endLine();
  p.text("     PROJECT: ").text(cut(c.model.projectName, 40)).tab(60).text("LOCATION: ").text(cut(c.model.location, 35)).endLine();
  p.text("     ").text(std::string(122, '-')).endLine();
  p.endLine();
  p.line("     BUILDING SUMMARY          ---- OCCUPIED HOURS -----       --------- ALL HOURS ---------");
  p.line("     ZONE  NAME                  BELOW  WITHIN   ABOVE    % IN    BELOW   WITHIN    ABOVE    MIN T    MAX T");
  for (std::size_t z = 0; z < c.model.zones.size(); ++z) {
    const ZoneTemperatures& t = loads.zones[z].temps;
    double below = 0, within = 0, above = 0;
    for (int m = 0; m < 12; ++m) below += t.below[m], within += t.within[m], above += t.above[m];
    const double occ = t.occBelow + t.occWithin + t.occAbove;
    p.tab(6).text(cut(c.model.zones[z].id, 4)).tab(12).text(cut(c.model.zones[z].name, 20))
        .tab(32).text(numberField(t.occBelow, 7, 0)).tab(40).text(numberField(t.occWithin, 7, 0)).tab(48).text(numberField(t.occAbove, 7, 0))
        .tab(56).text(numberField(occ > 0 ? 100.0 * t.occWithin / occ : 0.0, 7, 1))
        .tab(64).text(numberField(below, 8, 0)).tab(73).text(numberField(within, 8, 0)).tab(82).text(numberField(above, 8, 0))
        .tab(91).text(numberField(toTemp(t.allMin, si), 8, 1)).tab(100).text(numberField(toTemp(t.allMax, si), 8, 1)).endLine();
  }
  p.endLine();
  for (std::size_t z = 0; z < c.model.zones.size(); ++z) {
    const ZoneModel& zm = c.model.zones[z];
    const ZoneTemperatures& t = loads.zones[z].temps;
    pageStart(p, page);
    projectHeader(p, c);
    p.endLine();
    p.text(" ZONE ").text(cut(zm.id, 4)).tab(11).text(cut(zm.name, 28)).tab(40).text("FLOOR AREA")
        .tab(51).text(numberField(si ? zm.floorArea / 10.76391 : zm.floorArea, 8, 1)).tab(60).text(si ? "SQ.M." : "SQ.FT.")
        .tab(70).text("COMFORT LIMITS").text(numberField(c.control.comfortLow, 6, 1)).text(" TO")
        .text(numberField(c.control.comfortHigh, 6, 1)).text(tu).endLine();
    p.endLine();
    p.text("      AVERAGE ZONE AIR TEMPERATURE (").text(si ? "C" : "F").text(") BY HOUR AND MONTH.  + ABOVE THE UPPER LIMIT,  - BELOW THE LOWER LIMIT.").endLine();
    p.line("      HOUR          JAN     FEB     MAR     APR     MAY     JUN     JUL     AUG     SEP     OCT     NOV     DEC");
    p.line("      ----      ------- ------- ------- ------- ------- ------- ------- ------- ------- ------- ------- -------");
    auto used = [&](int m) {
      double w = 0;
      for (int h = 0; h < 24; ++h) w += t.weight[m][h];
      return w > 0;
    };
    for (int h = 0; h < 24; ++h) {
      p.text(rightIn(std::to_string(h + 1), 10));
      for (int m = 0; m < 12; ++m) {
        if (!used(m)) continue;
        const double mean = t.sum[m][h] / t.weight[m][h];
        p.tab(17 + 8 * m).text(numberField(toTemp(mean, si), 7, 1)).text(mean > highF ? "+" : (mean < lowF ? "-" : ""));
      }
      p.endLine();
    }
    p.endLine();
    auto monthRow = [&](const char* label, auto value, int decimals) {
      p.text("      ").text(label);
      for (int m = 0; m < 12; ++m)
        if (used(m)) p.tab(17 + 8 * m).text(numberField(value(m), 7, decimals));
      p.endLine();
    };
    monthRow("MEAN", [&](int m) {
      double s = 0, w = 0;
      for (int h = 0; h < 24; ++h) s += t.sum[m][h], w += t.weight[m][h];
      return toTemp(s / w, si);
    }, 1);
    monthRow("MAXIMUM", [&](int m) { return toTemp(t.max[m], si); }, 1);
    monthRow("MINIMUM", [&](int m) { return toTemp(t.min[m], si); }, 1);
    monthRow("HRS BELOW", [&](int m) { return t.below[m]; }, 0);
    monthRow("HRS WITHIN", [&](int m) { return t.within[m]; }, 0);
    monthRow("HRS ABOVE", [&](int m) { return t.above[m]; }, 0);
    p.text("      YEAR MEAN").tab(17).text(numberField(toTemp(t.annualWeight > 0 ? t.annualSum / t.annualWeight : 0.0, si), 7, 1)).endLine();
    p.endLine();
  }
  return p.take();
}

}  // namespace tarn
