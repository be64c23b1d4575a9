// Exterior surfaces: irradiance on each orientation group, shading factors,
// the windows' angular response, and the equivalent outdoor temperature of
// each construction (sol-air through its time lag and decrement factor).
#pragma once

#include <vector>

#include "engine/model.h"
#include "engine/weather.h"

namespace tarn {

// Beam factors of fins (gamma = solar minus surface azimuth in (-pi, pi]).
double finRightBeam(double p, double gamma);
double finLeftBeam(double p, double gamma);
// Beam factor of an overhang for the window height hw, the gap from the window
// top to the overhang and the depth ratio p over the height to the overhang.
double overhangBeam(double p, double windowHeight, double gap, double tanProfile);
// Beam factor of a far obstruction of elevation sine f.
double obstructionBeam(double f, double tanProfile);
// Sky diffuse factor of a fin of depth ratio p: the view-factor loss of a
// semi-infinite fin averaged over the window width (it hides sky and ground alike).
double finSkyFactor(double p);
// Sky diffuse factor of an overhang: a point at depth z below it sees the sky
// up to atan(z/D), a share z/√(z² + D²) of a free wall's sky, averaged over the
// window from z = gap to z = gap + window height. The ground stays in view.
double overhangSkyFactor(double p, double windowHeight, double gap);
// Normalised angular SHGC of clear double glazing at incidence cosine c.
double angularShgc(double cosIncidence);

// Irradiance of every orientation group at every hour of the year (Btu/ft²·h),
// beam and sky already multiplied by the group's fin and obstruction factors,
// and what every window of the group shares in that hour: the normalised
// angular SHGC of the beam and the long-wave loss to the sky of a black
// surface at outdoor temperature (skyLongWave at emissivity 1, Btu/h·ft²).
struct GroupIrradiance {
  int groups = 0, hours = 0;
  std::vector<double> beam, sky, ground, cosIncidence, tanProfile;  // [group * hours + hour]
  std::vector<double> angular, skyLoss;                             // [group * hours + hour]
  std::vector<double> sunUp;  // per hour: sine of the sun's altitude at mid-hour
  std::vector<double> sunAzimuth;
  double at(const std::vector<double>& v, int g, int h) const { return v[static_cast<std::size_t>(g) * hours + h]; }
};
GroupIrradiance computeIrradiance(const std::vector<OrientationGroup>& groups, const WeatherYear& w);

// What reaches the glazing of a window class in one hour: its group's
// irradiance with the overhang's beam and sky factors (Btu/ft²·h).
struct WindowIrradiance {
  double beam = 0, sky = 0, ground = 0;
};
WindowIrradiance windowIrradiance(const WindowClass& wc, const GroupIrradiance& irr, int hour);
// The same with the class's overhang sky factor given (it does not change
// from hour to hour).
WindowIrradiance windowIrradiance(const WindowClass& wc, const GroupIrradiance& irr, int hour, double overhangSky);

// Exterior surface coefficient, convective and radiative (Btu/h·ft²·°F), at a
// wind speed in mph.
double exteriorFilm(double wind);
// Long-wave loss (Btu/h·ft²) of an exterior surface of that emissivity at the
// outdoor air temperature to the sky it sees (view factor (1 + cos tilt)/2);
// the ground and surroundings are taken at air temperature.
double skyLongWave(double outdoorF, double skyIr, double tilt, double emissivity);
// Sol-air temperature of a surface for one hour: absorbed solar less the
// long-wave loss to the sky, through the exterior film.
double solAir(double outdoor, double absorptance, double irradiance, double wind, double skyLoss);
// Long-wave emissivity of opaque exterior surfaces (the catalog gives none).
inline constexpr double kOpaqueEmissivity = 0.9;

// Periodic response: T_eq(t) = (1 − f)·mean of T over t−23..t + f·T(t − lag),
// T cyclic over the year, T(t − lag) linearly interpolated.
std::vector<double> periodicResponse(const std::vector<double>& series, double lag, double decrement);

// Ground temperature at depth 3 or 6 ft for each day from the monthly mean
// outdoor temperatures of the weather used.
std::vector<double> groundTemperature(const WeatherYear& w, double depthFt);

// The equivalent outdoor temperature of every exterior class, every hour.
std::vector<std::vector<double>> exteriorTemperatures(const SimModel& m, const GroupIrradiance& irr,
                                                      const WeatherYear& w);

}  // namespace tarn
