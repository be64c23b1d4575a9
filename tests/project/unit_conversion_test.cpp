// Unit conversion of projects: the worked numbers, the writers' own rules, and
// where repeated conversion settles.
#include "project/unit_conversion.h"

#include <gtest/gtest.h>

#include "common/split.h"
#include "project/project_test_util.h"

namespace marloven::testing {
namespace {

// Reads a file into a fresh project and writes it with a conversion.
std::string convertFile(const std::string& bytes, Conversion c) {
  ReadSideFiles side;
  Project p = readFresh(bytes, &side);
  ColumnPrinter out;
  printHeader(out, p.seed, p.weeksPerMonth, targetUnits(p.units, c));
  writeProject(out, p, side.sketchLines, c);
  return out.take();
}

std::string lineStarting(const std::vector<std::string>& lines, const std::string& prefix, int nth = 0) {
  for (const auto& l : lines)
    if (l.rfind(prefix, 0) == 0 && nth-- == 0) return l;
  return "(none)";
}

TEST(UnitConversion, WorkedNumbers) {
  struct Case {
    const char* what;
    std::string text;
    Factor f;
    int digits;
    std::string_view m;
    std::string expected;
  } cases[] = {
      // 1000 ft2 is 92.9 m2, stored whole; back it is 93 x 10.76391 = 1001.04.
      {"area to SI", "1000", times(0.09290304), 0, mask::B, " 93"},
      {"area back", " 93", times(10.76391), 1, mask::B, " 1001"},
      {"U-factor to SI", ".25", times(5.6782628), 3, mask::B, " 1.42"},      // 1.4196
      {"U-factor back", " 1.42", times(0.1761102), 3, mask::A, "  .25"},    // .25008
      {"illuminance to SI", "30", times(10.7639104), 0, mask::B, " 323"},   // 322.917
      {"illuminance back", "323", times(0.09290304), 0, mask::B, " 30"},    // 30.008
      {"profile to SI", "75", kFToC, 1, mask::E, " 23.9"},                  // 23.889
      {"profile back", " 23.9", kCToF, 0, mask::D, "  75"},                 // 75.02
      {"negative halves round up", "31.1", kFToC, 1, mask::E, "  -.5"},     // -.5 exactly
      {"empty text is 0", "", times(0.09290304), 0, mask::B, " 0"},
      {"empty temperature is 32", "", kCToF, 1, mask::C, "    32"},
      {"mask C never cuts", "12345", times(10.76391), 1, mask::C, " 132880.5"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(convertText(c.text, c.f, c.digits, c.m), c.expected) << c.what;
  }
  // -17.8 C is -.04 F: RoundTo(-.04, 1) = floor(-.4 + .5) / 10 = 0.
  EXPECT_EQ(convertText("-17.8", kCToF, 1, mask::C), "     0");
  // Each direction has its own constant; they are not inverses.
  EXPECT_NE(10.76391 * 0.09290304, 1.0);
  EXPECT_NE(10.7639104, 10.76391);
}

TEST(UnitConversion, WriterToSiConvertsEveryFieldOfTheTable) {
  const auto si = splitLines(convertFile(fixture("full_project.inp"), Conversion::ToSI));
  EXPECT_EQ(si[0], "MARLOVEN   .7055475  4  SI");
  EXPECT_EQ(lineStarting(si, "FloorArea "), "FloorArea   1338");  // 14400 x .09290304 = 1337.8
  EXPECT_EQ(lineStarting(si, "Con. Cost "), "Con. Cost   0");
  // Weather: the elevation at column 76 through mask A, months in fields of 6.
  const std::string line2 = lineStarting(si, "LAT=");
  EXPECT_EQ(line2.substr(75), "  1625");  // Int(5330 x .3048 + .5)
  EXPECT_EQ(line2.find_first_not_of(' ', 26), 77u);
  EXPECT_EQ(lineStarting(si, "DB Ave "), "DB Ave   -1.3    .8   3.9     9    14  19.4  23.1  21.9  16.8  10.8   3.9   -.9");
  EXPECT_EQ(lineStarting(si, "SOLAR  ").substr(0, 19), "SOLAR    9539 12719");  // Int(840 x 11.3565295)
  EXPECT_EQ(lineStarting(si, "Gas  Cost "), "Gas  Cost   8.06");   // .85 / .1055054762
  EXPECT_EQ(lineStarting(si, "WaterCost "), "WaterCost   0");     // .004 / 3.7854125 = .001
  EXPECT_EQ(lineStarting(si, "U-Factor  "), "U-Factor   .477");   // .084 x 5.6782628
  EXPECT_EQ(lineStarting(si, "Ins. Cost "), "Ins. Cost  12.92");  // 1.2 / .09290304
  // Temperature profiles in tenths, other profiles untouched.
  const int temp = indexOf(si, "Temp");
  EXPECT_EQ(si[temp + 2].substr(0, 15), " 23.9 23.9 23.9");
  EXPECT_EQ(si[temp + 8].substr(30, 15), " 15.6 21.1 21.1");
  EXPECT_EQ(si[indexOf(si, "Occ") + 2], fixtureLines("full_project.inp")[indexOf(si, "Occ") + 2]);
  // Zones: outside air by kind, and the label of natural ventilation.
  EXPECT_EQ(lineStarting(si, "OA CFM    ", 0), "OA CFM    CP7.1");   // 15 x .47194744
  EXPECT_EQ(lineStarting(si, "OA CFM    ", 1), "OA CFM    CP7.1");   // bare "15" counts as CP
  EXPECT_EQ(lineStarting(si, "OA CFM    ", 2), "OA CFM    CS.508");  // .1 x 5.0799972
  EXPECT_EQ(lineStarting(si, "Litre/sec "), "Litre/sec  0");
  EXPECT_EQ(lineStarting(si, "CFM/sqft. "), "(none)");
  EXPECT_EQ(lineStarting(si, "Target FC "), "Target FC  323");
  EXPECT_EQ(lineStarting(si, "Cool SEER "), "Cool SEER  3.8");     // 13 / 3.412141
  EXPECT_EQ(lineStarting(si, "Stat.Pres "), "Stat.Pres  373.2");
  // Surface rows: converted measures as text (no trailing blank), the rest printed.
  EXPECT_EQ(lineStarting(si, "Wall Area "), "Wall Area  111.5");   // 1200 ft2
  EXPECT_EQ(lineStarting(si, "Sill High "), "Sill High  .9");
  EXPECT_EQ(lineStarting(si, "WallOrien "), "WallOrien  180 ");
  // Sketch: lengths and areas of each level, names and grid rows unchanged.
  EXPECT_EQ(lineStarting(si, "Grid Size   :"), "Grid Size   : .61 ");
  EXPECT_EQ(lineStarting(si, "Room Height :", 1), "Room Height : 3.66 ");
  EXPECT_EQ(lineStarting(si, "Floor Area  :"), "Floor Area  : 341.9 ");
  EXPECT_EQ(lineStarting(si, "Orientation :"), "Orientation : 15");
  const auto in = fixtureLines("full_project.inp");
  const int m = indexOf(si, "BUILDING MATRIX"), n = indexOf(in, "BUILDING MATRIX");
  ASSERT_EQ(si.size() - m, in.size() - n);
  for (int i = 7; i < 91; ++i) EXPECT_EQ(si[m + i], in[n + i]) << "sketch line " << i;
}

TEST(UnitConversion, OutsideAirOfKindPaIsLeftAsItIs) {
  auto lines = fixtureLines("full_project.inp");
  lines[indexOf(lines, "OA CFM    15")] = "OA CFM    PA300";
  for (Conversion c : {Conversion::ToSI, Conversion::ToIP}) {
    const auto out = splitLines(convertFile(joinCrlf(lines), c));
    EXPECT_EQ(lineStarting(out, "OA CFM    ", 1), "OA CFM    PA300");
  }
}

TEST(UnitConversion, WriterToSiReplacesTypedDesignTemperatures) {
  auto lines = fixtureLines("full_project.inp");
  lines[indexOf(lines, "ECONOMICS") - 1] = "DesTemps  100 80 50";
  const auto si = splitLines(convertFile(joinCrlf(lines), Conversion::ToSI));
  // The estimate for the fixture's weather is 97.5 / 3.5 F: 36.4 and -15.8 C.
  EXPECT_EQ(lineStarting(si, "DesTemps"), "DesTemps   36.4  17.4 -15.8 ");
}

TEST(UnitConversion, WriterToIpEndsRowsAtAZeroCodeAndKeepsTypedTemperatures) {
  const std::string si = convertFile(fixture("full_project.inp"), Conversion::ToSI);
  const auto ip = splitLines(convertFile(si, Conversion::ToIP));
  EXPECT_EQ(ip[0], "MARLOVEN   .7055475  4  IP");
  // Converted from the SI values as they stand: 36.4 -> 97.52, -15.8 -> 3.56.
  EXPECT_EQ(lineStarting(ip, "DesTemps"), "DesTemps    97.5   63.3    3.6 ");
  EXPECT_EQ(lineStarting(ip, "FloorArea "), "FloorArea   14402.1");
  EXPECT_EQ(lineStarting(ip, "Temp"), "Temp");
  EXPECT_EQ(ip[indexOf(ip, "Temp") + 2].substr(0, 12), "  75  75  75");
  // Zone 11's third row is a roof without a window: the rows end before it.
  Project p = readFresh(joinCrlf(ip));
  EXPECT_EQ(p.zones[1].rowCount, 2);
  EXPECT_EQ(p.zones[2].rowCount, 1);
  EXPECT_EQ(p.zones[3].rowCount, 2);
  EXPECT_EQ(lineStarting(ip, "OA CFM    ", 2), "OA CFM    CS.1");
}

// I-P -> SI -> I-P -> SI ...: what is lost is lost in the first pair, and the
// files stop changing from the second SI file on.
//  - areas to whole m2 (14400 ft2 -> 1338 m2 -> 14402.1 ft2), costs to cents,
//    water cost to 0, weather to tenths of C;
//  - design temperatures: the writer to SI replaces them by estimates, so the
//    second SI file estimates again from the weather as rounded once;
//  - zone rows from the first row with a zero wall ID, window ID or exposure.
TEST(UnitConversion, RepeatedConversionReachesAFixedPoint) {
  const std::string ip0 = fixture("full_project.inp");
  const std::string si1 = convertFile(ip0, Conversion::ToSI);
  const std::string ip1 = convertFile(si1, Conversion::ToIP);
  const std::string si2 = convertFile(ip1, Conversion::ToSI);
  const std::string ip2 = convertFile(si2, Conversion::ToIP);
  const std::string si3 = convertFile(ip2, Conversion::ToSI);
  const std::string ip3 = convertFile(si3, Conversion::ToIP);
  EXPECT_EQ(si2, si3);
  EXPECT_EQ(ip2, ip3);

  // The second pair differs from the first only in the design temperatures.
  const auto a = splitLines(ip1), b = splitLines(ip2);
  ASSERT_EQ(a.size(), b.size());
  for (std::size_t i = 0; i < a.size(); ++i)
    if (a[i].rfind("DesTemps", 0) != 0) {
      EXPECT_EQ(a[i], b[i]) << "line " << i + 1;
    }
  EXPECT_EQ(lineStarting(splitLines(si1), "DesTemps"), "DesTemps   36.4  17.4 -15.8 ");
  EXPECT_EQ(lineStarting(splitLines(si2), "DesTemps"), "DesTemps   36.3  17.4 -15.7 ");
}

TEST(UnitConversion, AProjectAlreadyInTheTargetSystemKeepsItsWeatherLinesVerbatim) {
  Project p = readFresh(fixture("full_project.inp"));
  ColumnPrinter out;
  writeProject(out, p, {}, Conversion::None);
  const auto lines = splitLines(out.take());
  EXPECT_EQ(lineStarting(lines, "DB Ave "), fixtureLines("full_project.inp")[17]);
  EXPECT_EQ(targetUnits(UnitSystem::SI, Conversion::None), UnitSystem::SI);
}

}  // namespace
}  // namespace marloven::testing
