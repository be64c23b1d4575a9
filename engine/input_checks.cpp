#include "engine/input_checks.h"

#include <array>
#include <cmath>
#include <vector>

#include "common/number_text.h"
#include "common/split.h"
#include "common/text_lines.h"
#include "engine/run_log.h"

namespace tarn {

namespace {

struct Range {
  double lo, hi;
  const char* unit;
};

// The ranges of the labelled lines, by section. Wide enough for any building
// and climate, narrow enough that nothing downstream overflows.
struct Field {
  const char* label;
  Range range;
};

constexpr Field kProjectFields[] = {
    {"Orient.   ", {-360, 360, "degrees"}}, {"FloorArea ", {0, 1e7, "ft2"}}, {"Con. Cost ", {0, 1e11, "$"}},
    {"Occ. Days ", {0, 366, "days"}},  // above 7: days a year         {"An Hldays ", {0, 366, "days"}},
};
constexpr Field kEconomicsFields[] = {
    {"Econ.Life ", {0, 100, "years"}}, {"Mech.Life ", {0, 100, "years"}}, {"SolarLife ", {0, 100, "years"}},
    {"Disc.Rate ", {-100, 100, "%"}},  {"Cost Esc. ", {-100, 100, "%"}},  {"Elec.Cost ", {0, 100, "$/kWh"}},
    {"Elec.Esc. ", {-100, 100, "%"}},  {"Gas  Cost ", {0, 1e4, "$/unit"}}, {"Gas  Esc. ", {-100, 100, "%"}},
    {"WaterCost ", {0, 1e4, "$/1000 gal"}}, {"WaterEsc. ", {-100, 100, "%"}},
};
constexpr Field kWallFields[] = {
    {"U-Factor  ", {0, 10, "Btu/h.ft2.F"}}, {"Solar Abs ", {0, 1, ""}}, {"Time Lag  ", {0, 100, "h"}},
    {"Dec. Fact ", {0, 1, ""}},             {"Ins. Cost ", {0, 1e6, "$/ft2"}},
};
constexpr Field kWindowFields[] = {
    {"U-Factor  ", {0, 10, "Btu/h.ft2.F"}}, {"S.H.G.C.  ", {0, 1, ""}}, {"Emissiv.  ", {0, 1, ""}},
    {"DL. Trans ", {0, 1, ""}},             {"Ins. Cost ", {0, 1e6, "$/ft2"}},
};
constexpr Field kZoneFields[] = {
    {"Flr. Area ", {0, 1e7, "ft2"}},      {"Int. Mass ", {0, 1000, "lb/ft2"}},   {"No.People ", {0, 1e6, "people"}},
    {"HW/person ", {0, 1000, "gal/day"}}, {"Lite Type ", {0, 9, ""}},            {"Cost/sqft ", {0, 1e5, "$/ft2"}},
    {"Watt/sqft ", {0, 100, "W/ft2"}},    {"EquipLoad ", {0, 100, "W/ft2"}},     {"Cool.Type ", {0, 99, ""}},
    {"Heat.Type ", {0, 99, ""}},          {"CFM/sqft. ", {0, 100, "cfm/ft2"}},   {"Inf. Rate ", {0, 100, "air changes/h"}},
    {"DL Depth  ", {0, 1000, "ft"}},      {"Target FC ", {0, 1e4, "fc"}},        {"Stat.Pres ", {0, 20, "in. w.g."}},
    {"Cool SEER ", {0, 100, ""}},         {"Heat COP  ", {0, 100, ""}},          {"1st Cost  ", {0, 1e7, "$/ton"}},
    {"Maint Cost", {0, 1e7, "$/ton"}},
    // Surface rows.
    {"Wall ID.  ", {0, 50, ""}},          {"Wall Area ", {0, 1e7, "ft2"}},       {"WallOrien ", {-360, 360, "degrees"}},
    {"Surf Exp. ", {0, 76, ""}},          {"Window ID ", {0, 50, ""}},           {"Win. Area ", {0, 1e7, "ft2"}},
    {"Rf/Wl Slp ", {0, 180, "degrees"}},  {"Ven. Blnd ", {0, 5, ""}},            {"DiffTrans ", {0, 1, ""}},
    {"Sill High ", {0, 1000, "ft"}},      {"Window Ht ", {0, 1000, "ft"}},       {"Grnd Refl ", {0, 1, ""}},
};
// Lines 4..11 of the weather block and the design temperatures: every number on the line.
struct WeatherTable {
  const char* tag;
  Range range;
};
constexpr WeatherTable kWeatherTables[] = {
    {"DB Ave ", {-100, 150, "F"}}, {"Ave std", {0, 100, "F"}},      {"DB Max ", {-100, 150, "F"}},
    {"Max std", {0, 100, "F"}},    {"DP Ave ", {-100, 150, "F"}},   {"DP std ", {0, 100, "F"}},
    {"SOLAR  ", {0, 4000, "Btu/ft2.day"}}, {"WIND   ", {0, 200, "mph"}}, {"DesTemps", {-100, 150, "F"}},
};
constexpr Range kProfileFraction{0, 100, ""};
// Set-points far out of reach are how a user switches heating or cooling off.
constexpr Range kProfileTemperature{-200, 300, "F"};

enum class Section { Project, Weather, Economics, Walls, Windows, Profiles, Zones };

std::string rangeText(const Range& r) {
  std::string s = marloven::bare(r.lo) + " to " + marloven::bare(r.hi);
  if (*r.unit) s += std::string(" ") + r.unit;
  return s;
}

std::string where(std::size_t line) { return "ecalc$.inp line " + std::to_string(line); }

// One value: blank is no value (the readers take it as 0 or the default).
void checkValue(std::size_t line, std::string_view field, std::string_view text, const Range& r) {
  const NumberText n = readNumberText(text);
  if (n.kind == NumberText::NotFinite) throw RunFailure(ExitCode::BadInput, where(line), notFiniteMessage(field, text));
  if (n.kind != NumberText::Number) return;
  if (!(n.value >= r.lo && n.value <= r.hi))
    throw RunFailure(ExitCode::BadInput, where(line),
                     std::string(field) + " " + std::string(marloven::trimmedBlanks(text)) + " is outside " + rangeText(r));
}

void checkEveryNumber(std::size_t line, std::string_view field, std::string_view text, const Range& r) {
  for (const std::string& tok : marloven::splitBlanks(text))
    if (!tok.empty()) checkValue(line, field, tok, r);
}

template <std::size_t N>
const Field* findField(const Field (&table)[N], std::string_view line) {
  for (const Field& f : table)
    if (line.substr(0, 10) == f.label) return &f;
  return nullptr;
}

std::string fieldName(const char* label) { return std::string(marloven::trimmedBlanks(label)); }

}  // namespace

std::string notFiniteMessage(std::string_view field, std::string_view text) {
  return std::string(field) + " \"" + std::string(marloven::trimmedBlanks(text)) + "\" is not a finite number";
}

void checkRunCopy(std::string_view bytes) {
  const std::vector<std::string> lines = marloven::splitLines(bytes);
  if (lines.empty()) return;

  // Header: the seed of the weather synthesis and the weeks per month.
  const std::string_view seed = marloven::midText(lines[0], 11, 10);
  if (!marloven::trimmedBlanks(seed).empty()) {
    const NumberText s = strictNumber(seed);
    if (s.kind != NumberText::Number)
      throw RunFailure(ExitCode::BadInput, where(1), "the seed \"" + std::string(marloven::trimmedBlanks(seed)) + "\" is not a number");
  }
  const std::string_view weeks = marloven::midText(lines[0], 21, 3);
  if (!marloven::trimmedBlanks(weeks).empty()) {
    const NumberText w = strictNumber(weeks);
    if (w.kind != NumberText::Number || w.value != std::floor(w.value) || std::fabs(w.value) > 99)
      throw RunFailure(ExitCode::BadInput, where(1),
                       "the weeks per month \"" + std::string(marloven::trimmedBlanks(weeks)) + "\" is not a whole number");
  }

  Section section = Section::Project;
  int profileKind = 0;        // 1..5 while in PROFILES
  bool expectValues = false;  // the line after a profile ID
  for (std::size_t k = 1; k < lines.size(); ++k) {
    const std::string& l = lines[k];
    const std::size_t lineNo = k + 1;
    const std::string_view t = marloven::trimmedBlanks(l);
    if (t == "WEATHER") { section = Section::Weather; continue; }
    if (t == "ECONOMICS") { section = Section::Economics; continue; }
    if (t == "WALL AND ROOF PROPERTIES") { section = Section::Walls; continue; }
    if (t == "WINDOW PROPERTIES") { section = Section::Windows; continue; }
    if (t == "PROFILES") { section = Section::Profiles; profileKind = 0; expectValues = false; continue; }
    if (t == "ZONES") { section = Section::Zones; continue; }

    const Field* f = nullptr;
    switch (section) {
      case Section::Project: f = findField(kProjectFields, l); break;
      case Section::Economics: f = findField(kEconomicsFields, l); break;
      case Section::Walls: f = findField(kWallFields, l); break;
      case Section::Windows: f = findField(kWindowFields, l); break;
      case Section::Zones: f = findField(kZoneFields, l); break;
      case Section::Weather: {
        // The station line: latitude, longitude, time zone, elevation.
        if (k >= 2 && marloven::trimmedBlanks(lines[k - 2]) == "WEATHER") {
          checkValue(lineNo, "Latitude", marloven::midText(l, 56, 6), {-90, 90, "degrees"});
          checkValue(lineNo, "Longitude", marloven::midText(l, 62, 6), {-360, 360, "degrees"});
          checkValue(lineNo, "Time zone", marloven::midText(l, 68, 6), {-360, 360, ""});
          checkValue(lineNo, "Elevation", l.size() > 6 ? std::string_view(l).substr(l.size() - 6) : std::string_view(l),
                     {-1500, 30000, "ft"});
          continue;
        }
        for (const WeatherTable& w : kWeatherTables) {
          const std::size_t len = std::string_view(w.tag).size();
          if (l.compare(0, len, w.tag) == 0) {
            checkEveryNumber(lineNo, marloven::trimmedBlanks(w.tag), std::string_view(l).substr(len), w.range);
            break;
          }
        }
        continue;
      }
      case Section::Profiles: {
        if (t == "Occ" || t == "HW" || t == "Vent" || t == "Lite" || t == "Temp") {
          profileKind = t == "Occ" ? 1 : t == "HW" ? 2 : t == "Vent" ? 3 : t == "Lite" ? 4 : 5;
          expectValues = false;
        } else if (expectValues) {
          static const char* const kNames[6] = {"", "Occ", "HW", "Vent", "Lite", "Temp"};
          checkEveryNumber(lineNo, std::string(kNames[profileKind]) + " profile value", l,
                           profileKind == 5 ? kProfileTemperature : kProfileFraction);
          expectValues = false;
        } else if (profileKind > 0 && t != "99") {
          expectValues = true;
        }
        continue;
      }
    }
    if (section == Section::Zones && l.compare(0, 10, "OA CFM    ") == 0) {
      // The kind before the number; a percent above 100 keeps its warning (100 % is used).
      std::string_view v = marloven::trimmedBlanks(marloven::fromColumn(l, 11));
      if (marloven::startsNoCase(v, "cp") || marloven::startsNoCase(v, "cs") || marloven::startsNoCase(v, "pa")) v.remove_prefix(2);
      checkValue(lineNo, "OA CFM", v, Range{0, 1e6, ""});
      continue;
    }
    if (!f) continue;
    checkValue(lineNo, fieldName(f->label), marloven::fromColumn(l, 11), f->range);
  }
}

}  // namespace tarn
