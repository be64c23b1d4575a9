// Load Dwg: picks a saved sketch file. DrawForm copies it over bld_mtx.all
// and opens it, discarding the sketch on screen without a question.
#pragma once

#include <QDialog>

#include "screens/folder_files.h"

namespace marloven::screens {

class LoadForm : public QDialog {
  Q_OBJECT

 public:
  LoadForm(const QString& directory, QWidget* parent = nullptr);

  FolderFiles* lists() const { return lists_; }
  // The full name of the file picked.
  std::string path() const;

 private:
  FolderFiles* lists_ = nullptr;
};

}  // namespace marloven::screens
