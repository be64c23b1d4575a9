// The run from the main menu through the run screen to the joined report,
// with the real engine; the rules are tested in tests/run.
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <cstdlib>
#include <filesystem>

#include "common/file_io.h"
#include "common/number_text.h"
#include "modal.h"
#include "results/chart_readers.h"
#include "screens/mainmenu_window.h"
#include "screens/runsim.h"
#include "screens/text_viewer.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

using namespace marloven;
using marloven::testing::whenShown;
using screens::RunOptionsDialog;
using screens::RunSimScreen;
using screens::TextViewer;

namespace {

struct Fixture {
  Fixture() {
    tree.write("btype/tcool.dat", readFile(std::string(SOURCE_DIR) + "/install/btype/tcool.dat"));
    std::string text = readFile(std::string(SOURCE_DIR) + "/tests/engine/fixtures/office/office_baltimore.inp");
    for (std::size_t at; (at = text.find("Window ID  0 ")) != std::string::npos;) text.replace(at, 13, "Window ID  1 ");
    tree.write("sample/office.inp", text);
    menu.show();
    QVERIFY(menu.lifecycle().retrieve(tree.path("sample").string(), "office.inp"));
    menu.refresh();
  }
  ~Fixture() {
    std::filesystem::current_path(cwd);
    setenv("MARLOVEN_TARN64", TARN_BINARY, 1);
  }

  std::filesystem::path cwd = std::filesystem::current_path();
  testing::TempInstall tree;
  AppState state{Installation(tree.dir())};
  testing::FakePrompt prompt;
  screens::MainMenuWindow menu{state, prompt};
};

}  // namespace

class RunScreensTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { setenv("MARLOVEN_TARN64", TARN_BINARY, 1); }

  void runWithAirConditioningEndsInTheJoinedReport() {
    Fixture f;
    QVERIFY(f.menu.action(Command::Run, 3)->isEnabled());
    f.prompt.answers = {Answer::Yes};  // run without saving the input
    bool ran = false, reviewed = false;
    whenShown<RunSimScreen>([&](RunSimScreen* r) {
      QVERIFY(r->windowTitle().startsWith("Run Energy Simulation -- "));
      QVERIFY(r->statusLabel()->text().startsWith("Run Status Indicator...  Time="));
      QVERIFY(r->week(3)->highlighted());
      QVERIFY(!r->reviewButton()->isEnabled());
      QTest::mouseClick(r->month(0), Qt::LeftButton);
      QVERIFY(r->month(0)->highlighted());
      QTest::mouseClick(r->executeButton(), Qt::LeftButton);
      QVERIFY(!r->executeButton()->isEnabled());
      QTRY_VERIFY_WITH_TIMEOUT(r->reviewButton()->isEnabled(), 20000);
      QVERIFY(r->statusLabel()->text().startsWith("Simulation Completed at "));
      QVERIFY(r->statusLabel()->text().contains("Total time = "));
      QVERIFY(!r->cancelButton()->isEnabled());
      QVERIFY(r->problemsLabel()->isHidden());
      ran = true;
      QTest::mouseClick(r->reviewButton(), Qt::LeftButton);
    });
    whenShown<TextViewer>([&](TextViewer* v) {
      reviewed = true;
      v->reject();
    });
    f.menu.action(Command::Run, 3)->trigger();
    QVERIFY(ran);
    QVERIFY(reviewed);
    QCOMPARE(f.prompt.log.size(), std::size_t{1});
    QCOMPARE(f.prompt.log[0].title, std::string("Save input"));
    QVERIFY(f.state.project.flags.outputViewable);
    QVERIFY(f.menu.menu(MenuId::View)->menuAction()->isEnabled());
    // The readers find their anchors in the joined report.
    ChartTables t;
    QVERIFY(readSiteEnergy(f.state.install.scratchDir(), t).ok());
    QVERIFY(readLoadBreakdown(f.state.install.scratchDir(), LoadColumn::PeakCooling, t).ok());
    QVERIFY(readMonthlyEnergy(f.state.install.scratchDir(), t).ok());
    QVERIFY(leadingNumber(t.site.endUse[kLighting]) > 0);
  }

  void stepSixAsksTheKindAndAMissingEngineStillFinishes() {
    Fixture f;
    setenv("MARLOVEN_TARN64", "/nonexistent/tarn64", 1);
    f.prompt.answers = {Answer::Yes};
    bool finished = false;
    whenShown<RunOptionsDialog>([&](RunOptionsDialog* o) {
      QCOMPARE(o->windowTitle(), QString("Marloven run Options"));
      QTest::mouseClick(o->passive(), Qt::LeftButton);
    });
    whenShown<RunSimScreen>([&](RunSimScreen* r) {
      QTest::mouseClick(r->executeButton(), Qt::LeftButton);
      QTRY_VERIFY_WITH_TIMEOUT(r->reviewButton()->isEnabled(), 20000);
      QVERIFY(!r->problemsLabel()->isHidden());
      QVERIFY(r->problemsLabel()->text().contains("could not be started"));
      finished = true;
      r->done(QDialog::Rejected);  // leave without the results
    });
    QTest::mouseClick(f.menu.stepButton(6), Qt::LeftButton);
    QVERIFY(finished);
    QVERIFY(f.prompt.log.size() >= 2);
    QCOMPARE(f.prompt.log[1].title, std::string("Marloven Error #  53"));
    QCOMPARE(f.state.project.flags.lastRunKind, 4);
  }
};

QTEST_MAIN(RunScreensTest)
#include "run_screens_test.moc"
