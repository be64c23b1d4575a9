// Zone entry after a sketch: default types and profiles from the shipped
// installation files, the first pass and the merge, all or nothing.
#include "project/zone_entry.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "common/file_error.h"
#include "common/file_io.h"
#include "project/zone_scratch.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

const std::string kShipped = std::string(MARLOVEN_SOURCE_DIR) + "/install";

std::string wallRow(const std::string& area) {
  return crlf({" 1  ", " " + area + " ", "0", "2   ", "  0  0 N", " 1  ", "0.0 ", "90", "B", "0", "0", " 2.5 ",
               " 7.5 ", "0.0"});
}

// An installation with the shipped catalogs and profiles and two sketched zones.
struct SketchedProject {
  TempInstall t;
  Project p;
  SketchedProject(UnitSystem units) {
    for (const char* f : {"bprof1.dat", "bprof2.dat", "bprof3.dat", "bprof4.dat", "bprof5.dat", "bprof6.dat",
                          "bprof7.dat"})
      std::filesystem::copy_file(kShipped + "/profiles/" + f, t.path("profiles") / f);
    p.units = units;
    p.zoneCount = 2;
    const char* ids[] = {"", "1", "01"};
    for (int z = 1; z <= 2; ++z) {
      p.zones[z].fields[kZoneId] = ids[z];
      p.zones[z].listedFloorArea = 1000;
      p.zones[z].floorAreaPerPerson = 200;
    }
    t.write("temp/temp1.zon", wallRow("400") + "end\r\n");
    t.write("temp/temp01.zon", wallRow("300") + wallRow("200") + "end\r\n");
  }
};

TEST(ZoneEntry, FirstEntryLoadsTypesProfilesAndRows) {
  SketchedProject s(UnitSystem::IP);
  loadZoneDataAfterSketch(s.t.dir(), s.p, 24);
  const Project& p = s.p;
  for (int n = 1; n <= kDefaultTypeCount; ++n) {
    const bool kept = n == 1 || n == 8 || n == 14;
    EXPECT_EQ(p.walls[n].id(), kept ? std::to_string(n) : "") << n;
    EXPECT_FALSE(p.walls[n].fields[1].empty()) << n;  // the data stays behind a free entry
    EXPECT_EQ(p.windows[n].id(), std::to_string(n)) << n;
  }
  EXPECT_EQ(p.walls[1].fields[2], "0.090");
  for (int k = 1; k <= 4; ++k) EXPECT_EQ(p.profiles.kinds[k][24].id, " 24") << k;
  EXPECT_EQ(p.profiles.of(ProfileKind::Occ)[24].values.substr(0, 14), "0 0 0 0 0 0 10");
  EXPECT_EQ(p.profiles.of(ProfileKind::Temp)[4].id, " 4");
  EXPECT_EQ(p.profiles.of(ProfileKind::Temp)[4].values.substr(0, 6), "60 60 ");
  // temp1.zon and temp01.zon belong to different zones.
  EXPECT_EQ(p.zones[1].rowCount, 1);
  EXPECT_EQ(p.zones[2].rowCount, 2);
  EXPECT_FLOAT_EQ(p.zones[2].rows[2].wallArea, 200.0f);
  EXPECT_EQ(p.zones[1].fields[kPeople], "5");
}

TEST(ZoneEntry, SiConvertsCatalogNumbersAndTemperatures) {
  SketchedProject s(UnitSystem::SI);
  s.p.flags.profileKindLoaded[2] = true;  // kind 2 is the project's already
  s.p.profiles.kinds[2][24] = {" 24", "mine"};
  loadZoneDataAfterSketch(s.t.dir(), s.p, 24);
  EXPECT_EQ(s.p.walls[1].fields[2], "  .511");  // .090 x 5.6782628
  EXPECT_EQ(s.p.walls[1].fields[6], "301.39");  // 28.00 / .09290304
  EXPECT_EQ(s.p.profiles.kinds[2][24].values, "mine");
  // 80 F and 75 F: 26.7 and 23.9 C, whole, right-aligned in two.
  EXPECT_EQ(s.p.profiles.of(ProfileKind::Temp)[1].values.substr(0, 28), " 27  27  27  27  27  24  24 ");
}

TEST(ZoneEntry, LaterEntryMergesAndKeepsTheProjectsTypes) {
  SketchedProject s(UnitSystem::IP);
  loadZoneDataAfterSketch(s.t.dir(), s.p, 24);
  s.p.flags.zonesOpened = true;
  s.p.walls[2].fields = {"2", "my wall", ".05", ".5", "1", "1", "9"};
  s.p.zones[2].rows[1].windowArea = 60;
  s.p.zones[2].rows[2].windowArea = 30;
  s.p.zones[1].fields[kPeople] = "12";
  s.t.write("temp/temp01.zon", wallRow("300") + wallRow("250") + "end\r\n");
  std::filesystem::remove(s.t.path("temp/temp1.zon"));  // a zone's failure is ignored in the merge

  loadZoneDataAfterSketch(s.t.dir(), s.p, 24);
  EXPECT_EQ(s.p.walls[2].fields[1], "my wall");
  EXPECT_EQ(s.p.zones[1].fields[kPeople], "12");
  EXPECT_FLOAT_EQ(s.p.zones[2].rows[1].windowArea, 60.0f);
  EXPECT_FLOAT_EQ(s.p.zones[2].rows[2].windowArea, 0.0f);
  EXPECT_FLOAT_EQ(s.p.zones[2].rows[2].wallArea, 250.0f);
}

TEST(ZoneEntry, FailuresLeaveTheProjectAsItWas) {
  const struct {
    const char* what;
    std::function<void(SketchedProject&)> damage;
    int building;
    int number;
  } cases[] = {
      {"missing scratch file", [](SketchedProject& s) { std::filesystem::remove(s.t.path("temp/temp01.zon")); },
       24, err::kFileNotFound},
      {"short window catalog", [](SketchedProject& s) { s.t.write("profiles/bprof7.dat", crlf({"1", "x"})); }, 24,
       err::kInputPastEnd},
      {"no building type", [](SketchedProject&) {}, 0, err::kSubscriptOutOfRange},
  };
  for (const auto& c : cases) {
    SketchedProject s(UnitSystem::IP);
    c.damage(s);
    try {
      loadZoneDataAfterSketch(s.t.dir(), s.p, c.building);
      ADD_FAILURE() << c.what;
    } catch (const FileError& e) {
      EXPECT_EQ(e.number(), c.number) << c.what;
    }
    EXPECT_TRUE(s.p.walls[1].id().empty()) << c.what;
    EXPECT_TRUE(s.p.profiles.kinds[1][24].id.empty()) << c.what;
    EXPECT_EQ(s.p.zones[1].rowCount, 0) << c.what;
    EXPECT_TRUE(s.p.zones[1].fields[kPeople].empty()) << c.what;
  }
}

}  // namespace
}  // namespace marloven::testing
