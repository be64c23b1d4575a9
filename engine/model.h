// The simulation model built from the run copy: zones with their exterior
// conductances, window classes, gains and schedules, and the orientation
// groups whose irradiance is computed once per hour for the whole building.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "engine/control_file.h"
#include "engine/daylight.h"
#include "engine/solar.h"
#include "engine/weather.h"

namespace marloven {
struct Project;
}

namespace tarn {

class RunLog;

// The shading tokens of a row: fin depth ratios right/left, overhang ratio,
// far obstruction sine. 0 = none.
struct ShadingTokens {
  double right = 0, left = 0, overhang = 0, obstruction = 0;
};
ShadingTokens parseShading(std::string_view text);

struct OrientationGroup {
  double azimuth = 0;  // rad, clockwise from north
  double tilt = 0;     // rad from horizontal
  double groundReflectance = 0.2;
  double finRight = 0, finLeft = 0, obstruction = 0;
};

// One exterior boundary series: the equivalent outdoor temperature T_eq seen
// through a construction (sol-air with lag and decrement) or a ground boundary.
struct ExteriorClass {
  enum Kind { SolAir, GroundPerimeter, GroundCore, BasementWall } kind = SolAir;
  int group = 0;
  double absorptance = 0;
  double lag = 0, decrement = 1;
};

struct ZoneElement {
  int cls = 0;
  double conductance = 0;  // Btu/h·°F
  bool roof = false;
};

struct WindowClass {
  int group = 0;
  double areaShgc = 0;     // Σ A·SHGC, ft²
  double uaEmissivity = 0; // Σ U·A·ε of the glazing, Btu/h·°F: its long-wave loss to the sky
  double overhang = 0;     // projection / height to the overhang
  double height = 5, gapHeight = 0;  // window height and gap to the overhang underside (ft)
  int blind = 0;           // 0 none, 1 interior Venetian, 5 exterior
  double shadeTau = 0;     // diffusing shade transmittance, 0 = none
  char season = 'B';       // S, W or B
  double area = 0;         // Σ glazing area, ft²
  double width = 0;        // Σ window widths (area / height), ft
  double areaTauVis = 0;   // Σ A·τ_visible, ft²
  bool skylight = false;   // on a roof row
};

using Hourly = std::array<double, 24>;

struct ZoneModel {
  std::string id, name;
  double floorArea = 0, height = 10, volume = 0;
  double hIs = 0, hMs = 0, massShare = 0, capacity = 0;  // massShare = A_m / A_t
  double hWindow = 0;
  // Share of the diffuse solar inside the room that leaves again through the
  // windows (transmitted solar reflected off the room's surfaces).
  double solarEscape = 0;
  std::vector<ZoneElement> elements;
  std::vector<WindowClass> windows;
  double infiltrationCfm = 0;
  bool naturalVent = false;
  double naturalVentMaxCfm = 0;
  double people = 0, lightsW = 0, equipmentW = 0, lightsRadiant = 0.6;
  double outsideAirCfm = 0;  // at full Vent profile
  // Profiles of an occupied day; unoccupied days use each profile's least value.
  Hourly occ{}, vent{}, lite{};
  double occBase = 0, ventBase = 0, liteBase = 0;
  Hourly upperOcc{}, lowerOcc{}, upperUnocc{}, lowerUnocc{};

  // HVAC system and service hot water (fields 7, 8, 9, 20, 21, 26-28, Econ.Cycle).
  int coolType = 5;  // 1..9
  int heatType = 1;  // 1 gas, 2 electric resistance, 3 heat pump
  double staticPressure = 0;  // in. w.g., 0 = the type's default
  double seer = 0, heatCop = 0;  // fields as typed (0 = the defaults of the systems pass)
  bool economiser = false;
  enum class OutsideAirKind { PerPerson, PerArea, PercentOfSupply } oaKind = OutsideAirKind::PerPerson;
  double oaRate = 0;  // cfm/person, cfm/ft² or percent of the design supply flow
  double hotWaterPerPerson = 0;  // gallons/day
  Hourly hotWater{};  // HW profile of an occupied day (fractions)
  double hotWaterBase = 0;

  // Daylighting.
  bool daylight = false;
  double daylightDepth = 0, daylightTarget = 0;  // ft, fc
  std::vector<double> skylights;   // area of each skylight row, ft²
  double skylightAreaTauVis = 0;   // Σ A·τ_visible of the skylights
};

struct SimModel {
  int year = 2001;
  bool siReport = false;
  Site site;
  MonthlyStats stats;
  std::string seed;
  int weeksPerMonth = 4;
  double occupiedDays = 5, holidayCount = 0;
  std::array<double, 4> designTemps{};  // 1 summer DB, 2 summer WB, 3 winter DB
  double winterDesignDryBulb() const { return designTemps[3]; }
  double summerDesignDryBulb() const { return designTemps[1]; }
  double summerDesignWetBulb() const { return designTemps[2]; }
  DaylightControls daylight;  // from ltshlf.dat when present
  std::string projectName, location, description, designStage, scheme, buildingType;
  std::vector<OrientationGroup> groups;
  std::vector<ExteriorClass> classes;
  std::vector<ZoneModel> zones;
};

// Builds the model. Findings go to the log; fatal ones raise RunFailure(BadInput).
SimModel buildModel(const marloven::Project& project, const std::vector<std::string>& sketchLines,
                    const RunControl& control, RunLog& log);

// The 24 values of a profile's text (blank-separated; missing values repeat the last).
Hourly parseProfileValues(std::string_view text);

// Air-to-surface link per ft² of room surface, Btu/h·ft²·°F (3.1 W/m²·K).
inline constexpr double kSurfaceLink = 0.546;

// Interior absorptance of room surfaces for solar (the catalog gives none).
inline constexpr double kInteriorAbsorptance = 0.6;
// Share of diffuse solar inside a room that leaves through its windows: the
// glazing's diffuse transmittance area against the absorbing area of the room.
// areaTauDiffuse = Σ A·τ_diffuse of the windows; interiorArea includes them.
double solarEscapeShare(double areaTauDiffuse, double windowArea, double interiorArea);

// Factor on the exterior conductances (Σ = hExterior) that keeps the room's
// steady-state conductance through them and the air-to-surface link hIs at
// hExterior. The link takes at most kMaxFilmShare of the resistance.
inline constexpr double kMaxFilmShare = 0.5;
double filmCorrection(double hExterior, double hIs);

// Mass-node capacity a construction adds per ft² from its lag (Btu/ft²·°F):
// half a homogeneous slab's capacity, capped.
double constructionCapacity(double u, double lagHours);

}  // namespace tarn
