#include "screens/tabular.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPdfWriter>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QUrl>
#include <QVBoxLayout>

#include "common/error_report.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "screens/text_codec.h"

namespace marloven::screens {

namespace {

constexpr int kReportColumns = 132;

QFont reportFont() {
  QFont f = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  f.setStyleHint(QFont::TypeWriter);
  return f;
}

}  // namespace

int paintReportPages(QPagedPaintDevice& device, const QString& text) {
  QPainter p;
  if (!p.begin(&device)) return 0;
  QFont f = reportFont();
  f.setPointSizeF(7);
  p.setFont(f);
  const QRect page(0, 0, device.width(), device.height());
  // The 132 columns fit across the page: a smaller size where 7 points do not.
  const double width = p.fontMetrics().horizontalAdvance(QString(kReportColumns, QLatin1Char('M')));
  if (width > page.width()) {
    f.setPointSizeF(7 * page.width() / width);
    p.setFont(f);
  }
  const int line = p.fontMetrics().lineSpacing();
  int y = 0, pages = 1;
  bool blank = true;  // nothing on this page yet
  for (const QString& raw : text.split('\n')) {
    QString l = raw;
    if (l.endsWith('\r')) l.chop(1);
    const bool feed = l.startsWith('\f');
    if (feed) l.remove(0, 1);
    if ((feed && !blank) || y + line > page.height()) {
      device.newPage();
      ++pages;
      y = 0;
      blank = true;
    }
    if (feed && l.isEmpty()) continue;
    p.drawText(0, y + p.fontMetrics().ascent(), l);
    y += line;
    blank = false;
  }
  p.end();
  return pages;
}

HourlyDialog::HourlyDialog(AppState& state, Prompt& prompt, QWidget* parent)
    : QDialog(parent), logic_(state, prompt) {
  setObjectName("Hourly");
  setWindowTitle(fromBytes(logic_.caption()));
  open = [](const QString& path) { return QDesktopServices::openUrl(QUrl::fromLocalFile(path)); };
  auto* frame1 = new QGroupBox(tr("EXCEL Display of Hourly Data "), this);
  auto* f1 = new QVBoxLayout(frame1);
  for (int i = 0; i < 3; ++i) {
    options_[i] = new QRadioButton(fromBytes(kHourlyFiles[static_cast<std::size_t>(i)].label), frame1);
    options_[i]->setObjectName(QString("HryDisplay%1").arg(i));
    connect(options_[i], &QRadioButton::clicked, this, [this, i] { logic_.choose(i); });
    f1->addWidget(options_[i]);
  }
  auto* frame2 = new QGroupBox(tr("Display Controls "), this);
  auto* f2 = new QHBoxLayout(frame2);
  display_ = new QPushButton(tr("Display it Now"), frame2);
  display_->setObjectName("Action0");
  auto* back = new QPushButton(tr("Return to Tabular Menu"), frame2);
  back->setObjectName("Action1");
  auto* saveCsv = new QPushButton(tr("Save as CSV..."), frame2);
  saveCsv->setObjectName("savecsv");
  f2->addWidget(display_);
  f2->addWidget(saveCsv);
  f2->addWidget(back);
  connect(saveCsv, &QPushButton::clicked, this, [this] {
    if (logic_.choice() == 0) {
      logic_.saveCsv({});  // the reminder
      return;
    }
    const QString path = QFileDialog::getSaveFileName(this, tr("Save as CSV"), QString(), tr("CSV (*.csv)"));
    if (!path.isEmpty()) logic_.saveCsv(toBytes(path.endsWith(".csv", Qt::CaseInsensitive) ? path : path + ".csv"));
  });
  connect(display_, &QPushButton::clicked, this, [this] {
    const std::optional<std::string> file = logic_.display();
    if (file && !open(fromBytes(*file))) logic_.openFailed();
    // The options start clear again, as the screen does after each action.
    for (QRadioButton* o : options_) {
      o->setAutoExclusive(false);
      o->setChecked(false);
      o->setAutoExclusive(true);
    }
  });
  connect(back, &QPushButton::clicked, this, &QDialog::accept);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(frame1);
  layout->addWidget(frame2);
  logic_.activate();
}

TabularWindow::TabularWindow(AppState& state, Prompt& prompt, std::function<void()> saveOutput, QWidget* parent)
    : QDialog(parent), state_(state), prompt_(prompt), saveOutput_(std::move(saveOutput)), logic_(state, prompt) {
  setObjectName("tabular");
  heading_ = new QLabel(this);
  heading_->setObjectName("Label1");
  QFont hf = heading_->font();
  hf.setBold(true);
  hf.setPointSizeF(hf.pointSizeF() * 1.2);
  heading_->setFont(hf);
  heading_->setAlignment(Qt::AlignCenter);
  outputName_ = new QLabel(this);
  outputName_->setObjectName("Label2");
  text_ = new QPlainTextEdit(this);
  text_->setObjectName("Text1");
  text_->setReadOnly(true);
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  text_->setFont(reportFont());
  text_->setMinimumWidth(text_->fontMetrics().horizontalAdvance(QString(kReportColumns + 4, QLatin1Char('M'))));
  text_->setMinimumHeight(text_->fontMetrics().lineSpacing() * 30);

  auto* buttons = new QGridLayout;
  for (int i = 0; i < kTabButtons; ++i) {
    auto* b = new QPushButton(tr(kTabularCaptions[static_cast<std::size_t>(i)]), this);
    b->setObjectName(QString("Summary%1").arg(i));
    b->setAutoDefault(false);
    summary_[static_cast<std::size_t>(i)] = b;
    connect(b, &QPushButton::clicked, this, [this, i] {
      switch (i) {
        case kTabPrint: print(); return;
        case kTabMainMenu: reject(); return;
        case kTabHourly: {
          hide();
          HourlyDialog h(state_, prompt_, parentWidget());
          h.exec();
          show();
          return;
        }
        default:
          fileTitle_.clear();
          logic_.clickSummary(i);
          refresh();
      }
    });
  }
  // Sections in a row, the rest beside them.
  const std::array<int, 8> sections = {kTabProject, kTabZones, kTabSummaries, kTabHvac,
                                       kTabPeaks,   kTabCosts, kTabWeather,   kTabComfort};
  for (std::size_t i = 0; i < sections.size(); ++i) buttons->addWidget(summary_[static_cast<std::size_t>(sections[i])], 0, static_cast<int>(i));
  save_ = new QPushButton(tr("Save Output"), this);
  save_->setObjectName("save");
  auto* graphical = new QPushButton(tr("Graphical"), this);
  graphical->setObjectName("graphical");
  auto* pdf = new QPushButton(tr("Export PDF"), this);
  pdf->setObjectName("exportpdf");
  next_ = new QPushButton(tr("Next >>"), this);
  next_->setObjectName("zone1");
  previous_ = new QPushButton(tr("<< Previous"), this);
  previous_->setObjectName("zone2");
  for (QPushButton* b : {save_, graphical, pdf, next_, previous_}) b->setAutoDefault(false);
  buttons->addWidget(summary_[kTabHourly], 1, 0);
  buttons->addWidget(graphical, 1, 1);
  buttons->addWidget(save_, 1, 2);
  buttons->addWidget(summary_[kTabPrint], 1, 3);
  buttons->addWidget(pdf, 1, 4);
  buttons->addWidget(summary_[kTabMainMenu], 1, 7);
  connect(save_, &QPushButton::clicked, this, [this] {
    logic_.clickSave();
    refresh();
    if (saveOutput_) saveOutput_();
  });
  connect(graphical, &QPushButton::clicked, this, [this] {
    chartRequested_ = true;
    QDialog::accept();
  });
  connect(pdf, &QPushButton::clicked, this, [this] {
    const QString path = QFileDialog::getSaveFileName(this, tr("Export PDF"), QString(), tr("PDF (*.pdf)"));
    if (!path.isEmpty() && !exportPdf(path)) reportError(prompt_, 75);
  });
  connect(next_, &QPushButton::clicked, this, [this] {
    logic_.clickPage(1);
    refresh();
  });
  connect(previous_, &QPushButton::clicked, this, [this] {
    logic_.clickPage(2);
    refresh();
  });

  auto* top = new QHBoxLayout;
  top->addWidget(outputName_);
  top->addWidget(heading_, 1);
  top->addWidget(previous_);
  top->addWidget(next_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(text_, 1);
  layout->addLayout(buttons);
}

void TabularWindow::showTable(int table) {
  fileTitle_.clear();
  logic_.showTable(table);
  refresh();
}

void TabularWindow::showFile(const std::string& path, const std::string& title) {
  try {
    text_->setPlainText(fromBytes(readFile(path)).replace("\r\n", "\n"));
    fileTitle_ = title;
    setWindowTitle(fromBytes(title + " -- " + state_.project.fileName));
    heading_->setText(fromBytes(title));
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
}

void TabularWindow::refresh() {
  if (fileTitle_.empty()) {
    setWindowTitle(fromBytes(logic_.caption()));
    heading_->setText(fromBytes(logic_.title()));
    QString t = fromBytes(logic_.text());
    t.replace("\r\n", "\n");
    if (text_->toPlainText() != t) text_->setPlainText(t);
  }
  outputName_->setText(fromBytes(state_.project.outputFileName));
  for (int i = 0; i < kTabButtons; ++i) summary_[static_cast<std::size_t>(i)]->setEnabled(logic_.summaryEnabled(i) || i == kTabPrint || i == kTabMainMenu);
  summary_[kTabHourly]->setEnabled(logic_.summaryEnabled(kTabHourly) && state_.project.flags.hourlyOutputMade);
  next_->setEnabled(logic_.nextEnabled());
  previous_->setEnabled(logic_.previousEnabled());
  save_->setEnabled(logic_.saveEnabled());
}

void TabularWindow::print() {
  QPrinter printer;
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setDocName(windowTitle());
  QPrintDialog d(&printer, this);
  if (d.exec() != QDialog::Accepted) return;
  paintReportPages(printer, text_->toPlainText());
}

bool TabularWindow::exportPdf(const QString& path) const {
  QPdfWriter pdf(path);
  pdf.setPageSize(QPageSize(QPageSize::Letter));
  pdf.setPageOrientation(QPageLayout::Landscape);
  pdf.setPageMargins(QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
  pdf.setTitle(windowTitle());
  return paintReportPages(pdf, text_->toPlainText()) > 0;
}

void TabularWindow::reject() {
  switch (logic_.clickMainMenu()) {
    case TabularForm::Leave::Close:
      text_->clear();
      QDialog::reject();
      break;
    case TabularForm::Leave::SaveOutput:
      if (saveOutput_) saveOutput_();
      refresh();
      break;
    case TabularForm::Leave::Stay: break;
  }
}

}  // namespace marloven::screens
