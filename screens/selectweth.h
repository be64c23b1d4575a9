// Choosing a recorded weather file for a run (selectweth) and the look at its
// head (viewweather). Every rule is SelectWeatherForm's.
#pragma once

#include <QDialog>
#include <array>

#include "weather/recorded_weather.h"

class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;

namespace marloven::screens {

class FolderFiles;

class WeatherPreview : public QDialog {
  Q_OBJECT

 public:
  WeatherPreview(SelectWeatherForm& logic, const std::string& text, QWidget* parent = nullptr);
  QPlainTextEdit* text() const { return text_; }
  // Set when its OK also closed the file screen.
  bool closedBoth() const { return closedBoth_; }

 public slots:
  void accept() override;

 private:
  SelectWeatherForm& logic_;
  QPlainTextEdit* text_ = nullptr;
  bool closedBoth_ = false;
};

class SelectWeatherScreen : public QDialog {
  Q_OBJECT

 public:
  SelectWeatherScreen(AppState& state, Prompt& prompt, const QString& directory, QWidget* parent = nullptr);

  SelectWeatherForm& logic() { return logic_; }
  FolderFiles* lists() const { return lists_; }
  QLineEdit* nameBox() const { return name_; }
  QRadioButton* formatButton(int i) const { return formats_.at(i); }
  QPushButton* okButton() const { return ok_; }
  QPushButton* viewButton() const { return view_; }

 public slots:
  void accept() override;

 private:
  void sync();
  // Shows a preview; true when its OK closed this screen as well.
  bool preview(const std::string& text);

  AppState& state_;
  Prompt& prompt_;
  SelectWeatherForm logic_;
  FolderFiles* lists_ = nullptr;
  QLineEdit* name_ = nullptr;
  std::array<QRadioButton*, kRecordedFormats> formats_{};
  QPushButton* ok_ = nullptr;
  QPushButton* view_ = nullptr;
};

}  // namespace marloven::screens
