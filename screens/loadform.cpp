#include "screens/loadform.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/text_codec.h"
#include "sketch/sketch_copies.h"

namespace marloven::screens {

LoadForm::LoadForm(const QString& directory, QWidget* parent) : QDialog(parent) {
  setObjectName("LoadForm");
  setWindowTitle(tr("Load Drawing"));
  auto* layout = new QVBoxLayout(this);
  lists_ = new FolderFiles(directory, "*", this);
  layout->addWidget(lists_, 1);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Ok)->setObjectName("okbutton");
  buttons->button(QDialogButtonBox::Cancel)->setObjectName("cancelbutton");
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, [this] {
    if (lists_->files()->currentItem() != nullptr) accept();
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(lists_->files(), &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* i) {
    lists_->files()->setCurrentItem(i);
    accept();
  });
  resize(480, 360);
}

std::string LoadForm::path() const {
  const QListWidgetItem* i = lists_->files()->currentItem();
  return dialogPath(toBytes(lists_->directory()), i == nullptr ? std::string() : toBytes(i->text()));
}

}  // namespace marloven::screens
