// Setting up a run: the control file as the engine reads it back, the period
// dates, and the run screen's checks and files in their order.
#include "run/run_setup.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "common/column_printer.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "engine/control_file.h"
#include "engine/run_log.h"
#include "project/project_reader.h"
#include "project/project_writer.h"
#include "run/run_copy.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

namespace marloven {
namespace {

using testing::FakePrompt;
using Shown = std::pair<std::string, std::string>;

TEST(ControlFile, ThreeOptionSetsByteForByteAndAsTheEngineReadsThem) {
  ControlFile a;  // a whole year of simulated weather, nothing skipped
  a.firstWeekday = 3;
  EXPECT_EQ(controlFileText(a),
            "Run type  :  3\r\nWthr type :  0\r\n1st day   :  3 \r\nRun begin :  1\r\nRun end   :  365\r\n"
            "Hourly out:  0 \r\nSkip month: \r\nComfort   :  68        79 \r\n");

  ControlFile b;  // recorded weather, hourly files, summer skipped, SI limits
  b.runKind = 4;
  b.weatherFormat = 3;
  b.firstWeekday = 7;
  b.beginDay = 288;
  b.endDay = 60;
  b.hourly = true;
  b.skip[6] = b.skip[7] = true;
  b.comfortLow = 20;
  b.comfortHigh = 27.5f;
  EXPECT_EQ(controlFileText(b),
            "Run type  :  4\r\nWthr type :  3               1 \r\n1st day   :  7 \r\nRun begin :  288\r\n"
            "Run end   :  60\r\nHourly out:  1 \r\nSkip month:  7   8  \r\nComfort   :  20        27.5 \r\n");

  ControlFile c;  // abbreviated, every month skipped, limits the wrong way round
  c.runKind = 2;
  c.weatherFormat = 1;
  c.skip.fill(true);
  c.comfortLow = 80;
  c.comfortHigh = 65;
  const std::string text = controlFileText(c);
  EXPECT_EQ(splitLines(text)[6],
            "Skip month:  1   2   3   4   5   6   7   8   9   10   11   12  ");

  tarn::RunLog log;
  const tarn::RunControl ra = tarn::parseControl(controlFileText(a), log);
  EXPECT_EQ(ra.runType, 3);
  EXPECT_EQ(ra.weatherFormat, 0);
  EXPECT_EQ(ra.firstWeekday, 3);
  EXPECT_EQ(ra.beginDay, 1);
  EXPECT_EQ(ra.endDay, 365);
  EXPECT_FALSE(ra.hourlyOut);
  EXPECT_DOUBLE_EQ(ra.comfortLow, 68);
  EXPECT_DOUBLE_EQ(ra.comfortHigh, 79);
  const tarn::RunControl rb = tarn::parseControl(controlFileText(b), log);
  EXPECT_EQ(rb.runType, 4);
  EXPECT_EQ(rb.weatherFormat, 3);
  EXPECT_EQ(rb.firstWeekday, 7);
  EXPECT_EQ(rb.beginDay, 288);
  EXPECT_EQ(rb.endDay, 60);
  EXPECT_TRUE(rb.hourlyOut);
  for (int m = 1; m <= 12; ++m) EXPECT_EQ(rb.skipMonth[m], m == 7 || m == 8) << m;
  EXPECT_DOUBLE_EQ(rb.comfortHigh, 27.5);
  const tarn::RunControl rc = tarn::parseControl(text, log);
  EXPECT_EQ(rc.runType, 2);
  EXPECT_EQ(rc.weatherFormat, 1);
  for (int m = 1; m <= 12; ++m) EXPECT_TRUE(rc.skipMonth[m]) << m;
  EXPECT_DOUBLE_EQ(rc.comfortLow, 65);  // put right by the engine, with a warning
}

TEST(RunDates, DayOfTheYearOfDayMonthYear) {
  EXPECT_EQ(dayOfYear("1-Jan-2013"), 1);
  EXPECT_EQ(dayOfYear("31-Dec-2013"), 365);
  EXPECT_EQ(dayOfYear("31-Dec-2012"), 366);
  EXPECT_EQ(dayOfYear("15-Oct-2013"), 288);
  EXPECT_EQ(dayOfYear("15-oct-2013"), 288);
  EXPECT_EQ(dayOfYear("15-October-2013"), 288);
  EXPECT_EQ(dayOfYear("15-10-2013"), 288);
  EXPECT_EQ(dayOfYear("29-Feb-2012"), 60);
  for (const char* bad : {"29-Feb-2013", "32-Jan-2013", "0-Jan-2013", "15-Oc-2013", "15-Foo-2013", "-2013",
                          "Jan-15-2013", "15-Jan", "15-13-2013", ""})
    EXPECT_FALSE(dayOfYear(bad)) << bad;
}

struct Bench {
  explicit Bench(const std::string& project = std::string(OFFICE_DIR) + "/office_two_zones.inp") {
    tree.write("btype/tcool.dat", readFile(std::string(INSTALL_DATA) + "/btype/tcool.dat"));
    loadProjectFile(tree.dir(), project, state.project);
    // Rows as the sketch and the zone screen make them: a wall without glass
    // still names a window type (the I-P writer ends a zone at a row without one).
    for (ZoneRecord& z : state.project.zones)
      for (EnvelopeRow& row : z.rows)
        if (row.windowId == 0) row.windowId = 1;
    choices = initialChoices(state);
  }
  std::optional<RunSetup> go() {
    return setUpRun(state, choices, scratch(), prompt, [] { return 0.25; }, {"23 Nov 2026", "14:05"});
  }
  std::string scratch() const { return tree.path("temp").string(); }
  std::string file(const std::string& name) const { return tree.read("temp/" + name); }

  testing::TempInstall tree;
  AppState state{Installation(tree.dir())};
  FakePrompt prompt;
  RunChoices choices;
};

TEST(RunSetup, ChoicesStartFromTheProjectOrTheLastRun) {
  Bench r;
  EXPECT_EQ(r.choices.from, "1-Jan");
  EXPECT_EQ(r.choices.to, "31-Dec");
  EXPECT_EQ(r.choices.year, r.state.project.data[kConstructionYear]);
  EXPECT_EQ(r.choices.weeks, (std::array<bool, 4>{false, false, false, true}));
  EXPECT_EQ(r.choices.lower, "68");
  EXPECT_EQ(r.choices.upper, "79");
  r.state.project.units = UnitSystem::SI;
  r.state.project.weeksPerMonth = 2;
  EXPECT_EQ(initialChoices(r.state).lower, "20");
  EXPECT_EQ(initialChoices(r.state).upper, "27");
  EXPECT_EQ(initialChoices(r.state).weeks, (std::array<bool, 4>{false, true, false, false}));
  r.state.project.flags.recordedWeatherPicked = true;  // recorded weather keeps week 4
  EXPECT_EQ(initialChoices(r.state).weeks, (std::array<bool, 4>{false, false, false, true}));
  EXPECT_TRUE(initialChoices(r.state).recordedWeather);

  Bench again;
  again.choices.from = "1-Mar";
  again.choices.to = "30-Sep";
  again.choices.lower = "70";
  ASSERT_TRUE(again.go());
  const RunChoices next = initialChoices(again.state);
  EXPECT_EQ(next.from, "1-Mar");
  EXPECT_EQ(next.to, "30-Sep");
  EXPECT_EQ(next.lower, "70");
}

TEST(RunSetup, WritesTheRunCopyTheControlFileAndTheFrontPart) {
  Bench r;
  r.choices.year = "13";  // two digits: this century
  r.choices.skip[0] = true;
  r.choices.hourly = true;
  const auto setup = r.go();
  ASSERT_TRUE(setup);
  EXPECT_TRUE(r.prompt.log.empty());
  EXPECT_EQ(r.choices.year, "2013");
  EXPECT_EQ(r.state.project.data[kConstructionYear], "2013");
  EXPECT_EQ(setup->control.firstWeekday, 3);  // 1 January 2013 was a Tuesday
  EXPECT_EQ(setup->report.periodFrom, "1-Jan-2013");
  EXPECT_EQ(setup->report.skippedMonths, std::vector<std::string>{"January"});
  EXPECT_EQ(r.file("ecalc$.tmp"), controlFileText(setup->control));
  const std::string copy = r.file("ecalc$.inp");
  EXPECT_EQ(copy.substr(0, 26), "MARLOVEN   .25       4  IP");
  EXPECT_NE(r.file("ecalc$.out").find("1-Jan-2013"), std::string::npos);
  EXPECT_TRUE(r.state.project.flags.runMade);
  EXPECT_TRUE(r.state.project.flags.hourlyOutputMade);
  EXPECT_EQ(r.state.project.flags.lastRunKind, 3);

  r.choices.repeatWeather = true;
  r.choices.year = "1980";
  ASSERT_TRUE(r.go());
  EXPECT_EQ(r.file("ecalc$.inp").substr(10, 10), ".83774665 ");
  EXPECT_EQ(r.file("ecalc$.tmp").substr(16 + 16, 20), "1st day   :  3 \r\nRun");  // 1980 began on a Tuesday too
}

TEST(RunSetup, AnSIProjectHandsTheEngineIPNumbersUnderAnSIMarker) {
  // The office in SI, as a save in SI leaves it and a retrieve reads it.
  Bench si;
  testing::TempInstall t;
  ColumnPrinter out;
  printHeader(out, si.state.project.seed, 4, UnitSystem::SI);
  writeProject(out, si.state.project, readSketchLines(si.tree.dir()), Conversion::ToSI);
  t.write("si.inp", out.take());
  si.state.project = Project();
  loadProjectFile(si.tree.dir(), t.path("si.inp").string(), si.state.project);
  ASSERT_EQ(si.state.project.units, UnitSystem::SI);
  // The same project saved in I-P and read back.
  Bench ip;
  ColumnPrinter saved;
  Project copy = si.state.project;
  printHeader(saved, copy.seed, 4, UnitSystem::IP);
  writeProject(saved, copy, readSketchLines(si.tree.dir()), Conversion::ToIP);
  t.write("ip.inp", saved.take());
  ip.state.project = Project();
  loadProjectFile(ip.tree.dir(), t.path("ip.inp").string(), ip.state.project);
  ASSERT_EQ(ip.state.project.units, UnitSystem::IP);

  si.choices = initialChoices(si.state);
  ip.choices = initialChoices(ip.state);
  EXPECT_EQ(si.choices.lower, "20");
  si.choices.lower = "20";  // the same limits in each system's units are no part of the run copy
  ASSERT_TRUE(si.go());
  ASSERT_TRUE(ip.go()) << ::testing::PrintToString(ip.prompt.titlesAndTexts());
  const std::vector<std::string> a = splitLines(ip.file("ecalc$.inp")), b = splitLines(si.file("ecalc$.inp"));
  EXPECT_EQ(a[0].substr(24, 2), "IP");
  EXPECT_EQ(b[0].substr(24, 2), "SI");
  ASSERT_EQ(a.size(), b.size());
  // The same numbers; the writers differ only in the blanks around them.
  auto words = [](const std::string& line) {
    std::vector<std::string> w;
    std::istringstream in(line);
    for (std::string word; in >> word;) w.push_back(word);
    return w;
  };
  for (std::size_t i = 1; i < a.size(); ++i) EXPECT_EQ(words(a[i]), words(b[i])) << "line " << i + 1;
}

TEST(RunSetup, ChecksInTheirOrder) {
  const Shown date{"Error",
                   "Please check the dates of the simulation period and enter the dates in: dd-mmm format.  "
                   "Example: 15-Oct"};
  {
    Bench r;  // an empty period with simulated weather fails at the dates
    r.choices.from = "";
    EXPECT_FALSE(r.go());
    EXPECT_EQ(r.prompt.titlesAndTexts(), std::vector<Shown>{date});
    EXPECT_FALSE(r.tree.exists("temp/ecalc$.inp"));
  }
  {
    Bench r;  // recorded weather: the period is checked first, then the file
    r.choices.recordedWeather = true;
    r.choices.to = "";
    EXPECT_FALSE(r.go());
    r.choices.to = "31-Dec";
    EXPECT_FALSE(r.go());
    EXPECT_EQ(r.prompt.titlesAndTexts(),
              (std::vector<Shown>{{"<beep>", ""},
                                  {"Simulation period",
                                   "Please enter the simulation period in: dd-mmm format.  Example: 15-Oct"},
                                  {"<beep>", ""},
                                  {"Weather data file",
                                   "You will use recorded weather data but you have not picked the weather data "
                                   "file. Please click the Recorded Weather button and enter the correct weather "
                                   "data file. "}}));
  }
  {
    Bench r;  // no week highlighted
    r.choices.weeks = {};
    EXPECT_FALSE(r.go());
    EXPECT_EQ(r.prompt.titlesAndTexts(),
              (std::vector<Shown>{{"<beep>", ""},
                                  {"Simulation length", "Please select the simulation length (week/month)."}}));
  }
  {
    Bench r;  // every month skipped is not refused here
    r.choices.skip.fill(true);
    r.choices.weeks = {true, false, true, false};  // the first highlighted counts
    const auto s = r.go();
    ASSERT_TRUE(s);
    EXPECT_EQ(s->report.weeksPerMonth, 1);
    EXPECT_EQ(s->report.skippedMonths.size(), 12u);
  }
  {
    Bench r;
    r.choices.from = "30-Feb";
    EXPECT_FALSE(r.go());
    EXPECT_EQ(r.prompt.titlesAndTexts(), std::vector<Shown>{date});
  }
}

TEST(RunSetup, AReportThatStopsLeavesNoEarlierReport) {
  Bench r;
  r.tree.write("temp/ecalc$.out", "an earlier project's report\r\n");
  Project& p = r.state.project;
  for (int z = 1; z <= p.zoneCount; ++z) p.zones[z].fields[kOccProfile] = " 49";  // a profile it does not hold
  EXPECT_FALSE(r.go());
  ASSERT_FALSE(r.prompt.log.empty());
  EXPECT_EQ(r.file("ecalc$.out").find("an earlier project"), std::string::npos);
}

TEST(RunReport, JoinAppendsTheEnginesFilesAndNamesAMissingOne) {
  testing::TempInstall t;
  const std::string dir = t.path("temp").string();
  t.write("temp/ecalc$.out", "front\r\n");
  t.write("temp/sim$.out", "sim\r\n");
  t.write("temp/ecalc$.wth", "weather\r\n");
  try {
    joinReport(dir);
    ADD_FAILURE() << "joined without a comfort table";
  } catch (const FileError& e) {
    EXPECT_EQ(e.number(), 53);
  }
  EXPECT_EQ(t.read("temp/ecalc$.out"), "front\r\n");
  t.write("temp/ecalc$.flt", "");
  joinReport(dir);
  EXPECT_EQ(t.read("temp/ecalc$.out"), "front\r\nsim\r\nweather\r\n");

  t.write("temp/tarn64.err", "WARNING x: y\r\nERROR ecalc$.tmp line 2: bad\r\nSTATUS 1\r\n");
  EXPECT_EQ(engineErrors(dir), std::vector<std::string>{"ERROR ecalc$.tmp line 2: bad"});
}

}  // namespace
}  // namespace marloven
