// The clean-ups at exit and File New delete scratch files of one kind, in the
// scratch directory only.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "shell/startup.h"
#include "support/temp_install.h"

namespace marloven {
namespace {

using testing::TempInstall;
using Files = std::vector<std::string>;

// Scratch files of both kinds plus look-alikes that must survive, sorted as
// TempInstall::files() lists them.
const Files kScratch = {"sample/kept.tmp",   "sample/kept.zon",   "sketch/bld_mtx.all",
                        "temp/a.zonx",       "temp/bld.tmp",      "temp/ecalc$.unt",
                        "temp/sub/deep.tmp", "temp/sub/deep.zon", "temp/temp1.zon",
                        "temp/temp2.zon",    "temp/zon"};

void writeScratch(const TempInstall& t) {
  std::filesystem::create_directory(t.path("temp/sub"));
  for (const auto& f : kScratch) t.write(f, "x\r\n");
}

Files without(Files files, const Files& gone) {
  std::erase_if(files, [&](const auto& f) { return std::ranges::find(gone, f) != gone.end(); });
  return files;
}

TEST(KillZoneScratch, DeletesZoneFilesOnlyWhenTheSessionHadData) {
  const std::vector<std::pair<std::function<void(ProjectFlags&)>, bool>> cases = {
      {[](ProjectFlags&) {}, false},
      {[](ProjectFlags& f) { f.stepDone = {true, true, true, true, true, true}; }, false},
      {[](ProjectFlags& f) { f.profileKindLoaded[1] = true; }, true},
      {[](ProjectFlags& f) { f.profileKindLoaded[5] = true; }, true},
      {[](ProjectFlags& f) { f.profileKindTouched[3] = true; }, true},
      {[](ProjectFlags& f) { f.fromFile = true; }, true},
      {[](ProjectFlags& f) { f.inputSaved = true; }, true},
      {[](ProjectFlags& f) { f.sketchCount = 1; }, true}};
  for (std::size_t i = 0; i < cases.size(); ++i) {
    TempInstall t;
    writeScratch(t);
    Project p;
    cases[i].first(p.flags);
    killZoneScratch(Installation(t.dir()), p);
    EXPECT_EQ(t.files(), cases[i].second ? without(kScratch, {"temp/temp1.zon", "temp/temp2.zon"})
                                         : kScratch)
        << "case " << i;
  }
}

TEST(KillZoneScratch, MissingScratchDirectoryIsIgnored) {
  TempInstall t;
  std::filesystem::remove(t.path("temp"));
  Project p;
  p.flags.fromFile = true;
  EXPECT_NO_THROW(killZoneScratch(Installation(t.dir()), p));
}

TEST(ResetProject, DeletesTmpFilesOnlyWhenTheSketchWasOpened) {
  for (int sketches : {0, 2}) {
    TempInstall t;
    writeScratch(t);
    Project p;
    p.flags.sketchCount = sketches;
    p.flags.fromFile = p.flags.inputSaved = true;
    resetProject(Installation(t.dir()), p);
    EXPECT_EQ(t.files(), sketches > 0 ? without(kScratch, {"temp/bld.tmp"}) : kScratch);
    EXPECT_EQ(p.flags.sketchCount, 0);
  }
}

TEST(ResetProject, NamesFlagsAndTables) {
  TempInstall t;
  Project p;
  p.fileName = "/home/u/office.inp";
  ProjectFlags& f = p.flags;
  f.stepDone = {false, true, true, false, true, true};
  f.fromFile = f.weatherRereadPending = f.projectDataFilled = f.resketched = f.zonesOpened = true;
  f.runMade = f.outputViewable = f.inputSaved = f.anySaveSinceStart = true;
  f.daylightingInUse = f.zoneKey = f.buildingTypeChosen = f.recordedWeatherPicked = true;
  f.orientationEdited = f.floorAreaEdited = true;
  f.runKind = 3;
  f.profileKindLoaded[2] = f.profileKindTouched[4] = true;
  p.designTemps.values = {"", "95", "75", "20"};
  p.designTemps.known = true;
  p.zones[1].fields[kZoneName] = "Lobby";
  p.zones[1].rowCount = 4;
  p.zoneCount = 1;
  p.zones[1].opened = p.zones[100].exists = true;
  p.data[kProjectName] = p.economics[kElecCost] = p.weather.lines[1] = p.demand.text = "x";
  p.weeksPerMonth = 2;

  resetProject(Installation(t.dir()), p);

  EXPECT_EQ(p.previousName, "/home/u/office.inp");
  EXPECT_EQ(p.fileName, "NewProject.inp");
  EXPECT_FALSE(f.fromFile || f.weatherRereadPending || f.projectDataFilled || f.resketched ||
               f.zonesOpened || f.runMade || f.outputViewable || f.inputSaved ||
               f.anySaveSinceStart || f.daylightingInUse || f.zoneKey || f.buildingTypeChosen ||
               f.recordedWeatherPicked || f.orientationEdited || f.floorAreaEdited);
  EXPECT_EQ(f.runKind, 0);
  EXPECT_FALSE(f.profileKindLoaded[2] || f.profileKindTouched[4] || p.designTemps.known);
  EXPECT_FALSE(p.zones[1].opened || p.zones[100].exists);
  // Zone rows stay behind the zone count until a sketch or a file replaces them.
  EXPECT_EQ(p.zones[1].fields[kZoneName], "Lobby");
  EXPECT_EQ(p.zones[1].rowCount, 4);
  EXPECT_EQ(p.zoneCount, 0);
  EXPECT_EQ((std::vector<std::string>{p.designTemps.values[2], p.data[kProjectName],
                                      p.economics[kElecCost], p.weather.lines[1], p.demand.text}),
            std::vector<std::string>(5, ""));
  EXPECT_EQ(p.weeksPerMonth, 4);
  // The input steps belong to the main menu's File New, not to this reset.
  EXPECT_TRUE(f.stepDone[1]);
}

}  // namespace
}  // namespace marloven
