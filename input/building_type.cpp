#include "input/building_type.h"

#include "common/file_error.h"
#include "common/file_io.h"
#include "common/masks.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "project/unit_conversion.h"

namespace marloven {

const std::array<const char*, kBuildingTypes + 1> kBuildingTypeCaptions = {
    "",
    "Auditorium",
    "Automotive facility",
    "Bank building",
    "Convention center",
    "Court house",
    "Dining: bar lounge/ leisure",
    "Dining: Cafeteria/ fast food",
    "Dining: Family",
    "Dormitory",
    "Exercise center",
    "Fire station",
    "Grocery store",
    "Gymnasium",
    "Healthcare/ clinic/ nursing home",
    "Hospital",
    "Hotel",
    "Laundromat",
    "Library",
    "Manufacturing facility/ plant",
    "Motel",
    "Motion picture theater",
    "Museum",
    "Nursing Home",
    "Office building",
    "Parking garage",
    "Penitentiary",
    "Performing arts theater",
    "Police station",
    "Post office",
    "Religious building",
    "Residential: single/ multi-family",
    "Restaurant: Bar lounge/ leisure",
    "Restaurant: Cafeteria/ fast food",
    "Restaurant: Family",
    "Retail store/ showroom",
    "School/ Elementary",
    "School/ Secondary/ University",
    "Sports arena",
    "Town hall",
    "Transportation/ bus/ airport",
    "Warehouse",
    "Workshop"};

namespace {

// The file's lines, 1-based, by what they hold.
constexpr int kFirstProjectLine = 1;
constexpr int kFirstEconomicsLine = 13;
constexpr int kDemandLine = 24;
constexpr int kFirstZoneLine = 28;  // zone field 4
constexpr int kNaturalVentLine = 55;
constexpr int kLastNumberedZone = 98;

// A converted default: the file's number through the factor, rounded, as bare
// number text right-aligned in `width`.
std::string converted(std::string_view text, Factor f, int digits, std::size_t width) {
  return applyMask(bare(roundTo(f.apply(leadingNumber(text)), digits)), std::string(width, '@'));
}

struct ZoneConversion {
  int field;
  Factor factor;
  int digits;
  std::size_t width;
};

// The zone defaults of an SI project (the file is I-P).
constexpr std::array<ZoneConversion, 11> kZoneToSI = {{
    {kInternalMass, times(4.882428), 1, 5},
    {kPeople, times(0.09290304), 1, 5},  // the file's floor area per person
    {kHotWaterPerPerson, times(3.7854125), 1, 5},
    {kLightingCost, over(0.09290304), 1, 5},
    {kLightingPower, over(0.09290304), 1, 5},
    {kEquipmentLoad, over(0.09290304), 1, 5},
    {kNaturalVentRate, times(18.28799833), 1, 5},
    {kDaylitDepth, times(0.3048), 1, 5},
    {kTargetIlluminance, times(10.7639104), 0, 4},
    {kStaticPressure, times(248.8), 1, 6},
    {kCoolingEfficiency, over(3.412141), 1, 6},
}};

// The outside air line of an SI project: the kind stays in front of the
// converted number. A "PA" value is one no unit change touches.
std::string outsideAirToSI(const std::string& text) {
  const OutsideAir air = splitOutsideAir(text);
  if (air.kind == "PA") return text;
  return air.kind + converted(air.number, times(1.69901064), 3, 7);
}

std::string zoneDefault(int field, const std::string& value, UnitSystem units) {
  if (units != UnitSystem::SI) return value;
  if (field == kOutsideAir) return outsideAirToSI(value);
  for (const ZoneConversion& c : kZoneToSI)
    if (c.field == field) return converted(value, c.factor, c.digits, c.width);
  return value;
}

}  // namespace

std::string buildingTypeValue(std::string_view line) {
  std::string_view v = line.substr(0, 20);
  const std::size_t last = v.find_last_not_of(' ');
  return std::string(last == std::string_view::npos ? std::string_view() : v.substr(0, last + 1));
}

void loadBuildingType(const std::string& installDir, int n, int year, ProjectInfoBoxes& boxes,
                      Project& p) {
  if (n < 1 || n > kBuildingTypes) throw FileError(err::kSubscriptOutOfRange, "building type");
  const std::string path = joinPath(installDir, "btype/bdtype" + std::to_string(n) + ".dat");
  const std::vector<std::string> lines = splitLines(readFile(path));
  if (lines.size() < kBuildingTypeLines) throw FileError(err::kInputPastEnd, path);
  auto line = [&](int number) -> const std::string& { return lines[number - 1]; };
  auto value = [&](int number) { return buildingTypeValue(line(number)); };
  const bool si = p.units == UnitSystem::SI;

  ProjectInfoBoxes b = boxes;
  for (int i = 0; i < kProjectDataCount; ++i) {
    const int number = kFirstProjectLine + i;
    switch (i) {
      case kBuildingType: b[i] = line(number); break;
      case kLocation:
      case kOrientation:
        if (b[i].empty()) b[i] = value(number);
        break;
      case kFloorArea:
        if (b[i].empty() || b[i] == "0") b[i] = value(number);
        break;
      case kConstructionYear: b[i] = bare(year); break;
      case kConstructionCost:
        b[i] = si ? converted(value(number), times(10.76391), 2, 6) : value(number);
        break;
      default: b[i] = value(number);
    }
  }

  std::array<std::string, kEconomicsCount> economics;
  for (int i = 0; i < kEconomicsCount; ++i) {
    economics[i] = value(kFirstEconomicsLine + i);
    if (si && i == kGasCost) economics[i] = converted(economics[i], over(0.1055054762), 2, 6);
    if (si && i == kWaterCost) economics[i] = converted(economics[i], over(3.7854125), 2, 6);
  }

  // Everything is read; now the project changes.
  p.flags.fromFile = false;
  boxes = b;
  p.data = b;
  p.economics = economics;
  p.demand.text = line(kDemandLine).substr(0, 1);
  for (int field = kInternalMass; field <= kZoneFieldCount; ++field) {
    const std::string v = zoneDefault(field, value(kFirstZoneLine + field - kInternalMass), p.units);
    for (int z = 1; z <= kLastNumberedZone; ++z) {
      if (field == kPeople)
        p.zones[z].floorAreaPerPerson = static_cast<float>(leadingNumber(v));
      else
        p.zones[z].fields[field] = v;
    }
  }
  for (int z = 1; z <= kMaxZones; ++z) {
    p.zones[z].naturalVent = line(kNaturalVentLine).substr(0, 5);
    p.zones[z].daylight = line(kNaturalVentLine + 1).substr(0, 5);
    p.zones[z].economizer = line(kNaturalVentLine + 2).substr(0, 5);
  }
  p.flags.buildingTypeChosen = true;
  // The other zones are given the type's profiles when they are opened.
  ZoneRecord& current = p.zones[p.currentZone];
  for (int field : {kOccProfile, kHotWaterProfile, kVentProfile, kLightProfile})
    current.fields[field] = padded(n);
}

}  // namespace marloven
