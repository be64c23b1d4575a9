#include "screens/weatherform.h"

#include <QApplication>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QProgressDialog>
#include <QPushButton>
#include <QVBoxLayout>
#include <chrono>
#include <cmath>
#include <future>
#include <limits>

#include "common/file_error.h"
#include "common/file_io.h"
#include "common/error_report.h"
#include "common/number_text.h"
#include "screens/key_filter.h"
#include "screens/text_codec.h"
#include "screens/text_viewer.h"

namespace marloven::screens {

namespace {

constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

// The plotted rows and their colours.
constexpr std::array<int, 3> kPlotted = {kDryBulbAverage, kDryBulbMaximum, kDewPointAverage};
const std::array<QColor, 3> kPlotColours = {QColor(0x1f, 0x6f, 0xb4), QColor(0xc0, 0x39, 0x2b),
                                            QColor(0x2e, 0x8b, 0x57)};
const std::array<const char*, 3> kPlotNames = {"Dry bulb", "Daily max.", "Dew point"};

bool sameBox(const WeatherBox& a, const WeatherBox& b) {
  return a.kind == b.kind && a.row == b.row && a.month == b.month;
}

}  // namespace

void DropDownCombo::showPopup() {
  emit droppingDown();
  QComboBox::showPopup();
}

MonthlyPlot::MonthlyPlot(QWidget* parent) : QWidget(parent) {
  setObjectName("monthlyplot");
  setMinimumSize(fontMetrics().horizontalAdvance(QStringLiteral("000 Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec ")),
                 fontMetrics().height() * 9);
  for (auto& s : series_) s.fill(std::numeric_limits<double>::quiet_NaN());
}

void MonthlyPlot::setSeries(const std::array<std::array<double, 12>, 3>& series, const QString& unit) {
  series_ = series;
  unit_ = unit;
  update();
}

QSize MonthlyPlot::sizeHint() const { return {360, 200}; }


void MonthlyPlot::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  p.fillRect(rect(), palette().base());
  const QFontMetrics fm(font());
  const int left = fm.horizontalAdvance("-000") + 10, right = 8, top = fm.height() + 8;
  const int bottom = fm.height() * 2 + 10;
  const QRect area(left, top, width() - left - right, height() - top - bottom);
  if (area.width() < 40 || area.height() < 40) return;

  double lo = std::numeric_limits<double>::infinity(), hi = -lo;
  for (const auto& s : series_)
    for (double v : s)
      if (std::isfinite(v)) lo = std::min(lo, v), hi = std::max(hi, v);
  if (!std::isfinite(lo)) lo = 0, hi = 100;
  // Round the axis to tens so the grid lines fall on whole degrees.
  lo = std::floor(lo / 10.0) * 10.0;
  hi = std::max(lo + 10.0, std::ceil(hi / 10.0) * 10.0);
  auto y = [&](double v) { return area.bottom() - (v - lo) / (hi - lo) * area.height(); };
  auto x = [&](int m) { return area.left() + (m + 0.5) * area.width() / 12.0; };

  p.setPen(palette().color(QPalette::Text));
  p.drawText(QRect(0, 2, width(), fm.height()), Qt::AlignHCenter, unit_);
  const int step = (hi - lo) > 60 ? 20 : 10;
  for (double v = lo; v <= hi + 1e-9; v += step) {
    p.setPen(QPen(palette().color(QPalette::Mid), 0, Qt::DotLine));
    p.drawLine(QPointF(area.left(), y(v)), QPointF(area.right(), y(v)));
    p.setPen(palette().color(QPalette::Text));
    p.drawText(QRectF(0, y(v) - fm.height() / 2.0, left - 6, fm.height()), Qt::AlignRight | Qt::AlignVCenter,
               QString::number(v));
  }
  for (int m = 0; m < 12; ++m)
    p.drawText(QRectF(x(m) - 20, area.bottom() + 2, 40, fm.height()), Qt::AlignHCenter, kMonths[m]);
  p.drawRect(area);

  int legendX = area.left();
  for (int s = 0; s < 3; ++s) {
    QPainterPath path;
    bool open = false;
    for (int m = 0; m < 12; ++m) {
      const double v = series_[s][m];
      if (!std::isfinite(v)) {
        open = false;
        continue;
      }
      const QPointF pt(x(m), y(v));
      if (open) path.lineTo(pt); else path.moveTo(pt);
      open = true;
      p.setBrush(kPlotColours[s]);
      p.setPen(Qt::NoPen);
      p.drawEllipse(pt, 2.5, 2.5);
    }
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(kPlotColours[s], 2));
    p.drawPath(path);
    const int ly = height() - fm.height() / 2 - 4;
    p.drawLine(legendX, ly, legendX + 14, ly);
    p.setPen(palette().color(QPalette::Text));
    const QString name = tr(kPlotNames[s]);
    p.drawText(legendX + 18, ly + fm.ascent() / 2 - 1, name);
    legendX += 18 + fm.horizontalAdvance(name) + 12;
  }
}

WeatherScreen::WeatherScreen(AppState& state, Prompt& prompt, QWidget* parent)
    : QDialog(parent), state_(state), prompt_(prompt), logic_(state, prompt) {
  setObjectName("weather");
  logic_.open();
  build();
  refresh();
}

QLineEdit* WeatherScreen::addBox(const WeatherBox& b, QWidget* parent, int chars) {
  auto* e = new QLineEdit(parent);
  e->setFixedWidth(fontMetrics().horizontalAdvance(QString(chars, QLatin1Char('0'))) + 12);
  BoxFilter::Handlers h;
  h.key = [this, b](char k) { return logic_.keyPress(b, k); };
  h.enter = [this] { accept(); };
  h.escape = [this] { reject(); };
  if (b.kind == WeatherBox::State) h.left = [this] {
    logic_.leaveState();
    refresh();
  };
  new BoxFilter(e, std::move(h));
  connect(e, &QLineEdit::textEdited, this, [this, b](const QString& t) {
    logic_.textChanged(b, toBytes(t));
    refresh();
  });
  boxes_.emplace_back(b, e);
  return e;
}

QLineEdit* WeatherScreen::box(const WeatherBox& b) const {
  for (const auto& [key, e] : boxes_)
    if (sameBox(key, b)) return e;
  return nullptr;
}

void WeatherScreen::build() {
  // Location and site.
  auto* place = new QGroupBox(tr("Location"), this);
  auto* pg = new QGridLayout(place);
  groups_ = new DropDownCombo(place);
  groups_->setObjectName("Combo1");
  groups_->setMinimumContentsLength(18);
  cities_ = new DropDownCombo(place);
  cities_->setObjectName("Combo3");
  cities_->setMinimumContentsLength(18);
  QLineEdit* sttext = addBox({WeatherBox::State}, place, 18);
  sttext->setObjectName("sttext");
  QLineEdit* citytext = addBox({WeatherBox::City}, place, 18);
  citytext->setObjectName("citytext");
  pg->addWidget(new QLabel(tr("U.S. State Name or ") + "\n" + tr("Country Name"), place), 0, 0);
  pg->addWidget(groups_, 0, 1);
  pg->addWidget(sttext, 0, 2);
  pg->addWidget(new QLabel(tr("City Name"), place), 1, 0);
  pg->addWidget(cities_, 1, 1);
  pg->addWidget(citytext, 1, 2);
  connect(groups_, &DropDownCombo::droppingDown, this, [this] {
    logic_.groupDropDown();
    refresh();
  });
  connect(groups_, qOverload<int>(&QComboBox::activated), this, [this](int i) {
    logic_.chooseGroup(i);
    refresh();
  });
  connect(cities_, &DropDownCombo::droppingDown, this, [this] {
    logic_.cityDropDown();
    refresh();
  });
  connect(cities_, qOverload<int>(&QComboBox::activated), this, [this](int i) {
    logic_.chooseCity(i);
    refresh();
  });

  auto* site = new QGridLayout;
  const std::array<std::pair<WeatherBox::Kind, const char*>, 5> siteBoxes = {{
      {WeatherBox::Station, "WMO or WBAN #"},
      {WeatherBox::Latitude, "Latitude"},
      {WeatherBox::Longitude, "Longitude"},
      {WeatherBox::TimeZone, "Time Zone"},
      {WeatherBox::Elevation, "Elevation"},
  }};
  const std::array<const char*, 5> siteNames = {"WMO", "latitude", "longitude", "timezone", "elev"};
  for (int i = 0; i < 5; ++i) {
    QLineEdit* e = addBox({siteBoxes[i].first}, place, i == 0 ? 7 : 6);
    e->setObjectName(siteNames[i]);
    auto* l = new QLabel(tr(siteBoxes[i].second), place);
    l->setBuddy(e);
    site->addWidget(l, 0, i);
    site->addWidget(e, 1, i);
  }
  elevationUnit_ = new QLabel(place);
  site->addWidget(elevationUnit_, 1, 5);
  site->setColumnStretch(6, 1);
  pg->addLayout(site, 2, 0, 1, 3);
  pg->setRowStretch(3, 1);

  plot_ = new MonthlyPlot(this);
  auto* top = new QHBoxLayout;
  top->addWidget(place);
  top->addWidget(plot_, 1);

  // The monthly grid.
  auto* summary = new QGroupBox(tr("Climatic Data Summary"), this);
  auto* grid = new QGridLayout(summary);
  grid->setHorizontalSpacing(4);
  grid->setVerticalSpacing(3);
  for (int m = 0; m < 12; ++m) grid->addWidget(new QLabel(tr(kMonths[m]), summary), 0, m + 1, Qt::AlignHCenter);
  static const std::array<const char*, kWeatherRows> kNames = {"dbave", "avestd", "dbmax", "mxstd",
                                                                "dpave", "dpstd",  "solar", "wind"};
  for (int r = 0; r < kWeatherRows; ++r) {
    grid->addWidget(new QLabel(fromBytes(kWeatherRowCaptions[r]), summary), r + 1, 0);
    for (int m = 0; m < 12; ++m) {
      QLineEdit* e = addBox({WeatherBox::Month, r, m}, summary, 5);
      e->setObjectName(QString("%1%2").arg(kNames[r]).arg(m + 1));
      e->setAlignment(Qt::AlignRight);
      grid->addWidget(e, r + 1, m + 1);
    }
    units_[r] = new QLabel(summary);
    grid->addWidget(units_[r], r + 1, 13);
  }

  auto* derive = new QGroupBox(tr("For New Entries or Revisions Only"), this);
  auto* dg = new QGridLayout(derive);
  dg->setHorizontalSpacing(4);
  const std::array<std::pair<WeatherBox::Kind, const char*>, 2> rows = {
      {{WeatherBox::AnnualExtreme, "Mean Ann. Extreme"}, {WeatherBox::ExtremeDryBulb, "Extreme Dry Bulb:"}}};
  for (int r = 0; r < 2; ++r) {
    dg->addWidget(new QLabel(tr(rows[r].second), derive), r, 0);
    for (int m = 0; m < 12; ++m) {
      QLineEdit* e = addBox({rows[r].first, 0, m}, derive, 5);
      e->setObjectName(QString(r == 0 ? "annext%1" : "extdb%1").arg(m + 1));
      e->setAlignment(Qt::AlignRight);
      dg->addWidget(e, r, m + 1);
    }
  }
  auto* note = new QLabel(tr("Enter monthly extreme DB's ever recorded or monthly means of annual extremes.") +
                              "  " + tr("Use when Std. Deviations are unknown."),
                          derive);
  note->setWordWrap(true);
  dg->addWidget(note, 2, 0, 1, 14);
  // The two frames' columns line up.
  const int captionWidth = fontMetrics().horizontalAdvance(QStringLiteral("Mean Ann. Extreme  "));
  grid->setColumnMinimumWidth(0, captionWidth);
  dg->setColumnMinimumWidth(0, captionWidth);
  dg->setColumnStretch(13, 1);
  grid->setColumnStretch(14, 1);

  ok_ = new QPushButton(tr("OK >>"), this);
  ok_->setObjectName("mainmenu");
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName("Command1");
  auto* saveNew = new QPushButton(tr("Save As New"), this);
  saveNew->setObjectName("savenew");
  auto* saveUpdate = new QPushButton(tr("Save As Update"), this);
  saveUpdate->setObjectName("saveupdate");
  auto* help = new QPushButton(tr("Tutorial"), this);
  help->setObjectName("help");
  import_ = new QPushButton(tr("Import Recorded Weather..."), this);
  import_->setObjectName("importweather");
  import_->setToolTip(tr("Add the monthly statistics of a recorded year (EPW file) to the database"));
  for (QPushButton* b : {ok_, cancel, saveNew, saveUpdate, help, import_}) b->setAutoDefault(false);
  connect(ok_, &QPushButton::clicked, this, &WeatherScreen::accept);
  connect(cancel, &QPushButton::clicked, this, &WeatherScreen::reject);
  connect(saveNew, &QPushButton::clicked, this, [this] {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    logic_.saveNew();
    QApplication::restoreOverrideCursor();
    refresh();
  });
  connect(saveUpdate, &QPushButton::clicked, this, [this] {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    logic_.saveUpdate();
    QApplication::restoreOverrideCursor();
    refresh();
  });
  connect(help, &QPushButton::clicked, this, [this] {
    showHelpFile(this, state_.install.dir(), "help5.txt", fromBytes(logic_.tutorialCaption()), prompt_);
  });
  connect(import_, &QPushButton::clicked, this, [this] {
    const QString path = QFileDialog::getOpenFileName(this, tr("Import Recorded Weather"), QString(),
                                                      tr("Recorded weather (*.epw *.EPW);;All files (*)"));
    if (!path.isEmpty()) importFile(path);
  });

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(import_);
  buttons->addStretch(1);
  for (QPushButton* b : {saveNew, saveUpdate, help, cancel, ok_}) buttons->addWidget(b);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(summary);
  layout->addWidget(derive);
  layout->addLayout(buttons);
}

void WeatherScreen::refresh() {
  setWindowTitle(fromBytes(logic_.caption()));
  auto fillList = [](QComboBox* c, const std::vector<std::string>& items) {
    QStringList list;
    for (const std::string& s : items) list << fromBytes(s);
    QStringList now;
    for (int i = 0; i < c->count(); ++i) now << c->itemText(i);
    if (now == list) return;
    const QSignalBlocker block(c);
    c->clear();
    c->addItems(list);
    c->setCurrentIndex(-1);
  };
  fillList(groups_, logic_.groups());
  fillList(cities_, logic_.cities());
  // The lists show the place of the boxes when they hold it.
  const QSignalBlocker blockGroups(groups_), blockCities(cities_);
  groups_->setCurrentIndex(groups_->findText(fromBytes(logic_.text({WeatherBox::State}))));
  cities_->setCurrentIndex(cities_->findText(fromBytes(logic_.text({WeatherBox::City}))));
  for (const auto& [b, e] : boxes_) {
    const QString t = fromBytes(logic_.text(b));
    if (e->text() != t) e->setText(t);
  }
  for (int r = 0; r < kWeatherRows; ++r) units_[r]->setText(fromBytes(logic_.unitLabel(r)));
  elevationUnit_->setText(state_.project.units == UnitSystem::SI ? tr("m") : tr("ft"));

  std::array<std::array<double, 12>, 3> series{};
  for (int s = 0; s < 3; ++s)
    for (int m = 0; m < 12; ++m) {
      const std::string& t = logic_.fields().rows[kPlotted[s]][m];
      const bool number = t.find_first_of("0123456789") != std::string::npos;
      series[s][m] = number ? leadingNumber(t) : std::numeric_limits<double>::quiet_NaN();
    }
  plot_->setSeries(series, fromBytes(logic_.unitLabel(kDryBulbAverage)));
}

void WeatherScreen::importFile(const QString& path) {
  // Reading a year of hours takes a moment; the window keeps drawing meanwhile.
  const std::string file = toBytes(path);
  auto work = std::async(std::launch::async, [file] { return readEpw(readFile(file)); });
  QProgressDialog progress(tr("Reading %1 ...").arg(path), QString(), 0, 0, this);
  progress.setWindowTitle(tr("Import Recorded Weather"));
  progress.setMinimumDuration(300);
  progress.setWindowModality(Qt::WindowModal);
  while (work.wait_for(std::chrono::milliseconds(30)) != std::future_status::ready) {
    progress.setValue(0);
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
  progress.close();
  try {
    const EpwStatistics stats = work.get();
    logic_.importRecorded(stats);
  } catch (const WeatherImportError& e) {
    prompt_.message(Icon::Exclamation, "Import Recorded Weather", e.what());
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
  refresh();
}

void WeatherScreen::accept() {
  if (logic_.clickOk()) QDialog::accept();
}

}  // namespace marloven::screens
