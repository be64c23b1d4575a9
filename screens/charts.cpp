#include "screens/charts.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSvgGenerator>
#include <QToolTip>
#include <QVBoxLayout>

#include "common/error_report.h"
#include "screens/text_codec.h"

namespace marloven::screens {

namespace {

constexpr double kWidth = 9400, kHeight = 7000;
constexpr double kText = 170;  // twips, about 8.5 pt

QColor colour(const Rgb& c) { return QColor(c.r, c.g, c.b); }
QString text(const std::string& s) { return fromBytes(s); }

void label(QPainter& p, double x, double y, const QString& t, Qt::Alignment align, const QColor& c = Qt::black,
           bool bold = false, double w = 4000) {
  QFont f = p.font();
  f.setBold(bold);
  p.setFont(f);
  p.setPen(c);
  // A box around the anchor: x is its left, centre or right, y its middle.
  const double h = kText * 1.6;
  double left = x;
  if (align & Qt::AlignHCenter) left = x - w / 2;
  if (align & Qt::AlignRight) left = x - w;
  p.drawText(QRectF(left, y - h / 2, w, h), static_cast<int>(align | Qt::AlignVCenter), t);
}

// "Lights/ Equip." over two lines, at the blank after a slash or the first blank.
QString twoLines(const std::string& s) {
  QString t = text(s);
  const qsizetype slash = t.indexOf("/ ");
  if (slash >= 0) return t.left(slash + 1) + "\n" + t.mid(slash + 2);
  const qsizetype blank = t.indexOf(QLatin1Char(' '));
  return blank < 0 ? t : t.left(blank) + "\n" + t.mid(blank + 1);
}

void labelLines(QPainter& p, double x, double y, const QString& t, const QColor& c) {
  p.setPen(c);
  p.drawText(QRectF(x - 500, y, 1000, kText * 3.4), Qt::AlignHCenter | Qt::AlignTop, t);
}

void axisLine(QPainter& p, double x1, double y1, double x2, double y2) {
  p.setPen(QPen(Qt::black, 12));
  p.drawLine(QPointF(x1, y1), QPointF(x2, y2));
}

void gridLine(QPainter& p, double x1, double x2, double y) {
  p.setPen(QPen(QColor(200, 200, 200), 8, Qt::DotLine));
  p.drawLine(QPointF(x1, y), QPointF(x2, y));
}

void paintPeak(QPainter& p, const ChartModel& m) {
  const double top = kPeakBaseY - kPeakHalfHeight, bottom = kPeakBaseY + kPeakHalfHeight;
  const double right = kPeakFirstX + 8 * kPeakStep + kPeakBarWidth + 200;
  for (int i = 1; i <= 2; ++i) {
    gridLine(p, 1300, right, kPeakBaseY - i * kPeakHalfHeight / 2);
    gridLine(p, 1300, right, kPeakBaseY + i * kPeakHalfHeight / 2);
    label(p, 1240, kPeakBaseY - i * kPeakHalfHeight / 2, text(m.axisUp[static_cast<std::size_t>(i - 1)]), Qt::AlignRight);
    label(p, 1240, kPeakBaseY + i * kPeakHalfHeight / 2, text(m.axisDown[static_cast<std::size_t>(i - 1)]),
          Qt::AlignRight);
  }
  label(p, 1240, kPeakBaseY, "0", Qt::AlignRight);
  label(p, 700, top - 380, "Gains", Qt::AlignHCenter, Qt::black, true);
  label(p, 700, bottom + 300, "Losses", Qt::AlignHCenter, Qt::black, true);
  label(p, 1300, top - 380, text(m.unit), Qt::AlignLeft);
  for (std::size_t i = 0; i < m.bars.size(); ++i) {
    const ChartBar& b = m.bars[i];
    p.fillRect(QRectF(b.left, b.top, b.right - b.left, b.bottom - b.top), colour(b.fill));
    const double centre = (b.left + b.right) / 2;
    const bool gain = b.value >= 0;
    label(p, centre, gain ? b.top - 140 : b.bottom + 140, text(m.values[i].text).trimmed(), Qt::AlignHCenter,
          colour(m.values[i].colour));
    labelLines(p, centre, bottom + 500, twoLines(m.names[i].text), colour(m.names[i].colour));
  }
  axisLine(p, 1300, top, 1300, bottom);
  axisLine(p, 1300, kPeakBaseY, right, kPeakBaseY);
  label(p, kWidth / 2, 6750, text(m.total), Qt::AlignHCenter, Qt::black, true, kWidth - 200);
}

void paintMonthly(QPainter& p, const ChartModel& m) {
  const double top = kMonthlyBaseY - kMonthlyHeight, left = kMonthlyFirstX - 150;
  const double right = kMonthlyFirstX + 11 * kMonthlyStep + 150;
  for (int i = 1; i <= 4; ++i) {
    const double y = kMonthlyBaseY - i * kMonthlyHeight / 4;
    gridLine(p, left, right, y);
    label(p, left - 60, y, text(m.axisUp[static_cast<std::size_t>(i - 1)]), Qt::AlignRight);
  }
  label(p, left - 60, kMonthlyBaseY, "0", Qt::AlignRight);
  label(p, left, top - 300, text(m.unit), Qt::AlignLeft);
  for (int k = 0; k < 12; ++k)
    label(p, kMonthlyFirstX + k * kMonthlyStep, kMonthlyBaseY + 200, kChartMonths[static_cast<std::size_t>(k)],
          Qt::AlignHCenter);
  p.save();
  p.setClipRect(QRectF(left, top - 100, right - left, kMonthlyHeight + 100));
  for (const ChartSegment& s : m.segments) {
    p.setPen(QPen(colour(s.colour), 30, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(s.x1, s.y1), QPointF(s.x2, s.y2));
  }
  p.restore();
  axisLine(p, left, top, left, kMonthlyBaseY);
  axisLine(p, left, kMonthlyBaseY, right, kMonthlyBaseY);

  // Legend and totals under the plot.
  const std::array<QColor, 3> traces = {QColor(255, 0, 0), QColor(0, 0, 192), QColor(0, 64, 0)};
  const std::array<std::string, 3> names = {m.legend[0], m.legend[1], "Total Cost"};
  const std::array<std::string, 3> totalNames = {m.totalNames[0], m.totalNames[1], ""};
  const std::array<std::string, 3> totals = {m.total, m.total2, m.total3};
  for (int i = 0; i < (m.thirdTrace ? 3 : 2); ++i) {
    const double y = 5700 + i * 330;
    p.setPen(QPen(traces[static_cast<std::size_t>(i)], 30));
    p.drawLine(QPointF(900, y), QPointF(1500, y));
    label(p, 1600, y, text(names[static_cast<std::size_t>(i)]), Qt::AlignLeft);
    const QString total = totalNames[static_cast<std::size_t>(i)].empty()
                              ? text(totals[static_cast<std::size_t>(i)]).trimmed()
                              : text(totalNames[static_cast<std::size_t>(i)]) + ": " +
                                    text(totals[static_cast<std::size_t>(i)]).trimmed();
    label(p, 4300, y, total, Qt::AlignLeft, Qt::black, false, kWidth - 4400);
  }
}

void paintSource(QPainter& p, const ChartModel& m) {
  const double top = kSourceBaseY - kSourceHeight, left = 1700, right = kSourceFirstX + 5 * kSourceStep + 800;
  for (int i = 1; i <= 4; ++i) {
    const double y = kSourceBaseY - i * kSourceHeight / 4;
    gridLine(p, left, right, y);
    label(p, left - 60, y, text(m.axisUp[static_cast<std::size_t>(i - 1)]), Qt::AlignRight);
  }
  label(p, left - 60, kSourceBaseY, "0", Qt::AlignRight);
  label(p, left, top - 300, text(m.unit), Qt::AlignLeft);
  for (std::size_t i = 0; i < m.bars.size(); ++i) {
    const ChartBar& b = m.bars[i];
    p.fillRect(QRectF(b.left, b.top, b.right - b.left, b.bottom - b.top), colour(b.fill));
    const double centre = (b.left + b.right) / 2;
    label(p, centre, b.top - 140, text(m.values[i].text).trimmed(), Qt::AlignHCenter, colour(m.values[i].colour));
    labelLines(p, centre, kSourceBaseY + 120, twoLines(m.names[i].text), colour(m.names[i].colour));
    if (i >= 2 && i - 2 < m.electric.size())
      label(p, centre, kSourceBaseY + 900, text(m.electric[i - 2].text), Qt::AlignHCenter,
            colour(m.electric[i - 2].colour));
  }
  if (!m.electric.empty()) label(p, kSourceFirstX + 2 * kSourceStep - 500, kSourceBaseY + 900, text(m.electricUnit), Qt::AlignRight);
  axisLine(p, left, top, left, kSourceBaseY);
  axisLine(p, left, kSourceBaseY, right, kSourceBaseY);
  label(p, kWidth / 2, 6650, "Source E.U.F.: " + text(m.factor).trimmed(), Qt::AlignHCenter, Qt::black, true,
        kWidth - 200);
}

}  // namespace

QSizeF chartSurface() { return {kWidth, kHeight}; }

void paintChart(QPainter& p, const QRectF& target, const ChartModel& m) {
  p.save();
  p.setRenderHint(QPainter::Antialiasing);
  p.setRenderHint(QPainter::TextAntialiasing);
  const double scale = std::min(target.width() / kWidth, target.height() / kHeight);
  p.translate(target.center().x() - kWidth * scale / 2, target.center().y() - kHeight * scale / 2);
  p.scale(scale, scale);
  p.fillRect(QRectF(0, 0, kWidth, kHeight), Qt::white);
  QFont f = QApplication::font();
  f.setPixelSize(static_cast<int>(kText));
  p.setFont(f);
  QFont title = f;
  title.setPixelSize(static_cast<int>(kText * 1.35));
  title.setBold(true);
  p.setFont(title);
  p.setPen(Qt::black);
  p.drawText(QRectF(0, 80, kWidth, kText * 2), Qt::AlignHCenter | Qt::AlignVCenter, text(m.title));
  p.setFont(f);
  label(p, 300, 700, "Project Name: " + text(m.projectName).trimmed(), Qt::AlignLeft, Qt::black, false, 4600);
  label(p, 5000, 700, "Location:        " + text(m.location).trimmed(), Qt::AlignLeft, Qt::black, false, 4300);
  label(p, kWidth - 200, 250, text(m.outputName), Qt::AlignRight, QColor(90, 90, 90));
  switch (m.screen) {
    case ChartScreen::Peak: paintPeak(p, m); break;
    case ChartScreen::Monthly: paintMonthly(p, m); break;
    case ChartScreen::Source: paintSource(p, m); break;
  }
  p.restore();
}

ChartCanvas::ChartCanvas(QWidget* parent) : QWidget(parent) {
  setObjectName("chartcanvas");
  setMouseTracking(true);
  setMinimumSize(560, 420);
}

void ChartCanvas::setModel(const ChartModel* m) {
  model_ = m;
  update();
}

QSize ChartCanvas::sizeHint() const { return {900, 670}; }

QRectF ChartCanvas::target() const { return QRectF(rect()); }

QPointF ChartCanvas::toTwips(const QPointF& w) const {
  const QRectF t = target();
  const double s = std::min(t.width() / kWidth, t.height() / kHeight);
  return {(w.x() - (t.center().x() - kWidth * s / 2)) / s, (w.y() - (t.center().y() - kHeight * s / 2)) / s};
}

QPointF ChartCanvas::toWidget(const QPointF& tw) const {
  const QRectF t = target();
  const double s = std::min(t.width() / kWidth, t.height() / kHeight);
  return {t.center().x() - kWidth * s / 2 + tw.x() * s, t.center().y() - kHeight * s / 2 + tw.y() * s};
}

void ChartCanvas::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), palette().window());
  if (model_ != nullptr) paintChart(p, target(), *model_);
}

void ChartCanvas::mouseMoveEvent(QMouseEvent* event) {
  if (model_ == nullptr) return;
  const QPointF t = toTwips(event->position());
  const std::string value = chartValueAt(*model_, t.x(), t.y());
  if (value.empty())
    QToolTip::hideText();
  else
    QToolTip::showText(event->globalPosition().toPoint(), fromBytes(value), this);
}

ChartWindow::ChartWindow(AppState& state, Prompt& prompt, std::function<void()> saveOutput, QWidget* parent)
    : QDialog(parent), state_(state), prompt_(prompt), saveOutput_(std::move(saveOutput)) {
  canvas_ = new ChartCanvas(this);
  const std::array<std::pair<Chart, const char*>, kCharts> charts = {{{Chart::PeakHeating, "Peak Heating"},
                                                                      {Chart::PeakCooling, "Peak Cooling"},
                                                                      {Chart::AnnualHeating, "Ann. Heating"},
                                                                      {Chart::AnnualCooling, "Ann. Cooling"},
                                                                      {Chart::MonthlyEnergy, "Monthly HC"},
                                                                      {Chart::MonthlyCosts, "Utility Costs"},
                                                                      {Chart::SourceEnergy, "Breakdown"}}};
  const std::array<const char*, kCharts + 1> names = {"",         "peakheat",  "peakcool", "annuheat",
                                                      "annucool", "monenergy", "utility",  "source"};
  auto* nav = new QHBoxLayout;
  for (const auto& [chart, caption] : charts) {
    auto* b = new QPushButton(tr(caption), this);
    b->setObjectName(names[static_cast<std::size_t>(chart)]);
    b->setAutoDefault(false);
    connect(b, &QPushButton::clicked, this, [this, c = chart] { showChart(c); });
    buttons_[static_cast<std::size_t>(chart)] = b;
    nav->addWidget(b);
  }
  auto* tabular = new QPushButton(tr("Tabular"), this);
  tabular->setObjectName("Command2");
  tabular_ = tabular;
  save_ = new QPushButton(tr("Save Output"), this);
  save_->setObjectName("save");
  auto* exportButton = new QPushButton(tr("Export"), this);
  exportButton->setObjectName("export");
  auto* exportMenu = new QMenu(exportButton);
  exportMenu->addAction(tr("&Copy to Clipboard"), this, [this] {
    QApplication::clipboard()->setImage(image(QSize(1600, 1190)));
  });
  exportMenu->addAction(tr("Save &Picture (PNG, SVG)..."), this, &ChartWindow::exportTo);
  exportMenu->addAction(tr("Export P&DF..."), this, [this] {
    const QString path = QFileDialog::getSaveFileName(this, tr("Export PDF"), QString(), tr("PDF (*.pdf)"));
    if (!path.isEmpty() && !savePdf(path)) reportError(prompt_, 75);
  });
  exportMenu->addAction(tr("&Print..."), this, &ChartWindow::print);
  exportButton->setMenu(exportMenu);
  mainMenu_ = new QPushButton(tr("Main Menu"), this);
  mainMenu_->setObjectName("Command1");
  for (QPushButton* b : {tabular, save_, exportButton, mainMenu_}) b->setAutoDefault(false);
  connect(tabular, &QPushButton::clicked, this, [this] {
    tabularRequested_ = true;
    QDialog::accept();
  });
  connect(save_, &QPushButton::clicked, this, [this] {
    if (saveOutput_) saveOutput_();
  });
  connect(mainMenu_, &QPushButton::clicked, this, &ChartWindow::reject);

  auto* actions = new QHBoxLayout;
  actions->addWidget(tabular);
  actions->addWidget(save_);
  actions->addWidget(exportButton);
  actions->addStretch(1);
  actions->addWidget(mainMenu_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(canvas_, 1);
  layout->addLayout(nav);
  layout->addLayout(actions);
  canvas_->setModel(&model_);
}

bool ChartWindow::showChart(Chart c) {
  ChartModel m;
  const ChartSource src{state_.install.scratchDir(), state_.project.fileName, state_.project.outputFileName};
  const ReadStatus st = buildChart(src, c, m);
  if (!st.ok()) {
    if (st.clearOutputViewable) state_.project.flags.outputViewable = false;
    reportError(prompt_, st.errorNumber);
    return false;
  }
  model_ = std::move(m);
  refresh();
  return true;
}

void ChartWindow::refresh() {
  static constexpr std::array<const char*, 3> kScreens = {"peak", "monthly", "source"};
  setObjectName(kScreens[static_cast<std::size_t>(model_.screen)]);
  setWindowTitle(fromBytes(model_.caption));
  for (int c = 1; c <= kCharts; ++c) buttons_[static_cast<std::size_t>(c)]->setEnabled(model_.buttons[static_cast<std::size_t>(c)]);
  canvas_->setModel(&model_);
}

void ChartWindow::reject() {
  const ProjectFlags& f = state_.project.flags;
  switch (chartMainMenu(f.runMade, f.outputSaved, prompt_)) {
    case ChartLeave::Close: QDialog::reject(); break;
    case ChartLeave::SaveOutput:
      if (saveOutput_) saveOutput_();
      break;
    case ChartLeave::Stay: break;
  }
}

void ChartWindow::paintPage(QPainter& p, const QRectF& page) const {
  // The page: the window's caption over the picture.
  QFont f = QApplication::font();
  f.setPointSizeF(10);
  p.setFont(f);
  const double line = p.fontMetrics().height() * 1.5;
  p.drawText(QRectF(page.left(), page.top(), page.width(), line), Qt::AlignLeft | Qt::AlignVCenter,
             fromBytes(model_.caption));
  paintChart(p, QRectF(page.left(), page.top() + line, page.width(), page.height() - line), model_);
}

QImage ChartWindow::image(QSize size) const {
  QImage img(size, QImage::Format_RGB32);
  img.fill(Qt::white);
  QPainter p(&img);
  paintChart(p, QRectF(QPointF(0, 0), QSizeF(size)), model_);
  return img;
}

bool ChartWindow::savePng(const QString& path) const { return image(QSize(1880, 1400)).save(path, "PNG"); }

bool ChartWindow::saveSvg(const QString& path) const {
  QSvgGenerator svg;
  svg.setFileName(path);
  svg.setSize(QSize(940, 700));
  svg.setViewBox(QRect(0, 0, 940, 700));
  svg.setTitle(fromBytes(model_.caption));
  QPainter p;
  if (!p.begin(&svg)) return false;
  paintChart(p, QRectF(0, 0, 940, 700), model_);
  return p.end();
}

bool ChartWindow::savePdf(const QString& path) const {
  QPdfWriter pdf(path);
  pdf.setPageOrientation(QPageLayout::Landscape);
  pdf.setTitle(fromBytes(model_.caption));
  QPainter p;
  if (!p.begin(&pdf)) return false;
  paintPage(p, QRectF(0, 0, pdf.width(), pdf.height()));
  return p.end();
}

void ChartWindow::exportTo() {
  QString chosen;
  const QString path = QFileDialog::getSaveFileName(this, tr("Save Picture"), QString(),
                                                    tr("PNG picture (*.png);;SVG drawing (*.svg)"), &chosen);
  if (path.isEmpty()) return;
  const bool svg = path.endsWith(".svg", Qt::CaseInsensitive) || (chosen.contains("svg") && QFileInfo(path).suffix().isEmpty());
  const bool ok = svg ? saveSvg(path.endsWith(".svg", Qt::CaseInsensitive) ? path : path + ".svg")
                      : savePng(path.endsWith(".png", Qt::CaseInsensitive) ? path : path + ".png");
  if (!ok) reportError(prompt_, 75);
}

void ChartWindow::print() {
  QPrinter printer;
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setDocName(fromBytes(model_.caption));
  QPrintDialog d(&printer, this);
  if (d.exec() != QDialog::Accepted) return;
  QPainter p;
  if (!p.begin(&printer)) {
    reportError(prompt_, 57);
    return;
  }
  paintPage(p, printer.pageLayout().paintRectPixels(printer.resolution()).translated(
                   -printer.pageLayout().paintRectPixels(printer.resolution()).topLeft()));
  p.end();
}

}  // namespace marloven::screens
