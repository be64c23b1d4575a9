#include "input/building_type.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "common/column_printer.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "project/project_reader.h"
#include "project/project_writer.h"
#include "support/temp_install.h"

namespace marloven {
namespace {

const std::string kShipped = std::string(MARLOVEN_SOURCE_DIR) + "/install";

Project fresh(UnitSystem units) {
  Project p;
  p.units = units;
  return p;
}

std::vector<std::string> shippedLines(int n) {
  return splitLines(readFile(kShipped + "/btype/bdtype" + std::to_string(n) + ".dat"));
}

// The file's I-P value and the SI text: the text must be the value through the
// factor, rounded to the digits, right-aligned in the width.
void expectConverted(const std::string& ip, const std::string& si, double factor, int digits,
                     std::size_t width, const std::string& where) {
  const double want = leadingNumber(ip) * factor;
  EXPECT_NEAR(leadingNumber(si), want, 0.5 * std::pow(10.0, -digits) + 1e-4 * std::abs(want)) << where;
  EXPECT_GE(si.size(), width) << where;
  if (si.size() > width) {
    EXPECT_NE(si.front(), ' ') << where << ": padded beyond its width";
  }
}

TEST(BuildingType, ValueIsTheFirstTwentyCharactersWithoutTrailingBlanks) {
  EXPECT_EQ(buildingTypeValue("0.07   "), "0.07");
  EXPECT_EQ(buildingTypeValue("  12 "), "  12");
  EXPECT_EQ(buildingTypeValue("A long project name that goes on"), "A long project name");
  EXPECT_EQ(buildingTypeValue("                         x"), "");
  EXPECT_EQ(buildingTypeValue(""), "");
}

// Every shipped type, in both unit systems, against its own file: project
// data, economics, the demand flag and zone fields 4..30.
TEST(BuildingType, EveryShippedTypeFillsTheProjectInBothUnitSystems) {
  struct Si {
    int field;
    double factor;
    int digits;
    std::size_t width;
  };
  const std::vector<Si> zoneSi = {{4, 4.882428, 1, 5},       {7, 3.7854125, 1, 5},
                                  {12, 1 / 0.09290304, 1, 5}, {13, 1 / 0.09290304, 1, 5},
                                  {14, 1 / 0.09290304, 1, 5}, {22, 18.28799833, 1, 5},
                                  {24, 0.3048, 1, 5},         {25, 10.7639104, 0, 4},
                                  {26, 248.8, 1, 6},          {27, 1 / 3.412141, 1, 6}};
  for (int n = 1; n <= kBuildingTypes; ++n) {
    const std::vector<std::string> f = shippedLines(n);
    ASSERT_GE(f.size(), 57u) << n;
    auto v = [&](int line) { return buildingTypeValue(f[line - 1]); };
    for (UnitSystem units : {UnitSystem::IP, UnitSystem::SI}) {
      const bool si = units == UnitSystem::SI;
      const std::string where = "type " + std::to_string(n) + (si ? " SI" : " IP");
      Project p = fresh(units);
      ProjectInfoBoxes boxes;
      loadBuildingType(kShipped, n, 2026, boxes, p);

      EXPECT_EQ(boxes, p.data) << where;
      EXPECT_EQ(p.data[0], f[0]) << where;
      for (int i : {1, 2, 3, 4, 5, 7, 8, 10, 11}) EXPECT_EQ(p.data[i], v(i + 1)) << where << " data " << i;
      EXPECT_EQ(p.data[6], "2026") << where;
      if (si)
        expectConverted(v(10), p.data[9], 10.76391, 2, 6, where + " cost");
      else
        EXPECT_EQ(p.data[9], v(10)) << where;

      for (int i = 0; i < kEconomicsCount; ++i) {
        if (si && i == kGasCost)
          expectConverted(v(13 + i), p.economics[i], 1 / 0.1055054762, 2, 6, where + " gas");
        else if (si && i == kWaterCost)
          expectConverted(v(13 + i), p.economics[i], 1 / 3.7854125, 2, 6, where + " water");
        else
          EXPECT_EQ(p.economics[i], v(13 + i)) << where << " economics " << i;
      }
      EXPECT_EQ(p.demand.text, f[23].substr(0, 1)) << where;

      for (int z : {1, 50, 98}) {
        const ZoneRecord& zone = p.zones[z];
        for (int field = 4; field <= 30; ++field) {
          const std::string ip = v(28 + field - 4);
          const std::string at = where + " zone " + std::to_string(z) + " field " + std::to_string(field);
          if (field == 5) {
            EXPECT_NEAR(zone.floorAreaPerPerson, leadingNumber(ip) * (si ? 0.09290304 : 1.0),
                        si ? 0.05 : 1e-3) << at;
            EXPECT_EQ(zone.fields[5], "") << at;  // the people count waits for the floor area
            continue;
          }
          const auto c = std::find_if(zoneSi.begin(), zoneSi.end(), [&](const Si& s) { return s.field == field; });
          if (si && field == 9) {
            ASSERT_GE(zone.fields[9].size(), 2u) << at;
            EXPECT_EQ(zone.fields[9].substr(0, 2), ip.substr(0, 2)) << at;
            expectConverted(ip.substr(2), zone.fields[9].substr(2), 1.69901064, 3, 7, at);
          } else if (si && c != zoneSi.end()) {
            expectConverted(ip, zone.fields[field], c->factor, c->digits, c->width, at);
          } else {
            EXPECT_EQ(zone.fields[field], ip) << at;
          }
        }
      }
      for (int z : {1, 98, 99}) {
        EXPECT_EQ(p.zones[z].naturalVent, f[54].substr(0, 5)) << where;
        EXPECT_EQ(p.zones[z].daylight, f[55].substr(0, 5)) << where;
        EXPECT_EQ(p.zones[z].economizer, f[56].substr(0, 5)) << where;
      }
      EXPECT_EQ(p.zones[99].fields[4], "") << where << ": numbered fields stop at zone 98";
      EXPECT_TRUE(p.flags.buildingTypeChosen);
    }
  }
}

// Worked by hand from the shipped files.
TEST(BuildingType, SiValuesOfOfficeHospitalAndWarehouse) {
  {
    Project p = fresh(UnitSystem::SI);  // office: cost 170 $/ft2, gas 1.10 $/therm, water 4.00 $/1000 gal
    ProjectInfoBoxes b;
    loadBuildingType(kShipped, 24, 2026, b, p);
    EXPECT_EQ(p.data[9], "1829.86");      // 170 x 10.76391 = 1829.8647
    EXPECT_EQ(p.economics[7], " 10.43");  // 1.10 / 0.1055054762 = 10.4260
    EXPECT_EQ(p.economics[9], "  1.06");  // 4.00 / 3.7854125 = 1.0567
    const ZoneRecord& z = p.zones[1];
    EXPECT_EQ(z.fields[4], " 48.8");       // 10 lb/ft2 x 4.882428
    EXPECT_FLOAT_EQ(z.floorAreaPerPerson, 18.6f);  // 200 ft2 x 0.09290304 = 18.58
    EXPECT_EQ(z.fields[7], "  3.8");       // 1.0 gal x 3.7854125
    EXPECT_EQ(z.fields[9], "CP 28.883");   // 17 x 1.69901064 = 28.88318, aligned in 7 behind the kind
    EXPECT_EQ(z.fields[12], " 32.3");      // 3.00 / 0.09290304 = 32.29
    EXPECT_EQ(z.fields[13], " 10.8");      // 1.0 / 0.09290304 = 10.76
    EXPECT_EQ(z.fields[14], "  7.5");      // 0.70 / 0.09290304 = 7.53
    EXPECT_EQ(z.fields[22], "    0");
    EXPECT_EQ(z.fields[24], "  4.6");      // 15 ft x 0.3048 = 4.572
    EXPECT_EQ(z.fields[25], " 323");       // 30 fc x 10.7639104 = 322.9
    EXPECT_EQ(z.fields[26], " 995.2");     // 4.0 in. x 248.8
    EXPECT_EQ(z.fields[27], "   2.8");     // SEER 9.5 / 3.412141 = 2.784
    EXPECT_EQ(z.fields[23], "0.3");        // air changes need no conversion
  }
  {
    Project p = fresh(UnitSystem::SI);  // hospital
    ProjectInfoBoxes b;
    loadBuildingType(kShipped, 15, 2026, b, p);
    EXPECT_EQ(p.data[9], "3552.09");  // 330 x 10.76391 = 3552.0903
    const ZoneRecord& z = p.zones[42];
    EXPECT_EQ(z.fields[4], " 73.2");      // 15 x 4.882428 = 73.236
    EXPECT_EQ(z.fields[7], "   53");      // 14 gal x 3.7854125 = 52.996
    EXPECT_EQ(z.fields[9], "CP 42.475");  // 25 x 1.69901064 = 42.4753
    EXPECT_EQ(z.fields[13], " 12.9");     // 1.2 / 0.09290304 = 12.917
    EXPECT_EQ(z.fields[14], " 17.1");     // 1.59 / 0.09290304 = 17.115
    EXPECT_EQ(z.fields[25], " 538");      // 50 x 10.7639104 = 538.2
    EXPECT_FLOAT_EQ(z.floorAreaPerPerson, 9.3f);  // 100 x 0.09290304 = 9.29
  }
  {
    Project p = fresh(UnitSystem::SI);  // warehouse: outside air per floor area
    ProjectInfoBoxes b;
    loadBuildingType(kShipped, 41, 2026, b, p);
    EXPECT_EQ(p.data[9], "753.47");      // 70 x 10.76391 = 753.4737
    const ZoneRecord& z = p.zones[98];
    EXPECT_EQ(z.fields[4], "195.3");      // 40 x 4.882428 = 195.297
    EXPECT_EQ(z.fields[9], "CS   .102");  // 0.06 x 1.69901064 = 0.10194
    EXPECT_EQ(z.fields[14], "    2");     // 0.19 / 0.09290304 = 2.045
    EXPECT_EQ(z.fields[26], " 373.2");    // 1.5 x 248.8
    EXPECT_EQ(z.fields[27], "   3.8");    // 13.0 / 3.412141 = 3.81
    EXPECT_FLOAT_EQ(z.floorAreaPerPerson, 967.5f);  // 10414 x 0.09290304 = 967.49
  }
}

TEST(BuildingType, TypedLocationOrientationAndFloorAreaAreKept) {
  Project p = fresh(UnitSystem::IP);
  ProjectInfoBoxes b;
  b[kLocation] = "Denver, CO";
  b[kOrientation] = "15";
  b[kFloorArea] = "12000";
  b[kConstructionYear] = "1999";
  b[kProjectName] = "Mine";
  loadBuildingType(kShipped, 24, 2031, b, p);
  EXPECT_EQ(b[kLocation], "Denver, CO");
  EXPECT_EQ(b[kOrientation], "15");
  EXPECT_EQ(b[kFloorArea], "12000");
  EXPECT_EQ(b[kConstructionYear], "2031");  // always this year
  EXPECT_EQ(b[kProjectName], "New Project");  // the rest comes from the file
  EXPECT_EQ(p.data[kLocation], "Denver, CO");

  b[kFloorArea] = "0";  // "0" counts as no floor area
  b[kLocation] = "";
  loadBuildingType(kShipped, 15, 2031, b, p);
  EXPECT_EQ(b[kFloorArea], "0");  // the file's own value happens to be 0 as well
  EXPECT_EQ(b[kLocation], "");
  EXPECT_EQ(b[kOrientation], "15");
  EXPECT_EQ(p.data[kBuildingType], "Hospital HE");
}

TEST(BuildingType, FloorAreaZeroIsReplacedByTheFilesValue) {
  testing::TempInstall t;
  std::vector<std::string> lines = shippedLines(24);
  lines[8] = "25000";
  std::string bytes;
  for (const auto& l : lines) bytes += l + "\r\n";
  t.write("btype/bdtype7.dat", bytes);
  for (const std::string& before : {std::string(), std::string("0")}) {
    Project p = fresh(UnitSystem::IP);
    ProjectInfoBoxes b;
    b[kFloorArea] = before;
    loadBuildingType(t.dir(), 7, 2026, b, p);
    EXPECT_EQ(p.data[kFloorArea], "25000") << "'" << before << "'";
  }
  Project p = fresh(UnitSystem::IP);
  ProjectInfoBoxes b;
  b[kFloorArea] = " 0";  // a number typed, not the empty "0" of a new project
  loadBuildingType(t.dir(), 7, 2026, b, p);
  EXPECT_EQ(p.data[kFloorArea], " 0");
}

TEST(BuildingType, TheCurrentZoneTakesTheTypesProfilesAndTheProjectLosesItsFile) {
  Project p = fresh(UnitSystem::IP);
  p.flags.fromFile = true;
  p.currentZone = 3;
  ProjectInfoBoxes b;
  loadBuildingType(kShipped, 17, 2026, b, p);
  EXPECT_FALSE(p.flags.fromFile);
  for (int field : {kOccProfile, kHotWaterProfile, kVentProfile, kLightProfile})
    EXPECT_EQ(p.zones[3].fields[field], " 17") << field;
  EXPECT_EQ(p.zones[4].fields[kOccProfile], shippedLines(17)[29]);  // the file's own line
}

TEST(BuildingType, AShortOrMissingFileChangesNothing) {
  testing::TempInstall t;
  std::vector<std::string> lines = shippedLines(24);
  lines.resize(56);
  std::string bytes;
  for (const auto& l : lines) bytes += l + "\r\n";
  t.write("btype/bdtype3.dat", bytes);

  Project p = fresh(UnitSystem::IP);
  p.flags.fromFile = true;
  p.data[kProjectName] = "Kept";
  ProjectInfoBoxes b = p.data;
  for (auto [n, number] : {std::pair{3, err::kInputPastEnd}, std::pair{4, err::kFileNotFound},
                           std::pair{43, err::kSubscriptOutOfRange}}) {
    try {
      loadBuildingType(t.dir(), n, 2026, b, p);
      ADD_FAILURE() << "type " << n << " loaded";
    } catch (const FileError& e) {
      EXPECT_EQ(e.number(), number) << n;
    }
  }
  EXPECT_EQ(b[kProjectName], "Kept");
  EXPECT_EQ(p.data[kProjectName], "Kept");
  EXPECT_TRUE(p.flags.fromFile);
  EXPECT_FALSE(p.flags.buildingTypeChosen);
  EXPECT_EQ(p.zones[1].fields[4], "");
}

}  // namespace
}  // namespace marloven
