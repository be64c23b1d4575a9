#include "screens/selectweth.h"

#include <QFontDatabase>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "screens/folder_files.h"
#include "screens/text_codec.h"
#include "screens/text_viewer.h"

namespace marloven::screens {

WeatherPreview::WeatherPreview(SelectWeatherForm& logic, const std::string& text, QWidget* parent)
    : QDialog(parent), logic_(logic) {
  setObjectName("viewweather");
  setWindowTitle(fromBytes(logic_.previewCaption()));
  text_ = new QPlainTextEdit(this);
  text_->setObjectName("Text1");
  text_->setReadOnly(true);
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  QString shown = fromBytes(text);
  shown.replace("\r\n", "\n");
  text_->setPlainText(shown);
  const QFontMetrics fm(text_->font());
  text_->setMinimumSize(fm.horizontalAdvance(QString(90, QLatin1Char('0'))), fm.lineSpacing() * 27);
  auto* ok = new QPushButton(tr("OK"), this);
  ok->setObjectName("OK");
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName("cancel");
  connect(ok, &QPushButton::clicked, this, &WeatherPreview::accept);
  connect(cancel, &QPushButton::clicked, this, &WeatherPreview::reject);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(text_, 1);
  layout->addLayout(buttons);
  ok->setDefault(true);
}

void WeatherPreview::accept() {
  switch (logic_.previewOk()) {
    case SelectWeatherForm::PreviewNext::Stay: return;
    case SelectWeatherForm::PreviewNext::CloseBoth: closedBoth_ = true; break;
    case SelectWeatherForm::PreviewNext::ClosePreview: break;
  }
  QDialog::accept();
}

SelectWeatherScreen::SelectWeatherScreen(AppState& state, Prompt& prompt, const QString& directory,
                                         QWidget* parent)
    : QDialog(parent), state_(state), prompt_(prompt), logic_(state, prompt, toBytes(directory)) {
  setObjectName("selectweth");
  setWindowTitle(tr("Recorded Weather File"));

  lists_ = new FolderFiles(directory, "*.*", this);
  name_ = new QLineEdit(fromBytes(logic_.name()), this);
  name_->setObjectName("Text1");
  auto* nameLabel = new QLabel(tr("File name:"), this);
  nameLabel->setBuddy(name_);
  connect(lists_->files(), &QListWidget::currentTextChanged, this, [this](const QString& t) {
    if (!t.isEmpty()) name_->setText(t);
  });
  connect(lists_->files(), &QListWidget::itemActivated, this, [this] { accept(); });

  auto* format = new QGroupBox(tr("File Format"), this);
  auto* fl = new QVBoxLayout(format);
  const std::array<const char*, kRecordedFormats> names = {"TMY2", "WYEC2", "Custom", "IWEC"};
  for (int i = 0; i < kRecordedFormats; ++i) {
    formats_[i] = new QRadioButton(tr(names[i]), format);
    formats_[i]->setObjectName(QString("fileformat%1").arg(i));
    formats_[i]->setChecked(logic_.formatIndex() == i);
    connect(formats_[i], &QRadioButton::toggled, this, [this, i](bool on) {
      if (on) logic_.chooseFormat(i);
    });
    fl->addWidget(formats_[i]);
  }

  ok_ = new QPushButton(tr("OK"), this);
  ok_->setObjectName("OK");
  ok_->setDefault(true);
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName("cancel");
  view_ = new QPushButton(tr("View"), this);
  view_->setObjectName("view");
  auto* sample = new QPushButton(tr("Look at Sample"), this);
  sample->setObjectName("LookAtSample");
  auto* samples = new QMenu(sample);
  samples->setObjectName("fileform");
  const std::array<const char*, kRecordedFormats> menuNames = {"TMY2", "WYEC2", "IWEC", "Custom"};
  for (int i = 1; i <= kRecordedFormats; ++i) {
    QAction* a = samples->addAction(tr(menuNames[i - 1]));
    connect(a, &QAction::triggered, this, [this, i] {
      const WeatherSample s = sampleMenuEntry(i);
      showHelpFile(this, state_.install.dir(), s.file, tr(s.caption), prompt_);
    });
  }
  sample->setMenu(samples);
  connect(ok_, &QPushButton::clicked, this, &SelectWeatherScreen::accept);
  connect(cancel, &QPushButton::clicked, this, &SelectWeatherScreen::reject);
  connect(view_, &QPushButton::clicked, this, [this] {
    sync();
    const std::optional<std::string> text = logic_.view();
    name_->setText(fromBytes(logic_.name()));
    if (text && preview(*text)) QDialog::accept();
  });

  auto* side = new QVBoxLayout;
  side->addWidget(format);
  side->addStretch(1);
  for (QPushButton* b : {ok_, cancel, view_, sample}) side->addWidget(b);
  auto* left = new QVBoxLayout;
  left->addWidget(lists_, 1);
  auto* nameRow = new QHBoxLayout;
  nameRow->addWidget(nameLabel);
  nameRow->addWidget(name_, 1);
  left->addLayout(nameRow);
  auto* layout = new QHBoxLayout(this);
  layout->addLayout(left, 1);
  layout->addLayout(side);
  resize(640, 400);
}

void SelectWeatherScreen::sync() {
  logic_.setDirectory(toBytes(lists_->directory()));
  logic_.setName(toBytes(name_->text()));
}

bool SelectWeatherScreen::preview(const std::string& text) {
  WeatherPreview p(logic_, text, this);
  p.exec();
  return p.closedBoth();
}

void SelectWeatherScreen::accept() {
  sync();
  const SelectWeatherForm::Next next = logic_.clickOk();
  name_->setText(fromBytes(logic_.name()));
  if (next == SelectWeatherForm::Next::Close || (next == SelectWeatherForm::Next::Preview &&
                                                  preview(logic_.previewText())))
    QDialog::accept();
}

}  // namespace marloven::screens
