// The project information screen: the building type that fills a whole
// project, and the twelve project data boxes.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "common/prompt.h"
#include "input/building_type.h"
#include "project/app_state.h"

namespace marloven {

class ProjectInfoForm {
 public:
  static constexpr int kBoxes = kProjectDataCount;

  ProjectInfoForm(AppState& state, Prompt& prompt) : state_(state), prompt_(prompt) {}

  // Step 1 of the main menu: the sketch's orientation and floor area come in
  // after a re-sketch, then the boxes show the project data.
  void open();

  // "Project Information -- " and the project file name.
  std::string caption() const;
  // The label of box i and its unit label ("" when it has none).
  static const char* label(int i);
  std::string unitLabel(int i) const;
  static const std::vector<std::string>& hintLines();

  const std::string& box(int i) const { return boxes_[i]; }
  // A project that was read or saved keeps its building type.
  bool buildingTypeMenuEnabled() const { return !state_.project.flags.fromFile; }
  // The text viewer's caption of Help > Tutorial (helpinfo/help2.txt).
  std::string tutorialCaption() const;

  // A key typed in box i: true when it is kept. Refused keys beep and may
  // show a message first.
  bool keyPress(int i, char key);
  // Key release: the box that Undo Last restores first.
  void keyReleased(int i);
  // The box's text after any change (typing, pasting, deleting).
  void textChanged(int i, const std::string& text);
  // A click in a box: box 0 of a new project is filled from the menu only.
  void clickBox(int i);

  // Building Type menu entry n (1..42). A file error shows the error report
  // and leaves boxes and project as they were.
  void chooseBuildingType(int n);

  // OK: true when the screen closes (the project data is stored and step 1 is
  // done); false when a box is refused.
  bool clickOk();
  // Cancel: the boxes take the project data back; nothing is stored.
  void clickCancel();
  // Undo Last: the remembered box takes its stored value, and the one above
  // it is next.
  void clickUndo();
  // Get Weather: the weather screen is to re-read the project when it returns.
  void clickGetWeather();
  // The weather screen gave the project its location: the box shows it.
  void weatherApplied();

 private:
  void fillBoxes();

  AppState& state_;
  Prompt& prompt_;
  ProjectInfoBoxes boxes_;
};

}  // namespace marloven
