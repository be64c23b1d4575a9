#include "screens/project_file_dialog.h"

#include "screens/folder_files.h"

#include <QDialogButtonBox>
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
    case ProjectFileDialog::Mode::ViewOutput: return {"selectview", "Text1", "cancel", "View Output"};
  }
  return {};
}

}  // namespace

ProjectFileDialog::ProjectFileDialog(Mode mode, const QString& directory, const QString& pattern,
                                     const QString& name, QWidget* parent)
    : QDialog(parent) {
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
  if (mode == Mode::ViewOutput) layout->addWidget(new QLabel(" Output file name:", this));

  name_ = new QLineEdit(name, this);
  name_->setObjectName(n.box);
  layout->addWidget(name_);

  lists_ = new FolderFiles(directory, pattern, this);
  layout->addWidget(lists_, 1);
  // The sample list stays in the installation's sample folder.
  lists_->folders()->setVisible(mode != Mode::Sample);

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

  buttons_ = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  auto* buttons = buttons_;
  buttons->button(QDialogButtonBox::Ok)->setObjectName("okbutton");
  buttons->button(QDialogButtonBox::Cancel)->setObjectName(n.cancel);
  buttons->button(QDialogButtonBox::Ok)->setDefault(true);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, [this] {
    if (!name_->text().trimmed().isEmpty()) accept();
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  connect(files(), &QListWidget::itemClicked, this, [this](QListWidgetItem* i) { name_->setText(i->text()); });
  connect(files(), &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* i) {
    name_->setText(i->text());
    accept();
  });

  resize(520, 420);
}

QString ProjectFileDialog::directory() const { return lists_->directory(); }

void ProjectFileDialog::setDirectory(const QString& directory) { lists_->setDirectory(directory); }

QListWidget* ProjectFileDialog::files() const { return lists_->files(); }

QListWidget* ProjectFileDialog::folders() const { return lists_->folders(); }

QString ProjectFileDialog::name() const { return name_->text().trimmed(); }

UnitSystem ProjectFileDialog::units() const {
  return ip_ != nullptr && ip_->isChecked() ? UnitSystem::IP : UnitSystem::SI;
}

void ProjectFileDialog::setUnits(UnitSystem units) {
  if (ip_ == nullptr) return;
  (units == UnitSystem::IP ? ip_ : si_)->setChecked(true);
}

void ProjectFileDialog::offerRun() {
  QPushButton* run = buttons_->addButton(tr("Run"), QDialogButtonBox::ActionRole);
  run->setObjectName("nosave");
  connect(run, &QPushButton::clicked, this, [this] {
    setMessage({});
    done(kRunResult);
  });
}

void ProjectFileDialog::setMessage(const QString& text) {
  message_->setText(text);
  message_->setVisible(!text.isEmpty());
}

}  // namespace marloven::screens
