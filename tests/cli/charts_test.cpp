// The seven charts on joined reports of real runs of the sample office, in
// I-P and SI: the picture's numbers as the model holds them.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "results/charts.h"
#include "run_cli.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

struct FakePromptScript {
  FakePrompt prompt;
};

TEST(ChartAxis, FittingOnTheCasesTheProgramKeeps) {
  EXPECT_FLOAT_EQ(fitAxis(0, true), 0.1f);      // " 0": N 1, D 0 counted as 1, 0 itself, then the floor
  EXPECT_FLOAT_EQ(fitAxis(1000, true), 2000);   // not 1000
  EXPECT_FLOAT_EQ(fitAxis(9, false), 9);        // a whole number of one digit stays
  EXPECT_FLOAT_EQ(fitAxis(9.5f, false), 10);
  EXPECT_FLOAT_EQ(fitAxis(700, true), 800);     // 50 gains against -700 losses: the losses decide
  EXPECT_FLOAT_EQ(fitAxis(347.2f, false), 400);
  EXPECT_FLOAT_EQ(fitAxis(1200, false), 2000);
  EXPECT_FLOAT_EQ(fitAxis(70, false), 80);
  EXPECT_FLOAT_EQ(fitAxis(7, false), 7);
  EXPECT_FLOAT_EQ(fitAxis(0.35f, false), 0.1f);  // below 1 and unguarded the trace runs off the top
  EXPECT_FLOAT_EQ(fitAxis(0.05f, true), 0.2f);    // the first digit 0 counts as 1 on the load charts
}

class Charts : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    setenv("MARLOVEN_TARN64", TARN_BINARY, 1);
    tree_ = new TempInstall;
    tree_->write("btype/tcool.dat", readFile(std::string(INSTALL_DATA) + "/btype/tcool.dat"));
    const std::string sample = std::string(INSTALL_DATA) + "/sample/office.inp";
    ASSERT_EQ(runCli({"--install", tree_->dir(), "inp", "convert", "--to", "si", sample, path("sample/si.inp")}).status,
              0);
    for (const auto& [project, dir, extra] :
         {std::tuple{sample, "ip", std::vector<std::string>{}}, std::tuple{path("sample/si.inp"), "si",
                                                                            std::vector<std::string>{}},
          std::tuple{sample, "march", std::vector<std::string>{"--period", "1-Mar", "31-Dec"}}}) {
      std::vector<std::string> args = {"--install", tree_->dir(), "run", project, "--repeat-weather", "--scratch",
                                       path(std::string("sample/") + dir)};
      args.insert(args.end(), extra.begin(), extra.end());
      const Result r = runCli(args);
      ASSERT_EQ(r.status, 0) << r.err;
    }
  }
  static void TearDownTestSuite() {
    delete tree_;
    tree_ = nullptr;
  }
  static std::string path(const std::string& sub) { return tree_->path(sub).string(); }
  static ChartModel build(const std::string& run, Chart c) {
    ChartModel m;
    const ReadStatus st = buildChart({path("sample/" + run), "office.inp", "Untitled.ot1"}, c, m);
    EXPECT_TRUE(st.ok()) << st.message() << " " << st.detail;
    return m;
  }
  static ChartTables tables(const std::string& run) {
    ChartTables t;
    for (LoadColumn c : {LoadColumn::PeakHeating, LoadColumn::PeakCooling, LoadColumn::AnnualHeating,
                         LoadColumn::AnnualCooling})
      EXPECT_TRUE(readLoadBreakdown(path("sample/" + run), c, t).ok());
    EXPECT_TRUE(readMonthlyEnergy(path("sample/" + run), t).ok());
    EXPECT_TRUE(readMonthlyCosts(path("sample/" + run), t).ok());
    EXPECT_TRUE(readSiteEnergy(path("sample/" + run), t).ok());
    return t;
  }
  static TempInstall* tree_;
};
TempInstall* Charts::tree_ = nullptr;

TEST_F(Charts, LoadChartsBarsLabelsTotalsAndButtons) {
  for (const char* run : {"ip", "si"}) {
    const bool si = std::string(run) == "si";
    const ChartTables t = tables(run);
    const std::array<std::pair<Chart, LoadColumn>, 4> charts = {{{Chart::PeakHeating, LoadColumn::PeakHeating},
                                                                 {Chart::PeakCooling, LoadColumn::PeakCooling},
                                                                 {Chart::AnnualHeating, LoadColumn::AnnualHeating},
                                                                 {Chart::AnnualCooling, LoadColumn::AnnualCooling}}};
    for (const auto& [chart, column] : charts) {
      const ChartModel m = build(run, chart);
      const LoadBreakdown& b = t.loads[static_cast<int>(column)];
      SCOPED_TRACE(m.title + " " + run);
      EXPECT_EQ(m.screen, ChartScreen::Peak);
      EXPECT_EQ(m.caption, m.title + " -- office.inp");
      ASSERT_EQ(m.bars.size(), 9u);
      double largest = 0;
      for (int i = 0; i < 9; ++i) largest = std::max(largest, std::abs(leadingNumber(b.value[i + 1].substr(0, 8))));
      EXPECT_FLOAT_EQ(m.scale, fitAxis(static_cast<float>(largest), true));
      for (int i = 0; i < 9; ++i) {
        const double v = leadingNumber(b.value[i + 1].substr(0, 8));
        const ChartBar& bar = m.bars[i];
        EXPECT_DOUBLE_EQ(bar.left, 1500 + 800 * i);
        EXPECT_DOUBLE_EQ(bar.right - bar.left, 400);
        // Gains rise from the base line, losses fall from it; the scale is 1900 twips.
        EXPECT_NEAR(v >= 0 ? 3500 - bar.top : bar.bottom - 3500, std::abs(v) * 1900 / m.scale, 1e-6);
        EXPECT_DOUBLE_EQ(v >= 0 ? bar.bottom : bar.top, 3500);
        const Rgb want = paletteColour(i == 6 ? 12 : i + 1);
        EXPECT_EQ(bar.fill, want) << i;
        EXPECT_EQ(m.names[i].colour, want);
        EXPECT_EQ(m.values[i].text, padded(static_cast<float>(v)));
      }
      EXPECT_EQ(m.names[0].text, "Roof");
      EXPECT_EQ(m.names[4].text, "Lights/ Equip.");
      EXPECT_EQ(m.axisUp, (std::vector<std::string>{padded(m.scale / 2), padded(m.scale)}));
      EXPECT_EQ(m.axisDown, (std::vector<std::string>{padded(-m.scale / 2), padded(-m.scale)}));
      const bool peak = chart == Chart::PeakHeating || chart == Chart::PeakCooling;
      EXPECT_EQ(m.unit, peak ? (si ? " kW " : "kBtuh") : (si ? "GJoules" : "MBtu"));
      const std::string head = "Total " + m.title + " = " + b.value[kLoadTotal];
      if (peak) {
        const bool heat = chart == Chart::PeakHeating;
        EXPECT_EQ(m.total, head + (si ? " kW @ " : " kBtuh @ ") + (heat ? t.peakHeatingTime : t.peakCoolingTime) +
                               " on" + (heat ? t.peakHeatingDate : t.peakCoolingDate));
      } else {
        EXPECT_EQ(m.total, head + (si ? " GJoules." : " MBtu."));
      }
      for (int c = 1; c <= kCharts; ++c) EXPECT_EQ(m.buttons[c], c != static_cast<int>(chart)) << c;
      EXPECT_FALSE(m.projectName.empty());
    }
  }
}

TEST_F(Charts, MonthlyEnergyAndCostTraces) {
  for (const char* run : {"ip", "si"}) {
    const bool si = std::string(run) == "si";
    const ChartTables t = tables(run);
    const ChartModel e = build(run, Chart::MonthlyEnergy);
    SCOPED_TRACE(run);
    EXPECT_EQ(e.screen, ChartScreen::Monthly);
    EXPECT_EQ(e.unit, si ? "GJoules" : "MBtu");
    EXPECT_EQ(e.legend[1], "Cooling Energy");
    EXPECT_EQ(e.total, t.energy.heatingTotal + "  " + e.unit);
    const double tc = leadingNumber(t.energy.coolingTotal);
    EXPECT_EQ(e.total2, padded(static_cast<float>(std::floor(tc * 10 * (si ? 3.6 / 1e3 : 3413 / 1e6) + 0.5) / 10)) +
                            "  " + e.unit);
    EXPECT_FALSE(e.thirdTrace);
    EXPECT_FALSE(e.buttons[static_cast<int>(Chart::MonthlyEnergy)]);
    EXPECT_TRUE(e.buttons[static_cast<int>(Chart::MonthlyCosts)]);
    ASSERT_EQ(e.segments.size(), 22u);  // 11 steps, two traces
    const double s = 3500 / e.scale;
    for (const ChartSegment& seg : e.segments) {
      EXPECT_DOUBLE_EQ(seg.x1, 1450 + 600 * (seg.month - 1));
      const double v = seg.trace == 0 ? leadingNumber(t.energy.heating[seg.month])
                                      : static_cast<float>(leadingNumber(t.energy.cooling[seg.month]) *
                                                           (si ? 3.6 / 1e3 : 3413 / 1e6));
      EXPECT_NEAR(seg.y1, 5000 - v * s, 1e-3);
      EXPECT_GE(seg.y1, 5000 - 3500 - 1e-6);  // inside the plot
      EXPECT_EQ(seg.colour, seg.trace == 0 ? (Rgb{255, 0, 0}) : (Rgb{0, 0, 192}));
    }

    const ChartModel c = build(run, Chart::MonthlyCosts);
    EXPECT_EQ(c.total3, "Total Costs = $ " + t.costs.total[t.costs.lastMonth + 1]);
    EXPECT_EQ(c.total, " $ " + t.costs.gas[t.costs.lastMonth + 1]);
    EXPECT_TRUE(c.thirdTrace);
    EXPECT_EQ(c.unit, "");
    EXPECT_EQ(c.axisUp[3], "$" + padded(c.scale));
    ASSERT_EQ(c.segments.size(), 33u);
    EXPECT_EQ(c.segments[2].colour, (Rgb{0, 64, 0}));
    EXPECT_TRUE(c.buttons[static_cast<int>(Chart::MonthlyEnergy)]);
    EXPECT_FALSE(c.buttons[static_cast<int>(Chart::MonthlyCosts)]);
  }
}

TEST_F(Charts, ARunFromMarchShiftsTheTraces) {
  const ChartTables t = tables("march");
  ASSERT_EQ(t.energy.firstMonth, 2);
  const ChartModel e = build("march", Chart::MonthlyEnergy);
  // x begins at March's place, the entries at 1: January and February were
  // never read, so the traces begin at zero, and the last months are not drawn.
  ASSERT_FALSE(e.segments.empty());
  EXPECT_DOUBLE_EQ(e.segments[0].x1, 1450 + 600 * 2);
  EXPECT_EQ(e.segments[0].month, 1);
  EXPECT_DOUBLE_EQ(e.segments[0].y1, 5000);
  EXPECT_EQ(static_cast<int>(e.segments.size()), 2 * (t.energy.lastMonth - 1));
}

TEST_F(Charts, SourceEnergyBarsAndElectricUses) {
  for (const char* run : {"ip", "si"}) {
    const bool si = std::string(run) == "si";
    const ChartTables t = tables(run);
    const ChartModel m = build(run, Chart::SourceEnergy);
    SCOPED_TRACE(run);
    EXPECT_EQ(m.caption, "Breakdown of Annual Energy -- office.inp");
    EXPECT_EQ(m.unit, si ? "GJoules" : "MBtu");
    ASSERT_EQ(m.bars.size(), 6u);
    ASSERT_EQ(m.electric.size(), 4u);
    for (int i = 1; i <= 6; ++i) {
      const double v = leadingNumber(t.site.endUse[i]);
      EXPECT_EQ(m.values[i - 1].text, t.site.endUse[i]);
      EXPECT_EQ(m.bars[i - 1].fill, paletteColour(i));
      EXPECT_DOUBLE_EQ(m.bars[i - 1].left, 2000 + 1000 * (i - 1));
      EXPECT_NEAR(5000 - m.bars[i - 1].top, v * 3500 / m.scale, 1e-6);
      if (i <= 2) continue;
      EXPECT_EQ(m.electric[i - 3].colour, paletteColour(i));
      if (!si) {
        EXPECT_EQ(m.electric[i - 3].text, "(" + padded(static_cast<float>(std::floor(1e6 * v / 3413))) + " )");
      }
    }
    EXPECT_EQ(m.factor.substr(m.factor.size() - (si ? 9 : 12)), si ? " MJ/sq.m." : " kBtu/sq.ft.");
    EXPECT_FALSE(m.buttons[static_cast<int>(Chart::SourceEnergy)]);
  }
}

TEST_F(Charts, PointingAtABarOrAMonthGivesItsValue) {
  const ChartModel src = build("ip", Chart::SourceEnergy);
  const ChartBar& light = src.bars[4];
  std::string t = src.values[4].text;
  t = t.substr(t.find_first_not_of(' '));
  EXPECT_EQ(chartValueAt(src, (light.left + light.right) / 2, 4000), "Lighting: " + t + " MBtu");
  EXPECT_EQ(chartValueAt(src, 100, 100), "");
  const ChartModel e = build("ip", Chart::MonthlyEnergy);
  const std::string july = chartValueAt(e, 1450 + 600 * 6, 4000);
  EXPECT_EQ(july.substr(0, 3), "Jul");
  EXPECT_NE(july.find("heating"), std::string::npos);
  EXPECT_NE(july.find("cooling"), std::string::npos);
  EXPECT_NE(july.find("MBtu"), std::string::npos);
  EXPECT_EQ(chartValueAt(e, 1450 + 600 * 6, 6800), "");
}

TEST(ChartLeave, MainMenuAsksOnlyAboutUnsavedResultsOfARun) {
  FakePromptScript none;
  EXPECT_EQ(chartMainMenu(false, false, none.prompt), ChartLeave::Close);  // results retrieved, no run
  EXPECT_EQ(chartMainMenu(true, true, none.prompt), ChartLeave::Close);
  EXPECT_TRUE(none.prompt.log.empty());
  FakePromptScript asked;
  asked.prompt.answers = {Answer::Yes, Answer::No, Answer::Cancel};
  EXPECT_EQ(chartMainMenu(true, false, asked.prompt), ChartLeave::SaveOutput);
  EXPECT_EQ(chartMainMenu(true, false, asked.prompt), ChartLeave::Close);
  EXPECT_EQ(chartMainMenu(true, false, asked.prompt), ChartLeave::Stay);
  EXPECT_EQ(asked.prompt.log[0].title, "Save Output");
  EXPECT_EQ(asked.prompt.log[0].buttons, Buttons::YesNoCancel);
}

// In SI the electric uses go to MWh from the first above a thousand kWh on;
// the ones before it stay in kWh under that word.
TEST_F(Charts, SiEndUsesOfThreeAndFiveGigajoules) {
  const std::string report = path("sample/si/ecalc$.out");
  std::vector<std::string> lines = splitLines(readFile(report));
  bool changed = false;
  for (std::string& l : lines)
    if (l.rfind("Site (", 0) == 0) {
      l.replace(37, 7, "    3.0");  // space cooling, columns 38-44
      l.replace(47, 7, "    5.0");  // fan motors, columns 48-54
      l.replace(56, 7, "    1.0");  // lighting
      l.replace(67, 7, "    0.5");  // equipment
      changed = true;
    }
  ASSERT_TRUE(changed);
  std::string text;
  for (const std::string& l : lines) text += l + "\r\n";
  std::filesystem::create_directories(path("sample/gj"));
  tree_->write("sample/gj/ecalc$.out", text);
  ChartModel m;
  ASSERT_TRUE(buildChart({path("sample/gj"), "office.inp", ""}, Chart::SourceEnergy, m).ok());
  ASSERT_EQ(m.electric.size(), 4u);
  EXPECT_EQ(m.electric[0].text, "( 833 )");  // 3.0 x 277.7778 kWh
  EXPECT_EQ(m.electric[1].text, "( 1 )");    // 1389 kWh: MWh from here on
  EXPECT_EQ(m.electric[2].text, "( 0 )");    // 278 kWh, counted in MWh now
  EXPECT_EQ(m.electricUnit, "MWh");
}

}  // namespace
}  // namespace marloven::testing
