#include "engine/envelope.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tarn {

double finRightBeam(double p, double gamma) {
  if (p <= 0 || gamma >= 0) return 1.0;
  return 1.0 - std::min(1.0, p * std::tan(-gamma));
}

double finLeftBeam(double p, double gamma) {
  if (p <= 0 || gamma <= 0) return 1.0;
  return 1.0 - std::min(1.0, p * std::tan(gamma));
}

double overhangBeam(double p, double hw, double gap, double tanOmega) {
  if (p <= 0) return 1.0;
  const double depth = p * (hw + gap);
  return 1.0 - std::clamp((depth * tanOmega - gap) / hw, 0.0, 1.0);
}

double obstructionBeam(double f, double tanOmega) {
  if (f <= 0) return 1.0;
  if (f >= 1.0) return 0.0;
  return tanOmega < f / std::sqrt(1.0 - f * f) ? 0.0 : 1.0;
}

double finSkyFactor(double p) {
  if (p <= 0) return 1.0;
  return 1.0 - 0.5 * (1.0 + p - std::sqrt(1.0 + p * p));
}

double overhangSkyFactor(double p, double hw, double gap) {
  if (p <= 0 || hw <= 0) return 1.0;
  const double top = hw + gap, depth = p * top;
  return (std::hypot(top, depth) - std::hypot(gap, depth)) / hw;
}

double angularShgc(double c) {
  static constexpr double kTable[10] = {1.000, 1.000, 0.995, 0.985, 0.970, 0.935, 0.845, 0.660, 0.340, 0.0};
  if (c <= 0) return 0.0;
  const double theta = std::acos(std::min(1.0, c)) / kDeg;
  const int i = std::min(8, static_cast<int>(theta / 10.0));
  const double t = (theta - 10.0 * i) / 10.0;
  return kTable[i] + (kTable[i + 1] - kTable[i]) * t;
}

GroupIrradiance computeIrradiance(const std::vector<OrientationGroup>& groups, const WeatherYear& w) {
  GroupIrradiance r;
  r.groups = static_cast<int>(groups.size());
  r.hours = static_cast<int>(w.hours.size());
  const std::size_t n = static_cast<std::size_t>(r.groups) * r.hours;
  r.beam.assign(n, 0);
  r.sky.assign(n, 0);
  r.ground.assign(n, 0);
  r.cosIncidence.assign(n, 0);
  r.tanProfile.assign(n, 0);
  r.angular.assign(n, 0);
  r.skyLoss.assign(n, 0);
  r.sunUp.assign(r.hours, 0);
  r.sunAzimuth.assign(r.hours, 0);
  const double lat = w.site.latitude * kDeg;
  // What does not change from hour to hour, once per group.
  struct Plane {
    Vec3 normal;
    double cosTilt, sinTilt, oneMinusCos, skyFactor;
  };
  std::vector<Plane> planes;
  for (const OrientationGroup& g : groups)
    planes.push_back({surfaceNormal(g.tilt, g.azimuth), std::cos(g.tilt), std::sin(g.tilt), 1.0 - std::cos(g.tilt),
                      finSkyFactor(g.finRight) * finSkyFactor(g.finLeft) * (1.0 - g.obstruction)});
  DayAstro a{};
  for (int t = 0; t < r.hours; ++t) {
    const int day = t / 24 + 1;
    if (t % 24 == 0) a = dayAstro(day);
    const double omega = 15.0 * kDeg * (solarTime(t % 24 + 0.5, w.site, a.equationOfTime) - 12.0);
    const Vec3 sun = sunVector(lat, a.declination, omega);
    const WeatherHour& wh = w.hours[t];
    const double cosZ = sun.u;
    const double az = solarAzimuth(sun);
    r.sunUp[t] = cosZ;
    r.sunAzimuth[t] = az;
    const PerezCoefficients pc = perezCoefficients(wh.diffuseH, wh.directN, a.extraNormal, cosZ);
    const double tanAlt = cosZ > 0 ? cosZ / std::sqrt(std::max(1e-12, 1.0 - cosZ * cosZ)) : 0.0;
    for (int g = 0; g < r.groups; ++g) {
      const OrientationGroup& og = groups[g];
      const Plane& pl = planes[g];
      const std::size_t i = static_cast<std::size_t>(g) * r.hours + t;
      r.skyLoss[i] = skyLongWave(wh.dryBulb, wh.skyIr, og.tilt, 1.0);
      const double ct = cosZ > 0 ? dot(sun, pl.normal) : 0.0;
      r.cosIncidence[i] = ct;
      r.ground[i] = og.groundReflectance * wh.globalH * pl.oneMinusCos / 2.0;
      if (og.tilt < 1e-9) {
        // A horizontal plane receives exactly the global horizontal.
        r.sky[i] = std::min(wh.diffuseH, wh.globalH);
        r.beam[i] = wh.globalH - r.sky[i];
        r.cosIncidence[i] = cosZ;
        r.angular[i] = angularShgc(cosZ);
        continue;
      }
      r.angular[i] = angularShgc(ct);
      double gamma = az - og.azimuth;
      while (gamma > kPi) gamma -= 2.0 * kPi;
      while (gamma <= -kPi) gamma += 2.0 * kPi;
      const double cg = std::cos(gamma);
      const double tanOmega = cg > 1e-9 ? tanAlt / cg : 1e9;
      r.tanProfile[i] = tanOmega;
      const double beamFactor = finRightBeam(og.finRight, gamma) * finLeftBeam(og.finLeft, gamma) *
                                obstructionBeam(og.obstruction, tanOmega);
      r.beam[i] = ct > 0 ? wh.directN * ct * beamFactor : 0.0;
      r.sky[i] = perezSkyDiffuse(wh.diffuseH, pc, ct, cosZ, pl.cosTilt, pl.sinTilt) * pl.skyFactor;
    }
  }
  return r;
}

WindowIrradiance windowIrradiance(const WindowClass& wc, const GroupIrradiance& irr, int t) {
  return windowIrradiance(wc, irr, t, overhangSkyFactor(wc.overhang, wc.height, wc.gapHeight));
}

WindowIrradiance windowIrradiance(const WindowClass& wc, const GroupIrradiance& irr, int t, double overhangSky) {
  WindowIrradiance r{irr.at(irr.beam, wc.group, t), irr.at(irr.sky, wc.group, t), irr.at(irr.ground, wc.group, t)};
  if (wc.overhang > 0) {
    r.beam *= overhangBeam(wc.overhang, wc.height, wc.gapHeight, irr.at(irr.tanProfile, wc.group, t));
    r.sky *= overhangSky;
  }
  return r;
}

double exteriorFilm(double wind) { return 2.0 + 0.267 * std::max(0.0, wind); }

double skyLongWave(double outdoorF, double skyIr, double tilt, double emissivity) {
  const double t = outdoorF + 459.67;
  const double blackBody = 0.1714e-8 * t * t * t * t;
  return emissivity * 0.5 * (1.0 + std::cos(tilt)) * (blackBody - skyIr);
}

double solAir(double outdoor, double absorptance, double irradiance, double wind, double skyLoss) {
  return outdoor + (absorptance * irradiance - skyLoss) / exteriorFilm(wind);
}

std::vector<double> periodicResponse(const std::vector<double>& s, double lag, double f) {
  const int n = static_cast<int>(s.size());
  std::vector<double> out(n);
  if (n == 0) return out;
  auto at = [&](int i) { return s[((i % n) + n) % n]; };
  double window = 0;
  for (int k = 0; k < 24; ++k) window += at(-k);
  const int whole = static_cast<int>(std::floor(lag));
  const double frac = lag - whole;
  for (int t = 0; t < n; ++t) {
    if (t > 0) window += s[t] - at(t - 24);
    const double lagged = (1.0 - frac) * at(t - whole) + frac * at(t - whole - 1);
    out[t] = (1.0 - f) * window / 24.0 + f * lagged;
  }
  return out;
}

std::vector<double> groundTemperature(const WeatherYear& w, double depthFt) {
  const std::array<double, 12> monthly = monthlyMeanDryBulb(w);
  double annual = 0;
  for (double v : monthly) annual += v / 12.0;
  const std::vector<double> curve = meanPreservingCurve(monthly, w.year);
  const double amplitude = depthFt <= 3.0 ? 0.70 : 0.49;
  const int lagDays = depthFt <= 3.0 ? 21 : 42;
  const int n = static_cast<int>(curve.size());
  std::vector<double> out(n);
  for (int d = 0; d < n; ++d) out[d] = annual + amplitude * (curve[((d - lagDays) % n + n) % n] - annual);
  return out;
}

std::vector<std::vector<double>> exteriorTemperatures(const SimModel& m, const GroupIrradiance& irr,
                                                      const WeatherYear& w) {
  const int n = static_cast<int>(w.hours.size());
  std::vector<std::vector<double>> out;
  std::vector<double> ground3, ground6, week;
  for (const ExteriorClass& c : m.classes) {
    std::vector<double> series(n);
    switch (c.kind) {
      case ExteriorClass::SolAir: {
        const double tilt = m.groups[c.group].tilt;
        for (int t = 0; t < n; ++t) {
          const WeatherHour& wh = w.hours[t];
          const double i = irr.at(irr.beam, c.group, t) + irr.at(irr.sky, c.group, t) + irr.at(irr.ground, c.group, t);
          series[t] = solAir(wh.dryBulb, c.absorptance, i, wh.wind,
                             skyLongWave(wh.dryBulb, wh.skyIr, tilt, kOpaqueEmissivity));
        }
        out.push_back(periodicResponse(series, c.lag, c.decrement));
        break;
      }
      case ExteriorClass::GroundPerimeter: {
        if (week.empty()) {
          // Mean outdoor air of the last 168 hours.
          week.resize(n);
          double s = 0;
          for (int k = 0; k < 168; ++k) s += w.hours[((-k) % n + n) % n].dryBulb;
          for (int t = 0; t < n; ++t) {
            if (t > 0) s += w.hours[t].dryBulb - w.hours[((t - 168) % n + n) % n].dryBulb;
            week[t] = s / 168.0;
          }
        }
        out.push_back(week);
        break;
      }
      case ExteriorClass::GroundCore:
      case ExteriorClass::BasementWall: {
        const bool deep = c.kind == ExteriorClass::GroundCore;
        std::vector<double>& g = deep ? ground6 : ground3;
        if (g.empty()) g = groundTemperature(w, deep ? 6.0 : 3.0);
        for (int t = 0; t < n; ++t) series[t] = g[t / 24];
        out.push_back(series);
        break;
      }
    }
  }
  return out;
}

}  // namespace tarn
