// The shipped database install/weather/weth.asc: every group and city loads,
// and the design temperatures estimated from its records are plausible for a
// hot, a cold and a humid place.
#include <gtest/gtest.h>

#include <set>

#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "project/design_temperature.h"
#include "weather/weather_database.h"
#include "weather/weather_summary.h"

namespace marloven::testing {
namespace {

const std::string kPath = std::string(MARLOVEN_SOURCE_DIR) + "/install/weather/weth.asc";

TEST(ShippedWeather, EveryGroupAndCityLoadsInBothUnitSystems) {
  const std::string bytes = readFile(kPath);
  const auto heads = readRecordHeads(bytes);
  const auto lines = splitLines(bytes);
  const auto groups = listGroups(heads);
  std::vector<std::string> names;
  for (const auto& g : groups) names.push_back(g.state);
  EXPECT_EQ(names, (std::vector<std::string>{
                       "Alaska", "Arkansas", "Arizona", "California", "Colorado", "Florida", "Georgia", "Hawaii",
                       "Iowa", "Idaho", "Illinois", "Indiana", "Kentucky", "Louisiana", "Massachusetts", "Maryland",
                       "Maine", "Michigan", "Minnesota", "Missouri", "Montana", "North Carolina", "North Dakota",
                       "Nebraska", "New Mexico", "Nevada", "New York", "Ohio", "Oklahoma", "Oregon", "Pennsylvania",
                       "Puerto Rico", "South Carolina", "South Dakota", "Tennessee", "Texas", "Utah", "Virginia",
                       "Vermont", "Washington", "Wisconsin", "Wyoming", "Belize", "Canada", "China", "Cuba", "Egypt",
                       "Spain", "Ethiopia", "France", "Guatemala", "Italy", "Nicaragua", "New Zealand", "Poland",
                       "El Salvador"}));

  int records = 0;
  for (const auto& g : groups) {
    const auto cities = listCities(heads, g.state);
    EXPECT_EQ(static_cast<int>(cities.size()), g.count) << g.state;
    // A group's first record is the one that made it: marked "!".
    EXPECT_EQ(heads[static_cast<std::size_t>(g.firstRecord - 1)].mark, "!") << g.state;
    std::set<std::string> unique(cities.begin(), cities.end());
    EXPECT_EQ(unique.size(), cities.size()) << "a city twice in " << g.state;
    for (const auto& city : cities) {
      const auto ip = loadRecord(bytes, city, g.state, UnitSystem::IP);
      ASSERT_TRUE(ip) << city << ", " << g.state;
      ++records;
      EXPECT_EQ(ip->record, records);
      // Loaded and written back in I-P, the record is the file's own 10 lines.
      const auto& head = heads[static_cast<std::size_t>(records - 1)];
      std::string own;
      for (std::size_t i = 0; i < kWeatherRecordLines; ++i) own += lines[(records - 1) * 10 + i] + "\r\n";
      EXPECT_EQ(formatRecord(*ip, UnitSystem::IP, ip->mark == "!", head.code), own) << city;
      ASSERT_TRUE(loadRecord(bytes, city, g.state, UnitSystem::SI));
    }
  }
  EXPECT_EQ(records, 69);
  EXPECT_EQ(static_cast<int>(heads.size()), records);
}

// Design temperatures (summer dry bulb, summer wet bulb, winter dry bulb, F)
// of a place of the shipped database, estimated from its project summary.
std::array<double, 3> designTemperatures(const std::string& city, const std::string& state, UnitSystem units) {
  const auto f = loadRecordFile(kPath, city, state, units);
  if (!f) throw std::runtime_error("no " + city + ", " + state);
  Project p;
  p.units = units;
  applyWeather(p, *f);
  estimateDesignTemperatures(p);
  return {leadingNumber(p.designTemps.values[1]), leadingNumber(p.designTemps.values[2]),
          leadingNumber(p.designTemps.values[3])};
}

TEST(ShippedWeather, DesignTemperaturesOfHotColdAndHumidPlacesArePlausible) {
  // The estimate puts the summer dry bulb 2.11 deviations above the warmest
  // month's mean daily maximum, a few degrees above the published 0.4 % design
  // values (Miami 92 F, Fairbanks 82 F, Houston 96 F); the winter dry bulb
  // lies near the 99.6 % values (Miami 46 F, Fairbanks -40 F, Houston 28 F).
  struct Range {
    double low, high;
  };
  const auto within = [](double v, Range r) { return v >= r.low && v <= r.high; };
  const auto miami = designTemperatures("Miami Intl Ap", "Florida", UnitSystem::IP);
  EXPECT_TRUE(within(miami[0], {88, 100})) << miami[0];
  EXPECT_TRUE(within(miami[1], {72, 82})) << miami[1];
  EXPECT_TRUE(within(miami[2], {38, 55})) << miami[2];

  const auto fairbanks = designTemperatures("Fairbanks Intl AP", "Alaska", UnitSystem::IP);
  EXPECT_TRUE(within(fairbanks[0], {75, 92})) << fairbanks[0];
  EXPECT_TRUE(within(fairbanks[1], {50, 66})) << fairbanks[1];
  EXPECT_TRUE(within(fairbanks[2], {-50, -20})) << fairbanks[2];

  const auto houston = designTemperatures("Houston Bush Intercontinental", "Texas", UnitSystem::IP);
  EXPECT_TRUE(within(houston[0], {92, 108})) << houston[0];
  EXPECT_TRUE(within(houston[1], {74, 83})) << houston[1];
  EXPECT_TRUE(within(houston[2], {15, 35})) << houston[2];

  // The humid place's wet bulb stands closer to its dry bulb than the desert's.
  const auto phoenix = designTemperatures("Phoenix Sky Harbor Intl Ap", "Arizona", UnitSystem::IP);
  EXPECT_GT(phoenix[0], houston[0]);
  EXPECT_GT(phoenix[0] - phoenix[1], houston[0] - houston[1] + 5.0);

  // A project in SI gets the same temperatures in C, but for the rounding of
  // its statistics to one decimal.
  const auto si = designTemperatures("Houston Bush Intercontinental", "Texas", UnitSystem::SI);
  for (int i = 0; i < 3; ++i) EXPECT_NEAR(si[i], (houston[i] - 32) / 1.8, 0.5) << i;
}

}  // namespace
}  // namespace marloven::testing
