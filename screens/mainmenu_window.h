// The main screen: the six numbered input steps and the menu bar. The rules
// are MainMenu's; commands are wired to their screens in wireCommands(), and
// a command without a handler stays visible but disabled.
#pragma once

#include <QMainWindow>
#include <array>
#include <functional>
#include <map>
#include <utility>

#include "shell/lifecycle.h"
#include "shell/main_menu.h"
#include "results/charts.h"

class QAction;
class QMenu;
class QToolButton;

namespace marloven::screens {

class MainMenuWindow : public QMainWindow {
  Q_OBJECT

 public:
  MainMenuWindow(AppState& state, Prompt& prompt, QWidget* parent = nullptr);

  MainMenu& logic() { return logic_; }
  Lifecycle& lifecycle() { return life_; }
  QToolButton* stepButton(int step) const;
  QToolButton* sampleButton() const { return sample_; }
  QToolButton* previousOutputButton() const { return previousOutput_; }
  QAction* action(Command command, int index = 0) const;
  QMenu* menu(MenuId id) const;

  // Caption and enabling from the logic; runs on every activation.
  void refresh();

 signals:
  void programEnds();

 protected:
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  using Key = std::pair<Command, int>;

  void buildMenus();
  QWidget* buildSteps();
  void wireCommands();
  // The exit question; true when the program ends.
  bool askExit();
  void finish();
  void follow(Next next);
  void openSketchScreen();
  void openRunScreen();
  void openChart(Chart c);
  // Table 1..8 of the output; file: a whole file shown instead (the weather file).
  void openTabular(int table, const std::string& file = {});
  // A stored output picked and opened; selector as the view dialog's.
  void openViewOutput(int selector);
  void retrieve(bool sample);
  void saveInputDialog();
  void saveOutputDialog();
  void centreOnScreen();

  AppState& state_;
  Prompt& prompt_;
  MainMenu logic_;
  Lifecycle life_;
  std::map<MenuId, QMenu*> menus_;
  std::map<Key, QAction*> actions_;
  std::map<Key, std::function<void()>> handlers_;
  std::array<QToolButton*, kMainMenuSteps + 1> steps_{};
  std::array<std::function<void()>, kMainMenuSteps + 1> stepHandlers_;
  QToolButton* sample_ = nullptr;
  QToolButton* previousOutput_ = nullptr;
  bool exiting_ = false;
};

}  // namespace marloven::screens
