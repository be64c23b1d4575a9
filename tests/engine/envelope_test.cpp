#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "engine/envelope.h"
#include "engine/model.h"
#include "engine/run_log.h"
#include "engine/weather_readers.h"
#include "common/file_io.h"
#include <filesystem>

using namespace tarn;

TEST(Envelope, PeriodicResponseOfConstantAndSinusoid) {
  // Steady sol-air: the equivalent temperature is the sol-air temperature for any lag and decrement.
  std::vector<double> flat(8760, 95.0);
  for (double v : periodicResponse(flat, 7.3, 0.4)) ASSERT_DOUBLE_EQ(v, 95.0);

  // A 24-hour sinusoid comes out damped by f and delayed by the lag (catches lag indexing).
  std::vector<double> s(8760);
  for (int t = 0; t < 8760; ++t) s[t] = 70.0 + 20.0 * std::sin(2.0 * M_PI * t / 24.0);
  const double f = 0.35, lag = 6.0;
  const std::vector<double> out = periodicResponse(s, lag, f);
  double best = -1e9;
  int bestT = 0;
  for (int t = 1000; t < 1024; ++t)
    if (out[t] > best) best = out[t], bestT = t;
  EXPECT_NEAR(best - 70.0, 20.0 * f, 1e-9);
  // The input peaks at t ≡ 6 (mod 24); the output lag hours later.
  double meanOut = 0;
  for (int t = 1000; t < 1024; ++t) meanOut += out[t] / 24.0;
  EXPECT_NEAR(meanOut, 70.0, 1e-9);
  EXPECT_EQ(bestT % 24, 12);
  // A lag between whole hours interpolates the two hours around it.
  const std::vector<double> half = periodicResponse(s, 6.5, 1.0);
  EXPECT_NEAR(half[1012], 0.5 * (s[1006] + s[1005]), 1e-9);
}

TEST(Envelope, SolAirOfARoofByHand) {
  // 90 F air, absorptance 0.6, 300 Btu/h·ft² on a flat roof, 7.5 mph (h_o = 4.0025),
  // a sky 21 Btu/h·ft² below a black body at air temperature.
  const double ho = 2.0 + 0.267 * 7.5;
  const double t = 90.0 + 459.67, blackBody = 0.1714e-8 * t * t * t * t;
  const double loss = skyLongWave(90.0, blackBody - 21.0, 0.0, 1.0);
  EXPECT_NEAR(loss, 21.0, 1e-9);
  EXPECT_NEAR(solAir(90.0, 0.6, 300.0, 7.5, 0.9 * loss), 90.0 + (180.0 - 0.9 * 21.0) / ho, 1e-12);
  // A wall sees half the sky, a surface facing down none; a sky as warm as
  // the air takes nothing.
  EXPECT_NEAR(skyLongWave(90.0, blackBody - 21.0, 90 * kDeg, 0.9), 0.5 * 0.9 * 21.0, 1e-9);
  EXPECT_NEAR(skyLongWave(90.0, blackBody - 21.0, 180 * kDeg, 0.9), 0.0, 1e-9);
  EXPECT_NEAR(skyLongWave(90.0, blackBody, 0.0, 0.9), 0.0, 1e-9);
  EXPECT_DOUBLE_EQ(solAir(50.0, 0.9, 0.0, 10.0, 0.0), 50.0);
}

TEST(Envelope, ShadingFactorsAtKnownAngles) {
  // No device: no shading.
  EXPECT_DOUBLE_EQ(overhangBeam(0.0, 5.0, 0.0, 3.0), 1.0);
  EXPECT_DOUBLE_EQ(finRightBeam(0.0, -0.5), 1.0);
  // An overhang flush with the window top of depth = height shades it fully at a 45° profile angle.
  EXPECT_DOUBLE_EQ(overhangBeam(1.0, 5.0, 0.0, 1.0), 0.0);
  // Half the depth: half the window in shade at 45°.
  EXPECT_NEAR(overhangBeam(0.5, 5.0, 0.0, 1.0), 0.5, 1e-12);
  // A fin on the right shades only when the sun is to the right (gamma < 0).
  EXPECT_DOUBLE_EQ(finRightBeam(0.5, 0.3), 1.0);
  EXPECT_NEAR(finRightBeam(0.5, -M_PI / 4), 0.5, 1e-12);
  EXPECT_NEAR(finLeftBeam(0.5, M_PI / 4), 0.5, 1e-12);
  // A far obstruction at 30° elevation blocks a sun lower than that.
  EXPECT_DOUBLE_EQ(obstructionBeam(0.5, std::tan(20 * kDeg)), 0.0);
  EXPECT_DOUBLE_EQ(obstructionBeam(0.5, std::tan(40 * kDeg)), 1.0);
  EXPECT_DOUBLE_EQ(finSkyFactor(0.0), 1.0);
  EXPECT_NEAR(finSkyFactor(1.0), 1.0 - 0.5 * (2.0 - std::sqrt(2.0)), 1e-12);
  // However deep, a fin leaves the half of the sky on its other side.
  EXPECT_NEAR(finSkyFactor(1e6), 0.5, 1e-6);
}

// The overhang's sky factor: the share z/√(z² + D²) of the sky seen at depth z
// below it, averaged over the window.
TEST(Envelope, OverhangSkyFactorAgainstTheClosedForm) {
  // No projection: the whole sky.
  EXPECT_DOUBLE_EQ(overhangSkyFactor(0.0, 4.0, 1.0), 1.0);
  EXPECT_NEAR(overhangSkyFactor(1e-9, 4.0, 0.0), 1.0, 1e-8);
  // By hand. Flush with a 4 ft window, D = 3 ft (p = 0.75): (√(4² + 3²) − √(0 + 3²))/4 = (5 − 3)/4.
  EXPECT_NEAR(overhangSkyFactor(0.75, 4.0, 0.0), 0.5, 1e-12);
  // A 4 ft window 5 ft below a 12 ft deep overhang (H = 9, p = 12/9): (√(81 + 144) − √(25 + 144))/4 = (15 − 13)/4.
  EXPECT_NEAR(overhangSkyFactor(12.0 / 9.0, 4.0, 5.0), 0.5, 1e-12);
  // The same average taken numerically, at a geometry with no round numbers.
  const double hw = 4.6, gap = 1.3, p = 0.45, depth = p * (hw + gap);
  double mean = 0;
  const int n = 20000;
  for (int i = 0; i < n; ++i) {
    const double z = gap + (i + 0.5) * hw / n;
    mean += z / std::hypot(z, depth) / n;
  }
  EXPECT_NEAR(overhangSkyFactor(p, hw, gap), mean, 1e-8);
  // Deeper hides more, and without end hides all of it (as (H² − g²)/(2·D·h_w)).
  double last = 1.0;
  for (double q : {0.1, 0.5, 1.0, 3.0, 10.0, 100.0}) {
    const double f = overhangSkyFactor(q, hw, gap);
    EXPECT_LT(f, last) << q;
    last = f;
  }
  const double big = 1e4, top = hw + gap;
  EXPECT_NEAR(overhangSkyFactor(big, hw, gap), (top * top - gap * gap) / (2.0 * big * top * hw), 1e-9);
  EXPECT_LT(overhangSkyFactor(big, hw, gap), 1e-3);
  // A gap above the window lets more sky in than an overhang of the same depth at its top.
  EXPECT_GT(overhangSkyFactor(3.0 / 6.0, 4.0, 2.0), overhangSkyFactor(3.0 / 4.0, 4.0, 0.0));
}

// What reaches a window under an overhang: beam and sky shaded, the light
// reflected by the ground in front as it comes.
TEST(Envelope, OverhangLeavesTheGroundReflectedLight) {
  GroupIrradiance irr;
  irr.groups = 1;
  irr.hours = 2;
  irr.beam = {120.0, 0.0};
  irr.sky = {40.0, 35.0};
  irr.ground = {25.0, 18.0};
  irr.cosIncidence = {0.6, 0.0};
  irr.tanProfile = {1.0, 0.0};
  WindowClass open;
  open.height = 4.0;
  const WindowIrradiance free = windowIrradiance(open, irr, 0);
  EXPECT_DOUBLE_EQ(free.beam, 120.0);
  EXPECT_DOUBLE_EQ(free.sky, 40.0);
  EXPECT_DOUBLE_EQ(free.ground, 25.0);

  WindowClass shaded = open;
  shaded.overhang = 0.5;  // flush, D = 2 ft over 4 ft: half the window in shade at a 45° profile
  const WindowIrradiance s = windowIrradiance(shaded, irr, 0);
  EXPECT_NEAR(s.beam, 60.0, 1e-9);
  EXPECT_NEAR(s.sky, 40.0 * (std::hypot(4.0, 2.0) - 2.0) / 4.0, 1e-9);
  EXPECT_DOUBLE_EQ(s.ground, 25.0);

  shaded.overhang = 1e4;  // a canopy: no sky, no sun, only the ground
  for (int t = 0; t < 2; ++t) {
    const WindowIrradiance c = windowIrradiance(shaded, irr, t);
    EXPECT_DOUBLE_EQ(c.beam, 0.0);
    EXPECT_LT(c.sky, 1e-3 * irr.sky[t]);
    EXPECT_DOUBLE_EQ(c.ground, irr.ground[t]);
  }
}

TEST(Envelope, AngularResponseAndTokens) {
  EXPECT_DOUBLE_EQ(angularShgc(1.0), 1.0);
  EXPECT_NEAR(angularShgc(std::cos(60 * kDeg)), 0.845, 1e-9);
  EXPECT_NEAR(angularShgc(std::cos(65 * kDeg)), (0.845 + 0.660) / 2, 1e-9);
  EXPECT_DOUBLE_EQ(angularShgc(0.0), 0.0);
  const ShadingTokens t = parseShading("R0,5 L.25 T1 F.3 N0 T.8");
  EXPECT_DOUBLE_EQ(t.right, 0.5);
  EXPECT_DOUBLE_EQ(t.left, 0.25);
  EXPECT_DOUBLE_EQ(t.overhang, 0.8);  // the last of a letter wins
  EXPECT_DOUBLE_EQ(t.obstruction, 0.3);
}

// The room of the standard cases (12 m² of glass, 171.6 m² of room surfaces,
// τ_d 0.602): 7.2 / (0.6·159.6 + 7.2) of the diffuse light leaves.
TEST(Envelope, SolarLeavingThroughTheGlazing) {
  EXPECT_NEAR(solarEscapeShare(12.0 * 0.602, 12.0, 171.6), 7.224 / (0.6 * 159.6 + 7.224), 1e-12);
  EXPECT_DOUBLE_EQ(solarEscapeShare(0.0, 0.0, 100.0), 0.0);
}

// The exterior conductances in series with the air-to-surface link give back
// the catalog's Σ U·A; the link never takes more than its cap.
TEST(Envelope, SteadyStateConductanceIsTheCatalogs) {
  const double hX = 126.85, hIs = 1413.6;
  const double scaled = hX * filmCorrection(hX, hIs);
  EXPECT_NEAR(1.0 / (1.0 / scaled + 1.0 / hIs), hX, 1e-9);
  EXPECT_DOUBLE_EQ(filmCorrection(900.0, 1000.0), 1.0 / (1.0 - kMaxFilmShare));
  EXPECT_DOUBLE_EQ(filmCorrection(10.0, 0.0), 1.0);
}

// Annual irradiance on the standard cases' surfaces from the recorded Denver
// year against the published spread of the reference programs (kWh/m²):
// horizontal 1663-1670, south 1291-1387, east 1017-1068, west 903-997, north 399-477.
TEST(Envelope, AnnualIrradianceMatchesTheReferencePrograms) {
  const std::string path = std::string(TARN_WEATHER_DIR) + "/recorded/725650TYCST.epw";
  if (!std::filesystem::exists(path)) GTEST_SKIP() << "recorded Denver weather not found at " << path;
  RunLog log;
  const WeatherYear w = readRecorded(marloven::readFile(path), WeatherFormat::Epw, 2025, Site{}, log);
  struct Face { double azimuth, tilt, lo, hi; };
  const Face faces[] = {{0, 0, 1663, 1670}, {180, 90, 1291, 1387}, {90, 90, 1017, 1068}, {270, 90, 903, 997},
                        {0, 90, 399, 477}};
  std::vector<OrientationGroup> groups;
  for (const Face& f : faces) {
    OrientationGroup g;
    g.azimuth = f.azimuth * kDeg;
    g.tilt = f.tilt * kDeg;
    groups.push_back(g);
  }
  const GroupIrradiance irr = computeIrradiance(groups, w);
  for (int g = 0; g < irr.groups; ++g) {
    double sum = 0;
    for (int t = 0; t < irr.hours; ++t) sum += irr.at(irr.beam, g, t) + irr.at(irr.sky, g, t) + irr.at(irr.ground, g, t);
    const double kwh = sum * 3.15459e-3;
    // The published values are whole kWh/m².
    EXPECT_GE(kwh, faces[g].lo - 0.5) << "face " << g;
    EXPECT_LE(kwh, faces[g].hi + 0.5) << "face " << g;
  }
}
