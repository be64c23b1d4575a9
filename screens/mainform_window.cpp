#include "screens/mainform_window.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace marloven::screens {

namespace {

QLabel* titleLabel(const QString& text, double scale, bool bold, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  QFont f = label->font();
  f.setPointSizeF(f.pointSizeF() * scale);
  f.setBold(bold);
  label->setFont(f);
  label->setAlignment(Qt::AlignCenter);
  return label;
}

}  // namespace

MainFormWindow::MainFormWindow(AppState& state, Prompt& prompt, QWidget* parent)
    : QWidget(parent), logic_(state, prompt) {
  setObjectName("mainform");
  setWindowTitle(MainForm::kCaption);

  frame_ = new QFrame(this);
  frame_->setObjectName("Frame1");
  frame_->setFrameShape(QFrame::StyledPanel);
  frame_->setFrameShadow(QFrame::Raised);

  auto* unitsBox = new QGroupBox(tr("Units"), frame_);
  auto* ip = new QRadioButton("I-P Units", unitsBox);
  auto* si = new QRadioButton("SI Units", unitsBox);
  ip->setObjectName("unitnum1");
  si->setObjectName("unitnum2");
  units_ = new QButtonGroup(this);
  units_->addButton(ip, 1);
  units_->addButton(si, 2);
  auto* unitsLayout = new QVBoxLayout(unitsBox);
  unitsLayout->addWidget(ip);
  unitsLayout->addWidget(si);

  continue_ = new QPushButton("Continue >>", frame_);
  continue_->setObjectName("continue");

  auto* rule = new QFrame(frame_);
  rule->setFrameShape(QFrame::HLine);
  rule->setFrameShadow(QFrame::Sunken);

  auto* bottom = new QHBoxLayout;
  bottom->addWidget(unitsBox);
  bottom->addStretch(1);
  bottom->addWidget(continue_, 0, Qt::AlignBottom);

  auto* inner = new QVBoxLayout(frame_);
  inner->setContentsMargins(32, 24, 32, 20);
  inner->setSpacing(6);
  inner->addWidget(titleLabel("MARLOVEN EC", 2.6, true, frame_));
  inner->addWidget(titleLabel("Energy Compliance", 1.5, false, frame_));
  inner->addWidget(titleLabel("Release 6.5", 1.0, false, frame_));
  inner->addSpacing(12);
  inner->addWidget(rule);
  inner->addSpacing(8);
  inner->addLayout(bottom);

  // The frame stays centred: half the free space above and left of it.
  auto* outer = new QGridLayout(this);
  outer->addWidget(frame_, 1, 1);
  outer->setRowStretch(0, 1);
  outer->setRowStretch(2, 1);
  outer->setColumnStretch(0, 1);
  outer->setColumnStretch(2, 1);

  resize(640, 440);

  connect(units_, &QButtonGroup::idPressed, this, [this](int id) {
    logic_.pressUnit(id);
    syncUnits();
  });
  for (QAbstractButton* b : units_->buttons()) b->installEventFilter(this);
  connect(continue_, &QPushButton::clicked, this, &MainFormWindow::clickContinue);
}

QRadioButton* MainFormWindow::unitButton(int index) const {
  return qobject_cast<QRadioButton*>(units_->button(index));
}

void MainFormWindow::syncUnits() {
  const int selected = logic_.selectedUnit();
  if (selected == 0) {
    // An exclusive group cannot be cleared button by button.
    units_->setExclusive(false);
    for (QAbstractButton* b : units_->buttons()) b->setChecked(false);
    units_->setExclusive(true);
  } else {
    units_->button(selected)->setChecked(true);
  }
}

void MainFormWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (shownBefore_) return;
  shownBefore_ = true;
  logic_.shown();
  syncUnits();
  continue_->setFocus();
}

void MainFormWindow::clickContinue() {
  if (logic_.clickContinue()) emit continued();
}

void MainFormWindow::closeEvent(QCloseEvent* event) {
  if (logic_.closeRequested()) {
    event->accept();
    emit programEnds();
  } else {
    event->ignore();
    emit mainScreenWanted();
  }
}

void MainFormWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    continue_->click();
    return;
  }
  QWidget::keyPressEvent(event);
}

bool MainFormWindow::eventFilter(QObject* watched, QEvent* event) {
  // The question comes on releasing the mouse on an option, not on keys, and
  // after the button has handled the release so it is not drawn pressed
  // behind the message box.
  if (event->type() == QEvent::MouseButtonRelease &&
      static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton &&
      units_->id(qobject_cast<QAbstractButton*>(watched)) > 0) {
    QMetaObject::invokeMethod(this, [this] { logic_.releaseUnit(); }, Qt::QueuedConnection);
  }
  // Qt moves between stacked options with Up and Down only; Left and Right do
  // the same here.
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    const int id = units_->id(qobject_cast<QAbstractButton*>(watched));
    if (id > 0 && (key == Qt::Key_Left || key == Qt::Key_Right)) {
      if (QAbstractButton* next = units_->button(key == Qt::Key_Left ? id - 1 : id + 1)) {
        next->click();
        next->setFocus(Qt::TabFocusReason);
      }
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace marloven::screens
