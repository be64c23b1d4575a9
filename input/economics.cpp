#include "input/economics.h"

#include <algorithm>

#include "common/keys.h"

namespace marloven {

namespace {

constexpr std::array<const char*, EconomicsForm::kBoxes> kLabels = {
    " Economic Life     :",
    " Mech. System Life:",
    " Solar System Life :",
    " Discount Rate     :",
    " Building Cost          Escalation          :",
    " Electric:",
    "Escalation",
    " Gas / Oil:",
    "Escalation",
    " Water :",
    "Escalation"};

bool numericKey(char k) {
  return k == key::kEnter || k == key::kBackspace || k == '.' || k == key::kTab || key::isDigit(k);
}

bool refuseKey(Prompt& prompt, char k) {
  if (numericKey(k)) return false;
  prompt.beep();
  prompt.message(Icon::Exclamation, "Error", "You should use numerical value.");
  return true;
}

}  // namespace

void DemandChargeForm::fill() {
  rows_ = {};
  const DemandChargeSchedule& d = project_.demand;
  for (int i = 1; i <= d.pairCount; ++i) rows_[i - 1] = {d.pairs[i].first, d.pairs[i].second};
}

bool DemandChargeForm::keyPress(int /*row*/, int /*column*/, char k) { return !refuseKey(prompt_, k); }

void DemandChargeForm::textChanged(int row, int column, const std::string& text) {
  rows_.at(row).at(column) = text;
}

void DemandChargeForm::clickOk() {
  DemandChargeSchedule& d = project_.demand;
  for (int r = 0; r < kRows; ++r) {
    if (rows_[r][kIncrement].empty()) break;
    d.pairs[r + 1] = {rows_[r][kIncrement], rows_[r][kCost]};
    d.pairCount = static_cast<std::int16_t>(r + 1);
  }
}

void EconomicsForm::open() {
  boxes_ = state_.project.economics;
  demand_ = state_.project.demand.text;
}

std::string EconomicsForm::caption() const { return "Economics Data -- " + state_.project.fileName; }

const char* EconomicsForm::label(int i) { return kLabels.at(i); }

std::string EconomicsForm::unitLabel(int i) const {
  const bool si = state_.project.units == UnitSystem::SI;
  switch (i) {
    case kEconomicLife:
    case kMechanicalLife:
    case kSolarLife: return " years";
    case kDiscountRate:
    case kCostEscalation: return " fraction";
    case kElecCost: return "$/kWh";
    case kGasCost: return si ? "$/GJoule" : " $/Therm";
    case kWaterCost: return si ? "$/1000 L" : " $/1000 G";
    default: return {};
  }
}

std::string EconomicsForm::tutorialCaption() const { return "ECONOMICS -- " + state_.project.fileName; }

const std::vector<std::string>& EconomicsForm::lifeItems() {
  static const std::vector<std::string> items = {"10", "20", "30", "40", "50"};
  return items;
}

const std::vector<std::string>& EconomicsForm::rateItems() {
  static const std::vector<std::string> items = {"0.05", "0.06", "0.07", "0.08", "0.09", "0.10"};
  return items;
}

void EconomicsForm::clickBox(int i) { state_.lastEconomicsBox = i; }

bool EconomicsForm::keyPress(int i, char k) {
  state_.lastEconomicsBox = i;
  return !refuseKey(prompt_, k);
}

void EconomicsForm::textChanged(int i, const std::string& text) { boxes_.at(i) = text; }

bool EconomicsForm::lastBoxIsOneOf(std::initializer_list<int> boxes) const {
  return std::find(boxes.begin(), boxes.end(), state_.lastEconomicsBox) != boxes.end();
}

void EconomicsForm::chooseLife(int item) {
  if (lastBoxIsOneOf({kEconomicLife, kMechanicalLife, kSolarLife}))
    boxes_[state_.lastEconomicsBox] = lifeItems().at(item);
}

void EconomicsForm::chooseRate(int item) {
  if (lastBoxIsOneOf({kDiscountRate, kCostEscalation, kElecEscalation, kGasEscalation, kWaterEscalation}))
    boxes_[state_.lastEconomicsBox] = rateItems().at(item);
}

bool EconomicsForm::toggleDemand() {
  if (demand_ == "Y" || demand_ == " Y") {
    demand_ = "N";
    return false;
  }
  // Anything else counts as "N": an old file may hold an empty flag.
  demand_ = "Y";
  const std::int16_t pairs = state_.project.demand.pairCount;
  if (pairs < 0 || pairs > kDemandPairs) {
    prompt_.message(Icon::Exclamation, "",
                    "The demand charge file has a wrong format.  Please check the file and try again.");
    demand_ = "N";
    return false;
  }
  schedule_.fill();
  return true;
}

bool EconomicsForm::clickOk() {
  if (demand_ == "Y" && state_.project.demand.pairCount == 0) {
    prompt_.message(Icon::Exclamation, "Demand Charge", "Please enter the demand charge schedule.");
    return false;
  }
  state_.project.economics = boxes_;
  state_.project.demand.text = demand_;
  state_.project.flags.stepDone[3] = true;
  return true;
}

void EconomicsForm::clickCancel() { open(); }

void EconomicsForm::clickUndo() {
  int& last = state_.lastEconomicsBox;
  if (last < 0 || last >= kBoxes) last = 0;
  boxes_[last] = state_.project.economics[last];
  if (last > 0) --last;
}

}  // namespace marloven
