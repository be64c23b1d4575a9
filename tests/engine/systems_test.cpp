// The systems pass: its performance relations by hand values, and whole runs
// over hand-made zone-hours on steady weather.
#include <gtest/gtest.h>

#include <cmath>

#include "engine/loads.h"
#include "engine/model.h"
#include "engine/run_log.h"
#include "engine/systems.h"
#include "engine/weather.h"

using namespace tarn;

namespace {

// One zone, steady weather, and the zone-hours the loads pass would have left.
struct SystemsCase {
  SimModel model;
  WeatherYear weather;
  LoadsResult loads;
  RunControl control;
  RunLog log;

  explicit SystemsCase(int coolType, int heatType = 1, double outdoorF = 95.0, double dewPointF = 60.0) {
    ZoneModel z;
    z.id = "11";
    z.floorArea = 1000;
    z.people = 10;
    z.coolType = coolType;
    z.heatType = heatType;
    z.seer = 13;
    z.heatCop = 80;
    model.designTemps = {0, 95, 75, 10};
    model.zones.push_back(z);
    weather.hours.assign(365 * 24, WeatherHour{outdoorF, dewPointF, 0, 0, 0, 5, 29.921, 0});
  }
  ZoneModel& zone() { return model.zones[0]; }
  // A cooling (+) or heating (−) hour on day `day`, occupied, Vent profile on.
  void hour(int day, int h, double sensible, double airTemp, double vent = 1.0, double weight = 1.0) {
    SimulatedHour sh;
    sh.day = day;
    sh.month = 1 + (day - 1) / 31;
    sh.hour = h;
    sh.occupied = true;
    sh.weight = weight;
    loads.hours.push_back(sh);
    ZoneHourRecord r;
    r.sensible = static_cast<float>(sensible);
    r.airTemp = static_cast<float>(airTemp);
    r.humidityRatio = 0.0104f;
    r.ventFraction = static_cast<float>(vent);
    r.lightsW = r.lightsFullW = 1000;
    r.equipmentW = 500;
    r.people = 10;
    loads.zoneHours.push_back(r);
  }
  EnergyResult run() { return runSystems(model, loads, weather, control, log); }
};

double sum(const EnergyResult& e, double HourEnergy::*field) {
  double s = 0;
  for (std::size_t i = 0; i < e.energy.size(); ++i) s += e.hours[i].weight * (e.energy[i].*field);
  return s;
}

}  // namespace

TEST(Fans, DesignPowerAndVavCurve) {
  EXPECT_NEAR(designFanKw(1, 10000, 0), 10000 * 3.0 * 0.11733 / 0.55 / 1000, 1e-12);  // type default pressure
  EXPECT_NEAR(designFanKw(8, 1000, 0), 1000 * 0.3 * 0.11733 / 0.45 / 1000, 1e-12);
  EXPECT_NEAR(designFanKw(5, 1000, 2.0), 1000 * 2.0 * 0.11733 / 0.45 / 1000, 1e-12);  // field wins
  EXPECT_NEAR(vavFanFraction(1.0), 0.9991, 1e-12);
  EXPECT_NEAR(vavFanFraction(0.5), 0.299975, 1e-12);
  EXPECT_NEAR(vavFanFraction(0.3), 0.1282594, 1e-9);
}

TEST(Cooling, DxEfficiencyCapacityAndPartLoad) {
  EXPECT_NEAR(dxRatedCop(5, 13), (1.12 * 13 - 0.02 * 169) / 3.412, 1e-12);
  EXPECT_NEAR(dxRatedCop(8, 10), 10 / 3.412, 1e-12);           // window units give the EER
  EXPECT_NEAR(dxRatedCop(6, 0), 9.2 / 3.412, 1e-12);           // blank: SEER 10
  EXPECT_NEAR(dxCop(3.0, 105), 3.0 / 1.125, 1e-12);
  EXPECT_NEAR(dxCapacity(36000, 105), 34560, 1e-9);
  EXPECT_DOUBLE_EQ(dxCop(3.0, 20), dxCop(3.0, 65));            // no run-away below the head pressure floor
  // Full load at rating conditions: load / COP.
  EXPECT_NEAR(dxCoolingKw(36000, 36000, 3.0, 95), 36000 / 3.0 / 3412, 1e-12);
  // Half load at 105 °F: PLF 0.925.
  EXPECT_NEAR(dxCoolingKw(17280, 36000, 3.0, 105), 17280 / (3.0 / 1.125 * 0.925) / 3412, 1e-12);
  // More than the unit can give: it delivers its capacity.
  EXPECT_NEAR(dxCoolingKw(50000, 36000, 3.0, 95), 36000 / 3.0 / 3412, 1e-12);
}

// The rating's own fan taken out of the compressor's COP: with that fan run
// beside it at the rating's 0.365 W/cfm and 400 cfm/ton, compressor and fan
// together use what the rating says, in cooling and in heat pump heating.
TEST(Cooling, RatedEfficiencyNetOfTheIndoorFan) {
  const double eer = 1.12 * 13 - 0.02 * 169, netCapacity = 36000;  // SEER 13, 3 tons
  const double fanKw = 0.365 * 400 * 3 / 1000.0;
  const double cool = compressorCoolingCop(eer / 3.412);
  EXPECT_NEAR(cool, 3.95, 0.01);
  const double grossCoil = netCapacity + fanKw * 3412;  // the coil also removes the fan's heat
  EXPECT_NEAR(grossCoil / cool / 3412 + fanKw, netCapacity / eer / 1000, 1e-9);
  const double heat = compressorHeatingCop(3.3);
  const double grossHeat = netCapacity - fanKw * 3412;  // the fan's heat is part of the rated output
  EXPECT_NEAR(grossHeat / heat / 3412 + fanKw, netCapacity / 3.3 / 3412, 1e-9);
  EXPECT_NEAR(compressorHeatingCop(1.0), 1.0, 1e-12);  // nothing to gain at resistance-heat efficiency
}

TEST(Cooling, ChilledWaterPartLoadCurve) {
  EXPECT_NEAR(chillerPartLoadCurve(1.0), 1.0, 1e-12);
  EXPECT_NEAR(chillerKw(120000, 120000, 10), 12.0, 1e-12);
  EXPECT_NEAR(chillerKw(60000, 120000, 10), 12.0 * (0.2229 + 0.3130 * 0.5 + 0.4641 * 0.25), 1e-12);
  // Below a tenth it cycles: power proportional to load.
  EXPECT_NEAR(chillerKw(6000, 120000, 10), 0.5 * chillerKw(12000, 120000, 10), 1e-12);
}

TEST(Heating, GasEfficiencyRule) {
  EXPECT_DOUBLE_EQ(gasEfficiency(80), 0.8);
  EXPECT_DOUBLE_EQ(gasEfficiency(95), 0.95);
  EXPECT_DOUBLE_EQ(gasEfficiency(0.92), 0.92);
  EXPECT_DOUBLE_EQ(gasEfficiency(1.5), 1.5);  // only above 1.5 is a percent
  EXPECT_DOUBLE_EQ(gasEfficiency(0), 0.8);
}

TEST(Heating, HeatPumpFloorAndBackup) {
  EXPECT_DOUBLE_EQ(heatPumpCop(2.4, 47), 2.4);
  EXPECT_NEAR(heatPumpCop(2.4, 17), 2.4 * (1 - 0.01167 * 30), 1e-12);
  EXPECT_DOUBLE_EQ(heatPumpCop(2.4, -30), 1.0);  // never below resistance heat
  const HeatPumpHour cold = heatPumpHeating(20000, 3.0, 40000, -5);
  EXPECT_DOUBLE_EQ(cold.compressorKw, 0.0);
  EXPECT_NEAR(cold.backupKw, 20000 / 3412.0, 1e-12);
  // At 17 °F the pump gives 20000·(1 − 0.501) and the backup the rest.
  const HeatPumpHour h = heatPumpHeating(15000, 2.4, 20000, 17);
  EXPECT_NEAR(h.compressorKw, 9980 / (2.4 * (1 - 0.01167 * 30)) / 3412, 1e-9);
  EXPECT_NEAR(h.backupKw, 5020 / 3412.0, 1e-9);
}

TEST(Economiser, FreeCoolingOnlyBelowTheZoneAndTheHighLimit) {
  // Mixed air brought down to the supply temperature, at most all the supply air.
  EXPECT_NEAR(economiserOutsideAir(200, 1000, 75, 50, 55, true), 800, 1e-9);
  EXPECT_NEAR(economiserOutsideAir(200, 1000, 75, 60, 55, true), 1000, 1e-9);
  EXPECT_NEAR(economiserOutsideAir(200, 1000, 78, 76, 55, true), 200, 1e-9);  // above 75 °F
  EXPECT_NEAR(economiserOutsideAir(200, 1000, 72, 73, 55, true), 200, 1e-9);  // warmer than the zone
  EXPECT_NEAR(economiserOutsideAir(200, 1000, 75, 50, 55, false), 200, 1e-9); // not cooling

  SystemsCase with(5, 1, 60), without(5, 1, 60);
  with.zone().economiser = true;
  for (SystemsCase* r : {&with, &without}) {
    r->zone().oaRate = 20;
    r->hour(1, 12, 30000, 78);
    r->hour(2, 12, 20000, 78);
  }
  EXPECT_LT(sum(with.run(), &HourEnergy::coolingLoad), 0.5 * sum(without.run(), &HourEnergy::coolingLoad));
  SystemsCase warm(5, 1, 76), warmEcon(5, 1, 76);
  warmEcon.zone().economiser = true;
  for (SystemsCase* r : {&warm, &warmEcon}) {
    r->zone().oaRate = 20;
    r->hour(1, 12, 30000, 78);
  }
  EXPECT_DOUBLE_EQ(sum(warm.run(), &HourEnergy::coolingLoad), sum(warmEcon.run(), &HourEnergy::coolingLoad));
}

TEST(HotWater, GallonsFollowTheProfile) {
  ZoneModel z;
  z.people = 10;
  z.hotWaterPerPerson = 2;
  for (int h = 8; h < 18; ++h) z.hotWater[h] = 0.5;
  double day = 0;
  for (int h = 0; h < 24; ++h) day += hotWaterGallons(z, true, h);
  EXPECT_NEAR(day, 20.0, 1e-12);
  EXPECT_NEAR(hotWaterGallons(z, true, 9), 2.0, 1e-12);
  EXPECT_DOUBLE_EQ(hotWaterGallons(z, true, 3), 0.0);
  z.hotWaterBase = 0.1;
  EXPECT_NEAR(hotWaterGallons(z, false, 3), 20.0 * 0.1 / 5.0, 1e-12);  // same divisor on unoccupied days
}

// Cooling electricity is the coil load over the efficiency at that hour: at
// 95 °F every hour the same load runs at PLR 1/1.15 of the sized capacity.
TEST(SystemsRun, CoolingElectricityIsCoilLoadOverEfficiency) {
  SystemsCase dx(5);
  SystemsCase chw(4);
  for (SystemsCase* r : {&dx, &chw})
    for (int d = 1; d <= 20; ++d) r->hour(d, 14, 24000, 78, 1.0, 2.0);
  const EnergyResult e = dx.run();
  const double plf = 1 - 0.15 * (1 - 1 / 1.15);
  const double cop = compressorCoolingCop((1.12 * 13 - 0.02 * 169) / 3.412);
  EXPECT_NEAR(sum(e, &HourEnergy::cooling), sum(e, &HourEnergy::coolingLoad) * 1000 / (cop * plf) / 3412, 1e-6);
  EXPECT_GT(sum(e, &HourEnergy::coolingLoad), 40 * 24.0);  // fan heat on top of the zone's load

  const EnergyResult p = chw.run();
  ASSERT_TRUE(p.plant.chilledWater);
  EXPECT_NEAR(p.plant.chillerCapacity, 1.15 * p.plant.coincidentPeak, 1e-6);
  const double kwPerBtuh = chillerPartLoadCurve(1 / 1.15) * 1.15 / (13 * 1000.0);  // plant EER = the SEER field
  EXPECT_NEAR(sum(p, &HourEnergy::cooling), sum(p, &HourEnergy::coolingLoad) * 1000 * kwPerBtuh, 1e-6);
}

TEST(SystemsRun, HeatingSources) {
  SystemsCase gas(5, 1, 30), hp(7, 1, 47), cold(7, 1, -5);
  for (SystemsCase* r : {&gas, &hp, &cold}) {
    r->zone().oaRate = 0;
    r->hour(1, 6, -30000, 68);
    r->hour(2, 6, -10000, 68);
  }
  const EnergyResult g = gas.run();
  EXPECT_NEAR(sum(g, &HourEnergy::spaceGas), sum(g, &HourEnergy::heatingLoad) / 0.8, 1e-9);  // Heat COP 80 → 0.8
  EXPECT_DOUBLE_EQ(sum(g, &HourEnergy::heatingElec), 0.0);
  // A type-7 zone with gas heating still heats by its heat pump, rated COP 2.4 at 47 °F.
  const EnergyResult h = hp.run();
  EXPECT_DOUBLE_EQ(sum(h, &HourEnergy::spaceGas), 0.0);
  EXPECT_NEAR(sum(h, &HourEnergy::heatingElec), sum(h, &HourEnergy::heatingLoad) * 1000 / compressorHeatingCop(2.4) / 3412,
              1e-9);
  // Below 0 °F everything is resistance backup.
  const EnergyResult c = cold.run();
  EXPECT_NEAR(sum(c, &HourEnergy::heatingElec), sum(c, &HourEnergy::heatingLoad) * 1000 / 3412, 1e-9);
}

TEST(SystemsRun, ReheatAndHotDeckMixingLosses) {
  // A small cooling load below the VAV minimum flow is met by reheat; the fan
  // coil has no such loss.
  for (int type : {1, 2, 4}) {
    SystemsCase r(type, 1, 95);
    r.zone().oaRate = 0;
    r.hour(1, 14, 100000, 78);
    r.hour(2, 14, 5000, 78);
    const EnergyResult e = r.run();
    if (type == 4) {
      EXPECT_DOUBLE_EQ(e.zones[0].mixingLossKbtu, 0.0);
      EXPECT_DOUBLE_EQ(e.energy[1].heatingLoad, 0.0);
    } else {
      EXPECT_GT(e.zones[0].mixingLossKbtu, 1.0) << "type " << type;
      EXPECT_GT(e.energy[1].heatingLoad, 1.0) << "type " << type;
      EXPECT_GT(e.energy[1].coolingLoad, 5.0) << "type " << type;
    }
  }
}

// A zone that floated with the outside air in it: the fan runs, the coils
// stay idle. The same hour with the air left to the coil tempers it to the room.
TEST(SystemsRun, OutsideAirTakenInByAFloatingZoneLeavesTheCoilsIdle) {
  for (int type : {1, 5}) {
    SystemsCase inZone(type, 1, 40), atCoil(type, 1, 40);
    for (SystemsCase* r : {&inZone, &atCoil}) {
      r->zone().oaRate = 20;
      r->zone().outsideAirCfm = 200;
      r->hour(1, 14, 30000, 78);
      r->hour(2, 3, 0, 66);
    }
    inZone.loads.zoneHours.back().zoneOutsideAir = 200;
    const EnergyResult e = inZone.run(), c = atCoil.run();
    const HourEnergy& night = e.energy[1];
    EXPECT_DOUBLE_EQ(night.heatingLoad, 0.0) << type;
    EXPECT_DOUBLE_EQ(night.coolingLoad, 0.0) << type;
    EXPECT_DOUBLE_EQ(e.zones[0].mixingLossKbtu, 0.0) << type;
    const double fan = type == 1 ? vavFanFraction(0.3) * e.zones[0].fanKw : e.zones[0].fanKw;
    EXPECT_NEAR(night.fans, fan, 1e-12) << type;
    EXPECT_GT(c.energy[1].heatingLoad, 1.0) << type;
  }
}

TEST(SystemsRun, EvaporativeCoolerFallsShortInHumidAir) {
  SystemsCase dry(9, 1, 95, 40), humid(9, 1, 95, 80);
  for (SystemsCase* r : {&dry, &humid}) {
    r->model.designTemps = {0, 95, 65, 10};
    r->hour(1, 14, 20000, 78);
  }
  const EnergyResult d = dry.run(), h = humid.run();
  EXPECT_DOUBLE_EQ(d.unmetHours, 0.0);
  EXPECT_GT(d.energy[0].water, 0.0);
  EXPECT_GT(d.energy[0].cooling, 0.0);  // the pump
  EXPECT_DOUBLE_EQ(h.unmetHours, 1.0);
  EXPECT_DOUBLE_EQ(h.zones[0].unmetHours, 1.0);
}

TEST(SystemsRun, PassiveRunHasNoHvacEnergy) {
  SystemsCase r(5, 1, 95);
  r.control.runType = 4;
  r.zone().hotWaterPerPerson = 3;
  r.zone().hotWater.fill(1.0);
  r.hour(1, 14, 0, 84);
  r.hour(2, 3, 0, 60);
  const EnergyResult e = r.run();
  for (double HourEnergy::*f : {&HourEnergy::fans, &HourEnergy::cooling, &HourEnergy::heatingElec, &HourEnergy::spaceGas,
                                &HourEnergy::heatingLoad, &HourEnergy::coolingLoad})
    EXPECT_DOUBLE_EQ(sum(e, f), 0.0);
  EXPECT_NEAR(sum(e, &HourEnergy::lights), 2.0, 1e-12);
  EXPECT_NEAR(sum(e, &HourEnergy::water), 2 * 30.0 / 24, 1e-9);
  EXPECT_GT(sum(e, &HourEnergy::waterGas), 0.0);
  EXPECT_DOUBLE_EQ(e.zones[0].supplyCfm, 0.0);
}

// Monthly sums are the weighted hours, by end use, and the monthly peak is the
// largest hour's demand.
TEST(SystemsRun, MonthlySumsCloseOnTheHours) {
  SystemsCase r(7, 3, 40);
  r.zone().heatCop = 3;
  r.zone().hotWaterPerPerson = 1;
  r.zone().hotWater.fill(1.0);
  for (int d = 1; d <= 60; d += 3) {
    r.hour(d, 8, -20000 - 100 * d, 68, 1.0, 3.0);
    r.hour(d, 15, 15000, 78, 1.0, 3.0);
  }
  const EnergyResult e = r.run();
  std::array<double, 12> kwh{}, gas{}, peak{};
  for (std::size_t i = 0; i < e.hours.size(); ++i) {
    const int m = e.hours[i].month - 1;
    kwh[m] += e.hours[i].weight * e.energy[i].totalElec();
    gas[m] += e.hours[i].weight * e.energy[i].gas();
    peak[m] = std::max(peak[m], e.energy[i].totalElec());
  }
  for (int m = 0; m < 12; ++m) {
    const MonthEnergy& me = e.months[m];
    EXPECT_NEAR(me.totalKwh(), kwh[m], 1e-9 * (1 + kwh[m])) << m;
    EXPECT_NEAR(me.spaceGasKbtu + me.waterGasKbtu, gas[m], 1e-9 * (1 + gas[m])) << m;
    EXPECT_NEAR(me.peakKw, peak[m], 1e-12) << m;
  }
  EXPECT_GT(e.months[0].heatingElecKwh, 0.0);
  EXPECT_GT(e.months[0].waterHeatElecKwh, 0.0);  // heat pump water heater
  EXPECT_EQ(e.months[1].peakHour, 8);  // the coldest-looking morning
  EXPECT_EQ(e.months[1].peakDay, 58);
}
