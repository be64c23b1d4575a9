#include <gtest/gtest.h>

#include <cmath>

#include "engine/envelope.h"
#include "engine/solar.h"

using namespace tarn;

namespace {
double degrees(double rad) { return rad / kDeg; }
}  // namespace

// Duffie & Beckman, examples 1.5.1 and 1.6.1 (Madison, WI).
TEST(Solar, PublishedExamples) {
  Site madison;
  madison.latitude = 43.0;
  madison.longitude = 89.4;
  madison.meridian = 90.0;
  // 1.5.1: 3 February, 10:30 standard time is 10:19 solar time (E = -13.5 min).
  const DayAstro feb3 = dayAstro(34);
  EXPECT_NEAR(feb3.equationOfTime, -13.5, 0.3);
  EXPECT_NEAR(solarTime(10.5, madison, feb3.equationOfTime), 10.0 + 19.0 / 60.0, 0.01);
  // 1.6.1: 13 February, 10:30 solar time, plane tilted 45° facing 15° west of south: θ ≈ 35°.
  const DayAstro feb13 = dayAstro(44);
  const Vec3 sun = sunVector(43.0 * kDeg, feb13.declination, -22.5 * kDeg);
  const Vec3 plane = surfaceNormal(45.0 * kDeg, 195.0 * kDeg);
  EXPECT_NEAR(degrees(std::acos(dot(sun, plane))), 35.0, 0.5);
}

TEST(Solar, DeclinationAtSolsticesAndEquinoxes) {
  EXPECT_NEAR(degrees(dayAstro(172).declination), 23.44, 0.1);   // 21 June
  EXPECT_NEAR(degrees(dayAstro(355).declination), -23.44, 0.1);  // 21 December
  EXPECT_NEAR(degrees(dayAstro(80).declination), 0.0, 0.6);      // 21 March
  // Extraterrestrial irradiance is highest in early January.
  EXPECT_GT(dayAstro(3).extraNormal, dayAstro(184).extraNormal);
  EXPECT_NEAR(dayAstro(3).extraNormal, 433.3 * 1.0335, 1.0);
}

TEST(Solar, SunVectorAndAzimuth) {
  // Solar noon at the equinox on the equator: sun overhead.
  const Vec3 noon = sunVector(0.0, 0.0, 0.0);
  EXPECT_NEAR(noon.u, 1.0, 1e-12);
  // Morning sun is in the east, afternoon in the west (azimuth clockwise from north).
  EXPECT_NEAR(degrees(solarAzimuth(sunVector(40 * kDeg, 0.0, -60 * kDeg))), 90.0, 35.0);
  EXPECT_GT(degrees(solarAzimuth(sunVector(40 * kDeg, 0.0, 60 * kDeg))), 180.0);
  EXPECT_NEAR(degrees(sunsetHourAngle(40 * kDeg, 0.0)), 90.0, 1e-9);
}

TEST(Solar, PerezReducesToIsotropicAndIsBounded) {
  PerezCoefficients iso;
  // A vertical plane sees half of an isotropic sky.
  EXPECT_NEAR(perezSkyDiffuse(100.0, iso, 0.3, 0.5, 90 * kDeg), 50.0, 1e-9);
  EXPECT_NEAR(perezSkyDiffuse(100.0, iso, 0.5, 0.5, 0.0), 100.0, 1e-9);
  // A clear sky brightens the circumsolar region: a plane facing the sun gets more than isotropic.
  const PerezCoefficients clear = perezCoefficients(20.0, 280.0, 430.0, 0.6);
  EXPECT_GT(clear.f1, 0.0);
  EXPECT_GT(perezSkyDiffuse(20.0, clear, 1.0, 0.6, 53 * kDeg), perezSkyDiffuse(20.0, iso, 1.0, 0.6, 53 * kDeg));
}

TEST(Solar, HorizontalPlaneReceivesTheGlobal) {
  WeatherYear w;
  w.days = 365;
  w.hours.resize(8760);
  for (auto& h : w.hours) h.globalH = 150.0, h.diffuseH = 40.0, h.directN = 200.0;
  OrientationGroup roof;  // tilt 0
  OrientationGroup wall;
  wall.tilt = 90 * kDeg;
  wall.azimuth = 180 * kDeg;
  const GroupIrradiance irr = computeIrradiance({roof, wall}, w);
  for (int t : {12, 4000, 8000}) {
    EXPECT_NEAR(irr.at(irr.beam, 0, t) + irr.at(irr.sky, 0, t) + irr.at(irr.ground, 0, t), 150.0, 1e-9);
    EXPECT_NEAR(irr.at(irr.ground, 1, t), 0.2 * 150.0 / 2.0, 1e-9);
  }
}
