// Outside air of a running fan in hours a zone floats: it reaches the zone and
// cools its mass at night. The heavy standard building on the recorded Denver
// year with a night fan, against the same building without it and against a
// steady-periodic estimate of the mass under the night flow.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "common/file_io.h"
#include "engine/engine_run.h"
#include "engine/loads.h"
#include "support/temp_install.h"

namespace {

using namespace tarn;

constexpr double kNightCfm = 1000.0;  // about 13 air changes an hour in the 4,577 ft³ room
constexpr int kFanHours = 13;         // 18:00 to 07:00: hours ending 19..24 and 1..7
bool fanHour(int hourEnding) { return hourEnding >= 19 || hourEnding <= 7; }

std::string profileLine(double (*value)(int hourEnding)) {
  std::string s;
  for (int h = 1; h <= 24; ++h) {
    char b[16];
    std::snprintf(b, sizeof b, " %g", value(h));
    s += b;
  }
  return s;
}

void replaceOnce(std::string& text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  ASSERT_NE(at, std::string::npos) << from;
  text.replace(at, from.size(), to);
}

// Case 900's building, heating off (lower set-point far below anything the
// zone reaches), the fan bringing kNightCfm of outside air at night when
// `nightFan`, and cooling to 80.6 °F from 07:00 to 18:00 when `dayCooling`
// (otherwise the upper set-point is out of reach too: the zone floats).
std::string heavyBuilding(bool nightFan, bool dayCooling) {
  std::string text = marloven::readFile(std::string(TARN_FIXTURES) + "/bestest/case900.inp");
  const std::string zeros = profileLine([](int) { return 0.0; });
  const std::string vent = nightFan ? profileLine([](int h) { return fanHour(h) ? 1.0 : 0.0; }) : zeros;
  const std::string upper = dayCooling ? profileLine([](int h) { return h >= 8 && h <= 18 ? 80.6 : 200.0; })
                                       : profileLine([](int) { return 200.0; });
  const std::string lower = profileLine([](int) { return -60.0; });
  replaceOnce(text, "Vent\r\n1\r\n" + zeros + "\r\n", "Vent\r\n1\r\n" + vent + "\r\n");
  replaceOnce(text, "Temp\r\n1\r\n" + profileLine([](int) { return 80.6; }) + "\r\n2\r\n" +
                        profileLine([](int) { return 68.0; }) + "\r\n",
              "Temp\r\n1\r\n" + upper + "\r\n2\r\n" + lower + "\r\n");
  char oa[32];
  std::snprintf(oa, sizeof oa, "OA CFM    CS%.6f", kNightCfm / 516.67);
  replaceOnce(text, "OA CFM    CP0", oa);
  return text;
}

Simulation run(const std::string& project, const std::string& weather, bool passive = false) {
  marloven::testing::TempInstall scratch;
  scratch.write("ecalc$.inp", project);
  scratch.write("ecalc$.tmp", marloven::readFile(std::string(TARN_FIXTURES) + "/bestest/" +
                                                 (passive ? "free_float.tmp" : "hvac.tmp")));
  scratch.write("ecalc$.tmy", marloven::readFile(weather));
  RunLog log;
  return simulate(scratch.root(), log).value();
}

double meanAir(const Simulation& s) {
  const ZoneTemperatures& t = s.loads.zones.at(0).temps;
  return t.annualSum / t.annualWeight;
}

double series(double a, double b) { return a * b / (a + b); }

// The zone in deviations from the outdoor air, its surface and air nodes
// without capacity: a mass excess x over outdoors gives the air the excess
// share(hVe)·x, through the surface node (links hMs, hIs, and hX to outdoors)
// and the air node (hVe to outdoors).
double airShare(const ZoneModel& z, double hX, double hVe) {
  const double throughAir = series(z.hIs, hVe);
  return z.hMs / (z.hMs + hX + throughAir) * z.hIs / (z.hIs + hVe);
}

// The fan's effect on the zone, steady-periodic over a day: for `a` hours a
// night it raises the mass's conductance to outdoors from g0 to gn and the
// air's ventilation from h0 to hn; the mass's excess over the night air was dn
// without it. Returns the day's mean drop of the air temperature.
double periodicAirDrop(const ZoneModel& z, double hX, double h0, double hn, double dn, double a, double b) {
  const double g0 = series(z.hMs, hX + series(z.hIs, h0)), gn = series(z.hMs, hX + series(z.hIs, hn));
  const double c = z.capacity;
  // The mass: by night it heads for `settled` with time constant c/gn, by day back to no change.
  const double tauN = c / gn, tauD = c / g0;
  const double eN = std::exp(-a / tauN), eD = std::exp(-b / tauD);
  const double settled = -(gn - g0) * dn / gn;
  const double endNight = settled * (1.0 - eN) / (1.0 - eN * eD), startNight = endNight * eD;
  const double massNight = settled + (startNight - settled) * tauN * (1.0 - eN) / a;
  const double massDay = endNight * tauD * (1.0 - eD) / b;
  // The air: its share of the mass's excess, and by night a smaller share of all of it.
  const double w0 = airShare(z, hX, h0), wn = airShare(z, hX, hn);
  const double airNight = wn * massNight + (wn - w0) * dn, airDay = w0 * massDay;
  return -(a * airNight + b * airDay) / (a + b);
}

TEST(NightVentilation, HeavyBuildingCooledByTheNightFan) {
  const std::string weather = std::string(TARN_WEATHER_DIR) + "/recorded/725650TYCST.epw";
  if (!std::filesystem::exists(weather)) GTEST_SKIP() << "recorded Denver weather not found at " << weather;

  // Cooling by day: the mass the fan cooled overnight takes the day's heat.
  const Simulation vented = run(heavyBuilding(true, true), weather);
  const Simulation closed = run(heavyBuilding(false, true), weather);
  // Sensible cooling, kWh: the dry Denver air makes the latent rows negative.
  auto sensibleCooling = [](const Simulation& s) {
    const LoadRows r = s.loads.annualCooling();
    return (r.total - r.rows[kPeopleLatent] - r.rows[kInfiltrationLatent] - r.rows[kVentilationLatent]) * 0.293071e-3;
  };
  const double coolVented = sensibleCooling(vented), coolClosed = sensibleCooling(closed);
  EXPECT_DOUBLE_EQ(vented.loads.annualHeating().total, 0.0);
  EXPECT_DOUBLE_EQ(closed.loads.annualHeating().total, 0.0);
  EXPECT_LT(vented.loads.balanceError, 1e-9);
  // Summer days one by one: cooling days, and how many of them the fan made cheaper.
  const std::size_t nh = vented.loads.hours.size();
  ASSERT_EQ(nh, closed.loads.hours.size());
  int coolingDays = 0, cheaper = 0;
  double summerVented = 0, summerClosed = 0;
  for (std::size_t i = 0; i + 24 <= nh; i += 24) {
    const int month = vented.loads.hours[i].month;
    if (month < 6 || month > 8) continue;
    double dayVented = 0, dayClosed = 0;
    for (std::size_t k = i; k < i + 24; ++k) {
      dayVented += std::max(0.0, static_cast<double>(vented.loads.zoneHours[k].sensible));
      dayClosed += std::max(0.0, static_cast<double>(closed.loads.zoneHours[k].sensible));
    }
    summerVented += dayVented;
    summerClosed += dayClosed;
    if (dayClosed > 0) ++coolingDays, cheaper += dayVented < dayClosed ? 1 : 0;
  }
  ASSERT_GT(coolingDays, 60);
  // Denver's nights are cool all summer: nearly every cooling day costs less.
  EXPECT_GT(cheaper, 0.9 * coolingDays);
  EXPECT_LT(summerVented, 0.6 * summerClosed);
  EXPECT_LT(coolVented, 0.6 * coolClosed);
  // The fan is a constant-volume fan: it runs all night (13 h, 365 days) at design power.
  double fanKwh = 0;
  for (const MonthEnergy& m : vented.energy.months) fanKwh += m.fansKwh;
  EXPECT_GT(fanKwh, 365 * kFanHours * vented.energy.zones[0].fanKw);

  // Floating: the night flow pulls the year's mean down by about what the mass
  // can give it, in a steady-periodic balance of the mass with the night flow.
  const Simulation floatVented = run(heavyBuilding(true, false), weather);
  const Simulation floatClosed = run(heavyBuilding(false, false), weather);
  // Set-points out of reach float the zone exactly as a passive run does.
  EXPECT_NEAR(meanAir(floatClosed), meanAir(run(marloven::readFile(std::string(TARN_FIXTURES) + "/bestest/case900.inp"),
                                                     weather, true)), 0.01);
  const double drop = meanAir(floatClosed) - meanAir(floatVented);

  const ZoneModel& z = floatVented.model.zones.at(0);
  double hX = z.hWindow, nightOutdoor = 0, pressure = 0;
  for (const ZoneElement& e : z.elements) hX += e.conductance;
  int n = 0;
  for (const SimulatedHour& h : floatVented.loads.hours) {
    const WeatherHour& wh = floatVented.weather.hours[static_cast<std::size_t>(h.day - 1) * 24 + h.hour - 1];
    pressure += wh.pressure / static_cast<double>(floatVented.loads.hours.size());
    if (fanHour(h.hour)) nightOutdoor += wh.dryBulb, ++n;
  }
  nightOutdoor /= n;
  const double cp = 1.08 * pressure / 29.921;
  const double hInf = cp * z.infiltrationCfm, hFan = cp * kNightCfm;
  const double estimate = periodicAirDrop(z, hX, hInf, hInf + hFan, meanAir(floatClosed) - nightOutdoor, kFanHours,
                                          24 - kFanHours);
  EXPECT_GT(drop, 3.0);  // °F
  EXPECT_NEAR(drop, estimate, 0.15 * estimate);

  if (std::getenv("TARN_PRINT_CASES"))
    std::printf("cooling with night fan %.1f kWh, without %.1f kWh (June-August %.1f / %.1f kWh, %d of %d days cheaper); "
                "floating mean %.2f F without, %.2f F with: drop %.2f F, estimate %.2f F\n",
                coolVented, coolClosed, summerVented / 1000 * 0.293071, summerClosed / 1000 * 0.293071, cheaper,
                coolingDays, meanAir(floatClosed), meanAir(floatVented), drop, estimate);
}

}  // namespace
