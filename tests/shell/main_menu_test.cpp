#include "shell/main_menu.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "support/fake_prompt.h"
#include "support/temp_install.h"

namespace marloven {
namespace {

namespace fs = std::filesystem;
using testing::FakePrompt;
using testing::TempInstall;

// The main screen moves the process into the installation; tests move back.
struct Fixture {
  ~Fixture() { fs::current_path(cwd); }
  fs::path cwd = fs::current_path();
  TempInstall tree;
  AppState state{Installation(tree.dir())};
  FakePrompt prompt;
  MainMenu menu{state, prompt};
};

TEST(MainMenu, CaptionNamesTheFileOnlyForAProjectFromAFile) {
  Project p;
  p.fileName = "/home/u/office.inp";
  EXPECT_EQ(mainMenuCaption(p), "-- New_Project.inp");
  p.flags.fromFile = true;
  EXPECT_EQ(mainMenuCaption(p), "-- /home/u/office.inp");
}

TEST(MainMenu, AtStartZonesRunAndAnalysisAreOff) {
  Fixture f;
  f.menu.activated();
  EXPECT_EQ(f.menu.caption(), "-- New_Project.inp");
  const std::vector<bool> expected = {false, true, true, true, true, false, false, false};
  for (int step = 0; step <= kMainMenuSteps + 1; ++step)
    EXPECT_EQ(f.menu.stepEnabled(step), expected[step]) << "step " << step;
  EXPECT_FALSE(f.menu.menuEnabled(MenuId::Analysis));
  for (MenuId m : {MenuId::File, MenuId::View, MenuId::Database, MenuId::Help})
    EXPECT_TRUE(f.menu.menuEnabled(m));
  EXPECT_TRUE(f.prompt.log.empty());
}

TEST(MainMenu, RunNeedsSteps1245ButNotEconomics) {
  const std::vector<std::pair<std::vector<int>, bool>> cases = {
      {{1, 2, 4, 5}, true}, {{2, 3, 4, 5}, false}, {{1, 3, 4, 5}, false},
      {{1, 2, 3, 5}, false}, {{1, 2, 3, 4}, false}};
  for (const auto& [done, enabled] : cases) {
    Fixture f;
    for (int s : done) f.state.project.flags.stepDone[s] = true;
    f.menu.activated();
    EXPECT_EQ(f.menu.menuEnabled(MenuId::Analysis), enabled) << ::testing::PrintToString(done);
    EXPECT_EQ(f.menu.stepEnabled(6), enabled) << ::testing::PrintToString(done);
  }
}

TEST(MainMenu, AcceptedProjectInformationOpensZonesAfterASketchAndRunForAFile) {
  {
    Fixture f;  // a new project: nothing more until the sketch was opened
    f.state.project.flags.stepDone[1] = true;
    f.menu.inputAccepted();
    EXPECT_FALSE(f.menu.stepEnabled(5));
    f.state.project.flags.stepDone[4] = true;
    f.menu.inputAccepted();
    EXPECT_TRUE(f.menu.stepEnabled(5));
    EXPECT_FALSE(f.menu.stepEnabled(6));
    EXPECT_FALSE(f.menu.menuEnabled(MenuId::Analysis));
  }
  {
    Fixture f;  // a project from a file runs as it stands
    f.state.project.flags.fromFile = true;
    f.menu.inputAccepted();
    EXPECT_TRUE(f.menu.stepEnabled(5));
    EXPECT_TRUE(f.menu.stepEnabled(6));
    EXPECT_TRUE(f.menu.menuEnabled(MenuId::Analysis));
  }
}

TEST(MainMenu, ActivationReturnsToTheInstallationAndAfterARunToTheRememberedName) {
  Fixture f;
  Project& p = f.state.project;
  p.flags.fromFile = true;
  p.fileName = "/tmp/run copy.inp";
  p.rememberedName = "/home/u/office.inp";
  fs::current_path(f.tree.path("sample"));
  f.menu.activated();
  EXPECT_EQ(fs::current_path(), fs::canonical(f.tree.root()));
  EXPECT_EQ(f.menu.caption(), "-- /tmp/run copy.inp");
  p.flags.runMade = true;
  f.menu.activated();
  EXPECT_EQ(p.fileName, "/home/u/office.inp");
  EXPECT_EQ(f.menu.caption(), "-- /home/u/office.inp");
}

TEST(MainMenu, ExitCleansZoneScratchOfAProjectFromAFile) {
  Fixture f;
  f.tree.write("temp/temp1.zon", "z");
  f.tree.write("temp/ecalc$.unt", "1\r\n");
  f.state.project.flags.fromFile = true;
  f.menu.exit();
  EXPECT_EQ(f.tree.files(), std::vector<std::string>{"temp/ecalc$.unt"});
}

}  // namespace
}  // namespace marloven
