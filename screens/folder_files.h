// A folder and its files for the file dialogs: the folder's path, its
// sub-folders to move into, and the files that match a pattern.
#pragma once

#include <QWidget>

class QLabel;
class QListWidget;

namespace marloven::screens {

class FolderFiles : public QWidget {
  Q_OBJECT

 public:
  FolderFiles(const QString& directory, const QString& pattern, QWidget* parent = nullptr);

  QString directory() const { return directory_; }
  void setDirectory(const QString& directory);
  void setPattern(const QString& pattern);
  QListWidget* files() const { return files_; }
  QListWidget* folders() const { return folders_; }

 private:
  void relist();

  QString directory_;
  QString pattern_;
  QLabel* where_ = nullptr;
  QListWidget* folders_ = nullptr;
  QListWidget* files_ = nullptr;
};

}  // namespace marloven::screens
