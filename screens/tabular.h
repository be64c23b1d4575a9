// The report as text (tabular), the hourly spreadsheets (Hourly), and the
// printing of report text: a fixed-pitch page of 132 columns in landscape,
// breaking where the report breaks. Every rule is TabularForm's and
// HourlyForm's.
#pragma once

#include <QDialog>
#include <array>
#include <functional>

#include "results/hourly.h"
#include "results/tabular.h"

class QLabel;
class QPagedPaintDevice;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;

namespace marloven::screens {

// Lays report text out on pages: the report's form feeds start pages, a page
// that is full starts the next, and every line stays whole. The page count.
int paintReportPages(QPagedPaintDevice& device, const QString& text);

class HourlyDialog : public QDialog {
  Q_OBJECT

 public:
  HourlyDialog(AppState& state, Prompt& prompt, QWidget* parent = nullptr);
  QRadioButton* option(int i) const { return options_.at(i); }
  QPushButton* displayButton() const { return display_; }
  // What the desktop opens a file with; replaced in tests.
  std::function<bool(const QString&)> open;

 private:
  HourlyForm logic_;
  std::array<QRadioButton*, 3> options_{};
  QPushButton* display_ = nullptr;
};

class TabularWindow : public QDialog {
  Q_OBJECT

 public:
  TabularWindow(AppState& state, Prompt& prompt, std::function<void()> saveOutput, QWidget* parent = nullptr);

  TabularForm& logic() { return logic_; }
  void showTable(int table);
  // A whole file under its caption (the weather file of the last run).
  void showFile(const std::string& path, const std::string& title);
  QPlainTextEdit* text() const { return text_; }
  QPushButton* summary(int i) const { return summary_.at(static_cast<std::size_t>(i)); }
  QPushButton* nextButton() const { return next_; }
  QPushButton* previousButton() const { return previous_; }
  // Set when the window closed for the breakdown chart.
  bool chartRequested() const { return chartRequested_; }
  bool exportPdf(const QString& path) const;

 public slots:
  void reject() override;

 private:
  void refresh();
  void print();

  AppState& state_;
  Prompt& prompt_;
  std::function<void()> saveOutput_;
  TabularForm logic_;
  QLabel* heading_ = nullptr;
  QLabel* outputName_ = nullptr;
  QPlainTextEdit* text_ = nullptr;
  std::array<QPushButton*, kTabButtons> summary_{};
  QPushButton* save_ = nullptr;
  QPushButton* next_ = nullptr;
  QPushButton* previous_ = nullptr;
  bool chartRequested_ = false;
  std::string fileTitle_;  // a whole file shown instead of a span
};

}  // namespace marloven::screens
