#include "input/project_info.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "common/column_printer.h"
#include "common/keys.h"
#include "input/economics.h"
#include "project/project_reader.h"
#include "project/project_writer.h"
#include "support/fake_prompt.h"

namespace marloven {
namespace {

using testing::FakePrompt;
using Shown = std::pair<std::string, std::string>;

const std::string kShipped = std::string(MARLOVEN_SOURCE_DIR) + "/install";

struct Screen {
  explicit Screen(UnitSystem units = UnitSystem::IP) {
    state.project.units = units;
    state.tables.today.year = 2026;
    form.open();
  }
  // Types text into box i key by key; the keys the screen kept.
  std::string type(int i, const std::string& keys) {
    std::string kept;
    for (char k : keys) {
      if (!form.keyPress(i, k)) continue;
      kept += k;
      std::string t = form.box(i);
      if (k == key::kBackspace) {
        if (!t.empty()) t.pop_back();
      } else {
        t += k;
      }
      form.textChanged(i, t);
      form.keyReleased(i);
    }
    return kept;
  }
  Project& p() { return state.project; }

  AppState state{Installation(kShipped)};
  FakePrompt prompt;
  ProjectInfoForm form{state, prompt};
};

const Shown kNumeric{"Error", "You should use numerical value."};
const Shown kBeep{"<beep>", ""};

TEST(ProjectInfo, LabelsUnitsHintAndCaption) {
  Screen ip;
  EXPECT_EQ(ip.form.caption(), "Project Information -- New_Project");
  EXPECT_EQ(ip.form.tutorialCaption(), "PROJECT INFORMATION -- New_Project");
  EXPECT_STREQ(ProjectInfoForm::label(0), "Building Type        :");
  EXPECT_STREQ(ProjectInfoForm::label(5), "Scheme Number    :  ");
  EXPECT_EQ(ip.form.unitLabel(7), "from North");
  EXPECT_EQ(ip.form.unitLabel(8), "sq.ft");
  EXPECT_EQ(ip.form.unitLabel(9), "$/sq.ft");
  EXPECT_EQ(ip.form.unitLabel(10), "days");
  EXPECT_EQ(ip.form.unitLabel(11), "days");
  EXPECT_EQ(ip.form.unitLabel(3), "");
  Screen si(UnitSystem::SI);
  EXPECT_EQ(si.form.unitLabel(8), "sq.m.");
  EXPECT_EQ(si.form.unitLabel(9), "$/sq.m.");
  ASSERT_EQ(ProjectInfoForm::hintLines().size(), 8u);
  EXPECT_EQ(ProjectInfoForm::hintLines()[4], "information.  Just click OK.");
}

TEST(ProjectInfo, OpeningAfterASketchTakesItsOrientationAndFloorArea) {
  Screen s;
  s.p().data[kOrientation] = "0";
  s.p().data[kProjectName] = "Clinic";
  s.p().sketchOrientation = "30";
  s.p().sketchFloorArea = 2400.5f;
  s.form.open();
  EXPECT_EQ(s.form.box(kOrientation), "0");  // not re-sketched: the project's own
  s.p().flags.resketched = true;
  s.form.open();
  EXPECT_EQ(s.form.box(kOrientation), "30");
  EXPECT_EQ(s.form.box(kFloorArea), " 2400.5");
  EXPECT_EQ(s.p().data[kFloorArea], " 2400.5");
  EXPECT_EQ(s.form.box(kProjectName), "Clinic");
}

TEST(ProjectInfo, ChoosingATypeFillsTheBoxesAndTheProjectButOkStoresTheStep) {
  Screen s;
  s.type(kLocation, "Reno");
  s.form.chooseBuildingType(24);
  EXPECT_EQ(s.state.buildingTypeNumber, 24);
  EXPECT_EQ(s.form.box(kBuildingType), "Office building OF");
  EXPECT_EQ(s.form.box(kLocation), "Reno");
  EXPECT_EQ(s.form.box(kConstructionYear), "2026");
  EXPECT_EQ(s.p().data[kBuildingType], "Office building OF");
  EXPECT_EQ(s.p().economics[kEconomicLife], "30");
  EXPECT_FALSE(s.p().flags.stepDone[1]);
  ASSERT_TRUE(s.form.clickOk());
  EXPECT_TRUE(s.p().flags.stepDone[1]);
  EXPECT_TRUE(s.prompt.log.empty());
}

TEST(ProjectInfo, AMissingTypeFileShowsTheErrorReportAndKeepsTheProject) {
  Screen s;
  s.state.install = Installation("/nonexistent/marloven");
  s.form.chooseBuildingType(5);
  ASSERT_EQ(s.prompt.log.size(), 1u);
  EXPECT_EQ(s.prompt.log[0].title, "Marloven Error #  53");
  EXPECT_EQ(s.state.buildingTypeNumber, 0);
  EXPECT_EQ(s.form.box(kBuildingType), "");
}

TEST(ProjectInfo, TheBuildingTypeBoxBelongsToTheMenuUntilTheProjectHasAFile) {
  Screen s;
  EXPECT_TRUE(s.form.buildingTypeMenuEnabled());
  EXPECT_EQ(s.type(0, "a"), "");
  s.form.clickBox(0);
  const Shown msg{"Building Type", "Select building type from menu"};
  EXPECT_EQ(s.prompt.titlesAndTexts(), (std::vector<Shown>{msg, msg}));
  EXPECT_EQ(s.prompt.log[0].icon, Icon::Information);

  s.p().flags.fromFile = true;  // read or saved
  s.prompt.log.clear();
  EXPECT_FALSE(s.form.buildingTypeMenuEnabled());
  EXPECT_EQ(s.type(0, "Lab!"), "Lab!");
  s.form.clickBox(0);
  EXPECT_TRUE(s.prompt.log.empty());
}

TEST(ProjectInfo, KeyRulesOfTheBoxes) {
  Screen s;
  EXPECT_EQ(s.type(kProjectName, "Hall #2, east"), "Hall #2, east");  // boxes 1..5 take anything
  EXPECT_EQ(s.type(kSchemeNumber, "B-1"), "B-1");
  EXPECT_TRUE(s.prompt.log.empty());
  for (int i : {6, 7, 8, 9, 11}) {
    s.prompt.log.clear();
    EXPECT_EQ(s.type(i, "1 2.5x-\b"), std::string("1 2.5\b")) << i;
    EXPECT_EQ(s.prompt.titlesAndTexts(), (std::vector<Shown>{kBeep, kNumeric, kBeep, kNumeric})) << i;
  }
  // Boxes after the year hold ten characters; Backspace still works.
  Screen t;
  EXPECT_EQ(t.type(kFloorArea, "123456789012"), "1234567890");
  EXPECT_EQ(t.prompt.titlesAndTexts(), (std::vector<Shown>{kBeep, kBeep}));
  EXPECT_EQ(t.type(kFloorArea, "\b9"), "\b9");
  EXPECT_EQ(t.form.box(kFloorArea), "1234567899");
  EXPECT_EQ(t.type(kConstructionYear, "123456789012"), "123456789012");  // the year is not limited
}

TEST(ProjectInfo, OccupiedDaysStopAtSeven) {
  const Shown oneBlank{"Error", "Error. The maximum occupied days are 7 days per-week."};
  const Shown twoBlanks{"Error", "Error.  The maximum occupied days are 7 days per-week."};
  Screen s;
  EXPECT_EQ(s.type(kOccupiedDays, "8"), "");  // nothing above 7 in an empty box
  EXPECT_EQ(s.prompt.titlesAndTexts(), (std::vector<Shown>{kBeep, oneBlank}));
  s.prompt.log.clear();
  EXPECT_EQ(s.type(kOccupiedDays, "70.5"), "7.");  // "7" takes no further digit, "." passes
  EXPECT_EQ(s.prompt.titlesAndTexts(), (std::vector<Shown>{kBeep, twoBlanks, kBeep, twoBlanks}));
  s.form.textChanged(kOccupiedDays, "7.5");  // pasted, or typed in front of ".5"
  s.prompt.log.clear();
  EXPECT_FALSE(s.form.clickOk());  // 7.5 is refused only on OK
  EXPECT_EQ(s.prompt.titlesAndTexts(),
            (std::vector<Shown>{kBeep, {"Error", "The maximum occupied days are 7 days per-week."}}));
  EXPECT_FALSE(s.p().flags.stepDone[1]);

  Screen t;
  EXPECT_EQ(t.type(kOccupiedDays, " 9"), " ");  // a box ending in a blank is as empty
  EXPECT_EQ(t.prompt.titlesAndTexts(), (std::vector<Shown>{kBeep, oneBlank}));
  Screen u;
  EXPECT_EQ(u.type(kOccupiedDays, "5"), "5");
  EXPECT_TRUE(u.form.clickOk());
}

TEST(ProjectInfo, OkRefusesAYearEndingInALetterButNotAnEmptyOne) {
  Screen s;
  s.form.textChanged(kConstructionYear, "2010a");  // pasted: typing would refuse the letter
  EXPECT_FALSE(s.form.clickOk());
  EXPECT_EQ(s.prompt.titlesAndTexts(), (std::vector<Shown>{kBeep, {"Error", "You should put the construction year."}}));
  s.form.textChanged(kConstructionYear, "");
  EXPECT_TRUE(s.form.clickOk());
}

TEST(ProjectInfo, OrientationAndFloorAreaEditsAreRemembered) {
  Screen s;
  s.type(kLocation, "x");
  EXPECT_FALSE(s.p().flags.orientationEdited || s.p().flags.floorAreaEdited);
  s.type(kOrientation, "1");
  EXPECT_TRUE(s.p().flags.orientationEdited);
  EXPECT_FALSE(s.p().flags.floorAreaEdited);
  s.form.textChanged(kFloorArea, "500");  // a paste counts too
  EXPECT_TRUE(s.p().flags.floorAreaEdited);
}

TEST(ProjectInfo, CancelPutsTheProjectBackAndLeavesTheStep) {
  Screen s;
  s.p().data[kProjectName] = "Stored";
  s.form.open();
  s.type(kProjectName, "X");
  s.form.clickCancel();
  EXPECT_EQ(s.form.box(kProjectName), "Stored");
  EXPECT_EQ(s.p().data[kProjectName], "Stored");
  EXPECT_FALSE(s.p().flags.stepDone[1]);
}

TEST(ProjectInfo, UndoWalksBackFromTheLastBoxTypedIn) {
  Screen s;
  s.p().data = {"T", "Name", "Desc", "Loc", "Stage", "S1", "2020", "10", "900", "80", "5", "9"};
  s.form.open();
  for (int i = 1; i <= 4; ++i) s.type(i, "z");
  s.type(3, "q");  // the last key was released in box 3
  s.form.clickUndo();
  EXPECT_EQ(s.form.box(3), "Loc");
  EXPECT_EQ(s.form.box(4), "Stagez");
  s.form.clickUndo();
  EXPECT_EQ(s.form.box(2), "Desc");
  s.form.clickUndo();
  s.form.clickUndo();
  EXPECT_EQ(s.form.box(1), "Name");
  EXPECT_EQ(s.state.undoField, 0);
  s.form.clickUndo();  // box 0 stays where the walk ends
  EXPECT_EQ(s.state.undoField, 0);
  EXPECT_EQ(s.form.box(4), "Stagez");
}

TEST(ProjectInfo, GetWeatherAsksTheWeatherScreenToComeBack) {
  Screen s;
  s.type(kLocation, "Reno");
  s.form.clickGetWeather();
  EXPECT_TRUE(s.p().flags.weatherRereadPending);
  s.p().data[kLocation] = "DENVER INTL AP, Colorado !";  // what the weather screen's OK gives
  s.form.weatherApplied();
  EXPECT_EQ(s.form.box(kLocation), "DENVER INTL AP, Colorado !");
}

// A project made only through the two screens, saved and read back, holds
// what the building type file gave.
TEST(ProjectInfo, AProjectMadeThroughTheScreensSurvivesASave) {
  for (UnitSystem units : {UnitSystem::IP, UnitSystem::SI}) {
    Screen s(units);
    s.form.chooseBuildingType(14);
    ASSERT_TRUE(s.form.clickOk());
    EconomicsForm econ(s.state, s.prompt);
    econ.open();
    ASSERT_TRUE(econ.clickOk());
    EXPECT_TRUE(s.prompt.log.empty());

    Project& p = s.p();
    Project expected = p;  // what the screens left
    p.zoneCount = 2;       // as a sketch would add them
    for (int z = 1; z <= 2; ++z) {
      p.zones[z].fields[kZoneId] = "1" + std::to_string(z);
      p.zones[z].fields[kZoneName] = "Z" + std::to_string(z);
      p.zones[z].fields[kZoneFloorArea] = "1000";
      p.zones[z].fields[kPeople] = "10";
    }
    ColumnPrinter out;
    printHeader(out, ".5", 4, p.units);
    writeProjectStraight(out, p, {});
    Project back;
    readProject(out.take(), back);

    EXPECT_EQ(back.units, units);
    // A value never entered is saved as "0.0"; the flag reads back behind its blank.
    for (std::string& d : expected.data)
      if (d.empty()) d = "0.0";
    EXPECT_EQ(back.data, expected.data);
    EXPECT_EQ(back.economics, expected.economics);
    EXPECT_EQ(back.demand.text, " " + expected.demand.text);
    for (int z = 1; z <= 2; ++z)
      for (int field = kInternalMass; field <= kZoneFieldCount; ++field) {
        if (field == kPeople) continue;  // set above, as zone entry would
        EXPECT_EQ(back.zones[z].fields[field], expected.zones[z].fields[field])
            << (units == UnitSystem::SI ? "SI" : "IP") << " zone " << z << " field " << field;
      }
    EXPECT_EQ(back.zones[2].daylight, expected.zones[2].daylight);
    EXPECT_EQ(back.zones[2].economizer, expected.zones[2].economizer);
  }
}

}  // namespace
}  // namespace marloven
