// Design temperatures are estimated when a project has none: the writer relies on it.
#include "project/design_temperature.h"

#include <gtest/gtest.h>

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
