// A new project from its first step to a run, through the screens' logic: a
// building type, the weather, a two-zone sketch extracted, zone entry, both
// zones opened and edited, back to the menu, saved, read back and run.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "common/file_io.h"
#include "input/project_info.h"
#include "input/zone_forms.h"
#include "project/project_reader.h"
#include "run_cli.h"
#include "shell/lifecycle.h"
#include "shell/main_menu.h"
#include "sketch/extract_zones.h"
#include "sketch/level_files.h"
#include "sketch/sketch_test_util.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"
#include "weather/weather_form.h"

namespace marloven::testing {
namespace {

namespace fs = std::filesystem;

TEST(WholeRoad, ANewProjectFromTheBuildingTypeToARun) {
  setenv("MARLOVEN_TARN64", TARN_BINARY, 1);
  TempInstall tree;
  fs::copy(INSTALL_DATA, tree.root(), fs::copy_options::recursive | fs::copy_options::overwrite_existing);
  const fs::path cwd = fs::current_path();
  AppState s{Installation(tree.dir())};
  s.project.units = UnitSystem::IP;
  s.tables.today.year = 2026;
  FakePrompt prompt;
  MainMenu menu(s, prompt);
  Lifecycle life(s, prompt, menu, [] { return 0.5; });

  // Step 1: the building type fills the project.
  ProjectInfoForm info(s, prompt);
  info.open();
  info.chooseBuildingType(24);
  info.textChanged(kProjectName, "Two Rooms");
  ASSERT_TRUE(info.clickOk());
  // Step 2: the weather of a place.
  WeatherForm weather(s, prompt);
  weather.open();
  const auto& groups = weather.groups();
  weather.chooseGroup(static_cast<int>(std::find(groups.begin(), groups.end(), "Colorado") - groups.begin()));
  ASSERT_TRUE(weather.clickOk());
  // Step 4: two zones side by side, 40 x 30 ft each, extracted on leaving the sketch.
  ASSERT_EQ(life.openSketch(), Next::Sketch);
  Building b;
  b.level(Plan().rect(10, 10, 15, 20, 1).rect(10, 30, 15, 20, 2));
  b.save(tree.dir());
  b.m.levelCount = 1;
  ASSERT_EQ(extractZones(b.m, tree.dir(), s.project, prompt), ExtractOutcome::Done) << prompt.log.size();
  ASSERT_EQ(s.project.zoneCount, 2);
  // Step 5: zone entry, each zone opened and edited, back to the menu.
  ASSERT_EQ(life.enterZones(), Next::ZoneList);
  ZoneListForm list(s, prompt);
  for (int z = 1; z <= 2; ++z) {
    ASSERT_TRUE(list.openZone(z));
    ZoneForm form(s, prompt);
    form.open();
    form.textChanged(kInternalMass, z == 1 ? "12" : "20");
    form.chooseAc(z == 1 ? 5 : 4);
    form.clickToggle(ZoneForm::kEconomizer);
    ASSERT_TRUE(form.clickOk());
  }
  ASSERT_TRUE(list.back());
  EXPECT_TRUE(prompt.log.empty()) << prompt.log.front().title << ": " << prompt.log.front().text;
  // Save, read back, run.
  ASSERT_EQ(life.saveRequested(), Next::SaveInputDialog);
  life.saveInput(tree.path("sample").string(), "two-rooms", UnitSystem::IP);
  ASSERT_TRUE(tree.exists("sample/two-rooms.inp"));
  Project back;
  readProject(tree.read("sample/two-rooms.inp"), back);
  EXPECT_EQ(back.data[kProjectName], "Two Rooms");
  EXPECT_EQ(back.zoneCount, 2);
  EXPECT_EQ(back.zones[1].fields[kInternalMass], "12");
  EXPECT_EQ(back.zones[2].fields[kInternalMass], "20");
  EXPECT_EQ(back.zones[1].fields[kCoolingType], " 5");
  EXPECT_EQ(back.zones[2].fields[kCoolingType], " 4");
  EXPECT_EQ(back.zones[2].fields[kFirstCost], s.project.zones[2].fields[kFirstCost]);
  EXPECT_NE(back.weather.lines[2].find("DENVER"), std::string::npos);
  EXPECT_GT(back.zones[1].rowCount, 0);
  fs::current_path(cwd);
  const Result r = runCli({"--install", tree.dir(), "run", tree.path("sample/two-rooms.inp").string()});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("energy use intensity"), std::string::npos);
  // Two zones of 15 x 20 cells of 2 ft: 1200 ft2 each.
  EXPECT_NE(r.out.find("(floor area 2400 ft2)"), std::string::npos) << r.out;
}

}  // namespace
}  // namespace marloven::testing
