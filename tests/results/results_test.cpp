// The results readers on small joined reports laid out in the engine's columns.
#include <gtest/gtest.h>

#include <array>

#include "common/file_error.h"
#include "results/chart_readers.h"
#include "results/report_sections.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

using Lines = std::vector<std::string>;

// A line with each text placed at its 1-based column, blanks between.
std::string at(std::initializer_list<std::pair<std::size_t, std::string_view>> items) {
  std::string line;
  for (const auto& [column, text] : items) {
    if (line.size() < column - 1 + text.size()) line.resize(column - 1 + text.size(), ' ');
    line.replace(column - 1, text.size(), text);
  }
  return line;
}
std::string right(std::string_view text, std::size_t width) {
  return std::string(width - text.size(), ' ') + std::string(text);
}
std::string joined(const Lines& lines) {
  std::string s;
  for (const std::string& l : lines) s += l + "\r\n";
  return s;
}
Lines operator+(Lines a, const Lines& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

// Page feed and page mark: what precedes every section's anchor line.
const Lines kPageTop{"\f", at({{115, "... PAGE  9 ..."}})};

// Section I up to the weather page; the solar heading's unit 13 lines after
// "WEATHER": "SQ.FT." at 11 (I-P) or "SQ.M." at 12 (SI).
Lines projectPart(bool si) {
  return Lines{"\f", "I.   P R O J E C T   D A T A", at({{4, "WEATHER INPUT DATA ...."}})} +
         Lines(12, at({{9, "AVERAGE DRY BULB TEMPERATURES...."}, {47, "  29.2"}})) +
         Lines{si ? at({{12, "SQ.M. OF HORIZONTAL SURFACE"}}) : at({{11, "SQ.FT. OF HORIZONTAL SURFACE"}}), ""};
}
Lines zonePart() { return {"II.  Z O N E   D A T A", at({{5, "ZONE 11  Open office"}})}; }

// Value and percent of the four column pairs; an empty label is the rule (row 13).
struct LoadRow {
  std::string_view label;
  std::array<std::string_view, 8> f;
};
constexpr std::array<LoadRow, 14> kLoadRows{{
    {"ROOF", {"-6.3", "12.0", "2.1", "6.1", "-9.4", "17.0", "2.3", "5.4"}},
    {"WALLS AND GROUND", {"-9.8", "18.6", "1.4", "4.1", "-14.7", "26.5", "0.8", "1.9"}},
    {"WINDOW CONDUCTION", {"-12.4", "23.5", "1.9", "5.5", "-18.2", "32.9", "-1.9", "-4.4"}},
    {"WINDOW SOLAR", {"0.0", "0.0", "9.6", "27.8", "6.1", "-11", "19.7", "46.0"}},
    {"LIGHTS AND EQUIPMENT", {"1.2", "-2.3", "4.8", "13.9", "7.8", "-14", "14.6", "34.1"}},
    {"PEOPLE SENSIBLE", {"0.0", "0.0", "6.0", "17.4", "3.2", "-5.8", "6.4", "15.0"}},
    {"PEOPLE LATENT", {"0.0", "0.0", "4.8", "13.9", "0.0", "0.0", "5.1", "11.9"}},
    {"INFILTRATION SENSIBLE", {"-7.9", "15.0", "1.2", "3.5", "-11.5", "20.8", "-2.2", "-5.1"}},
    {"INFILTRATION LATENT", {"0.0", "0.0", "0.3", "0.9", "0.0", "0.0", "0.4", "0.9"}},
    {"VENTILATION SENSIBLE", {"-21.6", "41.0", "4.9", "14.2", "-20.3", "36.6", "-3.9", "-9.1"}},
    {"VENTILATION LATENT", {"0.0", "0.0", "1.1", "3.2", "0.0", "0.0", "1.2", "2.8"}},
    {"MASS EFFECT", {"4.1", "-7.8", "-3.6", "-10", "1.6", "-2.9", "0.3", "0.7"}},
    {"", {}},
    {"TOTAL", {"-52.7", "100", "34.5", "100", "-55.4", "100", "42.8", "100"}},
}};

// Section III page 1: heading, page header (project at 14, location at 98),
// load table rows 1-22 from "ROOF", and the site energy block.
Lines loadPage() {
  Lines l = kPageTop + Lines{"III.  M O N T H L Y   S U M M A R I E S", at({{7, "-------"}}),
                             at({{1, "*** PROJECT: "}, {14, "Test Office"}, {88, "LOCATION: "}, {98, "Denver #"}}),
                             "", at({{1, "COMPONENT"}, {31, "KBTU/H     %"}})};
  for (const LoadRow& r : kLoadRows)
    l.push_back(r.label.empty() ? std::string(132, '-')
                                : at({{1, r.label}, {29, right(r.f[0], 8)}, {38, right(r.f[1], 5)},
                                      {45, right(r.f[2], 8)}, {54, right(r.f[3], 5)}, {61, "|"}, {63, r.label},
                                      {98, "|"}, {100, right(r.f[4], 8)}, {109, right(r.f[5], 5)},
                                      {117, right(r.f[6], 8)}, {126, right(r.f[7], 5)}}));
  l = l + Lines{"", "    NOTES", "", "", "", at({{33, "PEAK HEATING    PEAK COOLING"}})};  // rows 15-20
  l.push_back(at({{1, "TIME OF PEAK"}, {30, right("07:00-08:00", 15)}, {46, right("15:00-16:00", 15)}}));
  l.push_back(at({{1, "DATE OF PEAK"}, {30, " Mon Jan 12, 2026"}, {47, " Wed Jul 22, 2026"}}));
  l.push_back("    ANNUAL SITE ENERGY BY END USE");
  l.push_back(at({{1, "Site (MBTU)"}, {18, "   69.3"}, {27, "     4.8"}, {38, "    6.0"}, {48, "    5.5"},
                  {57, "   18.4"}, {68, "   10.9"}, {78, "ELECTRICITY"}}));
  l.push_back(at({{5, "SOURCE FACTORS"}, {60, "TOTAL SITE ENERGY (MBTU) ="}, {89, "  114.9"}, {96, "  EUF = "},
                  {104, "  178.2"}, {111, " KBTU/SQ.FT. (SOURCE)"}}));
  return l;
}

// Section III page 2: "MON", four skipped lines, a row per label (row i from 0:
// heating "1<i>.5", cooling 100 (i + 1), gas 200 + i, electricity 300 + i,
// total 500 + i), "=", energy totals 99.9 and 9999, cost totals 777, 888, 999.
Lines monthPage(const std::vector<std::string>& labels) {
  Lines l = kPageTop + Lines{"MON    SPACE     PEAK", "     HEATING", "     (MBTU)", "--- -------", ""};
  for (std::size_t i = 0; i < labels.size(); ++i)
    l.push_back(at({{1, labels[i]}, {4, right("1" + std::to_string(i) + ".5", 8)}, {12, "     52.7"},
                    {31, right(std::to_string(100 * (i + 1)), 9)}, {80, right(std::to_string(200 + i), 8)},
                    {105, right(std::to_string(300 + i), 9)}, {114, right(std::to_string(500 + i), 9)}}));
  return l + Lines{std::string(132, '='), at({{1, "TOT"}, {4, "    99.9"}, {31, "     9999"}}),
                   at({{1, "ANNUAL COSTS ($)"}, {80, "     777"}, {105, "      888"}, {114, "      999"}})};
}

const std::vector<std::string> kYear{"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                     "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

// Sections IV to IX, each a page top and its anchor line; VI lies inside V's span.
Lines hvacPart() { return kPageTop + Lines{"IV.  H V A C   D E S I G N   D A T A", "  11"}; }
Lines profilePart() { return kPageTop + Lines{"V.  P E A K   D E M A N D", "HOUR"} + kPageTop + Lines{"VI.  Z O N E"}; }
Lines costPart() { return kPageTop + Lines{"VII.  C O S T   A N A L Y S I S", "    TOTAL"}; }
Lines weatherPart() { return kPageTop + Lines{"VIII.  W E A T H E R", "", " DAILY WEATHER, JANUARY 2026"}; }
Lines comfortPart() { return kPageTop + Lines{"IX.  S P A C E   C O M F O R T", "     NO COMFORT TABLE."}; }

Lines fullReport(bool si = false, const std::vector<std::string>& months = kYear) {
  return projectPart(si) + zonePart() + loadPage() + monthPage(months) + hvacPart() + profilePart() + costPart() +
         weatherPart() + comfortPart();
}

class Results : public ::testing::Test {
 protected:
  void writeReport(const Lines& lines) { install.write("temp/ecalc$.out", joined(lines)); }
  std::string scratch() const { return install.path("temp").string(); }
  std::string temp(const std::string& name) const { return install.read("temp/" + name); }

  TempInstall install;
  ChartTables tables;
};

TEST_F(Results, UnitFlagComesFromTheSolarHeadingOfTheOutput) {
  writeReport(fullReport(/*si=*/true));
  ASSERT_TRUE(readMonthlyEnergy(scratch(), tables).ok());
  EXPECT_EQ(tables.units, OutputUnits::SI);
  // "SQ.FT." at 11 reads "Q.FT." at 12-16: I-P, set anew by every reader.
  writeReport(fullReport(/*si=*/false));
  ASSERT_TRUE(readSiteEnergy(scratch(), tables).ok());
  EXPECT_EQ(tables.units, OutputUnits::IP);
  // Only the 13th line after "WEATHER" is tested.
  Lines late = fullReport(true);
  late.insert(late.begin() + 3, "");
  writeReport(late);
  ASSERT_TRUE(readLoadBreakdown(scratch(), LoadColumn::PeakHeating, tables).ok());
  EXPECT_EQ(tables.units, OutputUnits::IP);
}

TEST_F(Results, LoadBreakdownFoldsToNineCategoriesAndTheTotal) {
  writeReport(fullReport());
  tables.loads[0].value[13] = "kept";
  ASSERT_TRUE(readLoadBreakdown(scratch(), LoadColumn::PeakHeating, tables).ok());
  const LoadBreakdown& heat = tables.loads[0];
  EXPECT_EQ(heat.value[1] + "|" + heat.percent[1], "    -6.3| 12.0");
  EXPECT_EQ(heat.value[8], "-29.5");      // rows 8-11: -7.9 + 0 - 21.6 + 0
  EXPECT_EQ(heat.percent[8], " 15.0");    // percents are not folded
  EXPECT_EQ(heat.value[9], "     4.1");   // mass effect, row 12
  EXPECT_EQ(heat.value[10], "   -21.6");  // as cut
  EXPECT_EQ(heat.value[11], "   -52.7");  // the total, row 14, which keeps it too
  EXPECT_EQ(heat.value[14], "   -52.7");
  EXPECT_EQ(heat.value[13], "kept");      // the rule line is never cut

  ASSERT_TRUE(readLoadBreakdown(scratch(), LoadColumn::PeakCooling, tables).ok());
  EXPECT_EQ(tables.loads[1].value[8], " 7.5");  // a sum not below zero has its blank
  ASSERT_TRUE(readLoadBreakdown(scratch(), LoadColumn::AnnualHeating, tables).ok());
  EXPECT_EQ(tables.loads[2].value[4] + "|" + tables.loads[2].percent[4], "     6.1|  -11");
  ASSERT_TRUE(readLoadBreakdown(scratch(), LoadColumn::AnnualCooling, tables).ok());
  EXPECT_EQ(tables.loads[3].value[8], "-4.5");  // -2.2 + .4 - 3.9 + 1.2 without binary residue
  EXPECT_EQ(tables.loads[3].value[11], "    42.8");
  EXPECT_EQ(tables.loads[0].value[8], "-29.5");  // the other pairs stay

  // Rows 21 and 22, untrimmed.
  EXPECT_EQ(tables.peakHeatingTime + "|" + tables.peakCoolingTime, "    07:00-08:00|    15:00-16:00");
  EXPECT_EQ(tables.peakHeatingDate + "|" + tables.peakCoolingDate, " Mon Jan 12, 2026| Wed Jul 22, 2026");
}

TEST_F(Results, MonthlyEnergyFillsFromTheFirstRowsMonth) {
  writeReport(fullReport());
  ASSERT_TRUE(readMonthlyEnergy(scratch(), tables).ok());
  const MonthlyEnergy& e = tables.energy;
  EXPECT_EQ(e.firstMonth, 0);
  EXPECT_EQ(e.lastMonth, 12);
  EXPECT_EQ(e.heating[1] + "|" + e.cooling[12], "    10.5|     1200");
  EXPECT_EQ(e.heatingTotal + "|" + e.coolingTotal, "    99.9|     9999");

  // From April, the later labels unread: 4..6 filled, 1..3 and 7..12 as they were.
  writeReport(fullReport(false, {"APR", "JAN", "XXX"}));
  ASSERT_TRUE(readMonthlyEnergy(scratch(), tables).ok());
  EXPECT_EQ(e.firstMonth, 3);
  EXPECT_EQ(e.lastMonth, 6);
  EXPECT_EQ(e.heating[3] + "|" + e.heating[4] + "|" + e.cooling[6] + "|" + e.heating[7],
            "    12.5|    10.5|      300|    16.5");

  // "=" straight after the skipped lines: no rows, the totals still cut.
  writeReport(fullReport(false, {}));
  tables.energy.heatingTotal.clear();
  ASSERT_TRUE(readMonthlyEnergy(scratch(), tables).ok());
  EXPECT_EQ(e.lastMonth, e.firstMonth);
  EXPECT_EQ(e.heating[4], "    10.5");
  EXPECT_EQ(e.heatingTotal, "    99.9");
}

TEST_F(Results, MonthlyCostsPutTheTotalsAfterTheLastMonth) {
  writeReport(fullReport(false, {"APR", "MAY", "JUN"}));
  ASSERT_TRUE(readMonthlyCosts(scratch(), tables).ok());
  const MonthlyCosts& c = tables.costs;
  EXPECT_EQ(c.lastMonth, 6);
  EXPECT_EQ(c.gas[4] + "|" + c.electricity[5] + "|" + c.total[6], "     200|      301|      502");
  EXPECT_EQ(c.gas[7] + "|" + c.electricity[7] + "|" + c.total[7], "     777|      888|      999");
  EXPECT_EQ(c.total[3], "");
  writeReport(fullReport());
  ASSERT_TRUE(readMonthlyCosts(scratch(), tables).ok());
  EXPECT_EQ(c.total[12] + "|" + c.total[13], "      511|      999");
}

TEST_F(Results, AMonthPastTheTableIsAFault) {
  std::vector<std::string> thirteen = kYear;
  thirteen.push_back("JAN");
  writeReport(fullReport(false, thirteen));
  ReadStatus s = readMonthlyEnergy(scratch(), tables);
  EXPECT_EQ(s.errorNumber, err::kSubscriptOutOfRange);
  EXPECT_TRUE(s.clearOutputViewable);
  EXPECT_EQ(tables.energy.heating[12], "   111.5");  // rows before the fault stay
  // The cost table takes a 13th row, but then not its totals.
  EXPECT_EQ(readMonthlyCosts(scratch(), tables).errorNumber, err::kSubscriptOutOfRange);
  EXPECT_EQ(tables.costs.total[13], "      512");
  // Twelve rows from February overflow too.
  std::vector<std::string> fromFeb = kYear;
  fromFeb[0] = "FEB";
  writeReport(fullReport(false, fromFeb));
  EXPECT_EQ(readMonthlyEnergy(scratch(), tables).errorNumber, err::kSubscriptOutOfRange);
}

TEST_F(Results, AMissingFileOrAnchorIsAFaultThatDarkensTheResults) {
  ReadStatus s = readSiteEnergy(scratch(), tables);
  EXPECT_EQ(s.errorNumber, err::kFileNotFound);
  EXPECT_TRUE(s.clearOutputViewable);
  EXPECT_EQ(s.message(), errorMessage(53));

  // A report that stops before the monthly table: the walk got to the units.
  writeReport(projectPart(true) + zonePart() + loadPage());
  s = readMonthlyCosts(scratch(), tables);
  EXPECT_EQ(s.errorNumber, err::kInputPastEnd);
  EXPECT_TRUE(s.clearOutputViewable);
  EXPECT_EQ(tables.units, OutputUnits::SI);
  // The load table cut short before row 22.
  Lines shortTable = projectPart(false) + loadPage();
  shortTable.resize(shortTable.size() - 4);
  writeReport(shortTable);
  EXPECT_EQ(readLoadBreakdown(scratch(), LoadColumn::PeakHeating, tables).errorNumber, err::kInputPastEnd);
  // No weather page: the anchors after it are never looked for.
  writeReport(zonePart() + loadPage() + monthPage(kYear));
  EXPECT_EQ(readMonthlyEnergy(scratch(), tables).errorNumber, err::kInputPastEnd);
}

TEST_F(Results, SiteEnergyTakesTheCaptionsFromSectionThree) {
  Lines report = fullReport();
  report.insert(report.begin() + 17, at({{1, "Site (MBTU)"}, {18, "    1.0"}}));  // before "III."
  writeReport(report);
  ASSERT_TRUE(readSiteEnergy(scratch(), tables).ok());
  const SiteEnergy& s = tables.site;
  EXPECT_EQ(s.projectCaption, "Test Office" + std::string(24, ' '));
  EXPECT_EQ(s.locationCaption, "Denver #");  // the line ends inside the field
  std::string uses;
  for (int i = kSpaceHeating; i <= kEquipment; ++i) uses += s.endUse[static_cast<std::size_t>(i)] + "|";
  EXPECT_EQ(uses, "   69.3|     4.8|    6.0|    5.5|   18.4|   10.9|");
  EXPECT_EQ(s.total + "|" + s.sourceFactor, "  114.9|  178.2");
}

TEST_F(Results, EachSpanRunsFromItsAnchorToBeforeTheNext) {
  const Lines months = monthPage(kYear);
  writeReport(fullReport());
  for (Section s : {Section::ProjectData, Section::ZoneData, Section::MonthlySummaries, Section::HvacDesign,
                    Section::PeakProfiles, Section::CostAnalysis, Section::WeatherSummary})
    ASSERT_TRUE(cutSection(scratch(), s).ok()) << sectionFileName(s);
  // A page top before an anchor stays with the span before it.
  const auto body = [](const Lines& part) { return Lines(part.begin() + 2, part.end()); };
  EXPECT_EQ(temp("tabproj.txt"), joined(projectPart(false)));
  EXPECT_EQ(temp("tabzone.txt"), joined(zonePart() + kPageTop));
  EXPECT_EQ(temp("tabsum.txt"), joined(body(loadPage()) + months + kPageTop));
  EXPECT_EQ(temp("tabhvac.txt"), joined(body(hvacPart()) + kPageTop));
  EXPECT_EQ(temp("tabprof.txt"), joined(body(profilePart()) + kPageTop));
  EXPECT_EQ(temp("tabcost.txt"), joined(body(costPart()) + kPageTop));
  EXPECT_EQ(temp("tabweat.txt"), joined(body(weatherPart()) + kPageTop));
}

TEST_F(Results, ASpanKeepsTheBytesOfTheReport) {
  // The file's own line ends; "IV." needs its blank; "VIII " ends the costs.
  install.write("temp/ecalc$.out", "II.\r\nIV.x\nIV. a\r\n\rV. \r\nVII.\r\nc\r\nVIII \r\nIX.\r\n");
  ASSERT_TRUE(cutSection(scratch(), Section::HvacDesign).ok());
  EXPECT_EQ(temp("tabhvac.txt"), "IV. a\r\n\r");
  ASSERT_TRUE(cutSection(scratch(), Section::CostAnalysis).ok());
  EXPECT_EQ(temp("tabcost.txt"), "VII.\r\nc\r\n");
  ASSERT_TRUE(cutSection(scratch(), Section::ProjectData).ok());
  EXPECT_TRUE(install.exists("temp/tabproj.txt"));
  EXPECT_EQ(temp("tabproj.txt"), "");

  // The weather span never starts; a failed cut leaves the old file, and the
  // results stay viewable.
  install.write("temp/tabweat.txt", "old");
  const ReadStatus s = cutSection(scratch(), Section::WeatherSummary);
  EXPECT_EQ(s.errorNumber, err::kInputPastEnd);
  EXPECT_FALSE(s.clearOutputViewable);
  EXPECT_EQ(temp("tabweat.txt"), "old");
}

// Comfort files: four header lines, then what the engine wrote.
const Lines kComfortHeader{"     SPACE COMFORT CONDITIONS", "     COMFORT LIMITS", "     PROJECT: Test Office",
                           "     ------"};
Lines filler(int count) { return Lines(static_cast<std::size_t>(count), "         1         54.4-   55.3-"); }
const std::string kProj = "*** PROJECT: Test Office";

class ComfortSplit : public Results {
 protected:
  ComfortPages split(const Lines& file) {
    install.write("temp/ecalc$.flt", joined(file));
    ComfortPages pages{-1, -1};
    const ReadStatus s = splitComfortFile(scratch(), pages);
    EXPECT_TRUE(s.ok()) << s.detail;
    return pages;
  }
  std::string page(int n) const { return temp(std::to_string(n) + ".flt"); }
};

TEST_F(ComfortSplit, PagesStartAtEveryReportHeading) {
  // Without headings the file is one page, whatever its length.
  const Lines plain = kComfortHeader + filler(600) + Lines{"  ZONE at 2", "** PROJ"};
  ComfortPages pages = split(plain);
  EXPECT_EQ(pages.pageCount, 1);
  EXPECT_EQ(page(1), joined(plain));

  const Lines summary = Lines{"", "     BUILDING SUMMARY"} + filler(3);
  const Lines zone1 = Lines{kProj, "", " ZONE 11  Open office"} + filler(30);
  const Lines zone2 = Lines{kProj, "", " ZONE 12  Conference"} + filler(30);
  pages = split(kComfortHeader + summary + zone1 + zone2);
  EXPECT_EQ(pages.pageCount, 3);
  EXPECT_EQ(pages.pagesWritten, 3);
  EXPECT_EQ(page(1), joined(kComfortHeader + summary));
  EXPECT_EQ(page(2), joined(zone1));
  EXPECT_EQ(page(3), joined(zone2));
}

TEST_F(ComfortSplit, AZoneHeadingBreaksOnlyAPageAbove448Lines) {
  // Page 1 holds exactly 448 lines at its first zone heading, which stays;
  // it then holds 449, so the next one breaks.
  const Lines first = kComfortHeader + filler(444) + Lines{" ZONE 11"};
  // On a later page the carried heading counts as its first line.
  const Lines second = Lines{" ZONE 12"} + filler(447) + Lines{" ZONE 13"};
  const Lines third = Lines{" ZONE 14"} + filler(2);
  ComfortPages pages = split(first + second + third);
  EXPECT_EQ(pages.pageCount, 3);
  EXPECT_EQ(page(1), joined(first));
  EXPECT_EQ(page(2), joined(second));
  EXPECT_EQ(page(3), joined(third));

  const Lines longer = Lines{" ZONE 12"} + filler(448);
  pages = split(first + longer + Lines{" ZONE 13"} + third);
  EXPECT_EQ(pages.pageCount, 3);
  EXPECT_EQ(page(2), joined(longer));
  EXPECT_EQ(page(3), joined(Lines{" ZONE 13"} + third));
}

TEST_F(ComfortSplit, AHeadingOnTheLastLineIsCountedButNeverWritten) {
  install.write("temp/2.flt", "stale");
  const ComfortPages pages = split(kComfortHeader + filler(5) + Lines{kProj});
  EXPECT_EQ(pages.pageCount, 2);
  EXPECT_EQ(pages.pagesWritten, 1);
  EXPECT_EQ(page(2), "stale");
  // An empty comfort file (a run with heating and cooling) writes no page.
  const ComfortPages none = split({});
  EXPECT_EQ(none.pageCount, 1);
  EXPECT_EQ(none.pagesWritten, 0);
}

TEST_F(ComfortSplit, FaultsLeaveTheCountAsItWas) {
  ComfortPages pages{7, 7};
  EXPECT_EQ(splitComfortFile(scratch(), pages).errorNumber, err::kFileNotFound);
  // Nothing after the header: the first read past it runs off the end.
  install.write("temp/ecalc$.flt", joined(kComfortHeader));
  const ReadStatus s = splitComfortFile(scratch(), pages);
  EXPECT_EQ(s.errorNumber, err::kInputPastEnd);
  EXPECT_FALSE(s.clearOutputViewable);
  EXPECT_EQ(pages.pageCount, 7);
}

}  // namespace
}  // namespace marloven::testing
