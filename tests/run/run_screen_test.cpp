// The run screen's states: options as highlighted labels, the status line
// through a run, the engine's end and Review Results.
#include "run/run_screen.h"

#include <gtest/gtest.h>

#include "common/file_io.h"
#include "project/project_reader.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

namespace marloven {
namespace {

using testing::FakePrompt;

struct Screen {
  Screen() {
    tree.write("btype/tcool.dat", readFile(std::string(INSTALL_DATA) + "/btype/tcool.dat"));
    tree.write("sample/office.inp", readFile(std::string(INSTALL_DATA) + "/sample/office.inp"));
    loadProjectFile(tree.dir(), tree.path("sample/office.inp").string(), state.project);
    state.project.flags.runKind = 3;
    screen.load("10:15:00");
    screen.activate();
  }
  std::string scratch() const { return tree.path("temp").string(); }

  testing::TempInstall tree;
  AppState state{Installation(tree.dir())};
  FakePrompt prompt;
  RunScreen screen{state, prompt};
};

TEST(RunScreen, ElapsedTimeAsTheMaskShowsIt) {
  EXPECT_EQ(elapsedText(12.345), "12.35");
  EXPECT_EQ(elapsedText(0.5), ".5");
  EXPECT_EQ(elapsedText(3), "3.");
  EXPECT_EQ(elapsedText(120.1), "120.1");
}

TEST(RunScreen, OptionsAreTheHighlightedLabels) {
  Screen s;
  RunScreen& r = s.screen;
  EXPECT_EQ(r.caption(), "Run Energy Simulation -- " + s.state.project.fileName);
  EXPECT_EQ(r.status(), "Run Status Indicator...  Time=10:15:00");
  EXPECT_EQ(r.choices().weeks, (std::array<bool, 4>{false, false, false, true}));
  EXPECT_EQ(r.choices().designTemps[0], s.state.project.designTemps.values[1]);
  r.clickWeek(1);
  EXPECT_EQ(r.choices().weeks, (std::array<bool, 4>{false, true, false, false}));
  r.clickWeek(1);  // a highlighted one goes plain: none is left
  EXPECT_EQ(r.choices().weeks, (std::array<bool, 4>{}));
  r.clickMonth(6);
  r.clickMonth(7);
  r.clickMonth(6);
  EXPECT_TRUE(r.choices().skip[7]);
  EXPECT_FALSE(r.choices().skip[6]);

  EXPECT_TRUE(r.clickWeather(1));  // the file screen comes next
  EXPECT_EQ(r.choices().weeks, (std::array<bool, 4>{false, false, false, true}));
  EXPECT_FALSE(r.designTempsEnabled());
  r.clickWeek(0);  // recorded weather keeps week 4
  EXPECT_EQ(r.choices().weeks, (std::array<bool, 4>{false, false, false, true}));
  s.state.project.flags.recordedWeatherPicked = true;
  EXPECT_FALSE(r.clickWeather(0));
  EXPECT_FALSE(s.state.project.flags.recordedWeatherPicked);
  EXPECT_TRUE(r.designTempsEnabled());
  r.yearChanged("2019");
  EXPECT_EQ(s.state.project.data[kConstructionYear], "2019");
}

TEST(RunScreen, ARunGoesFromSetUpThroughRunningToFinished) {
  Screen s;
  RunScreen& r = s.screen;
  EXPECT_TRUE(r.executeEnabled());
  EXPECT_FALSE(r.reviewEnabled());
  r.executePressed("10:16:00");
  EXPECT_EQ(r.status(), "Simulation Started at 10:16:00 Please Stand By");
  ASSERT_TRUE(r.execute(s.scratch(), [] { return 0.5; }, {"23 Nov 2026", "10:16"}));
  EXPECT_EQ(r.stage(), RunScreen::Stage::Running);
  EXPECT_FALSE(r.executeEnabled());
  EXPECT_FALSE(r.reviewEnabled());
  EXPECT_TRUE(r.progressVisible());
  for (int i = 0; i < 8; ++i) r.tick("10:16:0" + std::to_string(i + 1));
  EXPECT_EQ(r.status(), "Run Status Indicator...  Time=10:16:08");
  EXPECT_EQ(r.progress(), 30);  // 30 + 10 a second: 100 after seven, back to 30 past it

  // The engine's files, as it leaves them.
  for (const char* f : {"sim$.out", "ecalc$.wth", "ecalc$.flt"}) s.tree.write(std::string("temp/") + f, std::string(f) + "\r\n");
  r.engineEnded("10:16:09", 8.456, 0, "", s.scratch());
  EXPECT_EQ(r.stage(), RunScreen::Stage::Finished);
  EXPECT_EQ(r.status(), "Simulation Completed at 10:16:09\rTotal time = 8.46 Sec.");
  EXPECT_TRUE(r.problems().empty());
  EXPECT_TRUE(r.reviewEnabled());
  EXPECT_FALSE(r.cancelEnabled());

  const std::string front = s.tree.read("temp/ecalc$.out");
  ASSERT_TRUE(r.reviewResults(s.scratch()));
  EXPECT_EQ(s.tree.read("temp/ecalc$.out"), front + "sim$.out\r\necalc$.wth\r\necalc$.flt\r\n");
  const ProjectFlags& f = s.state.project.flags;
  EXPECT_TRUE(f.outputViewable);
  EXPECT_FALSE(f.outputSaved);
  EXPECT_FALSE(f.inputSaved);
  EXPECT_EQ(f.runKind, 0);
  EXPECT_TRUE(f.runMade);
  EXPECT_TRUE(s.prompt.log.empty());
}

TEST(RunScreen, AFailedSetUpStaysInSetUp) {
  Screen s;
  s.screen.choices().weeks = {};
  EXPECT_FALSE(s.screen.execute(s.scratch(), [] { return 0.5; }, {"23 Nov 2026", "10:16"}));
  EXPECT_EQ(s.screen.stage(), RunScreen::Stage::SetUp);
  EXPECT_TRUE(s.screen.executeEnabled());
  EXPECT_EQ(s.prompt.log.back().title, "Simulation length");
}

TEST(RunScreen, AnEngineThatFailsOrIsMissingIsSaidSo) {
  Screen s;
  ASSERT_TRUE(s.screen.execute(s.scratch(), [] { return 0.5; }, {"23 Nov 2026", "10:16"}));
  s.tree.write("temp/tarn64.err", "ERROR ecalc$.tmy: the recorded weather file is missing\r\nSTATUS 2\r\n");
  s.screen.engineEnded("10:17:00", 1, 2, "", s.scratch());
  EXPECT_EQ(s.screen.problems(), std::vector<std::string>{"ERROR ecalc$.tmy: the recorded weather file is missing"});
  EXPECT_NE(s.screen.status().find("did not finish"), std::string::npos);
  EXPECT_TRUE(s.screen.reviewEnabled());

  Screen missing;  // could not be started: the error report, and still finished
  ASSERT_TRUE(missing.screen.execute(missing.scratch(), [] { return 0.5; }, {"23 Nov 2026", "10:16"}));
  missing.screen.engineEnded("10:17:00", 0.01, -1, "No such file or directory", missing.scratch());
  ASSERT_EQ(missing.prompt.log.size(), 1u);
  EXPECT_EQ(missing.prompt.log[0].title, "Marloven Error #  53");
  EXPECT_EQ(missing.screen.stage(), RunScreen::Stage::Finished);
  // Review Results then finds no engine output: the error report, nothing joined.
  const std::string front = missing.tree.read("temp/ecalc$.out");
  EXPECT_FALSE(missing.screen.reviewResults(missing.scratch()));
  EXPECT_EQ(missing.tree.read("temp/ecalc$.out"), front);
}

}  // namespace
}  // namespace marloven
