// The windows of the desktop program and how they hand over to each other.
#pragma once

#include "screens/mainform_window.h"
#include "screens/mainmenu_window.h"

namespace marloven::screens {

class Desktop {
 public:
  Desktop(AppState& state, Prompt& prompt);
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  // Shows the opening screen; start-up has run before.
  void start();

  MainFormWindow& mainForm() { return mainForm_; }
  MainMenuWindow& mainMenu() { return mainMenu_; }

 private:
  void showMainScreen();

  MainFormWindow mainForm_;
  MainMenuWindow mainMenu_;
};

}  // namespace marloven::screens
