#include "engine/solar.h"

#include <algorithm>
#include <cmath>

namespace tarn {

DayAstro dayAstro(int dayOfYear) {
  const double b = 2.0 * kPi * (dayOfYear - 1) / 365.0;
  DayAstro d;
  d.declination = 0.006918 - 0.399912 * std::cos(b) + 0.070257 * std::sin(b) -
                  0.006758 * std::cos(2 * b) + 0.000907 * std::sin(2 * b) -
                  0.002697 * std::cos(3 * b) + 0.00148 * std::sin(3 * b);
  d.equationOfTime = 229.18 * (0.000075 + 0.001868 * std::cos(b) - 0.032077 * std::sin(b) -
                               0.014615 * std::cos(2 * b) - 0.04089 * std::sin(2 * b));
  d.extraNormal = 433.3 * (1.000110 + 0.034221 * std::cos(b) + 0.001280 * std::sin(b) +
                           0.000719 * std::cos(2 * b) + 0.000077 * std::sin(2 * b));
  return d;
}

double solarTime(double standardHours, const Site& site, double equationOfTime) {
  return standardHours + (4.0 * (site.meridian - site.longitude) + equationOfTime) / 60.0;
}

Vec3 sunVector(double lat, double decl, double omega) {
  return {-std::cos(decl) * std::sin(omega),
          std::sin(decl) * std::cos(lat) - std::cos(decl) * std::sin(lat) * std::cos(omega),
          std::cos(lat) * std::cos(decl) * std::cos(omega) + std::sin(lat) * std::sin(decl)};
}

Vec3 surfaceNormal(double tilt, double azimuth) {
  return {std::sin(tilt) * std::sin(azimuth), std::sin(tilt) * std::cos(azimuth), std::cos(tilt)};
}

double solarAzimuth(const Vec3& sun) {
  double a = std::atan2(sun.e, sun.n);
  if (a < 0) a += 2.0 * kPi;
  return a;
}

double sunsetHourAngle(double lat, double decl) {
  const double x = -std::tan(lat) * std::tan(decl);
  if (x >= 1.0) return 0.0;
  if (x <= -1.0) return kPi;
  return std::acos(x);
}

double dailyExtraterrestrial(double lat, const DayAstro& d) {
  const double ws = sunsetHourAngle(lat, d.declination);
  return 24.0 / kPi * d.extraNormal *
         (std::cos(lat) * std::cos(d.declination) * std::sin(ws) +
          ws * std::sin(lat) * std::sin(d.declination));
}

namespace {
// "All sites composite" coefficients by sky clearness bin: f11 f12 f13 f21 f22 f23.
constexpr double kPerez[8][6] = {
    {-0.0080, 0.5880, -0.0620, -0.0600, 0.0720, -0.0220},
    {0.1300, 0.6830, -0.1510, -0.0190, 0.0660, -0.0290},
    {0.3300, 0.4870, -0.2210, 0.0550, -0.0640, -0.0260},
    {0.5680, 0.1870, -0.2950, 0.1090, -0.1520, -0.0140},
    {0.8730, -0.3920, -0.3620, 0.2260, -0.4620, 0.0010},
    {1.1320, -1.2370, -0.4120, 0.2880, -0.8230, 0.0560},
    {1.0600, -1.6000, -0.3590, 0.2640, -1.1270, 0.1310},
    {0.6780, -0.3270, -0.2500, 0.1560, -1.3770, 0.2510}};
constexpr double kBins[7] = {1.065, 1.23, 1.5, 1.95, 2.8, 4.5, 6.2};
}  // namespace

PerezCoefficients perezCoefficients(double dh, double dn, double extraNormal, double cosZ) {
  PerezCoefficients c;
  if (dh <= 0.0 || cosZ <= 0.0) return c;
  const double z = std::acos(std::clamp(cosZ, 0.0, 1.0));
  const double k = 1.041 * z * z * z;
  const double eps = ((dh + dn) / dh + k) / (1.0 + k);
  // Kasten & Young relative air mass.
  const double am = 1.0 / (cosZ + 0.50572 * std::pow(96.07995 - z / kDeg, -1.6364));
  const double delta = dh * am / extraNormal;
  int bin = 0;
  while (bin < 7 && eps >= kBins[bin]) ++bin;
  const double* f = kPerez[bin];
  c.f1 = std::max(0.0, f[0] + f[1] * delta + f[2] * z);
  c.f2 = f[3] + f[4] * delta + f[5] * z;
  return c;
}

double perezSkyDiffuse(double dh, const PerezCoefficients& c, double cosTheta, double cosZ,
                       double tilt) {
  return perezSkyDiffuse(dh, c, cosTheta, cosZ, std::cos(tilt), std::sin(tilt));
}

double perezSkyDiffuse(double dh, const PerezCoefficients& c, double cosTheta, double cosZ,
                       double cosTilt, double sinTilt) {
  const double a = std::max(0.0, cosTheta);
  const double b = std::max(std::cos(85.0 * kDeg), cosZ);
  const double v = dh * ((1.0 - c.f1) * (1.0 + cosTilt) / 2.0 + c.f1 * a / b + c.f2 * sinTilt);
  return std::max(0.0, v);
}

}  // namespace tarn
