// Design temperatures are estimated when a project has none: the writer relies on it.
#include "project/design_temperature.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>

#include "common/number_text.h"
#include "project/project_test_util.h"

namespace marloven::testing {
namespace {

TEST(DesignTemperature, DenverFixtureByHand) {
  Project p = readFresh(fixture("full_project.inp"));
  estimateDesignTemperatures(p);
  // Summer: July, 88.2 + 2.11 * 4.4 = 97.484 -> 97.5.
  EXPECT_EQ(p.designTemps.values[1], " 97.5");
  // Winter: January, 2 * (29.7 - 2.11 * 7.8) - (43.2 - 2.11 * 9.6) = 3.54 -> 3.5.
  EXPECT_EQ(p.designTemps.values[3], " 3.5");
  // Highest dew point: August, 49.0 + 2.11 * 5.2 = 59.972 with a mean dry-bulb of
  // 71.4; the wet-bulb lies between them.
  const double wb = leadingNumber(p.designTemps.values[2]);
  EXPECT_GT(wb, 59.972);
  EXPECT_LE(wb, 71.4);
  EXPECT_FLOAT_EQ(p.weather.elevation, 5330);
  EXPECT_EQ(p.weather.months[3][7], " 88.2");  // DB Max, July
}

// A weather block from twelve monthly values per row, in the fixed layout of
// the weather lines: a 7-character tag, then fields of 6 columns.
void setWeather(Project& p, double elevationFt, const std::array<std::array<double, 12>, 6>& rows) {
  char buf[16];
  p.weather.lines[2] = "LAT= 39.8 LONG=104.7 TZ= 7";
  std::snprintf(buf, sizeof buf, "%6.0f", elevationFt);
  p.weather.lines[2] += std::string(50, ' ') + buf;
  for (int t = 0; t < 6; ++t) {
    std::string line = kWeatherTags[static_cast<std::size_t>(t)];
    for (double v : rows[static_cast<std::size_t>(t)]) {
      std::snprintf(buf, sizeof buf, "%6.1f", v);
      line += buf;
    }
    p.weather.lines[t + 4] = line;
  }
}

// Denver International Airport, the TMY3 year of the recorded weather files
// (station 725650, 1650 m = 5413 ft). Monthly statistics in F: mean of the
// hourly dry-bulb, deviation of the daily means, mean and deviation of the
// daily maxima, mean and deviation of the hourly dew point.
const std::array<std::array<double, 12>, 6> kDenver = {{
    {33.4, 31.9, 43.0, 42.5, 59.9, 73.6, 72.1, 72.7, 66.5, 50.1, 37.2, 34.6},
    {8.0, 9.0, 7.5, 9.5, 8.0, 5.3, 5.3, 4.7, 7.2, 8.0, 9.6, 7.7},
    {47.4, 46.6, 55.2, 53.7, 72.8, 88.7, 86.2, 85.9, 82.1, 63.2, 48.7, 48.9},
    {9.7, 9.9, 9.1, 12.9, 9.7, 6.5, 7.7, 6.2, 8.1, 11.5, 12.1, 11.4},
    {13.2, 15.9, 17.7, 27.4, 38.8, 43.9, 49.1, 46.9, 37.3, 34.4, 19.4, 15.6},
    {6.4, 8.8, 7.6, 9.5, 9.9, 10.3, 6.1, 7.7, 9.2, 6.8, 6.8, 7.1},
}};

// Worked by hand, month by month:
//   summer   x = DBmax + 2.11 MAXstd: June 88.7 + 13.715 = 102.415 -> S = 102.4;
//            July 102.447 is above 102.4 and rounds to 102.4 again.
//   winter   x = 2 (DBave - 2.11 AVEstd) - (DBmax - 2.11 MAXstd): January
//            6.107, then February 2 (31.9 - 18.99) - (46.6 - 20.889) = .109 -> W = .1.
//   dew point x = DPave + 2.11 DPstd: June 43.9 + 21.733 = 65.633 = D, T = 73.6.
//   P = 29.92 - 5413 x 5.031 / 5000 = 24.47344 inHg.
//   pv = SatPressure(65.633) = .645494 (humidity-ratio fit), r = .622 pv / (P - pv)
//   = .016850, h = .24 x 73.6 + r (1061 + .444 x 73.6) = 36.0923.
//   L = ln h = 3.58610 > ln 11.758: B = 30.9185 - 39.682 L + 20.5841 L^2 - 1.758 L^3 = 72.253.
//   dP = |P - 29.92| = 5.4466 >= .22: search from step -2.7233:
//     B 72.253 H 40.540 (-) -> 69.530 H 37.791 (-) -> 66.807 H 35.194 (+, step
//     +1.0893) -> 67.896 H 36.215 (-, step -.4357) -> 67.460 H 35.804 (+, step
//     +.1743) -> 67.634 H 35.968 (+) -> 67.809 H 36.133 (-, step -.0697 < .1): stop
//     at B = 67.739.
//   B is not below D: wet-bulb = 67.7, not above T.
TEST(DesignTemperature, DenverWorkedByHand) {
  Project p;
  p.units = UnitSystem::IP;
  setWeather(p, 5413, kDenver);
  estimateDesignTemperatures(p);
  EXPECT_NEAR(leadingNumber(p.designTemps.values[1]), 102.4, 0.05);
  EXPECT_NEAR(leadingNumber(p.designTemps.values[2]), 67.7, 0.05);
  EXPECT_NEAR(leadingNumber(p.designTemps.values[3]), 0.1, 0.05);
  EXPECT_EQ(p.designTemps.values[3], " .1");

  // The same climate stored in SI (one decimal of C, read back as F rounded to a
  // tenth): (102.4 - 32) / 1.8 = 39.1 and 19.8 as above; the winter value sits on
  // the small difference .109 of two large terms, which the rounded inputs move
  // by a tenth: -17.7 or -17.8.
  Project si;
  si.units = UnitSystem::SI;
  const auto c = [](double f) { return (f - 32) / 1.8; };
  std::array<std::array<double, 12>, 6> celsius{};
  for (int m = 0; m < 12; ++m) {
    celsius[0][m] = c(kDenver[0][m]);
    celsius[1][m] = kDenver[1][m] / 1.8;
    celsius[2][m] = c(kDenver[2][m]);
    celsius[3][m] = kDenver[3][m] / 1.8;
    celsius[4][m] = c(kDenver[4][m]);
    celsius[5][m] = kDenver[5][m] / 1.8;
  }
  setWeather(si, 1650, celsius);
  estimateDesignTemperatures(si);
  EXPECT_FLOAT_EQ(si.weather.elevation, 5413);  // Int(1650 x 3.28084)
  EXPECT_NEAR(leadingNumber(si.designTemps.values[1]), 39.1, 0.05);
  EXPECT_NEAR(leadingNumber(si.designTemps.values[2]), 19.8, 0.05);
  EXPECT_NEAR(leadingNumber(si.designTemps.values[3]), -17.75, 0.06);
}

// Where the month of the highest dew point is no warmer than that dew point the
// wet-bulb is the mean of the two, then held to the dry-bulb T.
TEST(DesignTemperature, HumidClimateUsesTheMeanThenTheDryBulb) {
  std::array<std::array<double, 12>, 6> humid{};
  for (auto& row : humid) row.fill(0);
  for (int m = 0; m < 12; ++m) {
    humid[0][m] = 76;  // DB Ave
    humid[2][m] = 84;  // DB Max
    humid[4][m] = 68;  // DP Ave
  }
  humid[0][7] = 82;  // August: T = 82
  humid[4][7] = 75;
  humid[5][7] = 4;   // D = 75 + 8.44 = 83.44 > T
  Project p;
  p.units = UnitSystem::IP;
  setWeather(p, 7, humid);
  estimateDesignTemperatures(p);
  // (83.44 + 82) / 2 = 82.72 -> 82.7, above T = 82: 82.
  EXPECT_EQ(p.designTemps.values[2], " 82");
  EXPECT_EQ(p.designTemps.values[1], " 84");
}

TEST(DesignTemperature, EmptyWeatherGivesZeros) {
  Project p;
  p.units = UnitSystem::IP;
  estimateDesignTemperatures(p);
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(p.designTemps.values[i], " 0") << i;
  // In SI the empty months are 0 C, read as 32 F, and the results go back to 0 C.
  p.units = UnitSystem::SI;
  estimateDesignTemperatures(p);
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(p.designTemps.values[i], " 0") << i;
  EXPECT_EQ(p.weather.months[1][1], " 32");
}

TEST(DesignTemperature, SaturationPressureAcrossTheBranchAndItsFloor) {
  // Up to 85 F the humidity-ratio fit stays near the steam tables (32 F .181
  // inHg, 70 F .739).
  EXPECT_NEAR(saturationPressure(32), .181, .005);
  EXPECT_NEAR(saturationPressure(70), .739, .015);
  // Above 85 F the boiling-point form with its natural logarithm: every term
  // vanishes at 212 F, and at 100 F (z = 373.16 / 310.9378 = 1.200111) it gives
  // 29.921 * 10^(-1.581477 + .917195 - .000011 - .006505) = 6.385, not the
  // tables' 1.93. The results of the estimate rest on this form.
  EXPECT_NEAR(saturationPressure(212), 29.921, .001);
  EXPECT_NEAR(saturationPressure(100), 6.385, .005);
  // Where the fit turns negative the floor holds.
  EXPECT_FLOAT_EQ(saturationPressure(-20), .0001f);
}

TEST(DesignTemperature, NeededWhenUnknownOrMissingFromAFile) {
  Project p;
  EXPECT_TRUE(designTemperaturesNeeded(p));
  p.designTemps.known = true;
  EXPECT_FALSE(designTemperaturesNeeded(p));
  p.flags.fromFile = true;
  EXPECT_TRUE(designTemperaturesNeeded(p));
  p.designTemps.values[1] = "95";
  EXPECT_FALSE(designTemperaturesNeeded(p));
}

}  // namespace
}  // namespace marloven::testing
