// The profile library and the temperature profiles, on the shipped profile
// files: choosing, editing, the checks of OK, the zone's boxes afterwards.
#include "schedules/profiles.h"

#include <gtest/gtest.h>

#include "common/file_io.h"
#include "common/keys.h"
#include "common/text_lines.h"
#include "input/zone_forms.h"
#include "support/fake_prompt.h"

namespace marloven {
namespace {

using testing::FakePrompt;
using Shown = std::pair<std::string, std::string>;

const std::string kShipped = std::string(MARLOVEN_SOURCE_DIR) + "/install";
const Shown kUsed{"Warning",
                  "The profile / property has been used.  If you change its value, you will also change the value "
                  "of the profile / property you have previously used."};

struct Library {
  explicit Library(UnitSystem units = UnitSystem::IP) {
    s.project.units = units;
    s.project.fileName = "office.inp";
    s.buildingTypeNumber = 24;
    for (int k = 1; k <= 4; ++k) {
      const auto lines = splitLines(readFile(kShipped + "/profiles/bprof" + std::to_string(k) + ".dat"));
      for (int i = 1; i <= kBuildingTypes; ++i) s.tables.profileDefaults[k][i] = lines[i];
    }
    for (int i = 1; i <= kBuildingTypes; ++i) s.tables.buildingTypeNames[i] = "Type " + std::to_string(i);
    s.project.zoneCount = 1;
    s.project.currentZone = 1;
    ZoneRecord& z = s.project.zones[1];
    z.fields[kZoneId] = "11";
    z.fields[kLightProfile] = " 24";
    z.fields[kSummerOccupied] = "1";
    z.fields[kWinterOccupied] = "2";
    z.fields[kSummerUnoccupied] = "3";
    z.fields[kWinterUnoccupied] = "4";
    s.zoneEditing.selectedProfile = 24;
  }
  std::string defaults(int k, int i) const { return s.tables.profileDefaults[k][i]; }
  // Types a text into a row as the screen would: key by key.
  void type(ProfileForm& f, int row, const std::string& text) {
    f.textChanged(row, "");
    std::string t;
    for (char c : text) {
      if (!f.keyPress(row, c)) continue;
      t += c;
      f.textChanged(row, t);
    }
  }
  AppState s{Installation(kShipped)};
  FakePrompt prompt;
};

TEST(ProfileText, ValuesAreCountedByTheirStarts) {
  EXPECT_EQ(profileValueCount("0 0  5 .5", false), 4);
  EXPECT_EQ(profileValueCount("  ", false), 0);
  EXPECT_EQ(profileValueCount("1 x", false), -1);
  EXPECT_EQ(profileValueCount("-5 4", false), -1);
  EXPECT_EQ(profileValueCount("-5 4", true), 2);
}

TEST(Profiles, TheBuildingTypesOwnProfileIsInTheProjectAndYellow) {
  Library l;
  ProfileForm f(l.s, l.prompt, 4);
  EXPECT_EQ(f.title(), "Lighting Profiles (percentage) -- office.inp");
  const Profile& own = l.s.project.profiles.kinds[4][24];
  EXPECT_EQ(own.id, " 24");
  EXPECT_EQ(own.values, l.defaults(4, 24));
  f.setScroll(21);  // rows 22..42
  EXPECT_EQ(f.entry(3), 24);
  EXPECT_TRUE(f.rowYellow(3));
  EXPECT_FALSE(f.rowYellow(1));
  EXPECT_EQ(f.rowLabel(3), "Type 24");
  EXPECT_EQ(f.rowText(3), l.defaults(4, 24));
  f.setScroll(99);
  EXPECT_EQ(f.scroll(), 21);  // the last row shown is entry 42
}

TEST(Profiles, EditingAnHourWarnsOnceAndOkStoresTheRow) {
  Library l;
  ProfileForm f(l.s, l.prompt, 4);
  f.setScroll(21);
  const std::string halved = "5 5 5 5 5 10 10 30 90 90 90 90 0 0 0 0 0 0 0 0 0 0 0 0";
  l.type(f, 3, halved);
  EXPECT_EQ(l.prompt.titlesAndTexts(), (std::vector<Shown>{{"<beep>", ""}, kUsed}));  // once, not per key
  // Written at key time: the library is one key behind the box.
  EXPECT_EQ(l.s.project.profiles.kinds[4][24].values, halved.substr(0, halved.size() - 1));
  EXPECT_FALSE(f.keyPress(3, 'x'));
  EXPECT_EQ(l.prompt.log.back().text, "You should use numerical value.");
  ASSERT_TRUE(f.clickOk());
  EXPECT_EQ(l.s.project.profiles.kinds[4][24].values, halved);
  EXPECT_EQ(f.chosen(), 24);
}

TEST(Profiles, OkRefusesAProfileOf23Or25ValuesButNotAValueAbove100) {
  const std::string v23 = "1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1";
  for (const std::string& bad : {v23, v23 + " 1 1"}) {
    Library l;
    ProfileForm f(l.s, l.prompt, 1);
    f.clickLabel(2);  // entry 2 goes into the project
    f.textChanged(2, bad);
    EXPECT_FALSE(f.clickOk());
    EXPECT_EQ(l.prompt.log.back().title, "Error...");
    EXPECT_EQ(l.prompt.log.back().text,
              "The profile you selected has an invalid entry or an insufficient number of values. Please make "
              "necessary corrections");
  }
  // A profile that came from a file with 23 values, out of view, stops OK too.
  Library far;
  far.s.project.profiles.kinds[1][40] = {" 40", v23};
  ProfileForm g(far.s, far.prompt, 1);
  EXPECT_FALSE(g.clickOk());
  // Form, not range: 150 % passes.
  Library high;
  ProfileForm h(high.s, high.prompt, 1);
  h.clickLabel(1);
  h.textChanged(1, v23 + " 150");
  EXPECT_TRUE(h.clickOk());
  EXPECT_EQ(high.s.project.profiles.kinds[1][1].values, v23 + " 150");
  EXPECT_EQ(h.chosen(), 1);
}

TEST(Profiles, AnEditedRowNotChosenIsAskedAboutAndUndoKeepsTheZonesProfile) {
  Library yes;
  ProfileForm f(yes.s, yes.prompt, 2);
  yes.type(f, 5, "1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1");
  yes.prompt.answers = {Answer::Yes};
  ASSERT_TRUE(f.clickOk());
  EXPECT_EQ(yes.prompt.log.back().title, "Select Profile");
  EXPECT_EQ(yes.prompt.log.back().text,
            "The profile you have just edited is not selected.  Save the new data before leaving?");
  EXPECT_EQ(yes.s.project.profiles.kinds[2][5].id, " 5");
  EXPECT_EQ(f.chosen(), 5);

  Library no;
  ProfileForm g(no.s, no.prompt, 2);
  no.type(g, 5, "2 2");
  no.prompt.answers = {Answer::No};
  ASSERT_TRUE(g.clickOk());
  EXPECT_EQ(no.s.project.profiles.kinds[2][5].id, "");
  EXPECT_EQ(g.rowText(5), no.defaults(2, 5));

  Library undo;
  ProfileForm h(undo.s, undo.prompt, 3);
  h.clickLabel(7);
  h.clickText(7);
  h.clickUndo();
  EXPECT_FALSE(h.rowYellow(7));
  ASSERT_TRUE(h.clickOk());
  EXPECT_EQ(h.chosen(), std::nullopt);  // the zone keeps its earlier number
}

TEST(Profiles, CutCopyAndPasteBetweenRows) {
  Library l;
  ProfileForm f(l.s, l.prompt, 1);
  f.clickText(1);
  f.copy(0, 5);
  f.clickText(2);
  f.paste(0, 0);
  EXPECT_EQ(f.rowText(2), l.defaults(1, 1).substr(0, 5) + l.defaults(1, 2));
  f.cut(0, 5);
  EXPECT_EQ(f.rowText(2), l.defaults(1, 2));
}

TEST(Profiles, TheZoneShowsTheChosenNumberAndMarksItChanged) {
  Library l;
  l.s.project.zones[1].fields[kOccProfile] = " 24";
  ZoneForm zone(l.s, l.prompt);
  zone.open();
  EXPECT_EQ(zone.click(kOccProfile), ZoneForm::Next::ProfileScreen);
  l.s.zoneEditing.fieldChanged[1].fill(false);
  ProfileForm f(l.s, l.prompt, l.s.zoneEditing.profileKind);
  f.clickLabel(3);
  ASSERT_TRUE(f.clickOk());
  zone.profilesClosed(1, f.chosen());
  EXPECT_EQ(zone.box(kOccProfile), " 3");
  EXPECT_TRUE(l.s.zoneEditing.fieldChanged[1][kOccProfile]);
  ASSERT_TRUE(zone.clickOk());
  EXPECT_EQ(l.s.project.zones[1].fields[kOccProfile], " 3");
}

TEST(Temperatures, RowsFromTheFileConvertedInSiAndTheSlotsWrittenBack) {
  Library si(UnitSystem::SI);
  TemperatureForm f(si.s, si.prompt);
  ASSERT_TRUE(f.open());
  EXPECT_EQ(f.title(), "Temperature Profiles (degree C) -- office.inp");
  // 80 F = 26.7 C -> 27; 75 F = 23.9 C -> 24: padded number text (its
  // leading blank) right-aligned in two, joined by single blanks.
  EXPECT_EQ(f.rowText(1), " 27  27  27  27  27  24  24  24  24  24  24  24  24  24  24  24  24  24  24  24  24  24  27  27");
  EXPECT_EQ(f.rowText(2).substr(0, 8), " 16  16 ");  // 60 F = 15.6 C
  for (int r = 1; r <= 4; ++r) EXPECT_TRUE(f.rowYellow(r)) << r;  // the zone's four
  EXPECT_FALSE(f.rowYellow(5));
  EXPECT_EQ(std::string(TemperatureForm::rowLabel(10)), "10 User's Winter - Occ.");
  f.clickLabel(5);  // slot 1
  f.clickLabel(9);  // slot 1 again: the last wins
  f.clickLabel(8);  // slot 4
  f.clickText(9);
  f.textChanged(9, "-5 18 18 18 18 18 18 18 18 18 18 18 18 18 18 18 18 18 18 18 18 18 18 18");
  EXPECT_FALSE(f.keyPress(9, '-'));  // typed minus refused, a minus from elsewhere passes OK
  ASSERT_TRUE(f.clickOk());
  const ZoneRecord& z = si.s.project.zones[1];
  EXPECT_EQ(z.fields[kSummerOccupied], "9");
  EXPECT_EQ(z.fields[kWinterOccupied], "2");
  EXPECT_EQ(z.fields[kWinterUnoccupied], "8");
  const auto& lib = si.s.project.profiles.of(ProfileKind::Temp);
  EXPECT_EQ(lib[9].id, " 9");
  EXPECT_EQ(lib[9].values.substr(0, 5), "-5 18");
  EXPECT_EQ(lib[5].id, " 5");  // rows 5 and 9 both yellow: both kept

  Library bad;
  TemperatureForm g(bad.s, bad.prompt);
  ASSERT_TRUE(g.open());
  g.textChanged(1, "70 70");
  EXPECT_FALSE(g.clickOk());
  EXPECT_EQ(bad.prompt.log.back().text,
            "The profile you selected has less or more than 24 values. Please make necessary corrections");

  Library undone;
  TemperatureForm h(undone.s, undone.prompt);
  ASSERT_TRUE(h.open());
  h.clickLabel(6);
  h.clickText(6);
  h.textChanged(6, "x");
  h.clickUndo();
  undone.prompt.answers = {Answer::No};
  ASSERT_TRUE(h.clickOk());
  EXPECT_EQ(undone.s.project.zones[1].fields[kWinterOccupied], "2");  // undone: the zone keeps its numbers
}

}  // namespace
}  // namespace marloven
