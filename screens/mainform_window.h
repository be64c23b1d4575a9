// The opening screen: product title, the unit choice and "Continue >>". The
// rules are MainForm's; this only binds the widgets to them.
#pragma once

#include <QWidget>

#include "shell/mainform.h"

class QButtonGroup;
class QFrame;
class QPushButton;
class QRadioButton;

namespace marloven::screens {

class MainFormWindow : public QWidget {
  Q_OBJECT

 public:
  MainFormWindow(AppState& state, Prompt& prompt, QWidget* parent = nullptr);

  MainForm& logic() { return logic_; }
  QRadioButton* unitButton(int index) const;  // 1 = I-P, 2 = SI
  QPushButton* continueButton() const { return continue_; }
  QFrame* frame() const { return frame_; }

 signals:
  // Continue was accepted: the main screen is to be shown and this one hidden.
  void continued();
  // The close box was refused: the main screen is to be shown.
  void mainScreenWanted();
  // The close box was accepted.
  void programEnds();

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void syncUnits();
  void clickContinue();

  MainForm logic_;
  QFrame* frame_ = nullptr;
  QButtonGroup* units_ = nullptr;
  QPushButton* continue_ = nullptr;
  bool shownBefore_ = false;
};

}  // namespace marloven::screens
