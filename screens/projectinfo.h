// Project information: the building type menu and the twelve project boxes.
// Every rule is ProjectInfoForm's.
#pragma once

#include <QDialog>
#include <array>

#include "input/project_info.h"

class QAction;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;

namespace marloven::screens {

class ProjectInfoScreen : public QDialog {
  Q_OBJECT

 public:
  ProjectInfoScreen(AppState& state, Prompt& prompt, QWidget* parent = nullptr);

  ProjectInfoForm& logic() { return logic_; }
  QLineEdit* box(int i) const { return boxes_.at(i); }
  QLabel* unitLabel(int i) const { return units_.at(i); }
  QMenu* buildingTypeMenu() const { return btype_; }
  QAction* buildingType(int n) const { return building_.at(n); }
  QPushButton* okButton() const { return ok_; }
  QPushButton* cancelButton() const { return cancel_; }
  QPushButton* undoButton() const { return undo_; }
  QPushButton* weatherButton() const { return weather_; }

 public slots:
  void accept() override;
  void reject() override;

 private:
  void build();
  void refresh();

  AppState& state_;
  Prompt& prompt_;
  ProjectInfoForm logic_;
  std::array<QLineEdit*, ProjectInfoForm::kBoxes> boxes_{};
  std::array<QLabel*, ProjectInfoForm::kBoxes> units_{};
  std::array<QAction*, kBuildingTypes + 1> building_{};
  QMenu* btype_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* cancel_ = nullptr;
  QPushButton* undo_ = nullptr;
  QPushButton* weather_ = nullptr;
};

}  // namespace marloven::screens
