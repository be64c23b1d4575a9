// The economics screen and its demand charge schedule dialog.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "common/prompt.h"
#include "project/app_state.h"

namespace marloven {

// The small schedule of electric demand charges: three rows of a kW increment
// and its cost, pairs 1..3 of the project.
class DemandChargeForm {
 public:
  static constexpr int kRows = kDemandPairs;
  enum Column { kIncrement = 0, kCost = 1 };

  DemandChargeForm(Project& p, Prompt& prompt) : project_(p), prompt_(prompt) {}

  // The rows take the project's pairs (the rest stay empty).
  void fill();
  const std::string& text(int row, int column) const { return rows_.at(row).at(column); }

  bool keyPress(int row, int column, char key);
  void textChanged(int row, int column, const std::string& text);

  // OK: rows are stored in order up to the first without an increment; with
  // row 0 empty the project keeps its pairs.
  void clickOk();

 private:
  Project& project_;
  Prompt& prompt_;
  std::array<std::array<std::string, 2>, kRows> rows_;
};

class EconomicsForm {
 public:
  static constexpr int kBoxes = kEconomicsCount;

  EconomicsForm(AppState& state, Prompt& prompt)
      : state_(state), prompt_(prompt), schedule_(state.project, prompt) {}

  // Step 3 of the main menu: the boxes and the demand toggle from the project.
  void open();

  // "Economics Data -- " and the project file name.
  std::string caption() const;
  // The caption beside box i (box 5 has the heading " ENERGY COSTS:" above it).
  static const char* label(int i);
  std::string unitLabel(int i) const;
  std::string tutorialCaption() const;
  // Items of the life menu ("10".."50") and of the rate menu ("0.05".."0.10").
  static const std::vector<std::string>& lifeItems();
  static const std::vector<std::string>& rateItems();

  const std::string& box(int i) const { return boxes_.at(i); }
  const std::string& demand() const { return demand_; }
  DemandChargeForm& schedule() { return schedule_; }

  void clickBox(int i);
  bool keyPress(int i, char key);
  void textChanged(int i, const std::string& text);
  // A life item fills a life box (0..2), a rate item a rate box (3, 4, 6, 8,
  // 10); the last box used decides, and any other box ignores the menus.
  void chooseLife(int item);
  void chooseRate(int item);

  // The Y/N toggle. True when the schedule dialog is to be shown: on the way
  // from "N" to "Y", filled with the project's pairs.
  bool toggleDemand();

  // OK: true when the screen closes; "Y" with no pairs is refused.
  bool clickOk();
  void clickCancel();
  void clickUndo();

 private:
  bool lastBoxIsOneOf(std::initializer_list<int> boxes) const;

  AppState& state_;
  Prompt& prompt_;
  DemandChargeForm schedule_;
  std::array<std::string, kBoxes> boxes_;
  std::string demand_;
};

}  // namespace marloven
