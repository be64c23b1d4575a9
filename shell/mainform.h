// The opening screen's rules: the unit choice, "Continue >>" and the close box.
#pragma once

#include <string>

#include "project/app_state.h"
#include "common/prompt.h"

namespace marloven {

class MainForm {
 public:
  static constexpr const char* kCaption = "MARLOVEN EC (Energy Compliance) Release 6.5";

  MainForm(AppState& state, Prompt& prompt) : state_(state), prompt_(prompt) {}

  // After start-up: selects the option of the current unit system.
  void shown();

  // 1 = "I-P Units", 2 = "SI Units"; 0 = none selected.
  int selectedUnit() const { return selected_; }
  // Pressing an option: the unit system changes at once.
  void pressUnit(int index);
  // Releasing the mouse on it: "Set ... as the default?"; Yes rewrites the
  // remembered choice. File errors reach the error report.
  void releaseUnit();
  // "Continue >>": true when the main screen is to be shown. Its caption is
  // mainMenuCaption() afterwards.
  bool clickContinue();
  // The window's close box: true when the program may end.
  bool closeRequested();

  const std::string& mainMenuCaption() const { return mainMenuCaption_; }

 private:
  AppState& state_;
  Prompt& prompt_;
  int selected_ = 0;
  std::string mainMenuCaption_;
};

}  // namespace marloven
