#include "screens/runsim.h"

#include <QApplication>
#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTime>
#include <QVBoxLayout>
#include <random>

#include "screens/key_filter.h"
#include "screens/selectweth.h"
#include "screens/text_codec.h"

namespace marloven::screens {

namespace {

std::string timeNow() { return toBytes(QTime::currentTime().toString("hh:mm:ss")); }

RunClock clockNow() {
  const QDateTime now = QDateTime::currentDateTime();
  return {toBytes(QLocale::c().toString(now.date(), "d MMM yyyy")), toBytes(now.time().toString("hh:mm"))};
}

constexpr std::array<const char*, 12> kMonthNames = {"January", "February", "March",     "April",   "May",      "June",
                                                     "July",    "August",   "September", "October", "November", "December"};

}  // namespace

RunOptionsDialog::RunOptionsDialog(QWidget* parent) : QDialog(parent) {
  setObjectName("RunOptions");
  setWindowTitle(tr(RunOptionsScreen::kCaption));
  hvac_ = new QPushButton(tr(RunOptionsScreen::kWithHvac), this);
  hvac_->setObjectName("Command1");
  passive_ = new QPushButton(tr(RunOptionsScreen::kPassive), this);
  passive_->setObjectName("Command2");
  auto* cancel = new QPushButton(tr("Cancel"), this);
  cancel->setObjectName("Command3");
  hvac_->setDefault(true);
  connect(hvac_, &QPushButton::clicked, this, [this] {
    kind_ = 3;
    accept();
  });
  connect(passive_, &QPushButton::clicked, this, [this] {
    kind_ = 4;
    accept();
  });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel(tr("Specify if you want to:"), this));
  layout->addWidget(hvac_);
  auto* orLabel = new QLabel(tr("-- or --"), this);
  orLabel->setAlignment(Qt::AlignCenter);
  layout->addWidget(orLabel);
  layout->addWidget(passive_);
  layout->addSpacing(8);
  layout->addWidget(cancel, 0, Qt::AlignRight);
}

ToggleLabel::ToggleLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {
  setFocusPolicy(Qt::StrongFocus);
  setAlignment(Qt::AlignCenter);
  setAutoFillBackground(true);
  setFrameShape(QFrame::StyledPanel);
  setMargin(3);
  setCursor(Qt::PointingHandCursor);
}

void ToggleLabel::setHighlighted(bool on) {
  on_ = on;
  QPalette pal = palette();
  // The highlight of a chosen week or month.
  pal.setColor(QPalette::Window, on ? QColor(0xff, 0xff, 0x80) : parentWidget()->palette().color(QPalette::Window));
  pal.setColor(QPalette::WindowText, on ? QColor(Qt::black) : parentWidget()->palette().color(QPalette::WindowText));
  setPalette(pal);
}

void ToggleLabel::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && isEnabled()) emit clicked();
  QLabel::mousePressEvent(event);
}

void ToggleLabel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space) {
    emit clicked();
    return;
  }
  QLabel::keyPressEvent(event);
}

RunSimScreen::RunSimScreen(AppState& state, Prompt& prompt, QWidget* parent)
    : QDialog(parent), state_(state), prompt_(prompt), logic_(state, prompt) {
  setObjectName("runsim");
  logic_.load(timeNow());
  logic_.activate();
  build();
  timer_.setInterval(1000);
  connect(&timer_, &QTimer::timeout, this, &RunSimScreen::tick);
  refresh();
}

void RunSimScreen::build() {
  RunChoices& c = logic_.choices();
  auto* weather = new QGroupBox(tr("Weather"), this);
  auto* wg = new QGridLayout(weather);
  weather_[0] = new QRadioButton(tr("Simulated Weather (Default Option):"), weather);
  weather_[1] = new QRadioButton(tr("Recorded Weather:"), weather);
  for (int i = 0; i < 2; ++i) {
    weather_[i]->setObjectName(QString("weather%1").arg(i));
    connect(weather_[i], &QRadioButton::clicked, this, [this, i] {
      if (logic_.clickWeather(i)) {
        SelectWeatherScreen files(state_, prompt_, fromBytes(state_.install.path("weather")), this);
        files.exec();
      }
      refresh();
    });
  }
  wg->addWidget(weather_[0], 0, 0, 1, 4);
  wg->addWidget(weather_[1], 1, 0, 1, 4);
  wg->addWidget(new QLabel(tr("Design Temps:"), weather), 2, 0);
  const std::array<const char*, 3> tempCaptions = {"Summer\nDry-Bulb", "Summer\nWet-Bulb", "Winter\nDry-Bulb"};
  for (int i = 0; i < 3; ++i) {
    destemp_[i] = new QLineEdit(fromBytes(c.designTemps[i]), weather);
    destemp_[i]->setObjectName(QString("destemp%1").arg(i + 1));
    destemp_[i]->setMaximumWidth(fontMetrics().horizontalAdvance(QString(8, QLatin1Char('0'))));
    connect(destemp_[i], &QLineEdit::textEdited, this,
            [this, i](const QString& t) { logic_.choices().designTemps[i] = toBytes(t); });
    auto* l = new QLabel(tr(tempCaptions[i]), weather);
    l->setAlignment(Qt::AlignCenter);
    wg->addWidget(l, 3, i + 1);
    wg->addWidget(destemp_[i], 2, i + 1);
  }

  auto* period = new QGroupBox(tr("Analysis Period: (day-month)"), this);
  auto* pg = new QHBoxLayout(period);
  const std::array<std::string*, 3> texts = {&c.from, &c.to, &c.year};
  for (int i = 0; i < 3; ++i) {
    period_[i] = new QLineEdit(fromBytes(*texts[i]), period);
    period_[i]->setObjectName(QString("Text1%1").arg(i));
    period_[i]->setMaximumWidth(fontMetrics().horizontalAdvance(QString(9, QLatin1Char('0'))));
    connect(period_[i], &QLineEdit::textEdited, this, [this, i](const QString& t) {
      RunChoices& rc = logic_.choices();
      if (i == 0) rc.from = toBytes(t);
      if (i == 1) rc.to = toBytes(t);
      if (i == 2) logic_.yearChanged(toBytes(t));
    });
    // Enter in a period box goes to Execute Run.
    connect(period_[i], &QLineEdit::returnPressed, this, [this] { execute_->setFocus(); });
  }
  pg->addWidget(period_[0]);
  pg->addWidget(new QLabel(tr("to:"), period));
  pg->addWidget(period_[1]);
  pg->addSpacing(16);
  pg->addWidget(new QLabel(tr("Year"), period));
  pg->addWidget(period_[2]);
  pg->addStretch(1);

  auto* length = new QGroupBox(tr("Simulation Length :  (Week / month)"), this);
  auto* lg = new QHBoxLayout(length);
  const std::array<const char*, 4> weekCaptions = {" 1", "2", "3", "4"};
  for (int i = 0; i < 4; ++i) {
    weeks_[i] = new ToggleLabel(tr(weekCaptions[i]), length);
    weeks_[i]->setObjectName(QString("week%1").arg(i));
    weeks_[i]->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("0000")));
    connect(weeks_[i], &ToggleLabel::clicked, this, [this, i] {
      logic_.clickWeek(i);
      refresh();
    });
    lg->addWidget(weeks_[i]);
  }
  lg->addStretch(1);

  auto* skip = new QGroupBox(tr("The months you want to skip :"), this);
  auto* sg = new QGridLayout(skip);
  for (int i = 0; i < 12; ++i) {
    months_[i] = new ToggleLabel(tr(kMonthNames[i]), skip);
    months_[i]->setObjectName(QString("mon%1").arg(i));
    connect(months_[i], &ToggleLabel::clicked, this, [this, i] {
      logic_.clickMonth(i);
      refresh();
    });
    sg->addWidget(months_[i], i / 6, i % 6);
  }

  auto* comfort = new QGroupBox(tr("Comfort Zone Temperature Limits: "), this);
  auto* cg = new QHBoxLayout(comfort);
  lower_ = new QLineEdit(fromBytes(c.lower), comfort);
  lower_->setObjectName("Tlower");
  upper_ = new QLineEdit(fromBytes(c.upper), comfort);
  upper_->setObjectName("Tupper");
  for (QLineEdit* e : {lower_, upper_}) e->setMaximumWidth(fontMetrics().horizontalAdvance(QString(7, QLatin1Char('0'))));
  connect(lower_, &QLineEdit::textEdited, this, [this](const QString& t) { logic_.choices().lower = toBytes(t); });
  connect(upper_, &QLineEdit::textEdited, this, [this](const QString& t) { logic_.choices().upper = toBytes(t); });
  cg->addWidget(new QLabel(tr("Lower Limit"), comfort));
  cg->addWidget(lower_);
  cg->addSpacing(16);
  cg->addWidget(new QLabel(tr("Upper Limit"), comfort));
  cg->addWidget(upper_);
  cg->addWidget(new QLabel(state_.project.units == UnitSystem::SI ? tr("Deg. C") : tr("Deg. F"), comfort));
  cg->addStretch(1);

  hourly_ = new QCheckBox(tr("Produce Hourly Output File"), this);
  hourly_->setObjectName("hourlyoutput");
  sequence_ = new QCheckBox(tr("Repeat previously run weather sequence"), this);
  sequence_->setObjectName("weatherseq");
  connect(hourly_, &QCheckBox::toggled, this, [this](bool on) { logic_.choices().hourly = on; });
  connect(sequence_, &QCheckBox::toggled, this, [this](bool on) { logic_.choices().repeatWeather = on; });

  status_ = new QLabel(this);
  status_->setObjectName("runstatus");
  status_->setFrameShape(QFrame::StyledPanel);
  status_->setMinimumHeight(fontMetrics().lineSpacing() * 2 + 8);
  problems_ = new QLabel(this);
  problems_->setObjectName("problems");
  problems_->setWordWrap(true);
  problems_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  problems_->setStyleSheet("color: #a00000;");
  progress_ = new QProgressBar(this);
  progress_->setObjectName("ProgressBar1");
  progress_->setRange(0, 100);
  progress_->setTextVisible(false);

  execute_ = new QPushButton(tr("Execute Run"), this);
  execute_->setObjectName("Command1");
  cancel_ = new QPushButton(tr("Cancel"), this);
  cancel_->setObjectName("Command2");
  review_ = new QPushButton(tr("Review Results"), this);
  review_->setObjectName("Command3");
  for (QPushButton* b : {execute_, cancel_, review_}) b->setAutoDefault(false);
  execute_->setDefault(true);
  connect(execute_, &QPushButton::pressed, this, [this] {
    logic_.executePressed(timeNow());
    refresh();
  });
  connect(execute_, &QPushButton::clicked, this, &RunSimScreen::execute);
  connect(cancel_, &QPushButton::clicked, this, &RunSimScreen::reject);
  connect(review_, &QPushButton::clicked, this, [this] {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    resultsReady_ = logic_.reviewResults(state_.install.scratchDir());
    QApplication::restoreOverrideCursor();
    accept();
  });

  auto* options = new QHBoxLayout;
  options->addWidget(hourly_);
  options->addWidget(sequence_);
  options->addStretch(1);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(progress_, 3);
  buttons->addStretch(1);
  buttons->addWidget(execute_);
  buttons->addWidget(cancel_);
  buttons->addWidget(review_);
  auto* top = new QHBoxLayout;
  top->addWidget(weather, 1);
  auto* right = new QVBoxLayout;
  right->addWidget(period);
  right->addWidget(length);
  top->addLayout(right, 1);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(skip);
  layout->addWidget(comfort);
  layout->addLayout(options);
  layout->addWidget(status_);
  layout->addWidget(problems_);
  layout->addLayout(buttons);
}

void RunSimScreen::refresh() {
  setWindowTitle(fromBytes(logic_.caption()));
  const RunChoices& c = logic_.choices();
  weather_[c.recordedWeather ? 1 : 0]->setChecked(true);
  const bool setUp = logic_.stage() == RunScreen::Stage::SetUp;
  for (int i = 0; i < 3; ++i) destemp_[i]->setEnabled(setUp && logic_.designTempsEnabled());
  for (int i = 0; i < 4; ++i) {
    weeks_[i]->setHighlighted(c.weeks[i]);
    weeks_[i]->setEnabled(setUp);
  }
  for (int i = 0; i < 12; ++i) {
    months_[i]->setHighlighted(c.skip[i]);
    months_[i]->setEnabled(setUp);
  }
  const std::array<const std::string*, 3> texts = {&c.from, &c.to, &c.year};
  for (int i = 0; i < 3; ++i)
    if (period_[i]->text() != fromBytes(*texts[i])) period_[i]->setText(fromBytes(*texts[i]));
  QString status = fromBytes(logic_.status());
  status.replace('\r', '\n');
  status_->setText(status);
  QString problems;
  for (const std::string& p : logic_.problems()) problems += fromBytes(p) + "\n";
  problems_->setText(problems.trimmed());
  problems_->setVisible(!problems.isEmpty());
  progress_->setVisible(logic_.progressVisible());
  progress_->setValue(logic_.progress());
  execute_->setEnabled(logic_.executeEnabled());
  cancel_->setEnabled(logic_.cancelEnabled());
  review_->setEnabled(logic_.reviewEnabled());
  for (QWidget* w : std::initializer_list<QWidget*>{weather_[0], weather_[1], period_[0], period_[1], period_[2],
                                                   lower_, upper_, hourly_, sequence_})
    w->setEnabled(setUp);
}

void RunSimScreen::execute() {
  elapsed_.start();
  execute_->setEnabled(false);
  QApplication::setOverrideCursor(Qt::WaitCursor);
  std::mt19937_64 gen(std::random_device{}());
  std::uniform_real_distribution<double> uniform(0.0, 1.0);
  const bool go = logic_.execute(state_.install.scratchDir(), [&] { return uniform(gen); }, clockNow());
  QApplication::restoreOverrideCursor();
  refresh();
  if (!go) return;

  QApplication::setOverrideCursor(Qt::BusyCursor);
  process_ = new QProcess(this);
  process_->setWorkingDirectory(fromBytes(state_.install.scratchDir()));
  process_->setProgram(fromBytes(findEngine(toBytes(QCoreApplication::applicationDirPath()))));
  startFailure_.clear();
  connect(process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError e) {
    if (e == QProcess::FailedToStart) startFailure_ = process_->errorString();
  });
  process_->start();
  timer_.start();
}

void RunSimScreen::tick() {
  logic_.tick(timeNow());
  refresh();
  if (process_ != nullptr && process_->state() == QProcess::NotRunning) finish();
}

void RunSimScreen::finish() {
  timer_.stop();
  QApplication::restoreOverrideCursor();
  QApplication::beep();
  const bool failedToStart = !startFailure_.isEmpty();
  const int status = failedToStart ? -1
                     : process_->exitStatus() == QProcess::CrashExit ? 128
                                                                       : process_->exitCode();
  logic_.engineEnded(timeNow(), static_cast<double>(elapsed_.elapsed()) / 1000.0, status, toBytes(startFailure_),
                     state_.install.scratchDir());
  process_->deleteLater();
  process_ = nullptr;
  refresh();
  review_->setFocus();
}

void RunSimScreen::reject() {
  // A run in progress goes on to its end, and a finished one to its results.
  if (!logic_.cancelEnabled()) return;
  QDialog::reject();
}

}  // namespace marloven::screens
