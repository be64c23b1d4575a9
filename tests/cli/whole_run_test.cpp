// The whole chain as the command line runs it: the report's front part, the
// run copy, the engine, the joined report, and every results reader cutting
// the values the engine computed.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "engine/engine_run.h"
#include "results/chart_readers.h"
#include "results/report_sections.h"
#include "run_cli.h"
#include "support/temp_install.h"

namespace fs = std::filesystem;
using marloven::leadingNumber;
using marloven::testing::runCli;

namespace {

std::string control(int runType) {
  return "Run type  :  " + std::to_string(runType) +
         "\r\nWthr type :  0\r\n1st day   :  4 \r\nRun begin :  1\r\nRun end   :  365\r\n"
         "Hourly out:  0 \r\nSkip month: \r\nComfort   :  68        79 \r\n";
}

class WholeRun : public ::testing::Test {
 protected:
  void SetUp() override {
    setenv("MARLOVEN_TARN64", TARN_BINARY, 1);
    setenv("SOURCE_DATE_EPOCH", "1700000000", 1);
    inst_.write("btype/tcool.dat", marloven::readFile(std::string(INSTALL_DATA) + "/btype/tcool.dat"));
    project_ = std::string(OFFICE_DIR) + "/office_two_zones.inp";
  }
  void TearDown() override { unsetenv("MARLOVEN_TARN64"); }

  // Front part, run copy, control file, engine; the engine's sections joined
  // behind the front part as the program joins them. Returns what the engine
  // computed, for comparison.
  tarn::Simulation run(int runType) {
    EXPECT_EQ(runCli({"--install", inst_.dir(), "inp", "check", project_}).status, 0);
    const auto front = runCli({"--install", inst_.dir(), "report", "front", project_});
    EXPECT_EQ(front.status, 0) << front.err;
    inst_.write("temp/ecalc$.tmp", control(runType));
    const auto engine = runCli({"run-engine", temp()});
    EXPECT_EQ(engine.status, 0) << engine.err;
    inst_.write("temp/ecalc$.out", inst_.read("temp/ecalc$.out") + inst_.read("temp/sim$.out") + inst_.read("temp/ecalc$.wth") +
                                       inst_.read("temp/ecalc$.flt"));
    tarn::RunLog log;
    return *tarn::simulate(temp(), log);
  }
  std::string temp() const { return inst_.path("temp").string(); }

  marloven::testing::TempInstall inst_;
  std::string project_;
};

double num(const std::string& text) { return leadingNumber(text); }

TEST_F(WholeRun, ChartReadersCutWhatTheEngineComputed) {
  const tarn::Simulation sim = run(3);
  marloven::ChartTables t;
  const std::string dir = temp();

  // Load breakdown: annual heating and peak cooling against the loads pass.
  ASSERT_TRUE(marloven::readLoadBreakdown(dir, marloven::LoadColumn::AnnualHeating, t).ok());
  ASSERT_TRUE(marloven::readLoadBreakdown(dir, marloven::LoadColumn::PeakCooling, t).ok());
  EXPECT_EQ(t.units, marloven::OutputUnits::IP);
  const tarn::LoadRows heat = sim.loads.annualHeating();
  const auto& annual = t.loads[static_cast<int>(marloven::LoadColumn::AnnualHeating)].value;
  for (int row = 0; row < 7; ++row) EXPECT_NEAR(num(annual[row + 1]), heat.rows[row] * 1e-6, 0.15) << "row " << row + 1;
  const double infVent = heat.rows[tarn::kInfiltrationSensible] + heat.rows[tarn::kInfiltrationLatent] +
                         heat.rows[tarn::kVentilationSensible] + heat.rows[tarn::kVentilationLatent];
  EXPECT_NEAR(num(annual[8]), infVent * 1e-6, 0.3);
  EXPECT_NEAR(num(annual[9]), heat.rows[tarn::kMassEffect] * 1e-6, 0.15);
  EXPECT_NEAR(num(annual[marloven::kLoadTotal]), heat.total * 1e-6, 0.05);
  const auto& peak = t.loads[static_cast<int>(marloven::LoadColumn::PeakCooling)].value;
  EXPECT_NEAR(num(peak[marloven::kLoadTotal]), sim.loads.peakCooling.load.total * 1e-3, 0.05);
  EXPECT_EQ(t.peakCoolingTime.substr(t.peakCoolingTime.size() - 5), std::to_string(sim.loads.peakCooling.hour) + ":00");

  // Monthly energy and costs.
  ASSERT_TRUE(marloven::readMonthlyEnergy(dir, t).ok());
  ASSERT_TRUE(marloven::readMonthlyCosts(dir, t).ok());
  EXPECT_EQ(t.energy.firstMonth, 0);
  double coolingKwh = 0;
  for (int m = 1; m <= 12; ++m) {
    const tarn::MonthEnergy& e = sim.energy.months[m - 1];
    const tarn::MonthBill& b = sim.costs.months[m - 1];
    EXPECT_NEAR(num(t.energy.heating[m]), (e.spaceGasKbtu + e.heatingElecKwh * tarn::kBtuPerKwh / 1000) / 1000, 0.15) << m;
    EXPECT_NEAR(num(t.energy.cooling[m]), e.coolingKwh, 1.0) << m;
    EXPECT_NEAR(num(t.costs.gas[m]), b.gasCost, 1.0) << m;
    EXPECT_NEAR(num(t.costs.electricity[m]), b.elecCost(), 1.0) << m;
    EXPECT_NEAR(num(t.costs.total[m]), b.total(), 1.5) << m;
    coolingKwh += e.coolingKwh;
  }
  EXPECT_NEAR(num(t.energy.coolingTotal), coolingKwh, 1.0);
  double totalCost = 0;
  for (const tarn::MonthBill& b : sim.costs.months) totalCost += b.total();
  EXPECT_NEAR(num(t.costs.total[13]), totalCost, 1.0);

  // Site energy by end use and the source use factor.
  ASSERT_TRUE(marloven::readSiteEnergy(dir, t).ok());
  double site = 0;
  for (int use = 0; use < tarn::kEndUses; ++use) {
    EXPECT_NEAR(num(t.site.endUse[use + 1]), sim.costs.site.mbtu[use], 0.15) << "end use " << use;
    site += num(t.site.endUse[use + 1]);
  }
  EXPECT_NEAR(num(t.site.total), site, 1e-6);  // the printed parts add up to the printed total
  EXPECT_NEAR(num(t.site.sourceFactor), sim.costs.site.useFactor, 0.05);
  EXPECT_EQ(t.site.projectCaption.substr(0, 22), "Small office baltimore");
  EXPECT_GT(sim.costs.site.mbtu[tarn::kLighting], 0.0);
}

TEST_F(WholeRun, EverySectionSpanIsCut) {
  run(3);
  const std::pair<marloven::Section, const char*> spans[] = {
      {marloven::Section::ProjectData, ""},        {marloven::Section::ZoneData, "II."},
      {marloven::Section::MonthlySummaries, "III."}, {marloven::Section::HvacDesign, "IV. "},
      {marloven::Section::PeakProfiles, "V. "},    {marloven::Section::CostAnalysis, "VII."},
      {marloven::Section::WeatherSummary, "VIII."}};
  for (const auto& [section, anchor] : spans) {
    ASSERT_TRUE(marloven::cutSection(temp(), section).ok()) << anchor;
    const std::string text = inst_.read("temp/" + std::string(marloven::sectionFileName(section)));
    const std::vector<std::string> lines = marloven::splitLines(text);
    ASSERT_GT(lines.size(), 5u) << anchor;
    EXPECT_EQ(lines.front().rfind(anchor, 0), 0u) << anchor;
  }
  // Section VI lies inside the peak profiles' span.
  EXPECT_NE(inst_.read("temp/" + std::string(marloven::sectionFileName(marloven::Section::PeakProfiles))).find("\nVI.  Z O N E"),
            std::string::npos);
}

TEST_F(WholeRun, PassiveRunComfortTablePerZoneAndMonth) {
  const tarn::Simulation sim = run(4);
  // No heating, cooling or fans in a passive run; lights still burn.
  EXPECT_EQ(sim.costs.site.mbtu[tarn::kSpaceHeating], 0.0);
  EXPECT_EQ(sim.costs.site.mbtu[tarn::kSpaceCooling], 0.0);
  EXPECT_EQ(sim.costs.site.mbtu[tarn::kFanMotors], 0.0);
  EXPECT_GT(sim.costs.site.mbtu[tarn::kLighting], 0.0);

  marloven::ComfortPages pages;
  ASSERT_TRUE(marloven::splitComfortFile(temp(), pages).ok());
  ASSERT_EQ(pages.pagesWritten, 3);  // the building summary, then one page per zone
  for (int z = 0; z < 2; ++z) {
    const std::vector<std::string> lines = marloven::splitLines(inst_.read("temp/" + std::to_string(z + 2) + ".flt"));
    const tarn::ZoneTemperatures& temps = sim.loads.zones[z].temps;
    int checked = 0;
    for (const std::string& l : lines) {
      const bool below = l.rfind("      HRS BELOW", 0) == 0, above = l.rfind("      HRS ABOVE", 0) == 0;
      if (!below && !above) continue;
      for (int m = 0; m < 12; ++m) {
        const double printed = leadingNumber(marloven::midText(l, 17 + 8 * m, 7));
        EXPECT_NEAR(printed, (below ? temps.below : temps.above)[m], 0.5) << "zone " << z << " month " << m + 1;
      }
      ++checked;
    }
    EXPECT_EQ(checked, 2);
  }
}

}  // namespace
