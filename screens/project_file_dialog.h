// The retrieve and save dialogs: a folder, the files of it that match a
// pattern, sub-folders to move into, and the name box. Enter is OK, Esc is
// Cancel, a double click on a file is OK. The rules of what OK does are the
// Lifecycle's; this only collects the folder and the typed name.
#pragma once

#include <QDialog>

#include "project/project_model.h"

class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QRadioButton;

namespace marloven::screens {
class FolderFiles;
}

namespace marloven::screens {

class ProjectFileDialog : public QDialog {
  Q_OBJECT

 public:
  enum class Mode { Retrieve, Sample, SaveInput, SaveOutput, ViewOutput };

  ProjectFileDialog(Mode mode, const QString& directory, const QString& pattern, const QString& name,
                    QWidget* parent = nullptr);

  QString directory() const;
  void setDirectory(const QString& directory);
  QString name() const;
  UnitSystem units() const;
  void setUnits(UnitSystem units);
  void setMessage(const QString& text);
  // The output save dialog before a run: a "Run" button goes on without
  // saving; exec() then gives kRunResult.
  static constexpr int kRunResult = 2;
  void offerRun();

  QListWidget* files() const;
  QListWidget* folders() const;
  QLineEdit* nameBox() const { return name_; }

 private:
  QLabel* message_ = nullptr;
  QDialogButtonBox* buttons_ = nullptr;
  FolderFiles* lists_ = nullptr;
  QLineEdit* name_ = nullptr;
  QRadioButton* ip_ = nullptr;
  QRadioButton* si_ = nullptr;
};

}  // namespace marloven::screens
