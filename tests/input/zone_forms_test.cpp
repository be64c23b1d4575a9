// The zone list, the zone description and the ventilation rate dialog, on
// the shipped catalogs.
#include "input/zone_forms.h"

#include <gtest/gtest.h>

#include "common/keys.h"
#include "common/masks.h"
#include "common/number_text.h"
#include "support/fake_prompt.h"

namespace marloven {
namespace {

using testing::FakePrompt;
using Shown = std::pair<std::string, std::string>;

const std::string kShipped = std::string(MARLOVEN_SOURCE_DIR) + "/install";

std::string costOf(const std::string& first, double factor) {
  return applyMask(bare(roundTo(leadingNumber(first) * factor, 2)), "@@@@@");
}

struct Zones {
  explicit Zones(UnitSystem units = UnitSystem::IP) {
    Project& p = s.project;
    p.units = units;
    p.fileName = "office.inp";
    p.zoneCount = 3;
    s.buildingTypeNumber = 24;
    for (int z = 1; z <= 3; ++z) {
      ZoneRecord& r = p.zones[z];
      r.fields[kZoneId] = "1" + std::to_string(z);
      r.fields[kZoneName] = "Zone " + std::to_string(z);
      r.fields[kZoneFloorArea] = "1000";
      r.listedFloorArea = 1000;
      r.fields[kPeople] = "10";
      r.floorAreaPerPerson = 100;
      r.fields[kHeatingType] = " 1";
      r.fields[kCoolingType] = " 5";
      s.zoneList.cells[z] = {r.fields[kZoneId], r.fields[kZoneName], "1000"};
    }
  }
  ZoneForm& opened(int z) {
    EXPECT_TRUE(list.openZone(z));
    form.open();
    return form;
  }
  AppState s{Installation(kShipped)};
  FakePrompt prompt;
  ZoneListForm list{s, prompt};
  ZoneForm form{s, prompt};
};

TEST(ZoneList, AnEmptyRowSaysSoAndProfilesOfNoneBecomeTheBuildingTypes) {
  Zones x;
  EXPECT_EQ(x.list.caption(), "ZONE NAMES -- office.inp");
  EXPECT_FALSE(x.list.openZone(7));
  EXPECT_EQ(x.s.project.currentZone, 7);
  EXPECT_EQ(x.prompt.titlesAndTexts(),
            (std::vector<Shown>{{"<beep>", ""}, {"Error", "Zone does not exist.  Select another zone."}}));
  x.s.project.zones[2].fields[kOccProfile] = "0";
  x.s.project.zones[2].fields[kVentProfile] = " 3";
  ASSERT_TRUE(x.list.openZone(2));
  EXPECT_EQ(x.s.project.zones[2].fields[kOccProfile], " 24");  // in the model, not only on the screen
  EXPECT_EQ(x.s.project.zones[2].fields[kHotWaterProfile], " 24");  // empty counts as none
  EXPECT_EQ(x.s.project.zones[2].fields[kVentProfile], " 3");
}

TEST(ZoneList, GoingBackWarnsOfExactlyTheUnopenedZones) {
  Zones x;
  x.s.project.zones[2].opened = true;
  x.prompt.answers = {Answer::No, Answer::Yes};
  EXPECT_FALSE(x.list.back());
  ASSERT_EQ(x.prompt.log.size(), 2u);
  EXPECT_EQ(x.prompt.log[1].title, "Warning");
  EXPECT_EQ(x.prompt.log[1].text,
            "You have just sketched your building, but you have not opened zone(s) :  11, 13.   Do you really want "
            "to go to Main Menu ?");
  EXPECT_FALSE(x.s.project.flags.stepDone[5]);
  EXPECT_TRUE(x.list.back());
  EXPECT_TRUE(x.s.project.flags.stepDone[5]);
  EXPECT_EQ(x.s.project.data[kFloorArea], " 3000");
  EXPECT_TRUE(x.s.project.zones[1].exists);

  Zones fromFile;  // a read sets every zone opened: no question
  for (int z = 1; z <= 3; ++z) fromFile.s.project.zones[z].opened = true;
  EXPECT_TRUE(fromFile.list.back());
  EXPECT_TRUE(fromFile.prompt.log.empty());
}

TEST(ZoneForm, KeyRulesAndTheirMessages) {
  Zones x;
  ZoneForm& f = x.opened(1);
  ZoneForm::Next next;
  EXPECT_FALSE(f.keyPress(kZoneId, '5', next));  // silently
  EXPECT_TRUE(x.prompt.log.empty());
  EXPECT_TRUE(f.keyPress(kZoneName, 'x', next));
  EXPECT_FALSE(f.keyPress(kOccProfile, '1', next));
  EXPECT_FALSE(f.keyPress(kSummerOccupied, '1', next));
  EXPECT_FALSE(f.keyPress(kCoolingType, '1', next));
  EXPECT_FALSE(f.keyPress(kLightingType, '1', next));
  EXPECT_FALSE(f.keyPress(kInfiltration, '-', next));  // nothing can be typed negative
  EXPECT_TRUE(f.keyPress(kInfiltration, '.', next));
  EXPECT_EQ(x.prompt.titlesAndTexts(),
            (std::vector<Shown>{{"<beep>", ""},
                                {"Profiles", "Select Profile from Pull-down Menu"},
                                {"<beep>", ""},
                                {"Profiles", "Select Profile from Pull-down Menu"},
                                {"<beep>", ""},
                                {"HVAC System", "Select HVAC system from Pull-down Menu"},
                                {"<beep>", ""},
                                {"Lighting Type", "Select Lighting type from Pull-down Menu"},
                                {"<beep>", ""},
                                {"Error", "You should use numerical value."}}));
  EXPECT_TRUE(f.keyPress(kOutsideAir, 'z', next));  // any key opens the dialog and stays
  EXPECT_EQ(next, ZoneForm::Next::VentilationDialog);
}

TEST(ZoneForm, ThePeopleCountFollowsTheStoredFloorAreaOneEditBehind) {
  Zones x;
  ZoneForm& f = x.opened(1);
  f.keyDown(kZoneFloorArea);
  EXPECT_EQ(f.box(kPeople), " 10");  // floor(1000 / 100 + 0.7)
  f.textChanged(kZoneFloorArea, "2000");
  f.keyDown(kZoneFloorArea);
  EXPECT_EQ(f.box(kPeople), " 10");  // the stored area, not the one typed
  x.s.project.zones[1].floorAreaPerPerson = 1.0f;
  x.s.project.zones[1].fields[kPeople] = "7";
  f.keyDown(kZoneFloorArea);
  EXPECT_EQ(f.box(kPeople), "7");
  EXPECT_EQ(f.undoField(), kZoneFloorArea);
  EXPECT_EQ(x.s.zoneEditing.lastTouchedField, kZoneFloorArea);
}

TEST(ZoneForm, AcTypeWithGasHeatAddsTheFurnaceInBothUnitSystems) {
  Zones ip;
  ZoneForm& f = ip.opened(1);
  f.chooseAc(1);
  EXPECT_EQ(f.box(kCoolingType), " 1");
  EXPECT_EQ(f.box(kStaticPressure), " 4.0");
  EXPECT_EQ(f.box(kCoolingEfficiency), "9.5  ");  // columns 80-84 as they stand
  EXPECT_EQ(f.box(kFirstCost), "2700");      // 2500 + 200
  EXPECT_EQ(f.box(kMaintenanceCost), " 99.9");  // 2700 x 0.037
  EXPECT_TRUE(ip.s.zoneEditing.fieldChanged[1][kFirstCost]);
  // To the heat pump: the furnace comes off, its upkeep at the system's rate.
  f.chooseHeating(3);
  EXPECT_EQ(f.box(kHeatingType), " 3");
  EXPECT_EQ(f.box(kHeatingEfficiency), "3.20");
  EXPECT_EQ(f.box(kFirstCost), "2500");
  EXPECT_EQ(f.box(kMaintenanceCost), " 92.5");
  f.chooseHeating(1);
  EXPECT_EQ(f.box(kFirstCost), "2700");
  f.chooseAc(4);  // fan coils: 0.04 of the cost
  EXPECT_EQ(f.box(kMaintenanceCost), costOf(f.box(kFirstCost), 0.04));

  Zones si(UnitSystem::SI);
  ZoneForm& g = si.opened(2);
  g.chooseAc(1);
  EXPECT_EQ(g.box(kStaticPressure), " 995.2");
  EXPECT_EQ(g.box(kCoolingEfficiency), " 2.78");  // the whole COP
  EXPECT_EQ(g.box(kFirstCost), "2700");           // the same 200 in SI
  EXPECT_EQ(g.box(kMaintenanceCost), " 99.9");

  // Window units and evaporative coolers keep their catalog costs.
  Zones w;
  ZoneForm& h = w.opened(3);
  h.chooseAc(8);
  const std::string first = h.box(kFirstCost), maint = h.box(kMaintenanceCost);
  EXPECT_EQ(first, "900 ");  // the catalog's own columns 103-106
  h.chooseHeating(2);
  EXPECT_EQ(h.box(kFirstCost), first);
  EXPECT_EQ(h.box(kMaintenanceCost), maint);
  h.chooseHeating(1);
  h.chooseAc(9);  // with gas heat too
  EXPECT_EQ(h.box(kFirstCost), "600 ");
  EXPECT_EQ(h.box(kMaintenanceCost), "   27");
  // A spare item past the catalog's systems leaves its numbers and still sets the type.
  h.chooseAc(12);
  EXPECT_EQ(h.box(kCoolingType), " 12");
  EXPECT_EQ(h.box(kStaticPressure), " 0.5");
}

TEST(ZoneForm, UndoRestoresCostsAfterAnAcTypeButNotAfterHeating) {
  Zones x;
  ZoneForm& f = x.opened(1);
  x.s.project.zones[1].fields[kFirstCost] = "1500";
  x.s.project.zones[1].fields[kHeatingEfficiency] = ".80";
  f.chooseAc(1);
  f.clickUndo();
  EXPECT_EQ(f.box(kCoolingType), " 5");
  EXPECT_EQ(f.box(kFirstCost), "1500");
  f.chooseHeating(3);
  const std::string cost = f.box(kFirstCost);
  f.clickUndo();
  EXPECT_EQ(f.box(kHeatingType), " 1");
  EXPECT_EQ(f.box(kHeatingEfficiency), ".80");
  EXPECT_EQ(f.box(kFirstCost), cost);  // the costs heating moved stay
}

TEST(ZoneForm, TogglesLightingAndTheDaylightRule) {
  Zones si(UnitSystem::SI);
  ZoneForm& f = si.opened(1);
  EXPECT_EQ(f.toggle(ZoneForm::kNaturalVent), "No");
  EXPECT_FALSE(f.boxEnabled(kNaturalVentRate));
  f.clickToggle(ZoneForm::kNaturalVent);
  EXPECT_EQ(f.box(kNaturalVentRate), "20");
  f.textChanged(kNaturalVentRate, "35");
  f.clickToggle(ZoneForm::kNaturalVent);
  f.clickToggle(ZoneForm::kNaturalVent);
  EXPECT_EQ(f.box(kNaturalVentRate), "20");  // off and on again: the default
  EXPECT_EQ(si.s.zoneEditing.lastTouchedField, 31);
  EXPECT_TRUE(si.s.zoneEditing.toggleChanged[ZoneForm::kNaturalVent][1]);
  f.chooseLighting(3);
  EXPECT_EQ(f.box(kLightingType), "  3");

  // Daylight with no depth: the message, nothing stored, and OK closes anyway
  // with the boxes but the former toggles.
  f.clickToggle(ZoneForm::kDaylight);
  f.textChanged(kInfiltration, ".5");
  EXPECT_FALSE(f.storeZone());
  EXPECT_EQ(si.prompt.log.back().text,
            "Daylighting depth or target footcandles cannot be 0 if daylight is used.  Please correct your input.");
  EXPECT_NE(si.s.project.zones[1].fields[kInfiltration], ".5");
  EXPECT_TRUE(f.clickOk());
  const ZoneRecord& z = si.s.project.zones[1];
  EXPECT_EQ(z.fields[kInfiltration], ".5");
  EXPECT_EQ(z.daylight, "");  // the toggles kept their former values
  EXPECT_TRUE(z.opened);
  EXPECT_EQ(si.s.zoneList.cells[1][2], "1");
}

TEST(ZoneForm, OkStoresEmptyBoxesAsEmptyAndStoreZoneAsZero) {
  Zones x;
  ZoneForm& f = x.opened(1);
  f.textChanged(kInternalMass, "");
  f.textChanged(kPeople, "20");
  EXPECT_TRUE(f.clickOk());
  const ZoneRecord& z = x.s.project.zones[1];
  EXPECT_EQ(z.fields[kInternalMass], "0");  // store-zone ran after the copy
  EXPECT_FLOAT_EQ(z.floorAreaPerPerson, 50.0f);
  EXPECT_EQ(z.naturalVent, "No");
  EXPECT_FALSE(x.s.zoneEditing.fieldChanged[1][kPeople]);

  ZoneForm& g = x.opened(2);
  g.textChanged(kPeople, "99");
  g.clickCancel();
  EXPECT_EQ(x.s.project.zones[2].fields[kPeople], "10");
}

TEST(ZoneForm, ClickingAProfileBoxStoresAndOpensThatKind) {
  Zones x;
  ZoneForm& f = x.opened(1);
  f.textChanged(kPeople, "12");
  EXPECT_EQ(f.click(kHotWaterProfile), ZoneForm::Next::ProfileScreen);
  EXPECT_EQ(x.s.zoneEditing.profileKind, 2);
  EXPECT_EQ(x.s.zoneEditing.selectedProfile, 24);
  EXPECT_EQ(x.s.project.zones[1].fields[kPeople], "12");  // stored on the way
  EXPECT_TRUE(x.s.zoneEditing.fieldChanged[1][kHotWaterProfile]);
  EXPECT_EQ(f.chooseProfile(4), ZoneForm::Next::ProfileScreen);
  EXPECT_EQ(x.s.zoneEditing.profileKind, 4);
  EXPECT_EQ(f.chooseProfile(5), ZoneForm::Next::TemperatureScreen);
}

TEST(Ventilation, ThreeFormsTheActiveRowAndOk) {
  FakePrompt prompt;
  VentilationForm bare(prompt, UnitSystem::IP, "17");  // an old file's number
  EXPECT_TRUE(bare.active(0));
  EXPECT_EQ(bare.text(0), "17");
  EXPECT_EQ(bare.clickOk(), "CP17");

  VentilationForm cs(prompt, UnitSystem::SI, "CS.3");
  EXPECT_EQ(cs.caption(1), "L/s per sq.m.");
  EXPECT_EQ(cs.text(1), ".3");
  cs.textChanged(2, " 40");
  EXPECT_TRUE(cs.keyPress(2, '0'));  // the row typed in is active alone
  EXPECT_EQ(cs.clickOk(), "PA40");

  VentilationForm empty(prompt, UnitSystem::IP, "CP20");
  empty.click(1);  // an empty row greys all three
  EXPECT_FALSE(empty.active(0));
  EXPECT_EQ(empty.clickOk(), std::nullopt);
  EXPECT_FALSE(empty.keyPress(0, 'a'));
  EXPECT_EQ(prompt.titlesAndTexts(), (std::vector<Shown>{{"<beep>", ""},
                                                          {"Error", "Please enter the ventilation rate"},
                                                          {"<beep>", ""},
                                                          {"Error", "You should use numerical value."}}));
}

}  // namespace
}  // namespace marloven
