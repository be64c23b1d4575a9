// The tabular screen and stored outputs on real runs of the sample office:
// zone pages, weather pages, comfort pages, captions, and an output saved,
// opened again in a new session and shown.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "common/column_printer.h"
#include "common/file_io.h"
#include "common/text_lines.h"
#include "project/project_reader.h"
#include "project/project_writer.h"
#include "results/report_sections.h"
#include "results/tabular.h"
#include "results/view_output.h"
#include "run_cli.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

namespace fs = std::filesystem;

class Tabular : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    setenv("MARLOVEN_TARN64", TARN_BINARY, 1);
    tree_ = new TempInstall;
    tree_->write("btype/tcool.dat", readFile(std::string(INSTALL_DATA) + "/btype/tcool.dat"));
    const std::string sample = std::string(INSTALL_DATA) + "/sample/office.inp";
    // The office without its core: four zones.
    Project p;
    const auto side = readProject(readFile(sample), p);
    p.zoneCount = 4;
    ColumnPrinter out;
    printHeader(out, p.seed, p.weeksPerMonth, p.units);
    writeProjectStraight(out, p, side.sketchLines);
    tree_->write("sample/four.inp", out.take());
    const std::vector<std::tuple<std::string, std::string, std::vector<std::string>>> runs = {
        {sample, "five", {"--out", path("sample/saved")}},
        {path("sample/four.inp"), "four", {}},
        {sample, "seven", {"--period", "1-Jan", "31-Jul"}},
        {sample, "passive", {"--kind", "passive", "--out", path("sample/comfort.fl1")}}};
    for (const auto& [project, dir, extra] : runs) {
      std::vector<std::string> args = {"--install", tree_->dir(), "run", project, "--repeat-weather", "--scratch",
                                       path("runs/" + dir)};
      args.insert(args.end(), extra.begin(), extra.end());
      const Result r = runCli(args);
      ASSERT_EQ(r.status, 0) << r.err;
    }
  }
  static void TearDownTestSuite() {
    delete tree_;
    tree_ = nullptr;
  }
  static std::string path(const std::string& sub) { return tree_->path(sub).string(); }

  // A session whose scratch folder holds the output of one run.
  struct Session {
    explicit Session(const std::string& run) {
      fs::create_directories(t.path("temp"));
      for (const auto& e : fs::directory_iterator(path("runs/" + run))) fs::copy_file(e.path(), t.path("temp") / e.path().filename());
      s.project.fileName = "office.inp";
      s.project.flags.runMade = true;
      s.project.flags.outputViewable = true;
    }
    std::string page() const { return form.text(); }
    TempInstall t;
    AppState s{Installation(t.dir())};
    FakePrompt prompt;
    TabularForm form{s, prompt};
  };

  static TempInstall* tree_;
};
TempInstall* Tabular::tree_ = nullptr;

int zoneHeaders(const std::string& text) {
  int n = 0;
  for (const std::string& l : splitLines(text)) n += l.rfind("*** PROJECT: ", 0) == 0;
  return n;
}

TEST_F(Tabular, FourZonesMakeOnePageAndFiveTwo) {
  Session four("four");
  four.form.showTable(2);
  EXPECT_EQ(four.form.caption(), "Zone Data -- office.inp");
  EXPECT_EQ(four.s.tabular.zonePageCount, 1);
  EXPECT_FALSE(four.form.nextEnabled());
  EXPECT_FALSE(four.form.previousEnabled());
  EXPECT_EQ(zoneHeaders(four.page()), 4);

  Session five("five");
  five.form.clickSummary(kTabZones);
  EXPECT_EQ(five.s.tabular.zonePageCount, 2);
  EXPECT_TRUE(five.form.nextEnabled());
  EXPECT_EQ(zoneHeaders(five.page()), 4);  // the heading and four zones
  const std::string first = five.page();
  five.form.clickPage(1);
  EXPECT_EQ(five.s.tabular.zonePage, 2);
  EXPECT_FALSE(five.form.nextEnabled());
  EXPECT_TRUE(five.form.previousEnabled());
  // The fifth zone's "***" line closed the first page and is dropped: the
  // second page starts at its second header line.
  EXPECT_EQ(zoneHeaders(five.page()), 0);
  EXPECT_NE(five.page().find("ZONE"), std::string::npos);
  five.form.clickPage(2);
  EXPECT_EQ(five.page(), first);

  // A second click does not cut again: the page in hand is shown.
  five.form.clickPage(1);
  fs::remove(five.t.path("temp/tabzone.txt"));
  five.form.clickSummary(kTabProject);
  five.form.clickSummary(kTabZones);
  EXPECT_FALSE(five.t.exists("temp/tabzone.txt"));
  EXPECT_EQ(five.s.tabular.zonePage, 2);
  EXPECT_TRUE(five.prompt.log.empty());
}

TEST_F(Tabular, SpansUnderTheirCaptionsAndTheButtons) {
  Session s("five");
  const std::array<std::pair<int, const char*>, 6> spans = {{{kTabProject, "Project Data"},
                                                             {kTabSummaries, "Monthly Summaries"},
                                                             {kTabHvac, "Design Data for HVAC Zones"},
                                                             {kTabPeaks, "Peak Demand Profiles"},
                                                             {kTabCosts, "Cost Analysis"},
                                                             {kTabWeather, "Weather Summary"}}};
  for (const auto& [button, title] : spans) {
    s.form.clickSummary(button);
    EXPECT_EQ(s.form.caption(), std::string(title) + " -- office.inp");
    EXPECT_FALSE(s.form.summaryEnabled(button));
    EXPECT_FALSE(s.form.summaryEnabled(kTabHourly));  // no hourly files in this run
    EXPECT_TRUE(s.form.summaryEnabled(button == kTabProject ? kTabZones : kTabProject));
    EXPECT_FALSE(s.page().empty()) << title;
  }
  s.form.clickSummary(kTabCosts);
  EXPECT_EQ(s.page().substr(0, 4), "VII.");
  s.form.clickSummary(kTabProject);
  EXPECT_NE(s.page().find("Small Office (sample)"), std::string::npos);
  EXPECT_EQ(s.page().find("\nII."), std::string::npos);  // stops before section II
  EXPECT_EQ(std::string(kTabularCaptions[kTabSummaries]), "Summaries");
}

TEST_F(Tabular, WeatherPagesSplitAfterSevenMonths) {
  Session year("five");
  year.form.clickSummary(kTabWeather);
  EXPECT_TRUE(year.form.nextEnabled());  // twelve months: a second page
  const std::string first = year.page();
  year.form.clickPage(1);
  EXPECT_NE(year.page(), first);
  EXPECT_FALSE(year.form.nextEnabled());
  EXPECT_TRUE(year.form.previousEnabled());
  EXPECT_FALSE(year.form.summaryEnabled(kTabWeather));
  year.form.clickPage(2);
  EXPECT_EQ(year.page(), first);

  // Exactly seven months: the section's heading counts as the first block,
  // so the count stops at seven and the next page stays off (July stands on
  // a page the button never reaches, as the rule has it).
  Session seven("seven");
  seven.form.clickSummary(kTabWeather);
  EXPECT_FALSE(seven.form.nextEnabled());
  EXPECT_EQ(seven.t.read("temp/2wth.txt").substr(0, 20), " DAILY WEATHER, JULY");
}

TEST_F(Tabular, ACostSpanEndsAtVIIIWithOrWithoutItsPoint) {
  Session s("five");
  std::string report = s.t.read("temp/ecalc$.out");
  const std::size_t at = report.find("\nVIII.");
  ASSERT_NE(at, std::string::npos);
  s.form.clickSummary(kTabCosts);
  const std::string with = s.page();
  report.replace(at, 6, "\nVIII ");
  s.t.write("temp/ecalc$.out", report);
  s.form.clickSummary(kTabProject);
  s.form.clickSummary(kTabCosts);
  EXPECT_EQ(s.page(), with);
}

TEST_F(Tabular, ComfortPagesOfAPassiveRunForwardAndBack) {
  Session s("passive");
  s.form.showTable(8);
  EXPECT_EQ(s.form.caption(), "Space Comfort Conditions -- office.inp");
  const int pages = s.s.tabular.comfortPageCount;
  ASSERT_GE(pages, 2);
  EXPECT_TRUE(s.form.nextEnabled());
  EXPECT_FALSE(s.form.previousEnabled());
  const std::string first = s.page();
  int steps = 0;
  while (s.form.nextEnabled() && steps < 50) {
    s.form.clickPage(1);
    ++steps;
  }
  EXPECT_EQ(steps, pages - 1);
  EXPECT_TRUE(s.form.previousEnabled());
  while (s.form.previousEnabled() && steps > -50) {
    s.form.clickPage(2);
    --steps;
  }
  EXPECT_EQ(steps, 0);
  EXPECT_EQ(s.page(), first);
  EXPECT_TRUE(s.form.nextEnabled());
}

TEST_F(Tabular, LeavingWithUnsavedResultsAsks) {
  Session s("five");
  s.form.clickSummary(kTabProject);
  s.prompt.answers = {Answer::Cancel, Answer::Yes, Answer::No};
  EXPECT_EQ(s.form.clickMainMenu(), TabularForm::Leave::Stay);
  EXPECT_EQ(s.form.clickMainMenu(), TabularForm::Leave::SaveOutput);
  EXPECT_EQ(s.form.clickMainMenu(), TabularForm::Leave::Close);
  EXPECT_EQ(s.prompt.log[0].title, "Save Output");
  EXPECT_EQ(s.prompt.log[0].text, "The simulation results have not been saved.  Do you want to save them?");
  EXPECT_EQ(s.page(), "");
  s.s.project.flags.outputSaved = true;
  EXPECT_EQ(s.form.clickMainMenu(), TabularForm::Leave::Close);
  EXPECT_EQ(s.prompt.log.size(), 3u);
}

TEST_F(Tabular, AStoredOutputOpensInANewSession) {
  TempInstall t;
  fs::create_directories(t.path("temp"));
  AppState s{Installation(t.dir())};
  FakePrompt prompt;
  s.results = {6, 1};  // project data asked for with no output current
  ViewOutputForm refuse(s, prompt, 6);
  EXPECT_EQ(refuse.pattern(), "*.ot*");
  EXPECT_FALSE(refuse.clickOk(path("sample"), "saved"));
  EXPECT_FALSE(refuse.clickOk(path("sample"), "saved.fl1"));
  EXPECT_EQ(prompt.log.size(), 2u);
  EXPECT_EQ(prompt.log[0].title, "Error");

  ViewOutputForm view(s, prompt, 6);
  const auto shown = view.clickOk(path("sample"), "saved.ot1");
  ASSERT_TRUE(shown);
  EXPECT_EQ(shown->kind, ViewOutputForm::View::Table);
  EXPECT_EQ(shown->number, 1);
  EXPECT_EQ(t.read("temp/ecalc$.out"), tree_->read("sample/saved.ot1"));
  EXPECT_EQ(s.project.outputFileName, path("sample/saved.ot1"));
  EXPECT_TRUE(s.project.flags.outputViewable);
  EXPECT_FALSE(s.project.flags.hourlyOutputMade);  // saved without hourly files
  TabularForm tab(s, prompt);
  tab.showTable(shown->number);
  EXPECT_NE(tab.text().find("Small Office (sample)"), std::string::npos);

  // Any output (12) forgets what was asked for and opens on the breakdown.
  ViewOutputForm any(s, prompt, 12);
  const auto chart = any.clickOk(path("sample"), "saved.ot1");
  ASSERT_TRUE(chart);
  EXPECT_EQ(chart->kind, ViewOutputForm::View::Chart);
  EXPECT_EQ(chart->number, 7);

  // A comfort file goes to the comfort table.
  ViewOutputForm comfort(s, prompt, 7);
  EXPECT_EQ(comfort.pattern(), "*.fl*");
  const auto c = comfort.clickOk(path("sample"), "comfort-fl1.flt");
  EXPECT_FALSE(c);  // the name must end in .fl and a digit
  tree_->write("sample/copy.fl1", tree_->read("sample/comfort-fl1.flt"));
  const auto pages = comfort.clickOk(path("sample"), "copy.fl1");
  ASSERT_TRUE(pages);
  EXPECT_EQ(pages->kind, ViewOutputForm::View::Comfort);
  tab.showTable(pages->number);
  EXPECT_EQ(tab.caption().substr(0, 24), "Space Comfort Conditions");
  EXPECT_FALSE(tab.text().empty());
}

TEST(StoredOutput, TheComfortTableIsRebuiltFromTheReportByItems) {
  const std::string report = "VIII.  WEATHER\r\nx, y\r\nIX.  SPACE COMFORT, page 1\r\n   ZONE  12, \"a, b\"\r\n";
  EXPECT_EQ(comfortFromReport(report), "IX.  SPACE COMFORT\r\npage 1\r\nZONE  12\r\na, b\r\n");
}

}  // namespace
}  // namespace marloven::testing
