// A lighting profile edited on the profile screen, chosen by every zone of
// the sample office, saved and run: the lighting energy follows the profile.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "input/zone_forms.h"
#include "project/project_reader.h"
#include "run_cli.h"
#include "schedules/profiles.h"
#include "shell/lifecycle.h"
#include "shell/main_menu.h"
#include "shell/startup.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

namespace fs = std::filesystem;

double lightingOf(const std::string& out) {
  const auto at = out.find("  lighting ");
  if (at == std::string::npos) return -1;
  return std::stod(out.substr(at + 11));
}

std::string halved(const std::string& values) {
  std::istringstream in(values);
  std::ostringstream out;
  double v = 0;
  while (in >> v) out << ' ' << v / 2;
  return out.str();
}

TEST(ProfileRun, AHalvedLightingProfileChosenByEveryZoneHalvesTheLighting) {
  setenv("MARLOVEN_TARN64", TARN_BINARY, 1);
  TempInstall tree;
  fs::copy(INSTALL_DATA, tree.root(), fs::copy_options::recursive | fs::copy_options::overwrite_existing);
  const fs::path cwd = fs::current_path();
  AppState s{Installation(tree.dir())};
  loadStartupTables(s.install, s.tables);
  FakePrompt prompt;
  MainMenu menu(s, prompt);
  Lifecycle life(s, prompt, menu, [] { return 0.5; });
  ASSERT_TRUE(life.retrieve(tree.path("sample").string(), "office", true));
  const int zones = s.project.zoneCount;
  ASSERT_GE(zones, 2);
  const std::string before = s.project.profiles.kinds[4][1].values;
  ASSERT_EQ(profileValueCount(before, false), 24);

  ASSERT_EQ(life.enterZones(), Next::ZoneList);
  ZoneListForm list(s, prompt);
  for (int z = 1; z <= zones; ++z) {
    ASSERT_TRUE(list.openZone(z));
    ZoneForm form(s, prompt);
    form.open();
    ASSERT_EQ(form.chooseProfile(4), ZoneForm::Next::ProfileScreen);
    ProfileForm lights(s, prompt, 4);
    lights.clickLabel(2);  // entry 2: the first zone fills it, the rest take it
    if (z == 1) {
      lights.clickText(2);
      lights.textChanged(2, halved(before));
    }
    ASSERT_TRUE(lights.clickOk());
    ASSERT_EQ(lights.chosen(), 2);
    form.profilesClosed(4, lights.chosen());
    ASSERT_TRUE(form.clickOk());
  }
  ASSERT_TRUE(list.back());
  ASSERT_EQ(life.saveRequested(), Next::SaveInputDialog);
  life.saveInput(tree.path("sample").string(), "office-half", UnitSystem::IP);
  ASSERT_TRUE(tree.exists("sample/office-half.inp"));

  // The file holds the new profile and every zone points at it.
  Project back;
  readProject(tree.read("sample/office-half.inp"), back);
  EXPECT_EQ(back.profiles.kinds[4][1].values, before);
  EXPECT_EQ(profileValueCount(back.profiles.kinds[4][2].values, false), 24);
  EXPECT_EQ(back.profiles.kinds[4][2].values, halved(before));
  for (int z = 1; z <= zones; ++z) EXPECT_EQ(std::stoi(back.zones[z].fields[kLightProfile]), 2) << z;

  fs::current_path(cwd);
  const Result base = runCli({"--install", tree.dir(), "run", tree.path("sample/office.inp").string(), "--repeat-weather"});
  ASSERT_EQ(base.status, 0) << base.err;
  const Result half =
      runCli({"--install", tree.dir(), "run", tree.path("sample/office-half.inp").string(), "--repeat-weather"});
  ASSERT_EQ(half.status, 0) << half.err;
  const double a = lightingOf(base.out), b = lightingOf(half.out);
  ASSERT_GT(a, 0) << base.out;
  EXPECT_NEAR(b / a, 0.5, 0.05) << base.out << half.out;
}

}  // namespace
}  // namespace marloven::testing
