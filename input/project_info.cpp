#include "input/project_info.h"

#include "common/file_error.h"
#include "common/keys.h"
#include "common/number_text.h"
#include "common/error_report.h"

namespace marloven {

namespace {

constexpr std::array<const char*, ProjectInfoForm::kBoxes> kLabels = {
    "Building Type        :", "Project  Name       :", "Project Description:",
    "Location               :", "Design Stage        :", "Scheme Number    :  ",
    "Evaluation Year     :", "Orientation            :", "Floor Area             :",
    "Construction Cost  :", "Occ. Days /week :", "Annual Holidays   :"};

constexpr int kLongestNumber = 10;

bool numericKey(char key) {
  return key == key::kBackspace || key == ' ' || key == key::kEnter || key == '.' ||
         key::isDigit(key);
}

}  // namespace

void ProjectInfoForm::open() {
  Project& p = state_.project;
  if (p.flags.resketched) {
    p.data[kOrientation] = p.sketchOrientation;
    p.data[kFloorArea] = padded(p.sketchFloorArea);
  }
  fillBoxes();
}

void ProjectInfoForm::fillBoxes() { boxes_ = state_.project.data; }

std::string ProjectInfoForm::caption() const {
  return "Project Information -- " + state_.project.fileName;
}

const char* ProjectInfoForm::label(int i) { return kLabels.at(i); }

std::string ProjectInfoForm::unitLabel(int i) const {
  const bool si = state_.project.units == UnitSystem::SI;
  switch (i) {
    case kOrientation: return "from North";
    case kFloorArea: return si ? "sq.m." : "sq.ft";
    case kConstructionCost: return si ? "$/sq.m." : "$/sq.ft";
    case kOccupiedDays:
    case kAnnualHolidays: return "days";
    default: return {};
  }
}

const std::vector<std::string>& ProjectInfoForm::hintLines() {
  static const std::vector<std::string> lines = {
      "Hints:",
      "(1)  Begin a new project by clicking the ",
      "Building Type pulldown menu.",
      "(2) Initially, do not enter any further ",
      "information.  Just click OK.",
      "(3) The sketch routing will automatically ",
      "add the floor area and the orientation.",
      "(4) You may add project descriptors, occupancy and holidays later."};
  return lines;
}

std::string ProjectInfoForm::tutorialCaption() const {
  return "PROJECT INFORMATION -- " + state_.project.fileName;
}

bool ProjectInfoForm::keyPress(int i, char k) {
  const std::string& t = boxes_.at(i);
  if (i == kBuildingType && !state_.project.flags.fromFile) {
    prompt_.message(Icon::Information, "Building Type", "Select building type from menu");
    return false;
  }
  if (i > kSchemeNumber && !numericKey(k)) {
    prompt_.beep();
    prompt_.message(Icon::Exclamation, "Error", "You should use numerical value.");
    return false;
  }
  if (i == kOccupiedDays) {
    if ((t.empty() || t.back() == ' ') && k > '7') {
      prompt_.beep();
      prompt_.message(Icon::Exclamation, "Error",
                      "Error. The maximum occupied days are 7 days per-week.");
      return false;
    }
    const std::size_t first = t.find_first_not_of(' ');
    if (first != std::string::npos && t[first] == '7' && k != '.' && k >= '0') {
      prompt_.beep();
      prompt_.message(Icon::Exclamation, "Error",
                      "Error.  The maximum occupied days are 7 days per-week.");
      return false;
    }
  }
  if (i > kConstructionYear && t.size() >= kLongestNumber && k != key::kBackspace) {
    prompt_.beep();
    return false;
  }
  if (i == kOrientation) state_.project.flags.orientationEdited = true;
  if (i == kFloorArea) state_.project.flags.floorAreaEdited = true;
  return true;
}

void ProjectInfoForm::keyReleased(int i) { state_.undoField = i; }

void ProjectInfoForm::textChanged(int i, const std::string& text) {
  std::string& b = boxes_.at(i);
  if (b == text) return;
  b = text;
  if (i == kOrientation) state_.project.flags.orientationEdited = true;
  if (i == kFloorArea) state_.project.flags.floorAreaEdited = true;
}

void ProjectInfoForm::clickBox(int i) {
  if (i == kBuildingType && !state_.project.flags.fromFile)
    prompt_.message(Icon::Information, "Building Type", "Select building type from menu");
}

void ProjectInfoForm::chooseBuildingType(int n) {
  try {
    loadBuildingType(state_.install.dir(), n, state_.tables.today.year, boxes_, state_.project);
    state_.buildingTypeNumber = n;
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
}

bool ProjectInfoForm::clickOk() {
  const std::string& year = boxes_[kConstructionYear];
  if (!year.empty() && !key::isDigit(year.back())) {
    prompt_.beep();
    prompt_.message(Icon::Exclamation, "Error", "You should put the construction year.");
    return false;
  }
  if (leadingNumber(boxes_[kOccupiedDays]) > 7) {
    prompt_.beep();
    prompt_.message(Icon::Exclamation, "Error", "The maximum occupied days are 7 days per-week.");
    return false;
  }
  state_.project.flags.stepDone[1] = true;
  state_.project.data = boxes_;
  return true;
}

void ProjectInfoForm::clickCancel() { fillBoxes(); }

void ProjectInfoForm::clickUndo() {
  int& u = state_.undoField;
  if (u < 0 || u >= kBoxes) u = 0;
  boxes_[u] = state_.project.data[u];
  if (u != 0) --u;
}

void ProjectInfoForm::clickGetWeather() { state_.project.flags.weatherRereadPending = true; }

void ProjectInfoForm::weatherApplied() { boxes_[kLocation] = state_.project.data[kLocation]; }

}  // namespace marloven
