// The HVAC system catalog btype/tcool.dat: three heading lines, then for each
// of the systems 1..9 an electric heat line and a gas heat line in fixed
// columns. Each line carries the numbers in both unit systems side by side; the
// catalog screen edits one system's columns and the writer computes the other's.
//
//   cols   6-10 ID    11-61 name        65-70 fan pressure, in. w.g.  72-77 Pa
//   cols  80-84 SEER  86-90 COP (written in 86-89)  93-96 supply F       97-100 C
//   cols 103-107 first cost $/ton       111-116 maintenance $/ton     119- heat kind
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "project/project_model.h"

namespace marloven {

inline constexpr int kHvacSystems = 9;
// The heat pump: no gas heat variant, its gas line's cost columns stay blank.
inline constexpr int kHeatPumpSystem = 7;

// One system as the screen shows it: texts as cut from the columns of the
// current unit system, trailing blanks included.
struct HvacRow {
  std::string id;              // "1".."9" as read; an empty ID is not written
  std::string description;     // columns 11-61
  std::string staticPressure;  // in. w.g. / Pa
  std::string efficiency;      // SEER / COP
  std::string supplyTemp;      // F / C
  std::string firstCost;       // $/ton, electric heat
  std::string maintenanceCost; // $/ton, electric heat
};

struct HvacCatalog {
  std::array<HvacRow, kHvacSystems + 1> rows;  // 1..9
};

// installDir/btype/tcool.dat
std::string hvacCatalogPath(const std::string& installDir);

// The systems of the file's bytes, each from its electric heat line (the gas
// line is passed over). FileError 62 when the headings or a system's gas line
// are missing, 9 for a tenth system.
HvacCatalog parseHvacCatalog(std::string_view bytes, UnitSystem units);

// The whole file from the rows held in the given units. The gas line repeats the
// system and takes the electric costs plus the gas furnace's: 200 $/ton first
// cost on systems 1-6, maintenance + 7.4 (1-3), 8.0 (4), 9.0 (5, 6); systems 8
// and 9 unchanged; the heat pump's gas costs blank. FileError 6 when a text or
// a computed value is wider than the column it is read back from.
std::string formatHvacCatalog(const HvacCatalog& catalog, UnitSystem units);

// The same on a file; writing replaces it whole or, on failure, not at all.
HvacCatalog readHvacCatalog(const std::string& path, UnitSystem units);
void writeHvacCatalog(const std::string& path, const HvacCatalog& catalog, UnitSystem units);

}  // namespace marloven
