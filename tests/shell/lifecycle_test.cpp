#include "shell/lifecycle.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <string>

#include "common/file_error.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "project/project_reader.h"
#include "support/fake_prompt.h"
#include "project/file_names.h"
#include "shell/startup.h"
#include "support/temp_install.h"

namespace marloven {
namespace {

using testing::FakePrompt;
using testing::TempInstall;
using testing::crlf;
using Pairs = std::vector<std::pair<std::string, std::string>>;

const std::string kFixture = std::string(FIXTURE_DIR) + "/full_project.inp";

// A started program over a temporary installation, with its main menu and a
// seed source that counts 0.25, 0.5, ...
// Columns 11-20 of a project file's first line.
std::string readProjectSeed(const std::string& path) {
  Project p;
  readHeader(splitLines(readFile(path)).front(), p);
  return p.seed;
}

struct Session {
  TempInstall t;
  AppState s;
  FakePrompt prompt;
  MainMenu menu{s, prompt};
  double nextSeed = 0.25;
  Lifecycle life{s, prompt, menu, [this] { double v = nextSeed; nextSeed += 0.25; return v; }};

  Session() {
    t.writeStartupData();
    s.install = Installation(t.dir());
    setStartupDefaults(s.project);
  }
  Project& p() { return s.project; }
  // The fixture retrieved from the tree's root folder.
  void retrieveFixture(const std::string& as = "school") {
    t.write(as + ".inp", readFile(kFixture));
    ASSERT_TRUE(life.retrieve(t.dir(), as));
  }
};

TEST(FileNames, RetrieveSaveAndOutputNames) {
  EXPECT_EQ(retrievePath("/d", "a"), "/d/a.inp");
  EXPECT_EQ(retrievePath("/d", "a.INP"), "/d/a.INP");
  EXPECT_EQ(retrievePath("/d", "/x/a.txt"), "/x/a.txt.inp");
  EXPECT_EQ(savePath("/d", "a"), "/d/a.inp");
  EXPECT_EQ(savePath("/d", "a.txt"), "/d/a.inp");
  EXPECT_EQ(savePath("/d", "C:\\p\\a.INP"), "C:\\p\\a.INP");
  EXPECT_EQ(savePath("/d.v2", "a"), "/d.v2/a.inp");
  EXPECT_TRUE(isOutputName("trial.ot1"));
  EXPECT_TRUE(isOutputName("trial.FL9"));
  EXPECT_FALSE(isOutputName("project.ot"));
  EXPECT_FALSE(isOutputName("trial.otx"));
  const OutputFiles f = outputFiles("/r/project.ot1");
  EXPECT_EQ(f.comfort, "/r/project-ot1.flt");
  EXPECT_EQ(f.energy, "/r/project-ot1-Energy.hry");
  EXPECT_EQ(f.temperatures, "/r/project-ot1-Temp.hry");
  EXPECT_EQ(f.weather, "/r/project-ot1-Weth.hry");
}

TEST(Lifecycle, SaveRefusalsComeInOrderUnderTheirTitles) {
  Session x;
  x.p().flags.resketched = true;
  EXPECT_EQ(x.life.saveRequested(), Next::Stay);
  x.p().flags.resketched = false;
  EXPECT_EQ(x.life.saveRequested(), Next::Stay);
  x.p().flags.stepDone[2] = true;
  EXPECT_EQ(x.life.saveRequested(), Next::Stay);
  x.p().flags.stepDone[4] = true;
  x.p().flags.runKind = 3;
  EXPECT_EQ(x.life.saveRequested(), Next::SaveInputDialog);
  EXPECT_EQ(x.p().flags.runKind, 0);
  EXPECT_EQ(x.prompt.titlesAndTexts(),
            (Pairs{{"Error", "The building has been re-sketched.  Please examine the zone descriptions before saving."},
                   {"Weather Data", "Please enter the weather data before saving the input file."},
                   {"Building Sketch", "Please sketch your building before saving the input file."}}));
}

TEST(Lifecycle, NewAsksOnlyAfterInputAndResetsOnYes) {
  Session x;
  EXPECT_TRUE(x.life.newProject());
  EXPECT_TRUE(x.prompt.log.empty());
  x.p().flags.stepDone[1] = true;
  x.prompt.answers = {Answer::No, Answer::Yes};
  EXPECT_FALSE(x.life.newProject());
  EXPECT_TRUE(x.p().flags.stepDone[1]);
  EXPECT_TRUE(x.life.newProject());
  EXPECT_FALSE(x.p().flags.stepDone[1]);
  EXPECT_FALSE(x.menu.menuEnabled(MenuId::Analysis));
  EXPECT_FALSE(x.menu.stepEnabled(5));
  EXPECT_EQ(x.prompt.titlesAndTexts()[1].first, "Warning...");
}

TEST(Lifecycle, ARetrievedProjectIsRunnableAtOnce) {
  Session x;
  x.retrieveFixture();
  EXPECT_EQ(x.menu.caption(), "-- " + x.t.dir() + "/school.inp");
  EXPECT_TRUE(x.menu.menuEnabled(MenuId::Analysis));
  EXPECT_TRUE(x.menu.stepEnabled(6));
  x.prompt.answers = {Answer::Yes};  // run without saving
  EXPECT_EQ(x.life.runRequested(3), Next::RunSimulation);
}

TEST(Lifecycle, RetrievingOverALoadedProjectClearsTheDemandPairs) {
  Session x;
  x.retrieveFixture();
  ASSERT_EQ(x.p().demand.pairCount, 2);
  // The same project without a schedule: the reader alone would keep the pairs.
  auto lines = splitLines(readFile(kFixture));
  std::string bytes;
  for (const auto& l : lines)
    if (l.rfind("DemChgRate", 0) != 0) bytes += (l.rfind("DemCharge", 0) == 0 ? "DemCharge  N" : l) + "\r\n";
  x.t.write("plain.inp", bytes);
  ASSERT_TRUE(x.life.retrieve(x.t.dir(), "plain.inp"));
  EXPECT_EQ(x.p().demand.pairCount, 0);
  EXPECT_EQ(x.p().demand.pairs[1].first, "");
}

TEST(Lifecycle, AFileThatCannotBeReadLeavesTheProjectAndReports) {
  Session x;
  x.retrieveFixture();
  const std::string name = x.p().data[1];
  EXPECT_FALSE(x.life.retrieve(x.t.dir(), "missing"));
  EXPECT_EQ(x.p().data[1], name);
  EXPECT_EQ(x.prompt.log.back().title, "Marloven Error #  53");
}

TEST(Lifecycle, SaveGivesAFirstSeedKeepsItAndConvertsWhenAsked) {
  Session x;
  x.t.write("s.inp", readFile(kFixture));
  ASSERT_TRUE(x.life.retrieve(x.t.dir(), "s"));
  x.p().flags.fromFile = false;  // as a new project that was never saved
  x.p().units = UnitSystem::IP;
  EXPECT_EQ(x.life.saveInput(x.t.dir(), "first", UnitSystem::IP), Next::Stay);
  EXPECT_EQ(x.p().seed, " .25      ");  // columns 11-20 as read back
  EXPECT_TRUE(x.p().flags.fromFile && x.p().flags.inputSaved && x.p().flags.anySaveSinceStart);
  EXPECT_EQ(x.p().fileName, x.t.dir() + "/first.inp");
  // A later save, in SI: same seed, the file says SI and so does the model now.
  EXPECT_EQ(x.life.saveInput(x.t.dir(), "second.txt", UnitSystem::SI), Next::Stay);
  EXPECT_EQ(x.p().seed, " .25      ");  // columns 11-20 as read back
  EXPECT_EQ(x.p().units, UnitSystem::SI);
  const auto header = splitLines(x.t.read("second.inp")).front();
  EXPECT_EQ(header.substr(0, 20), "MARLOVEN   .25      ");
  EXPECT_TRUE(header.ends_with("SI")) << header;
}

TEST(Lifecycle, AFailedWriteKeepsTheOldFileAndReports) {
  Session x;
  x.retrieveFixture("keep");
  const std::string old = x.t.read("keep.inp");
  // An injected write error: files may not grow past 100 bytes.
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit saved{};
  getrlimit(RLIMIT_FSIZE, &saved);
  rlimit small = saved;
  small.rlim_cur = 100;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const Next n = x.life.saveInput(x.t.dir(), "keep", UnitSystem::SI);
  setrlimit(RLIMIT_FSIZE, &saved);
  EXPECT_EQ(n, Next::Stay);
  EXPECT_EQ(x.t.read("keep.inp"), old);
  EXPECT_EQ(x.prompt.log.back().title.rfind("Marloven Error # ", 0), 0u);
  for (const auto& f : x.t.files()) EXPECT_EQ(f.find(".tmp-"), std::string::npos) << f;
}

TEST(Lifecycle, RunIsRefusedAfterResketchingAndErrorCheckWritesTheRunCopy) {
  Session x;
  x.retrieveFixture();
  x.p().flags.resketched = true;
  EXPECT_EQ(x.life.runRequested(2), Next::Stay);
  x.p().flags.resketched = false;
  x.p().flags.sketchCount = 1;
  x.prompt.answers = {Answer::No, Answer::Yes};
  EXPECT_EQ(x.life.runRequested(1), Next::Stay);  // No to the sketch warning
  EXPECT_FALSE(x.t.exists("temp/ecalc$.inp"));
  EXPECT_EQ(x.life.runRequested(1), Next::Stay);
  EXPECT_EQ(x.t.read("temp/ecalc$.tmp"), "1\r\n");
  EXPECT_TRUE(splitLines(x.t.read("temp/ecalc$.inp")).front().ends_with("IP"));
  EXPECT_EQ(x.prompt.log[0].text,
            "The building has been re-sketched. Please examine the zone descriptions before executing.");
  EXPECT_EQ(x.prompt.log[1].title, "Warning...");
}

TEST(Lifecycle, RunWithUnsavedInputOffersTheSaveAndOldResults) {
  Session x;
  x.retrieveFixture();
  x.prompt.answers = {Answer::No};
  EXPECT_EQ(x.life.runRequested(3), Next::SaveInputDialog);
  x.p().flags.runMade = true;
  x.p().flags.lastRunKind = 4;
  x.prompt.answers = {Answer::Yes};
  EXPECT_EQ(x.life.runRequested(3), Next::SaveOutputDialog);
  EXPECT_EQ(x.life.outputDialogText(),
            "Before running, you should save the previous results. An energy output file with .ot* "
            "extension will also be saved.");
  // "Run" in that dialog goes on without saving, the header read again.
  x.p().seed = "changed";
  EXPECT_EQ(x.life.runWithoutSavingOutput(), Next::RunSimulation);
  EXPECT_EQ(x.p().seed, readProjectSeed(kFixture));
  EXPECT_EQ(x.life.outputDialogText(), "");
  x.p().flags.inputSaved = true;
  EXPECT_EQ(x.life.runRequested(3), Next::RunSimulation);
}

TEST(Lifecycle, ExitQuestionAndItsThreeWays) {
  Session x;
  EXPECT_EQ(x.life.exitQuestion().caption, "Do you want to save your input ?");
  EXPECT_EQ(x.life.exitSave(), Next::SaveInputDialog);
  EXPECT_TRUE(x.p().flags.exitAfterSave);

  Session y;
  y.retrieveFixture();
  EXPECT_EQ(y.life.exitQuestion().caption, "Save input changes to:");
  EXPECT_EQ(y.life.exitQuestion().line, y.t.dir() + "/school.inp ?");
  y.p().flags.runMade = true;
  y.prompt.answers = {Answer::Cancel, Answer::Yes};
  EXPECT_EQ(y.life.exitWithoutSave(), Next::Stay);
  EXPECT_EQ(y.life.exitWithoutSave(), Next::SaveOutputDialog);
  EXPECT_EQ(y.prompt.log.back().title, "Save output");
  // The results saved, the program ends.
  y.t.write("temp/ecalc$.out", "report\r\n");
  y.t.write("temp/ecalc$.flt", "");
  EXPECT_EQ(y.life.saveOutput(y.t.dir(), "trial.ot"), Next::Stay);
  EXPECT_EQ(y.life.saveOutput(y.t.dir(), "trial.ot2"), Next::Quit);
  EXPECT_EQ(y.t.read("trial.ot2"), "report\r\n");
  EXPECT_TRUE(y.t.exists("trial-ot2.flt"));
  EXPECT_FALSE(y.t.exists("trial-ot2-Energy.hry"));  // no hourly files were made
}

TEST(Lifecycle, OpeningTheSketchHoldsRunAndSaveUntilTheZonesArePassedAgain) {
  Session x;
  x.retrieveFixture();
  x.s.zoneList.cells[3] = {"3", "Gym", " 900"};
  x.p().flags.orientationEdited = x.p().flags.floorAreaEdited = true;
  ASSERT_EQ(x.life.openSketch(), Next::Sketch);
  EXPECT_TRUE(x.p().flags.resketched);
  EXPECT_EQ(x.p().flags.sketchCount, 1);
  EXPECT_FALSE(x.p().flags.newSketch);  // a project from a file keeps its own sketch
  EXPECT_FALSE(x.p().flags.orientationEdited || x.p().flags.floorAreaEdited);
  EXPECT_EQ(x.s.zoneList.cells[3][0], "");
  EXPECT_EQ(x.s.zoneList.cells[3][2], " 900");  // only ID and name are cleared
  EXPECT_FALSE(x.p().zones[1].opened);

  EXPECT_EQ(x.life.runRequested(3), Next::Stay);
  EXPECT_EQ(x.life.saveRequested(), Next::Stay);
  EXPECT_EQ(x.prompt.log.size(), 2u);

  // The sketch left the zones as the file had them; entering them merges the
  // scratch rows and clears the hold.
  const int rows = x.p().zones[1].rowCount;
  ASSERT_EQ(x.life.enterZones(), Next::ZoneList);
  EXPECT_FALSE(x.p().flags.resketched);
  EXPECT_TRUE(x.p().flags.zonesOpened);
  EXPECT_EQ(x.p().zones[1].rowCount, rows);
  EXPECT_EQ(x.s.zoneList.cells[1][0], x.p().zones[1].listedId);
  EXPECT_EQ(x.s.zoneList.cells[1][1], x.p().zones[1].listedName);
  EXPECT_EQ(x.s.zoneList.cells[x.p().zoneCount + 1][0], "");
  EXPECT_EQ(x.p().data[kFloorArea], padded(x.p().sketchFloorArea));
  EXPECT_EQ(x.life.saveRequested(), Next::SaveInputDialog);
  x.prompt.answers = {Answer::Yes, Answer::Yes};  // the sketch warning, then run unsaved
  EXPECT_EQ(x.life.runRequested(3), Next::RunSimulation);
}

TEST(Lifecycle, AFirstSketchStartsFromTheTemplate) {
  Session x;
  EXPECT_EQ(x.life.openSketch(), Next::Stay);  // no template in this tree
  EXPECT_EQ(x.prompt.log.back().title, errorTitle(53));
  EXPECT_TRUE(x.menu.stepEnabled(5));

  Session y;
  y.t.write("sketch/bld_mtx2.000", "template\r\n");
  y.t.write("sketch/bld_mtx.all", "old building\r\n");
  EXPECT_EQ(y.life.openSketch(), Next::Sketch);
  EXPECT_EQ(y.t.read("sketch/bld_mtx.all"), "template\r\n");
  EXPECT_TRUE(y.p().flags.newSketch);
  // The second opening keeps what was drawn.
  y.t.write("sketch/bld_mtx.all", "drawn\r\n");
  y.p().flags.newSketch = false;
  EXPECT_EQ(y.life.openSketch(), Next::Sketch);
  EXPECT_EQ(y.t.read("sketch/bld_mtx.all"), "drawn\r\n");
  EXPECT_EQ(y.p().flags.sketchCount, 2);
}

// A new project whose sketch gave two zones, with the shipped catalogs and
// profiles in the tree.
struct SketchedSession : Session {
  SketchedSession() {
    for (int k = 1; k <= 7; ++k) {
      const std::string f = "profiles/bprof" + std::to_string(k) + ".dat";
      t.write(f, readFile(std::string(MARLOVEN_SOURCE_DIR) + "/install/" + f));
    }
    s.buildingTypeNumber = 24;
    p().flags.stepDone[1] = true;
    p().flags.resketched = true;
    p().zoneCount = 2;
    p().sketchFloorArea = 1800;
    p().sketchOrientation = "15";
    const char* names[] = {"", "Office", "Hall"};
    for (int z = 1; z <= 2; ++z) {
      ZoneRecord& r = p().zones[z];
      r.listedId = "1" + std::to_string(z);
      r.listedName = names[z];
      r.listedFloorArea = z == 1 ? 1000.0f : 800.0f;
    }
  }
  void writeZone(const std::string& id, int rows) {
    std::string bytes;
    for (int i = 0; i < rows; ++i)
      bytes += crlf({" 1  ", " 400 ", "0", "2   ", "  0  0 N", " 1  ", "0.0 ", "90", "B", "0", "0", " 2.5 ",
                     " 7.5 ", "0.0"});
    t.write("temp/temp" + id + ".zon", bytes + "end\r\n");
  }
};

TEST(Lifecycle, EnteringZonesAfterASketchFillsTheListAndTheDefaults) {
  SketchedSession x;
  x.writeZone("11", 2);
  x.writeZone("12", 40);
  x.p().zones[2].rowCount = 40;  // as the sketch counted them
  EXPECT_EQ(x.life.enterZones(), Next::Stay);
  EXPECT_EQ(x.prompt.titlesAndTexts(),
            (Pairs{{"Error", "The number of exterior surfaces in zone Hall has exceeded the maximum of 33.  "
                             "Return to the sketch and simplify the zone."},
                   {errorTitle(9), errorMessage(9)}}));
  EXPECT_TRUE(x.p().flags.resketched);

  x.writeZone("12", 33);
  ASSERT_EQ(x.life.enterZones(), Next::ZoneList);
  EXPECT_EQ(x.s.zoneList.cells[1], (std::array<std::string, 3>{"11", "Office", " 1000"}));
  EXPECT_EQ(x.p().zones[2].fields[kZoneName], "Hall");
  EXPECT_EQ(x.p().zones[2].fields[kZoneFloorArea], " 800");
  EXPECT_EQ(x.p().data[kFloorArea], " 1800");
  EXPECT_EQ(x.p().data[kOrientation], "15");
  EXPECT_EQ(x.p().walls[8].id(), "8");
  EXPECT_EQ(x.p().profiles.of(ProfileKind::Occ)[24].id, " 24");
  EXPECT_EQ(x.p().zones[1].rowCount, 2);
  EXPECT_EQ(x.p().zones[2].rowCount, kMaxSurfaceRows);
  EXPECT_TRUE(x.p().flags.zonesOpened);
}

TEST(Lifecycle, ZoneEntryRefusalsLeaveTheZonesAlone) {
  SketchedSession x;
  x.p().flags.stepDone[1] = false;
  EXPECT_EQ(x.life.enterZones(), Next::Stay);
  EXPECT_EQ(x.prompt.log.back().text,
            "Zone data cannot be edited because you have not entered the Project Information data.  Please "
            "click the Project Information button.");
  EXPECT_EQ(x.s.zoneList.cells[1][0], "");

  x.p().flags.stepDone[1] = true;
  x.writeZone("11", 1);  // zone 12 was never named, so it has no file
  EXPECT_EQ(x.life.enterZones(), Next::Stay);
  EXPECT_EQ(x.prompt.titlesAndTexts().back(),
            (std::pair<std::string, std::string>{
                "Zone data access Error",
                "You have not drawn your building, or you have not named the building zone(s).  Please "
                "return to the sketch program."}));
  EXPECT_TRUE(x.p().flags.resketched);
  EXPECT_EQ(x.p().zones[1].rowCount, 0);
  EXPECT_EQ(x.p().walls[8].id(), "");
  EXPECT_EQ(x.p().data[kFloorArea], "");
}

TEST(Lifecycle, TablesAndChartsPickAResultsFileWhileNoneIsViewable) {
  Session x;
  EXPECT_EQ(x.life.results(6, 3), Next::SelectView);
  EXPECT_EQ(x.s.results.kind, 6);
  EXPECT_EQ(x.s.results.index, 3);
  x.p().flags.outputViewable = true;
  EXPECT_EQ(x.life.results(10, 7), Next::Results);
  EXPECT_EQ(x.s.results.kind, 10);
}

}  // namespace
}  // namespace marloven
