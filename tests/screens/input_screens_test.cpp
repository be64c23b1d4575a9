// Project information and economics: the widgets are wired to their logic.
// The rules themselves are tested in tests/input.
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <filesystem>

#include "common/file_io.h"
#include "modal.h"
#include "screens/economicsform.h"
#include "screens/mainmenu_window.h"
#include "screens/projectinfo.h"
#include "screens/text_viewer.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

using namespace marloven;
using marloven::testing::whenShown;
using screens::DemandChargeDialog;
using screens::EconomicsScreen;
using screens::ProjectInfoScreen;

namespace {

struct Fixture {
  explicit Fixture(UnitSystem units = UnitSystem::IP) {
    tree.write("btype/bdtype24.dat", readFile(std::string(SOURCE_DIR) + "/install/btype/bdtype24.dat"));
    state.project.units = units;
    state.tables.today.year = 2026;
    menu.show();
  }
  ~Fixture() { std::filesystem::current_path(cwd); }

  std::filesystem::path cwd = std::filesystem::current_path();
  testing::TempInstall tree;
  AppState state{Installation(tree.dir())};
  testing::FakePrompt prompt;
  screens::MainMenuWindow menu{state, prompt};
};

}  // namespace

class InputScreensTest : public QObject {
  Q_OBJECT

 private slots:
  void stepOneFillsTheProjectFromABuildingTypeAndOkClosesIt() {
    Fixture f(UnitSystem::SI);
    bool seen = false;
    whenShown<ProjectInfoScreen>([&](ProjectInfoScreen* s) {
      seen = true;
      QCOMPARE(s->windowTitle(), QString("Project Information -- New_Project"));
      QCOMPARE(s->unitLabel(kFloorArea)->text(), QString("sq.m."));
      QVERIFY(s->buildingTypeMenu()->isEnabled());
      QCOMPARE(s->buildingType(24)->text(), QString("Office building"));
      s->buildingType(24)->trigger();
      QCOMPARE(s->box(kBuildingType)->text(), QString("Office building OF"));
      QCOMPARE(s->box(kConstructionCost)->text(), QString("1829.86"));

      // A refused key leaves the box as it was and says why.
      QLineEdit* days = s->box(kOccupiedDays);
      days->setFocus();
      days->selectAll();
      QTest::keyClick(days, Qt::Key_Backspace);
      QTest::keyClicks(days, "8");
      QCOMPARE(days->text(), QString(""));
      QCOMPARE(f.prompt.log.back().text, std::string("Error. The maximum occupied days are 7 days per-week."));
      QTest::keyClicks(days, "6");
      QCOMPARE(days->text(), QString("6"));
      QLineEdit* name = s->box(kProjectName);
      name->selectAll();
      QTest::keyClicks(name, "Annex");
      QTest::mouseClick(s->okButton(), Qt::LeftButton);
      QVERIFY(!s->isVisible());
    });
    QTest::mouseClick(f.menu.stepButton(1), Qt::LeftButton);
    QVERIFY(seen);
    QVERIFY(f.state.project.flags.stepDone[1]);
    QCOMPARE(f.state.project.data[kOccupiedDays], std::string("6"));
    QCOMPARE(f.state.project.data[kProjectName], std::string("Annex"));
    QCOMPARE(f.state.buildingTypeNumber, 24);
    QVERIFY(!f.menu.stepButton(5)->isEnabled());  // a new project sketches first
  }

  void enterIsOkEscapeIsCancelAndUndoRestores() {
    Fixture f;
    f.state.project.data[kLocation] = "Boise";
    whenShown<ProjectInfoScreen>([&](ProjectInfoScreen* s) {
      QLineEdit* loc = s->box(kLocation);
      loc->setFocus();
      QTest::keyClicks(loc, "x");
      QCOMPARE(loc->text(), QString("Boisex"));
      QTest::mouseClick(s->undoButton(), Qt::LeftButton);
      QCOMPARE(loc->text(), QString("Boise"));
      QTest::keyClicks(loc, "y");
      QTest::keyClick(loc, Qt::Key_Escape);
      QVERIFY(!s->isVisible());
    });
    QTest::mouseClick(f.menu.stepButton(1), Qt::LeftButton);
    QCOMPARE(f.state.project.data[kLocation], std::string("Boise"));
    QVERIFY(!f.state.project.flags.stepDone[1]);

    whenShown<ProjectInfoScreen>([&](ProjectInfoScreen* s) {
      QLineEdit* year = s->box(kConstructionYear);
      year->setFocus();
      QTest::keyClicks(year, "1999");
      QTest::keyClick(year, Qt::Key_Return);
      QVERIFY(!s->isVisible());
    });
    QTest::mouseClick(f.menu.stepButton(1), Qt::LeftButton);
    QVERIFY(f.state.project.flags.stepDone[1]);
    QCOMPARE(f.state.project.data[kConstructionYear], std::string("1999"));
  }

  void aProjectFromAFileKeepsItsTypeAndMayEnterZonesAndRun() {
    Fixture f;
    f.state.project.flags.fromFile = true;
    f.state.project.fileName = "/home/u/clinic.inp";
    whenShown<ProjectInfoScreen>([&](ProjectInfoScreen* s) {
      QCOMPARE(s->windowTitle(), QString("Project Information -- /home/u/clinic.inp"));
      QVERIFY(!s->buildingTypeMenu()->menuAction()->isEnabled());
      s->okButton()->click();
    });
    QTest::mouseClick(f.menu.stepButton(1), Qt::LeftButton);
    QVERIFY(f.menu.stepButton(5)->isEnabled());
    QVERIFY(f.menu.stepButton(6)->isEnabled());
    QVERIFY(f.menu.menu(MenuId::Analysis)->menuAction()->isEnabled());
  }

  void helpTutorialsOpenTheirTexts() {
    Fixture f;
    f.tree.write("helpinfo/help2.txt", "Project help\r\n");
    f.tree.write("helpinfo/help3.txt", "Economics help\r\n");
    for (auto [step, title] : {std::pair{1, "PROJECT INFORMATION -- New_Project"}, std::pair{3, "ECONOMICS -- New_Project"}}) {
      QString seen;
      whenShown<QDialog>([&](QDialog* screen) {
        whenShown<screens::TextViewer>([&](screens::TextViewer* v) { seen = v->windowTitle(); });
        screen->findChild<QAction*>("tutorial")->trigger();
        screen->reject();
      });
      QTest::mouseClick(f.menu.stepButton(step), Qt::LeftButton);
      QCOMPARE(seen, QString(title));
    }
    QVERIFY(f.prompt.log.empty());
  }

  void stepThreeEditsTheEconomicsAndTheDemandSchedule() {
    Fixture f(UnitSystem::SI);
    f.state.project.economics = {"30", "20", "20", "0.07", "0.03", "0.10", "0.03", "10.43", "0.04", "1.06", "0.04"};
    f.state.project.demand.text = "N";
    whenShown<EconomicsScreen>([&](EconomicsScreen* s) {
      QCOMPARE(s->windowTitle(), QString("Economics Data -- New_Project"));
      QCOMPARE(s->unitLabel(kGasCost)->text(), QString("$/GJoule"));
      QTest::mouseClick(s->box(kMechanicalLife), Qt::LeftButton);
      s->lifeItem(3)->trigger();
      QCOMPARE(s->box(kMechanicalLife)->text(), QString("40"));
      QLineEdit* elec = s->box(kElecCost);
      elec->setFocus();
      QTest::keyClicks(elec, "a");
      QCOMPARE(elec->text(), QString("0.10"));
      QCOMPARE(f.prompt.log.back().text, std::string("You should use numerical value."));

      whenShown<DemandChargeDialog>([&](DemandChargeDialog* d) {
        QCOMPARE(d->windowTitle(), QString("Demand Charge"));
        QTest::keyClicks(d->box(0, 0), "150");
        QTest::keyClicks(d->box(0, 1), "9.5");
        QTest::keyClick(d->box(0, 1), Qt::Key_Return);
        QVERIFY(!d->isVisible());
      });
      QTest::mouseClick(s->demandButton(), Qt::LeftButton);
      QCOMPARE(s->demandButton()->text(), QString("Y"));
      QTest::mouseClick(s->okButton(), Qt::LeftButton);
      QVERIFY(!s->isVisible());
    });
    QTest::mouseClick(f.menu.stepButton(3), Qt::LeftButton);
    const Project& p = f.state.project;
    QVERIFY(p.flags.stepDone[3]);
    QCOMPARE(p.economics[kMechanicalLife], std::string("40"));
    QCOMPARE(p.demand.text, std::string("Y"));
    QCOMPARE(p.demand.pairCount, std::int16_t{1});
    QCOMPARE(p.demand.pairs[1].first, std::string("150"));
    QCOMPARE(p.demand.pairs[1].second, std::string("9.5"));
  }
};

QTEST_MAIN(InputScreensTest)
#include "input_screens_test.moc"
