#include "shell/mainform.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "common/error_report.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

namespace marloven {
namespace {

using testing::FakePrompt;
using testing::TempInstall;
using Log = std::vector<std::pair<std::string, std::string>>;

struct Fixture {
  TempInstall tree;
  AppState state{Installation(tree.dir())};
  FakePrompt prompt;
  MainForm form{state, prompt};
};

TEST(MainForm, ShownSelectsTheUnitsAndPressChangesThemWithoutAsking) {
  for (auto [units, option] : {std::pair{UnitSystem::IP, 1}, std::pair{UnitSystem::SI, 2}}) {
    Fixture f;
    f.state.project.units = units;
    f.form.shown();
    EXPECT_EQ(f.form.selectedUnit(), option);
    f.form.pressUnit(3 - option);
    EXPECT_EQ(f.state.project.units, option == 1 ? UnitSystem::SI : UnitSystem::IP);
    EXPECT_EQ(f.form.selectedUnit(), 3 - option);
    EXPECT_TRUE(f.prompt.log.empty());
    EXPECT_FALSE(f.tree.exists("temp/ecalc$.unt"));
  }
}

TEST(MainForm, ReleaseAsksAndOnlyYesRewritesTheChoice) {
  // option, answer, question, temp/ecalc$.unt afterwards (it held "0" before)
  const std::vector<std::tuple<int, Answer, std::string, std::string>> cases = {
      {1, Answer::Yes, "Set I-P Units as the default?", "1\r\n"},
      {2, Answer::Yes, "Set SI Units as the default?", "2\r\n"},
      {1, Answer::No, "Set I-P Units as the default?", "0\r\n"},
      {2, Answer::No, "Set SI Units as the default?", "0\r\n"}};
  for (const auto& [option, answer, question, file] : cases) {
    Fixture f;
    f.tree.write("temp/ecalc$.unt", "0\r\n");
    f.form.shown();
    f.form.pressUnit(option);
    f.prompt.answers = {answer};
    f.form.releaseUnit();
    EXPECT_EQ(f.prompt.titlesAndTexts(), (Log{{"Set Units", question}}));
    ASSERT_EQ(f.prompt.log.size(), 1u);
    EXPECT_EQ(f.prompt.log[0].kind, FakePrompt::Kind::Ask);
    EXPECT_EQ(f.prompt.log[0].buttons, Buttons::YesNo);
    EXPECT_EQ(f.prompt.log[0].icon, Icon::Question);
    EXPECT_EQ(f.tree.read("temp/ecalc$.unt"), file) << question;
  }
}

TEST(MainForm, FailedWriteGoesToTheErrorReport) {
  Fixture f;
  std::filesystem::remove(f.tree.path("temp"));
  f.form.shown();
  f.form.pressUnit(1);
  f.prompt.answers = {Answer::Yes};
  EXPECT_NO_THROW(f.form.releaseUnit());
  ASSERT_EQ(f.prompt.log.size(), 2u);
  const auto& report = f.prompt.log[1];
  EXPECT_EQ(report.kind, FakePrompt::Kind::Message);
  EXPECT_EQ(report.icon, Icon::Exclamation);
  EXPECT_EQ(report.title.rfind("Marloven Error # ", 0), 0u) << report.title;
  // The unit system stays as pressed: only remembering it failed.
  EXPECT_EQ(f.state.project.units, UnitSystem::IP);
}

TEST(MainForm, ContinueNeedsASelectionAndCaptionsTheMainScreen) {
  Fixture f;
  EXPECT_FALSE(f.form.clickContinue());
  EXPECT_EQ(f.prompt.titlesAndTexts(), (Log{{"Select Units", "Please select Units"}}));
  EXPECT_EQ(f.form.mainMenuCaption(), "");
  f.prompt.log.clear();
  f.state.project.units = UnitSystem::IP;
  f.form.shown();
  EXPECT_TRUE(f.form.clickContinue());
  EXPECT_EQ(f.state.project.units, UnitSystem::IP);
  EXPECT_EQ(f.form.mainMenuCaption(), "-- New_Project");
  EXPECT_TRUE(f.prompt.log.empty());
}

TEST(MainForm, CloseBoxEndsTheProgramOnlyWhileNoInputStepIsDone) {
  const Log warning = {
      {"Exit Warning", "You may only exit from the File menu on the Main menu screen, press OK"}};
  for (int step = 0; step <= kInputSteps; ++step) {  // 0: none done
    Fixture f;
    f.state.project.flags.stepDone[step] = step > 0;
    EXPECT_EQ(f.form.closeRequested(), step == 0) << "step " << step;
    EXPECT_EQ(f.prompt.titlesAndTexts(), step == 0 ? Log{} : warning) << "step " << step;
  }
}

TEST(ErrorReport, TitleCarriesTheNumberAndTheMessageIsTheProgramsOwn) {
  FakePrompt prompt;
  reportError(prompt, FileError(53));
  reportError(prompt, 61);
  ASSERT_EQ(prompt.log.size(), 2u);
  EXPECT_EQ(prompt.log[0].icon, Icon::Exclamation);
  EXPECT_EQ(prompt.titlesAndTexts(),
            (Log{{"Marloven Error #  53",
                  "Bad file name, or some files are missing, or your input is not complete. "
                  "Re-check your program input data."},
                 {"Marloven Error #  61", "Disk is full.  Save to another disk."}}));
}

}  // namespace
}  // namespace marloven
