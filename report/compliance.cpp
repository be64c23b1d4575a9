#include "report/compliance.h"

#include <string>

#include "common/number_text.h"

namespace marloven {

namespace {

constexpr int kRoofExposure = 6;

struct Sums {
  double roofArea = 0, roofUA = 0, roofGlass = 0;
  double wallArea = 0, wallUA = 0, wallGlass = 0;
};

double uFactor(const std::array<CatalogType, kMaxTypeId + 1>& types, int id) {
  if (id < 0 || id > kMaxTypeId) return 0;
  return leadingNumber(types[static_cast<std::size_t>(id)].fields[2]);
}

Sums envelopeSums(const Project& p, const ZoneRecord& z) {
  Sums s;
  for (int k = 1; k <= z.rowCount && k <= kMaxSurfaceRows; ++k) {
    const EnvelopeRow& r = z.rows[k];
    if (r.surfaceExposure > kRoofExposure) continue;
    const double gross = r.wallArea;
    const double glass = r.windowArea;
    double ua = (gross - glass) * uFactor(p.walls, r.wallId);
    if (r.windowId > 0) ua += glass * uFactor(p.windows, r.windowId);
    const bool roof = r.surfaceExposure == kRoofExposure;
    (roof ? s.roofArea : s.wallArea) += gross;
    (roof ? s.roofUA : s.wallUA) += ua;
    (roof ? s.roofGlass : s.wallGlass) += glass;
  }
  return s;
}

std::optional<float> quotient(double num, double den, int digits, double scale = 1) {
  if (den == 0) return std::nullopt;
  return roundTo(scale * num / den, digits);
}

EnvelopeFigures envelopeFigures(const Sums& s) {
  EnvelopeFigures e;
  e.roofUA = roundTo(s.roofUA, 1);
  e.roofArea = roundTo(s.roofArea, 1);
  e.roofGlass = roundTo(s.roofGlass, 1);
  e.wallUA = roundTo(s.wallUA, 1);
  e.wallArea = roundTo(s.wallArea, 1);
  e.wallGlass = roundTo(s.wallGlass, 1);
  e.roofU = quotient(e.roofUA, e.roofArea, 3);
  e.roofGlassPercent = quotient(e.roofGlass, e.roofArea, 1, 100);
  e.wallU = quotient(e.wallUA, e.wallArea, 3);
  e.wallGlassPercent = quotient(e.wallGlass, e.wallArea, 1, 100);
  e.envelopeUA = e.roofUA + e.wallUA;
  e.envelopeArea = e.roofArea + e.wallArea;
  e.overallU = quotient(e.envelopeUA, e.envelopeArea, 3);
  return e;
}

void rates(ComplianceFigures& f) {
  f.lightingPowerDensity = quotient(f.watts, f.floorArea, 2);
  f.ventilationPerPerson = quotient(f.ventilation, f.people, 2);
  f.ventilationPerFloorArea = quotient(f.ventilation, f.floorArea, 3);
}

}  // namespace

BuildingCompliance computeCompliance(const Project& p) {
  BuildingCompliance out;
  Sums building;
  double watts = 0, ventilation = 0, people = 0;
  // A zone whose outside air has no known kind keeps the multiplier of the
  // zone before it.
  double multiplier = 0;
  for (int i = 1; i <= p.zoneCount && i <= kMaxZones; ++i) {
    const ZoneRecord& z = p.zones[i];
    if (z.listedFloorArea == 0) continue;
    const Sums s = envelopeSums(p, z);
    building.roofArea += s.roofArea;
    building.roofUA += s.roofUA;
    building.roofGlass += s.roofGlass;
    building.wallArea += s.wallArea;
    building.wallUA += s.wallUA;
    building.wallGlass += s.wallGlass;

    const double area = leadingNumber(z.fields[kZoneFloorArea]);
    const double zonePeople = leadingNumber(z.fields[kPeople]);
    watts += area * leadingNumber(z.fields[kLightingPower]);
    const std::string& air = z.fields[kOutsideAir];
    const std::string code = air.substr(0, 2);
    const double rate = air.size() > 2 ? leadingNumber(std::string_view(air).substr(2)) : 0.0;
    if (code == "CP") multiplier = zonePeople;
    else if (code == "CS") multiplier = area;
    else if (code == "PA") multiplier = area / 100;
    const double zoneVentilation = rate * multiplier;
    ventilation += zoneVentilation;
    people += zonePeople;

    ZoneCompliance zc;
    zc.zone = i;
    ComplianceFigures& f = zc.figures;
    f.envelope = envelopeFigures(s);
    f.watts = roundTo(area * leadingNumber(z.fields[kLightingPower]), 1);
    f.floorArea = static_cast<float>(area);
    f.ventilation = roundTo(zoneVentilation, 1);
    f.people = static_cast<float>(zonePeople);
    rates(f);
    out.zones.push_back(zc);
  }
  ComplianceFigures& b = out.building;
  b.envelope = envelopeFigures(building);
  b.watts = roundTo(watts, 1);
  b.floorArea = roundTo(leadingNumber(p.data[kFloorArea]), 0);
  b.ventilation = roundTo(ventilation, 1);
  b.people = static_cast<float>(people);
  rates(b);
  return out;
}

}  // namespace marloven
