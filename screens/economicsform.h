// Economics and its demand charge schedule. Every rule is EconomicsForm's.
#pragma once

#include <QDialog>
#include <array>

#include "input/economics.h"

class QAction;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;

namespace marloven::screens {

class DemandChargeDialog : public QDialog {
  Q_OBJECT

 public:
  DemandChargeDialog(DemandChargeForm& logic, QWidget* parent = nullptr);
  QLineEdit* box(int row, int column) const { return boxes_.at(row).at(column); }

 public slots:
  void accept() override;

 private:
  DemandChargeForm& logic_;
  std::array<std::array<QLineEdit*, 2>, DemandChargeForm::kRows> boxes_{};
};

class EconomicsScreen : public QDialog {
  Q_OBJECT

 public:
  EconomicsScreen(AppState& state, Prompt& prompt, QWidget* parent = nullptr);

  EconomicsForm& logic() { return logic_; }
  QLineEdit* box(int i) const { return boxes_.at(i); }
  QLabel* unitLabel(int i) const { return units_.at(i); }
  QPushButton* demandButton() const { return demand_; }
  QPushButton* okButton() const { return ok_; }
  QPushButton* undoButton() const { return undo_; }
  QAction* lifeItem(int i) const { return life_.at(i); }
  QAction* rateItem(int i) const { return rate_.at(i); }

 public slots:
  void accept() override;
  void reject() override;

 private:
  void build();
  void refresh();
  void toggleDemand();

  AppState& state_;
  Prompt& prompt_;
  EconomicsForm logic_;
  std::array<QLineEdit*, EconomicsForm::kBoxes> boxes_{};
  std::array<QLabel*, EconomicsForm::kBoxes> units_{};
  std::array<QAction*, 5> life_{};
  std::array<QAction*, 6> rate_{};
  QPushButton* demand_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* undo_ = nullptr;
};

}  // namespace marloven::screens
