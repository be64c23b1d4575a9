#include "screens/desktop.h"

#include <QCoreApplication>

namespace marloven::screens {

Desktop::Desktop(AppState& state, Prompt& prompt)
    : mainForm_(state, prompt), mainMenu_(state, prompt) {
  QObject::connect(&mainForm_, &MainFormWindow::continued, &mainMenu_, [this] {
    showMainScreen();
    mainForm_.hide();
  });
  QObject::connect(&mainForm_, &MainFormWindow::mainScreenWanted, &mainMenu_,
                   [this] { showMainScreen(); });
  QObject::connect(&mainForm_, &MainFormWindow::programEnds, qApp, &QCoreApplication::quit,
                   Qt::QueuedConnection);
  QObject::connect(&mainMenu_, &MainMenuWindow::programEnds, qApp, &QCoreApplication::quit,
                   Qt::QueuedConnection);
}

void Desktop::start() { mainForm_.show(); }

void Desktop::showMainScreen() {
  mainMenu_.show();
  mainMenu_.raise();
  mainMenu_.activateWindow();
}

}  // namespace marloven::screens
