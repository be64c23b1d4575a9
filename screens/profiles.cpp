#include "screens/profiles.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <functional>

#include "common/number_text.h"
#include "common/split.h"
#include "screens/key_filter.h"
#include "screens/text_codec.h"

namespace marloven::screens {

namespace {

const QColor kYellow(0xff, 0xff, 0x00);

void paintRow(QLabel* label, QLineEdit* text, bool yellow) {
  for (QWidget* w : std::initializer_list<QWidget*>{label, text}) {
    QPalette p = w->palette();
    const QColor c = yellow ? kYellow : w->parentWidget()->palette().color(w == text ? QPalette::Base : QPalette::Window);
    p.setColor(w == text ? QPalette::Base : QPalette::Window, c);
    w->setPalette(p);
  }
  label->setAutoFillBackground(true);
}

QFont fixedFont() { return QFontDatabase::systemFont(QFontDatabase::FixedFont); }

// Edit menu acting on the focused row's selection.
template <typename Logic>
void editMenu(QMenuBar* bar, QDialog* owner, Logic& logic, const std::function<int()> focusedRow,
              const std::function<QLineEdit*(int)> box, const std::function<void()> refresh) {
  QMenu* edit = bar->addMenu(QObject::tr("&Edit"));
  auto range = [focusedRow, box](int& from, int& to) {
    QLineEdit* e = box(focusedRow());
    from = e->selectionStart() < 0 ? e->cursorPosition() : e->selectionStart();
    to = e->selectionStart() < 0 ? from : from + static_cast<int>(e->selectedText().size());
  };
  edit->addAction(QObject::tr("&Copy"), owner, [&logic, range] {
    int a, b;
    range(a, b);
    logic.copy(a, b);
  });
  edit->addAction(QObject::tr("Cu&t"), owner, [&logic, range, refresh] {
    int a, b;
    range(a, b);
    logic.cut(a, b);
    refresh();
  });
  edit->addAction(QObject::tr("&Paste"), owner, [&logic, range, refresh] {
    int a, b;
    range(a, b);
    logic.paste(a, b);
    refresh();
  });
}

// The foot of both windows: the plot, Undo Last and OK, under the menu and rows.
template <class Logic>
void finishWindow(QDialog* w, QMenuBar* bar, QGridLayout* grid, Logic& logic, HourPlot*& plot, QPushButton*& ok,
                  std::function<void()> accept, std::function<void()> refresh) {
  plot = new HourPlot(w);
  ok = new QPushButton(QObject::tr("OK"), w);
  ok->setObjectName("okey");
  auto* undo = new QPushButton(QObject::tr("Undo Last"), w);
  undo->setObjectName("Undo");
  for (QPushButton* b : {ok, undo}) b->setAutoDefault(false);
  QObject::connect(ok, &QPushButton::clicked, w, std::move(accept));
  QObject::connect(undo, &QPushButton::clicked, w, [&logic, refresh = std::move(refresh)] {
    logic.clickUndo();
    refresh();
  });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(undo);
  buttons->addWidget(ok);
  auto* layout = new QVBoxLayout(w);
  layout->setMenuBar(bar);
  layout->addLayout(grid);
  layout->addWidget(plot);
  layout->addLayout(buttons);
  w->setWindowTitle(fromBytes(logic.title()));
}

}  // namespace

HourPlot::HourPlot(QWidget* parent) : QWidget(parent) { setMinimumHeight(110); }

void HourPlot::setProfile(const std::string& text, const QString& unit, double top) {
  values_.fill(0);
  count_ = 0;
  for (const std::string& t : splitBlanks(text)) {
    if (count_ >= 24) break;
    values_[static_cast<std::size_t>(count_++)] = leadingNumber(t);
  }
  unit_ = unit;
  top_ = top;
  // A percent profile may be written as fractions, as the engine reads it:
  // no value above 1 means fractions, plotted on a scale of 1.
  if (top > 1 && count_ > 0 && *std::max_element(values_.begin(), values_.begin() + count_) <= 1) {
    top_ = 1;
    unit_ = tr("fraction");
  }
  update();
}

void HourPlot::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), palette().base());
  const QFontMetrics fm(font());
  const int left = fm.horizontalAdvance("0000") + 6, bottom = fm.height() + 4;
  const QString caption = tr("hour") + (unit_.isEmpty() ? QString() : "  (" + unit_ + ")");
  // The caption sits right of the plot, clear of the hour numbers.
  const QRectF area(left, 6, width() - left - fm.horizontalAdvance(caption) - 12, height() - bottom - 10);
  double lo = 0, hi = top_;
  for (int i = 0; i < count_; ++i) lo = std::min(lo, values_[static_cast<std::size_t>(i)]), hi = std::max(hi, values_[static_cast<std::size_t>(i)]);
  if (hi <= lo) hi = lo + 1;
  auto y = [&](double v) { return area.bottom() - (v - lo) / (hi - lo) * area.height(); };
  p.setPen(palette().color(QPalette::Mid));
  p.drawRect(area);
  p.setPen(palette().color(QPalette::Text));
  p.drawText(QRectF(0, area.top() - 2, left - 4, fm.height()), Qt::AlignRight, QString::number(hi));
  p.drawText(QRectF(0, area.bottom() - fm.height() + 2, left - 4, fm.height()), Qt::AlignRight, QString::number(lo));
  const double w = area.width() / 24;
  for (int h = 0; h < 24; ++h) {
    if (h < count_) {
      const double v = values_[static_cast<std::size_t>(h)];
      p.fillRect(QRectF(area.left() + h * w + 1, std::min(y(v), y(0)), w - 2, std::abs(y(v) - y(0))),
                 QColor(0x2b, 0x6c, 0xb0));
    }
    if (h % 3 == 0)
      p.drawText(QRectF(area.left() + h * w, area.bottom() + 2, w * 2, fm.height()), Qt::AlignLeft,
                 QString::number(h + 1));
  }
  p.drawText(QRectF(area.right() + 6, area.bottom() + 2, width() - area.right() - 6, fm.height()), Qt::AlignLeft,
             caption);
  if (count_ != 24) {
    p.setPen(QColor(0xa0, 0, 0));
    p.drawText(area, Qt::AlignCenter, tr("%1 values of 24").arg(count_));
  }
}

void RowLabel::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit clicked();
  QLabel::mousePressEvent(event);
}

// ------------------------------------------------------------ profile library

ProfileWindow::ProfileWindow(AppState& state, Prompt& prompt, int kind, QWidget* parent)
    : QDialog(parent), kind_(kind), logic_(state, prompt, kind) {
  setObjectName("occupprof");
  auto* bar = new QMenuBar(this);
  auto* grid = new QGridLayout;
  grid->setVerticalSpacing(2);
  auto* hours = new QLabel(ProfileForm::kHours, this);
  hours->setObjectName("Label1");
  hours->setFont(fixedFont());
  auto* ampm = new QHBoxLayout;
  ampm->addWidget(new QLabel(tr("A. M."), this));
  ampm->addStretch(1);
  ampm->addWidget(new QLabel(tr("P. M."), this));
  ampm->addStretch(1);
  grid->addLayout(ampm, 0, 1);
  grid->addWidget(hours, 1, 1);
  for (int r = 1; r <= ProfileForm::kVisibleRows; ++r) {
    auto* l = new RowLabel(this);
    l->setObjectName(QString("occ%1").arg(r));
    l->setMinimumWidth(fontMetrics().horizontalAdvance(QString(30, QLatin1Char('n'))));
    auto* e = new QLineEdit(this);
    e->setObjectName(QString("Text1%1").arg(r));
    e->setFont(fixedFont());
    e->setMinimumWidth(QFontMetrics(fixedFont()).horizontalAdvance(QString(76, QLatin1Char('0'))));
    connect(l, &RowLabel::clicked, this, [this, r] {
      logic_.clickLabel(r);
      refresh();
    });
    BoxFilter::Handlers h;
    h.key = [this, r](char k) { return logic_.keyPress(r, k); };
    h.clicked = [this, r] {
      logic_.clickText(r);
      plot_->setProfile(logic_.rowText(r), kind_ == 3 ? tr("on/off") : tr("%"), kind_ == 3 ? 1 : 100);
    };
    h.enter = [this] { accept(); };
    new BoxFilter(e, std::move(h));
    connect(e, &QLineEdit::textEdited, this, [this, r](const QString& t) {
      logic_.textChanged(r, toBytes(t));
      plot_->setProfile(logic_.rowText(r), kind_ == 3 ? tr("on/off") : tr("%"), kind_ == 3 ? 1 : 100);
    });
    grid->addWidget(l, r + 1, 0);
    grid->addWidget(e, r + 1, 1);
    labels_[static_cast<std::size_t>(r)] = l;
    texts_[static_cast<std::size_t>(r)] = e;
  }
  scroll_ = new QScrollBar(Qt::Vertical, this);
  scroll_->setObjectName("profscroll");
  scroll_->setRange(0, ProfileForm::kEntries - ProfileForm::kVisibleRows);
  scroll_->setSingleStep(1);
  scroll_->setPageStep(7);
  connect(scroll_, &QScrollBar::valueChanged, this, [this](int v) {
    logic_.setScroll(v);
    refresh();
  });
  grid->addWidget(scroll_, 2, 2, ProfileForm::kVisibleRows, 1);
  editMenu(bar, this, logic_, [this] {
    for (int r = 1; r <= ProfileForm::kVisibleRows; ++r)
      if (texts_[static_cast<std::size_t>(r)]->hasFocus()) return r;
    return 1;
  }, [this](int r) { return texts_[static_cast<std::size_t>(r)]; }, [this] { refresh(); });

  finishWindow(this, bar, grid, logic_, plot_, ok_, [this] { accept(); }, [this] { refresh(); });
  // Open where the zone's own profile is.
  scroll_->setValue(std::clamp(state.zoneEditing.selectedProfile - 1, 0, scroll_->maximum()));
  refresh();
  plot_->setProfile(logic_.selectedText(), kind_ == 3 ? tr("on/off") : tr("%"), kind_ == 3 ? 1 : 100);
}

void ProfileWindow::refresh() {
  for (int r = 1; r <= ProfileForm::kVisibleRows; ++r) {
    labels_[static_cast<std::size_t>(r)]->setText(fromBytes(logic_.rowLabel(r)));
    const QString t = fromBytes(logic_.rowText(r));
    QLineEdit* e = texts_[static_cast<std::size_t>(r)];
    if (e->text() != t) {
      e->setText(t);
      if (!e->hasFocus()) e->setCursorPosition(0);
    }
    paintRow(labels_[static_cast<std::size_t>(r)], e, logic_.rowYellow(r));
  }
}

void ProfileWindow::accept() {
  if (logic_.clickOk()) QDialog::accept();
}

void ProfileWindow::reject() {
  // No Cancel here: closing the window is OK.
  accept();
}

// -------------------------------------------------------- temperature profiles

TemperatureWindow::TemperatureWindow(AppState& state, Prompt& prompt, QWidget* parent)
    : QDialog(parent), state_(state), logic_(state, prompt) {
  setObjectName("temperature");
  opened_ = logic_.open();
  auto* bar = new QMenuBar(this);
  auto* grid = new QGridLayout;
  grid->setVerticalSpacing(2);
  auto* name = new QLabel(fromBytes(state.project.data[kProjectName]), this);
  name->setObjectName("btype");
  auto* hours = new QLabel(TemperatureForm::kHours, this);
  hours->setObjectName("Label1");
  hours->setFont(fixedFont());
  grid->addWidget(name, 0, 0);
  auto* ampm = new QHBoxLayout;
  ampm->addWidget(new QLabel(tr("A. M."), this));
  ampm->addStretch(1);
  ampm->addWidget(new QLabel(tr("P. M."), this));
  ampm->addStretch(1);
  grid->addLayout(ampm, 0, 1);
  grid->addWidget(hours, 1, 1);
  const QString unit = state.project.units == UnitSystem::SI ? tr("degree C") : tr("degree F");
  for (int r = 1; r <= TemperatureForm::kRows; ++r) {
    auto* l = new RowLabel(fromBytes(TemperatureForm::rowLabel(r)), this);
    l->setObjectName(QString("temp%1").arg(r));
    auto* e = new QLineEdit(this);
    e->setObjectName(QString("Text1%1").arg(r));
    e->setFont(fixedFont());
    e->setMinimumWidth(QFontMetrics(fixedFont()).horizontalAdvance(QString(98, QLatin1Char('0'))));
    connect(l, &RowLabel::clicked, this, [this, r] {
      logic_.clickLabel(r);
      shown_ = r;
      refresh();
    });
    BoxFilter::Handlers h;
    h.key = [this, r](char k) { return logic_.keyPress(r, k); };
    h.clicked = [this, r] {
      logic_.clickText(r);
      shown_ = r;
      refresh();
    };
    h.enter = [this] { accept(); };
    new BoxFilter(e, std::move(h));
    connect(e, &QLineEdit::textEdited, this, [this, r, unit](const QString& t) {
      logic_.textChanged(r, toBytes(t));
      plot_->setProfile(logic_.rowText(r), unit, 0);
    });
    grid->addWidget(l, r + 1, 0);
    grid->addWidget(e, r + 1, 1);
    labels_[static_cast<std::size_t>(r)] = l;
    texts_[static_cast<std::size_t>(r)] = e;
  }
  // Rows converted to degrees C carry a decimal: the boxes take the longest.
  int longest = 98;
  for (int r = 1; r <= TemperatureForm::kRows; ++r)
    longest = std::max(longest, static_cast<int>(logic_.rowText(r).size()) + 2);
  for (int r = 1; r <= TemperatureForm::kRows; ++r)
    texts_[static_cast<std::size_t>(r)]->setMinimumWidth(
        QFontMetrics(fixedFont()).horizontalAdvance(QString(longest, QLatin1Char('0'))));
  editMenu(bar, this, logic_, [this] {
    for (int r = 1; r <= TemperatureForm::kRows; ++r)
      if (texts_[static_cast<std::size_t>(r)]->hasFocus()) return r;
    return 1;
  }, [this](int r) { return texts_[static_cast<std::size_t>(r)]; }, [this] { refresh(); });
  finishWindow(this, bar, grid, logic_, plot_, ok_, [this] { accept(); }, [this] { refresh(); });
  refresh();
}

void TemperatureWindow::refresh() {
  for (int r = 1; r <= TemperatureForm::kRows; ++r) {
    const QString t = fromBytes(logic_.rowText(r));
    QLineEdit* e = texts_[static_cast<std::size_t>(r)];
    if (e->text() != t) {
      e->setText(t);
      if (!e->hasFocus()) e->setCursorPosition(0);  // a long row shows its first hours
    }
    paintRow(labels_[static_cast<std::size_t>(r)], e, logic_.rowYellow(r));
  }
  plot_->setProfile(logic_.rowText(shown_), state_.project.units == UnitSystem::SI ? tr("degree C") : tr("degree F"), 0);
}

void TemperatureWindow::accept() {
  if (logic_.clickOk()) QDialog::accept();
}

void TemperatureWindow::reject() { accept(); }

}  // namespace marloven::screens
