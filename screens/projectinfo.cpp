#include "screens/projectinfo.h"

#include <QAction>
#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/key_filter.h"
#include "screens/text_codec.h"
#include "screens/text_viewer.h"
#include "screens/weatherform.h"

namespace marloven::screens {

ProjectInfoScreen::ProjectInfoScreen(AppState& state, Prompt& prompt, QWidget* parent)
    : QDialog(parent), state_(state), prompt_(prompt), logic_(state, prompt) {
  setObjectName("projectinfo");
  build();
  logic_.open();
  refresh();
  // Box 0 belongs to the Building Type menu; start where typing is welcome.
  boxes_[kProjectName]->setFocus();
}

void ProjectInfoScreen::build() {
  auto* bar = new QMenuBar(this);
  btype_ = bar->addMenu(tr("&Building Type"));
  btype_->setObjectName("btype");
  for (int n = 1; n <= kBuildingTypes; ++n) {
    QAction* a = btype_->addAction(fromBytes(kBuildingTypeCaptions[n]));
    a->setObjectName(QString("building%1").arg(n));
    connect(a, &QAction::triggered, this, [this, n] {
      QApplication::setOverrideCursor(Qt::WaitCursor);
      logic_.chooseBuildingType(n);
      QApplication::restoreOverrideCursor();
      refresh();
    });
    building_[n] = a;
  }
  addTutorialMenu(bar, this, state_.install.dir(), "help2.txt", [this] { return logic_.tutorialCaption(); }, prompt_);

  auto* frame = new QGroupBox(tr("General Project Data"), this);
  auto* grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(6);
  const QFontMetrics fm(font());
  for (int i = 0; i < ProjectInfoForm::kBoxes; ++i) {
    auto* label = new QLabel(fromBytes(ProjectInfoForm::label(i)), frame);
    label->setObjectName(QString("project%1").arg(i));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* box = new QLineEdit(frame);
    box->setObjectName(QString("projectid%1").arg(i));
    label->setBuddy(box);
    // Texts are wide on the left, numbers short on the right.
    box->setMinimumWidth(fm.horizontalAdvance(QLatin1Char('M')) * (i <= 5 ? 22 : 10));
    auto* unit = new QLabel(frame);
    unit->setObjectName(QString("unit%1").arg(i));
    grid->addWidget(label, i, 0);
    grid->addWidget(box, i, 1, 1, i <= 5 ? 2 : 1);
    if (i > 5) grid->addWidget(unit, i, 2);
    boxes_[i] = box;
    units_[i] = unit;

    BoxFilter::Handlers h;
    h.key = [this, i](char k) { return logic_.keyPress(i, k); };
    h.released = [this, i] { logic_.keyReleased(i); };
    h.clicked = [this, i] { logic_.clickBox(i); };
    h.enter = [this] { accept(); };
    h.escape = [this] { reject(); };
    new BoxFilter(box, std::move(h));
    connect(box, &QLineEdit::textEdited, this,
            [this, i](const QString& t) { logic_.textChanged(i, toBytes(t)); });
  }
  weather_ = new QPushButton(tr("Get Weather"), frame);
  weather_->setObjectName("getweather");
  grid->addWidget(weather_, kLocation, 3);
  grid->setColumnStretch(1, 1);
  connect(weather_, &QPushButton::clicked, this, [this] {
    logic_.clickGetWeather();
    WeatherScreen w(state_, prompt_, this);
    w.exec();
    if (w.logic().projectInfoLocationChanged()) logic_.weatherApplied();
    refresh();
  });

  auto* hint = new QPlainTextEdit(this);
  hint->setObjectName("Text1");
  hint->setReadOnly(true);
  hint->setFocusPolicy(Qt::NoFocus);
  QString text;
  for (const std::string& line : ProjectInfoForm::hintLines()) text += fromBytes(line) + "\n";
  hint->setPlainText(text.trimmed());
  hint->setLineWrapMode(QPlainTextEdit::WidgetWidth);
  hint->setMinimumWidth(fm.horizontalAdvance(QString(34, QLatin1Char('n'))));
  QPalette pal = hint->palette();
  pal.setColor(QPalette::Base, pal.color(QPalette::Window));
  hint->setPalette(pal);

  ok_ = new QPushButton(tr("OK"), this);
  ok_->setObjectName("ok");
  cancel_ = new QPushButton(tr("Cancel"), this);
  cancel_->setObjectName("cancel");
  undo_ = new QPushButton(tr("Undo Last"), this);
  undo_->setObjectName("undobutton");
  for (QPushButton* b : {ok_, cancel_, undo_}) b->setAutoDefault(false);
  connect(ok_, &QPushButton::clicked, this, &ProjectInfoScreen::accept);
  connect(cancel_, &QPushButton::clicked, this, &ProjectInfoScreen::reject);
  connect(undo_, &QPushButton::clicked, this, [this] {
    logic_.clickUndo();
    refresh();
  });

  auto* buttons = new QVBoxLayout;
  buttons->addWidget(ok_);
  buttons->addWidget(cancel_);
  buttons->addWidget(undo_);
  buttons->addStretch(1);
  auto* body = new QHBoxLayout;
  body->addWidget(frame, 1);
  body->addWidget(hint);
  body->addLayout(buttons);
  auto* layout = new QVBoxLayout(this);
  layout->setMenuBar(bar);
  layout->addLayout(body);
}

void ProjectInfoScreen::refresh() {
  setWindowTitle(fromBytes(logic_.caption()));
  btype_->setEnabled(logic_.buildingTypeMenuEnabled());
  btype_->menuAction()->setEnabled(logic_.buildingTypeMenuEnabled());
  for (int i = 0; i < ProjectInfoForm::kBoxes; ++i) {
    const QString t = fromBytes(logic_.box(i));
    if (boxes_[i]->text() != t) boxes_[i]->setText(t);
    units_[i]->setText(fromBytes(logic_.unitLabel(i)));
  }
}

void ProjectInfoScreen::accept() {
  if (logic_.clickOk()) QDialog::accept();
}

void ProjectInfoScreen::reject() {
  logic_.clickCancel();
  refresh();
  QDialog::reject();
}

}  // namespace marloven::screens
