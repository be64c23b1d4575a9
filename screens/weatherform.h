// The weather screen: location lists, site data, the monthly statistics as a
// grid with a plot beside it, the derivation rows and the database saves.
// Every rule is WeatherForm's.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <array>

#include "weather/weather_form.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace marloven::screens {

// A list that says when its list is about to drop down, so it can be read
// again first.
class DropDownCombo : public QComboBox {
  Q_OBJECT

 public:
  using QComboBox::QComboBox;
  void showPopup() override;

 signals:
  void droppingDown();
};

// The twelve monthly mean, mean daily maximum and dew point values.
class MonthlyPlot : public QWidget {
  Q_OBJECT

 public:
  explicit MonthlyPlot(QWidget* parent = nullptr);
  // Values by month (NaN where a box holds no number) and the unit caption.
  void setSeries(const std::array<std::array<double, 12>, 3>& series, const QString& unit);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::array<std::array<double, 12>, 3> series_{};
  QString unit_;
};

class WeatherScreen : public QDialog {
  Q_OBJECT

 public:
  WeatherScreen(AppState& state, Prompt& prompt, QWidget* parent = nullptr);

  WeatherForm& logic() { return logic_; }
  DropDownCombo* groupList() const { return groups_; }
  DropDownCombo* cityList() const { return cities_; }
  QLineEdit* box(const WeatherBox& b) const;
  QLabel* unitLabel(int row) const { return units_.at(row); }
  QPushButton* okButton() const { return ok_; }
  QPushButton* importButton() const { return import_; }
  MonthlyPlot* plot() const { return plot_; }

  // Reads a recorded year with progress shown and adds it as a new record.
  void importFile(const QString& path);

 public slots:
  void accept() override;

 private:
  void build();
  QLineEdit* addBox(const WeatherBox& b, QWidget* parent, int chars);
  void refresh();

  AppState& state_;
  Prompt& prompt_;
  WeatherForm logic_;
  DropDownCombo* groups_ = nullptr;
  DropDownCombo* cities_ = nullptr;
  std::vector<std::pair<WeatherBox, QLineEdit*>> boxes_;
  std::array<QLabel*, kWeatherRows> units_{};
  QLabel* elevationUnit_ = nullptr;
  MonthlyPlot* plot_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* import_ = nullptr;
};

}  // namespace marloven::screens
