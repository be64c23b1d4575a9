#include "screens/controlpanel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

namespace marloven::screens {

ControlPanel::ControlPanel(Colour start, QWidget* parent) : QDialog(parent), colour_(start) {
  setObjectName("ControlPanel");
  setWindowTitle(tr("Control Panel"));
  auto* grid = new QGridLayout(this);
  const char* names[3] = {"NewRed", "NewGreen", "NewBlue"};
  const QString labels[3] = {tr("Red"), tr("Green"), tr("Blue")};
  const int values[3] = {redOf(start), greenOf(start), blueOf(start)};
  for (int i = 0; i < 3; ++i) {
    bars_[i] = new QScrollBar(Qt::Horizontal, this);
    bars_[i]->setObjectName(names[i]);
    bars_[i]->setRange(0, 255);
    bars_[i]->setPageStep(16);
    bars_[i]->setValue(values[i]);
    bars_[i]->setMinimumWidth(200);
    connect(bars_[i], &QScrollBar::valueChanged, this, [this] { mix(); });
    grid->addWidget(new QLabel(labels[i], this), i, 0);
    grid->addWidget(bars_[i], i, 1);
  }
  grid->addWidget(new QLabel(tr("New Drawing Color:"), this), 3, 0);
  swatch_ = new QLabel(this);
  swatch_->setObjectName("NewColor");
  swatch_->setMinimumSize(60, 24);
  swatch_->setAutoFillBackground(true);
  grid->addWidget(swatch_, 3, 1);
  auto* ok = new QPushButton(tr("OK"), this);
  ok->setObjectName("okbutton");
  ok->setDefault(true);
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName("cancelbutton");
  auto* row = new QHBoxLayout;
  row->addStretch(1);
  row->addWidget(ok);
  row->addWidget(cancel);
  grid->addLayout(row, 4, 0, 1, 2);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  mix();
}

void ControlPanel::mix() {
  colour_ = rgb(bars_[0]->value(), bars_[1]->value(), bars_[2]->value());
  QPalette p = swatch_->palette();
  p.setColor(QPalette::Window, QColor(redOf(colour_), greenOf(colour_), blueOf(colour_)));
  swatch_->setPalette(p);
}

}  // namespace marloven::screens
