#include "project/project_writer.h"

#include "common/file_io.h"
#include "common/text_lines.h"
#include "project/design_temperature.h"

namespace marloven {

namespace {

void labelled(ColumnPrinter& out, const char* label, const std::string& value) {
  out.text(label).text(value).endLine();
}

// A project or economics value never entered is written as "0.0".
const std::string& orZero(const std::string& s) {
  static const std::string zero = "0.0";
  return s.empty() ? zero : s;
}

void writeTypes(ColumnPrinter& out, const std::array<CatalogType, kMaxTypeId + 1>& table,
                const std::array<const char*, 7>& labels) {
  for (int i = 1; i <= kTypesInFile; ++i) {
    if (table[i].id().empty()) continue;
    for (int f = 0; f < 7; ++f) labelled(out, labels[f], table[i].fields[f]);
  }
  out.line("9999");
}

void writeRow(ColumnPrinter& out, const EnvelopeRow& r) {
  const auto& L = kRowLabels;
  out.text(L[0]).number(r.wallId).endLine();
  out.text(L[1]).number(r.wallArea).endLine();
  out.text(L[2]).number(r.wallOrientation).endLine();
  out.text(L[3]).number(r.surfaceExposure).endLine();
  out.text(L[4]).text(r.externalShading).endLine();
  out.text(L[5]).number(r.windowId).endLine();
  out.text(L[6]).number(r.windowArea).endLine();
  out.text(L[7]).number(r.slope).endLine();
  out.text(L[8]).text(r.surfaceCode).endLine();
  out.text(L[9]).number(r.venetianBlind).endLine();
  out.text(L[10]).number(r.diffuseTransmittance).endLine();
  out.text(L[11]).number(r.sillHeight).endLine();
  out.text(L[12]).number(r.windowHeight).endLine();
  out.text(L[13]).number(r.groundReflectance).endLine();
}

void writeZone(ColumnPrinter& out, ZoneRecord& z, bool& daylightingInUse) {
  std::string& air = z.fields[kOutsideAir];
  if (!hasOutsideAirKind(air)) air = "CP" + air;  // kept in the model too
  for (int f = kZoneId; f <= kHeatingType; ++f) labelled(out, kZoneLabels[f], z.fields[f]);
  labelled(out, "Nat. Vent ", z.naturalVent);
  labelled(out, kZoneLabels[kNaturalVentRate], z.fields[kNaturalVentRate]);
  labelled(out, kZoneLabels[kInfiltration], z.fields[kInfiltration]);
  labelled(out, "Daylight  ", z.daylight);
  if (isDaylightYes(z.daylight)) daylightingInUse = true;
  labelled(out, kZoneLabels[kDaylitDepth], z.fields[kDaylitDepth]);
  labelled(out, kZoneLabels[kTargetIlluminance], z.fields[kTargetIlluminance]);
  labelled(out, "Econ.Cycle", z.economizer);
  for (int f = kStaticPressure; f <= kMaintenanceCost; ++f) labelled(out, kZoneLabels[f], z.fields[f]);
  for (int k = 1; k <= z.rowCount && k <= kMaxSurfaceRows; ++k) writeRow(out, z.rows[k]);
  out.line("9999");
}

}  // namespace

void printHeader(ColumnPrinter& out, const std::string& seed, int weeksPerMonth, UnitSystem marker) {
  out.text("MARLOVEN  ").text(seed).tab(21).number(weeksPerMonth).text(" ");
  out.text(marker == UnitSystem::SI ? "SI" : "IP").endLine();
}

void writeProjectStraight(ColumnPrinter& out, Project& p, const std::vector<std::string>& sketchLines) {
  for (int i = 0; i < kProjectDataCount; ++i) labelled(out, kProjectDataLabels[i], orZero(p.data[i]));

  out.line("WEATHER");
  for (int i = 1; i <= kWeatherLines; ++i) out.line(p.weather.lines[i]);

  if (designTemperaturesNeeded(p)) estimateDesignTemperatures(p);
  out.text("DesTemps  ");
  for (int i = 1; i <= 3; ++i) out.text(p.designTemps.values[i]).text(" ");
  out.endLine();

  out.line("ECONOMICS");
  for (int i = 0; i < kEconomicsCount; ++i) labelled(out, kEconomicsLabels[i], orZero(p.economics[i]));
  const bool schedule = p.demand.pairCount > 0;
  labelled(out, "DemCharge ", schedule ? p.demand.text : std::string(" N"));
  if (schedule) {
    out.text("DemChgRate");
    for (int i = 1; i <= p.demand.pairCount && i <= kDemandPairs; ++i)
      out.text(" ").text(p.demand.pairs[i].first).text(" ").text(p.demand.pairs[i].second);
    out.endLine();
  }

  out.line("WALL AND ROOF PROPERTIES");
  writeTypes(out, p.walls, kWallLabels);
  out.line("WINDOW PROPERTIES");
  writeTypes(out, p.windows, kWindowLabels);

  out.line("PROFILES");
  for (int k = 1; k <= kProfileKinds; ++k) {
    out.line(kProfileKindNames[k]);
    const int limit = k == static_cast<int>(ProfileKind::Temp) ? kTempProfilesInFile : kMaxProfiles;
    for (int i = 1; i <= limit; ++i) {
      const Profile& pr = p.profiles.kinds[k][i];
      if (pr.id.empty()) continue;
      out.line(pr.id).line(pr.values);
    }
    out.line("99");
  }

  out.line("ZONES");
  for (int z = 1; z <= p.zoneCount && z <= kMaxZones; ++z)
    if (!p.zones[z].fields[kZoneId].empty()) writeZone(out, p.zones[z], p.flags.daylightingInUse);

  out.line("BUILDING MATRIX");
  for (const std::string& l : sketchLines) out.line(l);
}

std::vector<std::string> readSketchLines(const std::string& installDir) {
  return splitLines(readFile(joinPath(installDir, "sketch/bld_mtx.all")));
}

}  // namespace marloven
