// The weather screen's rules on the shipped database: lists and loads, key
// filter, derivation, the two saves and leaving with OK.
#include "weather/weather_form.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <signal.h>
#include <sys/resource.h>

#include "common/file_io.h"
#include "common/text_lines.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

namespace marloven {
namespace {

using testing::FakePrompt;
using Shown = std::pair<std::string, std::string>;

const WeatherBox kState{WeatherBox::State};
const WeatherBox kCity{WeatherBox::City};
WeatherBox month(int row, int m) { return {WeatherBox::Month, row, m}; }
WeatherBox annual(int m) { return {WeatherBox::AnnualExtreme, 0, m}; }
WeatherBox extreme(int m) { return {WeatherBox::ExtremeDryBulb, 0, m}; }

struct Screen {
  explicit Screen(UnitSystem units = UnitSystem::IP) {
    tree.write("weather/weth.asc", readFile(std::string(MARLOVEN_SOURCE_DIR) + "/install/weather/weth.asc"));
    state.project.units = units;
    form.open();
  }
  std::string database() const { return tree.read("weather/weth.asc"); }
  int groupIndex(const std::string& name) const {
    const auto& g = form.groups();
    return static_cast<int>(std::find(g.begin(), g.end(), name) - g.begin());
  }
  void pick(const std::string& group, const std::string& city) {
    form.chooseGroup(groupIndex(group));
    const auto& c = form.cities();
    form.chooseCity(static_cast<int>(std::find(c.begin(), c.end(), city) - c.begin()));
  }
  void type(const WeatherBox& b, const std::string& text) {
    for (char k : text) ASSERT_TRUE(form.keyPress(b, k)) << k;
    form.textChanged(b, text);
  }

  testing::TempInstall tree;
  AppState state{Installation(tree.dir())};
  FakePrompt prompt;
  WeatherForm form{state, prompt};
};

TEST(WeatherForm, CaptionsAndUnitsFollowTheUnitSystem) {
  Screen ip;
  EXPECT_EQ(ip.form.caption(), "Weather Data -- New_Project");
  EXPECT_EQ(ip.form.tutorialCaption(), "WEATHER DATA -- New_Project");
  EXPECT_EQ(ip.form.unitLabel(kDryBulbAverage), "Deg. F");
  EXPECT_EQ(ip.form.unitLabel(kSolar), "Btu/sq.ft.");
  EXPECT_EQ(ip.form.unitLabel(kWind), "Miles/hr.");
  Screen si(UnitSystem::SI);
  EXPECT_EQ(si.form.unitLabel(kDewPointStd), "Deg. C");
  EXPECT_EQ(si.form.unitLabel(kSolar), "kJ/sq.m.");
  EXPECT_EQ(si.form.unitLabel(kWind), "m/sec.");
  EXPECT_STREQ(kWeatherRowCaptions[0], "Bry Bulb Ave:");
  EXPECT_STREQ(kWeatherRowCaptions[2], "Bry Bulb Max:");
  EXPECT_EQ(si.form.text(annual(4)), "0.0");
}

// Values read off the DENVER INTL AP record of the shipped file.
TEST(WeatherForm, AGroupLoadsItsFirstCityInBothUnitSystems) {
  Screen ip;
  ip.form.chooseGroup(ip.groupIndex("Colorado"));
  EXPECT_EQ(ip.form.cities(), (std::vector<std::string>{"DENVER INTL AP", "Denver-Stapleton", "Golden"}));
  EXPECT_EQ(ip.form.text(kState), "Colorado");
  EXPECT_EQ(ip.form.text(kCity), "DENVER INTL AP");
  const WeatherFields& f = ip.form.fields();
  EXPECT_EQ(f.station, "725650");
  EXPECT_EQ(f.elevation, "5413");
  EXPECT_EQ(f.mark, "!");
  EXPECT_EQ(f.rows[kDryBulbAverage][0], " 33.4");
  EXPECT_EQ(f.rows[kDryBulbMaximum][6], " 86.2");
  EXPECT_EQ(f.rows[kSolar][6], " 2129");
  EXPECT_EQ(f.rows[kWind][11], "  7.1");
  EXPECT_FALSE(ip.form.edited());

  Screen si(UnitSystem::SI);
  si.pick("Colorado", "DENVER INTL AP");
  const WeatherFields& g = si.form.fields();
  EXPECT_EQ(g.rows[kDryBulbAverage][0], "   .8");       // (33.4 - 32) / 1.8 = 0.78
  EXPECT_EQ(g.rows[kDryBulbAverageStd][0], "  4.4");    // 8 / 1.8
  EXPECT_EQ(g.rows[kSolar][6], "24178");                // 2129 x 11.3565295 = 24178.05
  EXPECT_EQ(g.rows[kWind][0], "  3.8");                 // 8.5 x 0.44704 = 3.80
  EXPECT_EQ(g.elevation, "1649.9");                     // int(10 x 5413 x 0.3048 + 0.5) / 10

  si.pick("Colorado", "Golden");
  EXPECT_EQ(si.form.fields().station, "724666");
}

TEST(WeatherForm, NumericBoxesRefuseLettersAndMarkTheDataEdited) {
  Screen s;
  s.pick("Colorado", "Golden");
  EXPECT_TRUE(s.form.keyPress({WeatherBox::Station}, 'A'));  // the station takes anything
  EXPECT_FALSE(s.form.edited());
  EXPECT_FALSE(s.form.keyPress({WeatherBox::Elevation}, 'e'));
  EXPECT_EQ(s.prompt.titlesAndTexts(), (std::vector<Shown>{{"Error", "Please use numerical values."}}));
  EXPECT_FALSE(s.form.edited());
  for (char k : std::string("-.09\t\b\r")) EXPECT_TRUE(s.form.keyPress(month(kDewPointAverage, 1), k)) << k;
  EXPECT_TRUE(s.form.edited());

  Screen names;  // the names alone count as an edit
  EXPECT_TRUE(names.form.keyPress(kCity, 'x'));
  EXPECT_TRUE(names.form.edited());
}

TEST(WeatherForm, AKnownExtremeDerivesTheMonthsDeviations) {
  Screen s;
  s.pick("Colorado", "Golden");
  s.form.textChanged(month(kDryBulbMaximum, 3), "89.45");
  s.type(annual(3), "100");
  EXPECT_EQ(s.form.text(month(kDryBulbMaximumStd, 3)), " 5");
  EXPECT_EQ(s.form.text(month(kDryBulbAverageStd, 3)), " 4.4");  // 4.35 rounds up
  EXPECT_EQ(s.form.text(month(kDewPointStd, 3)), " 4.4");
  // A record extreme uses 3.1: (100 - 89.45) / 3.1 = 3.40
  s.type(extreme(3), "100");
  EXPECT_EQ(s.form.text(month(kDryBulbMaximumStd, 3)), " 3.4");
  EXPECT_EQ(s.form.text(month(kDryBulbAverageStd, 3)), " 3");  // 2.958
}

TEST(WeatherForm, ALoadResetsUsedDerivationInputsAndTheirRuleRunsWithZero) {
  Screen s;
  s.pick("Colorado", "Golden");
  const WeatherFields golden = s.form.fields();
  s.type(annual(0), "100");
  s.type(extreme(5), "104");
  s.form.chooseCity(0);  // DENVER INTL AP
  const WeatherFields& f = s.form.fields();
  EXPECT_EQ(f.annualExtreme[0], "0.0");
  EXPECT_EQ(f.extremeDryBulb[5], "0.0");
  // January: dbmax 47.4, extreme 0 -> (0 - 47.4) / 2.11 = -22.46
  EXPECT_EQ(f.rows[kDryBulbMaximumStd][0], "-22.5");
  EXPECT_EQ(f.rows[kDryBulbAverageStd][0], "-19.6");  // -22.5 x 0.87 = -19.575
  EXPECT_EQ(f.rows[kDewPointStd][0], "-19.6");
  // June: dbmax 88.7, extreme 0 with 3.1 -> -28.6
  EXPECT_EQ(f.rows[kDryBulbMaximumStd][5], "-28.6");
  // Months never used keep what was loaded.
  EXPECT_EQ(f.rows[kDryBulbMaximumStd][1], "  9.9");
  EXPECT_NE(golden.rows[kDryBulbMaximumStd][1], f.rows[kDryBulbMaximumStd][1]);
}

TEST(WeatherForm, SavesRefuseUneditedDataAndUnknownPlaces) {
  Screen s;
  s.pick("Colorado", "Golden");
  s.form.saveNew();
  s.form.saveUpdate();
  const Shown nothing{"Message", "No new data have been entered.  Current data will not be saved into the database."};
  EXPECT_EQ(s.prompt.titlesAndTexts(), (std::vector<Shown>{nothing, nothing}));
  s.prompt.log.clear();
  s.type(kCity, "Goldenrod");
  const std::string before = s.database();
  s.form.saveUpdate();
  EXPECT_EQ(s.prompt.titlesAndTexts(),
            (std::vector<Shown>{{"State or city name not found",
                                 "The current database does not include the state or city name you enter.  "
                                 "Save the data As New."}}));
  EXPECT_EQ(s.database(), before);
}

TEST(WeatherForm, SaveAsNewListsTheCityWhenTheScreenOpensAgain) {
  Screen s;
  s.pick("Colorado", "Golden");
  s.type(kCity, "Boulder");
  s.type(month(kDryBulbAverage, 0), "30.5");
  s.form.saveNew();
  EXPECT_TRUE(s.prompt.log.empty());
  EXPECT_FALSE(s.form.edited());

  WeatherForm again(s.state, s.prompt);
  again.open();
  const auto& g = again.groups();
  again.chooseGroup(static_cast<int>(std::find(g.begin(), g.end(), "Colorado") - g.begin()));
  EXPECT_EQ(again.cities(), (std::vector<std::string>{"DENVER INTL AP", "Denver-Stapleton", "Golden", "Boulder"}));
  again.chooseCity(3);
  EXPECT_EQ(again.fields().rows[kDryBulbAverage][0], " 30.5");
  EXPECT_EQ(again.fields().station, "724666");
}

TEST(WeatherForm, SaveAsUpdateReplacesOnlyThatRecord) {
  Screen s(UnitSystem::SI);
  s.pick("Colorado", "Denver-Stapleton");
  const int record = s.form.fields().record;
  s.type(month(kWind, 6), "9.9");
  const std::vector<std::string> before = splitLines(s.database());
  s.form.saveUpdate();
  EXPECT_TRUE(s.prompt.log.empty());
  const std::vector<std::string> after = splitLines(s.database());
  ASSERT_EQ(after.size(), before.size());
  const std::size_t first = static_cast<std::size_t>(record - 1) * 10;
  // The record is written anew from the SI fields (its other rows may move by
  // a rounding); every line around it stays as it was.
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (i < first || i >= first + 10) {
      EXPECT_EQ(after[i], before[i]) << "line " << i + 1;
    }
  }
  EXPECT_EQ(after[first + 1].substr(0, 40), before[first + 1].substr(0, 40));
  EXPECT_NE(after[first + 9].find("22.1"), std::string::npos);  // 9.9 m/s x 2.236936 = 22.15, back in mph
  EXPECT_EQ(s.database().substr(s.database().size() - 2), "\r\n");
}

TEST(WeatherForm, ASaveThatFailsMidwayLeavesTheDatabaseAsItWas) {
  Screen s;
  s.pick("Colorado", "Golden");
  s.type(kCity, "Aspen");
  const std::string before = s.database();
  struct rlimit old {};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
  const auto oldHandler = signal(SIGXFSZ, SIG_IGN);
  struct rlimit small = old;
  small.rlim_cur = before.size() / 2;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  s.form.saveNew();
  setrlimit(RLIMIT_FSIZE, &old);
  signal(SIGXFSZ, oldHandler);
  ASSERT_EQ(s.prompt.log.size(), 1u);
  EXPECT_EQ(s.prompt.log[0].title.rfind("Marloven Error #", 0), 0u);
  EXPECT_TRUE(s.form.edited());
  EXPECT_EQ(s.database(), before);
}

TEST(WeatherForm, OkAppliesTheLocationAndAsksAboutUnsavedEdits) {
  Screen empty;
  EXPECT_TRUE(empty.form.clickOk());  // no state: the project is left alone
  EXPECT_FALSE(empty.state.project.flags.stepDone[2]);
  EXPECT_EQ(empty.state.project.data[kLocation], "");

  Screen s;
  s.state.project.flags.weatherRereadPending = true;
  s.pick("Colorado", "DENVER INTL AP");
  s.type(month(kSolar, 0), "800");
  s.prompt.answers = {Answer::Yes, Answer::No};
  EXPECT_FALSE(s.form.clickOk());  // Yes: stay and save first
  EXPECT_FALSE(s.state.project.flags.stepDone[2]);
  EXPECT_TRUE(s.form.clickOk());   // No: apply as shown
  ASSERT_EQ(s.prompt.log.size(), 2u);
  EXPECT_EQ(s.prompt.log[0].title, "Save Weather Data");
  EXPECT_EQ(s.prompt.log[0].text,
            "You have edited some values of the weather data.  Click 'Save As New' to save the data into a new "
            "record, or 'Save As Update' to update the weather file.  Save new data now?");
  const Project& p = s.state.project;
  EXPECT_TRUE(p.flags.stepDone[2]);
  EXPECT_EQ(p.data[kLocation], "DENVER INTL AP, Colorado !");
  EXPECT_EQ(p.weather.lines[2].substr(50, 6), "72565 ");  // the station keeps its 5 columns
  EXPECT_EQ(p.weather.lines[10].substr(0, 13), "SOLAR     800");
  EXPECT_TRUE(s.form.projectInfoLocationChanged());
  EXPECT_FALSE(p.flags.weatherRereadPending);

  WeatherForm back(s.state, s.prompt);  // the project's own summary comes back
  back.open();
  EXPECT_EQ(back.text(kCity), "DENVER INTL AP");
  EXPECT_EQ(back.text(kState), "Colorado");
  EXPECT_EQ(back.fields().rows[kSolar][0], "  800");
  EXPECT_EQ(back.cities().size(), 3u);
}

}  // namespace
}  // namespace marloven
