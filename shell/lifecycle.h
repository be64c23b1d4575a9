// The project's life as the main menu and its dialogs run it: New, Retrieve,
// Save, Exit, the way into a run, and saving results. Each operation asks its
// questions through the Prompt and says which screen comes next; the window
// shows it. File errors reach the error report here, so the old project and
// the old files stay as they were.
#pragma once

#include <functional>
#include <string>

#include "project/app_state.h"
#include "shell/main_menu.h"
#include "common/prompt.h"

namespace marloven {

enum class Next {
  Stay,
  RetrieveDialog,
  SampleDialog,
  SaveInputDialog,
  SaveOutputDialog,
  RunSimulation,
  SelectView,
  Tabular,
  Results,  // a report section or chart of the current output
  Sketch,
  ZoneList,
  Quit,
};

// The exit question: a caption and, when saved before, the line naming the file.
struct ExitQuestion {
  std::string caption;
  std::string line;
};

class Lifecycle {
 public:
  // random gives the seed of a first save, a number in [0, 1).
  Lifecycle(AppState& state, Prompt& prompt, MainMenu& menu, std::function<double()> random = {});

  // File New: asks first when any input step was done. True when reset.
  bool newProject();
  // Retrieve and the sample button: the same question; true to show the dialog.
  bool confirmDiscard();
  // oldfileform / SampleFileForm OK. False (after the error report) when the
  // file could not be read; the open project is then unchanged.
  bool retrieve(const std::string& directory, const std::string& name, bool sample = false);

  // Save Project File: the three refusals; SaveInputDialog when none applies.
  Next saveRequested();
  // saveinputform OK: writes the project in the chosen units (converting when
  // they differ from the current ones) and reads it straight back.
  Next saveInput(const std::string& directory, const std::string& name, UnitSystem units);

  // Analysis menu, run kinds 1..4.
  Next runRequested(int kind);
  // The text the output save dialog shows when a run wants the old results saved.
  const std::string& outputDialogText() const { return outputDialogText_; }
  // saveoutform OK: copies the results of the last run under the name.
  Next saveOutput(const std::string& directory, const std::string& name);
  // saveoutform "Run": on into the run without saving the old results.
  Next runWithoutSavingOutput();

  ExitQuestion exitQuestion() const;
  Next exitSave();        // the question's "save"
  Next exitWithoutSave(); // the question's "do not save"

  // View menu entries 6..12.
  Next view(int index);
  // A report section (kind 6, Table 1..8) or chart (kind 10, Graph 1..7):
  // Results when output is viewable, otherwise a results file is picked first.
  Next results(int kind, int index);

  // Input step 4: marks the zone data out of date and prepares the sketch file.
  Next openSketch();
  // Input step 5: the checks, then the zone list and, after a sketch, the
  // defaults and the zone rows the sketch made.
  Next enterZones();

 private:
  void cleanUpAndQuit();
  bool anyStepDone() const;
  bool writeProjectFile(const std::string& path, UnitSystem units);
  void rereadHeader();

  AppState& state_;
  Prompt& prompt_;
  MainMenu& menu_;
  std::function<double()> random_;
  std::string outputDialogText_;
};

}  // namespace marloven
