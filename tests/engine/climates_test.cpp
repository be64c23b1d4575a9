// The small office in three climates on their recorded years: energy use
// intensities against the published range for offices, and the climate
// showing in heating and cooling the way it must.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "common/file_io.h"
#include "engine/engine_run.h"
#include "engine/systems.h"
#include "support/temp_install.h"

namespace {

using namespace tarn;

struct Use {
  double siteKbtuPerFt2 = 0, heatingKbtu = 0, coolingKwh = 0;
  MonthEnergy year;  // annual sums by end use
};

Use runOffice(const std::string& city, const std::string& epw, const std::string& fixture = "office") {
  const std::string dir = std::string(TARN_FIXTURES) + "/" + fixture + "/";
  marloven::testing::TempInstall scratch;
  scratch.write("ecalc$.inp", marloven::readFile(dir + fixture + "_" + city + ".inp"));
  scratch.write("ecalc$.tmp", marloven::readFile(dir + "year.tmp"));
  scratch.write("ecalc$.tmy", marloven::readFile(epw));
  RunLog log;
  const Simulation sim = simulate(scratch.root(), log).value();
  const SimModel& model = sim.model;
  const EnergyResult& energy = sim.energy;
  Use u;
  double area = 0;
  for (const ZoneModel& z : model.zones) area += z.floorArea;
  for (const MonthEnergy& m : energy.months) {
    u.siteKbtuPerFt2 += (m.totalKwh() * kBtuPerKwh / 1000.0 + m.spaceGasKbtu + m.waterGasKbtu) / area;
    u.heatingKbtu += m.spaceGasKbtu + m.heatingElecKwh * kBtuPerKwh / 1000.0;
    u.coolingKwh += m.coolingKwh;
    u.year.lightsKwh += m.lightsKwh;
    u.year.equipmentKwh += m.equipmentKwh;
    u.year.fansKwh += m.fansKwh;
    u.year.coolingKwh += m.coolingKwh;
    u.year.heatingElecKwh += m.heatingElecKwh;
    u.year.waterHeatElecKwh += m.waterHeatElecKwh;
    u.year.spaceGasKbtu += m.spaceGasKbtu;
    u.year.waterGasKbtu += m.waterGasKbtu;
  }
  return u;
}

// Offices in the 2012 commercial buildings survey: median site intensity
// 52.9 kBtu/ft² (ENERGY STAR Portfolio Manager technical reference, U.S.
// energy use intensity by property type, 2018); mean 77.8 for all vintages.
// A new office built to the 2007 envelope and lighting levels sits below the
// stock's mean, so the range asked of each climate is 30 to 80.
TEST(OfficeClimates, EnergyUseIntensityInThePublishedRange) {
  const std::string weather = std::string(TARN_WEATHER_DIR) + "/recorded/";
  const std::string miami = weather + "USA_FL_Miami.Intl.AP.722020_TMY3.epw";
  const std::string baltimore = weather + "USA_MD_Baltimore-Washington.Intl.AP.724060_TMY3.epw";
  const std::string minneapolis = weather + "USA_MN_Minneapolis-St.Paul.Intl.AP.726580_TMY3.epw";
  for (const std::string& f : {miami, baltimore, minneapolis})
    if (!std::filesystem::exists(f)) GTEST_SKIP() << "recorded weather not found at " << f;

  const Use hot = runOffice("miami", miami), mixed = runOffice("baltimore", baltimore),
            cold = runOffice("minneapolis", minneapolis);
  for (const auto& [name, u] : {std::pair{"hot", hot}, {"mixed", mixed}, {"cold", cold}}) {
    EXPECT_GT(u.siteKbtuPerFt2, 30.0) << name;
    EXPECT_LT(u.siteKbtuPerFt2, 80.0) << name;
    if (std::getenv("TARN_PRINT_CASES"))
      std::printf("%s EUI %.2f kBtu/ft2: lights %.0f, equipment %.0f, fans %.0f, cooling %.0f, heating elec %.0f, "
                  "water heat elec %.0f kWh; space gas %.0f, water gas %.0f kBtu\n",
                  name, u.siteKbtuPerFt2, u.year.lightsKwh, u.year.equipmentKwh, u.year.fansKwh, u.year.coolingKwh,
                  u.year.heatingElecKwh, u.year.waterHeatElecKwh, u.year.spaceGasKbtu, u.year.waterGasKbtu);
  }
  EXPECT_GT(cold.heatingKbtu, 1.4 * mixed.heatingKbtu);  // heating degree days 7,600 against 4,600
  EXPECT_GT(mixed.heatingKbtu, 3.0 * hot.heatingKbtu);
  EXPECT_GT(hot.coolingKwh, 1.5 * mixed.coolingKwh);
  EXPECT_GT(mixed.coolingKwh, cold.coolingKwh);
}

}  // namespace

// The U.S. DOE prototype small office (90.1-2007) as tools/validation/
// make_prototype_office.py writes it, against the prototype's published site
// energy of its six end uses (exterior lighting left out): NREL/openstudio-
// standards, data/standards/legacy_idf_results.json at 19840a63a5c8, SmallOffice
// 90.1-2007, in GJ over 511.16 m2: 1A 231.19, 4A 202.33, 6A 205.37 GJ.
TEST(PrototypeOffice, SiteEnergyNearThePublishedPrototype) {
  const std::string weather = std::string(TARN_WEATHER_DIR) + "/recorded/";
  const std::string miami = weather + "USA_FL_Miami.Intl.AP.722020_TMY3.epw";
  const std::string baltimore = weather + "USA_MD_Baltimore-Washington.Intl.AP.724060_TMY3.epw";
  const std::string minneapolis = weather + "USA_MN_Minneapolis-St.Paul.Intl.AP.726580_TMY3.epw";
  for (const std::string& f : {miami, baltimore, minneapolis})
    if (!std::filesystem::exists(f)) GTEST_SKIP() << "recorded weather not found at " << f;
  const double kBtuPerFt2PerGj = 947.817 / (511.16 * 10.76391);
  struct Case {
    const char* name;
    Use ours;
    double siteGj, coolingGj;
  };
  const Case cases[] = {{"1A", runOffice("miami", miami, "prototype"), 231.19, 61.33},
                        {"4A", runOffice("baltimore", baltimore, "prototype"), 202.33, 25.16},
                        {"6A", runOffice("minneapolis", minneapolis, "prototype"), 205.37, 14.81}};
  for (const Case& c : cases) {
    EXPECT_NEAR(c.ours.siteKbtuPerFt2, c.siteGj * kBtuPerFt2PerGj, 0.15 * c.siteGj * kBtuPerFt2PerGj) << c.name;
    const double coolingKbtuPerFt2 = c.ours.coolingKwh * kBtuPerKwh / 1000.0 / 5502.2;
    EXPECT_NEAR(coolingKbtuPerFt2, c.coolingGj * kBtuPerFt2PerGj, 0.30 * c.coolingGj * kBtuPerFt2PerGj) << c.name;
  }
  EXPECT_GT(cases[2].ours.heatingKbtu, 2.0 * cases[1].ours.heatingKbtu);  // the prototype: 2.4 times
  EXPECT_GT(cases[1].ours.heatingKbtu, 10.0 * cases[0].ours.heatingKbtu);
  EXPECT_GT(cases[0].ours.coolingKwh, 2.0 * cases[1].ours.coolingKwh);    // the prototype: 2.4 times
  EXPECT_GT(cases[1].ours.coolingKwh, cases[2].ours.coolingKwh);
}
