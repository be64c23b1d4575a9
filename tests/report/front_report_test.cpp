// The report's front part: the columns the results readers cut, the pages
// against reviewed golden files, and the rules of the zone pages.
#include "report/front_report.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "common/column_printer.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "common/text_lines.h"
#include "project/project_reader.h"
#include "project/project_writer.h"
#include "report/report_printer.h"
#include "run/light_shelf.h"
#include "run/run_copy.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

namespace marloven {
namespace {

using testing::FakePrompt;
using testing::TempInstall;

const std::string kHvac = "   HVAC TABLE LINE 1\r\n   HVAC TABLE LINE 2\r\n";

// Two levels in the sketch, two floors of 10 ft under one of 12 ft: the
// last one's height is the one shown.
std::string level(const char* floors, const char* height) {
  std::string s = std::string("Grid Size   : 2\r\nOrientation : 0\r\nNo. of Flrs : ") + floors +
                  "\r\nRoom Height : " + height + "\r\nFloor Area  : 0\r\nSection Area: 0\r\n";
  for (int z = 1; z <= 25; ++z) s += "ZoneName[" + std::to_string(z) + "]: Zone\r\n";
  for (int r = 0; r < 60; ++r) s += std::string(80, '0') + " \r\n";
  return s;
}
const std::string kSketch = level("2", "10") + level("1", "12");

// Weather line 2 as the database writes it: location, station at 51-55,
// latitude, longitude and time zone in six columns each, elevation at 76.
std::string weatherLine2() {
  std::string s = "GOLDEN, CO !";
  s.resize(50, ' ');
  return s + "72565  39.8 104.9   7.0  5330  ";
}

// A small I-P office: a daylighted perimeter zone with a roof, a glazed wall
// and a blank wall, and a core zone without rows.
Project smallOffice() {
  Project p;
  p.units = UnitSystem::IP;
  p.seed = ".5";
  p.data = {"Office/ Small  OS", "Golden Office", "Report check", "Golden, CO", "Design", "1",
            "2013",               "0",             "2000",         "150",        "5",      "10"};
  p.economics = {"25", "15", "20", "3", "2", ".09", "2.5", ".8", "3", "2.5", "2"};
  p.demand.text = "Y";
  p.demand.pairCount = 1;
  p.demand.pairs[1] = {"100", "8.5"};
  p.weather.lines = {"",
                     "GOLDEN             CO",
                     weatherLine2(),
                     "        JAN   FEB   MAR   APR   MAY   JUN   JUL   AUG   SEP   OCT   NOV   DEC",
                     "DB Ave   29.7  33.4  39.0  48.2  57.2  66.9  73.5  71.4  62.3  51.4  39.0  30.3",
                     "Ave std   7.8   7.4   6.9   6.3   5.5   4.8   3.4   3.6   5.0   5.8   7.0   7.6",
                     "DB Max   43.2  46.6  52.2  61.8  70.8  81.4  88.2  85.8  77.5  66.3  52.5  44.5",
                     "Max std   9.6   9.1   8.7   8.0   7.1   6.0   4.4   4.6   6.3   7.6   8.9   9.4",
                     "DP Ave   14.2  16.8  20.1  25.6  35.7  43.8  49.2  49.0  39.2  27.9  19.6  14.8",
                     "DP std    8.6   8.4   8.8   8.7   7.6   6.3   5.1   5.2   6.8   8.0   8.4   8.7",
                     "SOLAR     840  1120  1510  1890  2090  2310  2270  2030  1730  1290   900   740",
                     "WIND      8.7   8.9   9.7  10.2   9.6   9.0   8.5   8.1   8.2   8.1   8.4   8.5"};
  p.walls[1].fields = {"1", "Brick veneer, R-13 batt", ".084", ".7", "4", ".62", "1.2"};
  p.walls[8].fields = {"8", "Metal roof, R-30 insulation", ".032", ".6", "1", ".95", "2.4"};
  p.windows[1].fields = {"1", "Double, low-e", ".55", ".4", ".84", ".6", "18"};
  for (int k = 1; k <= 4; ++k) {
    p.profiles.kinds[k][1].id = " 1";
    p.profiles.kinds[k][1].values = "0 0 0 0 0 0 1 50 100 100 100 100 100 100 100 100 100 50 10 0 0 0 0 0";
  }
  const char* temps[] = {"", "75 75 75 75 75 75 75 75 75 75 75 75 75 75 75 75 75 75 75 75 75 75 75 75",
                         "70 70 70 70 70 70 70 70 70 70 70 70 70 70 70 70 70 70 70 70 70 70 70 70",
                         "80 80 80 80 80 80 80 80 80 80 80 80 80 80 80 80 80 80 80 80 80 80 80 80",
                         "60 60 60 60 60 60 60 60 60 60 60 60 60 60 60 60 60 60 60 60 60 60 60 60"};
  for (int t = 1; t <= 4; ++t) p.profiles.of(ProfileKind::Temp)[t] = {" " + std::to_string(t), temps[t]};

  p.zoneCount = 2;
  const char* names[] = {"", "Perimeter", "Core"};
  for (int z = 1; z <= 2; ++z) {
    ZoneRecord& r = p.zones[z];
    r.fields = {"",    std::to_string(10 + z), names[z], "1000", "30", z == 1 ? "10" : "5", " 1", ".5", " 1",
                z == 1 ? "CP20" : "CS.15", " 1", "1", "1.5", "1.1", ".75", " 1", " 1", " 2", " 3", " 4",
                "5", "1", "0", ".3", "15", "50", "1.5", "13", ".8", "2500", "92.5"};
    r.listedId = r.fields[kZoneId];
    r.listedName = names[z];
    r.listedFloorArea = 1000;
    r.naturalVent = "No";
    r.economizer = "Yes";
    r.daylight = z == 1 ? " Yes" : "No";
  }
  auto& rows = p.zones[1].rows;
  rows[1] = {8, 1000, 0, 6, "  0  0 N", 0, 0, 0, "S", 0, 0, 0, 0, .2f};
  rows[2] = {1, 400, 180, 2, "  0  0 N", 1, 80, 90, "W", 0, .6f, 3, 5, .2f};
  rows[3] = {1, 400, 90, 1, "  0  0 N", 0, 0, 90, "W", 0, 0, 0, 0, .2f};
  p.zones[1].rowCount = 3;
  return p;
}

// The same project as a save in SI writes it and reads it back, with its
// sketch in metres.
std::string siSketch;
Project inSi(Project ip) {
  ColumnPrinter out;
  printHeader(out, ip.seed, ip.weeksPerMonth, UnitSystem::SI);
  writeProject(out, ip, splitLines(kSketch), Conversion::ToSI);
  Project si;
  const ReadSideFiles side = readProject(out.str(), si);
  siSketch.clear();
  for (const std::string& line : side.sketchLines) siSketch += line + "\r\n";
  return si;
}

ReportSetup goldenSetup() {
  ReportSetup s;
  s.periodFrom = "1-Jan-2013";
  s.periodTo = "31-Dec-2013";
  s.periodKind = 0;
  s.weeksPerMonth = 4;
  s.skippedMonths = {"July"};
  s.year = 2013;
  s.firstWeekday = firstDayOfYear(2013);
  s.dateText = "22 Nov 2026";
  s.timeText = "14:05";
  return s;
}

ReportSources sources(const Project& p) {
  return {kHvac, lightShelfText(p), p.units == UnitSystem::SI ? siSketch : kSketch};
}

std::vector<std::string> pages(const std::string& text) {
  std::vector<std::string> out(1);
  for (const std::string& line : splitLines(text)) {
    if (line == "\f") {
      out.emplace_back();
      continue;
    }
    out.back() += line + "\n";
  }
  return out;
}

// Compares page by page with a reviewed golden file; MARLOVEN_UPDATE_GOLDEN=1
// rewrites the file instead, for review before it is committed.
void expectGolden(const std::string& text, const std::string& name) {
  const std::string path = std::string(GOLDEN_DIR) + "/" + name;
  if (std::getenv("MARLOVEN_UPDATE_GOLDEN") != nullptr) {
    writeFileAtomic(path, text);
    GTEST_SKIP() << "rewrote " << path;
  }
  const auto want = pages(readFile(path));
  const auto got = pages(text);
  ASSERT_EQ(got.size(), want.size());
  for (std::size_t i = 0; i < want.size(); ++i) EXPECT_EQ(got[i], want[i]) << name << ", page " << i + 1;
}

// An installation with the report's sources for p, and the report of an
// earlier run still in temp.
void installFor(const TempInstall& t, const Project& p) {
  t.write("btype/tcool.dat", kHvac);
  t.write("sketch/bld_mtx.all", kSketch);
  writeLightShelfFile(t.dir(), p);
  t.write("temp/ecalc$.out", "EARLIER PROJECT\r\n");
}

std::size_t lineOf(const std::vector<std::string>& lines, std::string_view start, std::size_t column = 1) {
  for (std::size_t i = 0; i < lines.size(); ++i)
    if (midText(lines[i], column, start.size()) == start) return i;
  return lines.size();
}

TEST(ReportPrinter, ColumnsNumbersAndMasks) {
  ReportPrinter r;
  r.at(5).text("abc").at(3).text("x").end();     // past the column: a new line
  r.number(0.5f).number(-2).number(3.1f).end();  // leading and trailing blanks
  r.masked(12.5f, "@@@@@@").masked("toolong", "@@@").masked("7", " &&&&&&").end();
  r.pageMark().pageMark();
  EXPECT_EQ(r.str(), "    abc\r\n  x\r\n .5 -2  3.1 \r\n  12.5toolong 7\r\n" + std::string(114, ' ') +
                         "... PAGE  1 ...\r\n\r\n" + std::string(114, ' ') + "... PAGE  2 ...\r\n\r\n");
  ReportPrinter rules;
  rules.text("held").fullRule().heavyRule().tableRule().emptyLine().pageFeed();
  EXPECT_EQ(rules.str(), "held\r\n" + std::string(132, '=') + "\r\n    " + std::string(126, '=') + "\r\n        " +
                             std::string(113, '-') + "\r\n\r\n\f\r\n");
}

TEST(FrontReport, IpPagesMatchTheReviewedReport) {
  const Project p = smallOffice();
  const FrontReport r = composeFrontReport(p, goldenSetup(), sources(p));
  ASSERT_FALSE(r.abandoned);
  expectGolden(r.text, "small_office_ip.out");
}

TEST(FrontReport, SiPagesMatchTheReviewedReport) {
  const Project p = inSi(smallOffice());
  const FrontReport r = composeFrontReport(p, goldenSetup(), sources(p));
  ASSERT_FALSE(r.abandoned);
  expectGolden(r.text, "small_office_si.out");
}

TEST(FrontReport, TheReadersAnchorsStandWhereTheyCut) {
  for (const bool si : {false, true}) {
    const Project p = si ? inSi(smallOffice()) : smallOffice();
    const auto lines = splitLines(composeFrontReport(p, goldenSetup(), sources(p)).text);
    const std::size_t weather = lineOf(lines, "WEATHER", 4);
    ASSERT_LT(weather + 13, lines.size());
    EXPECT_EQ(midText(lines[weather + 13], 12, 5) == "SQ.M.", si) << lines[weather + 13];
    const std::size_t two = lineOf(lines, "II.");
    ASSERT_LT(two, lines.size());
    EXPECT_LT(weather, two);
    const std::size_t header = lineOf(lines, "*** PROJECT: ");
    EXPECT_EQ(midText(lines[header], 14, 13), "Golden Office");
    EXPECT_EQ(midText(lines[header], 98, 10), "Golden, CO");
    for (const std::string& line : lines) EXPECT_LE(line.size(), 132u) << line;
  }
}

TEST(FrontReport, HourValuesAndTheLastBlocksHeight) {
  const Project p = smallOffice();
  const auto lines = splitLines(composeFrontReport(p, goldenSetup(), sources(p)).text);
  const std::size_t occ = lineOf(lines, "OCCUPANCY: NO OF PEOPLE", 9);
  ASSERT_LT(occ + 1, lines.size());
  // 0, 1, 50 and 100 print as 0, 1, .5 and 1.
  EXPECT_EQ(midText(lines[occ + 1], 23, 40), "   0   0   0   0   0   0   1  .5   1   1");
  const std::size_t zoneLine = lineOf(lines, "ZONE  11", 5);
  EXPECT_EQ(midText(lines[zoneLine], 70, 17), "CEIL.HT.=   12 FT");
}

TEST(FrontReport, MaterialTableRows) {
  Project p = smallOffice();
  p.data[kOrientation] = "22.5";
  p.zones[1].rows[3].wallOrientation = 270;
  p.zones[1].rows[3].wallId = 14;
  p.walls[14].fields = {"14", "Slab on grade, 4 in.", ".1", ".7", "6", ".5", "3"};
  const auto lines = splitLines(composeFrontReport(p, goldenSetup(), sources(p)).text);
  const std::size_t roof = lineOf(lines, "S  8 Metal roof", 5);
  ASSERT_LT(roof + 3, lines.size());
  // A fractional building orientation is added to each row's as it stands.
  EXPECT_EQ(midText(lines[roof], 45, 6), " 22.5 ");
  EXPECT_EQ(midText(lines[roof + 1], 45, 6), " 202.5");
  // The wall ID is a number with its trailing blank: a two-digit ID ends
  // past column 10, so its name goes to the next line.
  EXPECT_EQ(lines[roof + 2], "    W  14 ");
  EXPECT_EQ(midText(lines[roof + 3], 1, 30), std::string(9, ' ') + "Slab on grade, 4 in. ");
  EXPECT_EQ(midText(lines[roof + 3], 45, 6), " 292.5");
}

// A page feed ahead of each zone's compliance block when the sketch is on a
// level; nothing else moves.
TEST(FrontReport, ASketchLevelFeedsAPageBeforeEachZonesCompliance) {
  const Project p = smallOffice();
  ReportSetup setup = goldenSetup();
  const auto flat = splitLines(composeFrontReport(p, setup, sources(p)).text);
  for (const int level : {1, 3}) {
    setup.sketchLevel = level;
    auto fed = splitLines(composeFrontReport(p, setup, sources(p)).text);
    int feeds = 0;
    for (std::size_t i = 1; i + 1 < fed.size(); ++i) {
      if (fed[i] != "\f" || midText(fed[i - 1], 82, 12) != "SYMBOL NOTE:") continue;
      EXPECT_EQ(midText(fed[i + 1], 5, 37), "CODE COMPLIANCE CHECKING INFORMATION:");
      fed.erase(fed.begin() + static_cast<std::ptrdiff_t>(i));
      ++feeds;
    }
    EXPECT_EQ(feeds, 2) << "level " << level;
    EXPECT_EQ(fed, flat) << "level " << level;
  }
}

TEST(FrontReport, AMissingProfileAbandonsTheReportAtThatZone) {
  Project p = smallOffice();
  p.zones[2].fields[kHotWaterProfile] = " 7";
  const FrontReport r = composeFrontReport(p, goldenSetup(), sources(p));
  EXPECT_TRUE(r.abandoned);
  EXPECT_EQ(r.warningTitle, "Hot Water profile missing!");
  EXPECT_EQ(r.warningText,
            "The profile number for Hot Water has not been clicked in zone 12.  Return to zone description and "
            "check profiles.");
  EXPECT_NE(r.text.find("ZONE  12"), std::string::npos);
  EXPECT_EQ(r.text.find("THERMOSTAT", r.text.find("ZONE  12")), std::string::npos);

  const TempInstall t;
  installFor(t, p);
  FakePrompt prompt;
  EXPECT_EQ(writeFrontReport(t.dir(), p, goldenSetup(), prompt), 5);
  EXPECT_EQ(prompt.log.at(0).title, "Hot Water profile missing!");
  EXPECT_EQ(t.read("temp/ecalc$.out"), r.text);  // what was written stays, and only that
}

// A report that stops on a fault leaves what it wrote before the fault, never
// the report of an earlier run.
TEST(FrontReport, AFaultLeavesThePartWrittenBeforeIt) {
  Project p = smallOffice();
  p.zones[1].rowCount = 0;  // no roof and no wall in the building
  const TempInstall t;
  installFor(t, p);
  FakePrompt prompt;
  try {
    writeFrontReport(t.dir(), p, goldenSetup(), prompt);
    FAIL() << "no fault";
  } catch (const FileError& e) {
    EXPECT_EQ(e.number(), 11);
  }
  // The building's quotients are taken before section I is written: the
  // report ends with the page feed after the pages before it.
  const std::string written = t.read("temp/ecalc$.out");
  EXPECT_EQ(written.find("EARLIER PROJECT"), std::string::npos);
  const auto lines = splitLines(written);
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines.front(), std::string(132, '='));
  EXPECT_LT(lineOf(lines, "MATERIAL DESCRIPTIONS CATALOG:", 5), lines.size());
  EXPECT_EQ(lineOf(lines, "I.  P R O J E C T"), lines.size());
  EXPECT_EQ(lines.back(), "\f");
  EXPECT_TRUE(prompt.log.empty());

  // A source that cannot be read stops it before anything is composed.
  const TempInstall u;
  installFor(u, smallOffice());
  std::filesystem::remove(u.path("btype/tcool.dat"));
  EXPECT_THROW(writeFrontReport(u.dir(), smallOffice(), goldenSetup(), prompt), FileError);
  EXPECT_EQ(u.read("temp/ecalc$.out").find("EARLIER PROJECT"), std::string::npos);
}

TEST(FrontReport, LightShelfFileHoldsTheDaylightedZonesAndIsEchoed) {
  Project p = smallOffice();
  const auto lines = splitLines(lightShelfText(p));
  ASSERT_EQ(lines.size(), static_cast<std::size_t>(kLightShelfLines));
  EXPECT_EQ(lines[3], "DIMMING CONTROL ........ CONTINUOUS");
  // Zone 11: depth 15, target 50, shelf at the window top 3 + 5.
  EXPECT_EQ(midText(lines[12], 1, 4), "  11");
  EXPECT_EQ(midText(lines[12], 7, 9), "Perimeter");
  EXPECT_EQ(midText(lines[12], 29, 7), "     15");
  EXPECT_EQ(midText(lines[12], 37, 6), "    50");
  EXPECT_EQ(midText(lines[12], 54, 7), "      8");
  EXPECT_EQ(lines[13], "");

  ReportSources src = sources(p);
  src.lightShelf.resize(src.lightShelf.size() / 2);
  EXPECT_THROW(composeFrontReport(p, goldenSetup(), src), FileError);
  p.zones[1].daylight = "No";
  EXPECT_NO_THROW(composeFrontReport(p, goldenSetup(), src));  // not read without daylight
}

TEST(RunSetup, FirstDayOfTheYear) {
  EXPECT_EQ(firstDayOfYear(1980), 3);
  EXPECT_EQ(firstDayOfYear(2013), 3);
  EXPECT_EQ(firstDayOfYear(2026), 5);  // a Thursday
  EXPECT_EQ(firstDayOfYear(2024), 2);  // a Monday
  EXPECT_EQ(firstDayOfYear(1979), 2);
}

}  // namespace
}  // namespace marloven
