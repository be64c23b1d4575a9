#include "screens/saveform.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "common/file_error.h"
#include "screens/text_codec.h"
#include "sketch/sketch_copies.h"

namespace marloven::screens {

SaveForm::SaveForm(AppState& state, const QImage& canvas, Prompt& prompt, QWidget* parent)
    : QDialog(parent), state_(state), canvas_(canvas), prompt_(prompt) {
  setObjectName("SaveForm");
  setWindowTitle(tr("Save Drawing"));
  auto* layout = new QVBoxLayout(this);
  auto* label = new QLabel(tr("Save the drawing as:"), this);
  label->setObjectName("Label1");
  layout->addWidget(label);
  auto* kinds = new QHBoxLayout;
  options_[0] = new QRadioButton(tr("Picture (*.jpg)"), this);
  options_[1] = new QRadioButton(tr("Sketch file (*.wri)"), this);
  for (int i = 0; i < 2; ++i) {
    options_[i]->setObjectName(QString("Option1_%1").arg(i));
    kinds->addWidget(options_[i]);
    connect(options_[i], &QRadioButton::clicked, this, [this] { chooseKind(); });
  }
  layout->addLayout(kinds);
  name_ = new QLineEdit(this);
  name_->setObjectName("FilenameBox");
  layout->addWidget(name_);
  lists_ = new FolderFiles(QDir::currentPath(), "*.wri", this);
  layout->addWidget(lists_, 1);
  connect(lists_->files(), &QListWidget::itemClicked, this, [this](QListWidgetItem* i) { name_->setText(i->text()); });
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Ok)->setObjectName("okbutton");
  buttons->button(QDialogButtonBox::Cancel)->setObjectName("cancelbutton");
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, [this] { save(); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  baseName_ = sketchCopyName(state_.project.fileName, "");
  options_[1]->setChecked(true);
  chooseKind();
  resize(480, 380);
}

void SaveForm::chooseKind() {
  const bool copy = options_[1]->isChecked();
  lists_->setPattern(copy ? "*.wri" : "*.jpg");
  name_->setText(fromBytes(baseName_ + (copy ? ".wri" : ".jpg")));
}

void SaveForm::save() {
  const std::string path = dialogPath(toBytes(lists_->directory()), toBytes(name_->text()));
  try {
    if (options_[1]->isChecked()) {
      saveSketchCopy(state_.install.dir(), path);
    } else if (!canvas_.save(fromBytes(path), "JPG")) {
      throw FileError(err::kPathFileAccess, path);
    }
  } catch (const std::exception& e) {
    prompt_.message(Icon::Exclamation, "Paint", e.what());
    return;
  }
  accept();
}

}  // namespace marloven::screens
