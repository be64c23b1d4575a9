#include "sample_report.h"

#include <array>

namespace marloven::testing {

std::string placed(std::initializer_list<std::pair<std::size_t, std::string_view>> items) {
  std::string line;
  for (const auto& [column, text] : items) {
    const std::size_t at = column - 1;
    if (line.size() < at + text.size()) line.resize(at + text.size(), ' ');
    line.replace(at, text.size(), text);
  }
  return line;
}

std::string right(std::string_view text, std::size_t width) {
  return std::string(width > text.size() ? width - text.size() : 0, ' ') + std::string(text);
}

std::string joined(const Lines& lines) {
  std::string s;
  for (const std::string& l : lines) s += l + "\r\n";
  return s;
}

Lines operator+(Lines a, const Lines& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

namespace {

const std::string kFeed = "\f";

Lines pageTop() { return {kFeed, placed({{115, "... PAGE  9 ..."}}), ""}; }

Lines pageHeader() {
  return {placed({{1, "*** PROJECT: "}, {14, "Test Office"}, {88, "LOCATION: "}, {98, "Denver, Colorado #"}}),
          placed({{5, "DESCRIPTION: Two zone check"}, {88, "Design Phase: Schematic"}}),
          placed({{5, "SCHEME: 1"}, {35, "TYPE: Office OF"}, {60, "Weather Year: 2026"},
                  {88, "Date of Run: 22 Nov 2026, 14:05"}})};
}

struct LoadRow {
  std::string_view label;
  std::array<std::string_view, 8> fields;  // value, percent for the four column pairs
};

// The two-zone office of the engine's layout notes.
constexpr std::array<LoadRow, 14> kLoadRows{{
    {"ROOF", {"-6.3", "12.0", "2.1", "6.1", "-9.4", "17.0", "2.3", "5.4"}},
    {"WALLS AND GROUND", {"-9.8", "18.6", "1.4", "4.1", "-14.7", "26.5", "0.8", "1.9"}},
    {"WINDOW CONDUCTION", {"-12.4", "23.5", "1.9", "5.5", "-18.2", "32.9", "-1.9", "-4.4"}},
    {"WINDOW SOLAR", {"0.0", "0.0", "9.6", "27.8", "6.1", "-11", "19.7", "46.0"}},
    {"LIGHTS AND EQUIPMENT", {"1.2", "-2.3", "4.8", "13.9", "7.8", "-14", "14.6", "34.1"}},
    {"PEOPLE SENSIBLE", {"0.0", "0.0", "6.0", "17.4", "3.2", "-5.8", "6.4", "15.0"}},
    {"PEOPLE LATENT", {"0.0", "0.0", "4.8", "13.9", "0.0", "0.0", "5.1", "11.9"}},
    {"INFILTRATION SENSIBLE", {"-7.9", "15.0", "1.2", "3.5", "-11.5", "20.8", "-2.2", "-5.1"}},
    {"INFILTRATION LATENT", {"0.0", "0.0", "0.3", "0.9", "0.0", "0.0", "0.4", "0.9"}},
    {"VENTILATION SENSIBLE", {"-21.6", "41.0", "4.9", "14.2", "-20.3", "36.6", "-3.9", "-9.1"}},
    {"VENTILATION LATENT", {"0.0", "0.0", "1.1", "3.2", "0.0", "0.0", "1.2", "2.8"}},
    {"MASS EFFECT", {"4.1", "-7.8", "-3.6", "-10", "1.6", "-2.9", "0.3", "0.7"}},
    {"", {}},  // the rule under the table
    {"TOTAL", {"-52.7", "100", "34.5", "100", "-55.4", "100", "42.8", "100"}},
}};

std::string loadRow(const LoadRow& r) {
  if (r.label.empty()) return placed({{1, std::string(27, '-')}, {29, std::string(30, '-')}, {61, "|"}, {98, "|"}});
  const auto& f = r.fields;
  return placed({{1, r.label},
                 {29, right(f[0], 8)}, {38, right(f[1], 5)}, {45, right(f[2], 8)}, {54, right(f[3], 5)},
                 {61, "|"}, {63, r.label}, {98, "|"},
                 {100, right(f[4], 8)}, {109, right(f[5], 5)}, {117, right(f[6], 8)}, {126, right(f[7], 5)}});
}

std::string monthRow(std::string_view label, std::string_view heat, std::string_view cool, std::string_view gas,
                     std::string_view elec, std::string_view total) {
  return placed({{1, label}, {4, right(heat, 8)}, {12, right("52.7", 9)}, {21, right("4.1", 10)},
                 {31, right(cool, 9)}, {80, right(gas, 8)}, {105, right(elec, 9)}, {114, right(total, 9)},
                 {123, right("152.0", 10)}});
}

}  // namespace

std::vector<std::string> wholeYear() {
  return {"JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
}

Lines projectPart(bool si) {
  Lines l{kFeed,
          placed({{115, "... PAGE  1 ..."}}),
          "",
          placed({{1, "I.   P R O J E C T   D A T A"}}),
          placed({{5, "PROJECT NAME: Test Office"}}),
          "",
          placed({{4, "LOCATION: Denver, Colorado"}, {47, "39.8 DEG. N. LAT."}}),
          "",
          placed({{4, "WEATHER INPUT DATA ...."}}),
          placed({{49, "JAN   FEB   MAR   APR   MAY   JUN   JUL   AUG   SEP   OCT   NOV   DEC"}}),
          placed({{49, "---   ---   ---   ---   ---   ---   ---   ---   ---   ---   ---   ---"}})};
  for (const char* heading : {"AVERAGE DRY BULB TEMPERATURES....", "STANDARD DEVIATIONS....", "",
                              "AVERAGE DAILY MAX TEMPERATURES....", "STANDARD DEVIATIONS....", "",
                              "AVERAGE DEWPOINT TEMPERATURES....", "STANDARD DEVIATIONS....", "",
                              "AVERAGE DAILY SOLAR BTUS PER"})
    l.push_back(*heading ? placed({{9, heading}, {47, "  29.2  33.1"}}) : "");
  // The 13th line after the anchor.
  l.push_back(si ? placed({{12, "SQ.M. OF HORIZONTAL SURFACE"}, {47, "  9855"}})
                 : placed({{11, "SQ.FT. OF HORIZONTAL SURFACE"}, {47, "   840"}}));
  l.push_back("");
  l.push_back(placed({{9, "AVERAGE WIND VELOCITY ...."}, {47, "   8.7"}}));
  l.push_back(std::string(132, '='));
  return l;
}

Lines zonePart() {
  return Lines{placed({{1, "II.  Z O N E   D A T A"}}), placed({{6, "------------------"}})} + pageHeader() +
         Lines{"", placed({{5, "ZONE 11  Open office"}}), placed({{5, "ZONE 12  Conference"}}), ""};
}

Lines loadPage() {
  Lines l = pageTop();
  l.push_back(placed({{1, "III.  M O N T H L Y   S U M M A R I E S   A N D   A N N U A L   L O A D S"}}));
  l.push_back(placed({{7, std::string(67, '-')}}));
  l = l + pageHeader();
  l.push_back("");
  l.push_back(placed({{5, "BUILDING LOAD COMPONENTS, ALL ZONES.  HVAC RUN"}}));
  l.push_back("");
  l.push_back(placed({{31, "PEAK HEATING    PEAK COOLING"}, {61, "|"}, {98, "|"}, {101, "ANNUAL HEATING"}}));
  l.push_back(placed({{1, "COMPONENT"}, {31, "KBTU/H     %"}, {61, "|"}, {98, "|"}}));
  l.push_back(placed({{1, std::string(27, '-')}, {61, "|"}, {98, "|"}}));
  for (const LoadRow& r : kLoadRows) l.push_back(loadRow(r));  // rows 1..14
  l.push_back("");                                                // 15
  for (int i = 16; i <= 18; ++i) l.push_back(placed({{5, "NOTE LINE"}}));
  l.push_back("");                                                          // 19
  l.push_back(placed({{33, "PEAK HEATING    PEAK COOLING"}}));              // 20
  l.push_back(placed({{1, "TIME OF PEAK"}, {30, right("07:00-08:00", 15)}, {46, right("15:00-16:00", 15)}}));
  l.push_back(placed({{1, "DATE OF PEAK"}, {30, " Mon Jan 12, 2026"}, {47, " Wed Jul 22, 2026"}}));
  l.push_back("");
  l.push_back(placed({{5, "ANNUAL SITE ENERGY BY END USE"}}));
  l.push_back(placed({{20, "SPACE     WATER     SPACE       FAN   LIGHT-     EQUIP-"}}));
  l.push_back(placed({{18, "HEATING   HEATING   COOLING    MOTORS      ING       MENT"}}));
  l.push_back(placed({{1, "Site (MBTU)"}, {18, right("69.3", 7)}, {27, right("4.8", 8)}, {38, right("6.0", 7)},
                      {48, right("5.5", 7)}, {57, right("18.4", 7)}, {68, right("10.9", 7)},
                      {78, "ELECTRICITY"}, {90, right("11984", 9)}, {100, "KWH   GAS"}}));
  l.push_back(placed({{5, "SOURCE FACTORS: ELECTRICITY 3.340, GAS 1.047"}, {60, "TOTAL SITE ENERGY (MBTU) ="},
                      {89, right("114.9", 7)}, {96, "  EUF = "}, {104, right("178.2", 7)},
                      {111, " KBTU/SQ.FT. (SOURCE)"}}));
  return l;
}

Lines monthPage(const std::vector<std::string>& labels) {
  Lines l = pageTop() + pageHeader();
  l.push_back("");
  l.push_back(placed({{5, "MONTHLY ENERGY USE AND COSTS  (SECTION III CONTINUED)"}}));
  l.push_back("");
  l.push_back(placed({{1, "MON    SPACE     PEAK      PEAK COOLING"}}));
  l.push_back(placed({{6, "HEATING  HEATING   COOLING   ELEC."}}));
  l.push_back(placed({{6, "(MBTU)  (KBTU/H)  (KBTU/H)   (KWH)"}}));
  l.push_back(placed({{1, "---"}, {5, std::string(128, '-')}}));
  l.push_back("");
  for (std::size_t i = 0; i < labels.size(); ++i)
    l.push_back(monthRow(labels[i], "1" + std::to_string(i) + ".5", std::to_string(100 * (i + 1)),
                         std::to_string(200 + i), std::to_string(300 + i), std::to_string(500 + i)));
  l.push_back(std::string(132, '='));
  l.push_back(monthRow("TOT", "99.9", "9999", "", "", ""));
  l.push_back(placed({{1, "ANNUAL COSTS ($)"}, {80, right("777", 8)}, {105, right("888", 9)}, {114, right("999", 9)}}));
  l.push_back(placed({{5, "ON THE TOT LINE THE PEAK COLUMNS ARE ANNUAL MAXIMA."}}));
  return l;
}

Lines hvacPart() {
  return pageTop() + Lines{placed({{1, "IV.  H V A C   D E S I G N   D A T A"}}), placed({{5, "DESIGN CONDITIONS"}}),
                           placed({{5, "  11 Open office"}})};
}

Lines profilePart() {
  return pageTop() + Lines{placed({{1, "V.  P E A K   D E M A N D   P R O F I L E S"}}), placed({{5, "HOUR"}})} +
         pageTop() + Lines{placed({{1, "VI.  Z O N E   L O A D S   A N D   E N E R G Y"}}), placed({{5, "BUILDING"}})};
}

Lines costPart() {
  return pageTop() + Lines{placed({{1, "VII.  C O S T   A N A L Y S I S"}}), placed({{5, "MONTHLY UTILITY BILLS"}}),
                           placed({{5, "TOTAL"}})};
}

Lines weatherPart() {
  return pageTop() + Lines{placed({{1, "VIII.  W E A T H E R   S U M M A R Y"}}),
                           placed({{5, "MONTHLY SUMMARY OF THE WEATHER USED"}}), "",
                           placed({{2, "DAILY WEATHER, JANUARY 2026"}}), placed({{2, "DAY  WEEKDAY"}})};
}

Lines comfortPart() {
  return pageTop() + Lines{placed({{1, "IX.  S P A C E   C O M F O R T   C O N D I T I O N S"}}),
                           placed({{6, "NO COMFORT TABLE: THIS RUN HAD HEATING AND COOLING."}})};
}

Lines fullReport(bool si, const std::vector<std::string>& months) {
  return projectPart(si) + zonePart() + loadPage() + monthPage(months) + hvacPart() + profilePart() + costPart() +
         weatherPart() + comfortPart();
}

}  // namespace marloven::testing
