#include "screens/folder_files.h"

#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

namespace marloven::screens {

FolderFiles::FolderFiles(const QString& directory, const QString& pattern, QWidget* parent)
    : QWidget(parent), pattern_(pattern) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  where_ = new QLabel(this);
  where_->setObjectName("Dir1");
  layout->addWidget(where_);
  auto* lists = new QHBoxLayout;
  folders_ = new QListWidget(this);
  folders_->setObjectName("folders");
  files_ = new QListWidget(this);
  files_->setObjectName("File1");
  lists->addWidget(folders_, 1);
  lists->addWidget(files_, 2);
  layout->addLayout(lists, 1);
  connect(folders_, &QListWidget::itemActivated, this,
          [this](QListWidgetItem* i) { setDirectory(QDir(directory_).absoluteFilePath(i->text())); });
  setDirectory(directory);
}

void FolderFiles::setDirectory(const QString& directory) {
  directory_ = QDir::cleanPath(QDir(directory).absolutePath());
  relist();
}

void FolderFiles::setPattern(const QString& pattern) {
  pattern_ = pattern;
  relist();
}

void FolderFiles::relist() {
  where_->setText(directory_);
  const QDir dir(directory_);
  folders_->clear();
  if (!dir.isRoot()) folders_->addItem("..");
  folders_->addItems(dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name));
  files_->clear();
  files_->addItems(dir.entryList({pattern_}, QDir::Files, QDir::Name));
}

}  // namespace marloven::screens
