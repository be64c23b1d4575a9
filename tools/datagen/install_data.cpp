#include "tools/datagen/install_data.h"

#include <cmath>
#include <map>

#include "catalogs/hvac_catalog.h"
#include "common/column_printer.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "common/masks.h"
#include "common/number_text.h"

namespace marloven::datagen {
namespace {

constexpr int kTypes = 42;
constexpr int kSystems = 9;
constexpr int kValueWidth = 20;  // the building type reader cuts values at column 20

CsvTable readTable(const std::string& dataDir, const std::string& name) {
  return CsvTable::parse(readFile(joinPath(dataDir, name)), name);
}

std::string masked(double value, int digits, std::string_view mask) {
  return applyMask(bare(roundTo(value, digits)), mask);
}

// Lines joined with CR LF, the last one ended too.
std::string joinLines(const std::vector<std::string>& lines) {
  std::string out;
  for (const auto& l : lines) out += l + "\r\n";
  return out;
}

std::vector<std::string> words(const std::string& s) {
  std::vector<std::string> out;
  size_t i = 0;
  while (i < s.size()) {
    while (i < s.size() && s[i] == ' ') ++i;
    size_t j = i;
    while (j < s.size() && s[j] != ' ') ++j;
    if (j > i) out.push_back(s.substr(i, j - i));
    i = j;
  }
  return out;
}

// 24 hourly numbers, re-joined with single blanks.
std::string hourlyLine(const CsvTable& t, int row, std::string_view column, bool onOff = false) {
  const auto values = words(t.at(row, column));
  if (values.size() != 24)
    throw DataError(t.where(row, column) + ": " + std::to_string(values.size()) + " values, not 24");
  std::string out;
  for (const auto& v : values) {
    if (v.find_first_not_of("0123456789.") != std::string::npos)
      throw DataError(t.where(row, column) + ": \"" + v + "\" is not an hourly value");
    if (!out.empty()) out += ' ';
    out += onOff ? (leadingNumber(v) > 0 ? "1" : "0") : v;
  }
  return out;
}

// ---------------------------------------------------------------- HVAC table

struct HvacSystem {
  std::string name, staticText, seerText, supplyText, firstText, maintText;
  double first = 0, maint = 0;
};

std::vector<HvacSystem> readSystems(const CsvTable& t) {
  if (t.rows() != kSystems) throw DataError("hvac_systems.csv: 9 systems expected");
  std::vector<HvacSystem> out;
  for (int r = 0; r < t.rows(); ++r) {
    if (t.number(r, "id") != r + 1) throw DataError(t.where(r, "id") + ": systems must be 1..9 in order");
    HvacSystem s;
    s.name = t.at(r, "name");
    if (s.name.size() > 51) throw DataError(t.where(r, "name") + ": longer than columns 11-61");
    for (const char* c : {"static_pressure", "seer", "supply_temp"}) t.number(r, c);  // numbers only
    s.first = t.number(r, "first_cost");
    s.maint = t.number(r, "maintenance");
    // Texts as they stand in their columns: each must fit the narrower of the
    // cuts that read it (the catalog screen's and the zone screen's).
    s.staticText = t.at(r, "static_pressure");
    s.seerText = t.at(r, "seer");
    s.supplyText = t.at(r, "supply_temp");
    s.firstText = masked(s.first, 0, "@@@");
    s.maintText = masked(s.maint, 2, "@@@@@");
    if (s.staticText.size() > 3 || s.seerText.size() > 5 || s.supplyText.size() > 4 ||
        s.firstText.size() > 4 || s.maintText.size() > 5)
      throw DataError(t.where(r, "id") + ": a value is too wide for its tcool.dat column");
    out.push_back(s);
  }
  return out;
}

// The catalog as the HVAC screen would hold it in I-P; its writer makes the file.
std::string tcoolFile(const std::vector<HvacSystem>& systems) {
  HvacCatalog catalog;
  for (int i = 1; i <= kSystems; ++i) {
    const HvacSystem& s = systems[static_cast<size_t>(i - 1)];
    catalog.rows[static_cast<size_t>(i)] = {std::to_string(i), s.name,      s.staticText, s.seerText,
                                            s.supplyText,      s.firstText, s.maintText};
  }
  try {
    return formatHvacCatalog(catalog, UnitSystem::IP);
  } catch (const FileError& e) {
    throw DataError("hvac_systems.csv: " + e.detail());
  }
}

// ------------------------------------------------------------- heating table

struct HeatingType {
  std::string copText;
};

std::vector<HeatingType> readHeating(const CsvTable& t) {
  if (t.rows() != 3) throw DataError("heating_types.csv: 3 heating types expected");
  std::vector<HeatingType> out;
  for (int r = 0; r < t.rows(); ++r) {
    if (t.number(r, "id") != r + 1) throw DataError(t.where(r, "id") + ": types must be 1..3 in order");
    t.number(r, "cop");
    if (t.at(r, "cop").size() != 4) throw DataError(t.where(r, "cop") + ": four characters (columns 16-19)");
    if (t.at(r, "name").size() > 10) throw DataError(t.where(r, "name") + ": at most 10 characters");
    out.push_back({t.at(r, "cop")});
  }
  return out;
}

std::string theatFile(const CsvTable& t) {
  ColumnPrinter p;
  p.line("NO NAME        COP   HEATING TYPE");
  p.line("-- ----------  ----  ----------------------------------------");
  for (int r = 0; r < t.rows(); ++r)
    p.text(std::to_string(r + 1)).tab(4).text(t.at(r, "name")).tab(16).text(t.at(r, "cop"))
        .tab(22).text(t.at(r, "description")).endLine();
  return p.take();
}

// ---------------------------------------------------------- building types

std::string checkedValue(const CsvTable& t, int row, std::string_view column, bool numeric) {
  const std::string& v = t.at(row, column);
  if (v.size() > kValueWidth) throw DataError(t.where(row, column) + ": longer than 20 characters");
  if (!v.empty() && (v.front() == ' ' || v.back() == ' '))
    throw DataError(t.where(row, column) + ": leading or trailing blank");
  if (numeric) t.number(row, column);
  return v;
}

std::string ventilationValue(const CsvTable& t, int row) {
  const std::string& v = t.at(row, "ventilation");
  const std::string kind = v.substr(0, 2);
  // PA is left out: choosing a type in SI converts the number whatever the kind.
  if (kind != "CP" && kind != "CS")
    throw DataError(t.where(row, "ventilation") + ": CP or CS followed by a number");
  std::string rest = v.substr(2);
  if (rest.empty() || rest.find_first_not_of("0123456789.") != std::string::npos)
    throw DataError(t.where(row, "ventilation") + ": CP or CS followed by a number");
  return v;
}

std::string yesNo(const CsvTable& t, int row, std::string_view column) {
  const std::string& v = t.at(row, column);
  if (v != "Yes" && v != "No") throw DataError(t.where(row, column) + ": Yes or No");
  return v;
}

int wholeIn(const CsvTable& t, int row, std::string_view column, int lo, int hi) {
  const double v = t.number(row, column);
  if (v != std::floor(v) || v < lo || v > hi)
    throw DataError(t.where(row, column) + ": a whole number " + std::to_string(lo) + ".." +
                    std::to_string(hi));
  return static_cast<int>(v);
}

std::string buildingTypeFile(const CsvTable& t, int r, const std::vector<HvacSystem>& systems,
                             const std::vector<HeatingType>& heating) {
  const int no = r + 1;
  std::vector<std::string> lines;
  const std::string& code = t.at(r, "code");
  if (code.size() != 2 || code.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ") != std::string::npos)
    throw DataError(t.where(r, "code") + ": two capital letters");
  if (t.at(r, "name").empty()) throw DataError(t.where(r, "name") + ": empty");
  lines.push_back(t.at(r, "name") + " " + code);

  const char* projectColumns[] = {"project_name", "description", "location",  "design_stage",
                                  "scheme",       "evaluation_year", "orientation", "floor_area",
                                  "construction_cost", "occupied_days", "holidays"};
  for (int i = 0; i < 11; ++i)
    lines.push_back(checkedValue(t, r, projectColumns[i], i >= 5));
  if (t.number(r, "occupied_days") > 7) throw DataError(t.where(r, "occupied_days") + ": 7 at most");

  const char* economicsColumns[] = {"economic_life", "mech_life", "solar_life", "discount_rate",
                                    "building_escalation", "electricity_price",
                                    "electricity_escalation", "gas_price", "gas_escalation",
                                    "water_price", "water_escalation"};
  for (const char* c : economicsColumns) lines.push_back(checkedValue(t, r, c, true));
  const std::string& demand = t.at(r, "demand_charge");
  if (demand != "Y" && demand != "N") throw DataError(t.where(r, "demand_charge") + ": Y or N");
  lines.push_back(demand);
  // Three lines that the reader passes over: the sources of this type's defaults.
  lines.push_back("Schedules: " + t.at(r, "schedule_set"));
  lines.push_back("90.1 area type: " + t.at(r, "area_type_90_1"));
  lines.push_back("62.1 category: " + t.at(r, "category_62_1"));

  const int ac = wholeIn(t, r, "ac_type", 1, 9);
  const int heat = wholeIn(t, r, "heating_type", 1, 3);
  const HvacSystem& sys = systems[static_cast<size_t>(ac - 1)];
  // Costs as the zone screen makes them when the system is chosen: the catalog's
  // electric heat costs, raised for gas heat except on systems 8 and 9.
  std::string firstCost = bare(roundTo(sys.first, 0));
  std::string maintCost = bare(roundTo(sys.maint, 2));
  if (heat == 1 && ac != 8 && ac != 9) {
    const double first = sys.first + 200;
    const double f = ac < 4 ? 0.037 : ac == 4 ? 0.04 : 0.045;
    firstCost = bare(first);
    maintCost = bare(roundTo(first * f, 2));
  }
  const std::string typeNo = std::to_string(no);
  for (int field = 4; field <= 30; ++field) {
    switch (field) {
      case 4: lines.push_back(checkedValue(t, r, "internal_mass", true)); break;
      case 5: lines.push_back(checkedValue(t, r, "area_per_person", true)); break;
      case 6: case 8: case 10: case 15: lines.push_back(typeNo); break;
      case 7: lines.push_back(checkedValue(t, r, "hot_water", true)); break;
      case 9: lines.push_back(ventilationValue(t, r)); break;
      case 11: lines.push_back(std::to_string(wholeIn(t, r, "light_type", 1, 6))); break;
      case 12: lines.push_back(checkedValue(t, r, "lighting_cost", true)); break;
      case 13: lines.push_back(checkedValue(t, r, "lpd", true)); break;
      case 14: lines.push_back(checkedValue(t, r, "equipment", true)); break;
      case 16: lines.push_back(std::to_string(wholeIn(t, r, "temp_summer", 1, 12))); break;
      case 17: lines.push_back(std::to_string(wholeIn(t, r, "temp_winter", 1, 12))); break;
      case 18: lines.push_back(std::to_string(wholeIn(t, r, "temp_holiday_summer", 1, 12))); break;
      case 19: lines.push_back(std::to_string(wholeIn(t, r, "temp_holiday_winter", 1, 12))); break;
      case 20: lines.push_back(std::to_string(ac)); break;
      case 21: lines.push_back(std::to_string(heat)); break;
      case 22: lines.push_back(checkedValue(t, r, "natural_vent_rate", true)); break;
      case 23: lines.push_back(checkedValue(t, r, "infiltration", true)); break;
      case 24: lines.push_back(checkedValue(t, r, "daylight_depth", true)); break;
      case 25: lines.push_back(checkedValue(t, r, "target_fc", true)); break;
      case 26: lines.push_back(sys.staticText); break;
      case 27: lines.push_back(sys.seerText); break;
      case 28: lines.push_back(heating[static_cast<size_t>(heat - 1)].copText); break;
      case 29: lines.push_back(firstCost); break;
      case 30: lines.push_back(maintCost); break;
    }
  }
  lines.push_back(yesNo(t, r, "natural_ventilation"));
  lines.push_back(yesNo(t, r, "daylighting"));
  lines.push_back(yesNo(t, r, "economizer"));
  return joinLines(lines);
}

// ----------------------------------------------------------------- profiles

std::vector<InstallFile> profileFiles(const CsvTable& types, const CsvTable& schedules) {
  struct Kind {
    const char* profile;
    const char* heading;
  };
  const Kind kinds[] = {
      {"occupancy", "OCCUPANCY PROFILES (PERCENT), HOURS 1 TO 24, BUILDING TYPES 1 TO 42"},
      {"hot_water", "HOT WATER PROFILES (PERCENT), HOURS 1 TO 24, BUILDING TYPES 1 TO 42"},
      {"hvac", "VENTILATION PROFILES (ON/OFF), HOURS 1 TO 24, BUILDING TYPES 1 TO 42"},
      {"lighting", "LIGHTING AND EQUIPMENT PROFILES (PERCENT), HOURS 1 TO 24, BUILDING TYPES 1 TO 42"},
  };
  std::map<std::string, int> rowOf;  // "set/profile" -> row
  for (int r = 0; r < schedules.rows(); ++r)
    rowOf[schedules.at(r, "set") + "/" + schedules.at(r, "profile")] = r;

  std::vector<InstallFile> out;
  for (int k = 0; k < 4; ++k) {
    std::vector<std::string> lines{kinds[k].heading};
    for (int r = 0; r < types.rows(); ++r) {
      const auto it = rowOf.find(types.at(r, "schedule_set") + "/" + kinds[k].profile);
      if (it == rowOf.end())
        throw DataError(types.where(r, "schedule_set") + ": no " + kinds[k].profile +
                        " schedule in schedules.csv");
      lines.push_back(hourlyLine(schedules, it->second, "values", k == 2));
    }
    out.push_back({"profiles/bprof" + std::to_string(k + 1) + ".dat", joinLines(lines)});
  }
  return out;
}

std::string temperatureFile(const CsvTable& t) {
  if (t.rows() != 12) throw DataError("temperature_profiles.csv: 12 rows expected");
  std::vector<std::string> lines{"TEMPERATURE PROFILES (DEGREE F), HOURS 1 TO 24, ROWS 1 TO 12"};
  for (int r = 0; r < t.rows(); ++r) {
    if (t.number(r, "row") != r + 1) throw DataError(t.where(r, "row") + ": rows must be 1..12 in order");
    lines.push_back(hourlyLine(t, r, "values"));
  }
  return joinLines(lines);
}

// ----------------------------------------------------------------- catalogs

std::string catalogFile(const CsvTable& t, const char* const (&columns)[5]) {
  // The project file keeps entries 1..26, the catalog screens 1..30.
  if (t.rows() < 15 || t.rows() > 26)
    throw DataError("catalog tables hold 15 to 26 entries (zone entry loads the first 15)");
  std::vector<std::string> lines;
  for (int r = 0; r < t.rows(); ++r) {
    if (t.number(r, "id") != r + 1) throw DataError(t.where(r, "id") + ": IDs must be 1.. in order");
    lines.push_back(t.at(r, "id"));
    // The report prints the description in columns 17 to 50.
    if (t.at(r, "description").empty() || t.at(r, "description").size() > 34)
      throw DataError(t.where(r, "description") + ": 1 to 34 characters");
    lines.push_back(t.at(r, "description"));
    for (const char* c : columns) {
      if (t.number(r, c) < 0) throw DataError(t.where(r, c) + ": negative");
      lines.push_back(t.at(r, c));
    }
  }
  return joinLines(lines);
}

// ----------------------------------------------------------- sketch template

std::string sketchTemplate() {
  // One level of the 80 x 60 grid: 2 ft cells, 13 ft floor to floor (the DOE
  // prototypes' storey height), stock zone names, nothing drawn.
  ColumnPrinter p;
  const char* labels[] = {"Grid Size", "Orientation", "No. of Flrs", "Room Height", "Floor Area",
                          "Section Area"};
  const double values[] = {2, 0, 1, 13, 0, 0};
  for (int i = 0; i < 6; ++i) p.text(labels[i]).tab(13).text(":").text(padded(values[i])).endLine();
  for (int z = 1; z <= 25; ++z)
    p.text("ZoneName[").text(std::to_string(z)).tab(12).text("]: Zone 1-" + std::to_string(z)).endLine();
  for (int row = 0; row < 60; ++row) p.text(std::string(80, '0')).text(" ").endLine();
  return p.take();
}

}  // namespace

std::vector<InstallFile> makeInstallData(const std::string& dataDir) {
  const CsvTable types = readTable(dataDir, "building_types.csv");
  const CsvTable schedules = readTable(dataDir, "schedules.csv");
  const CsvTable hvac = readTable(dataDir, "hvac_systems.csv");
  const CsvTable heatingTable = readTable(dataDir, "heating_types.csv");
  const CsvTable temperatures = readTable(dataDir, "temperature_profiles.csv");
  const CsvTable constructions = readTable(dataDir, "constructions.csv");
  const CsvTable glazing = readTable(dataDir, "glazing.csv");

  if (types.rows() != kTypes) throw DataError("building_types.csv: 42 building types expected");
  const auto systems = readSystems(hvac);
  const auto heating = readHeating(heatingTable);

  std::vector<InstallFile> out;
  for (int r = 0; r < types.rows(); ++r) {
    if (types.number(r, "no") != r + 1)
      throw DataError(types.where(r, "no") + ": types must be 1..42 in order");
    out.push_back({"btype/bdtype" + std::to_string(r + 1) + ".dat",
                   buildingTypeFile(types, r, systems, heating)});
  }
  out.push_back({"btype/tcool.dat", tcoolFile(systems)});
  out.push_back({"btype/theat.dat", theatFile(heatingTable)});
  for (auto& f : profileFiles(types, schedules)) out.push_back(std::move(f));
  out.push_back({"profiles/bprof5.dat", temperatureFile(temperatures)});
  const char* const wallColumns[5] = {"u", "absorptance", "time_lag", "decrement", "cost"};
  const char* const windowColumns[5] = {"u", "shgc", "emissivity", "visible_t", "cost"};
  out.push_back({"profiles/bprof6.dat", catalogFile(constructions, wallColumns)});
  out.push_back({"profiles/bprof7.dat", catalogFile(glazing, windowColumns)});
  out.push_back({"sketch/bld_mtx2.000", sketchTemplate()});
  return out;
}

}  // namespace marloven::datagen
