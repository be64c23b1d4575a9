#include "screens/mainmenu_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

#include "screens/charts.h"
#include "screens/tabular.h"
#include "screens/zones.h"
#include "results/view_output.h"
#include "screens/drawform.h"
#include "screens/economicsform.h"
#include "screens/projectinfo.h"
#include "screens/runsim.h"
#include "screens/weatherform.h"
#include "screens/project_file_dialog.h"
#include "screens/step_icons.h"
#include "screens/text_codec.h"
#include "screens/text_viewer.h"
#include "project/file_names.h"
#include "common/error_report.h"
#include "common/file_error.h"
#include "common/file_io.h"

namespace marloven::screens {

namespace {

// A lone "&" before a blank ("Heating & Cooling") is meant literally; Qt would
// take it as an access key marker.
QString menuText(const std::string& caption) {
  QString s = fromBytes(caption);
  s.replace("& ", "&& ");
  return s;
}

QToolButton* iconButton(const QString& text, const QIcon& icon, int iconSize, QWidget* parent) {
  auto* b = new QToolButton(parent);
  b->setText(text);
  b->setIcon(icon);
  b->setIconSize(QSize(iconSize, iconSize));
  b->setAutoRaise(true);
  return b;
}

}  // namespace

MainMenuWindow::MainMenuWindow(AppState& state, Prompt& prompt, QWidget* parent)
    : QMainWindow(parent), state_(state), prompt_(prompt), logic_(state, prompt), life_(state, prompt, logic_) {
  setObjectName("mainmenu");
  buildMenus();
  setCentralWidget(buildSteps());
  wireCommands();
  resize(sizeHint().expandedTo(QSize(560, 0)));
}

void MainMenuWindow::buildMenus() {
  for (const MenuSpec& spec : mainMenuBar()) {
    QMenu* m = menuBar()->addMenu(menuText(spec.caption));
    menus_[spec.id] = m;
    for (const MenuEntry& e : spec.entries) {
      switch (e.kind) {
        case MenuEntry::Kind::Separator: m->addSeparator(); break;
        case MenuEntry::Kind::Item:
          actions_[{e.command, e.index}] = m->addAction(menuText(e.caption));
          break;
        case MenuEntry::Kind::Submenu: {
          QMenu* sub = m->addMenu(menuText(e.caption));
          actions_[{e.command, e.index}] = sub->menuAction();
          for (const MenuEntry& c : e.children)
            actions_[{c.command, c.index}] = sub->addAction(menuText(c.caption));
          break;
        }
      }
    }
  }
}

QWidget* MainMenuWindow::buildSteps() {
  auto* central = new QWidget(this);

  auto* panel = new QFrame(central);
  panel->setFrameShape(QFrame::StyledPanel);
  auto* stepsLayout = new QVBoxLayout(panel);
  stepsLayout->setContentsMargins(16, 12, 16, 12);
  auto* heading = new QLabel(tr("Input Steps"), panel);
  QFont hf = heading->font();
  hf.setBold(true);
  heading->setFont(hf);
  stepsLayout->addWidget(heading);
  for (int i = 1; i <= kMainMenuSteps; ++i) {
    // One button holds label and icon, so a click on either does the same.
    QToolButton* b = iconButton(kStepCaptions[i], stepIcon(i), 40, panel);
    b->setObjectName(QString("step%1").arg(i));
    b->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    QFont f = b->font();
    f.setPointSizeF(f.pointSizeF() * 1.25);
    b->setFont(f);
    connect(b, &QToolButton::clicked, this, [this, i] {
      if (stepHandlers_[i]) stepHandlers_[i]();
    });
    steps_[i] = b;
    stepsLayout->addWidget(b, 0, Qt::AlignLeft);
  }

  sample_ = iconButton(tr("Sample Projects"), sampleProjectsIcon(), 48, central);
  sample_->setObjectName("Picture1");
  previousOutput_ = iconButton(tr("Previous Output"), previousOutputIcon(), 48, central);
  previousOutput_->setObjectName("Picture2");
  for (QToolButton* b : {sample_, previousOutput_}) b->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  auto* side = new QVBoxLayout;
  side->addWidget(sample_);
  side->addWidget(previousOutput_);
  side->addStretch(1);

  auto* layout = new QHBoxLayout(central);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->addWidget(panel, 1);
  layout->addLayout(side);
  return central;
}

void MainMenuWindow::wireCommands() {
  handlers_[{Command::Exit, 0}] = [this] {
    if (askExit()) finish();
  };
  handlers_[{Command::NewProject, 0}] = [this] {
    life_.newProject();
    refresh();
  };
  handlers_[{Command::RetrieveProject, 0}] = [this] { retrieve(false); };
  handlers_[{Command::SaveProject, 0}] = [this] { follow(life_.saveRequested()); };
  for (int kind = 1; kind <= 4; ++kind)
    handlers_[{Command::Run, kind}] = [this, kind] { follow(life_.runRequested(kind)); };
  const std::string dir = state_.install.dir();
  handlers_[{Command::HelpContents, 0}] = [this, dir] {
    HelpContents c(dir, prompt_, this);
    c.exec();
  };
  handlers_[{Command::HelpIntroduction, 0}] = [this, dir] {
    showHelpFile(this, dir, "mainhlp2.txt", "INTRODUCTION TO MARLOVEN EC", prompt_);
  };
  handlers_[{Command::HelpLearning, 0}] = [this, dir] {
    showHelpFile(this, dir, "help1.txt", "Learning MARLOVEN", prompt_);
  };
  handlers_[{Command::HelpAbout, 0}] = [this, dir] {
    showHelpFile(this, dir, "mainhlp1.txt", "MARLOVEN EC Release 6.5", prompt_);
  };
  stepHandlers_[1] = [this] {
    ProjectInfoScreen form(state_, prompt_, this);
    form.exec();
    logic_.inputAccepted();
    refresh();
  };
  stepHandlers_[2] = [this] {
    WeatherScreen form(state_, prompt_, this);
    form.exec();
    refresh();
  };
  stepHandlers_[3] = [this] {
    EconomicsScreen form(state_, prompt_, this);
    form.exec();
    logic_.inputAccepted();
    refresh();
  };
  // Tables and charts of the current output, or a stored one picked first.
  for (int chart = 1; chart <= kCharts; ++chart)
    handlers_[{Command::Graph, chart}] = [this, chart] {
      const Next n = life_.results(10, chart);
      if (n == Next::SelectView) openViewOutput(10);
      else follow(n);
    };
  for (int table = 1; table <= 8; ++table)
    handlers_[{Command::Table, table}] = [this, table] {
      const Next n = life_.results(6, table);
      if (n == Next::SelectView) openViewOutput(6);
      else follow(n);
    };
  handlers_[{Command::View, 7}] = [this] {
    if (life_.view(7) == Next::Tabular) openTabular(8);
  };
  handlers_[{Command::View, 8}] = [this] {
    if (life_.view(8) == Next::Tabular) openTabular(7, state_.install.scratchFile("ecalc$.wth"));
  };
  handlers_[{Command::View, 12}] = [this] {
    const Next n = life_.view(12);
    if (n == Next::SelectView) openViewOutput(12);
    else follow(n);
  };
  stepHandlers_[4] = [this] { follow(life_.openSketch()); };
  stepHandlers_[5] = [this] {
    if (life_.enterZones() != Next::ZoneList) return;
    ZoneListWindow zones(state_, prompt_, this);
    zones.exec();
    logic_.zonesLeft();
    refresh();
  };
  stepHandlers_[6] = [this] {
    RunOptionsDialog options(this);
    if (options.exec() == QDialog::Accepted && options.kind() != 0) follow(life_.runRequested(options.kind()));
  };
  // Later screens add their handlers here and to stepHandlers_.

  for (auto& [key, act] : actions_) {
    // Submenu headings open their items; they need no handler of their own.
    if (act->menu() != nullptr) continue;
    const auto h = handlers_.find(key);
    act->setEnabled(h != handlers_.end());
    if (h != handlers_.end()) connect(act, &QAction::triggered, this, h->second);
  }
  connect(sample_, &QToolButton::clicked, this, [this] { retrieve(true); });
  const auto view12 = handlers_.find({Command::View, 12});
  previousOutput_->setEnabled(view12 != handlers_.end());
  if (view12 != handlers_.end()) connect(previousOutput_, &QToolButton::clicked, this, view12->second);
}

QToolButton* MainMenuWindow::stepButton(int step) const {
  return step >= 1 && step <= kMainMenuSteps ? steps_[step] : nullptr;
}

QAction* MainMenuWindow::action(Command command, int index) const {
  const auto it = actions_.find({command, index});
  return it == actions_.end() ? nullptr : it->second;
}

QMenu* MainMenuWindow::menu(MenuId id) const {
  const auto it = menus_.find(id);
  return it == menus_.end() ? nullptr : it->second;
}

void MainMenuWindow::refresh() {
  logic_.activated();
  setWindowTitle(fromBytes(logic_.caption()));
  for (int i = 1; i <= kMainMenuSteps; ++i) steps_[i]->setEnabled(logic_.stepEnabled(i));
  for (auto& [id, m] : menus_) m->menuAction()->setEnabled(logic_.menuEnabled(id));
}

void MainMenuWindow::showEvent(QShowEvent* event) {
  // Centred each time it appears, but not on every activation: a window the
  // user moved must not jump when they switch back from another program.
  refresh();
  centreOnScreen();
  QMainWindow::showEvent(event);
}

void MainMenuWindow::changeEvent(QEvent* event) {
  // Coming back from another screen of the program.
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) refresh();
  QMainWindow::changeEvent(event);
}

void MainMenuWindow::centreOnScreen() {
  const QScreen* s = screen();
  if (s == nullptr) return;
  QRect frame = frameGeometry();
  frame.moveCenter(s->availableGeometry().center());
  move(frame.topLeft());
}

bool MainMenuWindow::askExit() {
  const ExitQuestion q = life_.exitQuestion();
  const std::string text = q.line.empty() ? q.caption : q.caption + "\n" + q.line;
  // Yes saves, No leaves without saving, Cancel stays.
  const Answer a = prompt_.ask(Buttons::YesNoCancel, Icon::Question, "Exit", text);
  if (a == Answer::Cancel) return false;
  Next n = a == Answer::Yes ? life_.exitSave() : life_.exitWithoutSave();
  if (n == Next::SaveInputDialog) {
    saveInputDialog();
    return exiting_;
  }
  if (n == Next::SaveOutputDialog) {
    saveOutputDialog();
    return exiting_;
  }
  return n == Next::Quit;
}

void MainMenuWindow::finish() {
  exiting_ = true;
  hide();
  emit programEnds();
}

void MainMenuWindow::follow(Next next) {
  switch (next) {
    case Next::SaveInputDialog: saveInputDialog(); break;
    case Next::SaveOutputDialog: saveOutputDialog(); break;
    case Next::Quit: finish(); return;
    case Next::Sketch: openSketchScreen(); break;
    case Next::RunSimulation: openRunScreen(); break;
    case Next::Results:
      if (state_.results.kind == 10) openChart(static_cast<Chart>(state_.results.index));
      if (state_.results.kind == 6) openTabular(state_.results.index);
      break;
    case Next::SelectView: openViewOutput(12); break;
    default: break;  // the run and results screens come with their own work
  }
  refresh();
}

void MainMenuWindow::openRunScreen() {
  RunSimScreen run(state_, prompt_, this);
  run.exec();
  refresh();
  if (!run.resultsReady()) return;
  logic_.enableViewMenu();
  refresh();
  // A finished run always opens on the breakdown of its energy.
  openChart(Chart::SourceEnergy);
}

void MainMenuWindow::openChart(Chart c) {
  bool tabular = false;
  {
    ChartWindow charts(state_, prompt_, [this] { saveOutputDialog(); }, this);
    if (!charts.showChart(c)) {
      refresh();
      return;
    }
    charts.resize(980, 800);
    charts.exec();
    tabular = charts.tabularRequested();
  }
  refresh();
  if (tabular) openTabular(3);
}

void MainMenuWindow::openTabular(int table, const std::string& file) {
  bool chart = false;
  {
    TabularWindow tab(state_, prompt_, [this] { saveOutputDialog(); }, this);
    if (file.empty())
      tab.showTable(table);
    else
      tab.showFile(file, "Weather Summary");
    tab.resize(1100, 760);
    tab.exec();
    chart = tab.chartRequested();
  }
  refresh();
  if (chart) openChart(Chart::SourceEnergy);
}

void MainMenuWindow::openViewOutput(int selector) {
  ViewOutputForm view(state_, prompt_, selector);
  const Project& p = state_.project;
  QString dir = QDir::currentPath();
  if (p.flags.fromFile) dir = QFileInfo(fromBytes(p.fileName)).absolutePath();
  ProjectFileDialog d(ProjectFileDialog::Mode::ViewOutput, dir, fromBytes(view.pattern()), QString(), this);
  std::optional<ViewOutputForm::View> shown;
  while (!shown && d.exec() == QDialog::Accepted) shown = view.clickOk(toBytes(d.directory()), toBytes(d.name()));
  refresh();
  if (!shown) return;
  logic_.enableViewMenu();
  refresh();
  switch (shown->kind) {
    case ViewOutputForm::View::Table: openTabular(shown->number); break;
    case ViewOutputForm::View::Comfort: openTabular(8); break;
    case ViewOutputForm::View::Chart: openChart(static_cast<Chart>(shown->number)); break;
  }
}

void MainMenuWindow::openSketchScreen() {
  // Modal: the sketch owns the level files until it is left by Exit or Cancel.
  DrawForm form(state_, prompt_, this);
  if (!form.start()) return;
  form.exec();
  state_.sketchLevel = form.currentLevel();
}

void MainMenuWindow::retrieve(bool sample) {
  if (!life_.confirmDiscard()) return;
  const Project& p = state_.project;
  QString dir = sample ? fromBytes(state_.install.path("sample")) : QDir::currentPath();
  if (!sample && p.flags.inputSaved) dir = QFileInfo(fromBytes(p.fileName)).absolutePath();
  ProjectFileDialog d(sample ? ProjectFileDialog::Mode::Sample : ProjectFileDialog::Mode::Retrieve, dir,
                      "*.inp", QString(), this);
  if (d.exec() != QDialog::Accepted) return;
  life_.retrieve(toBytes(d.directory()), toBytes(d.name()), sample);
  refresh();
}

void MainMenuWindow::saveInputDialog() {
  const Project& p = state_.project;
  QString dir = QDir::currentPath();
  QString name = fromBytes(p.baseName.empty() ? p.fileName : p.baseName);
  if (p.flags.fromFile) {
    const QFileInfo f(fromBytes(p.fileName));
    dir = f.absolutePath();
    name = f.fileName();
  }
  ProjectFileDialog d(ProjectFileDialog::Mode::SaveInput, dir, "*.inp", name, this);
  d.setUnits(p.units);
  if (d.exec() != QDialog::Accepted) {
    state_.project.flags.exitAfterSave = false;
    return;
  }
  const Next n = life_.saveInput(toBytes(d.directory()), toBytes(d.name()), d.units());
  if (n == Next::Quit) {
    finish();
    return;
  }
  if (n == Next::SaveOutputDialog) saveOutputDialog();
  refresh();
}

void MainMenuWindow::saveOutputDialog() {
  const Project& p = state_.project;
  QString dir = p.flags.fromFile ? QFileInfo(fromBytes(p.fileName)).absolutePath() : QDir::currentPath();
  ProjectFileDialog d(ProjectFileDialog::Mode::SaveOutput, dir, p.flags.lastRunKind == 4 ? "*.fl*" : "*.ot*",
                      fromBytes(proposedOutputName(p)), this);
  d.setMessage(fromBytes(life_.outputDialogText()));
  if (p.flags.runKind != 0) d.offerRun();
  // The dialog stays while the name is refused.
  for (int result; (result = d.exec()) != QDialog::Rejected;) {
    if (result == ProjectFileDialog::kRunResult) {
      follow(life_.runWithoutSavingOutput());
      return;
    }
    const Next n = life_.saveOutput(toBytes(d.directory()), toBytes(d.name()));
    if (n == Next::Quit) {
      finish();
      return;
    }
    if (isOutputName(toBytes(d.name()))) return;
  }
  state_.project.flags.outputSaved = false;
  state_.project.flags.exitQuestionAnswered = false;
}

void MainMenuWindow::closeEvent(QCloseEvent* event) {
  // The close box asks the exit question too; Cancel keeps the program.
  if (exiting_ || askExit()) {
    if (!exiting_) finish();
    event->accept();
  } else {
    event->ignore();
  }
}

}  // namespace marloven::screens
