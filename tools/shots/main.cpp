// Screenshots of the input screens as the desktop shows them, for looking at
// a layout in both unit systems without clicking through the program:
//   xvfb-run marloven-shots INSTALL_DIR OUT_DIR
// Each screen is built on a fresh project with the office building type chosen.
#include <QApplication>
#include <QDir>
#include <QMenuBar>
#include <QPixmap>
#include <QTimer>
#include <cstdio>
#include <algorithm>
#include <functional>
#include <QLineEdit>

#include "project/app_state.h"
#include "screens/economicsform.h"
#include "screens/projectinfo.h"
#include "screens/qt_prompt.h"
#include "screens/runsim.h"
#include "screens/charts.h"
#include "screens/zones.h"
#include "screens/profiles.h"
#include "shell/startup.h"
#include "shell/lifecycle.h"
#include "shell/main_menu.h"
#include "input/zone_forms.h"
#include "screens/tabular.h"
#include "screens/project_file_dialog.h"
#include "common/column_printer.h"
#include "project/project_writer.h"
#include "project/project_reader.h"
#include "common/file_io.h"
#include <QElapsedTimer>
#include <QPushButton>
#include <filesystem>
#include <cstdlib>
#include "screens/selectweth.h"
#include "screens/weatherform.h"

using namespace marloven;

namespace {

void save(QWidget* w, const QString& path) {
  w->show();
  w->raise();
  QApplication::processEvents();
  QApplication::processEvents();
  if (!w->grab().save(path)) std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
  w->hide();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "usage: marloven-shots INSTALL_DIR OUT_DIR\n");
    return 2;
  }
  const QString out = QString::fromLocal8Bit(argv[2]);
  QDir().mkpath(out);
  screens::QtPrompt prompt;
  for (UnitSystem units : {UnitSystem::IP, UnitSystem::SI}) {
    const QString tag = units == UnitSystem::IP ? "ip" : "si";
    AppState state{Installation(argv[1])};
    state.project.units = units;
    state.tables.today.year = 2026;
    {
      screens::ProjectInfoScreen s(state, prompt);
      save(&s, out + "/projectinfo-empty-" + tag + ".png");
      s.logic().chooseBuildingType(24);
      screens::ProjectInfoScreen filled(state, prompt);
      filled.logic().chooseBuildingType(24);
      save(&filled, out + "/projectinfo-" + tag + ".png");
      filled.accept();
    }
    {
      screens::EconomicsScreen s(state, prompt);
      save(&s, out + "/economics-" + tag + ".png");
      state.project.demand.pairCount = 2;
      state.project.demand.pairs[1] = {"100", "4.50"};
      state.project.demand.pairs[2] = {"250", "6.75"};
      s.logic().schedule().fill();
      screens::DemandChargeDialog d(s.logic().schedule());
      save(&d, out + "/demandcharge-" + tag + ".png");
    }
    {
      screens::WeatherScreen w(state, prompt);
      const auto& groups = w.logic().groups();
      const auto it = std::find(groups.begin(), groups.end(), "Colorado");
      screens::WeatherScreen shown(state, prompt);  // the lists and boxes as a user sees them
      emit shown.groupList()->activated(static_cast<int>(it - groups.begin()));
      shown.groupList()->setCurrentText("Colorado");
      save(&shown, out + "/weather-" + tag + ".png");
    }
    if (units == UnitSystem::IP) {
      const QString sample = QString::fromLocal8Bit(argv[1]) + "/helpinfo";
      screens::SelectWeatherScreen s(state, prompt, sample);
      s.nameBox()->setText("tmy2.txt");
      save(&s, out + "/selectweth.png");
      s.logic().setDirectory(sample.toStdString());
      s.logic().setName("tmy2.txt");
      s.logic().chooseFormat(0);
      if (auto text = s.logic().view()) {
        screens::WeatherPreview p(s.logic(), *text);
        save(&p, out + "/viewweather.png");
      }
    }
  }

  // The zone screens on the sample office, retrieved in each unit system.
  {
    namespace fs = std::filesystem;
    const fs::path zt = fs::temp_directory_path() / "marloven-shots-zones";
    fs::remove_all(zt);
    fs::copy(argv[1], zt, fs::copy_options::recursive);
    fs::create_directories(zt / "temp");
    for (UnitSystem units : {UnitSystem::IP, UnitSystem::SI}) {
      const QString tag = units == UnitSystem::IP ? "ip" : "si";
      AppState state{Installation(zt.string())};
      std::string file = "office.inp";
      if (units == UnitSystem::SI) {
        marloven::Project p;
        const auto side = marloven::readProject(marloven::readFile((zt / "sample/office.inp").string()), p);
        marloven::ColumnPrinter copy;
        marloven::printHeader(copy, p.seed, 4, UnitSystem::SI);
        marloven::writeProject(copy, p, side.sketchLines, marloven::Conversion::ToSI);
        marloven::writeFileAtomic((zt / "sample/office-si.inp").string(), copy.take());
        file = "office-si.inp";
      }
      marloven::MainMenu menu(state, prompt);
      marloven::Lifecycle life(state, prompt, menu);
      life.retrieve((zt / "sample").string(), file);
      life.enterZones();
      screens::ZoneListWindow list(state, prompt);
      save(&list, out + "/zonename-" + tag + ".png");
      marloven::ZoneListForm(state, prompt).openZone(2);
      screens::ZoneFormWindow zone(state, prompt);
      zone.resize(1000, 640);
      save(&zone, out + "/zoneform-" + tag + ".png");
      screens::VentilationDialog ven(prompt, units, state.project.zones[2].fields[kOutsideAir]);
      save(&ven, out + "/venrate-" + tag + ".png");
      // The profile screens of zone 2, as its profile menu opens them.
      marloven::loadStartupTables(state.install, state.tables);
      for (int kind = 1; kind <= 4; ++kind) {
        marloven::ZoneForm form(state, prompt);
        form.open();
        form.chooseProfile(kind);
        screens::ProfileWindow w(state, prompt, kind);
        save(&w, out + "/profile" + QString::number(kind) + "-" + tag + ".png");
      }
      {
        marloven::ZoneForm form(state, prompt);
        form.open();
        form.chooseProfile(5);
        screens::TemperatureWindow w(state, prompt);
        save(&w, out + "/temperature-" + tag + ".png");
      }
    }
  }

  // The run screens on the sample office, in a copy of the installation so
  // its scratch folder may be written. An engine that takes its time shows
  // the screen while it runs.
  namespace fs = std::filesystem;
  const fs::path tree = fs::temp_directory_path() / "marloven-shots-install";
  fs::remove_all(tree);
  fs::copy(argv[1], tree, fs::copy_options::recursive);
  fs::create_directories(tree / "temp");
  const fs::path slow = tree / "slow-tarn64.sh";
  {
    const char* engine = std::getenv("MARLOVEN_TARN64");
    marloven::writeFileAtomic(slow.string(), std::string("#!/bin/sh\nsleep 3\nexec ") + (engine ? engine : "tarn64") + "\n");
    fs::permissions(slow, fs::perms::owner_all);
  }
  setenv("MARLOVEN_TARN64", slow.c_str(), 1);
  for (UnitSystem units : {UnitSystem::IP, UnitSystem::SI}) {
    const QString tag = units == UnitSystem::IP ? "ip" : "si";
    AppState state{Installation(tree.string())};
    const auto side = marloven::readProject(marloven::readFile((tree / "sample/office.inp").string()), state.project);
    if (units == UnitSystem::SI) {
      // The sample as a save in SI leaves it.
      marloven::ColumnPrinter copy;
      marloven::printHeader(copy, state.project.seed, 4, UnitSystem::SI);
      marloven::writeProject(copy, state.project, side.sketchLines, marloven::Conversion::ToSI);
      state.project = marloven::Project();
      marloven::readProject(copy.take(), state.project);
    }
    state.project.flags.runKind = 3;
    if (units == UnitSystem::IP) {
      screens::RunOptionsDialog o;
      save(&o, out + "/runoptions.png");
    }
    screens::RunSimScreen r(state, prompt);
    save(&r, out + "/runsim-before-" + tag + ".png");
    r.show();
    r.executeButton()->click();
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < 1500) QApplication::processEvents(QEventLoop::AllEvents, 50);
    if (units == UnitSystem::IP) save(&r, out + "/runsim-during.png");
    r.show();
    while (!r.reviewButton()->isEnabled() && t.elapsed() < 30000) QApplication::processEvents(QEventLoop::AllEvents, 50);
    if (units == UnitSystem::IP) save(&r, out + "/runsim-after.png");
    r.reviewButton()->click();
    // The seven charts of that run.
    screens::ChartWindow charts(state, prompt, {});
    charts.resize(980, 800);
    for (int c = 1; c <= kCharts; ++c) {
      charts.showChart(static_cast<Chart>(c));
      save(&charts, out + QString("/chart%1-").arg(c) + tag + ".png");
    }
    // Every section of the report, and its first page as printed to PDF.
    screens::TabularWindow tab(state, prompt, {});
    tab.resize(1100, 760);
    for (int table = 1; table <= 8; ++table) {
      tab.showTable(table);
      save(&tab, out + QString("/table%1-").arg(table) + tag + ".png");
    }
    if (units == UnitSystem::IP) {
      tab.showTable(1);
      tab.exportPdf(out + "/project-data.pdf");
      screens::HourlyDialog hourly(state, prompt);
      save(&hourly, out + "/hourly.png");
      screens::ProjectFileDialog view(screens::ProjectFileDialog::Mode::ViewOutput, QString::fromStdString(tree.string() + "/sample"), "*.ot*", QString());
      save(&view, out + "/selectview.png");
      // A passive run for the comfort table.
      state.project.flags.runKind = 4;
      screens::RunSimScreen passive(state, prompt);
      passive.show();
      passive.executeButton()->click();
      QElapsedTimer w;
      w.start();
      while (!passive.reviewButton()->isEnabled() && w.elapsed() < 30000)
        QApplication::processEvents(QEventLoop::AllEvents, 50);
      passive.reviewButton()->click();
      screens::TabularWindow comfort(state, prompt, {});
      comfort.resize(1100, 760);
      comfort.showTable(8);
      save(&comfort, out + "/comfort-ip.png");
    }
  }
  return 0;
}
