#include "screens/project_file_dialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace marloven::screens {

namespace {

struct Names {
  const char* form;
  const char* box;
  const char* cancel;
  const char* title;
};

Names namesOf(ProjectFileDialog::Mode m) {
  switch (m) {
    case ProjectFileDialog::Mode::Retrieve: return {"oldfileform", "retrievefile", "cancelbutton", "Retrieve Old Project"};
    case ProjectFileDialog::Mode::Sample: return {"SampleFileForm", "retrievefile", "cancelbutton", "Sample Projects"};
    case ProjectFileDialog::Mode::SaveInput: return {"saveinputform", "inputname", "cancelbuttton", "Save Project File"};
    case ProjectFileDialog::Mode::SaveOutput: return {"saveoutform", "outputname", "cancelbuttton", "Save Output File"};
  }
  return {};
}

}  // namespace

ProjectFileDialog::ProjectFileDialog(Mode mode, const QString& directory, const QString& pattern,
                                     const QString& name, QWidget* parent)
    : QDialog(parent), mode_(mode), pattern_(pattern) {
  const Names n = namesOf(mode);
  setObjectName(n.form);
  setWindowTitle(tr(n.title));

  auto* layout = new QVBoxLayout(this);
  message_ = new QLabel(this);
  message_->setObjectName("message");
  message_->setWordWrap(true);
  message_->hide();
  layout->addWidget(message_);
  if (mode == Mode::SaveInput) layout->addWidget(new QLabel("Save Input File As :", this));

  name_ = new QLineEdit(name, this);
  name_->setObjectName(n.box);
  layout->addWidget(name_);

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
  // The sample list stays in the installation's sample folder.
  folders_->setVisible(mode != Mode::Sample);

  if (mode == Mode::SaveInput) {
    auto* box = new QGroupBox(this);
    box->setObjectName("savetype");
    auto* row = new QHBoxLayout(box);
    ip_ = new QRadioButton("I-P Units", box);
    si_ = new QRadioButton("S-I Units", box);
    row->addWidget(ip_);
    row->addWidget(si_);
    layout->addWidget(box);
  }

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Ok)->setObjectName("okbutton");
  buttons->button(QDialogButtonBox::Cancel)->setObjectName(n.cancel);
  buttons->button(QDialogButtonBox::Ok)->setDefault(true);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, [this] {
    if (!name_->text().trimmed().isEmpty()) accept();
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  connect(files_, &QListWidget::itemClicked, this, [this](QListWidgetItem* i) { name_->setText(i->text()); });
  connect(files_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* i) {
    name_->setText(i->text());
    accept();
  });
  connect(folders_, &QListWidget::itemActivated, this, [this](QListWidgetItem* i) {
    setDirectory(QDir(directory_).absoluteFilePath(i->text()));
  });

  setDirectory(directory);
  resize(520, 420);
}

void ProjectFileDialog::setDirectory(const QString& directory) {
  directory_ = QDir::cleanPath(QDir(directory).absolutePath());
  relist();
}

void ProjectFileDialog::relist() {
  where_->setText(directory_);
  QDir dir(directory_);
  folders_->clear();
  if (!dir.isRoot()) folders_->addItem("..");
  folders_->addItems(dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name));
  files_->clear();
  files_->addItems(dir.entryList({pattern_}, QDir::Files, QDir::Name));
}

QString ProjectFileDialog::name() const { return name_->text().trimmed(); }

UnitSystem ProjectFileDialog::units() const {
  return ip_ != nullptr && ip_->isChecked() ? UnitSystem::IP : UnitSystem::SI;
}

void ProjectFileDialog::setUnits(UnitSystem units) {
  if (ip_ == nullptr) return;
  (units == UnitSystem::IP ? ip_ : si_)->setChecked(true);
}

void ProjectFileDialog::setMessage(const QString& text) {
  message_->setText(text);
  message_->setVisible(!text.isEmpty());
}

}  // namespace marloven::screens
