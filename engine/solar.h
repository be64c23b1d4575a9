// Sun position and the radiation a plane receives.
//
// Angles are radians inside; longitudes and meridians are degrees west, as the
// project's weather block gives them. Vectors are (east, north, up).
#pragma once

namespace tarn {

inline constexpr double kPi = 3.14159265358979323846;
inline constexpr double kDeg = kPi / 180.0;

// Per-day quantities by Spencer's series (n = day of year 1..366).
struct DayAstro {
  double declination;    // rad
  double equationOfTime; // minutes
  double extraNormal;    // extraterrestrial normal irradiance, Btu/h·ft²
};
DayAstro dayAstro(int dayOfYear);

struct Site {
  double latitude = 40.0;    // degrees, + north
  double longitude = 105.0;  // degrees west
  double meridian = 105.0;   // standard meridian, degrees west
  double elevation = 0.0;    // feet
};

// Solar time (hours) for a local standard time (hours).
double solarTime(double standardHours, const Site& site, double equationOfTime);

struct Vec3 {
  double e = 0, n = 0, u = 0;
};
inline double dot(const Vec3& a, const Vec3& b) { return a.e * b.e + a.n * b.n + a.u * b.u; }

// Unit vector towards the sun for a declination and hour angle (rad).
Vec3 sunVector(double latitudeRad, double declination, double hourAngle);
// Outward normal of a plane of tilt beta from horizontal and azimuth psi
// clockwise from north (both rad).
Vec3 surfaceNormal(double tilt, double azimuth);
// Solar azimuth clockwise from north (rad) of a sun vector.
double solarAzimuth(const Vec3& sun);

// Daily extraterrestrial radiation on a horizontal plane (Btu/ft²·day).
double dailyExtraterrestrial(double latitudeRad, const DayAstro& d);
// Sunset hour angle (rad), 0 in polar night and pi in polar day.
double sunsetHourAngle(double latitudeRad, double declination);

// The Perez (1990) brightening coefficients of an hour.
struct PerezCoefficients {
  double f1 = 0, f2 = 0;
};
PerezCoefficients perezCoefficients(double diffuseH, double directN, double extraNormal,
                                    double cosZenith);
// Sky diffuse on a plane (same unit as diffuseH) for given coefficients;
// f1 = f2 = 0 is the isotropic sky.
double perezSkyDiffuse(double diffuseH, const PerezCoefficients& c, double cosIncidence,
                       double cosZenith, double tilt);
// The same with the plane's cosine and sine of tilt given, for a plane met
// every hour.
double perezSkyDiffuse(double diffuseH, const PerezCoefficients& c, double cosIncidence,
                       double cosZenith, double cosTilt, double sinTilt);

}  // namespace tarn
