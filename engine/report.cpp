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
    if (r.ec != std::errc()) break;  // far too wide for any field
    std::string s(buf, r.ptr);
    if (static_cast<int>(s.size()) <= width - 1) return rightIn(s, static_cast<std::size_t>(width));
  }
  if (log) log->warning("report", "value " + marloven::bare(value) + " does not fit a field of " + std::to_string(width));
  return std::string(static_cast<std::size_t>(width), '*');
}

namespace {
// Below 2^53 units a double counts them exactly; beyond, there is no fraction
// left to hand out, and llround would leave the range of long long.
bool countable(double units) { return std::fabs(units) < 9007199254740992.0; }
}  // namespace

std::vector<double> roundParts(const std::vector<double>& parts, int decimals) {
  const double scale = std::pow(10.0, decimals);
  double total = 0;
  for (double v : parts) total += v;
  return roundPartsTo(parts, decimals, std::round(total * scale) / scale);
}

std::vector<double> roundPartsTo(const std::vector<double>& parts, int decimals, double total) {
  const double scale = std::pow(10.0, decimals);
  bool exact = countable(total * scale);
  for (double v : parts) exact = exact && countable(v * scale);
  if (!exact) {
    std::vector<double> out(parts.size() + 1);
    for (std::size_t i = 0; i < parts.size(); ++i) out[i] = std::round(parts[i] * scale) / scale;
    out.back() = std::round(total * scale) / scale;
    return out;
  }
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
  // Each part's rounding is off by less than one unit, so a target further away
  // than one unit per part is no rounding error: the parts keep their own
  // rounding and the total is their sum.
  long long printedTotal = target;
  if (static_cast<std::size_t>(diff < 0 ? -diff : diff) > parts.size()) printedTotal = sum, diff = 0;
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
  out.back() = static_cast<double>(printedTotal - diff) / scale;
  return out;
}

namespace {

// Section III, page 1 up to the empty line after DATE OF PEAK.
void loadTable(ColumnPrinter& p, const ReportContext& c, const LoadsResult& loads, int& page) {
  const bool si = c.model.siReport;
  const bool passive = c.control.runType == 4;
  const double rateUnit = si ? 0.29307107e-3 : 1e-3;  // Btu/h -> kW or kBtu/h
  const double energyUnit = si ? 1.05505585e-6 : 1e-6;  // Btu -> GJ or MBtu
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
}

}  // namespace

namespace {

// Display units: I-P as computed, SI converted when printed.
struct Units {
  bool si = false;
  double rate(double btuh) const { return btuh * (si ? 0.29307107e-3 : 1e-3); }  // kBtu/h | kW
  double rateKbtuh(double kbtuh) const { return si ? kbtuh * 0.29307107 : kbtuh; }
  double energy(double mbtu) const { return si ? mbtu * 1.05505585 : mbtu; }      // MBtu | GJ
  double gas(double therms) const { return si ? therms * 0.105505585 : therms; }   // therms | GJ
  double water(double gallons) const { return si ? gallons * 0.00378541178 : gallons / 1000.0; }  // kgal | m³
  double area(double ft2) const { return si ? ft2 / 10.76391 : ft2; }
  double flow(double cfm) const { return si ? cfm * 0.47194745 : cfm; }           // cfm | L/s
  double capacity(double btuh) const { return si ? btuh * 0.29307107e-3 : btuh / 12000.0; }  // tons | kW
  double perArea(double kbtuPerFt2) const { return si ? kbtuPerFt2 * 11.35653 : kbtuPerFt2; }  // kBtu/ft² | MJ/m²
  double kwhToEnergy() const { return si ? 0.0036 : kBtuPerKwh * 1e-6; }           // kWh -> GJ | MBtu
  const char* rateName() const { return si ? "KW" : "KBTU/H"; }
  const char* energyName() const { return si ? "GJ" : "MBTU"; }
};

const char* const kCoolingTexts[10] = {"", "V.A.V. SYSTEM", "DBL.DUCT SYSTEM", "MLT.ZONE SYSTEM", "FAN COIL UNITS",
                                       "ROOF TOP SGL.ZONE", "DX SPLIT SYSTEM", "DX HEAT PUMP", "DX WINDOW RES.",
                                       "EVAP. COOLER"};
const char* const kHeatingTexts[4] = {"", "GAS", "ELEC. RES.", "HEAT PUMP"};

// A number field that starts at `col`; when a label already runs into it the
// field keeps its right end and narrows.
void field(ColumnPrinter& p, int col, int width, double value, int decimals, RunLog* log) {
  if (p.column() > col) {
    width = col + width - p.column();
    col = p.column();
  }
  p.tab(col).text(numberField(value, width, decimals, log));
}

// Heading text right-aligned to end at column `end`.
void headEnding(ColumnPrinter& p, int end, const std::string& text) {
  p.tab(end - static_cast<int>(text.size()) + 1).text(text);
}

std::string longDate(const Calendar& cal, int day) {
  const DayInfo& d = cal.at(day);
  const std::string dom = d.dayOfMonth < 10 ? " " + std::to_string(d.dayOfMonth) : std::to_string(d.dayOfMonth);
  return std::string(kMixedWeekdays[d.weekday - 1]) + " " + kMixedMonths[d.month - 1] + " " + dom + ", " +
         std::to_string(cal.year);
}

// A fixed-decimal number without the field's blanks.
std::string plain(double v, int decimals) {
  const std::string s = numberField(v, 40, decimals);
  return s.substr(s.find_first_not_of(' '));
}

std::string hourSpan(int hour) { return two(hour - 1) + ":00-" + two(hour) + ":00"; }

// A price as the note prints it: ".080", more decimals only when it has them.
std::string priceText(double v) {
  char buf[64];
  const auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::fixed, 3);
  std::string s(buf, r.ptr);
  if (std::fabs(std::round(v * 1000.0) / 1000.0 - v) > 1e-12) s = marloven::bare(v);
  if (s.rfind("0.", 0) == 0) s.erase(0, 1);
  return s;
}

// The monthly columns of section III page 2 and of the utility bills, rounded
// once so that both print the same numbers, each column adding up to its total
// and each row's electricity and total costs adding up from its printed parts.
struct PrintedMonths {
  std::vector<int> months;  // 1..12 in report order
  std::vector<double> heating, coolKwh, fanKwh, lightsEquipKwh, totalKwh, water, gasUse;
  std::vector<double> energyCharge, demandCharge, gasCost, waterCost;  // whole dollars
  std::vector<double> peakHeat, peakCool, peakKw;                      // no totals: maxima at the back
  double elecCost(std::size_t i) const { return energyCharge[i] + demandCharge[i]; }
  double totalCost(std::size_t i) const { return elecCost(i) + gasCost[i] + waterCost[i]; }
};

PrintedMonths printedMonths(const ReportContext& c, const LoadsResult& loads, const EnergyResult& e,
                            const CostResult& k, const Units& u) {
  const bool passive = c.control.runType == 4;
  PrintedMonths pm;
  std::vector<double> heat, cool, fan, le, tot, water, gas, energy, demand, gasCost, waterCost;
  double maxHeat = 0, maxCool = 0, maxKw = 0;
  for (int mo = c.calendar.firstMonth; mo <= c.calendar.lastMonth; ++mo) {
    const MonthEnergy& me = e.months[mo - 1];
    const MonthBill& b = k.months[mo - 1];
    pm.months.push_back(mo);
    heat.push_back(u.energy(monthSiteEnergy(me)[kSpaceHeating]));
    cool.push_back(me.coolingKwh);
    fan.push_back(me.fansKwh);
    le.push_back(me.lightsKwh + me.equipmentKwh);
    tot.push_back(me.totalKwh());
    water.push_back(u.water(me.waterGallons));
    gas.push_back(u.gas(b.therms));
    energy.push_back(b.energyCharge);
    demand.push_back(b.demandCharge);
    gasCost.push_back(b.gasCost);
    waterCost.push_back(b.waterCost);
    const double ph = passive ? 0.0 : u.rate(std::fabs(loads.monthPeakHeating[mo - 1]));
    const double pc = passive ? 0.0 : u.rate(std::max(0.0, loads.monthPeakCooling[mo - 1]));
    pm.peakHeat.push_back(ph);
    pm.peakCool.push_back(pc);
    pm.peakKw.push_back(me.peakKw);
    maxHeat = std::max(maxHeat, ph), maxCool = std::max(maxCool, pc), maxKw = std::max(maxKw, me.peakKw);
  }
  pm.peakHeat.push_back(maxHeat);
  pm.peakCool.push_back(maxCool);
  pm.peakKw.push_back(maxKw);
  pm.heating = roundParts(heat, 1);
  pm.coolKwh = roundParts(cool, 0);
  pm.fanKwh = roundParts(fan, 0);
  pm.lightsEquipKwh = roundParts(le, 0);
  pm.totalKwh = roundParts(tot, 0);
  pm.water = roundParts(water, 1);
  pm.gasUse = roundParts(gas, 1);
  pm.energyCharge = roundParts(energy, 0);
  pm.demandCharge = roundParts(demand, 0);
  pm.gasCost = roundParts(gasCost, 0);
  pm.waterCost = roundParts(waterCost, 0);
  return pm;
}

// The six end uses as printed on the Site line, and their printed total. Space
// heating is the monthly table's heating total and space cooling its cooling
// kWh total at 3412 Btu/kWh, so the two tables agree to the last digit.
struct PrintedSite {
  std::array<double, kEndUses> parts{};
  double total = 0;
};

PrintedSite printedSite(const PrintedMonths& pm, const CostResult& k, const Units& u) {
  PrintedSite s;
  s.parts[kSpaceHeating] = pm.heating.back();
  s.parts[kSpaceCooling] = std::round(pm.coolKwh.back() * u.kwhToEnergy() * 10.0) / 10.0;
  double exact = 0;
  for (double v : k.site.mbtu) exact += u.energy(v);
  const std::vector<double> free = {u.energy(k.site.mbtu[kWaterHeating]), u.energy(k.site.mbtu[kFanMotors]),
                                    u.energy(k.site.mbtu[kLighting]), u.energy(k.site.mbtu[kEquipment])};
  const double target = std::round((exact - s.parts[kSpaceHeating] - s.parts[kSpaceCooling]) * 10.0) / 10.0;
  const std::vector<double> r = roundPartsTo(free, 1, target);
  s.parts[kWaterHeating] = r[0], s.parts[kFanMotors] = r[1], s.parts[kLighting] = r[2], s.parts[kEquipment] = r[3];
  double tenths = 0;
  for (double v : s.parts) tenths += std::round(v * 10.0);
  s.total = tenths / 10.0;
  return s;
}

void siteBlock(ColumnPrinter& p, const ReportContext& c, const PrintedMonths& pm, const CostResult& k, const Units& u) {
  const PrintedSite s = printedSite(pm, k, u);
  p.line("    ANNUAL SITE ENERGY BY END USE");
  p.line("                   SPACE     WATER     SPACE       FAN   LIGHT-     EQUIP-");
  p.line("                 HEATING   HEATING   COOLING    MOTORS      ING       MENT");
  p.text(u.si ? "Site (GJ)" : "Site (MBTU)");
  field(p, 18, 7, s.parts[kSpaceHeating], 1, c.log);
  field(p, 27, 8, s.parts[kWaterHeating], 1, c.log);
  field(p, 38, 7, s.parts[kSpaceCooling], 1, c.log);
  field(p, 48, 7, s.parts[kFanMotors], 1, c.log);
  field(p, 57, 7, s.parts[kLighting], 1, c.log);
  field(p, 68, 7, s.parts[kEquipment], 1, c.log);
  p.tab(78).text("ELECTRICITY");
  field(p, 90, 9, pm.totalKwh.back(), 0, c.log);
  p.tab(100).text("KWH   GAS");
  field(p, 110, 8, pm.gasUse.back(), 1, c.log);
  p.tab(119).text(u.si ? "GJ" : "THERMS").endLine();
  // Source energy per unit of gross floor area: kBtu/ft², or MJ/m².
  const double euf = u.si ? k.site.useFactor * 11.35653 : k.site.useFactor;
  p.text("    SOURCE FACTORS: ELECTRICITY 3.340, GAS 1.047").tab(60)
      .text(u.si ? "TOTAL SITE ENERGY (GJ) =" : "TOTAL SITE ENERGY (MBTU) =");
  field(p, 89, 7, s.total, 1, c.log);
  p.tab(96).text("  EUF = ");
  field(p, 104, 7, euf, 1, c.log);
  p.tab(111).text(u.si ? " MJ/SQ.M. (SOURCE)" : " KBTU/SQ.FT. (SOURCE)").endLine();
}

void monthlyTable(ColumnPrinter& p, const ReportContext& c, const PrintedMonths& pm, const CostResult& k,
                  const Units& u, int& page) {
  pageStart(p, page);
  projectHeader(p, c);
  p.endLine();
  p.line("    MONTHLY ENERGY USE AND COSTS  (SECTION III CONTINUED)");
  p.endLine();
  p.line("MON    SPACE     PEAK      PEAK COOLING     FANS  LIGHTS+    TOTAL   PEAK  WATER    GAS   WATER   DEMAND     ELEC    TOTAL       GAS");
  p.line("     HEATING  HEATING   COOLING   ELEC.            EQUIP.    ELEC. DEMAND    USE   COST    COST   CHARGE     COST     COST       USE");
  if (u.si)
    p.line("       (GJ)      (KW)      (KW)   (KWH)    (KWH)    (KWH)    (KWH)   (KW)   (M3)    ($)     ($)      ($)      ($)      ($)      (GJ)");
  else
    p.line("     (MBTU)  (KBTU/H)  (KBTU/H)   (KWH)    (KWH)    (KWH)    (KWH)   (KW) (KGAL)    ($)     ($)      ($)      ($)      ($)  (THERMS)");
  p.text("--- ").text(std::string(128, '-')).endLine();
  p.endLine();
  for (std::size_t i = 0; i < pm.months.size(); ++i) {
    p.text(kMonths[pm.months[i] - 1]);
    field(p, 4, 8, pm.heating[i], 1, c.log);
    field(p, 12, 9, pm.peakHeat[i], 1, c.log);
    field(p, 21, 10, pm.peakCool[i], 1, c.log);
    field(p, 31, 9, pm.coolKwh[i], 0, c.log);
    field(p, 40, 9, pm.fanKwh[i], 0, c.log);
    field(p, 49, 9, pm.lightsEquipKwh[i], 0, c.log);
    field(p, 58, 9, pm.totalKwh[i], 0, c.log);
    field(p, 67, 7, pm.peakKw[i], 1, c.log);
    field(p, 74, 6, pm.water[i], 1, c.log);
    field(p, 80, 8, pm.gasCost[i], 0, c.log);
    field(p, 88, 8, pm.waterCost[i], 0, c.log);
    field(p, 96, 9, pm.demandCharge[i], 0, c.log);
    field(p, 105, 9, pm.elecCost(i), 0, c.log);
    field(p, 114, 9, pm.totalCost(i), 0, c.log);
    field(p, 123, 10, pm.gasUse[i], 1, c.log);
    p.endLine();
  }
  const std::size_t t = pm.months.size();
  p.line(std::string(132, '='));
  p.text("TOT");
  field(p, 4, 8, pm.heating[t], 1, c.log);
  field(p, 12, 9, pm.peakHeat[t], 1, c.log);
  field(p, 21, 10, pm.peakCool[t], 1, c.log);
  field(p, 31, 9, pm.coolKwh[t], 0, c.log);
  field(p, 40, 9, pm.fanKwh[t], 0, c.log);
  field(p, 49, 9, pm.lightsEquipKwh[t], 0, c.log);
  field(p, 58, 9, pm.totalKwh[t], 0, c.log);
  field(p, 67, 7, pm.peakKw[t], 1, c.log);
  field(p, 74, 6, pm.water[t], 1, c.log);
  field(p, 123, 10, pm.gasUse[t], 1, c.log);
  p.endLine();
  p.text("ANNUAL COSTS ($)");
  field(p, 80, 8, pm.gasCost[t], 0, c.log);
  field(p, 88, 8, pm.waterCost[t], 0, c.log);
  field(p, 96, 9, pm.demandCharge[t], 0, c.log);
  field(p, 105, 9, pm.elecCost(t), 0, c.log);
  field(p, 114, 9, pm.totalCost(t), 0, c.log);
  p.endLine();
  p.text("    ON THE TOT LINE THE PEAK COLUMNS ARE ANNUAL MAXIMA.  ELEC COST = KWH x ").text(priceText(k.elecCost))
      .text(" $/KWH + DEMAND CHARGE.").endLine();
}

void hvacDesign(ColumnPrinter& p, const ReportContext& c, const EnergyResult& e, const Units& u, int& page) {
  const bool passive = c.control.runType == 4, abbreviated = c.control.runType == 2;
  sectionOpening(p, c, page, "IV.  H V A C   D E S I G N   D A T A");
  const std::string tu = u.si ? " C" : " F";
  p.text("    DESIGN CONDITIONS: SUMMER").text(numberField(toTemp(c.model.designTemps[1], u.si), 6, 1)).text(tu + " DB /")
      .text(numberField(toTemp(c.model.designTemps[2], u.si), 6, 1)).text(tu + " WB, WINTER")
      .text(numberField(toTemp(c.model.designTemps[3], u.si), 6, 1)).text(tu + " DB.  SIZING FACTORS 1.15 COOLING, 1.25 HEATING.")
      .endLine();
  if (passive) p.line("    PASSIVE RUN: NO HEATING, COOLING OR MECHANICAL VENTILATION.");
  p.endLine();
  const std::string rate = std::string("(") + u.rateName() + ")";
  p.tab(5).text("ZONE").tab(10).text("NAME").tab(31).text("SYSTEM").tab(49).text("SPACE");
  headEnding(p, 67, "HEATING"), headEnding(p, 76, "CLG SENS"), headEnding(p, 85, "COIL TOT"), headEnding(p, 94, "SUPPLY");
  headEnding(p, 102, "OUT AIR"), headEnding(p, 109, "FAN"), headEnding(p, 117, "CLG CAP"), headEnding(p, 126, "HTG CAP");
  headEnding(p, 132, "UNMET");
  p.endLine();
  p.tab(49).text("HEAT");
  headEnding(p, 67, rate), headEnding(p, 76, rate), headEnding(p, 85, rate);
  headEnding(p, 94, u.si ? "(L/S)" : "(CFM)"), headEnding(p, 102, u.si ? "(L/S)" : "(CFM)"), headEnding(p, 109, "(KW)");
  headEnding(p, 117, u.si ? "(KW)" : "(TONS)"), headEnding(p, 126, rate), headEnding(p, 132, "HOURS");
  p.endLine();
  const std::string rule = "    " + std::string(128, '-');
  p.line(rule);
  auto values = [&](const ZoneDesign& d) {
    field(p, 60, 8, u.rate(d.designHeating), 1, c.log);
    field(p, 69, 8, u.rate(d.designCoolingSensible), 1, c.log);
    field(p, 78, 8, u.rate(d.designCoolingTotal), 1, c.log);
    field(p, 87, 8, u.flow(d.supplyCfm), 0, c.log);
    field(p, 96, 7, u.flow(d.outsideAirCfm), 0, c.log);
    field(p, 104, 6, d.fanKw, 2, c.log);
    field(p, 111, 7, u.capacity(d.coolingCapacity), 2, c.log);
    field(p, 119, 8, u.rate(d.heatingCapacity), 1, c.log);
    field(p, 128, 5, d.unmetHours, 0, c.log);
    p.endLine();
  };
  ZoneDesign sum;
  for (std::size_t z = 0; z < e.zones.size() && z < c.model.zones.size(); ++z) {
    const ZoneDesign& src = e.zones[z];
    ZoneDesign d = passive ? ZoneDesign{} : src;
    sum.designHeating += d.designHeating, sum.designCoolingSensible += d.designCoolingSensible;
    sum.designCoolingTotal += d.designCoolingTotal, sum.supplyCfm += d.supplyCfm, sum.outsideAirCfm += d.outsideAirCfm;
    sum.fanKw += d.fanKw, sum.coolingCapacity += d.coolingCapacity, sum.heatingCapacity += d.heatingCapacity;
    sum.unmetHours += d.unmetHours;
    if (abbreviated) continue;
    const int ct = std::clamp(src.coolType, 1, 9), ht = std::clamp(src.heatType, 1, 3);
    p.tab(5).text(cut(c.model.zones[z].id, 4)).tab(10).text(cut(c.model.zones[z].name, 20)).tab(31)
        .text(passive ? "NONE (PASSIVE)" : kCoolingTexts[ct]).tab(49).text(passive ? "NONE" : src.heatPump ? "HEAT PUMP" : kHeatingTexts[ht]);
    values(d);
  }
  p.line(rule);
  p.text("    BUILDING");
  values(sum);
  p.endLine();
  const PlantDesign& pl = e.plant;
  if (pl.chilledWater && !passive) {
    p.text("    CHILLED WATER PLANT (TYPES 1-4): CAPACITY").text(numberField(u.capacity(pl.chillerCapacity), 9, 2, c.log))
        .text(u.si ? " KW" : " TONS").text(", COINCIDENT PEAK").text(numberField(u.rate(pl.coincidentPeak), 9, 1, c.log))
        .text(" ").text(u.rateName());
    if (pl.peakDay > 0) p.text(" ON ").text(longDate(c.calendar, pl.peakDay)).text(", ").text(hourSpan(pl.peakHour));
    p.endLine();
  } else {
    p.line("    CHILLED WATER PLANT (TYPES 1-4): NONE");
  }
  if (pl.boiler && !passive)
    p.text("    BOILER (TYPES 1-4, GAS): CAPACITY").text(numberField(u.rate(pl.boilerCapacity), 9, 1, c.log)).text(" ")
        .text(u.rateName()).endLine();
  else
    p.line("    BOILER (TYPES 1-4, GAS): NONE");
  p.text("    UNMET HOURS:").text(numberField(passive ? 0.0 : e.unmetHours, 7, 0, c.log))
      .text(" (EVAPORATIVE COOLING SHORT OF THE SET-POINT)").endLine();
}

void peakProfiles(ColumnPrinter& p, const ReportContext& c, const EnergyResult& e, const Units& u, int& page) {
  sectionOpening(p, c, page, "V.  P E A K   D E M A N D   P R O F I L E S");
  // Where each simulated day's hours start in the record.
  std::vector<int> dayStart(static_cast<std::size_t>(c.calendar.yearDays) + 2, -1);
  for (std::size_t i = 0; i < e.hours.size(); ++i) {
    const int d = e.hours[i].day;
    if (d >= 1 && d < static_cast<int>(dayStart.size()) && dayStart[d] < 0) dayStart[d] = static_cast<int>(i);
  }
  auto hourOf = [&](int day, int hour) -> const HourEnergy* {
    if (day < 1 || day >= static_cast<int>(dayStart.size()) || dayStart[day] < 0) return nullptr;
    for (std::size_t i = static_cast<std::size_t>(dayStart[day]); i < e.hours.size() && e.hours[i].day == day; ++i)
      if (e.hours[i].hour == hour && i < e.energy.size()) return &e.energy[i];
    return nullptr;
  };
  auto shown = [&](int m) { return m + 1 >= c.calendar.firstMonth && m + 1 <= c.calendar.lastMonth && e.months[m].peakDay > 0; };

  p.line("    ELECTRIC DEMAND (KW) ON THE PEAK DAY OF EACH MONTH");
  p.endLine();
  p.tab(5).text("HOUR");
  for (int m = 0; m < 12; ++m) headEnding(p, 17 + 8 * m, kMonths[m]);
  p.endLine();
  std::string rule = "    ----";
  for (int m = 0; m < 12; ++m) rule += " -------";
  p.line(rule);
  for (int h = 1; h <= 24; ++h) {
    p.text(rightIn(std::to_string(h), 8));
    for (int m = 0; m < 12; ++m) {
      if (!shown(m)) continue;
      const HourEnergy* he = hourOf(e.months[m].peakDay, h);
      field(p, 10 + 8 * m, 8, he ? he->totalElec() : 0.0, 1, c.log);
    }
    p.endLine();
  }
  p.line(rule);
  auto summary = [&](const char* label, auto value, int decimals) {
    p.text(label);
    for (int m = 0; m < 12; ++m)
      if (shown(m)) field(p, 10 + 8 * m, 8, value(e.months[m]), decimals, c.log);
    p.endLine();
  };
  summary("    PEAK KW", [](const MonthEnergy& me) { return me.peakKw; }, 1);
  summary("    PEAK DAY", [&](const MonthEnergy& me) { return static_cast<double>(c.calendar.at(me.peakDay).dayOfMonth); }, 0);
  summary("    PEAK HOUR", [](const MonthEnergy& me) { return static_cast<double>(me.peakHour); }, 0);
  if (c.control.runType == 2) return;

  int best = -1;
  for (int m = 0; m < 12; ++m)
    if (shown(m) && (best < 0 || e.months[m].peakKw > e.months[best].peakKw)) best = m;
  if (best < 0) return;
  const int day = e.months[best].peakDay;
  p.endLine();
  p.text("    BUILDING PEAK DAY ").text(longDate(c.calendar, day)).text(": DEMAND BY END USE (KW) AND GAS (")
      .text(u.si ? "KW" : "KBTU/H").text(")").endLine();
  p.tab(5).text("HOUR");
  const char* const heads[8] = {"LIGHTS", "EQUIP", "FANS", "COOLING", "HEAT EL", "DHW EL", "TOTAL", "GAS"};
  for (int k = 0; k < 8; ++k) headEnding(p, 18 + 9 * k, heads[k]);
  p.endLine();
  std::string dayRule = "    ----";
  for (int k = 0; k < 8; ++k) dayRule += " " + std::string(8, '-');
  p.line(dayRule);
  for (int h = 1; h <= 24; ++h) {
    const HourEnergy* he = hourOf(day, h);
    const HourEnergy v = he ? *he : HourEnergy{};
    const double cols[8] = {v.lights, v.equipment, v.fans, v.cooling, v.heatingElec, v.waterHeatElec, v.totalElec(),
                            u.rateKbtuh(v.gas())};
    p.text(rightIn(std::to_string(h), 8));
    for (int k = 0; k < 8; ++k) field(p, 10 + 9 * k, 9, cols[k], 2, c.log);
    p.endLine();
  }
  p.line(dayRule);
}

void zoneEnergy(ColumnPrinter& p, const ReportContext& c, const LoadsResult& loads, const EnergyResult& e,
                const Units& u, int& page) {
  const bool passive = c.control.runType == 4;
  sectionOpening(p, c, page, "VI.  Z O N E   L O A D S   A N D   E N E R G Y");
  const std::string rate = std::string("(") + u.rateName() + ")", energy = std::string("(") + u.energyName() + ")";
  p.tab(5).text("ZONE").tab(10).text("NAME");
  headEnding(p, 39, "FLOOR AREA"), headEnding(p, 48, "HEATING"), headEnding(p, 57, "COOLING"), headEnding(p, 66, "PEAK HTG");
  headEnding(p, 75, "PEAK CLG"), headEnding(p, 85, "LIGHTING"), headEnding(p, 95, "EQUIPMENT"), headEnding(p, 102, "DL SAV");
  headEnding(p, 111, "HTG/AREA"), headEnding(p, 120, "CLG/AREA"), headEnding(p, 126, "UNMET");
  p.endLine();
  headEnding(p, 39, u.si ? "(SQ.M.)" : "(SQ.FT.)"), headEnding(p, 48, energy), headEnding(p, 57, energy);
  headEnding(p, 66, rate), headEnding(p, 75, rate), headEnding(p, 85, "(KWH)"), headEnding(p, 95, "(KWH)");
  headEnding(p, 102, "(%)"), headEnding(p, 111, u.si ? "MJ/SQ.M." : "KBTU/SF"), headEnding(p, 120, u.si ? "MJ/SQ.M." : "KBTU/SF");
  headEnding(p, 126, "HOURS");
  p.endLine();
  const std::string rule = "    " + std::string(122, '-');
  p.line(rule);
  struct Row { double area = 0, heat = 0, cool = 0, peakHeat = 0, peakCool = 0, lights = 0, undimmed = 0, equip = 0, unmet = 0; };
  auto values = [&](const Row& r) {
    field(p, 31, 9, u.area(r.area), 1, c.log);
    field(p, 41, 8, u.energy(r.heat * 1e-6), 1, c.log);
    field(p, 50, 8, u.energy(r.cool * 1e-6), 1, c.log);
    field(p, 59, 8, u.rate(r.peakHeat), 1, c.log);
    field(p, 68, 8, u.rate(r.peakCool), 1, c.log);
    field(p, 77, 9, r.lights, 0, c.log);
    field(p, 87, 9, r.equip, 0, c.log);
    field(p, 97, 6, r.undimmed > 0 ? 100.0 * (r.undimmed - r.lights) / r.undimmed : 0.0, 1, c.log);
    field(p, 104, 8, u.perArea(r.area > 0 ? r.heat * 1e-3 / r.area : 0.0), 1, c.log);
    field(p, 113, 8, u.perArea(r.area > 0 ? r.cool * 1e-3 / r.area : 0.0), 1, c.log);
    field(p, 122, 5, r.unmet, 0, c.log);
    p.endLine();
  };
  Row sum;
  for (std::size_t z = 0; z < c.model.zones.size() && z < loads.zones.size(); ++z) {
    const ZoneLoads& zl = loads.zones[z];
    const ZoneDesign d = z < e.zones.size() ? e.zones[z] : ZoneDesign{};
    Row r;
    r.area = c.model.zones[z].floorArea;
    if (!passive) {
      r.heat = std::fabs(zl.heating), r.cool = std::max(0.0, zl.cooling);
      r.peakHeat = std::fabs(zl.peakHeating), r.peakCool = std::max(0.0, zl.peakCooling);
      r.unmet = d.unmetHours;
    }
    r.lights = d.lightsKwh, r.undimmed = d.lightsKwhUndimmed, r.equip = d.equipmentKwh;
    sum.area += r.area, sum.heat += r.heat, sum.cool += r.cool, sum.peakHeat += r.peakHeat, sum.peakCool += r.peakCool;
    sum.lights += r.lights, sum.undimmed += r.undimmed, sum.equip += r.equip, sum.unmet += r.unmet;
    if (c.control.runType == 2) continue;
    p.tab(5).text(cut(c.model.zones[z].id, 4)).tab(10).text(cut(c.model.zones[z].name, 20));
    values(r);
  }
  p.line(rule);
  p.text("    BUILDING");
  values(sum);
  p.line("    PEAKS OF THE BUILDING LINE ARE SUMS OF THE ZONE PEAKS (NON-COINCIDENT).");
}

void costAnalysis(ColumnPrinter& p, const ReportContext& c, const PrintedMonths& pm, const CostResult& k,
                  const Units& u, int& page) {
  sectionOpening(p, c, page, "VII.  C O S T   A N A L Y S I S");
  // (a) Utility bills, the same printed numbers as the monthly table.
  p.line("    MONTHLY UTILITY BILLS");
  headEnding(p, 18, "ELECTRIC"), headEnding(p, 27, "PEAK"), headEnding(p, 37, "ENERGY"), headEnding(p, 47, "DEMAND");
  headEnding(p, 57, "ELECTRIC"), headEnding(p, 67, "GAS USE"), headEnding(p, 77, "GAS"), headEnding(p, 86, "WATER");
  headEnding(p, 95, "WATER"), headEnding(p, 106, "TOTAL");
  p.endLine();
  p.tab(5).text("MON");
  headEnding(p, 18, "(KWH)"), headEnding(p, 27, "(KW)"), headEnding(p, 37, "($)"), headEnding(p, 47, "($)");
  headEnding(p, 57, "($)"), headEnding(p, 67, u.si ? "(GJ)" : "(THERMS)"), headEnding(p, 77, "($)");
  headEnding(p, 86, u.si ? "(M3)" : "(KGAL)"), headEnding(p, 95, "($)"), headEnding(p, 106, "($)");
  p.endLine();
  const std::string rule = "    " + std::string(103, '-');
  p.line(rule);
  auto bill = [&](std::size_t i) {
    field(p, 9, 10, pm.totalKwh[i], 0, c.log);
    field(p, 20, 8, pm.peakKw[i], 1, c.log);
    field(p, 29, 9, pm.energyCharge[i], 0, c.log);
    field(p, 39, 9, pm.demandCharge[i], 0, c.log);
    field(p, 49, 9, pm.elecCost(i), 0, c.log);
    field(p, 59, 9, pm.gasUse[i], 1, c.log);
    field(p, 69, 9, pm.gasCost[i], 0, c.log);
    field(p, 79, 8, pm.water[i], 1, c.log);
    field(p, 88, 8, pm.waterCost[i], 0, c.log);
    field(p, 97, 10, pm.totalCost(i), 0, c.log);
    p.endLine();
  };
  for (std::size_t i = 0; i < pm.months.size(); ++i) {
    p.tab(5).text(kMonths[pm.months[i] - 1]);
    bill(i);
  }
  p.line(rule);
  p.text("    TOTAL");
  bill(pm.months.size());
  p.endLine();

  // (b) The demand charge schedule as priced.
  p.line("    ELECTRIC DEMAND CHARGE");
  if (k.demand.empty()) {
    p.line("        NONE");
  } else {
    double upTo = 0;
    auto money = [](double v) { return "$" + plain(v, 2); };
    for (std::size_t i = 0; i < k.demand.size(); ++i) {
      p.text(i == 0 ? "        FIRST " : "        NEXT ").text(marloven::bare(k.demand[i].kw)).text(" KW AT ")
          .text(money(k.demand[i].rate)).text("/KW").endLine();
      upTo += k.demand[i].kw;
    }
    p.text("        ABOVE ").text(marloven::bare(upTo)).text(" KW AT ").text(money(k.demand.back().rate)).text("/KW").endLine();
  }
  p.endLine();

  // (c) First costs.
  p.line("    FIRST COSTS");
  const std::vector<double> first = roundParts({k.first.construction, k.first.opaqueInsulation, k.first.windows,
                                                k.first.lighting, k.first.hvac}, 0);
  const std::string hvac =
      "HVAC (" + plain(u.capacity(k.first.tons * 12000.0), 2) + (u.si ? " KW COOLING)" : " TONS)");
  const std::string firstLabels[6] = {"CONSTRUCTION", "OPAQUE INSULATION", "WINDOWS", "LIGHTING", hvac, "TOTAL"};
  for (int i = 0; i < 6; ++i) {
    p.tab(9).text(firstLabels[i]);
    field(p, 60, 12, first[i], 0, c.log);
    p.endLine();
  }
  p.endLine();

  // (d) Life-cycle cost.
  p.text("    LIFE-CYCLE COST OVER ").text(std::to_string(k.economicLife)).text(" YEARS, DISCOUNT RATE ")
      .text(plain(k.discountRate, 3)).endLine();
  headEnding(p, 56, "ANNUAL OR"), headEnding(p, 63, "ESCA-"), headEnding(p, 72, "PV"), headEnding(p, 85, "PRESENT");
  p.endLine();
  headEnding(p, 56, "FIRST COST ($)"), headEnding(p, 63, "LATION"), headEnding(p, 72, "FACTOR"), headEnding(p, 85, "VALUE ($)");
  p.endLine();
  const char* const lccLabels[kLccItems] = {"FIRST COSTS", "ELECTRICITY", "GAS", "WATER", "HVAC MAINTENANCE",
                                            "HVAC REPLACEMENT", "RESIDUAL VALUE"};
  std::vector<double> pv;
  for (const LccRow& r : k.lcc) pv.push_back(r.presentValue);
  const std::vector<double> pvR = roundParts(pv, 0);
  for (int i = 0; i < kLccItems; ++i) {
    const LccRow& r = k.lcc[i];
    p.tab(9).text(lccLabels[i]);
    field(p, 45, 12, r.amount, 0, c.log);
    if (i != kLccFirst) field(p, 58, 6, r.escalation, 3, c.log);
    field(p, 65, 8, r.factor, 3, c.log);
    field(p, 74, 12, pvR[i], 0, c.log);
    p.endLine();
  }
  p.tab(9).text("TOTAL LIFE-CYCLE COST");
  field(p, 74, 12, pvR.back(), 0, c.log);
  p.endLine();
  p.text(u.si ? "    PER SQ.M. OF FLOOR AREA" : "    PER SQ.FT. OF FLOOR AREA");
  field(p, 74, 12, u.si ? k.lifeCycleCostPerArea * 10.76391 : k.lifeCycleCostPerArea, 2, c.log);
  p.endLine();
  if (k.annualScale != 1.0)
    p.text("    ANNUAL COSTS SCALED FROM").text(numberField(k.periodDays, 7, 1)).text(" DAYS TO 365 DAYS.").endLine();
  if (k.replacements > 0)
    p.text("    HVAC REPLACED ").text(std::to_string(k.replacements)).text(" TIME(S); RESIDUAL VALUE STRAIGHT LINE AT YEAR ")
        .text(std::to_string(k.economicLife)).text(".").endLine();
  p.text("    SOLAR SYSTEM LIFE ").text(marloven::bare(k.solarLife)).text(" YEARS: NOT USED").endLine();
}

}  // namespace

std::string writeSimOut(const ReportContext& c, const LoadsResult& loads, const EnergyResult& energy,
                        const CostResult& costs, int& page) {
  const Units u{c.model.siReport};
  ColumnPrinter p;
  loadTable(p, c, loads, page);
  const PrintedMonths pm = printedMonths(c, loads, energy, costs, u);
  siteBlock(p, c, pm, costs, u);
  monthlyTable(p, c, pm, costs, u, page);
  hvacDesign(p, c, energy, u, page);
  peakProfiles(p, c, energy, u, page);
  zoneEnergy(p, c, loads, energy, u, page);
  costAnalysis(p, c, pm, costs, u, page);
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
  auto computeDayStats = [&](int d) {
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
  // Each day once: the monthly table and the daily blocks both read them.
  std::vector<DayStats> days;
  days.reserve(static_cast<std::size_t>(w.days));
  for (int d = 1; d <= w.days; ++d) days.push_back(computeDayStats(d));
  auto dayStats = [&](int d) -> const DayStats& { return days[static_cast<std::size_t>(d - 1)]; };

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
