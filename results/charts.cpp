#include "results/charts.h"

#include <algorithm>
#include <cmath>

#include "common/number_text.h"

namespace marloven {

const std::array<const char*, 12> kChartMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

namespace {

constexpr Rgb kRed{255, 0, 0};
constexpr Rgb kTraceBlue{0, 0, 192};
constexpr Rgb kTraceGreen{0, 64, 0};

struct LoadChart {
  const char* title;
  LoadColumn column;
  const char* unitIP;
  const char* unitSI;
  bool peak;  // a peak's total carries its time and date
};

LoadChart loadChart(Chart c) {
  switch (c) {
    case Chart::PeakHeating: return {"Peak Heating Loads", LoadColumn::PeakHeating, "kBtuh", " kW ", true};
    case Chart::PeakCooling: return {"Peak Cooling Loads", LoadColumn::PeakCooling, "kBtuh", " kW ", true};
    case Chart::AnnualHeating: return {"Annual Heating Loads", LoadColumn::AnnualHeating, "MBtu", "GJoules", false};
    default: return {"Annual Cooling Loads", LoadColumn::AnnualCooling, "MBtu", "GJoules", false};
  }
}

constexpr std::array<const char*, 9> kCategories = {"Roof",          "Walls",          "Window Trans.",
                                                    "Window Solar",  "Lights/ Equip.", "People Sens.",
                                                    "People Latent", "Infil./ Vent.",  "Mass Effect"};
constexpr std::array<const char*, 6> kEndUses = {"Space Heating", "Water Heating", "Space Cooling",
                                                 "Fan Motors",    "Lighting",      "Equipment"};

std::string numberText(double v) { return padded(static_cast<float>(v)); }

void start(const ChartSource& src, Chart c, const char* title, ChartModel& m, OutputUnits units) {
  m = ChartModel{};
  m.chart = c;
  m.screen = screenOf(c);
  m.units = units;
  m.title = title;
  m.caption = std::string(title) + " -- " + src.projectFile;
  m.outputName = src.outputName;
  // The project and location of the report's results pages.
  ChartTables header;
  if (readSiteEnergy(src.scratchDir, header).ok()) {
    m.projectName = header.site.projectCaption;
    m.location = header.site.locationCaption;
  }
  m.buttons.fill(true);
  m.buttons[0] = false;
}

ReadStatus buildLoads(const ChartSource& src, Chart c, ChartModel& m) {
  const LoadChart lc = loadChart(c);
  ChartTables t;
  ReadStatus st = readLoadBreakdown(src.scratchDir, lc.column, t);
  if (!st.ok()) return st;
  ChartModel out;
  start(src, c, lc.title, out, t.units);
  const LoadBreakdown& b = t.loads[static_cast<int>(lc.column)];
  std::array<double, 9> v{};
  double gains = 0, losses = 0;
  for (int i = 0; i < 9; ++i) {
    v[i] = leadingNumber(b.value[i + 1].substr(0, 8));
    gains = std::max(gains, v[i]);
    losses = std::min(losses, v[i]);
  }
  out.scale = fitAxis(static_cast<float>(std::max(gains, -losses)), true);
  const bool si = t.units == OutputUnits::SI;
  out.unit = si ? lc.unitSI : lc.unitIP;
  const std::string& total = b.value[kLoadTotal];
  if (lc.peak) {
    const bool heating = c == Chart::PeakHeating;
    out.total = "Total " + std::string(lc.title) + " = " + total + " " + (si ? "kW" : "kBtuh") + " @ " +
                (heating ? t.peakHeatingTime : t.peakCoolingTime) + " on" +
                (heating ? t.peakHeatingDate : t.peakCoolingDate);
  } else {
    out.total = "Total " + std::string(lc.title) + " = " + total + " " + (si ? "GJoules" : "MBtu") + ".";
  }
  for (int i = 1; i <= 2; ++i) {
    out.axisUp.push_back(numberText(static_cast<double>(i) * out.scale / 2.0));
    out.axisDown.push_back(numberText(static_cast<double>(i) * (-out.scale / 2.0)));
  }
  for (int i = 1; i <= 9; ++i) {
    // The palette's light grey would vanish on the background: the seventh is red.
    const Rgb colour = paletteColour(i == 7 ? 12 : i);
    out.names.push_back({kCategories[i - 1], colour});
    out.values.push_back({numberText(v[i - 1]), colour});
    const double h = v[i - 1] * (kPeakHalfHeight / out.scale);
    const double x = kPeakFirstX + (i - 1) * kPeakStep;
    out.bars.push_back({x, std::min(kPeakBaseY, kPeakBaseY - h), x + kPeakBarWidth, std::max(kPeakBaseY, kPeakBaseY - h),
                        colour, v[i - 1]});
  }
  out.buttons[static_cast<int>(c)] = false;
  m = std::move(out);
  return st;
}

// Segments from x at entry k to x + step at entry k + 1, for k = 1 .. L - 1,
// x starting at the first month's place: a run that starts after January
// draws entries that were never read in this pass, as the program always has.
void traces(ChartModel& m, int first, int last, const std::vector<std::array<double, 14>>& values,
            const std::vector<Rgb>& colours, double s) {
  double x = kMonthlyFirstX + kMonthlyStep * first;
  for (int k = 1; k <= last - 1; ++k) {
    for (std::size_t t = 0; t < values.size(); ++t)
      m.segments.push_back({x, kMonthlyBaseY - values[t][k] * s, x + kMonthlyStep, kMonthlyBaseY - values[t][k + 1] * s,
                            colours[t], static_cast<int>(t), k});
    x += kMonthlyStep;
  }
}

ReadStatus buildMonthlyEnergy(const ChartSource& src, ChartModel& m) {
  ChartTables t;
  ReadStatus st = readMonthlyEnergy(src.scratchDir, t);
  if (!st.ok()) return st;
  ChartModel out;
  start(src, Chart::MonthlyEnergy, "Monthly Heating and Cooling Energy", out, t.units);
  const bool si = t.units == OutputUnits::SI;
  const MonthlyEnergy& e = t.energy;
  std::array<double, 14> heat{}, cool{};
  double x = 0;
  for (int k = e.firstMonth + 1; k <= e.lastMonth; ++k) {
    heat[k] = leadingNumber(e.heating[k]);
    // Cooling electricity as the heat it moved, in the heating's unit.
    const double kwh = leadingNumber(e.cooling[k]);
    cool[k] = static_cast<float>(si ? kwh * 3.6 / 1e3 : kwh * 3413 / 1e6);
    x = std::max({x, heat[k], cool[k]});
  }
  if (x <= 0) x = 1;
  out.scale = fitAxis(static_cast<float>(x), false);
  const double s = kMonthlyHeight / out.scale, tick = out.scale / 4.0;
  const double tc = leadingNumber(e.coolingTotal);
  const double coolTotal = std::floor(tc * 10 * (si ? 3.6 / 1e3 : 3413 / 1e6) + 0.5) / 10;
  out.unit = si ? "GJoules" : "MBtu";
  out.legend = {"Heating Energy", "Cooling Energy"};
  out.totalNames = {"Total Heating Energy", "Total Cooling Energy"};
  out.total = e.heatingTotal + "  " + out.unit;
  out.total2 = numberText(coolTotal) + "  " + out.unit;
  out.total3.clear();
  out.thirdTrace = false;
  for (int i = 1; i <= 4; ++i) out.axisUp.push_back(numberText(i * tick));
  out.buttons[static_cast<int>(Chart::MonthlyEnergy)] = false;
  traces(out, e.firstMonth, e.lastMonth, {heat, cool}, {kRed, kTraceBlue}, s);
  m = std::move(out);
  return st;
}

ReadStatus buildMonthlyCosts(const ChartSource& src, ChartModel& m) {
  ChartTables t;
  ReadStatus st = readMonthlyCosts(src.scratchDir, t);
  if (!st.ok()) return st;
  ChartModel out;
  start(src, Chart::MonthlyCosts, "Monthly Utility Costs", out, t.units);
  const MonthlyCosts& c = t.costs;
  std::array<double, 14> gas{}, elec{}, total{};
  double x = 0;
  for (int k = 1; k <= 13; ++k) {
    gas[k] = leadingNumber(c.gas[k]);
    elec[k] = leadingNumber(c.electricity[k]);
    total[k] = leadingNumber(c.total[k]);
  }
  for (int k = c.firstMonth + 1; k <= c.lastMonth; ++k) x = std::max(x, total[k]);
  if (x <= 0) x = 1;
  out.scale = fitAxis(static_cast<float>(x), false);
  const double s = kMonthlyHeight / out.scale, tick = out.scale / 4.0;
  const int totals = c.lastMonth + 1;
  out.total = " $ " + c.gas[totals];
  out.total2 = " $ " + c.electricity[totals];
  out.total3 = "Total Costs = $ " + c.total[totals];
  out.thirdTrace = true;
  out.unit.clear();
  for (int i = 1; i <= 4; ++i) out.axisUp.push_back("$" + numberText(i * tick));
  out.legend = {"Gas Cost", "Elec. Cost"};
  out.totalNames = {"Total Gas Costs", "Total Elec. Costs"};
  out.buttons[static_cast<int>(Chart::MonthlyCosts)] = false;
  // Entries past the last month are zero, not the totals: a trace ends at its last month.
  for (auto* a : {&gas, &elec, &total})
    for (int k = totals; k <= 13; ++k) (*a)[k] = 0;
  traces(out, c.firstMonth, c.lastMonth, {gas, elec, total}, {kRed, kTraceBlue, kTraceGreen}, s);
  m = std::move(out);
  return st;
}

ReadStatus buildSource(const ChartSource& src, ChartModel& m) {
  ChartTables t;
  ReadStatus st = readSiteEnergy(src.scratchDir, t);
  if (!st.ok()) return st;
  ChartModel out;
  start(src, Chart::SourceEnergy, "Breakdown of Annual Energy", out, t.units);
  const bool si = t.units == OutputUnits::SI;
  std::array<double, 7> e{};
  double x = 0;
  bool mwh = false;
  for (int i = 1; i <= 6; ++i) {
    e[i] = leadingNumber(t.site.endUse[i]);
    x = std::max(x, e[i]);
    const Rgb colour = paletteColour(i);
    out.names.push_back({kEndUses[i - 1], colour});
    out.values.push_back({t.site.endUse[i], colour});
    if (i <= 2) continue;
    double shown = 0;
    if (si) {
      // kWh until a use passes a thousand; from there on MWh, so earlier uses
      // stay in kWh under the word MWh, as the program always showed them.
      const double v = e[i] * 277.7778;
      if (v > 1e3 || mwh) {
        mwh = true;
        shown = std::floor(v / 1e3);
      } else {
        shown = std::floor(v);
      }
    } else {
      shown = std::floor(1e6 * e[i] / 3413);
    }
    out.electric.push_back({"(" + numberText(shown) + " )", colour});
  }
  out.electricUnit = mwh ? "MWh" : "kWh";
  out.scale = fitAxis(static_cast<float>(x), false);
  const double s = kSourceHeight / out.scale, tick = out.scale / 4.0;
  for (int i = 1; i <= 4; ++i) out.axisUp.push_back(numberText(i * tick));
  out.unit = si ? "GJoules" : "MBtu";
  out.factor = numberText(leadingNumber(t.site.sourceFactor)) + (si ? " MJ/sq.m." : " kBtu/sq.ft.");
  for (int i = 1; i <= 6; ++i) {
    const double xl = kSourceFirstX + (i - 1) * kSourceStep;
    out.bars.push_back({xl, kSourceBaseY - e[i] * s, xl + kSourceBarWidth, kSourceBaseY, paletteColour(i), e[i]});
  }
  out.buttons[static_cast<int>(Chart::SourceEnergy)] = false;
  m = std::move(out);
  return st;
}

}  // namespace

ChartScreen screenOf(Chart c) {
  switch (c) {
    case Chart::MonthlyEnergy:
    case Chart::MonthlyCosts: return ChartScreen::Monthly;
    case Chart::SourceEnergy: return ChartScreen::Source;
    default: return ChartScreen::Peak;
  }
}

Rgb paletteColour(int index) {
  static constexpr std::array<Rgb, 16> kPalette = {{{0, 0, 0},
                                                    {0, 0, 128},
                                                    {0, 128, 0},
                                                    {0, 128, 128},
                                                    {128, 0, 0},
                                                    {128, 0, 128},
                                                    {128, 128, 0},
                                                    {192, 192, 192},
                                                    {128, 128, 128},
                                                    {0, 0, 255},
                                                    {0, 255, 0},
                                                    {0, 255, 255},
                                                    {255, 0, 0},
                                                    {255, 0, 255},
                                                    {255, 255, 0},
                                                    {255, 255, 255}}};
  return kPalette.at(static_cast<std::size_t>(index));
}

float fitAxis(float x, bool peakGuards) {
  const std::string t = padded(x);
  const std::size_t dot = t.find('.');
  int n = 0;
  for (std::size_t i = 0; i < std::min(dot, t.size()); ++i) n += t[i] != ' ';
  const std::size_t first = t.find_first_not_of(' ');
  int d = first == std::string::npos || t[first] == '.' ? 0 : t[first] - '0';
  if (peakGuards && d == 0) d = 1;
  const double p = std::pow(10.0, n - 1);
  float scale = static_cast<double>(x) == std::floor(x / p) ? x : static_cast<float>((d + 1) * p);
  if (peakGuards && scale <= 0.1f) scale = 0.1f;
  return scale;
}

ChartLeave chartMainMenu(bool runMade, bool outputSaved, Prompt& prompt) {
  if (!runMade || outputSaved) return ChartLeave::Close;
  switch (prompt.ask(Buttons::YesNoCancel, Icon::Question, "Save Output",
                     "The simulation results have not been saved.  Do you want to save them?")) {
    case Answer::Yes: return ChartLeave::SaveOutput;
    case Answer::No: return ChartLeave::Close;
    default: return ChartLeave::Stay;
  }
}

std::string chartValueAt(const ChartModel& m, double x, double y) {
  auto trim = [](std::string s) {
    const std::size_t a = s.find_first_not_of(' ');
    return a == std::string::npos ? std::string() : s.substr(a, s.find_last_not_of(' ') - a + 1);
  };
  const std::string unit = trim(m.unit);
  if (m.screen != ChartScreen::Monthly) {
    for (std::size_t i = 0; i < m.bars.size(); ++i) {
      const ChartBar& b = m.bars[i];
      // The whole column counts, so a bar of nothing can be pointed at too.
      const double top = m.screen == ChartScreen::Peak ? kPeakBaseY - kPeakHalfHeight : kSourceBaseY - kSourceHeight;
      const double bottom = m.screen == ChartScreen::Peak ? kPeakBaseY + kPeakHalfHeight : kSourceBaseY;
      if (x >= b.left && x <= b.right && y >= top && y <= bottom)
        return m.names[i].text + ": " + trim(m.values[i].text) + " " + unit;
    }
    return {};
  }
  // A month: the value of every trace at its place.
  const double place = std::round((x - kMonthlyFirstX) / kMonthlyStep);
  const double px = kMonthlyFirstX + place * kMonthlyStep;
  if (place < 0 || place > 11 || y < kMonthlyBaseY - kMonthlyHeight - 300 || y > kMonthlyBaseY + 300) return {};
  const bool costs = m.chart == Chart::MonthlyCosts;
  static constexpr std::array<const char*, 3> kEnergy = {"heating", "cooling", ""};
  static constexpr std::array<const char*, 3> kCosts = {"gas", "electricity", "total"};
  std::array<bool, 3> seen{};
  std::string out;
  for (const ChartSegment& t : m.segments) {
    const std::size_t trace = static_cast<std::size_t>(t.trace);
    if (trace > 2 || seen[trace] || (t.x1 != px && t.x2 != px)) continue;
    seen[trace] = true;
    const double v = (kMonthlyBaseY - (t.x1 == px ? t.y1 : t.y2)) * m.scale / kMonthlyHeight;
    const std::string number = trim(padded(static_cast<float>(std::round(v * 10) / 10)));
    out += std::string("  ") + (costs ? kCosts[trace] : kEnergy[trace]) + " " +
           (costs ? "$" + number : number + " " + unit);
  }
  if (out.empty()) return {};
  return kChartMonths[static_cast<std::size_t>(place)] + out;
}

ReadStatus buildChart(const ChartSource& source, Chart c, ChartModel& model) {
  switch (c) {
    case Chart::MonthlyEnergy: return buildMonthlyEnergy(source, model);
    case Chart::MonthlyCosts: return buildMonthlyCosts(source, model);
    case Chart::SourceEnergy: return buildSource(source, model);
    default: return buildLoads(source, c, model);
  }
}

}  // namespace marloven
