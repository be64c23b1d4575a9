// Save Dwg: a copy of bld_mtx.all as it stands (".wri") or a picture of the
// canvas (".jpg"), under a name made from the project file's.
#pragma once

#include <QDialog>
#include <QImage>

#include "screens/folder_files.h"
#include "common/prompt.h"
#include "project/app_state.h"

class QLineEdit;
class QRadioButton;

namespace marloven::screens {

class SaveForm : public QDialog {
  Q_OBJECT

 public:
  SaveForm(AppState& state, const QImage& canvas, Prompt& prompt, QWidget* parent = nullptr);

  QRadioButton* option(int index) const { return options_[index]; }
  QLineEdit* nameBox() const { return name_; }
  FolderFiles* lists() const { return lists_; }

 private:
  void chooseKind();
  void save();

  AppState& state_;
  QImage canvas_;
  Prompt& prompt_;
  QRadioButton* options_[2] = {};
  QLineEdit* name_ = nullptr;
  FolderFiles* lists_ = nullptr;
  std::string baseName_;
};

}  // namespace marloven::screens
