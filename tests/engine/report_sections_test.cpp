// Sections III to VII of sim$.out and the hourly files, written from a
// hand-built two-zone result and read back by the results readers' columns.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "common/number_text.h"
#include "common/text_lines.h"
#include "engine/calendar.h"
#include "engine/economics.h"
#include "engine/energy.h"
#include "engine/hourly_files.h"
#include "engine/loads.h"
#include "engine/model.h"
#include "engine/report.h"
#include "engine/run_log.h"

using namespace tarn;

namespace {

double cut(const std::string& line, std::size_t col, std::size_t width) {
  return marloven::leadingNumber(marloven::midText(line, col, width));
}

bool startsWith(const std::string& line, const std::string& s) { return line.rfind(s, 0) == 0; }

// Index of the only line starting with `anchor`; fails the test when there is
// not exactly one.
std::size_t anchorLine(const std::vector<std::string>& lines, const std::string& anchor) {
  std::size_t at = lines.size(), count = 0;
  for (std::size_t i = 0; i < lines.size(); ++i)
    if (startsWith(lines[i], anchor)) at = i, ++count;
  EXPECT_EQ(count, 1u) << anchor;
  return at;
}

// A two-zone office, a whole year simulated on the 15th of every month.
struct TwoZoneRun {
  SimModel model;
  RunControl control;
  Calendar calendar;
  WeatherYear weather;
  LoadsResult loads;
  EnergyResult energy;
  EconomicsInputs prices;
  CostResult costs;
  RunLog log;

  explicit TwoZoneRun(int runType = 3, bool si = false) {
    model.year = 2026;
    model.siReport = si;
    model.projectName = "Test Office";
    model.location = "Denver, Colorado";
    model.designTemps = {0, 93.2, 60.1, 1.6};
    ZoneModel a, b;
    a.id = "11", a.name = "Open office", a.floorArea = 1200;
    b.id = "12", b.name = "Conference", b.floorArea = 800;
    model.zones = {a, b};
    control.runType = runType;
    control.firstWeekday = 5;  // 1 Jan 2026 is a Thursday
    calendar = buildCalendar(model.year, control, 5, 0, 4, log);
    weather.year = model.year;
    weather.days = 365;
    weather.hours.assign(365 * 24, WeatherHour{50.0, 30.0, 40.0, 100.0, 20.0, 8.0, 24.5, 0.0});
    weather.site.latitude = 39.8;
    weather.site.longitude = 104.9;

    loads.zones.resize(2);
    loads.zones[0].heating = -40e6, loads.zones[0].cooling = 25e6;
    loads.zones[0].peakHeating = -30000, loads.zones[0].peakCooling = 20000;
    loads.zones[1].heating = -15e6, loads.zones[1].cooling = 18e6;
    loads.zones[1].peakHeating = -22700, loads.zones[1].peakCooling = 14500;
    for (int m = 0; m < 12; ++m) {
      loads.monthPeakHeating[m] = -(52700.0 - 4000.0 * std::min(m, 11 - m));
      loads.monthPeakCooling[m] = 4100.0 + 5000.0 * std::min(m, 11 - m);
      loads.monthHeating[m].rows[kWalls] = -1e6 * (6 - std::min(m, 11 - m));
      loads.monthHeating[m].total = loads.monthHeating[m].rows[kWalls];
    }
    loads.peakHeating = {true, {}, 12, 8};
    loads.peakHeating.load.rows[kWalls] = -52700, loads.peakHeating.load.total = -52700;
    loads.peakCooling = {true, {}, 203, 16};
    loads.peakCooling.load.rows[kWindowSolar] = 34500, loads.peakCooling.load.total = 34500;

    for (int m = 1; m <= 12; ++m) {
      const int day = firstDayOfMonth(m, 2026) + 14;
      for (int h = 1; h <= 24; ++h) {
        SimulatedHour sh;
        sh.day = day, sh.month = m, sh.dayOfMonth = 15, sh.hour = h;
        sh.weekday = calendar.at(day).weekday, sh.occupied = h > 8 && h < 18;
        sh.weight = daysInMonth(m, 2026);
        HourEnergy e;
        e.lights = sh.occupied ? 2.0 : 0.2;
        e.equipment = 1.0;
        e.fans = sh.occupied ? 0.5 : 0.0;
        e.cooling = h == 15 ? 0.25 * m : 0.0;
        e.spaceGas = 10.0;
        e.water = 20;
        energy.hours.push_back(sh);
        energy.energy.push_back(e);
        for (int z = 0; z < 2; ++z) {
          ZoneHourRecord r;
          r.airTemp = static_cast<float>(70 + z);
          r.humidityRatio = 0.008f;
          loads.zoneHours.push_back(r);
        }
        loads.hours.push_back(sh);
      }
      MonthEnergy& me = energy.months[m - 1];
      me.lightsKwh = 700.3 + m, me.equipmentKwh = 100.25, me.fansKwh = 130.4;
      me.coolingKwh = 10.0 * m * m + 0.3, me.heatingElecKwh = 50.15;
      me.spaceGasKbtu = 15000.0 - 1000.0 * m, me.waterGasKbtu = 400.0;
      me.waterGallons = 500.0 + 7.5 * m;
      me.peakKw = 4.0 + 0.25 * m, me.peakDay = day, me.peakHour = 15;
    }
    ZoneDesign za, zb;
    za.coolType = 5, za.heatType = 1, za.designHeating = 30000, za.designCoolingSensible = 20000;
    za.designCoolingTotal = 26000, za.supplyCfm = 900, za.outsideAirCfm = 150, za.fanKw = 0.75;
    za.coolingCapacity = 30000, za.heatingCapacity = 37500, za.lightsKwh = 5000, za.lightsKwhUndimmed = 6250;
    za.equipmentKwh = 1200;
    zb = za;
    zb.coolType = 7, zb.heatType = 2, zb.heatPump = true, zb.coolingCapacity = 18000, zb.unmetHours = 3;
    zb.lightsKwh = 3000, zb.lightsKwhUndimmed = 3000, zb.equipmentKwh = 800;
    energy.zones = {za, zb};

    prices.economicLife = 25, prices.mechanicalLife = 15, prices.discountRate = 0.07;
    prices.elecCost = 0.08, prices.gasCost = 0.9, prices.waterCost = 3.0;
    prices.demand = {{10, 5.0}, {10, 4.0}};
    prices.grossFloorArea = 2000, prices.zoneFloorArea = 2000;
    prices.constructionCost = 200000, prices.opaqueInsulationCost = 4000.4, prices.windowInsulationCost = 2500.3;
    prices.lightingCost = 3000.3;
    prices.zones = {{1500, 40}, {1200, 35}};
    costs = computeCosts(prices, energy, runType == 4);
  }

  ReportContext context() { return ReportContext{model, control, calendar, weather, "22 Nov 2026, 14:05", 1, &log}; }
  std::string simOut() {
    int page = 9;
    return writeSimOut(context(), loads, energy, costs, page);
  }
  std::vector<std::string> lines() { return marloven::splitLines(simOut()); }
};

double monthHeating(const MonthEnergy& m) { return m.spaceGasKbtu / 1000.0 + m.heatingElecKwh * 3412e-6; }

}  // namespace

TEST(ReportSections, MonthlyTableReadsBackByTheReadersColumns) {
  TwoZoneRun run;
  const auto lines = run.lines();
  const std::size_t mon = anchorLine(lines, "MON");
  ASSERT_LT(mon + 5 + 12, lines.size());
  EXPECT_EQ(lines[mon + 5].substr(0, 3), "JAN");
  double heat = 0, cool = 0, gas = 0, elec = 0, total = 0;
  for (int m = 0; m < 12; ++m) {
    const std::string& l = lines[mon + 5 + m];
    const MonthEnergy& me = run.energy.months[m];
    const MonthBill& b = run.costs.months[m];
    // Largest-remainder rounding moves a part by at most one unit of its last decimal.
    EXPECT_NEAR(cut(l, 4, 8), monthHeating(me), 0.1 + 1e-9) << l;
    EXPECT_NEAR(cut(l, 31, 9), me.coolingKwh, 1.0) << l;
    EXPECT_NEAR(cut(l, 80, 8), (me.spaceGasKbtu + me.waterGasKbtu) / 100.0 * 0.9, 1.0) << l;
    EXPECT_NEAR(cut(l, 105, 9), me.totalKwh() * 0.08 + me.peakKw * 5.0, 2.0) << l;
    EXPECT_NEAR(cut(l, 114, 9), b.total(), 3.0) << l;
    // A row's costs add up from its printed parts.
    EXPECT_DOUBLE_EQ(cut(l, 114, 9), cut(l, 80, 8) + cut(l, 88, 8) + cut(l, 105, 9)) << l;
    EXPECT_NEAR(cut(l, 67, 7), me.peakKw, 0.05 + 1e-9);
    EXPECT_NEAR(cut(l, 12, 9), std::fabs(run.loads.monthPeakHeating[m]) / 1000.0, 0.05 + 1e-9);
    heat += cut(l, 4, 8), cool += cut(l, 31, 9), gas += cut(l, 80, 8), elec += cut(l, 105, 9), total += cut(l, 114, 9);
  }
  ASSERT_EQ(lines[mon + 17], std::string(132, '='));
  const std::string& tot = lines[mon + 18];
  const std::string& costs = lines[mon + 19];
  EXPECT_TRUE(startsWith(tot, "TOT"));
  EXPECT_TRUE(startsWith(costs, "ANNUAL COSTS ($)"));
  // Printed parts add up to the printed totals.
  EXPECT_NEAR(cut(tot, 4, 8), heat, 1e-9);
  EXPECT_NEAR(cut(tot, 31, 9), cool, 1e-9);
  EXPECT_NEAR(cut(costs, 80, 8), gas, 1e-9);
  EXPECT_NEAR(cut(costs, 105, 9), elec, 1e-9);
  EXPECT_NEAR(cut(costs, 114, 9), total, 1e-9);
  double exactHeat = 0, exactCool = 0;
  for (const MonthEnergy& me : run.energy.months) exactHeat += monthHeating(me), exactCool += me.coolingKwh;
  EXPECT_NEAR(cut(tot, 4, 8), exactHeat, 0.05 + 1e-9);
  EXPECT_NEAR(cut(tot, 31, 9), exactCool, 0.5);
  EXPECT_NEAR(cut(tot, 12, 9), 52.7, 1e-9);  // the peak columns hold the year's maxima
  EXPECT_NEAR(cut(tot, 67, 7), 7.0, 1e-9);
  EXPECT_EQ(cut(tot, 80, 8), 0.0);  // no costs on the energy line
  EXPECT_EQ(marloven::midText(costs, 17, 63), std::string(63, ' '));
  EXPECT_NE(lines[mon + 20].find("ELEC COST = KWH x .080 $/KWH + DEMAND CHARGE."), std::string::npos);
}

TEST(ReportSections, SiteLineAgreesWithTheMonthlyTable) {
  TwoZoneRun run;
  const auto lines = run.lines();
  const std::size_t site = anchorLine(lines, "Site");
  const std::size_t mon = anchorLine(lines, "MON");
  ASSERT_LT(anchorLine(lines, "III."), site);  // the source reader searches from III.
  const std::string& l = lines[site];
  const std::string& next = lines[site + 1];
  EXPECT_TRUE(startsWith(l, "Site (MBTU)"));
  const double parts[6] = {cut(l, 18, 7), cut(l, 27, 8), cut(l, 38, 7), cut(l, 48, 7), cut(l, 57, 7), cut(l, 68, 7)};
  const std::string& tot = lines[mon + 18];
  EXPECT_DOUBLE_EQ(parts[kSpaceHeating], cut(tot, 4, 8));
  EXPECT_DOUBLE_EQ(parts[kSpaceCooling], std::round(cut(tot, 31, 9) * 3412e-6 * 10.0) / 10.0);
  double sum = 0;
  for (int u = 0; u < kEndUses; ++u) {
    EXPECT_NEAR(parts[u], run.costs.site.mbtu[u], 0.1 + 1e-9) << u;
    sum += parts[u];
  }
  EXPECT_NEAR(cut(next, 89, 7), sum, 1e-9);
  // Source use factor by hand: electricity at 3.412 kBtu/kWh x 3.340, gas x 1.047.
  double kwh = 0, gasKbtu = 0;
  for (const MonthEnergy& me : run.energy.months) kwh += me.totalKwh(), gasKbtu += me.spaceGasKbtu + me.waterGasKbtu;
  EXPECT_NEAR(cut(next, 104, 7), (kwh * 3.412 * 3.340 + gasKbtu * 1.047) / 2000.0, 0.05 + 1e-9);
  EXPECT_NEAR(cut(l, 90, 9), kwh, 0.5);
  EXPECT_NEAR(cut(l, 110, 8), gasKbtu / 100.0, 0.05 + 1e-9);
  EXPECT_EQ(l.substr(77, 11), "ELECTRICITY");
  EXPECT_NE(next.find("KBTU/SQ.FT. (SOURCE)"), std::string::npos);
}

TEST(ReportSections, AnchorsUniqueAndLinesWithinTheReport) {
  for (int runType : {2, 3, 4}) {
    TwoZoneRun run(runType);
    int page = 9;
    const std::string text = writeSimOut(run.context(), run.loads, run.energy, run.costs, page) +
                             writeWeatherSummary(run.context(), page);
    const auto lines = marloven::splitLines(text);
    for (const char* a : {"III.", "ROOF", "MON", "Site", "IV. ", "V. ", "VII.", "VIII", "IX."}) anchorLine(lines, a);
    EXPECT_LT(anchorLine(lines, "IV. "), anchorLine(lines, "V. "));
    EXPECT_LT(anchorLine(lines, "V. "), anchorLine(lines, "VII."));
    for (const std::string& l : lines) {
      EXPECT_LE(l.size(), 132u) << l;
      EXPECT_NE(marloven::midText(l, 4, 7), "WEATHER") << l;
    }
    // Every line ends in CR LF.
    std::size_t crlf = 0, lf = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
      if (text[i] == '\n') ++lf, crlf += i > 0 && text[i - 1] == '\r';
    EXPECT_EQ(crlf, lf);
    EXPECT_EQ(run.log.warnings(), 0) << run.log.lines().front();
  }
}

TEST(ReportSections, DesignProfilesZonesAndCosts) {
  TwoZoneRun run;
  const auto lines = run.lines();
  const std::size_t iv = anchorLine(lines, "IV. ");
  std::size_t zone = 0, building = 0;
  for (std::size_t i = iv; i < lines.size() && !building; ++i) {
    if (startsWith(lines[i], "    11  ")) zone = i;
    if (startsWith(lines[i], "    BUILDING")) building = i;
  }
  ASSERT_GT(zone, 0u);
  EXPECT_EQ(marloven::midText(lines[zone], 31, 17).substr(0, 17), "ROOF TOP SGL.ZONE");
  EXPECT_EQ(cut(lines[zone], 60, 8), 30.0);
  EXPECT_EQ(cut(lines[zone], 111, 7), 2.5);  // 30000 Btu/h in tons
  EXPECT_EQ(cut(lines[zone], 104, 6), 0.75);
  EXPECT_NE(lines[zone + 1].find("HEAT PUMP"), std::string::npos);
  EXPECT_EQ(cut(lines[building], 111, 7), 4.0);
  EXPECT_EQ(cut(lines[building], 128, 5), 3.0);

  // V: July's peak-day profile holds the hour of cooling.
  const std::size_t v = anchorLine(lines, "V. ");
  std::size_t hour15 = 0, peakKw = 0;
  for (std::size_t i = v; i < lines.size(); ++i) {
    if (!hour15 && startsWith(lines[i], "      15 ")) hour15 = i;
    if (startsWith(lines[i], "    PEAK KW")) peakKw = i;
    if (peakKw) break;
  }
  ASSERT_GT(hour15, 0u);
  EXPECT_NEAR(cut(lines[hour15], 10 + 8 * 6, 8), 2.0 + 1.0 + 0.5 + 0.25 * 7, 0.05 + 1e-9);
  EXPECT_NEAR(cut(lines[peakKw], 10 + 8 * 6, 8), 5.75, 0.05 + 1e-9);
  EXPECT_NEAR(cut(lines[peakKw + 1], 13, 5), 15.0, 1e-9);  // the label narrows the first field
  EXPECT_NE(std::string(run.simOut()).find("BUILDING PEAK DAY Tue Dec 15, 2026"), std::string::npos);

  // VI: daylight saving and loads per area of zone 11.
  const std::size_t vii = anchorLine(lines, "VII.");
  std::size_t z11 = 0;
  for (std::size_t i = v; i < vii; ++i)
    if (startsWith(lines[i], "    11  ")) z11 = i;
  ASSERT_GT(z11, 0u);
  EXPECT_EQ(cut(lines[z11], 41, 8), 40.0);
  EXPECT_EQ(cut(lines[z11], 97, 6), 20.0);
  EXPECT_NEAR(cut(lines[z11], 104, 8), 40e3 / 1200.0, 0.05);

  // VII: bills add up, the demand blocks, first costs, life-cycle total.
  std::size_t totalBill = 0, first = 0, above = 0, lcc = 0;
  for (std::size_t i = vii; i < lines.size(); ++i) {
    if (!totalBill && startsWith(lines[i], "    TOTAL")) totalBill = i;
    if (lines[i].find("ABOVE 20 KW AT $4.00/KW") != std::string::npos) above = i;
    if (startsWith(lines[i], "        CONSTRUCTION")) first = i;
    if (startsWith(lines[i], "        TOTAL LIFE-CYCLE COST")) lcc = i;
  }
  ASSERT_TRUE(totalBill && first && above && lcc);
  EXPECT_NE(lines[above - 2].find("FIRST 10 KW AT $5.00/KW"), std::string::npos);
  EXPECT_DOUBLE_EQ(cut(lines[totalBill], 97, 10),
                   cut(lines[totalBill], 49, 9) + cut(lines[totalBill], 69, 9) + cut(lines[totalBill], 88, 8));
  const std::size_t mon = anchorLine(lines, "MON");
  EXPECT_DOUBLE_EQ(cut(lines[totalBill], 97, 10), cut(lines[mon + 19], 114, 9));  // same bills in III and VII
  double firstSum = 0;
  for (int i = 0; i < 5; ++i) firstSum += cut(lines[first + i], 60, 12);
  EXPECT_DOUBLE_EQ(cut(lines[first + 5], 60, 12), firstSum);
  EXPECT_NEAR(cut(lines[first + 5], 60, 12), 200000 + 4000.4 + 2500.3 + 3000.3 + 2.5 * 1500 + 1.5 * 1200, 0.5);
  double pv = 0;
  for (int i = 1; i <= kLccItems; ++i) pv += cut(lines[lcc - i], 74, 12);
  EXPECT_DOUBLE_EQ(cut(lines[lcc], 74, 12), pv);
  EXPECT_NEAR(cut(lines[lcc], 74, 12), run.costs.lifeCycleCost, 0.5);
}

TEST(ReportSections, AbbreviatedAndPassiveRuns) {
  TwoZoneRun abbreviated(2);
  const std::string a = abbreviated.simOut();
  EXPECT_EQ(a.find("\r\n    11  "), std::string::npos);  // no zone lines in IV and VI
  EXPECT_EQ(a.find("BUILDING PEAK DAY"), std::string::npos);
  EXPECT_NE(a.find("\r\n    BUILDING "), std::string::npos);

  TwoZoneRun passive(4);
  const auto lines = passive.lines();
  std::size_t hvac = 0;
  for (std::size_t i = 0; i < lines.size(); ++i)
    if (startsWith(lines[i], "        HVAC (")) hvac = i;
  ASSERT_GT(hvac, 0u);
  EXPECT_EQ(cut(lines[hvac], 60, 12), 0.0);
  EXPECT_NE(lines[hvac].find("(0.00 TONS)"), std::string::npos);
  EXPECT_EQ(passive.costs.lcc[kLccMaintenance].presentValue, 0.0);
  const std::size_t mon = anchorLine(lines, "MON");
  EXPECT_EQ(cut(lines[mon + 5], 12, 9), 0.0);  // no peak loads in a passive run
}

TEST(ReportSections, SiReportUnitsAndLabels) {
  TwoZoneRun run(3, true);
  const auto lines = run.lines();
  const std::size_t site = anchorLine(lines, "Site");
  EXPECT_TRUE(startsWith(lines[site], "Site (GJ)"));
  EXPECT_NE(lines[site].find("GJ"), std::string::npos);
  EXPECT_NE(lines[site + 1].find("TOTAL SITE ENERGY (GJ) ="), std::string::npos);
  EXPECT_NE(lines[site + 1].find("MJ/SQ.M. (SOURCE)"), std::string::npos);
  const std::size_t mon = anchorLine(lines, "MON");
  EXPECT_NE(lines[mon + 2].find("(GJ)"), std::string::npos);
  EXPECT_NE(lines[mon + 2].find("(M3)"), std::string::npos);
  const std::string& tot = lines[mon + 18];
  EXPECT_DOUBLE_EQ(cut(lines[site], 18, 7), cut(tot, 4, 8));
  EXPECT_DOUBLE_EQ(cut(lines[site], 38, 7), std::round(cut(tot, 31, 9) * 0.0036 * 10.0) / 10.0);
  double exactHeat = 0;
  for (const MonthEnergy& me : run.energy.months) exactHeat += monthHeating(me) * 1.05505585;
  EXPECT_NEAR(cut(tot, 4, 8), exactHeat, 0.05 + 1e-9);
  EXPECT_NEAR(cut(tot, 12, 9), 52.7 * 0.29307107, 0.05 + 1e-9);
  EXPECT_NEAR(cut(tot, 31, 9), 6500.0 + 3.6, 0.5);  // kWh in both unit systems
  const std::string text = run.simOut();
  for (const char* label : {"(SQ.M.)", "(L/S)", "PER SQ.M. OF FLOOR AREA", "KW COOLING)", " C DB"})
    EXPECT_NE(text.find(label), std::string::npos) << label;
  for (const char* label : {"MBTU", "KBTU", "THERMS", "SQ.FT", "(CFM)"}) EXPECT_EQ(text.find(label), std::string::npos) << label;
}

TEST(HourlyFiles, HeadersAndARowByValue) {
  TwoZoneRun run;
  const auto calc = marloven::splitLines(hourlyEnergyFile(run.model, run.weather, run.energy));
  ASSERT_EQ(calc.size(), 1 + 12 * 24u);
  EXPECT_EQ(calc[0],
            "Month\tDay\tHour\tWeekday\tDayType\tWeight\tDryBulb_F\tWetBulb_F\tGlobalHoriz_Btu/hft2\tHeatingLoad_kBtu/h\t"
            "CoolingLoad_kBtu/h\tLights_kW\tEquipment_kW\tFans_kW\tCooling_kW\tHeatingElec_kW\tWaterHeatElec_kW\t"
            "TotalElec_kW\tGas_kBtu/h");
  // 15 July, 15:00, a Wednesday: 2 + 1 + 0.5 + 1.75 kW.
  const std::string row = calc[1 + 6 * 24 + 14];
  EXPECT_EQ(row.rfind("7\t15\t15\tWed\tOCC\t31.000\t50.0\t", 0), 0u) << row;
  EXPECT_NE(row.find("\t2.000\t1.000\t0.500\t1.750\t0.000\t0.000\t5.250\t10.000"), std::string::npos) << row;

  const auto temp = marloven::splitLines(hourlyTemperatureFile(run.model, run.weather, run.loads));
  EXPECT_EQ(temp[0], "Month\tDay\tHour\tOutdoorDB_F\tOutdoorRH_%\t11 Open office T_F\t11 Open office RH_%\t"
                     "12 Conference T_F\t12 Conference RH_%");
  const auto cells = [](const std::string& s) {
    std::vector<std::string> out;
    std::size_t at = 0;
    for (std::size_t tab; (tab = s.find('\t', at)) != std::string::npos; at = tab + 1) out.push_back(s.substr(at, tab - at));
    out.push_back(s.substr(at));
    return out;
  };
  const auto t1 = cells(temp[1]);
  ASSERT_EQ(t1.size(), 9u);
  EXPECT_EQ(t1[3], "50.0");
  EXPECT_EQ(t1[5], "70.0");
  EXPECT_EQ(t1[7], "71.0");
  // 0.008 lb/lb at 70 °F and 24.5 in Hg is about 42 % relative humidity.
  EXPECT_NEAR(std::stod(t1[6]), 42.0, 1.0);

  run.model.siReport = true;
  const auto weth = marloven::splitLines(hourlyWeatherFile(run.model, run.weather, run.energy.hours));
  const auto head = cells(weth[0]);
  ASSERT_EQ(head.size(), 16u);
  EXPECT_EQ(head[3], "DryBulb_C");
  EXPECT_EQ(head[7], "HumRatio_kg/kg");
  EXPECT_EQ(head[8], "Pressure_kPa");
  EXPECT_EQ(head[9], "GlobalHoriz_W/m2");
  EXPECT_EQ(head[12], "Wind_m/s");
  const auto noon = cells(weth[1 + 5 * 24 + 11]);  // 15 June, hour ending 12:00
  EXPECT_EQ(noon[3], "10.0");
  EXPECT_EQ(noon[4], "-1.1");
  EXPECT_EQ(noon[9], "126.2");
  EXPECT_EQ(noon[12], "3.6");
  EXPECT_GT(std::stod(noon[13]), 60.0);  // high sun near the solstice at 40° N
  EXPECT_LT(std::stod(noon[13]), 74.0);
}
