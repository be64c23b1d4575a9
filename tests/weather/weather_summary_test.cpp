// The project's weather summary built from the screen's fields, read back from
// its columns, and the deviations derived from an extreme.
#include "weather/weather_summary.h"

#include <gtest/gtest.h>

namespace marloven::testing {
namespace {

WeatherFields denver() {
  WeatherFields f;
  f.city = "Denver";
  f.state = "Colorado";
  f.mark = "!";
  f.station = "72565";
  f.latitude = " 39.8";
  f.longitude = "104.7";
  f.timeZone = "  105";
  f.elevation = "5413";
  for (int r = 0; r < kWeatherRows; ++r)
    for (int m = 0; m < 12; ++m) f.rows[r][m] = r == kSolar ? std::to_string(1000 + m) : "-" + std::to_string(m) + ".25";
  return f;
}

TEST(WeatherSummary, LinesStandInTheirColumns) {
  const WeatherSummary w = buildSummary(denver());
  EXPECT_EQ(w.lines[1], std::string(51, ' ') + "WMO#  Lat. Long.  STM.  Elev");
  EXPECT_EQ(w.lines[2], "Denver, Colorado !" + std::string(32, ' ') + "72565  39.8 104.7   105  5413");
  EXPECT_EQ(w.lines[2].substr(55, 6), "  39.8");  // columns 56-61
  EXPECT_EQ(w.lines[2].substr(73, 6), "  5413");  // columns 74-79
  EXPECT_EQ(w.lines[3], "          Jan   Feb   Mar   Apr   May   Jun   Jul   Aug   Sep   Oct   Nov   Dec");
  // One decimal by RoundTo (halves up, also below zero), value m ending at 7 + 6 m.
  EXPECT_EQ(w.lines[4], "DB Ave    -.2  -1.2  -2.2  -3.2  -4.2  -5.2  -6.2  -7.2  -8.2  -9.2 -10.2 -11.2");
  EXPECT_EQ(w.lines[5].substr(0, 7), "Ave Std");
  EXPECT_EQ(w.lines[10], "SOLAR    1000  1001  1002  1003  1004  1005  1006  1007  1008  1009  1010  1011");
  EXPECT_EQ(w.lines[11].substr(0, 7), "WIND   ");

  // A six-digit station keeps the columns behind it; a short one is padded.
  WeatherFields six = denver();
  six.station = "725650";
  EXPECT_EQ(buildSummary(six).lines[2], w.lines[2]);
  six.station = "123";
  EXPECT_EQ(buildSummary(six).lines[2].substr(50, 11), "123    39.8");
}

TEST(WeatherSummary, ReloadsTheFieldsFromItsColumns) {
  const WeatherFields back = fieldsFromSummary(buildSummary(denver()));
  EXPECT_EQ(back.city + "|" + back.state + "|" + back.mark + "|" + back.station, "Denver|Colorado|!|72565");
  EXPECT_EQ(back.latitude + "|" + back.longitude + "|" + back.timeZone + "|" + back.elevation,
            " 39.8|104.7|  105| 5413");
  EXPECT_EQ(back.rows[kDryBulbAverage][0], "  -.2");
  EXPECT_EQ(back.rows[kWind][11], "-11.2");
  EXPECT_EQ(back.rows[kSolar][3], " 1003");
  // And builds the same summary again.
  WeatherFields again = back;
  EXPECT_EQ(buildSummary(again).lines, buildSummary(denver()).lines);
}

TEST(WeatherSummary, AppliesLocationAndLinesToTheProject) {
  Project p;
  WeatherFields f = denver();
  f.mark.clear();
  applyWeather(p, f);
  EXPECT_EQ(p.data[kLocation], "Denver, Colorado ");
  EXPECT_EQ(p.weather.lines[4].substr(0, 13), "DB Ave    -.2");
}

TEST(WeatherSummary, DerivesDeviationsFromAnExtreme) {
  WeatherFields f = denver();
  f.rows[kDryBulbMaximum][4] = "89.45";
  deriveDeviations(f, 4, 100.0, 2.11);
  EXPECT_EQ(f.rows[kDryBulbMaximumStd][4], " 5");
  EXPECT_EQ(f.rows[kDryBulbAverageStd][4], " 4.4");  // 4.35 rounds up
  EXPECT_EQ(f.rows[kDewPointStd][4], " 4.4");
  // A zero extreme after a load gives negative deviations; that stays so.
  deriveDeviations(f, 4, 0.0, 3.1);
  EXPECT_EQ(f.rows[kDryBulbMaximumStd][4], "-28.9");
  EXPECT_EQ(f.rows[kDryBulbAverageStd][4], "-25.1");
}

}  // namespace
}  // namespace marloven::testing
