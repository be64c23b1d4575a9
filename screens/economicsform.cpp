#include "screens/economicsform.h"

#include <QAction>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/key_filter.h"
#include "screens/text_codec.h"
#include "screens/text_viewer.h"

namespace marloven::screens {

namespace {

QLabel* rightLabel(const QString& text, QWidget* parent) {
  auto* l = new QLabel(text, parent);
  l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return l;
}

}  // namespace

DemandChargeDialog::DemandChargeDialog(DemandChargeForm& logic, QWidget* parent)
    : QDialog(parent), logic_(logic) {
  setObjectName("Demandcharge");
  setWindowTitle(tr("Demand Charge"));
  auto* grid = new QGridLayout;
  grid->addWidget(new QLabel(tr("KW Increment"), this), 0, 0, Qt::AlignHCenter);
  grid->addWidget(new QLabel(tr("Cost ($)"), this), 0, 1, Qt::AlignHCenter);
  const int width = fontMetrics().horizontalAdvance(QString(12, QLatin1Char('0')));
  for (int r = 0; r < DemandChargeForm::kRows; ++r)
    for (int c = 0; c < 2; ++c) {
      auto* b = new QLineEdit(fromBytes(logic_.text(r, c)), this);
      b->setObjectName(QString(c == 0 ? "demandtext%1" : "charge%1").arg(r));
      b->setMinimumWidth(width);
      BoxFilter::Handlers h;
      h.key = [this, r, c](char k) { return logic_.keyPress(r, c, k); };
      h.enter = [this] { accept(); };
      h.escape = [this] { reject(); };
      new BoxFilter(b, std::move(h));
      connect(b, &QLineEdit::textEdited, this,
              [this, r, c](const QString& t) { logic_.textChanged(r, c, toBytes(t)); });
      grid->addWidget(b, r + 1, c);
      boxes_[r][c] = b;
    }
  auto* ok = new QPushButton(tr("OK"), this);
  ok->setObjectName("back");
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName("cancel");
  for (QPushButton* b : {ok, cancel}) b->setAutoDefault(false);
  connect(ok, &QPushButton::clicked, this, &DemandChargeDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &DemandChargeDialog::reject);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grid);
  layout->addLayout(buttons);
}

void DemandChargeDialog::accept() {
  logic_.clickOk();
  QDialog::accept();
}

EconomicsScreen::EconomicsScreen(AppState& state, Prompt& prompt, QWidget* parent)
    : QDialog(parent), state_(state), prompt_(prompt), logic_(state, prompt) {
  setObjectName("Economicsform");
  build();
  logic_.open();
  refresh();
}

void EconomicsScreen::build() {
  auto* bar = new QMenuBar(this);
  // The life and rate menus: each item puts its caption into the last box used.
  auto valueMenu = [&](const QString& title, const char* name, const std::vector<std::string>& items,
                       auto actions, void (EconomicsForm::*choose)(int)) {
    QMenu* m = bar->addMenu(title);
    m->setObjectName(name);
    for (int i = 0; i < static_cast<int>(items.size()); ++i) {
      (*actions)[i] = m->addAction(fromBytes(items[i]));
      connect((*actions)[i], &QAction::triggered, this, [this, i, choose] {
        (logic_.*choose)(i);
        refresh();
      });
    }
  };
  valueMenu(tr("&Econ./Mech./Solar Life"), "emsLife", EconomicsForm::lifeItems(), &life_, &EconomicsForm::chooseLife);
  valueMenu(tr("Esc./Disc. Rate"), "Escdisc", EconomicsForm::rateItems(), &rate_, &EconomicsForm::chooseRate);
  addTutorialMenu(bar, this, state_.install.dir(), "help3.txt", [this] { return logic_.tutorialCaption(); }, prompt_);

  auto* frame = new QGroupBox(tr("ECONOMIC PARAMETERS"), this);
  auto* grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(6);
  const int boxWidth = fontMetrics().horizontalAdvance(QString(9, QLatin1Char('0')));
  for (int i = 0; i < EconomicsForm::kBoxes; ++i) {
    auto* b = new QLineEdit(frame);
    b->setObjectName(QString("economics%1").arg(i));
    b->setMinimumWidth(boxWidth);
    b->setMaximumWidth(boxWidth * 2);
    BoxFilter::Handlers h;
    h.key = [this, i](char k) { return logic_.keyPress(i, k); };
    h.clicked = [this, i] { logic_.clickBox(i); };
    h.enter = [this] { accept(); };
    h.escape = [this] { reject(); };
    new BoxFilter(b, std::move(h));
    connect(b, &QLineEdit::textEdited, this, [this, i](const QString& t) { logic_.textChanged(i, toBytes(t)); });
    boxes_[i] = b;
    units_[i] = new QLabel(frame);
    units_[i]->setObjectName(QString("unit%1").arg(i));
  }
  // Lives and rates: one box a row.
  int row = 0;
  for (int i = kEconomicLife; i <= kCostEscalation; ++i, ++row) {
    QLabel* l = rightLabel(fromBytes(EconomicsForm::label(i)), frame);
    if (i == kCostEscalation) {
      // The caption's blanks are its layout over two lines.
      l->setWordWrap(true);
      l->setFixedWidth(l->fontMetrics().horizontalAdvance(QStringLiteral("Escalation          :")) * 6 / 5);
      l->setMinimumHeight(l->heightForWidth(l->width()));
    }
    l->setBuddy(boxes_[i]);
    grid->addWidget(l, row, 0, Qt::AlignRight);
    grid->addWidget(boxes_[i], row, 1);
    grid->addWidget(units_[i], row, 2);
  }
  // Energy prices, each with its escalation beside it.
  auto* heading = new QLabel(tr(" ENERGY COSTS:"), frame);
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  grid->addWidget(heading, row++, 0, 1, 2);
  for (int i = kElecCost; i <= kWaterCost; i += 2, ++row) {
    QLabel* l = rightLabel(fromBytes(EconomicsForm::label(i)), frame);
    l->setBuddy(boxes_[i]);
    grid->addWidget(l, row, 0);
    grid->addWidget(boxes_[i], row, 1);
    grid->addWidget(units_[i], row, 2);
    QLabel* esc = rightLabel(fromBytes(EconomicsForm::label(i + 1)), frame);
    esc->setBuddy(boxes_[i + 1]);
    grid->addWidget(esc, row, 3);
    grid->addWidget(boxes_[i + 1], row, 4);
  }
  auto* demandLabel = rightLabel(tr(" Demand Charge  Schedule       :"), frame);
  demand_ = new QPushButton(frame);
  demand_->setObjectName("demand");
  demand_->setAutoDefault(false);
  demand_->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("MMMM")));
  demand_->setToolTip(tr("Y: a demand charge schedule applies. Turning it on opens the schedule."));
  connect(demand_, &QPushButton::clicked, this, &EconomicsScreen::toggleDemand);
  grid->addWidget(demandLabel, row, 0);
  grid->addWidget(demand_, row, 1, Qt::AlignLeft);
  grid->setColumnMinimumWidth(2, fontMetrics().horizontalAdvance(QStringLiteral(" $/1000 G ")));

  ok_ = new QPushButton(tr("OK"), this);
  ok_->setObjectName("okey");
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName("cancel");
  undo_ = new QPushButton(tr("Undo Last"), this);
  undo_->setObjectName("Undo");
  for (QPushButton* b : {ok_, cancel, undo_}) b->setAutoDefault(false);
  connect(ok_, &QPushButton::clicked, this, &EconomicsScreen::accept);
  connect(cancel, &QPushButton::clicked, this, &EconomicsScreen::reject);
  connect(undo_, &QPushButton::clicked, this, [this] {
    logic_.clickUndo();
    refresh();
  });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(ok_);
  buttons->addWidget(cancel);
  buttons->addWidget(undo_);

  auto* layout = new QVBoxLayout(this);
  layout->setMenuBar(bar);
  layout->addWidget(frame);
  layout->addLayout(buttons);
}

void EconomicsScreen::refresh() {
  setWindowTitle(fromBytes(logic_.caption()));
  for (int i = 0; i < EconomicsForm::kBoxes; ++i) {
    const QString t = fromBytes(logic_.box(i));
    if (boxes_[i]->text() != t) boxes_[i]->setText(t);
    units_[i]->setText(fromBytes(logic_.unitLabel(i)));
  }
  demand_->setText(fromBytes(logic_.demand()));
}

void EconomicsScreen::toggleDemand() {
  const bool show = logic_.toggleDemand();
  refresh();
  if (!show) return;
  DemandChargeDialog d(logic_.schedule(), this);
  d.exec();
}

void EconomicsScreen::accept() {
  if (logic_.clickOk()) QDialog::accept();
}

void EconomicsScreen::reject() {
  logic_.clickCancel();
  refresh();
  QDialog::reject();
}

}  // namespace marloven::screens
