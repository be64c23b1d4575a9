// Prices and first costs read from a project, demand charge blocks, present
// value factors and the life-cycle cost.
#include <gtest/gtest.h>

#include <cmath>

#include "engine/economics.h"
#include "project/project_model.h"

using namespace tarn;

namespace {

marloven::Project twoZoneProject() {
  using namespace marloven;
  Project p;
  p.economics = {"25", "15", "20", "0.07", "0.02", "0.08", "0.03", "0.90", "0.01", "3.00", "0.00"};
  p.data[kFloorArea] = "2000";
  p.data[kConstructionCost] = "100";
  p.walls[3].fields = {"3", "Brick", ".08", ".6", "6", ".3", "1.50"};
  p.windows[2].fields = {"2", "Double", ".5", ".6", ".84", ".7", "12"};
  p.zoneCount = 3;
  auto zone = [&](int i, const char* area, const char* liteCost, const char* first, const char* maint) {
    ZoneRecord& z = p.zones[i];
    z.fields[kZoneId] = std::to_string(10 + i);
    z.fields[kZoneFloorArea] = area;
    z.fields[kLightingCost] = liteCost;
    z.fields[kFirstCost] = first;
    z.fields[kMaintenanceCost] = maint;
  };
  zone(1, "1200", "2.5", "1500", "40");
  zone(2, "0", "9", "9999", "99");  // not simulated: no costs either
  zone(3, "800", "1", "1200", "35");
  EnvelopeRow wall;
  wall.wallId = 3, wall.wallArea = 400, wall.windowId = 2, wall.windowArea = 100;
  p.zones[1].rows[1] = wall;
  EnvelopeRow unknown = wall;
  unknown.wallId = 9;  // not in the types: skipped as the model skips it
  p.zones[1].rows[2] = unknown;
  p.zones[1].rowCount = 2;
  EnvelopeRow roof;
  roof.wallId = 3, roof.wallArea = 800;
  p.zones[3].rows[1] = roof;
  p.zones[3].rowCount = 1;
  p.demand.text = "Y";
  p.demand.pairCount = 2;
  p.demand.pairs[1] = {"100", "12.5"};
  p.demand.pairs[2] = {"200", "10"};
  return p;
}

EnergyResult oneMonth(double kwh, double gasKbtu, double peakKw, double days) {
  EnergyResult e;
  for (int d = 1; d <= static_cast<int>(days); ++d)
    for (int h = 1; h <= 24; ++h) {
      SimulatedHour sh;
      sh.day = d, sh.hour = h, sh.month = 1;
      e.hours.push_back(sh);
      e.energy.push_back({});
    }
  e.months[0].lightsKwh = kwh;
  e.months[0].spaceGasKbtu = gasKbtu;
  e.months[0].peakKw = peakKw;
  return e;
}

}  // namespace

TEST(Economics, InputsFromTheProject) {
  const EconomicsInputs in = economicsInputs(twoZoneProject());
  EXPECT_EQ(in.economicLife, 25);
  EXPECT_DOUBLE_EQ(in.discountRate, 0.07);
  ASSERT_EQ(in.demand.size(), 2u);
  EXPECT_DOUBLE_EQ(in.demand[1].kw, 200);
  EXPECT_DOUBLE_EQ(in.constructionCost, 200000);
  EXPECT_DOUBLE_EQ(in.opaqueInsulationCost, 1.5 * (300 + 800));  // net of the window
  EXPECT_DOUBLE_EQ(in.windowInsulationCost, 12 * 100);
  EXPECT_DOUBLE_EQ(in.lightingCost, 2.5 * 1200 + 1 * 800);
  ASSERT_EQ(in.zones.size(), 2u);  // the zone of no floor area is left out, as in the model
  EXPECT_DOUBLE_EQ(in.zones[1].firstCostPerTon, 1200);
  EXPECT_DOUBLE_EQ(in.zoneFloorArea, 2000);
}

TEST(Economics, DemandScheduleSwitchedOffOrMissing) {
  marloven::Project p = twoZoneProject();
  p.demand.text = " N";  // off keeps the pairs in the project but prices none
  EXPECT_TRUE(economicsInputs(p).demand.empty());
  p.demand.text = "Y";
  p.demand.pairCount = 0;
  EXPECT_TRUE(economicsInputs(p).demand.empty());
  p.data[marloven::kFloorArea] = "";
  EXPECT_DOUBLE_EQ(economicsInputs(p).grossFloorArea, 2000);  // the zones' sum stands in
}

TEST(Economics, DemandChargeBlocks) {
  const std::vector<DemandBlock> blocks = {{100, 12.5}, {200, 10}};
  EXPECT_DOUBLE_EQ(demandCharge(80, blocks), 80 * 12.5);
  EXPECT_DOUBLE_EQ(demandCharge(250, blocks), 100 * 12.5 + 150 * 10);
  EXPECT_DOUBLE_EQ(demandCharge(350, blocks), 100 * 12.5 + 200 * 10 + 50 * 10);  // excess at the last rate
  const std::vector<DemandBlock> three = {{10, 5}, {10, 4}, {10, 3}};
  EXPECT_DOUBLE_EQ(demandCharge(35, three), 50 + 40 + 30 + 5 * 3);
  EXPECT_DOUBLE_EQ(demandCharge(350, {}), 0.0);
}

TEST(Economics, PresentValueFactors) {
  // NIST Handbook 135: UPV at 3 % over 25 years, 7 % over 10 years.
  EXPECT_NEAR(upvStar(25, 0.03, 0.0), 17.41, 0.005);
  EXPECT_NEAR(upvStar(10, 0.07, 0.0), 7.024, 0.0005);
  EXPECT_NEAR(upvStar(30, 0.05, 0.05), 30.0, 1e-9);  // escalation at the discount rate
  EXPECT_NEAR(spv(10, 0.07, 0.0), 0.5083, 0.00005);
}

TEST(Economics, BillsAndSourceEnergy) {
  EconomicsInputs in;
  in.elecCost = 0.1, in.gasCost = 1.0, in.waterCost = 2.0, in.grossFloorArea = 1000;
  in.demand = {{100, 12.5}, {200, 10}};
  EnergyResult e = oneMonth(1000, 5000, 150, 31);
  e.months[0].waterGallons = 4000;
  e.months[0].waterGasKbtu = 1000;
  const CostResult c = computeCosts(in, e, false);
  const MonthBill& b = c.months[0];
  EXPECT_DOUBLE_EQ(b.energyCharge, 100);
  EXPECT_DOUBLE_EQ(b.demandCharge, 100 * 12.5 + 50 * 10);
  EXPECT_DOUBLE_EQ(b.gasCost, 60);
  EXPECT_DOUBLE_EQ(b.waterCost, 8);
  EXPECT_DOUBLE_EQ(b.total(), 100 + 1750 + 60 + 8);
  EXPECT_DOUBLE_EQ(c.site.mbtu[kLighting], 3.412);
  EXPECT_DOUBLE_EQ(c.site.mbtu[kSpaceHeating], 5.0);
  EXPECT_NEAR(c.site.sourceKbtu, 1000 * 3.412 * 3.340 + 6000 * 1.047, 1e-9);
  EXPECT_NEAR(c.site.useFactor, (3412 * 3.340 + 6000 * 1.047) / 1000.0, 1e-9);
}

TEST(Economics, LifeCycleCostWithReplacementsAndResidualValue) {
  EconomicsInputs in;
  in.economicLife = 25, in.mechanicalLife = 10, in.discountRate = 0.03, in.costEscalation = 0.0;
  in.elecCost = 0.1, in.elecEscalation = 0.0, in.grossFloorArea = 1000, in.constructionCost = 50000;
  in.zones = {{1000, 50}};
  EnergyResult e = oneMonth(1000, 0, 0, 365);
  e.zones.resize(1);
  e.zones[0].coolingCapacity = 60000;  // 5 tons
  const CostResult c = computeCosts(in, e, false);
  EXPECT_DOUBLE_EQ(c.first.hvac, 5000);
  EXPECT_EQ(c.replacements, 2);  // years 10 and 20
  const double q = 1.0 / 1.03;
  EXPECT_NEAR(c.lcc[kLccReplacement].presentValue, 5000 * (std::pow(q, 10) + std::pow(q, 20)), 1e-6);
  // Installed in year 20 with a 10-year life: half its value is left at year 25.
  EXPECT_DOUBLE_EQ(c.lcc[kLccResidual].amount, 2500);
  EXPECT_NEAR(c.lcc[kLccResidual].presentValue, -2500 * std::pow(q, 25), 1e-6);
  EXPECT_NEAR(c.lcc[kLccMaintenance].presentValue, 250 * 17.41315, 0.01);
  EXPECT_NEAR(c.lcc[kLccElectricity].presentValue, 100 * 17.41315, 0.01);
  double sum = 0;
  for (const LccRow& r : c.lcc) sum += r.presentValue;
  EXPECT_DOUBLE_EQ(c.lifeCycleCost, sum);
  EXPECT_DOUBLE_EQ(c.lifeCycleCostPerArea, sum / 1000);

  // A life longer than the study period: no replacement, the original's share left.
  in.mechanicalLife = 30;
  const CostResult longer = computeCosts(in, e, false);
  EXPECT_EQ(longer.replacements, 0);
  EXPECT_NEAR(longer.lcc[kLccResidual].amount, 5000.0 * 5 / 30, 1e-9);

  // A passive run has no HVAC costs at all.
  const CostResult passive = computeCosts(in, e, true);
  EXPECT_DOUBLE_EQ(passive.first.hvac, 0);
  EXPECT_DOUBLE_EQ(passive.lcc[kLccMaintenance].presentValue, 0);
  EXPECT_DOUBLE_EQ(passive.lcc[kLccResidual].presentValue, 0);
}

TEST(Economics, ShortPeriodScaledToAYear) {
  EconomicsInputs in;
  in.economicLife = 1, in.elecCost = 0.1;
  const CostResult c = computeCosts(in, oneMonth(1000, 0, 0, 73), false);
  EXPECT_DOUBLE_EQ(c.periodDays, 73);
  EXPECT_DOUBLE_EQ(c.annualScale, 5);
  EXPECT_DOUBLE_EQ(c.lcc[kLccElectricity].amount, 500);
  EXPECT_DOUBLE_EQ(c.months[0].energyCharge, 100);  // the bills stay as simulated
}
