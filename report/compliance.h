// The code compliance figures of a building and its zones: envelope UA, areas,
// average U-factors, glass percentages, lighting power density and ventilation
// rates. They depend on the project model only, so the report, the screens and
// the command line all show the same numbers.
//
// Every sum and quotient goes through roundTo with the digits a code reviewer
// sees in the report; a quotient whose divisor is zero is absent.
#pragma once

#include <optional>
#include <vector>

#include "project/project_model.h"

namespace marloven {

struct EnvelopeFigures {
  float roofUA = 0, roofArea = 0, roofGlass = 0;
  float wallUA = 0, wallArea = 0, wallGlass = 0;
  std::optional<float> roofU, roofGlassPercent;  // Ur, roof % glass
  std::optional<float> wallU, wallGlassPercent;  // Uw, wall % glass
  float envelopeUA = 0, envelopeArea = 0;
  std::optional<float> overallU;                 // Uo
};

struct ComplianceFigures {
  EnvelopeFigures envelope;
  float watts = 0;
  float floorArea = 0;
  std::optional<float> lightingPowerDensity;
  float ventilation = 0;  // design outside air, CFM or L/s
  float people = 0;
  std::optional<float> ventilationPerPerson;
  std::optional<float> ventilationPerFloorArea;
};

struct ZoneCompliance {
  int zone = 0;  // index into Project::zones
  ComplianceFigures figures;
};

struct BuildingCompliance {
  ComplianceFigures building;
  std::vector<ZoneCompliance> zones;  // zones with a floor area, in order
};

// Opaque area counts at the wall type's U-factor and glass at the window
// type's (none for window ID 0); areas are gross. Rows with an exposure code
// above 6 (underground) stay out of every sum. The building floor area is the
// project's total floor area.
BuildingCompliance computeCompliance(const Project& p);

}  // namespace marloven
