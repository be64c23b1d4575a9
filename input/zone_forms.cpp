#include "input/zone_forms.h"

#include <cmath>

#include "common/error_report.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "common/keys.h"
#include "common/masks.h"
#include "common/number_text.h"
#include "common/text_lines.h"

namespace marloven {

namespace {

const std::array<const char*, kZoneFieldCount + 1> kCaptions = {
    "",
    "Zone No:",
    "",
    "Floor Area:",
    "Internal Floor Mass:",
    "No. of  people",
    "Prof. No.",
    "Gal/day /person",
    "Prof. No.",
    "Rate",
    "Prof.  No.",
    "Light. Type",
    " Cost  $/sq.ft.",
    "Watt/sq.ft.\nLight",
    "Watt/sq.ft.\nEquip",
    "Prof. No.",
    " Normal\n  S",
    " Normal\n W",
    "Holiday\n  S",
    "Holiday\n W",
    "AC type\n 1 to 9",
    "Heating\n 1 to 3",
    "Nat. Vent.  cfm/sq.ft.",
    " Infiltration Rate (ACH)",
    "Daylighting   Depth (ft)",
    "Target Ft  Candles",
    "Static  Pres.",
    " Cool. SEER",
    "Heat  COP",
    "Cost ($/ton)\nFirst",
    "Cost ($/ton)\n Maint.  Cost"};

std::string boxCaptionOf(int i, bool si) {
  if (si) {
    switch (i) {
      case kHotWaterPerPerson: return "Ltr/day /person";
      case kLightingCost: return " Cost  $/sq.m.";
      case kLightingPower: return "Watt/ sq.m.\nLight";
      case kEquipmentLoad: return "Watt/ sq.m.\nEquip";
      case kNaturalVentRate: return "Nat. Vent. L/s/sq.m.";
      case kDaylitDepth: return "Daylighting   Depth (m)";
      case kTargetIlluminance: return "  Target       Lux";
      case kCoolingEfficiency: return " Cool.  COP";
      default: break;
    }
  }
  return kCaptions.at(static_cast<std::size_t>(i));
}

bool isProfileBox(int i) { return i == 6 || i == 8 || i == 10 || i == 15 || (i >= 16 && i <= 19); }

bool yes(const std::string& s) { return s == " Yes" || s == "Yes"; }
bool no(const std::string& s) { return s.empty() || s == " " || s == " No" || s == "No"; }

// A catalog line's columns, 1-based and inclusive.
std::string cols(const std::string& line, std::size_t first, std::size_t last) {
  return std::string(midText(line, first, last - first + 1));
}

std::string costText(double v) { return applyMask(bare(roundTo(v, 2)), "@@@@@"); }

}  // namespace

double maintenanceFactor(int acType) {
  if (acType < 4) return 0.037;
  if (acType == 4) return 0.04;
  return 0.045;
}

// ------------------------------------------------------------------ zone list

std::string ZoneListForm::caption() const { return "ZONE NAMES -- " + state_.project.fileName; }

const std::array<const char*, 3>& ZoneListForm::headings() {
  static const std::array<const char*, 3> h = {"Zone Number", "Zone Name", "Zone Sequence"};
  return h;
}

const char* ZoneListForm::note() {
  return "NOTE:  Double Click on the Zone Number, or Click on the Zone Number and then click OK for further "
         "input, or Press Menu to go to Main Menu.";
}

bool ZoneListForm::openZone(int row) {
  Project& p = state_.project;
  if (row < 1 || row >= ZoneListGrid::kRows) return false;
  p.currentZone = row;
  if (state_.zoneList.cells[static_cast<std::size_t>(row)][0].empty()) {
    prompt_.beep();
    prompt_.message(Icon::Exclamation, "Error", "Zone does not exist.  Select another zone.");
    return false;
  }
  // A zone that never chose a profile points to the building type's own, in
  // the model as well as on the screen.
  ZoneRecord& z = p.zones[static_cast<std::size_t>(row)];
  for (int f : {kOccProfile, kHotWaterProfile, kVentProfile, kLightProfile})
    if (leadingNumber(z.fields[static_cast<std::size_t>(f)]) == 0)
      z.fields[static_cast<std::size_t>(f)] = padded(state_.buildingTypeNumber);
  return true;
}

bool ZoneListForm::back() {
  Project& p = state_.project;
  float gross = 0;
  std::string unopened;
  for (int z = 1; z <= p.zoneCount; ++z) {
    ZoneRecord& zone = p.zones[static_cast<std::size_t>(z)];
    gross += zone.listedFloorArea;
    if (!zone.opened) unopened += zone.fields[kZoneId] + ", ";
    zone.exists = true;
  }
  p.data[kFloorArea] = padded(gross);
  for (int z = 1; z <= p.zoneCount; ++z) {
    if (p.zones[static_cast<std::size_t>(z)].opened) continue;
    prompt_.beep();
    const std::string list = unopened.substr(0, unopened.size() >= 2 ? unopened.size() - 2 : 0);
    if (prompt_.ask(Buttons::YesNo, Icon::Exclamation, "Warning",
                    "You have just sketched your building, but you have not opened zone(s) :  " + list +
                        ".   Do you really want to go to Main Menu ?") != Answer::Yes)
      return false;
    break;
  }
  p.flags.stepDone[5] = true;
  return true;
}

// ---------------------------------------------------------- ventilation rate

VentilationForm::VentilationForm(Prompt& prompt, UnitSystem units, const std::string& field9)
    : prompt_(prompt), units_(units) {
  const std::string kind = field9.substr(0, 2);
  for (int i = 0; i < 3; ++i)
    if (kind == kPrefixes[static_cast<std::size_t>(i)]) {
      rows_[static_cast<std::size_t>(i)] = field9.substr(2);
      active_ = i;
    }
  if (active_ < 0) {
    rows_[0] = field9;
    active_ = 0;
  }
}

std::string VentilationForm::caption(int row) const {
  const bool si = units_ == UnitSystem::SI;
  switch (row) {
    case 0: return si ? "L/s per person" : "CFM/person";
    case 1: return si ? "L/s per sq.m." : "CFM/sq.ft";
    default: return "% outside air";
  }
}

void VentilationForm::click(int row) {
  // An empty row takes nobody's place: all three go grey.
  active_ = rows_.at(static_cast<std::size_t>(row)).empty() ? -1 : row;
}

bool VentilationForm::keyPress(int row, char k) {
  if (!(k == key::kEnter || k == key::kBackspace || k == '.' || k == key::kTab || key::isDigit(k))) {
    prompt_.beep();
    prompt_.message(Icon::Exclamation, "Error", "You should use numerical value.");
    return false;
  }
  active_ = row;
  return true;
}

std::optional<std::string> VentilationForm::clickOk() {
  if (active_ >= 0 && !rows_[static_cast<std::size_t>(active_)].empty()) {
    std::string t = rows_[static_cast<std::size_t>(active_)];
    t.erase(0, t.find_first_not_of(' ') == std::string::npos ? t.size() : t.find_first_not_of(' '));
    return std::string(kPrefixes[static_cast<std::size_t>(active_)]) + t;
  }
  prompt_.beep();
  prompt_.message(Icon::Exclamation, "Error", "Please enter the ventilation rate");
  return std::nullopt;
}

// ---------------------------------------------------------- zone description

void ZoneForm::open() {
  Project& p = state_.project;
  const ZoneRecord& z = p.zones.at(static_cast<std::size_t>(p.currentZone));
  for (int i = 1; i <= kBoxes; ++i) boxes_[static_cast<std::size_t>(i)] = z.fields[static_cast<std::size_t>(i)];
  auto normal = [](const std::string& s) {
    return s == " Yes" || s == " yes" || s == "yes" || s == "Yes" ? std::string("Yes") : std::string("No");
  };
  toggles_ = {normal(z.naturalVent), normal(z.daylight), normal(z.economizer)};
  undoField_ = 0;
  state_.zoneEditing.lastTouchedField = 0;
  state_.zoneEditing.fieldChanged[static_cast<std::size_t>(p.currentZone)].fill(false);
}

void ZoneForm::reloadFromZone() {
  const ZoneRecord& z = state_.project.zones.at(static_cast<std::size_t>(zone()));
  for (int i = 1; i <= kBoxes; ++i) boxes_[static_cast<std::size_t>(i)] = z.fields[static_cast<std::size_t>(i)];
  auto normal = [](const std::string& t) {
    return t == " Yes" || t == " yes" || t == "yes" || t == "Yes" ? std::string("Yes") : std::string("No");
  };
  toggles_ = {normal(z.naturalVent), normal(z.daylight), normal(z.economizer)};
}

void ZoneForm::profilesClosed(int kind, std::optional<int> chosen) {
  reloadFromZone();
  if (!chosen || kind < 1 || kind > 4) return;
  const int box = kind == 4 ? kLightProfile : 2 * kind + 4;
  const std::string before = boxes_[static_cast<std::size_t>(box)];
  boxes_[static_cast<std::size_t>(box)] = padded(*chosen);
  markIfChanged(box, before);
}

void ZoneForm::temperaturesClosed() {
  const std::array<std::string, kBoxes + 1> before = boxes_;
  reloadFromZone();
  for (int i = kSummerOccupied; i <= kWinterUnoccupied; ++i) markIfChanged(i, before[static_cast<std::size_t>(i)]);
}

std::string ZoneForm::caption() const { return "Zone Description -- " + state_.project.fileName; }
std::string ZoneForm::tutorialCaption() const { return "ZONE DESCRIPTION -- " + state_.project.fileName; }
std::string ZoneForm::boxCaption(int i) const { return boxCaptionOf(i, state_.project.units == UnitSystem::SI); }
std::string ZoneForm::unitLabel() const { return state_.project.units == UnitSystem::SI ? "kg/sq.m." : "psf"; }

bool ZoneForm::boxEnabled(int i) const {
  if (i == kNaturalVentRate) return toggles_[kNaturalVent] == "Yes";
  if (i == kDaylitDepth || i == kTargetIlluminance) return toggles_[kDaylight] == "Yes";
  return true;
}

void ZoneForm::keyDown(int i) {
  state_.zoneEditing.lastTouchedField = i;
  undoField_ = i;
  if (i != kZoneFloorArea) return;
  // The people count follows the stored floor area, one edit behind.
  const ZoneRecord& z = state_.project.zones.at(static_cast<std::size_t>(zone()));
  if (z.floorAreaPerPerson > 1.0f)
    boxes_[kPeople] = padded(std::floor(z.listedFloorArea / z.floorAreaPerPerson + 0.7));
  else
    boxes_[kPeople] = z.fields[kPeople];
}

bool ZoneForm::keyPress(int i, char k, Next& next) {
  next = Next::None;
  if (isProfileBox(i)) {
    prompt_.beep();
    prompt_.message(Icon::Information, "Profiles", "Select Profile from Pull-down Menu");
    return false;
  }
  if (i == kOutsideAir) {
    next = Next::VentilationDialog;
    return true;
  }
  if (i == kCoolingType || i == kHeatingType) {
    prompt_.beep();
    prompt_.message(Icon::Information, "HVAC System", "Select HVAC system from Pull-down Menu");
    return false;
  }
  if (i == kLightingType) {
    prompt_.beep();
    prompt_.message(Icon::Information, "Lighting Type", "Select Lighting type from Pull-down Menu");
    return false;
  }
  if (i > kZoneName) {
    if (k == key::kEnter || k == key::kBackspace || k == key::kTab || k == '.' || key::isDigit(k)) return true;
    prompt_.beep();
    prompt_.message(Icon::Exclamation, "Error", "You should use numerical value.");
    return false;
  }
  return i != kZoneId;
}

void ZoneForm::textChanged(int i, const std::string& text) { boxes_.at(static_cast<std::size_t>(i)) = text; }

ZoneForm::Next ZoneForm::click(int i) {
  ZoneEditing& e = state_.zoneEditing;
  e.lastTouchedField = i;
  if (!boxes_.at(static_cast<std::size_t>(i)).empty())
    e.fieldChanged[static_cast<std::size_t>(zone())][static_cast<std::size_t>(i)] = true;
  switch (i) {
    case kOccProfile:
    case kHotWaterProfile:
    case kVentProfile:
    case kLightProfile:
      e.profileKind = i == kLightProfile ? 4 : i / 2 - 2;
      e.selectedProfile = static_cast<int>(std::lround(leadingNumber(boxes_[static_cast<std::size_t>(i)])));
      storeZone();
      state_.project.flags.profileKindLoaded[static_cast<std::size_t>(e.profileKind)] = true;
      return Next::ProfileScreen;
    case kSummerOccupied:
    case kWinterOccupied:
    case kSummerUnoccupied:
    case kWinterUnoccupied: return Next::TemperatureScreen;
    case kOutsideAir: return Next::VentilationDialog;
    case kLightingType:
      prompt_.beep();
      prompt_.message(Icon::Information, "Lighting Type", "Select Lighting type from Pull-down Menu");
      return Next::None;
    case kCoolingType:
    case kHeatingType:
      prompt_.beep();
      prompt_.message(Icon::Information, "HVAC System", "Select HVAC system from Pull-down Menu");
      return Next::None;
    default: return Next::None;
  }
}

ZoneForm::Next ZoneForm::chooseProfile(int kind) {
  static constexpr std::array<int, 5> kBox = {kOccProfile, kHotWaterProfile, kVentProfile, kLightProfile, 0};
  if (kind == 5) return Next::TemperatureScreen;
  if (kind < 1 || kind > 4) return Next::None;
  return click(kBox[static_cast<std::size_t>(kind - 1)]);
}

void ZoneForm::markIfChanged(int i, const std::string& before) {
  if (boxes_.at(static_cast<std::size_t>(i)) != before)
    state_.zoneEditing.fieldChanged[static_cast<std::size_t>(zone())][static_cast<std::size_t>(i)] = true;
}

void ZoneForm::chooseAc(int n) {
  const std::array<int, 5> watched = {kCoolingType, kStaticPressure, kCoolingEfficiency, kFirstCost, kMaintenanceCost};
  std::array<std::string, 5> before;
  for (std::size_t k = 0; k < watched.size(); ++k) before[k] = boxes_[static_cast<std::size_t>(watched[k])];
  undoField_ = kCoolingType;
  try {
    const std::vector<std::string> lines = splitLines(readFile(state_.install.path("btype/tcool.dat")));
    const std::size_t at = 3 + 2 * static_cast<std::size_t>(n - 1);
    if (n >= 1 && at < lines.size()) {
      const std::string& line = lines[at];
      const bool si = state_.project.units == UnitSystem::SI;
      boxes_[kStaticPressure] = si ? cols(line, 72, 77) : cols(line, 64, 67);
      boxes_[kCoolingEfficiency] = si ? cols(line, 85, 89) : cols(line, 80, 84);
      boxes_[kFirstCost] = cols(line, 103, 106);
      boxes_[kMaintenanceCost] = cols(line, 111, 115);
    }
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
  // Gas heat adds the furnace to the system's cost, and its upkeep with it.
  if (leadingNumber(boxes_[kHeatingType]) == 1 && n != 8 && n != 9) {
    boxes_[kFirstCost] = bare(leadingNumber(boxes_[kFirstCost]) + 200);
    boxes_[kMaintenanceCost] = costText(leadingNumber(boxes_[kFirstCost]) * maintenanceFactor(n));
  }
  boxes_[kCoolingType] = padded(n);
  state_.zoneEditing.lastTouchedField = kCoolingType;
  for (std::size_t k = 0; k < watched.size(); ++k) markIfChanged(watched[k], before[k]);
}

void ZoneForm::chooseHeating(int h) {
  const std::array<int, 4> watched = {kHeatingType, kHeatingEfficiency, kFirstCost, kMaintenanceCost};
  std::array<std::string, 4> before;
  for (std::size_t k = 0; k < watched.size(); ++k) before[k] = boxes_[static_cast<std::size_t>(watched[k])];
  undoField_ = kHeatingType;
  try {
    const std::vector<std::string> lines = splitLines(readFile(state_.install.path("btype/theat.dat")));
    const std::size_t at = 2 + static_cast<std::size_t>(h - 1);
    if (h >= 1 && h <= 3 && at < lines.size()) boxes_[kHeatingEfficiency] = cols(lines[at], 16, 19);
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
  const int ac = static_cast<int>(leadingNumber(boxes_[kCoolingType]));
  if (ac != 8 && ac != 9) {
    const bool gasNow = leadingNumber(boxes_[kHeatingType]) == 1;
    if (h != 1 && gasNow) boxes_[kFirstCost] = bare(leadingNumber(boxes_[kFirstCost]) - 200);
    if (h == 1 && !gasNow) boxes_[kFirstCost] = bare(leadingNumber(boxes_[kFirstCost]) + 200);
    boxes_[kMaintenanceCost] = costText(leadingNumber(boxes_[kFirstCost]) * maintenanceFactor(ac));
  }
  boxes_[kHeatingType] = padded(h);
  state_.zoneEditing.lastTouchedField = kHeatingType;
  for (std::size_t k = 0; k < watched.size(); ++k) markIfChanged(watched[k], before[k]);
}

void ZoneForm::chooseLighting(int l) {
  const std::string before = boxes_[kLightingType];
  boxes_[kLightingType] = " " + padded(l);
  state_.zoneEditing.lastTouchedField = kLightingType;
  markIfChanged(kLightingType, before);
}

void ZoneForm::clickToggle(int t) {
  std::string& c = toggles_.at(static_cast<std::size_t>(t));
  if (yes(c)) {
    c = "No";
  } else if (no(c)) {
    c = "Yes";
    // Natural ventilation starts again from its default rate.
    if (t == kNaturalVent) boxes_[kNaturalVentRate] = state_.project.units == UnitSystem::SI ? "20" : "4";
  }
  state_.zoneEditing.toggleChanged[static_cast<std::size_t>(t)][static_cast<std::size_t>(zone())] = true;
  state_.zoneEditing.lastTouchedField = 31;
}

bool ZoneForm::storeZone() {
  if (toggles_[kDaylight] == "Yes" &&
      (leadingNumber(boxes_[kDaylitDepth]) == 0 || leadingNumber(boxes_[kTargetIlluminance]) == 0)) {
    prompt_.beep();
    prompt_.message(Icon::Exclamation, "Error",
                    "Daylighting depth or target footcandles cannot be 0 if daylight is used.  Please correct your "
                    "input.");
    return false;
  }
  ZoneRecord& z = state_.project.zones.at(static_cast<std::size_t>(zone()));
  for (int i = 1; i <= kBoxes; ++i) {
    const std::string& b = boxes_[static_cast<std::size_t>(i)];
    z.fields[static_cast<std::size_t>(i)] = b.empty() ? "0" : b;
  }
  z.naturalVent = toggles_[kNaturalVent].empty() ? "No" : toggles_[kNaturalVent];
  z.daylight = toggles_[kDaylight].empty() ? "No" : toggles_[kDaylight];
  z.economizer = toggles_[kEconomizer];
  return true;
}

void ZoneForm::refreshList() {
  const Project& p = state_.project;
  for (int z = 1; z <= p.zoneCount && z < ZoneListGrid::kRows; ++z) {
    auto& row = state_.zoneList.cells[static_cast<std::size_t>(z)];
    row = {p.zones[static_cast<std::size_t>(z)].fields[kZoneId], p.zones[static_cast<std::size_t>(z)].fields[kZoneName],
           bare(z)};
  }
}

bool ZoneForm::clickOk() {
  Project& p = state_.project;
  ZoneRecord& z = p.zones.at(static_cast<std::size_t>(zone()));
  z.listedFloorArea = static_cast<float>(leadingNumber(boxes_[kZoneFloorArea]));
  for (int i = 1; i <= kBoxes; ++i) z.fields[static_cast<std::size_t>(i)] = boxes_[static_cast<std::size_t>(i)];
  // Its daylighting message does not stop the screen from closing.
  storeZone();
  undoField_ = 0;
  z.opened = true;
  if (p.flags.sketchCount > 0) z.openedSinceSketch = true;
  z.listedId = z.fields[kZoneId];
  z.listedName = z.fields[kZoneName];
  refreshList();
  state_.zoneEditing.fieldChanged[static_cast<std::size_t>(zone())].fill(false);
  z.floorAreaPerPerson = floorAreaPerPerson(z.fields[kZoneFloorArea], z.fields[kPeople]);
  return true;
}

void ZoneForm::clickCancel() { refreshList(); }

void ZoneForm::clickUndo() {
  if (undoField_ == 0) return;
  const ZoneRecord& z = state_.project.zones.at(static_cast<std::size_t>(zone()));
  auto restore = [&](int i) { boxes_[static_cast<std::size_t>(i)] = z.fields[static_cast<std::size_t>(i)]; };
  restore(undoField_);
  if (undoField_ == kCoolingType)
    for (int i : {kStaticPressure, kCoolingEfficiency, kFirstCost, kMaintenanceCost}) restore(i);
  // Only the COP comes back with the heating type, not the costs it moved.
  if (undoField_ == kHeatingType) restore(kHeatingEfficiency);
}

}  // namespace marloven
