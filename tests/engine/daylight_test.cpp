// Daylighting: the dimming controls, the ltshlf.dat file, and a daylit zone's
// lights in the loads pass.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <string>

#include "common/file_io.h"
#include "engine/calendar.h"
#include "engine/control_file.h"
#include "engine/daylight.h"
#include "engine/engine_run.h"
#include "engine/loads.h"
#include "engine/model.h"
#include "engine/run_log.h"
#include "engine/weather.h"
#include "project/project_model.h"
#include "project/project_reader.h"

using namespace tarn;

TEST(Dimming, ContinuousSteppedAndOnOff) {
  DaylightControls c;  // continuous, 0.20 power at 0.10 light
  EXPECT_DOUBLE_EQ(powerFraction(c, 0, 50), 1.0);
  EXPECT_DOUBLE_EQ(powerFraction(c, 60, 50), 0.2);
  EXPECT_DOUBLE_EQ(powerFraction(c, 46, 50), 0.2);  // 8 % still needed: at the floor
  EXPECT_NEAR(powerFraction(c, 25, 50), 0.2 + 0.8 * 0.4 / 0.9, 1e-12);

  c.dimming = Dimming::Stepped;
  EXPECT_DOUBLE_EQ(powerFraction(c, 60, 50), 0.0);
  EXPECT_NEAR(powerFraction(c, 25, 50), 2.0 / 3.0, 1e-12);
  EXPECT_NEAR(powerFraction(c, 100.0 / 3.0 * 1.0, 50), 1.0 / 3.0, 1e-12);  // a third needed: one step
  EXPECT_NEAR(powerFraction(c, 49, 50), 1.0 / 3.0, 1e-12);
  EXPECT_DOUBLE_EQ(powerFraction(c, 0, 50), 1.0);

  c.dimming = Dimming::OnOff;
  EXPECT_DOUBLE_EQ(powerFraction(c, 50, 50), 0.0);
  EXPECT_DOUBLE_EQ(powerFraction(c, 49.9, 50), 1.0);
}

namespace {

std::string shelfFile(const std::string& control, const std::string& zoneLine) {
  std::string s = "DAYLIGHTING AND LIGHT SHELF DATA\r\n--------------------------------\r\n\r\n";
  s += "DIMMING CONTROL ........ " + control + "\r\nMINIMUM POWER FRACTION . 0.30\r\nMINIMUM LIGHT FRACTION . 0.10\r\n";
  s += "WORK PLANE HEIGHT ...... 0.76\r\nROOM REFLECTANCE ....... 0.60\r\n\r\nZONE\r\n\r\n----\r\n";
  return s + zoneLine + "\r\n\r\n";
}

}  // namespace

TEST(DaylightFile, ControlsShelvesAndBadValues) {
  //            ID  name                  depth   target  shelf   height  refl.
  const std::string zone = "  12  North office             5.00   500.00    1.00    2.20    0.70";
  const DaylightControls c = readDaylightFile(shelfFile("STEPPED", zone), true);
  EXPECT_EQ(c.dimming, Dimming::Stepped);
  EXPECT_DOUBLE_EQ(c.minPower, 0.30);
  EXPECT_DOUBLE_EQ(c.reflectance, 0.60);
  EXPECT_NEAR(c.workPlane, 0.76 * 3.2808399, 1e-9);  // SI lengths become feet
  ASSERT_EQ(c.shelves.count("12"), 1u);
  EXPECT_NEAR(c.shelves.at("12").depth, 3.2808399, 1e-9);
  EXPECT_DOUBLE_EQ(c.shelves.at("12").reflectance, 0.70);

  EXPECT_EQ(readDaylightFile(shelfFile("ON/OFF", ""), false).dimming, Dimming::OnOff);
  const DaylightControls empty = readDaylightFile("", false);
  EXPECT_EQ(empty.dimming, Dimming::Continuous);
  EXPECT_DOUBLE_EQ(empty.minPower, 0.20);
  try {
    readDaylightFile(shelfFile("DIMMED", ""), false);
    FAIL() << "an unknown control was accepted";
  } catch (const RunFailure& f) {
    EXPECT_EQ(f.code(), ExitCode::BadInput);
    EXPECT_EQ(f.where(), "ltshlf.dat line 4");
  }
  std::string bad = shelfFile("CONTINUOUS", "");
  bad.replace(bad.find("0.30"), 4, "1.70");
  EXPECT_THROW(readDaylightFile(bad, false), RunFailure);
}

namespace {

struct Lights {
  double dimmed = 0, full = 0, cooling = 0;
};

// The standard light zone with its south glazing, a year on synthesized weather.
Lights yearOfLights(bool daylight, Dimming dimming = Dimming::Continuous) {
  marloven::Project p;
  const auto side = marloven::readProject(marloven::readFile(std::string(TARN_FIXTURES) + "/bestest/case600.inp"), p);
  marloven::ZoneRecord& z = p.zones[1];
  z.daylight = daylight ? "Yes" : "No";
  z.fields[marloven::kDaylitDepth] = "15";
  z.fields[marloven::kTargetIlluminance] = "50";
  RunLog log;
  RunControl control;
  SimModel m = buildModel(p, side.sketchLines, control, log);
  m.daylight.dimming = dimming;
  const Calendar cal = buildCalendar(m.year, control, m.occupiedDays, m.holidayCount, 4, log);
  const WeatherYear w = synthesize(m.stats, m.site, m.seed, m.year);
  const LoadsResult r = runLoads(m, w, cal, false, 68, 79);
  Lights out;
  for (std::size_t i = 0; i < r.hours.size(); ++i) {
    out.dimmed += r.hours[i].weight * r.zoneHours[i].lightsW;
    out.full += r.hours[i].weight * r.zoneHours[i].lightsFullW;
  }
  out.cooling = r.annualCooling().total;
  return out;
}

}  // namespace

TEST(DaylitZone, UsesLessLightingAndGainsLessHeat) {
  const Lights plain = yearOfLights(false), daylit = yearOfLights(true);
  EXPECT_DOUBLE_EQ(plain.dimmed, plain.full);
  EXPECT_DOUBLE_EQ(daylit.full, plain.full);
  EXPECT_LT(daylit.dimmed, 0.8 * plain.dimmed);
  EXPECT_GT(daylit.dimmed, 0.2 * plain.dimmed);  // never below the minimum power
  EXPECT_LT(daylit.cooling, plain.cooling);      // the dimmed lights are what heats the zone
  const Lights onOff = yearOfLights(true, Dimming::OnOff);
  EXPECT_LT(onOff.dimmed, plain.dimmed);
}

TEST(DaylitZone, DaylitShareOfTheFloor) {
  SimModel m;
  m.groups.push_back({});
  ZoneModel z;
  z.floorArea = 1000;
  z.height = 10;
  z.daylight = true;
  z.daylightDepth = 15;
  z.daylightTarget = 50;
  WindowClass wc;
  wc.area = 100;
  wc.width = 20;
  wc.areaTauVis = 70;
  z.windows.push_back(wc);
  const ZoneDaylight d = zoneDaylight(z, m, DaylightControls{});
  EXPECT_NEAR(d.share, 0.3, 1e-12);  // 20 ft of windows × 15 ft deep
  // Daylight factor: 70 × 90° / ((2·300 + 2·35·10)·0.75) percent of the diffuse light.
  EXPECT_NEAR(d.diffuseH, 70.0 * 90.0 / (1300.0 * 0.75) / 100.0 * kDiffuseEfficacy, 1e-9);
  z.skylights = {400.0};
  z.skylightAreaTauVis = 280;
  EXPECT_DOUBLE_EQ(zoneDaylight(z, m, DaylightControls{}).share, 1.0);  // capped at the floor
}

// A daylighting file the engine cannot read stops the run like a bad run copy.
TEST(DaylightFile, BadFileStopsTheRun) {
  namespace fs = std::filesystem;
  const fs::path dir = fs::temp_directory_path() / ("tarn64-daylight-" + std::to_string(::getpid()));
  fs::create_directories(dir);
  marloven::writeFileAtomic((dir / "ecalc$.inp").string(),
                            marloven::readFile(std::string(TARN_FIXTURES) + "/bestest/case600.inp"));
  marloven::writeFileAtomic((dir / "ecalc$.tmp").string(),
                            "Run type  :  3\r\nWthr type :  0\r\n1st day   :  4 \r\nRun begin :  1\r\nRun end   :  365\r\n"
                            "Hourly out:  0 \r\nSkip month: \r\nComfort   :  68       79 \r\n");
  marloven::writeFileAtomic((dir / "ltshlf.dat").string(), shelfFile("HALF", ""));
  EXPECT_EQ(runEngine(dir), ExitCode::BadInput);
  EXPECT_FALSE(fs::exists(dir / "sim$.out"));
  EXPECT_NE(marloven::readFile((dir / "tarn64.err").string()).find("ERROR ltshlf.dat line 4: dimming control \"HALF\""),
            std::string::npos);
  fs::remove_all(dir);
}
