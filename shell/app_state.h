// Program-wide state: one object owned by main() and passed by reference.
#pragma once

#include <array>
#include <string>

#include "project/project_model.h"
#include "shell/installation.h"

namespace marloven {

struct Date {
  int year = 2000;
  int month = 1;  // 1..12
  int day = 1;
};

// Tables that start-up loads once from the installation.
struct StartupTables {
  std::array<std::string, 13> monthNames;       // 1..12: "Jan".."Dec"
  std::array<std::string, 13> upperMonthNames;  // 1..12: "JAN".."DEC"
  std::array<std::string, kBuildingTypes + 1> buildingTypeNames;  // 1..42
  // Default profile lines per building type, kinds 1..4 (Occ, HW, Vent, Lite).
  std::array<std::array<std::string, kBuildingTypes + 1>, 5> profileDefaults;
  Date today;
  std::string dateText;         // "22 Nov 2026"
  std::string spreadsheetPath;  // empty when none was found
};

struct AppState {
  Installation install;
  Project project;
  StartupTables tables;
};

}  // namespace marloven
