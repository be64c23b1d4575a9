#include "results/run_summary.h"

#include <cmath>
#include <cstdio>
#include <sstream>

#include "common/file_error.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"

namespace marloven {

namespace {

std::string fixed(double v, int decimals) {
  char b[48];
  std::snprintf(b, sizeof b, "%.*f", decimals, v);
  return b;
}

// The number behind a label somewhere in the report.
double numberAfter(const std::vector<std::string>& lines, std::string_view label) {
  for (const std::string& l : lines) {
    const std::size_t at = l.find(label);
    if (at != std::string::npos) return leadingNumber(std::string_view(l).substr(at + label.size()));
  }
  throw FileError(62, std::string(label));
}

std::string csvText(const std::string& s) {
  std::string out = "\"";
  for (char c : s) out += c == '"' ? std::string("\"\"") : std::string(1, c);
  return out + "\"";
}

std::string trimmed(const std::string& s) {
  const std::size_t a = s.find_first_not_of(' ');
  return a == std::string::npos ? std::string() : s.substr(a, s.find_last_not_of(' ') - a + 1);
}

}  // namespace

ReadStatus readRunSummary(const std::string& scratchDir, RunSummary& s) {
  ChartTables t;
  ReadStatus st = readSiteEnergy(scratchDir, t);
  if (!st.ok()) return st;
  st = readLoadBreakdown(scratchDir, LoadColumn::PeakHeating, t);
  if (!st.ok()) return st;
  st = readLoadBreakdown(scratchDir, LoadColumn::PeakCooling, t);
  if (!st.ok()) return st;
  return trapped(false, [&] {
    const std::vector<std::string> lines = splitLines(readFile(joinPath(scratchDir, kEngineOutputFile)));
    s.units = t.units;
    s.project = trimmed(t.site.projectCaption);
    s.siteTotal = 0;
    for (int u = kSpaceHeating; u <= kEquipment; ++u) {
      s.endUse[u] = leadingNumber(t.site.endUse[u]);
      s.siteTotal += s.endUse[u];
    }
    if (!trimmed(t.site.total).empty()) s.siteTotal = leadingNumber(t.site.total);
    s.floorArea = numberAfter(lines, "Bldg Floor Area  =");
    // MBtu per ft2 to kBtu, GJ per m2 to MJ: both a thousand.
    s.intensity = s.floorArea > 0 ? s.siteTotal * 1000.0 / s.floorArea : 0.0;
    // The load table gives heating as negative; the summary speaks of sizes.
    s.peakHeating = std::abs(leadingNumber(t.loads[static_cast<int>(LoadColumn::PeakHeating)].value[kLoadTotal]));
    s.peakCooling = leadingNumber(t.loads[static_cast<int>(LoadColumn::PeakCooling)].value[kLoadTotal]);
    s.unmetHours = static_cast<int>(numberAfter(lines, "UNMET HOURS:"));
  });
}

std::string summaryText(const RunSummary& s) {
  const bool si = s.units == OutputUnits::SI;
  const std::string energy = si ? "GJ" : "MBtu", load = si ? "kW" : "kBtu/h";
  static constexpr std::array<const char*, 7> kNames = {"",          "space heating", "water heating", "space cooling",
                                                        "fan motors", "lighting",      "equipment"};
  std::ostringstream out;
  out << "site energy by end use (" << energy << "):\n";
  for (int u = kSpaceHeating; u <= kEquipment; ++u) out << "  " << kNames[u] << "  " << fixed(s.endUse[u], 1) << "\n";
  out << "total site energy  " << fixed(s.siteTotal, 1) << " " << energy << "\n";
  out << "energy use intensity  " << fixed(s.intensity, 1) << (si ? " MJ/m2" : " kBtu/ft2") << " (floor area "
      << fixed(s.floorArea, 0) << (si ? " m2" : " ft2") << ")\n";
  out << "peak heating  " << fixed(s.peakHeating, 1) << " " << load << "\n";
  out << "peak cooling  " << fixed(s.peakCooling, 1) << " " << load << "\n";
  out << "unmet hours  " << s.unmetHours << "\n";
  return out.str();
}

std::string summaryCsvHeader() {
  return "run,units,space_heating,water_heating,space_cooling,fan_motors,lighting,equipment,site_total,"
         "floor_area,intensity,peak_heating,peak_cooling,unmet_hours\n";
}

std::string summaryCsvLine(const std::string& name, const RunSummary& s) {
  std::string line = csvText(name) + "," + (s.units == OutputUnits::SI ? "SI" : "IP");
  for (int u = kSpaceHeating; u <= kEquipment; ++u) line += "," + fixed(s.endUse[u], 1);
  line += "," + fixed(s.siteTotal, 1) + "," + fixed(s.floorArea, 0) + "," + fixed(s.intensity, 2) + "," +
          fixed(s.peakHeating, 1) + "," + fixed(s.peakCooling, 1) + "," + std::to_string(s.unmetHours) + "\n";
  return line;
}

}  // namespace marloven
