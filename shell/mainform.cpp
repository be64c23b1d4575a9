#include "shell/mainform.h"

#include <string>

#include "common/error_report.h"
#include "shell/startup.h"

namespace marloven {

namespace {

const char* unitCaption(int index) { return index == 1 ? "I-P Units" : "SI Units"; }

UnitSystem unitOf(int index) { return index == 1 ? UnitSystem::IP : UnitSystem::SI; }

}  // namespace

void MainForm::shown() { selected_ = state_.project.units == UnitSystem::IP ? 1 : 2; }

void MainForm::pressUnit(int index) {
  if (index != 1 && index != 2) return;
  selected_ = index;
  state_.project.units = unitOf(index);
}

void MainForm::releaseUnit() {
  if (selected_ == 0) return;
  const std::string question = std::string("Set ") + unitCaption(selected_) + " as the default?";
  if (prompt_.ask(Buttons::YesNo, Icon::Question, "Set Units", question) != Answer::Yes) return;
  try {
    writeUnitChoice(state_.install, unitOf(selected_));
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
}

bool MainForm::clickContinue() {
  if (selected_ == 0) {
    prompt_.message(Icon::None, "Select Units", "Please select Units");
    return false;
  }
  state_.project.units = unitOf(selected_);
  mainMenuCaption_ = "-- " + state_.project.fileName;
  return true;
}

bool MainForm::closeRequested() {
  if (!anyStepDone(state_.project)) return true;
  prompt_.message(Icon::None, "Exit Warning",
                  "You may only exit from the File menu on the Main menu screen, press OK");
  return false;
}

}  // namespace marloven
