#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "common/file_io.h"
#include "engine/engine_run.h"
#include "engine/zone_balance.h"
#include "support/temp_install.h"

using namespace tarn;

// One conductance to outdoors and one capacity: the air follows the analytic
// exponential (Crank-Nicolson agrees to second order in the step).
TEST(Zone, StepResponseMatchesTheExponential) {
  ZoneNetwork net{1e7, 1e7, 2000.0};  // nodes tightly coupled, C = 2000 Btu/°F
  const double h = 200.0;             // Btu/h·°F to outdoors, tau = 10 h
  double thetaM = 70.0;
  HourInputs in;
  in.thetaO = 30.0;
  for (int t = 1; t <= 48; ++t) {
    const ZoneHour zh(net, in, thetaM);
    const ZoneHour::Result r = zh.finish(h, 0.0);
    thetaM = r.thetaMNew;
    const double exact = 30.0 + 40.0 * std::exp(-h * t / net.capacity);
    ASSERT_NEAR(thetaM, exact, 0.02) << "hour " << t;
  }
}

TEST(Zone, IdealLoadHoldsTheSetPointAndBalances) {
  ZoneNetwork net{1400.0, 2000.0, 1500.0};
  HourInputs in;
  in.thetaO = 10.0;
  in.hX = 120.0;
  in.hXThetaX = 120.0 * 5.0;
  in.phiIa = 300.0;
  in.phiSt = 200.0;
  in.phiM = 500.0;
  const double hVe = 35.0, thetaMPrev = 60.0;
  const ZoneHour zh(net, in, thetaMPrev);
  const double phi = zh.powerFor(hVe, 68.0);
  EXPECT_GT(phi, 0.0);
  const ZoneHour::Result r = zh.finish(hVe, phi);
  EXPECT_NEAR(r.thetaA, 68.0, 1e-9);
  // Energy balance of the whole zone: gains + HVAC = storage.
  const double flows = hVe * (in.thetaO - r.thetaA) + (in.hXThetaX - in.hX * r.thetaS) + in.phiIa + in.phiSt + in.phiM;
  EXPECT_NEAR(flows + phi, r.storage, 1e-9 * std::fabs(phi));
}

TEST(Zone, NaturalVentilationHoldsTheUpperSetPointExactly) {
  ZoneNetwork net{1400.0, 2000.0, 1500.0};
  HourInputs in;
  in.thetaO = 65.0;
  in.hX = 120.0;
  in.hXThetaX = 120.0 * 75.0;
  in.phiIa = 8000.0;
  const ZoneHour zh(net, in, 78.0);
  ASSERT_GT(zh.airTemperature(20.0, 0.0), 78.0);
  const double extra = zh.ventilationFor(20.0, 78.0);
  EXPECT_GT(extra, 0.0);
  EXPECT_NEAR(zh.airTemperature(20.0 + extra, 0.0), 78.0, 1e-9);
}

// Outside air held at a set-point: taken at the coil or let into the zone, the
// zone's nodes end the same and the energy differs by the coil's share only.
TEST(Zone, OutsideAirAtTheCoilOrInTheZoneAtASetPoint) {
  ZoneNetwork net{1400.0, 2000.0, 1500.0};
  HourInputs in;
  in.thetaO = 20.0;
  in.hX = 120.0;
  in.hXThetaX = 120.0 * 15.0;
  in.phiIa = 900.0;
  in.phiSt = 400.0;
  in.phiM = 700.0;
  const double hInf = 35.0, hOa = 400.0;
  const ZoneHour zh(net, in, 64.0);
  for (double setPoint : {68.0, 75.0}) {
    const double inZone = zh.powerFor(hInf + hOa, setPoint), zoneOnly = zh.powerFor(hInf, setPoint);
    EXPECT_NEAR(inZone, zoneOnly + hOa * (setPoint - in.thetaO), 1e-9 * std::fabs(inZone));
    const ZoneHour::Result a = zh.finish(hInf + hOa, inZone), b = zh.finish(hInf, zoneOnly);
    EXPECT_NEAR(a.thetaA, b.thetaA, 1e-9);
    EXPECT_NEAR(a.thetaS, b.thetaS, 1e-9);
    EXPECT_NEAR(a.thetaMNew, b.thetaMNew, 1e-9);
  }
  // Floating, the same air cools the zone and its mass.
  EXPECT_LT(zh.finish(hInf + hOa, 0.0).thetaMNew, zh.finish(hInf, 0.0).thetaMNew);
}

namespace {

// Case 600 run on the weather synthesized from its statistics.
Simulation runCase600(const std::string& project) {
  std::string control = marloven::readFile(std::string(TARN_FIXTURES) + "/bestest/hvac.tmp");
  control.replace(control.find("Wthr type :  4"), 14, "Wthr type :  0");
  marloven::testing::TempInstall scratch;
  scratch.write("ecalc$.inp", project);
  scratch.write("ecalc$.tmp", control);
  RunLog log;
  return simulate(scratch.root(), log).value();
}

std::string replacedOnce(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  if (at != std::string::npos) text.replace(at, from.size(), to);
  return text;
}

}  // namespace

// Rows of one construction facing one way are summed into one term of the
// hour's balance, and a flat roof sees the same sky whatever way its row says
// it faces: a split wall and a turned roof leave the loads as they were.
TEST(LoadsPass, SplitRowsAndTurnedRoofsGiveTheSameLoads) {
  const std::string base = marloven::readFile(std::string(TARN_FIXTURES) + "/bestest/case600.inp");
  const std::string south =
      "Wall ID.   1 \r\nWall Area  232.5 \r\nWallOrien  180 \r\nSurf Exp.  2 \r\nExt. Shd. N0\r\nWindow ID  1 \r\n"
      "Win. Area  129.17 \r\n";
  const std::string half =
      "Wall ID.   1 \r\nWall Area  116.25 \r\nWallOrien  180 \r\nSurf Exp.  2 \r\nExt. Shd. N0\r\nWindow ID  1 \r\n"
      "Win. Area  64.585 \r\n";
  const std::size_t at = base.find(south);
  ASSERT_NE(at, std::string::npos);
  const std::size_t end = base.find("Wall ID.", at + 1);
  const std::string rest = base.substr(at + south.size(), end - at - south.size());
  const std::string split = base.substr(0, at) + half + rest + half + rest + base.substr(end);
  const std::string turned = replacedOnce(base, "WallOrien  0 \r\nSurf Exp.  6 ", "WallOrien  137 \r\nSurf Exp.  6 ");

  const Simulation a = runCase600(base), b = runCase600(split), c = runCase600(turned);
  ASSERT_EQ(b.model.zones.at(0).elements.size(), a.model.zones.at(0).elements.size() + 1);
  EXPECT_EQ(c.model.groups.size(), a.model.groups.size());
  for (const Simulation* s : {&b, &c}) {
    EXPECT_NEAR(s->loads.annualHeating().total, a.loads.annualHeating().total, 1e-9 * std::fabs(a.loads.annualHeating().total));
    EXPECT_NEAR(s->loads.annualCooling().total, a.loads.annualCooling().total, 1e-9 * a.loads.annualCooling().total);
    EXPECT_NEAR(s->loads.peakHeating.load.total, a.loads.peakHeating.load.total, 1e-9 * std::fabs(a.loads.peakHeating.load.total));
  }
}
