// The chart readers on small reports laid out in the engine's columns.
#include "results/chart_readers.h"

#include <gtest/gtest.h>

#include "common/file_error.h"
#include "sample_report.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

class ChartReaders : public ::testing::Test {
 protected:
  void writeReport(const Lines& lines) { install.write("temp/ecalc$.out", joined(lines)); }
  std::string scratch() const { return install.path("temp").string(); }

  TempInstall install;
  ChartTables tables;
};

TEST_F(ChartReaders, UnitFlagComesFromTheSolarHeadingOfTheOutput) {
  writeReport(fullReport(/*si=*/true));
  ASSERT_TRUE(readMonthlyEnergy(scratch(), tables).ok());
  EXPECT_EQ(tables.units, OutputUnits::SI);

  // "SQ.FT." stands at 11, so 12-16 read "Q.FT.": I-P, set anew by every reader.
  writeReport(fullReport(/*si=*/false));
  ASSERT_TRUE(readSiteEnergy(scratch(), tables).ok());
  EXPECT_EQ(tables.units, OutputUnits::IP);

  // The test is on the 13th line after "WEATHER" only: one line later is I-P.
  Lines late = fullReport(true);
  for (std::size_t i = 0; i < late.size(); ++i)
    if (late[i].find("WEATHER INPUT") != std::string::npos) {
      late.insert(late.begin() + static_cast<long>(i) + 1, "");
      break;
    }
  writeReport(late);
  ASSERT_TRUE(readLoadBreakdown(scratch(), LoadColumn::PeakHeating, tables).ok());
  EXPECT_EQ(tables.units, OutputUnits::IP);
}

TEST_F(ChartReaders, LoadBreakdownFoldsToNineCategoriesAndTheTotal) {
  writeReport(fullReport());
  tables.loads[0].value[13] = "kept";
  ASSERT_TRUE(readLoadBreakdown(scratch(), LoadColumn::PeakHeating, tables).ok());
  const LoadBreakdown& heat = tables.loads[0];
  EXPECT_EQ(heat.value[1], "    -6.3");
  EXPECT_EQ(heat.percent[1], " 12.0");
  EXPECT_EQ(heat.value[7], "     0.0");
  // Infiltration and ventilation, rows 8-11: -7.9 + 0 - 21.6 + 0.
  EXPECT_EQ(heat.value[8], "-29.5");
  EXPECT_EQ(heat.value[9], "     4.1");    // mass effect, from row 12
  EXPECT_EQ(heat.value[10], "   -21.6");   // left as cut
  EXPECT_EQ(heat.value[11], "   -52.7");   // the total, from row 14
  EXPECT_EQ(heat.value[14], "   -52.7");
  EXPECT_EQ(heat.value[13], "kept");       // the rule line is never cut
  EXPECT_EQ(heat.percent[8], " 15.0");     // percents are not folded

  ASSERT_TRUE(readLoadBreakdown(scratch(), LoadColumn::PeakCooling, tables).ok());
  EXPECT_EQ(tables.loads[1].value[8], " 7.5");  // a positive sum has its leading blank
  EXPECT_EQ(tables.loads[1].value[9], "    -3.6");
  ASSERT_TRUE(readLoadBreakdown(scratch(), LoadColumn::AnnualHeating, tables).ok());
  EXPECT_EQ(tables.loads[2].value[4], "     6.1");
  EXPECT_EQ(tables.loads[2].percent[4], "  -11");
  EXPECT_EQ(tables.loads[2].value[8], "-31.8");
  ASSERT_TRUE(readLoadBreakdown(scratch(), LoadColumn::AnnualCooling, tables).ok());
  EXPECT_EQ(tables.loads[3].value[8], "-4.5");  // -2.2 + .4 - 3.9 + 1.2, no binary residue
  EXPECT_EQ(tables.loads[3].value[11], "    42.8");
  EXPECT_EQ(tables.loads[3].percent[14], "  100");
  // Reading one pair leaves the others as they were.
  EXPECT_EQ(tables.loads[0].value[8], "-29.5");

  // Rows 21 and 22, untrimmed: the dates bring their own blank.
  EXPECT_EQ(tables.peakHeatingTime, "    07:00-08:00");
  EXPECT_EQ(tables.peakCoolingTime, "    15:00-16:00");
  EXPECT_EQ(tables.peakHeatingDate, " Mon Jan 12, 2026");
  EXPECT_EQ(tables.peakCoolingDate, " Wed Jul 22, 2026");
}

TEST_F(ChartReaders, MonthlyEnergyStoresRowsFromTheFirstMonthOn) {
  writeReport(fullReport());
  ASSERT_TRUE(readMonthlyEnergy(scratch(), tables).ok());
  EXPECT_EQ(tables.energy.firstMonth, 0);
  EXPECT_EQ(tables.energy.lastMonth, 12);
  EXPECT_EQ(tables.energy.heating[1], "    10.5");
  EXPECT_EQ(tables.energy.cooling[12], "     1200");
  EXPECT_EQ(tables.energy.heatingTotal, "    99.9");
  EXPECT_EQ(tables.energy.coolingTotal, "     9999");

  // A year from April: the first label alone fixes the months, entries 1..3
  // and 7..12 keep what the earlier read left.
  writeReport(fullReport(false, {"APR", "JAN", "XXX"}));
  ASSERT_TRUE(readMonthlyEnergy(scratch(), tables).ok());
  EXPECT_EQ(tables.energy.firstMonth, 3);
  EXPECT_EQ(tables.energy.lastMonth, 6);
  EXPECT_EQ(tables.energy.heating[3], "    12.5");
  EXPECT_EQ(tables.energy.heating[4], "    10.5");
  EXPECT_EQ(tables.energy.cooling[6], "      300");
  EXPECT_EQ(tables.energy.heating[7], "    16.5");

  // "=" right after the skipped lines: no rows at all, the totals still cut.
  writeReport(fullReport(false, {}));
  tables.energy.heating[1] = "earlier";
  ASSERT_TRUE(readMonthlyEnergy(scratch(), tables).ok());
  EXPECT_EQ(tables.energy.firstMonth, 0);
  EXPECT_EQ(tables.energy.lastMonth, 0);
  EXPECT_EQ(tables.energy.heating[1], "earlier");
  EXPECT_EQ(tables.energy.heatingTotal, "    99.9");
}

TEST_F(ChartReaders, MonthlyCostsPutTheTotalsAfterTheLastMonth) {
  writeReport(fullReport(false, {"APR", "MAY", "JUN"}));
  ASSERT_TRUE(readMonthlyCosts(scratch(), tables).ok());
  EXPECT_EQ(tables.costs.firstMonth, 3);
  EXPECT_EQ(tables.costs.lastMonth, 6);
  EXPECT_EQ(tables.costs.gas[4], "     200");
  EXPECT_EQ(tables.costs.electricity[5], "      301");
  EXPECT_EQ(tables.costs.total[6], "      502");
  EXPECT_EQ(tables.costs.gas[7], "     777");
  EXPECT_EQ(tables.costs.electricity[7], "      888");
  EXPECT_EQ(tables.costs.total[7], "      999");
  EXPECT_EQ(tables.costs.total[3], "");

  writeReport(fullReport());
  ASSERT_TRUE(readMonthlyCosts(scratch(), tables).ok());
  EXPECT_EQ(tables.costs.total[12], "      511");
  EXPECT_EQ(tables.costs.total[13], "      999");
}

TEST_F(ChartReaders, AMonthPastTheTableIsAFault) {
  std::vector<std::string> thirteen = wholeYear();
  thirteen.push_back("JAN");
  writeReport(fullReport(false, thirteen));

  ReadStatus s = readMonthlyEnergy(scratch(), tables);
  EXPECT_EQ(s.errorNumber, err::kSubscriptOutOfRange);
  EXPECT_TRUE(s.clearOutputViewable);
  EXPECT_EQ(s.message(), "Subscript out of range");
  // Rows before the fault stay stored; the totals were never reached.
  EXPECT_EQ(tables.energy.heating[12], "   111.5");
  EXPECT_EQ(tables.energy.heatingTotal, "");

  // The cost table has room for a 13th row, but then not for its totals.
  s = readMonthlyCosts(scratch(), tables);
  EXPECT_EQ(s.errorNumber, err::kSubscriptOutOfRange);
  EXPECT_EQ(tables.costs.total[13], "      512");

  // Twelve rows from February overflow too: the first label sets the start.
  std::vector<std::string> fromFeb = wholeYear();
  fromFeb[0] = "FEB";
  writeReport(fullReport(false, fromFeb));
  EXPECT_EQ(readMonthlyEnergy(scratch(), tables).errorNumber, err::kSubscriptOutOfRange);
}

TEST_F(ChartReaders, MissingFileOrAnchorIsAFaultThatDarkensTheResults) {
  ReadStatus s = readSiteEnergy(scratch(), tables);
  EXPECT_EQ(s.errorNumber, err::kFileNotFound);
  EXPECT_TRUE(s.clearOutputViewable);
  EXPECT_EQ(s.message(), errorMessage(53));

  // A report that stops before the monthly table (the run ended early).
  writeReport(projectPart(true) + zonePart() + loadPage());
  s = readMonthlyCosts(scratch(), tables);
  EXPECT_EQ(s.errorNumber, err::kInputPastEnd);
  EXPECT_TRUE(s.clearOutputViewable);
  EXPECT_EQ(tables.units, OutputUnits::SI);  // the walk got that far
  EXPECT_TRUE(readLoadBreakdown(scratch(), LoadColumn::PeakCooling, tables).ok());

  // No weather page: the anchors after it are never looked for, and the flag stays.
  writeReport(zonePart() + loadPage() + monthPage(wholeYear()));
  EXPECT_EQ(readLoadBreakdown(scratch(), LoadColumn::PeakHeating, tables).errorNumber, err::kInputPastEnd);
  EXPECT_EQ(readMonthlyEnergy(scratch(), tables).errorNumber, err::kInputPastEnd);
  EXPECT_EQ(tables.units, OutputUnits::SI);

  // The load table cut short before row 22.
  Lines shortTable = projectPart(false) + loadPage();
  shortTable.resize(shortTable.size() - 8);
  writeReport(shortTable);
  EXPECT_EQ(readLoadBreakdown(scratch(), LoadColumn::PeakHeating, tables).errorNumber, err::kInputPastEnd);
}

TEST_F(ChartReaders, SiteEnergyTakesCaptionsFromSectionThree) {
  // A "Site" line before section III is not the one the reader wants.
  Lines report = fullReport();
  report.insert(report.begin() + static_cast<long>(projectPart(false).size()),
                placed({{1, "Site (MBTU)"}, {18, right("1.0", 7)}}));
  writeReport(report);

  ASSERT_TRUE(readSiteEnergy(scratch(), tables).ok());
  const SiteEnergy& s = tables.site;
  EXPECT_EQ(s.projectCaption, "Test Office" + std::string(24, ' '));
  EXPECT_EQ(s.locationCaption, "Denver, Colorado #");  // the line ends inside the field
  EXPECT_EQ(s.endUse[kSpaceHeating], "   69.3");
  EXPECT_EQ(s.endUse[kWaterHeating], "     4.8");
  EXPECT_EQ(s.endUse[kSpaceCooling], "    6.0");
  EXPECT_EQ(s.endUse[kFanMotors], "    5.5");
  EXPECT_EQ(s.endUse[kLighting], "   18.4");
  EXPECT_EQ(s.endUse[kEquipment], "   10.9");
  EXPECT_EQ(s.total, "  114.9");
  EXPECT_EQ(s.sourceFactor, "  178.2");
}

}  // namespace
}  // namespace marloven::testing
