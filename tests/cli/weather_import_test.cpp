// marloven-cli weather import: a recorded year added to the installation's
// weather database with the Save As New rules.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/commands.h"
#include "run_cli.h"
#include "common/text_lines.h"
#include "support/temp_install.h"
#include "common/file_io.h"
#include "support/fake_prompt.h"
#include "weather/epw_import.h"
#include "weather/weather_database.h"
#include "weather/weather_form.h"

namespace marloven::testing {
namespace {

// A year of constant hours: 25 C, dew point 20 C, 300 Wh/m2 at noon, 3 m/s.
std::string constantYear(const std::string& location) {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  std::string s = location + "\r\n";
  for (int i = 0; i < 6; ++i) s += "HEADER\r\n";
  s += "DATA PERIODS,1,1,Data,Sunday, 1/ 1,12/31\r\n";
  for (int m = 1; m <= 12; ++m)
    for (int d = 1; d <= kDays[m - 1]; ++d)
      for (int h = 1; h <= 24; ++h)
        s += "2001," + std::to_string(m) + "," + std::to_string(d) + "," + std::to_string(h) + ",0,?,25,20,74,101325,0,0,0," +
             (h == 12 ? "300" : "0") + ",0,0,0,0,0,0,0,3,0,0\r\n";
  return s;
}

TEST(WeatherImport, AddsRecordsToTheInstallationsDatabase) {
  TempInstall inst;
  inst.write("miami.epw", constantYear("LOCATION,Miami Intl Ap,FL,USA,TMY3,722020,25.82,-80.30,-5.0,11.0"));
  inst.write("lyon.epw", constantYear("LOCATION,Lyon Bron AP,AR,FRA,TMYx,074800,45.7261,4.9378,1.0,198.0"));
  const std::string miami = inst.path("miami.epw").string();

  Result r = runCli({"--install", inst.dir(), "weather", "import", miami});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out, "record 1: Miami Intl Ap, Florida\n");
  r = runCli({"--install", inst.dir(), "weather", "import", inst.path("lyon.epw").string(), "--group", "France"});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out, "record 2: Lyon Bron AP, France\n");
  // The same place again is refused; under another name it joins its group.
  const std::string before = inst.read("weather/weth.asc");
  r = runCli({"--install", inst.dir(), "weather", "import", miami});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("already has Miami Intl Ap, Florida"), std::string::npos) << r.err;
  EXPECT_EQ(inst.read("weather/weth.asc"), before);
  r = runCli({"--install", inst.dir(), "weather", "import", "--city", "Miami Beach", miami});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out, "record 2: Miami Beach, Florida\n");

  const auto lines = splitLines(inst.read("weather/weth.asc"));
  ASSERT_EQ(lines.size(), 30u);
  EXPECT_EQ(lines[11], "\"Miami Beach, Florida                 \" \"722020\" 25.8  80.3  75 36");
  EXPECT_EQ(lines[12], "    77    77    77    77    77    77    77    77    77    77    77    77");
  EXPECT_EQ(lines[21], "\"Lyon Bron AP, France !               \" \"074800\" 45.7 -4.9 -15 650");
}

TEST(WeatherImport, BadInputGivesAMessageAndLeavesTheDatabase) {
  TempInstall inst;
  inst.write("weather/weth.asc", "");
  inst.write("data.csv", "Year,Month,Day\r\n");
  Result r = runCli({"--install", inst.dir(), "weather", "import", inst.path("none.epw").string()});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err.rfind("Marloven Error #  53: ", 0), 0u) << r.err;
  r = runCli({"--install", inst.dir(), "weather", "import", inst.path("data.csv").string()});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("not a recorded weather file"), std::string::npos) << r.err;
  r = runCli({"--install", inst.dir(), "weather", "import"});
  EXPECT_EQ(r.status, 2);
  r = runCli({"--install", inst.dir(), "weather", "import", "a.epw", "--group"});
  EXPECT_EQ(r.status, 2);
  EXPECT_EQ(inst.read("weather/weth.asc"), "");
}

// The weather screen's import gives the record the command line gives, for a
// U.S. file, one of another country and one of the international typical years.
TEST(WeatherImport, TheScreenAddsTheSameRecordAsTheCommandLine) {
  const std::string dir = std::string(RECORDED_WEATHER_DIR) + "/recorded/";
  const std::vector<std::string> files = {"USA_AK_Fairbanks.Intl.AP.702610_TMY3.epw",
                                          "FRA_AR_Lyon-Bron.AP.074800_TMYx.2004-2018.epw",
                                          "BLZ_Belize.785830_SWERA.epw"};
  if (!fileExists(dir + files[0])) GTEST_SKIP() << "recorded weather not found in " << dir;
  TempInstall byCli, byScreen;
  FakePrompt prompt;
  AppState state{Installation(byScreen.dir())};
  state.project.units = UnitSystem::SI;  // the database stays I-P whatever the screen shows
  WeatherForm form(state, prompt);
  form.open();
  for (const std::string& f : files) {
    const Result r = runCli({"--install", byCli.dir(), "weather", "import", dir + f});
    ASSERT_EQ(r.status, 0) << r.err;
    const EpwStatistics stats = readEpw(readFile(dir + f));
    prompt.inputs = {defaultWeatherGroup(stats.site), stats.site.city};  // the names as proposed
    ASSERT_TRUE(form.importRecorded(stats)) << f;
    EXPECT_EQ(form.text({WeatherBox::City}), stats.site.city.substr(0, form.text({WeatherBox::City}).size()));
    EXPECT_FALSE(form.fields().rows[kDryBulbAverage][0].empty());
  }
  EXPECT_EQ(byScreen.read("weather/weth.asc"), byCli.read("weather/weth.asc"));
  EXPECT_TRUE(prompt.log.size() == 2 * files.size()) << "only the two name questions";

  // The same place again is refused with a message and nothing written.
  const std::string before = byScreen.read("weather/weth.asc");
  const EpwStatistics again = readEpw(readFile(dir + files[0]));
  prompt.inputs = {defaultWeatherGroup(again.site), again.site.city};
  EXPECT_FALSE(form.importRecorded(again));
  EXPECT_EQ(prompt.log.back().title, "Import Recorded Weather");
  EXPECT_NE(prompt.log.back().text.find("already has"), std::string::npos);
  EXPECT_EQ(byScreen.read("weather/weth.asc"), before);
  // Cancelled at the first question: nothing asked further, nothing written.
  prompt.inputs = {std::nullopt};
  EXPECT_FALSE(form.importRecorded(again));
  EXPECT_EQ(byScreen.read("weather/weth.asc"), before);
}

}  // namespace
}  // namespace marloven::testing
