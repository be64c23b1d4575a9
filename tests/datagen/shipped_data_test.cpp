// The shipped installation data, checked against the layout each reader cuts and
// against the generator that makes it from data/.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "shell/startup.h"
#include "support/temp_install.h"
#include "tools/datagen/install_data.h"

namespace marloven {
namespace {

namespace fs = std::filesystem;
const std::string kSource = MARLOVEN_SOURCE_DIR;
const std::string kInstall = kSource + "/install";

std::vector<std::string> shippedLines(const std::string& sub) {
  return splitLines(readFile(kInstall + "/" + sub));
}

std::string trimmed(std::string_view s) {
  const auto b = s.find_first_not_of(' ');
  if (b == std::string_view::npos) return {};
  return std::string(s.substr(b, s.find_last_not_of(' ') - b + 1));
}

// True when the text, blanks around it removed, is wholly one number.
bool isNumber(std::string_view s) {
  const std::string t = trimmed(s);
  double v = 0;
  const auto [p, ec] = std::from_chars(t.data(), t.data() + t.size(), v);
  return !t.empty() && ec == std::errc() && p == t.data() + t.size();
}

// 1-based inclusive column range, as the readers cut.
std::string cols(std::string_view line, size_t from, size_t to) {
  return std::string(midText(line, from, to - from + 1));
}

// The menu captions of the 42 building types.
const std::array<const char*, 42> kCaptions = {
    "Auditorium", "Automotive facility", "Bank building", "Convention center", "Court house",
    "Dining: bar lounge/ leisure", "Dining: Cafeteria/ fast food", "Dining: Family", "Dormitory",
    "Exercise center", "Fire station", "Grocery store", "Gymnasium",
    "Healthcare/ clinic/ nursing home", "Hospital", "Hotel", "Laundromat", "Library",
    "Manufacturing facility/ plant", "Motel", "Motion picture theater", "Museum", "Nursing Home",
    "Office building", "Parking garage", "Penitentiary", "Performing arts theater",
    "Police station", "Post office", "Religious building", "Residential: single/ multi-family",
    "Restaurant: Bar lounge/ leisure", "Restaurant: Cafeteria/ fast food", "Restaurant: Family",
    "Retail store/ showroom", "School/ Elementary", "School/ Secondary/ University",
    "Sports arena", "Town hall", "Transportation/ bus/ airport", "Warehouse", "Workshop"};

TEST(ShippedData, IsWhatTheGeneratorMakesFromTheTables) {
  const auto files = datagen::makeInstallData(kSource + "/data");
  ASSERT_EQ(files.size(), 52u);
  for (const auto& f : files)
    EXPECT_TRUE(readFile(kInstall + "/" + f.path) == f.bytes)
        << f.path << " differs from data/: run ./dev.sh data";
}

TEST(ShippedData, GeneratorRefusesBadTablesAndNamesThePlace) {
  testing::TempInstall t;  // a scratch folder for a changed copy of data/
  for (const auto& e : fs::directory_iterator(kSource + "/data"))
    if (e.is_regular_file()) fs::copy_file(e.path(), t.root() / e.path().filename());
  auto table = readFile((t.root() / "building_types.csv").string());
  const std::string school = "36,School/ Elementary,SC,89-School";
  const auto at = table.find(school);
  ASSERT_NE(at, std::string::npos);
  // Area per person 40 -> a value wider than the reader's 20 columns.
  auto wide = table;
  const auto mass = wide.find(",10,40,", at);
  ASSERT_NE(mass, std::string::npos);
  wide.replace(mass, 7, ",10,400000000000000000000,");
  t.write("building_types.csv", wide);
  try {
    datagen::makeInstallData(t.dir());
    ADD_FAILURE() << "no error";
  } catch (const datagen::DataError& e) {
    EXPECT_NE(std::string(e.what()).find("column area_per_person: longer than 20"), std::string::npos)
        << e.what();
  }
  t.write("building_types.csv", table);
  auto schedules = readFile((t.root() / "schedules.csv").string());
  const auto row = schedules.find("89-School,lighting,2 ");
  ASSERT_NE(row, std::string::npos);
  schedules.erase(row + 19, 2);  // 23 values
  t.write("schedules.csv", schedules);
  EXPECT_THROW(datagen::makeInstallData(t.dir()), datagen::DataError);
}

// ----------------------------------------------------------- building types

struct ZoneCosts {
  double staticPressure, seer, first, maint;
};

// What the zone screen makes of an AC type (I-P): the first line of the system's
// pair in tcool.dat, cut where that screen cuts, plus the gas heat costs.
ZoneCosts zoneScreenChoice(int ac, int heat) {
  const auto lines = shippedLines("btype/tcool.dat");
  const std::string& l = lines.at(3 + 2 * (ac - 1));
  ZoneCosts c{leadingNumber(cols(l, 64, 67)), leadingNumber(cols(l, 80, 84)),
              leadingNumber(cols(l, 103, 106)), leadingNumber(cols(l, 111, 115))};
  if (heat == 1 && ac != 8 && ac != 9) {
    c.first += 200;
    c.maint = roundTo(c.first * (ac < 4 ? 0.037 : ac == 4 ? 0.04 : 0.045), 2);
  }
  return c;
}

TEST(ShippedData, BuildingTypeFilesHoldTheirFiftySevenLinesInsideTheColumnsRead) {
  const auto heat = shippedLines("btype/theat.dat");
  for (int n = 1; n <= 42; ++n) {
    SCOPED_TRACE("bdtype" + std::to_string(n) + ".dat");
    const auto lines = shippedLines("btype/bdtype" + std::to_string(n) + ".dat");
    ASSERT_EQ(lines.size(), 57u);
    EXPECT_EQ(buildingTypeName(lines[0]), std::string(kCaptions[n - 1]) + " " + lines[0].substr(lines[0].size() - 2));
    EXPECT_TRUE(std::all_of(lines[0].end() - 2, lines[0].end(), [](char c) { return c >= 'A' && c <= 'Z'; }));
    const auto line = [&](int i) { return lines.at(static_cast<size_t>(i - 1)); };
    const auto value = [&](int i) { return leadingNumber(line(i)); };
    for (int i = 2; i <= 54; ++i) {
      if (i >= 25 && i <= 27) continue;  // not read
      EXPECT_LE(line(i).size(), 20u) << "line " << i;
      const bool text = i <= 6 || i == 24 || i == 33;  // project texts, demand flag, outside air
      if (!text) {
        EXPECT_TRUE(isNumber(line(i))) << "line " << i << ": " << line(i);
      }
    }
    EXPECT_LE(value(11), 7);
    EXPECT_EQ(line(24), "N");  // a type carries no demand schedule
    const std::string oa = line(33);
    EXPECT_TRUE((oa.rfind("CP", 0) == 0 || oa.rfind("CS", 0) == 0) && isNumber(oa.substr(2))) << oa;
    EXPECT_GT(value(29), 1.0);  // floor area per person: the people count divides by it
    for (int i : {30, 32, 34, 39}) EXPECT_EQ(value(i), n) << "profile line " << i;
    for (int i = 40; i <= 43; ++i) EXPECT_TRUE(value(i) >= 1 && value(i) <= 12) << "line " << i;
    const int ac = static_cast<int>(value(44)), ht = static_cast<int>(value(45));
    ASSERT_TRUE(ac >= 1 && ac <= 9 && ht >= 1 && ht <= 3);
    const ZoneCosts c = zoneScreenChoice(ac, ht);
    EXPECT_DOUBLE_EQ(value(50), c.staticPressure);
    EXPECT_DOUBLE_EQ(value(51), c.seer);
    EXPECT_DOUBLE_EQ(value(52), leadingNumber(cols(heat.at(static_cast<size_t>(1 + ht)), 16, 19)));
    EXPECT_DOUBLE_EQ(value(53), c.first);
    EXPECT_NEAR(value(54), c.maint, 1e-4);
    for (int i = 55; i <= 57; ++i) {
      const std::string five = line(i).substr(0, 5);
      EXPECT_TRUE(five == "Yes" || five == "No") << "line " << i;
    }
  }
}

TEST(ShippedData, TheSchoolIsARecognisableCodeSchool) {
  // Elementary school: 90.1-2007 school/university LPD, 62.1 classroom (ages 5-8)
  // outdoor air at its default density, school schedules and a VAV system.
  const auto l = shippedLines("btype/bdtype36.dat");
  EXPECT_EQ(l[0], "School/ Elementary SC");
  EXPECT_EQ(l[36], "1.2");     // W/ft2
  EXPECT_EQ(l[28], "40");      // ft2 per person: 25 per 1000 ft2
  EXPECT_EQ(l[32], "CP14.8");  // 10 cfm/person + 0.12 cfm/ft2 x 40 ft2
  EXPECT_EQ(l[10], "5");       // days a week
  EXPECT_EQ(l[43], "1");       // VAV
}

// ------------------------------------------------------------------ profiles

std::vector<std::string> valuesOf(const std::string& line) {
  std::vector<std::string> v;
  size_t i = 0;
  while (i < line.size()) {
    const size_t j = std::min(line.find(' ', i), line.size());
    if (j > i) v.push_back(line.substr(i, j - i));
    i = j + 1;
  }
  return v;
}

TEST(ShippedData, ProfileLinesHaveTwentyFourValuesOfTheAllowedCharacters) {
  for (int k = 1; k <= 5; ++k) {
    SCOPED_TRACE("bprof" + std::to_string(k) + ".dat");
    const auto lines = shippedLines("profiles/bprof" + std::to_string(k) + ".dat");
    ASSERT_EQ(lines.size(), k == 5 ? 13u : 43u);
    for (size_t i = 1; i < lines.size(); ++i) {
      EXPECT_EQ(lines[i].find_first_not_of("0123456789. "), std::string::npos) << "line " << i + 1;
      const auto v = valuesOf(lines[i]);
      ASSERT_EQ(v.size(), 24u) << "line " << i + 1;
      for (const auto& s : v) {
        const double x = leadingNumber(s);
        if (k == 3) {
          EXPECT_TRUE(s == "0" || s == "1") << s;
        } else if (k == 5) {
          EXPECT_TRUE(x >= 50 && x <= 90) << s;
        } else {
          EXPECT_TRUE(x >= 0 && x <= 100) << s;
        }
      }
    }
  }
}

TEST(ShippedData, EveryTypesThermostatsKeepCoolingAboveHeating) {
  const auto rows = shippedLines("profiles/bprof5.dat");
  for (int n = 1; n <= 42; ++n) {
    const auto l = shippedLines("btype/bdtype" + std::to_string(n) + ".dat");
    for (int pair : {39, 41}) {  // normal, holiday: summer (upper) then winter (lower)
      const auto upper = valuesOf(rows.at(static_cast<size_t>(leadingNumber(l[pair]))));
      const auto lower = valuesOf(rows.at(static_cast<size_t>(leadingNumber(l[pair + 1]))));
      for (size_t h = 0; h < 24; ++h)
        EXPECT_GE(leadingNumber(upper[h]), leadingNumber(lower[h]) + 1) << "type " << n << " hour " << h + 1;
    }
  }
}

// ------------------------------------------------------------------ catalogs

struct Entry {
  std::array<std::string, 7> line;
  double number(int i) const { return leadingNumber(line[static_cast<size_t>(i)]); }
};

std::vector<Entry> catalog(const std::string& sub) {
  const auto lines = shippedLines(sub);
  EXPECT_EQ(lines.size() % 7, 0u) << sub << ": a partial entry";
  std::vector<Entry> out;
  for (size_t i = 0; i + 7 <= lines.size(); i += 7) {
    Entry e;
    std::copy_n(lines.begin() + static_cast<long>(i), 7, e.line.begin());
    out.push_back(e);
  }
  return out;
}

std::string kindOf(const Entry& e) {
  const std::string& d = e.line[1];
  if (d.find("roof") != std::string::npos || d.find("Attic") != std::string::npos) return "roof";
  if (d.find("floor") != std::string::npos || d.find("Slab") != std::string::npos) return "floor";
  return "wall";
}

TEST(ShippedData, CatalogsHoldWholeEntriesWithTheSketchsWallRoofAndFloor) {
  for (const char* sub : {"profiles/bprof6.dat", "profiles/bprof7.dat"}) {
    SCOPED_TRACE(sub);
    const auto entries = catalog(sub);
    ASSERT_GE(entries.size(), 15u);  // zone entry loads 15
    ASSERT_LE(entries.size(), 26u);  // the project keeps 26
    for (size_t i = 0; i < entries.size(); ++i) {
      const Entry& e = entries[i];
      EXPECT_EQ(e.line[0], std::to_string(i + 1));
      EXPECT_FALSE(e.line[1].empty());
      EXPECT_LE(e.line[1].size(), 34u);
      for (int k = 2; k <= 6; ++k) EXPECT_TRUE(isNumber(e.line[static_cast<size_t>(k)])) << e.line[1];
      EXPECT_TRUE(e.number(2) > 0 && e.number(2) < 1.5) << e.line[1];
      for (int k = 3; k <= 5; ++k) {
        if (k == 4 && std::string(sub).ends_with("6.dat")) {
          EXPECT_TRUE(e.number(4) >= 0 && e.number(4) < 24) << e.line[1];  // time lag, hours
        } else {
          EXPECT_TRUE(e.number(k) >= 0 && e.number(k) <= 1) << e.line[1];
        }
      }
    }
  }
  const auto walls = catalog("profiles/bprof6.dat");
  EXPECT_EQ(kindOf(walls[0]), "wall");
  EXPECT_EQ(kindOf(walls[7]), "roof");
  EXPECT_EQ(kindOf(walls[13]), "floor");
}

TEST(ShippedData, CatalogsMeetTheCodesMaximaInEveryClimateZone) {
  // Lowest U of each kind against the strictest opaque maxima of the
  // nonresidential tables (zone 8: wood-framed wall 0.036, attic 0.021, and
  // wood-framed floor 0.033 from zone 4 on).
  double best[3] = {9, 9, 9};
  const char* kinds[3] = {"wall", "roof", "floor"};
  for (const auto& e : catalog("profiles/bprof6.dat"))
    for (int k = 0; k < 3; ++k)
      if (kindOf(e) == kinds[k]) best[k] = std::min(best[k], e.number(2));
  EXPECT_LE(best[0], 0.036);
  EXPECT_LE(best[1], 0.021);
  EXPECT_LE(best[2], 0.033);
  // Vertical glazing, nonmetal framing: U and SHGC maxima of zones 1..8.
  const double maxU[8] = {1.2, 0.75, 0.65, 0.4, 0.35, 0.35, 0.35, 0.35};
  const double maxShgc[8] = {0.25, 0.25, 0.25, 0.4, 0.4, 0.4, 0.45, 0.45};
  const auto windows = catalog("profiles/bprof7.dat");
  for (int z = 0; z < 8; ++z)
    EXPECT_TRUE(std::any_of(windows.begin(), windows.end(), [&](const Entry& w) {
      return w.number(2) <= maxU[z] && w.number(3) <= maxShgc[z];
    })) << "climate zone " << z + 1;
}

// ------------------------------------------------------------ HVAC and heat

TEST(ShippedData, TcoolHasItsHeadingsAndEighteenSystemLinesInColumns) {
  const auto lines = shippedLines("btype/tcool.dat");
  ASSERT_EQ(lines.size(), 21u);
  EXPECT_EQ(lines[0], std::string(63, ' ') + "FAN STATIC PRESS.  SYSTEM   SUPPLY TEMP  SYSTEM COST PER TON");
  EXPECT_EQ(lines[1], "     I.D.  NAME OF SYSTEM                                      (INCH)   (Pa)    SEER  COP    F   C      1ST...MAINT.");
  EXPECT_EQ(lines[2], std::string(5, ' ') + std::string(135, '-'));
  // Number columns; everything else in 62..118 is blank.
  const std::vector<std::pair<size_t, size_t>> numbers = {{65, 70}, {72, 77}, {80, 84}, {86, 90},
                                                          {93, 96}, {97, 100}, {103, 107}, {111, 116}};
  for (int sys = 1; sys <= 9; ++sys) {
    SCOPED_TRACE("system " + std::to_string(sys));
    const std::string& elec = lines.at(static_cast<size_t>(1 + 2 * sys));
    const std::string& gas = lines.at(static_cast<size_t>(2 + 2 * sys));
    EXPECT_EQ(leadingNumber(cols(elec, 6, 10)), sys);
    EXPECT_EQ(cols(elec, 119, 128), "ELEC. HEAT");
    EXPECT_EQ(cols(gas, 119, 126), "GAS HEAT");
    EXPECT_EQ(gas.substr(0, 102), elec.substr(0, 102));
    for (const std::string* l : {&elec, &gas}) {
      std::string rest = cols(*l, 62, 118);
      for (const auto& [a, b] : numbers) {
        const bool blankCost = l == &gas && sys == 7 && a >= 103;
        if (blankCost) {
          EXPECT_EQ(trimmed(cols(*l, a, b)), "");
        } else {
          EXPECT_TRUE(isNumber(cols(*l, a, b))) << a << "-" << b << ": \"" << cols(*l, a, b) << "\"";
        }
        std::fill(rest.begin() + static_cast<long>(a - 62), rest.begin() + static_cast<long>(b - 62 + 1), ' ');
      }
      EXPECT_EQ(trimmed(rest), "") << *l;
    }
    const auto num = [&](size_t a, size_t b) { return leadingNumber(cols(elec, a, b)); };
    EXPECT_FLOAT_EQ(static_cast<float>(num(72, 77)), roundTo(num(65, 70) * 248.8, 1));
    EXPECT_FLOAT_EQ(static_cast<float>(num(86, 90)), roundTo(num(80, 84) / 3.412, 2));
    EXPECT_FLOAT_EQ(static_cast<float>(num(97, 100)), roundTo((num(93, 96) - 32) / 1.8, 0));
    // The zone screen's narrower I-P cuts see the same numbers.
    EXPECT_EQ(leadingNumber(cols(elec, 64, 67)), num(65, 70));
    EXPECT_EQ(leadingNumber(cols(elec, 103, 106)), num(103, 107));
    EXPECT_EQ(leadingNumber(cols(elec, 111, 115)), num(111, 116));
    if (sys != 7) {
      const double addFirst = sys <= 6 ? 200 : 0;
      const double addMaint = sys <= 3 ? 7.4 : sys == 4 ? 8.0 : sys <= 6 ? 9.0 : 0;
      EXPECT_FLOAT_EQ(static_cast<float>(leadingNumber(cols(gas, 103, 107))), roundTo(num(103, 107) + addFirst, 0));
      EXPECT_FLOAT_EQ(static_cast<float>(leadingNumber(cols(gas, 111, 116))), roundTo(num(111, 116) + addMaint, 2));
    }
  }
}

TEST(ShippedData, TheatHasThreeHeatingTypesWithTheirCop) {
  const auto lines = shippedLines("btype/theat.dat");
  ASSERT_EQ(lines.size(), 5u);
  const double expected[3] = {0.8, 1.0, 3.2};
  for (int h = 1; h <= 3; ++h) EXPECT_DOUBLE_EQ(leadingNumber(cols(lines.at(static_cast<size_t>(h + 1)), 16, 19)), expected[h - 1]);
}

// ---------------------------------------------------- sketch, help, start-up

TEST(ShippedData, SketchTemplateIsOneEmptyLevelWithStockNames) {
  const auto l = shippedLines("sketch/bld_mtx2.000");
  ASSERT_EQ(l.size(), 91u);
  const char* labels[] = {"Grid Size", "Orientation", "No. of Flrs", "Room Height", "Floor Area", "Section Area"};
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(trimmed(l[static_cast<size_t>(i)].substr(0, 12)), labels[i]);
    EXPECT_EQ(l[static_cast<size_t>(i)][12], ':');
    EXPECT_TRUE(isNumber(fromColumn(l[static_cast<size_t>(i)], 14)));
  }
  EXPECT_GT(leadingNumber(fromColumn(l[0], 14)), 0);  // grid size, ft
  EXPECT_GT(leadingNumber(fromColumn(l[3], 14)), 0);  // room height, ft
  EXPECT_EQ(l[6], "ZoneName[1 ]: Zone 1-1");
  EXPECT_EQ(l[30], "ZoneName[25]: Zone 1-25");
  for (size_t r = 31; r < 91; ++r) EXPECT_EQ(l[r], std::string(80, '0') + " ");
}

TEST(ShippedData, HelpTextsAndFormatSamplesArePlainCrLfText) {
  std::vector<std::string> names = {"mainhlp1.txt", "mainhlp2.txt", "tmy2.txt", "wyec2.txt", "custom.txt", "iwec.txt"};
  for (int i = 1; i <= 10; ++i) names.push_back("help" + std::to_string(i) + ".txt");
  for (const auto& n : names) {
    const std::string bytes = readFile(kInstall + "/helpinfo/" + n);
    EXPECT_FALSE(bytes.empty()) << n;
    for (size_t i = 0; i < bytes.size(); ++i) {
      const auto c = static_cast<unsigned char>(bytes[i]);
      if (c == '\n') {
        ASSERT_TRUE(i > 0 && bytes[i - 1] == '\r') << n << ": a line without CR LF";
      } else {
        ASSERT_TRUE(c == '\r' || (c >= 32 && c < 127)) << n << ": byte " << int(c) << " at " << i;
      }
    }
  }
}

TEST(ShippedData, StartUpFromTheShippedTreeReportsNothing) {
  testing::TempInstall t;
  fs::copy(kInstall, t.root(), fs::copy_options::recursive | fs::copy_options::overwrite_existing);
  AppState s;
  s.install = Installation(t.dir());
  EXPECT_FALSE(startUp(s, Date{2026, 11, 22}).has_value());
  for (int n = 1; n <= 42; ++n) EXPECT_EQ(s.tables.buildingTypeNames[static_cast<size_t>(n)].substr(0, std::string(kCaptions[n - 1]).size()), kCaptions[n - 1]);
  EXPECT_EQ(valuesOf(s.tables.profileDefaults[1][36]).size(), 24u);
}

}  // namespace
}  // namespace marloven
