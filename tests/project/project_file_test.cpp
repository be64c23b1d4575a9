// The project file: read -> write keeps every line except where the reader's
// and writer's own rules change it, and the reader's known limits stay as they are.
#include <gtest/gtest.h>

#include <clocale>
#include <locale>
#include <random>

#include "common/file_error.h"
#include "common/split.h"
#include "project/project_test_util.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

std::vector<std::string> sketchOf(const std::vector<std::string>& lines) {
  const int at = indexOf(lines, "BUILDING MATRIX");
  return {lines.begin() + at + 1, lines.end()};
}

// The lines of a file with the part between two marker lines replaced.
std::vector<std::string> replaceBetween(std::vector<std::string> lines, const std::string& open,
                                        const std::string& close, const std::vector<std::string>& body) {
  const int a = indexOf(lines, open), b = indexOf(lines, close, a + 1);
  lines.erase(lines.begin() + a + 1, lines.begin() + b);
  lines.insert(lines.begin() + a + 1, body.begin(), body.end());
  return lines;
}

std::vector<std::string> wallRecords(int n) {
  std::vector<std::string> out;
  for (int i = 1; i <= n; ++i) {
    const std::string id = std::to_string(i);
    out.insert(out.end(), {"ID. #     " + id, "Descript. Wall " + id, "U-Factor  .1", "Solar Abs .5",
                           "Time Lag  2", "Dec. Fact .8", "Ins. Cost 1"});
  }
  out.push_back("9999");
  return out;
}

// The fixture's zone "12" (one surface row) repeated under new IDs.
std::vector<std::string> zoneRecords(int n) {
  const auto lines = fixtureLines("full_project.inp");
  const int a = indexOf(lines, "Zone No.  12"), b = indexOf(lines, "9999", a);
  std::vector<std::string> out;
  for (int i = 1; i <= n; ++i) {
    out.push_back("Zone No.  " + std::to_string(100 + i));
    out.insert(out.end(), lines.begin() + a + 1, lines.begin() + b + 1);
  }
  return out;
}

TEST(ProjectFile, ReadsEveryRecordOfTheFixture) {
  ReadSideFiles side;
  Project p = readFresh(fixture("full_project.inp"), &side);

  EXPECT_EQ(p.units, UnitSystem::IP);
  EXPECT_EQ(p.seed, " .7055475 ");
  EXPECT_EQ(p.weeksPerMonth, 4);
  EXPECT_EQ(p.data[kBuildingType], "School/ Elementary  SE");
  EXPECT_EQ(p.data[kConstructionCost], "");
  EXPECT_EQ(p.sketchOrientation, "15");
  EXPECT_FLOAT_EQ(p.sketchFloorArea, 14400);
  EXPECT_EQ(p.weather.lines[11].substr(0, 7), "WIND   ");
  EXPECT_EQ(p.designTemps.values[1], "  91.3");
  EXPECT_EQ(p.designTemps.values[3], "-2.1 ");
  EXPECT_TRUE(p.designTemps.known);
  EXPECT_EQ(p.economics[kWaterCost], ".004");
  EXPECT_EQ(p.demand.text, "Y");
  ASSERT_EQ(p.demand.pairCount, 2);
  EXPECT_EQ(p.demand.pairs[2].first, "500");
  EXPECT_EQ(p.demand.pairs[2].second, "12.25");
  EXPECT_EQ(p.walls[5].fields[1], "Slab on grade, unheated");
  EXPECT_TRUE(p.walls[3].id().empty());
  EXPECT_EQ(p.windows[3].fields[2], ".98");
  EXPECT_EQ(p.profiles.of(ProfileKind::Lite)[20].id, "20");
  EXPECT_EQ(p.profiles.of(ProfileKind::Temp)[4].values.substr(0, 6), " 60 60");

  ASSERT_EQ(p.zoneCount, 3);
  const ZoneRecord& z1 = p.zones[1];
  EXPECT_EQ(z1.listedId, "11");
  EXPECT_FLOAT_EQ(z1.listedFloorArea, 5200);
  EXPECT_FLOAT_EQ(z1.floorAreaPerPerson, 25);  // 5200 ft2 over 208 people
  EXPECT_EQ(z1.rowCount, 3);
  EXPECT_EQ(z1.rows[2].venetianBlind, 1);
  EXPECT_FLOAT_EQ(z1.rows[2].diffuseTransmittance, .5f);
  const EnvelopeRow& r = p.zones[2].rows[1];
  EXPECT_FLOAT_EQ(r.wallArea, 120.5f);
  EXPECT_EQ(r.externalShading, "0 0 N");
  EXPECT_EQ(r.surfaceCode, "W");
  EXPECT_EQ(p.zones[3].daylight, " Yes");
  EXPECT_TRUE(p.flags.daylightingInUse);

  for (int i = 1; i <= 5; ++i) EXPECT_TRUE(p.flags.stepDone[i]);
  EXPECT_TRUE(p.flags.fromFile);
  EXPECT_TRUE(p.flags.zonesOpened);
  EXPECT_FALSE(p.flags.resketched);
  EXPECT_FALSE(p.flags.inputSaved);

  // Each zone's scratch file holds the row values as they followed the labels.
  ASSERT_EQ(side.zoneFiles.size(), 3u);
  EXPECT_EQ(side.zoneFiles[1].name, "temp12.zon");
  EXPECT_EQ(side.zoneFiles[1].text,
            crlf({"1", "120.50", "270", "2", " 0 0 N", "3", "40.25", "90", "W", "0", "0", "10", "4", ".2",
                  "end"}));
  EXPECT_EQ(sketchOf(fixtureLines("full_project.inp")), side.sketchLines);
  EXPECT_EQ(side.sketchLines.size(), 182u);
}

TEST(ProjectFile, WritingBackChangesOnlyWhatTheRulesChange) {
  const auto original = fixtureLines("full_project.inp");
  ReadSideFiles side;
  Project p = readFresh(fixture("full_project.inp"), &side);
  const std::string written = writeAsSaved(p, side.sketchLines);

  auto expected = original;
  auto change = [&](const std::string& from, const std::string& to) {
    const int i = indexOf(expected, from);
    ASSERT_GE(i, 0) << from;
    expected[i] = to;
  };
  change("Con. Cost ", "Con. Cost 0.0");  // never entered
  // The split keeps the blank of column 10 with the first value, and the last
  // character (a blank) with the last value.
  change("DesTemps   91.3  57.4 -2.1 ", "DesTemps    91.3  57.4 -2.1  ");
  change("OA CFM    15", "OA CFM    CP15");  // a kind is always written
  // Surface rows are typed values: numbers print in the print form, texts lose
  // their leading blanks.
  const int row = indexOf(expected, "Wall ID.  1");
  const std::vector<std::string> printedRow = {
      "Wall ID.   1 ",  "Wall Area  120.5 ", "WallOrien  270 ", "Surf Exp.  2 ", "Ext. Shd. 0 0 N",
      "Window ID  3 ",  "Win. Area  40.25 ", "Rf/Wl Slp  90 ",  "S/W/B     W",   "Ven. Blnd  0 ",
      "DiffTrans  0 ",  "Sill High  10 ",    "Window Ht  4 ",   "Grnd Refl  .2 "};
  std::copy(printedRow.begin(), printedRow.end(), expected.begin() + row);

  EXPECT_EQ(splitLines(written), expected);
  EXPECT_EQ(written, joinCrlf(expected));
  EXPECT_EQ(p.zones[2].fields[kOutsideAir], "CP15");
}

TEST(ProjectFile, ASecondPassChangesOnlyTheDesignTemperatureLine) {
  ReadSideFiles side;
  Project p = readFresh(fixture("full_project.inp"), &side);
  const auto first = splitLines(writeAsSaved(p, side.sketchLines));
  Project q = readFresh(joinCrlf(first));
  const auto second = splitLines(writeAsSaved(q, side.sketchLines));

  ASSERT_EQ(first.size(), second.size());
  for (std::size_t i = 0; i < first.size(); ++i) {
    if (first[i].rfind("DesTemps", 0) == 0) {
      // One more blank before the first value per pass; the last value's
      // trailing blank comes and goes.
      EXPECT_EQ(first[i], "DesTemps    91.3  57.4 -2.1  ");
      EXPECT_EQ(second[i], "DesTemps     91.3  57.4 -2.1 ");
    } else {
      EXPECT_EQ(first[i], second[i]) << "line " << i + 1;
    }
  }
}

TEST(ProjectFile, LfLineEndsReadAsCrLf) {
  std::string lf;
  for (const auto& l : fixtureLines("full_project.inp")) lf += l + "\n";
  ReadSideFiles a, b;
  Project pa = readFresh(fixture("full_project.inp"), &a);
  Project pb = readFresh(lf, &b);
  EXPECT_EQ(writeAsSaved(pa, a.sketchLines), writeAsSaved(pb, b.sketchLines));
  EXPECT_EQ(a.zoneFiles[0].text, b.zoneFiles[0].text);
}

TEST(ProjectFile, TwentyFiveTypesReadBackButTwentySixDoNot) {
  const auto base = fixtureLines("full_project.inp");
  for (int n : {25, 26}) {
    const auto lines = replaceBetween(base, "WALL AND ROOF PROPERTIES", "WINDOW PROPERTIES", wallRecords(n));
    Project p;
    ReadSideFiles side;
    try {
      side = readProject(joinCrlf(lines), p);
    } catch (const FileError&) {
      EXPECT_EQ(n, 26) << "25 types must load";
      continue;
    }
    if (n == 25) {
      EXPECT_TRUE(side.notRead.empty());
    } else {
      ASSERT_FALSE(side.notRead.empty());
      EXPECT_EQ(side.notRead[0],
                "26 wall and roof types, the most the reader takes: the lines after them were not read as written");
    }
    const bool windowsIntact = p.windows[1].fields[1] == "Double, low-e, aluminium frame" &&
                               p.windows[3].fields[1] == "Skylight, double, clear" && p.windows[0].id().empty();
    EXPECT_EQ(p.walls[n].fields[1], "Wall " + std::to_string(n));
    if (n == 25) {
      EXPECT_TRUE(windowsIntact);
      EXPECT_EQ(p.zoneCount, 3);
    } else {
      // The walls' "9999" was taken for "WINDOW PROPERTIES"; that line became a window record.
      EXPECT_FALSE(windowsIntact && p.zoneCount == 3);
    }
  }
}

TEST(ProjectFile, AProfileKindAtItsLimitShiftsTheKindsAfterIt) {
  std::vector<std::string> occ;
  for (int i = 1; i <= 50; ++i) occ.insert(occ.end(), {std::to_string(i), " 1" + std::to_string(i)});
  occ.push_back("99");
  auto lines = replaceBetween(fixtureLines("full_project.inp"), "Occ", "HW", occ);
  ReadSideFiles side;
  Project p = readFresh(joinCrlf(lines), &side);
  ASSERT_EQ(side.notRead.size(), 1u);
  EXPECT_EQ(side.notRead[0],
            "Occ holds 50 profiles, the most the reader takes: the profile kinds after it were not read as written");

  EXPECT_EQ(p.profiles.of(ProfileKind::Occ)[50].values, " 150");
  // HW met Occ's "99" and ended at once; each kind then read the one before it.
  for (int i = 1; i <= 50; ++i) EXPECT_TRUE(p.profiles.of(ProfileKind::HW)[i].id.empty());
  EXPECT_EQ(p.profiles.of(ProfileKind::Vent)[17].values.substr(0, 9), " 0 0 0 0 ");  // HW's profile
  EXPECT_EQ(p.profiles.of(ProfileKind::Lite)[17].values.substr(0, 9), " .2 .2 .2");  // Vent's
  EXPECT_FALSE(p.profiles.of(ProfileKind::Temp)[20].id.empty());                    // Lite's
  EXPECT_TRUE(p.profiles.of(ProfileKind::Temp)[4].id.empty());                      // Temp's own are lost
  EXPECT_EQ(p.zoneCount, 3);

  // Twelve temperature profiles are the limit of that kind and still read back.
  std::vector<std::string> temp;
  for (int i = 1; i <= 12; ++i) temp.insert(temp.end(), {std::to_string(i), " 7" + std::to_string(i % 10)});
  temp.push_back("99");
  auto twelve = replaceBetween(fixtureLines("full_project.inp"), "Temp", "ZONES", temp);
  ReadSideFiles sideQ;
  Project q = readFresh(joinCrlf(twelve), &sideQ);
  EXPECT_TRUE(sideQ.notRead.empty());
  EXPECT_EQ(q.profiles.of(ProfileKind::Temp)[12].values, " 72");
  EXPECT_EQ(q.zoneCount, 3);
}

TEST(ProjectFile, NinetyNineZonesLeaveTheMatrixLineInTheSketch) {
  const auto base = fixtureLines("full_project.inp");
  for (int n : {98, 99}) {
    const auto lines = replaceBetween(base, "ZONES", "BUILDING MATRIX", zoneRecords(n));
    ReadSideFiles side;
    Project p = readFresh(joinCrlf(lines), &side);
    EXPECT_EQ(p.zoneCount, n);
    EXPECT_EQ(p.zones[n].listedId, std::to_string(100 + n));
    EXPECT_EQ(side.zoneFiles.size(), static_cast<std::size_t>(n));
    EXPECT_EQ(side.sketchLines.front(), n == 99 ? "BUILDING MATRIX" : "Grid Size   : 2") << n;
  }
}

TEST(ProjectFile, ZonesBeyondTheLimitAreNotReadAndSaidSo) {
  const auto base = fixtureLines("full_project.inp");
  for (int n : {99, 101}) {
    const auto lines = replaceBetween(base, "ZONES", "BUILDING MATRIX", zoneRecords(n));
    ReadSideFiles side;
    Project p = readFresh(joinCrlf(lines), &side);
    EXPECT_EQ(p.zoneCount, 99);
    if (n == 99) {
      EXPECT_TRUE(side.notRead.empty());
    } else {
      ASSERT_EQ(side.notRead.size(), 1u);
      EXPECT_EQ(side.notRead[0], "2 zones after the 99th not read: a project holds at most 99 zones");
    }
  }
}

TEST(ProjectFile, SiAnywhereInTheHeaderSelectsSi) {
  struct Case {
    std::string header;
    UnitSystem before, after;
  } cases[] = {
      {"MARLOVEN   .7055475  4  IP", UnitSystem::SI, UnitSystem::IP},
      {"MARLOVEN   .7055475  4  SI", UnitSystem::IP, UnitSystem::SI},
      {"MARLOVEN  SIMPLE      4  IP", UnitSystem::IP, UnitSystem::SI},  // inside the seed
      {"XSI", UnitSystem::IP, UnitSystem::SI},
      {"SI", UnitSystem::SI, UnitSystem::IP},  // position 1 is not looked at
      {"ISIX", UnitSystem::IP, UnitSystem::SI},
      {"S", UnitSystem::SI, UnitSystem::SI},   // too short: unchanged
      {"", UnitSystem::IP, UnitSystem::IP},
  };
  auto lines = fixtureLines("full_project.inp");
  for (const auto& c : cases) {
    lines[0] = c.header;
    Project p;
    p.units = c.before;
    readProject(joinCrlf(lines), p);
    EXPECT_EQ(p.units, c.after) << '"' << c.header << '"';
  }
}

TEST(ProjectFile, OlderFilesWithoutDesignTemperaturesOrDemandRatesLoad) {
  auto lines = fixtureLines("full_project.inp");
  lines.erase(lines.begin() + indexOf(lines, "DemChgRate 100 8.5 500 12.25"));
  lines.erase(lines.begin() + indexOf(lines, "DesTemps   91.3  57.4 -2.1 "));

  Project fresh = readFresh(joinCrlf(lines));
  EXPECT_FALSE(fresh.designTemps.known);
  EXPECT_EQ(fresh.demand.pairCount, 0);
  EXPECT_EQ(fresh.walls[1].fields[1], "Brick veneer, R-13 batt");

  // Written back, the temperatures are estimated and, with no pairs, the demand
  // flag is written as " N".
  const auto out = splitLines(writeAsSaved(fresh, {}));
  const int dt = indexOf(out, "ECONOMICS") - 1;
  EXPECT_EQ(out[dt].rfind("DesTemps  ", 0), 0u);
  EXPECT_EQ(splitBlanks(fromColumn(out[dt], 11)).size(), 3u);
  EXPECT_NE(indexOf(out, "DemCharge  N"), -1);
  EXPECT_EQ(indexOf(out, "WALL AND ROOF PROPERTIES"), indexOf(out, "DemCharge  N") + 1);

  // Over a loaded project the pair count of the old one stays.
  Project loaded = readFresh(fixture("full_project.inp"));
  readProject(joinCrlf(lines), loaded);
  EXPECT_EQ(loaded.demand.pairCount, 2);
}

TEST(ProjectFile, AZoneWithoutRowsKeepsItsRowCountFromBefore) {
  auto lines = fixtureLines("full_project.inp");
  const int z = indexOf(lines, "Zone No.  12");
  const int rows = indexOf(lines, "Maint Cost0", z) + 1;
  lines.erase(lines.begin() + rows, lines.begin() + rows + 14);  // zone 12's one row

  ReadSideFiles side;
  Project fresh = readFresh(joinCrlf(lines), &side);
  EXPECT_EQ(fresh.zones[2].rowCount, 0);
  EXPECT_EQ(side.zoneFiles[1].text, "end\r\n");
  EXPECT_EQ(fresh.zones[3].rowCount, 2);

  // Over a project whose zone 2 had rows the old count stays, and the typed
  // reading then meets the scratch file's "end": a type mismatch.
  Project loaded = readFresh(fixture("full_project.inp"));
  loaded.zones[2].rowCount = 1;
  try {
    readProject(joinCrlf(lines), loaded);
    FAIL() << "expected a type mismatch";
  } catch (const FileError& e) {
    EXPECT_EQ(e.number(), 13);
  }
}

TEST(ProjectFile, WriterLeavesOutWhatAFileCannotCarry) {
  Project p = readFresh(fixture("full_project.inp"));
  p.walls[27].fields = {"27", "Held only in memory", ".1", ".5", "1", "1", "0"};
  p.windows[26].fields = {"26", "Last window a file carries", ".5", ".5", ".8", ".5", "0"};
  p.profiles.of(ProfileKind::Temp)[13] = {"13", " 65"};
  p.zones[2].fields[kZoneId].clear();  // a zone removed by blanking its ID
  p.designTemps.known = true;
  const auto out = splitLines(writeAsSaved(p, {}));

  EXPECT_EQ(indexOf(out, "Descript. Held only in memory"), -1);
  EXPECT_NE(indexOf(out, "Descript. Last window a file carries"), -1);
  EXPECT_EQ(indexOf(out, "13"), -1);
  EXPECT_EQ(indexOf(out, "Zone Name Gymnasium"), -1);
  EXPECT_NE(indexOf(out, "Zone Name Offices"), -1);
  EXPECT_EQ(out.back(), "BUILDING MATRIX");
}

TEST(ProjectFile, HeaderPutsWeeksAtColumn21) {
  struct Case {
    std::string seed;
    int weeks;
    UnitSystem units;
    std::string expected;
  } cases[] = {
      {" .7055475", 4, UnitSystem::IP, "MARLOVEN   .7055475  4  IP\r\n"},
      {" .7055475 ", 1, UnitSystem::SI, "MARLOVEN   .7055475  1  SI\r\n"},
      {"", 4, UnitSystem::IP, "MARLOVEN             4  IP\r\n"},
      // A seed past column 20 pushes the rest to column 21 of a new line.
      {" .70554751234", 4, UnitSystem::IP, "MARLOVEN   .70554751234\r\n                     4  IP\r\n"},
  };
  for (const auto& c : cases) {
    ColumnPrinter out;
    printHeader(out, c.seed, c.weeks, c.units);
    EXPECT_EQ(out.str(), c.expected) << '"' << c.seed << '"';
  }
  Project p;
  readHeader("MARLOVEN   .1234567 12  SI", p);
  EXPECT_EQ(p.seed, " .1234567 ");
  EXPECT_EQ(p.weeksPerMonth, 12);
}

TEST(ProjectFile, WritersIgnoreACommaDecimalLocale) {
  ReadSideFiles side;
  Project a = readFresh(fixture("full_project.inp"), &side);
  Project b = a;
  a.designTemps.known = b.designTemps.known = false;  // the estimate prints numbers too
  const std::string plain = writeAsSaved(a, side.sketchLines);

  const char* old = std::setlocale(LC_ALL, nullptr);
  const std::string saved = old ? old : "C";
  if (!std::setlocale(LC_ALL, "de_DE.UTF-8") && !std::setlocale(LC_ALL, "fr_FR.UTF-8"))
    GTEST_SKIP() << "no comma-decimal locale installed";
  std::locale::global(std::locale(""));
  const std::string underComma = writeAsSaved(b, side.sketchLines);
  std::locale::global(std::locale::classic());
  std::setlocale(LC_ALL, saved.c_str());
  EXPECT_EQ(plain, underComma);
}

// Bad files: every one either loads or reports a numbered error, and nothing
// lands outside temp/ and sketch/ of the installation.
TEST(ProjectFile, BadFilesLoadOrReportAnError) {
  TempInstall inst;
  const std::string good = fixture("full_project.inp");
  const auto lines = splitLines(good);
  std::vector<std::string> inputs = {"", "\r\n", std::string(1, '\0'), "MARLOVEN"};
  for (std::size_t n = 1; n < lines.size(); n += 7)
    inputs.push_back(joinCrlf(std::vector<std::string>(lines.begin(), lines.begin() + static_cast<long>(n))));
  inputs.push_back(good.substr(0, good.size() / 2));  // cut inside a line
  std::mt19937 rng(7);
  for (int i = 0; i < 40; ++i) {
    std::string bytes(static_cast<std::size_t>(rng() % 4000), '\0');
    for (char& c : bytes) c = static_cast<char>(rng() % 256);
    inputs.push_back(bytes);
  }
  std::string damaged = good;  // a good file with random bytes scattered in it
  for (int i = 0; i < 60; ++i) damaged[rng() % damaged.size()] = static_cast<char>(rng() % 256);
  inputs.push_back(damaged);

  int index = 0;
  for (const std::string& bytes : inputs) {
    const std::string name = "input" + std::to_string(index++) + ".inp";
    const std::string path = inst.path(name).string();
    inst.write(name, bytes);
    Project p = readFresh(good);
    const Project before = p;
    try {
      loadProjectFile(inst.dir(), path, p);
    } catch (const FileError& e) {
      EXPECT_GT(e.number(), 0);
      EXPECT_EQ(p.zoneCount, before.zoneCount) << "a failed read leaves the project as it was";
      EXPECT_EQ(p.data, before.data);
    }
  }
  try {
    Project p;
    readProject("", p);
    ADD_FAILURE() << "an empty file loaded";
  } catch (const FileError& e) {
    EXPECT_EQ(e.number(), 62);
  }
  for (const std::string& f : inst.files())
    EXPECT_TRUE(f.rfind("temp/", 0) == 0 || f.rfind("sketch/", 0) == 0 || f.rfind("input", 0) == 0) << f;
}

TEST(ProjectFile, AZoneIdThatLeavesTheScratchDirectoryIsRefused) {
  TempInstall inst;
  for (const std::string id : {"../../escape", "a/b", "x\\y"}) {
    auto lines = fixtureLines("full_project.inp");
    lines[indexOf(lines, "Zone No.  12")] = "Zone No.  " + id;
    inst.write("bad.inp", joinCrlf(lines));
    Project p;
    try {
      loadProjectFile(inst.dir(), inst.path("bad.inp").string(), p);
      ADD_FAILURE() << id;
    } catch (const FileError& e) {
      EXPECT_EQ(e.number(), 52) << id;
    }
  }
  for (const std::string& f : inst.files()) EXPECT_EQ(f, "bad.inp");
}

}  // namespace
}  // namespace marloven::testing
