// The run: the kind dialog (RunOptions) and the run screen (runsim) that sets
// up a run, starts the engine in the scratch directory, watches it once a
// second and joins the report. Every rule is RunScreen's.
#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QTimer>
#include <array>

#include "run/run_screen.h"

class QCheckBox;
class QLineEdit;
class QProcess;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace marloven::screens {

// Which run the user wants: 3 with HVAC, 4 passive, 0 none.
class RunOptionsDialog : public QDialog {
  Q_OBJECT

 public:
  explicit RunOptionsDialog(QWidget* parent = nullptr);
  int kind() const { return kind_; }
  QPushButton* withHvac() const { return hvac_; }
  QPushButton* passive() const { return passive_; }

 private:
  int kind_ = 0;
  QPushButton* hvac_ = nullptr;
  QPushButton* passive_ = nullptr;
};

// A label that is a choice: highlighted when chosen, clicked or toggled with
// the space bar.
class ToggleLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ToggleLabel(const QString& text, QWidget* parent = nullptr);
  void setHighlighted(bool on);
  bool highlighted() const { return on_; }

 signals:
  void clicked();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool on_ = false;
};

class RunSimScreen : public QDialog {
  Q_OBJECT

 public:
  RunSimScreen(AppState& state, Prompt& prompt, QWidget* parent = nullptr);

  RunScreen& logic() { return logic_; }
  QPushButton* executeButton() const { return execute_; }
  QPushButton* cancelButton() const { return cancel_; }
  QPushButton* reviewButton() const { return review_; }
  QLabel* statusLabel() const { return status_; }
  QProgressBar* progressBar() const { return progress_; }
  ToggleLabel* week(int i) const { return weeks_.at(i); }
  ToggleLabel* month(int i) const { return months_.at(i); }
  QRadioButton* weatherOption(int i) const { return weather_.at(i); }
  QLineEdit* periodBox(int i) const { return period_.at(i); }
  // The problems box of a run that failed.
  QLabel* problemsLabel() const { return problems_; }
  // Set when Review Results joined the report.
  bool resultsReady() const { return resultsReady_; }

 public slots:
  void reject() override;

 private:
  void build();
  void refresh();
  void execute();
  void tick();
  void finish();

  AppState& state_;
  Prompt& prompt_;
  RunScreen logic_;
  std::array<QRadioButton*, 2> weather_{};
  std::array<QLineEdit*, 3> destemp_{};
  std::array<QLineEdit*, 3> period_{};  // from, to, year
  std::array<ToggleLabel*, 4> weeks_{};
  std::array<ToggleLabel*, 12> months_{};
  QLineEdit* lower_ = nullptr;
  QLineEdit* upper_ = nullptr;
  QCheckBox* hourly_ = nullptr;
  QCheckBox* sequence_ = nullptr;
  QLabel* status_ = nullptr;
  QLabel* problems_ = nullptr;
  QProgressBar* progress_ = nullptr;
  QPushButton* execute_ = nullptr;
  QPushButton* cancel_ = nullptr;
  QPushButton* review_ = nullptr;
  QTimer timer_;
  QElapsedTimer elapsed_;
  QProcess* process_ = nullptr;
  QString startFailure_;
  bool resultsReady_ = false;
};

}  // namespace marloven::screens
