// The zone screens: the zone list (zonename), the zone description
// (zoneform) and its ventilation rate dialog (venrate). Every rule is the
// logic classes' of input/zone_forms.
#pragma once

#include <QDialog>
#include <array>

#include "input/zone_forms.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace marloven::screens {

class VentilationDialog : public QDialog {
  Q_OBJECT

 public:
  VentilationDialog(Prompt& prompt, UnitSystem units, const std::string& field9, QWidget* parent = nullptr);
  QLineEdit* row(int i) const { return rows_.at(static_cast<std::size_t>(i)); }
  // The field's new text after OK.
  const std::string& result() const { return result_; }

 public slots:
  void accept() override;

 private:
  void refresh();
  VentilationForm logic_;
  std::array<QLineEdit*, 3> rows_{};
  std::string result_;
};

class ZoneFormWindow : public QDialog {
  Q_OBJECT

 public:
  ZoneFormWindow(AppState& state, Prompt& prompt, QWidget* parent = nullptr);

  ZoneForm& logic() { return logic_; }
  QLineEdit* box(int i) const { return boxes_.at(static_cast<std::size_t>(i)); }
  QPushButton* toggleButton(int t) const { return toggles_.at(static_cast<std::size_t>(t)); }
  QAction* acType(int n) const { return ac_.at(static_cast<std::size_t>(n)); }
  QAction* heatingType(int n) const { return heat_.at(static_cast<std::size_t>(n)); }
  QPushButton* okButton() const { return ok_; }

 public slots:
  void accept() override;
  void reject() override;

 private:
  void build();
  void refresh();
  void follow(ZoneForm::Next next);

  AppState& state_;
  Prompt& prompt_;
  ZoneForm logic_;
  std::array<QLineEdit*, ZoneForm::kBoxes + 1> boxes_{};
  std::array<QPushButton*, 3> toggles_{};
  std::array<QAction*, 16> ac_{};
  std::array<QAction*, 4> heat_{};
  QPushButton* ok_ = nullptr;
};

class ZoneListWindow : public QDialog {
  Q_OBJECT

 public:
  ZoneListWindow(AppState& state, Prompt& prompt, QWidget* parent = nullptr);
  QTableWidget* grid() const { return grid_; }
  QPushButton* okButton() const { return ok_; }
  QPushButton* backButton() const { return back_; }

 public slots:
  void reject() override;

 private:
  void refresh();
  void openRow(int row);

  AppState& state_;
  Prompt& prompt_;
  ZoneListForm logic_;
  QTableWidget* grid_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* back_ = nullptr;
};

}  // namespace marloven::screens
