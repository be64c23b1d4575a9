// The compliance figures of a two-zone building worked by hand.
#include "report/compliance.h"

#include <gtest/gtest.h>

#include "common/number_text.h"

namespace marloven {
namespace {

EnvelopeRow row(int exposure, int wall, float gross, int window, float glass) {
  EnvelopeRow r;
  r.surfaceExposure = static_cast<std::int16_t>(exposure);
  r.wallId = static_cast<std::int16_t>(wall);
  r.wallArea = gross;
  r.windowId = static_cast<std::int16_t>(window);
  r.windowArea = glass;
  return r;
}

void zone(Project& p, int z, float area, const char* people, const char* watts, const char* air) {
  ZoneRecord& r = p.zones[z];
  r.listedFloorArea = area;
  r.fields[kZoneFloorArea] = std::to_string(static_cast<int>(area));
  r.fields[kPeople] = people;
  r.fields[kLightingPower] = watts;
  r.fields[kOutsideAir] = air;
}

// Walls: 1 at U .1, 2 at U .05; window 1 at U .5.
// Zone 1 (1000 ft², 10 people, 1.2 W/ft², 15 CFM per person):
//   roof 1000 gross, 50 of glass (window 1): UA 950 x .05 + 50 x .5 = 72.5
//   north wall 400 gross, 100 of glass:      UA 300 x .1 + 100 x .5  = 80
//   east wall 300 gross, 30 of glass with window ID 0: UA 270 x .1   = 27 (no glass U)
//   underground 500: left out
//   roof A 1000, UA 72.5, glass 50; wall A 700, UA 107, glass 130
//   Ur .0725 -> .073; roof glass 5 %; Uw 107/700 = .15286 -> .153; 130/700 = 18.571 % -> 18.6
//   Env UA 179.5, A 1700, Uo .10559 -> .106; watts 1200, LPD 1.2; air 150, 15/person, .15/ft²
// Zone 2 (500 ft², nobody, .8 W/ft², 20 % outside air, no rows): multiplier 500/100 = 5, air 100
// Zone 3 has no floor area: skipped, though it has people and rows.
// Zone 4 (200 ft², 3 people, 1 W/ft², "ZZ10"): an unknown kind keeps zone 2's multiplier 5: air 50
// Building: floor area 1500.4 -> 1500; watts 1200 + 400 + 200 = 1800, LPD 1.2;
//   air 300, 13 people, 23.077 -> 23.08 per person, .2 per ft².
Project handWorked() {
  Project p;
  p.units = UnitSystem::IP;
  p.walls[1].fields = {"1", "Wall", ".1", "", "", "", ""};
  p.walls[2].fields = {"2", "Roof", ".05", "", "", "", ""};
  p.windows[1].fields = {"1", "Glass", ".5", "", "", "", ""};
  p.zoneCount = 4;
  zone(p, 1, 1000, "10", "1.2", "CP15");
  p.zones[1].rows[1] = row(6, 2, 1000, 1, 50);
  p.zones[1].rows[2] = row(2, 1, 400, 1, 100);
  p.zones[1].rows[3] = row(1, 1, 300, 0, 30);
  p.zones[1].rows[4] = row(7, 1, 500, 0, 0);
  p.zones[1].rowCount = 4;
  zone(p, 2, 500, "0", ".8", "PA20");
  zone(p, 3, 0, "40", "2", "CP15");
  p.zones[3].rows[1] = row(2, 1, 900, 1, 300);
  p.zones[3].rowCount = 1;
  zone(p, 4, 200, "3", "1", "ZZ10");
  p.data[kFloorArea] = "1500.4";
  return p;
}

TEST(Compliance, BuildingFiguresOfAHandWorkedProject) {
  const BuildingCompliance c = computeCompliance(handWorked());
  const ComplianceFigures& b = c.building;
  const EnvelopeFigures& e = b.envelope;
  EXPECT_FLOAT_EQ(e.roofArea, 1000);
  EXPECT_FLOAT_EQ(e.roofUA, 72.5f);
  EXPECT_FLOAT_EQ(e.roofGlass, 50);
  EXPECT_FLOAT_EQ(e.wallArea, 700);
  EXPECT_FLOAT_EQ(e.wallUA, 107);
  EXPECT_FLOAT_EQ(e.wallGlass, 130);
  EXPECT_EQ(e.roofU, roundTo(0.073, 3));
  EXPECT_EQ(e.roofGlassPercent, 5.0f);
  EXPECT_EQ(e.wallU, roundTo(0.153, 3));
  EXPECT_EQ(e.wallGlassPercent, roundTo(18.6, 1));
  EXPECT_FLOAT_EQ(e.envelopeUA, 179.5f);
  EXPECT_FLOAT_EQ(e.envelopeArea, 1700);
  EXPECT_EQ(e.overallU, roundTo(0.106, 3));
  EXPECT_FLOAT_EQ(b.watts, 1800);
  EXPECT_FLOAT_EQ(b.floorArea, 1500);
  EXPECT_EQ(b.lightingPowerDensity, roundTo(1.2, 2));
  EXPECT_FLOAT_EQ(b.ventilation, 300);
  EXPECT_FLOAT_EQ(b.people, 13);
  EXPECT_EQ(b.ventilationPerPerson, roundTo(23.08, 2));
  EXPECT_EQ(b.ventilationPerFloorArea, roundTo(0.2, 3));
}

TEST(Compliance, ZoneFiguresLeaveOutWhatTheyCannotDivide) {
  const BuildingCompliance c = computeCompliance(handWorked());
  ASSERT_EQ(c.zones.size(), 3u);
  EXPECT_EQ(c.zones[0].zone, 1);
  EXPECT_EQ(c.zones[1].zone, 2);
  EXPECT_EQ(c.zones[2].zone, 4);

  const ComplianceFigures& z1 = c.zones[0].figures;
  EXPECT_EQ(z1.envelope.overallU, roundTo(0.106, 3));
  EXPECT_FLOAT_EQ(z1.watts, 1200);
  EXPECT_EQ(z1.lightingPowerDensity, roundTo(1.2, 2));
  EXPECT_FLOAT_EQ(z1.ventilation, 150);
  EXPECT_EQ(z1.ventilationPerPerson, 15.0f);
  EXPECT_EQ(z1.ventilationPerFloorArea, roundTo(0.15, 3));

  const ComplianceFigures& z2 = c.zones[1].figures;
  EXPECT_FALSE(z2.envelope.roofU.has_value());
  EXPECT_FALSE(z2.envelope.wallGlassPercent.has_value());
  EXPECT_FALSE(z2.envelope.overallU.has_value());
  EXPECT_FLOAT_EQ(z2.ventilation, 100);
  EXPECT_FALSE(z2.ventilationPerPerson.has_value());
  EXPECT_EQ(z2.ventilationPerFloorArea, roundTo(0.2, 3));

  EXPECT_FLOAT_EQ(c.zones[2].figures.ventilation, 50);
}

TEST(Compliance, SumsAreRoundedBeforeTheQuotients) {
  // 9.96 ft² at U 1.008: UA 10.03968 and area 9.96 both round to 10, so Ur
  // is 1, not the 1.008 of the unrounded sums.
  Project p;
  p.walls[1].fields[2] = "1.008";
  p.zoneCount = 1;
  zone(p, 1, 100, "1", "1", "CP1");
  p.zones[1].rows[1] = row(6, 1, 9.96f, 0, 0);
  p.zones[1].rowCount = 1;
  p.data[kFloorArea] = "100";
  const EnvelopeFigures e = computeCompliance(p).building.envelope;
  EXPECT_FLOAT_EQ(e.roofUA, 10);
  EXPECT_FLOAT_EQ(e.roofArea, 10);
  EXPECT_EQ(e.roofU, 1.0f);
}

}  // namespace
}  // namespace marloven
