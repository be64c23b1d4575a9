// The main screen's rules: its caption, the six numbered input steps, the menu
// bar and which of them are enabled. The screen builds its widgets from this
// data and asks it what to enable; each command that gets a screen is wired in
// the window and gets its rules here.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "project/app_state.h"
#include "common/prompt.h"

namespace marloven {

inline constexpr int kMainMenuSteps = 6;

// Captions of steps 1..6; entry 0 is unused.
inline constexpr std::array<const char*, kMainMenuSteps + 1> kStepCaptions = {
    "",
    "1. Project Information",
    "2. Weather Data Selection",
    "3. Economic Parameters",
    "4. Building Sketch Routine",
    "5. Zone Description Parameters",
    "6. Execute Energy Analysis"};

enum class MenuId { File, Analysis, View, Database, Help };

// What a menu item does. Items of one control array share a command and are
// told apart by their index (Run 1..4, View 6..12, Table 1..8, Graph 1..7,
// Database 1..3).
enum class Command {
  None,
  NewProject,
  RetrieveProject,
  SaveProject,
  Exit,
  Run,
  View,
  Table,
  Graph,
  Database,
  HelpContents,
  HelpIntroduction,
  HelpLearning,
  HelpAbout,
};

struct MenuEntry {
  enum class Kind { Item, Separator, Submenu };
  Kind kind = Kind::Item;
  Command command = Command::None;
  int index = 0;
  std::string caption;               // with "&" before the access key
  std::vector<MenuEntry> children;   // the items of a submenu
};

struct MenuSpec {
  MenuId id;
  std::string caption;
  std::vector<MenuEntry> entries;
};

// The menu bar in order: File, Analysis, View Output, Database, Help.
const std::vector<MenuSpec>& mainMenuBar();

// "-- " and the project file name; "New_Project.inp" while the project is not
// from a file.
std::string mainMenuCaption(const Project& p);

class MainMenu {
 public:
  MainMenu(AppState& state, Prompt& prompt) : state_(state), prompt_(prompt) {}

  // Every showing of the main screen: back to the installation directory, the
  // remembered name after a run, the caption and the enabling rule.
  void activated();

  const std::string& caption() const { return caption_; }
  bool stepEnabled(int step) const;
  bool menuEnabled(MenuId menu) const;

  // File Exit: the scratch clean-up before the program ends.
  void exit();

  // File New: zone description, execute and the Analysis menu go off again.
  void projectReset();
  // Retrieve or save: every step, the Analysis and the View menu come on.
  void projectOpened();
  void enableViewMenu() { viewMenuEnabled_ = true; }
  // Project information or economics left by OK or Cancel: a project from a
  // file, or one whose sketch was opened, may enter its zones; a project from
  // a file may also run.
  void inputAccepted();
  // Leaving the zone list: the zones may be entered again.
  void zonesLeft() { stepEnabled_[5] = true; }
  // Opening the sketch: the zones may be entered from now on.
  void sketchOpened() { stepEnabled_[5] = true; }

 private:
  AppState& state_;
  Prompt& prompt_;
  std::string caption_;
  // At start zone description (5) and execute (6) are off, as is the Analysis
  // menu; events of later screens turn them on.
  std::array<bool, kMainMenuSteps + 1> stepEnabled_ = {false, true, true, true, true, false, false};
  bool runMenuEnabled_ = false;
  bool viewMenuEnabled_ = true;
};

}  // namespace marloven
