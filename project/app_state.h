// Program-wide state: one object owned by main() and passed by reference.
#pragma once

#include <array>
#include <string>
#include <utility>

#include "project/project_model.h"
#include "project/installation.h"

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

// The zone list's grid: row 0 the headings, rows 1..100 the zones; columns
// zone ID, zone name and a third the filling screen decides.
struct ZoneListGrid {
  static constexpr int kRows = 101;
  static constexpr int kColumns = 3;
  std::array<std::array<std::string, kColumns>, kRows> cells;
};

// A report section (kind 6) or chart (kind 10) asked for from the View menu,
// remembered so it can be shown once a results file is picked.
struct ResultsChoice {
  int kind = 0;
  int index = 0;
};

// A recorded weather file chosen for the run instead of weather made from the
// monthly statistics.
struct RecordedWeather {
  int format = 0;  // 1 TMY2, 2 WYEC2, 3 Custom, 4 IWEC; 0 none chosen
  std::string path;
  bool fileChosen = false;    // a file was prepared for the run
  bool previewShown = false;  // the preview is up and its OK will copy the file
};

// What the run screen offers again after a run.
struct LastRun {
  std::string from, to;    // the period's day-month texts
  std::string lower, upper;  // comfort limits
};

// The tabular screen's pages of the current output.
struct TabularPages {
  int zonePage = 1;
  bool zonePagesReady = false;  // cleared by a new run or a newly opened output
  int zonePageCount = 0;
  int comfortPageCount = 0;
};

// The zone screens' editing state, kept for the program's life.
struct ZoneEditing {
  // ZoneFieldChanged: a field of a zone touched since its last store or copy.
  std::array<std::array<bool, kZoneFieldCount + 1>, kZoneSlots> fieldChanged{};
  // ZoneToggleChanged: natural ventilation, daylight and economiser (0..2) clicked.
  std::array<std::array<bool, kZoneSlots>, 3> toggleChanged{};
  // LastTouchedField: last box used; 20/21 after an HVAC choice, 11 after a
  // lighting choice, 31 after a toggle, 0 when the zone screen loads.
  int lastTouchedField = 0;
  int profileKind = 0;      // ProfileKind, 1..5
  int selectedProfile = 0;  // SelectedProfile
};

struct AppState {
  AppState() = default;
  explicit AppState(Installation where) : install(std::move(where)) {}

  Installation install;
  Project project;
  StartupTables tables;
  // The building type last chosen, 1..42; 0 before any choice. It names the
  // type's file and is the default profile number of a zone.
  int buildingTypeNumber = 0;
  // Project information: the box that had a key released in it last, where
  // Undo Last starts.
  int undoField = 0;
  // Economics: the box last clicked or typed in; the life and rate menus fill
  // it, Undo Last starts there.
  int lastEconomicsBox = 0;
  RecordedWeather recorded;
  LastRun lastRun;
  TabularPages tabular;
  ZoneEditing zoneEditing;
  // The level the sketch screen was left on; 0 when it was never opened.
  int sketchLevel = 0;
  ZoneListGrid zoneList;
  ResultsChoice results;
};

}  // namespace marloven
