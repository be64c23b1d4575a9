#include "project/project_writer.h"

#include "common/file_io.h"
#include "common/number_text.h"
#include "common/split.h"
#include "common/text_lines.h"
#include "project/design_temperature.h"
#include "project/unit_conversion.h"

namespace marloven {

namespace {

// A converted field: the factor to each system with its digits and mask.
struct Rule {
  Factor toIp;
  int ipDigits;
  std::string_view ipMask;
  Factor toSi;
  int siDigits;
  std::string_view siMask;
};

constexpr Rule kArea = {times(10.76391), 1, mask::B, times(0.09290304), 0, mask::B};
constexpr Rule kProjectArea = {times(10.76391), 1, mask::A, times(0.09290304), 0, mask::A};
constexpr Rule kProjectCost = {over(10.76391), 1, mask::A, over(0.09290304), 0, mask::A};
constexpr Rule kGasPrice = {over(9.478181), 2, mask::A, over(0.1055054762), 2, mask::A};
constexpr Rule kWaterPrice = {over(0.264172), 2, mask::A, over(3.7854125), 2, mask::A};
constexpr Rule kUFactor = {times(0.1761102), 3, mask::A, times(5.6782628), 3, mask::B};
constexpr Rule kInsulationCost = {over(10.76391), 2, mask::A, over(0.09290304), 2, mask::B};
constexpr Rule kDesignTemp = {kCToF, 1, mask::C, kFToC, 1, mask::E};
constexpr Rule kProfileTemp = {kCToF, 0, mask::D, kFToC, 1, mask::E};
constexpr Rule kSurfaceArea = {times(10.76391), 1, mask::B, times(0.09290304), 1, mask::B};
constexpr Rule kSurfaceLength = {times(3.28084), 1, mask::B, times(0.3048), 1, mask::B};
constexpr Rule kPerPerson = {over(0.47194744), 1, mask::B, times(0.47194744), 1, mask::B};
constexpr Rule kPerArea = {over(5.0799972), 3, mask::B, times(5.0799972), 3, mask::B};
constexpr Rule kPerFloorArea = {over(10.76391), 2, mask::B, times(10.76391), 2, mask::B};
constexpr Rule kSketchLength = {over(0.3048), 1, {}, times(0.3048), 2, {}};
constexpr Rule kSketchArea = {over(0.09290304), 1, {}, times(0.09290304), 1, {}};

// Zone fields converted by the writers, by index.
struct ZoneRule {
  int field;
  Rule rule;
};
constexpr ZoneRule kZoneRules[] = {
    {kZoneFloorArea, kArea},
    {kInternalMass, {times(0.2048161), 1, mask::B, times(4.882428), 1, mask::B}},
    {kHotWaterPerPerson, {times(0.264172), 1, mask::B, times(3.7854125), 1, mask::B}},
    {kLightingCost, kPerFloorArea},
    {kLightingPower, kPerFloorArea},
    {kEquipmentLoad, kPerFloorArea},
    {kNaturalVentRate, {over(5.0799972), 1, mask::B, times(5.0799972), 1, mask::B}},
    {kDaylitDepth, kSurfaceLength},
    {kTargetIlluminance, {times(0.09290304), 0, mask::B, times(10.7639104), 0, mask::B}},
    {kStaticPressure, {over(248.8), 1, mask::B, times(248.8), 1, mask::B}},
    {kCoolingEfficiency, {times(3.412141), 1, mask::B, over(3.412141), 1, mask::B}},
};

// The text of a stored value under a rule; the straight writer leaves it as it is.
std::string convertUnder(const std::string& value, const Rule& r, Conversion c) {
  switch (c) {
    case Conversion::ToIP: return convertText(value, r.toIp, r.ipDigits, r.ipMask);
    case Conversion::ToSI: return convertText(value, r.toSi, r.siDigits, r.siMask);
    default: return value;
  }
}

const Rule* zoneRule(int field) {
  for (const ZoneRule& z : kZoneRules)
    if (z.field == field) return &z.rule;
  return nullptr;
}

class Writer {
 public:
  Writer(ColumnPrinter& out, Project& p, Conversion c) : out_(out), p_(p), c_(c) {}

  void write(const std::vector<std::string>& sketchLines);

 private:
  bool converting() const { return c_ != Conversion::None; }

  std::string text(const std::string& value, const Rule& r) const { return convertUnder(value, r, c_); }
  void labelled(const char* label, const std::string& value) { out_.text(label).text(value).endLine(); }

  void projectData();
  void weather();
  void designTemperatures();
  void economics();
  void types(const std::array<CatalogType, kMaxTypeId + 1>& table, const std::array<const char*, 7>& labels);
  void profiles();
  void zone(ZoneRecord& z);
  void row(const EnvelopeRow& r);
  void sketch(const std::vector<std::string>& lines);

  ColumnPrinter& out_;
  Project& p_;
  Conversion c_;
};

// A project or economics value never entered is written as "0.0".
const std::string& orZero(const std::string& s) {
  static const std::string zero = "0.0";
  return s.empty() ? zero : s;
}

void Writer::projectData() {
  for (int i = 0; i < kProjectDataCount; ++i) {
    std::string v = orZero(p_.data[i]);
    if (i == kFloorArea) v = text(v, kProjectArea);
    if (i == kConstructionCost) v = text(v, kProjectCost);
    labelled(kProjectDataLabels[i], v);
  }
}

void Writer::weather() {
  const WeatherSummary& w = p_.weather;
  if (!converting()) {
    for (int i = 1; i <= kWeatherLines; ++i) out_.line(w.lines[i]);
    return;
  }
  out_.line(w.lines[1]);
  const std::string& line2 = w.lines[2];
  out_.text(line2.substr(0, line2.size() >= 6 ? line2.size() - 6 : 0)).tab(76);
  out_.text(convertText(padded(w.elevation), {}, c_ == Conversion::ToIP ? 0 : 1, mask::A)).endLine();
  out_.line(w.lines[3]);
  for (int tag = 1; tag <= 8; ++tag) {
    out_.text(kWeatherTags[tag - 1]);
    const int digits = tag == 7 ? 0 : 1;  // solar in whole units
    for (int m = 1; m <= 12; ++m) out_.text(convertText(w.months[tag][m], {}, digits, mask::C));
    out_.endLine();
  }
}

void Writer::designTemperatures() {
  out_.text("DesTemps  ");
  for (int i = 1; i <= 3; ++i) out_.text(text(p_.designTemps.values[i], kDesignTemp)).text(" ");
  out_.endLine();
}

void Writer::economics() {
  for (int i = 0; i < kEconomicsCount; ++i) {
    std::string v = orZero(p_.economics[i]);
    if (i == kGasCost) v = text(v, kGasPrice);
    if (i == kWaterCost) v = text(v, kWaterPrice);
    labelled(kEconomicsLabels[i], v);
  }
  const DemandChargeSchedule& d = p_.demand;
  const bool schedule = d.pairCount > 0;
  labelled("DemCharge ", schedule ? d.text : std::string(" N"));
  if (!schedule) return;
  out_.text("DemChgRate");
  for (int i = 1; i <= d.pairCount && i <= kDemandPairs; ++i)
    out_.text(" ").text(d.pairs[i].first).text(" ").text(d.pairs[i].second);
  out_.endLine();
}

void Writer::types(const std::array<CatalogType, kMaxTypeId + 1>& table, const std::array<const char*, 7>& labels) {
  for (int i = 1; i <= kTypesInFile; ++i) {
    if (table[i].id().empty()) continue;
    for (int f = 0; f < 7; ++f) {
      std::string v = table[i].fields[f];
      if (f == 2) v = text(v, kUFactor);
      if (f == 6) v = text(v, kInsulationCost);
      labelled(labels[f], v);
    }
  }
  out_.line("9999");
}

void Writer::profiles() {
  out_.line("PROFILES");
  for (int k = 1; k <= kProfileKinds; ++k) {
    out_.line(kProfileKindNames[k]);
    const bool temperature = k == static_cast<int>(ProfileKind::Temp);
    const int limit = temperature ? kTempProfilesInFile : kMaxProfiles;
    for (int i = 1; i <= limit; ++i) {
      const Profile& pr = p_.profiles.kinds[k][i];
      if (pr.id.empty()) continue;
      out_.line(pr.id);
      if (!temperature || !converting()) {
        out_.line(pr.values);
        continue;
      }
      const auto values = splitBlanks(pr.values, 24);
      for (std::size_t h = 0; h < 24; ++h) out_.text(text(h < values.size() ? values[h] : std::string(), kProfileTemp));
      out_.endLine();
    }
    out_.line("99");
  }
}

void Writer::row(const EnvelopeRow& r) {
  const auto& L = kRowLabels;
  // Converted surface values go out as text, the others as printed numbers.
  auto measure = [&](int label, float v, const Rule& rule) {
    if (converting())
      out_.text(L[label]).text(text(padded(v), rule)).endLine();
    else
      out_.text(L[label]).number(v).endLine();
  };
  out_.text(L[0]).number(r.wallId).endLine();
  measure(1, r.wallArea, kSurfaceArea);
  out_.text(L[2]).number(r.wallOrientation).endLine();
  out_.text(L[3]).number(r.surfaceExposure).endLine();
  out_.text(L[4]).text(r.externalShading).endLine();
  out_.text(L[5]).number(r.windowId).endLine();
  measure(6, r.windowArea, kSurfaceArea);
  out_.text(L[7]).number(r.slope).endLine();
  out_.text(L[8]).text(r.surfaceCode).endLine();
  out_.text(L[9]).number(r.venetianBlind).endLine();
  out_.text(L[10]).number(r.diffuseTransmittance).endLine();
  measure(11, r.sillHeight, kSurfaceLength);
  measure(12, r.windowHeight, kSurfaceLength);
  out_.text(L[13]).number(r.groundReflectance).endLine();
}

// Outside air: the kind's two letters in front of the converted number, whose
// leading blank is dropped; "PA" values are left as they are.
std::string outsideAir(const std::string& value, Conversion c) {
  const OutsideAir air = splitOutsideAir(value);
  if (c == Conversion::None || air.kind == "PA") return value;
  const Rule& r = air.kind == "CS" ? kPerArea : kPerPerson;
  const std::string n = convertUnder(air.number, r, c);
  return air.kind + (n.rfind(' ', 0) == 0 ? n.substr(1) : n);
}

void Writer::zone(ZoneRecord& z) {
  std::string& air = z.fields[kOutsideAir];
  if (!hasOutsideAirKind(air)) air = "CP" + air;  // kept in the model too
  auto field = [&](int f) {
    const Rule* r = zoneRule(f);
    const std::string v = f == kOutsideAir ? outsideAir(z.fields[f], c_) : r ? text(z.fields[f], *r) : z.fields[f];
    const char* label = f == kNaturalVentRate && c_ == Conversion::ToSI ? "Litre/sec " : kZoneLabels[f];
    labelled(label, v);
  };
  for (int f = kZoneId; f <= kHeatingType; ++f) field(f);
  labelled("Nat. Vent ", z.naturalVent);
  field(kNaturalVentRate);
  field(kInfiltration);
  labelled("Daylight  ", z.daylight);
  if (isDaylightYes(z.daylight)) p_.flags.daylightingInUse = true;
  field(kDaylitDepth);
  field(kTargetIlluminance);
  labelled("Econ.Cycle", z.economizer);
  for (int f = kStaticPressure; f <= kMaintenanceCost; ++f) field(f);
  for (int k = 1; k <= z.rowCount && k <= kMaxSurfaceRows; ++k) {
    const EnvelopeRow& r = z.rows[k];
    if (c_ == Conversion::ToIP && (r.wallId == 0 || r.windowId == 0 || r.surfaceExposure == 0)) break;
    row(r);
  }
  out_.line("9999");
}

// The sketch, level by level: six header lines (grid size and room height are
// lengths, the two floor areas areas), the zone name lines, then the grid rows,
// copied unchanged.
void Writer::sketch(const std::vector<std::string>& lines) {
  if (!converting()) {
    for (const std::string& l : lines) out_.line(l);
    return;
  }
  LineReader in(lines);
  const bool toIp = c_ == Conversion::ToIP;
  while (!in.atEnd()) {
    for (int h = 1; h <= 6; ++h) {
      const std::string line = in.next();
      out_.text(midText(line, 1, 13));
      if (h == 2 || h == 3) {
        out_.text(fromColumn(line, 14)).endLine();
        continue;
      }
      const Rule& r = h == 1 || h == 4 ? kSketchLength : kSketchArea;
      const double v = (toIp ? r.toIp : r.toSi).apply(leadingNumber(fromColumn(line, 15)));
      out_.number(roundTo(v, toIp ? r.ipDigits : r.siDigits)).endLine();
    }
    std::string held = in.next();
    int zoneLines = 0;
    while (held.rfind("Zone", 0) == 0) {
      out_.line(held);
      ++zoneLines;
      held = in.next();
    }
    const int rows = zoneLines == 10 ? 31 : 60;
    for (int i = 1; i <= rows - 1; ++i) {
      out_.line(held);
      held = in.next();
    }
    out_.line(held);
  }
}

void Writer::write(const std::vector<std::string>& sketchLines) {
  projectData();

  out_.line("WEATHER");
  if (c_ == Conversion::ToSI) {
    // Typed temperatures are replaced by estimated ones before they are converted.
    estimateDesignTemperatures(p_);
    weatherToSI(p_);
  } else if (c_ == Conversion::ToIP) {
    parseWeatherLines(p_);
  } else if (designTemperaturesNeeded(p_)) {
    estimateDesignTemperatures(p_);
  }
  weather();
  designTemperatures();

  out_.line("ECONOMICS");
  economics();

  out_.line("WALL AND ROOF PROPERTIES");
  types(p_.walls, kWallLabels);
  out_.line("WINDOW PROPERTIES");
  types(p_.windows, kWindowLabels);

  profiles();

  out_.line("ZONES");
  for (int z = 1; z <= p_.zoneCount && z <= kMaxZones; ++z)
    if (!p_.zones[z].fields[kZoneId].empty()) zone(p_.zones[z]);

  out_.line("BUILDING MATRIX");
  sketch(sketchLines);
}

}  // namespace

void printHeader(ColumnPrinter& out, const std::string& seed, int weeksPerMonth, UnitSystem marker) {
  out.text("MARLOVEN  ").text(seed).tab(21).number(weeksPerMonth).text(" ");
  out.text(marker == UnitSystem::SI ? "SI" : "IP").endLine();
}

void writeProject(ColumnPrinter& out, Project& p, const std::vector<std::string>& sketchLines,
                  Conversion conversion) {
  Writer(out, p, conversion).write(sketchLines);
}

UnitSystem targetUnits(UnitSystem current, Conversion conversion) {
  switch (conversion) {
    case Conversion::ToIP: return UnitSystem::IP;
    case Conversion::ToSI: return UnitSystem::SI;
    default: return current;
  }
}

std::vector<std::string> readSketchLines(const std::string& installDir) {
  return splitLines(readFile(joinPath(installDir, "sketch/bld_mtx.all")));
}

}  // namespace marloven
