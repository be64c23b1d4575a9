// Daylighting: the controls of ltshlf.dat, the daylit share of each zone, the
// hourly work-plane illuminance from side windows, skylights and light shelves,
// and the lighting power fraction the dimming control leaves on.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tarn {

class RunLog;
struct ZoneModel;
struct SimModel;

enum class Dimming { Continuous, Stepped, OnOff };

struct LightShelf {
  double depth = 0;          // ft
  double reflectance = 0.8;
};

struct DaylightControls {
  Dimming dimming = Dimming::Continuous;
  double minPower = 0.20;   // power fraction at the least light output
  double minLight = 0.10;   // light output a continuous dimmer goes down to
  double workPlane = 2.5;   // ft; echoed for the report, the daylit areas do not use it
  double reflectance = 0.5; // area-weighted reflectance of the room's surfaces
  std::map<std::string, LightShelf> shelves;  // by zone ID
};

// Luminous efficacy of daylight: fc per Btu/h·ft² (120 and 95 lm/W).
inline constexpr double kDiffuseEfficacy = 35.2;
inline constexpr double kBeamEfficacy = 27.8;

// Reads ltshlf.dat (report units: ft or m). Missing lines keep the defaults;
// a value that cannot be meant raises RunFailure(BadInput) naming the line.
DaylightControls readDaylightFile(std::string_view bytes, bool si);

// Fraction of the lighting power left on for illuminance e against target.
double powerFraction(const DaylightControls& c, double illuminance, double target);

// A zone's hourly daylight, as factors on the hour's irradiance (fc per
// Btu/h·ft²); beam on each window class comes from the loads pass.
struct ZoneDaylight {
  bool on = false;
  double share = 0;         // daylit area / floor area
  double target = 0;        // fc
  double diffuseH = 0;      // × diffuse horizontal (side windows' daylight factor)
  double globalH = 0;       // × global horizontal illuminance (skylights), fc per fc
  double beamH = 0;         // × beam horizontal (light shelves)
  std::vector<double> beamPlane;  // per window class: × beam on its plane after shading
};

ZoneDaylight zoneDaylight(const ZoneModel& z, const SimModel& m, const DaylightControls& c);

}  // namespace tarn
