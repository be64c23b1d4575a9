// The profile screens: occupprof (one form for the four kinds) and
// temperature, each with a plot of the selected row's 24 hours. Every rule is
// ProfileForm's and TemperatureForm's.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QWidget>
#include <array>
#include <memory>

#include "schedules/profiles.h"

class QLineEdit;
class QPushButton;
class QScrollBar;

namespace marloven::screens {

// Twenty-four hourly values as bars.
class HourPlot : public QWidget {
  Q_OBJECT

 public:
  explicit HourPlot(QWidget* parent = nullptr);
  void setProfile(const std::string& text, const QString& unit, double top);
  QSize sizeHint() const override { return {600, 130}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::array<double, 24> values_{};
  int count_ = 0;
  QString unit_;
  double top_ = 100;
};

class RowLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;
 signals:
  void clicked();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
};

class ProfileWindow : public QDialog {
  Q_OBJECT

 public:
  ProfileWindow(AppState& state, Prompt& prompt, int kind, QWidget* parent = nullptr);
  ProfileForm& logic() { return logic_; }
  RowLabel* label(int row) const { return labels_.at(static_cast<std::size_t>(row)); }
  QLineEdit* text(int row) const { return texts_.at(static_cast<std::size_t>(row)); }
  QScrollBar* scrollBar() const { return scroll_; }
  QPushButton* okButton() const { return ok_; }
  HourPlot* plot() const { return plot_; }

 public slots:
  void accept() override;
  void reject() override;

 private:
  void refresh();
  int kind_;
  ProfileForm logic_;
  std::array<RowLabel*, ProfileForm::kVisibleRows + 1> labels_{};
  std::array<QLineEdit*, ProfileForm::kVisibleRows + 1> texts_{};
  QScrollBar* scroll_ = nullptr;
  QPushButton* ok_ = nullptr;
  HourPlot* plot_ = nullptr;
};

class TemperatureWindow : public QDialog {
  Q_OBJECT

 public:
  TemperatureWindow(AppState& state, Prompt& prompt, QWidget* parent = nullptr);
  TemperatureForm& logic() { return logic_; }
  bool opened() const { return opened_; }
  RowLabel* label(int row) const { return labels_.at(static_cast<std::size_t>(row)); }
  QLineEdit* text(int row) const { return texts_.at(static_cast<std::size_t>(row)); }
  QPushButton* okButton() const { return ok_; }

 public slots:
  void accept() override;
  void reject() override;

 private:
  void refresh();
  AppState& state_;
  TemperatureForm logic_;
  bool opened_ = false;
  int shown_ = 1;
  std::array<RowLabel*, TemperatureForm::kRows + 1> labels_{};
  std::array<QLineEdit*, TemperatureForm::kRows + 1> texts_{};
  QPushButton* ok_ = nullptr;
  HourPlot* plot_ = nullptr;
};

}  // namespace marloven::screens
