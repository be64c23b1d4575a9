// The sketch screen's widgets are wired to the drawing logic: step 4 opens it,
// mouse gestures on the canvas paint zones, Exit makes the zones, Cancel asks,
// and the three small dialogs do what they are for. The rules themselves are
// tested in tests/sketch.
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <filesystem>

#include "common/file_io.h"
#include "common/text_lines.h"
#include "screens/controlpanel.h"
#include "screens/drawform.h"
#include "screens/mainmenu_window.h"
#include "screens/saveform.h"
#include "screens/text_codec.h"
#include "modal.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

using namespace marloven;
using marloven::testing::whenShown;
using screens::DrawForm;

namespace {

const std::string kTemplate = std::string(SOURCE_DIR) + "/install/sketch/bld_mtx2.000";


struct Fixture {
  Fixture() {
    state.install = Installation(tree.dir());
    tree.write("sketch/bld_mtx2.000", readFile(kTemplate));
    state.project.units = UnitSystem::IP;
  }
  testing::TempInstall tree;
  AppState state;
  testing::FakePrompt prompt;
};

void drag(DrawForm* f, double x1, double y1, double x2, double y2) { testing::dragOn(f->canvas(), x1, y1, x2, y2); }

}  // namespace

class SketchScreensTest : public QObject {
  Q_OBJECT

 private slots:
  void stepFourDrawsATwoLevelBuildingAndExitMakesTheZones() {
    Fixture f;
    screens::MainMenuWindow menu(f.state, f.prompt);
    menu.show();
    bool seen = false;
    whenShown<DrawForm>([&](DrawForm* d) {
      seen = true;
      QCOMPARE(d->windowTitle(), QString("MARLOVEN -- Building Sketch -- New_Project"));
      d->resize(1000, 720);
      QCoreApplication::processEvents();
      QCOMPARE(d->field(SketchField::GridSize)->text(), QString("2"));
      QVERIFY(d->action("draw_unit1")->isEnabled());
      QVERIFY(!d->action("draw_unit2")->isEnabled());
      // Zone 2 picked by its name box, then drawn; zone 3 over part of it.
      QTest::mouseClick(d->canvas()->nameBox(1), Qt::LeftButton);
      drag(d, 101, 101, 301, 301);
      QCOMPARE(d->statusBox("zone_area")->text(), QString("Zn area=1600"));
      d->canvas()->nameBox(1)->setText("Shop");
      emit d->canvas()->nameBox(1)->textEdited("Shop");
      QTest::mouseClick(d->canvas()->nameBox(2), Qt::LeftButton);
      drag(d, 201, 201, 401, 301);
      QCOMPARE(d->editor().matrix().cells[15][15], 2);
      QCOMPARE(d->editor().matrix().cells[25][25], 3);
      // Up one level with the bar: a new level, as a copy.
      f.prompt.answers = {Answer::Yes};
      d->levelBar()->setValue(1);
      QCOMPARE(d->statusBox("Level")->text(), QString("Level= 2"));
      QCOMPARE(d->statusBox("Stories")->text(), QString("Stories=2"));
      f.prompt.answers = {Answer::Ok, Answer::No};
      d->action("erase_dwg")->trigger();
      QTest::mouseClick(d->canvas()->nameBox(1), Qt::LeftButton);
      drag(d, 101, 101, 201, 201);
      d->field(SketchField::RoomHeight)->setText("9");
      emit d->field(SketchField::RoomHeight)->textEdited("9");
      QTest::mouseClick(d->exitButton(), Qt::LeftButton);
    });
    menu.stepButton(4)->click();
    QVERIFY(seen);
    const Project& p = f.state.project;
    QVERIFY(p.flags.resketched);
    QCOMPARE(p.zoneCount, std::int16_t{3});
    QCOMPARE(p.zones[1].listedId, std::string("12"));
    QCOMPARE(p.zones[1].listedName, std::string("Shop"));
    QCOMPARE(p.zones[2].listedId, std::string("13"));
    QCOMPARE(p.zones[3].listedId, std::string("22"));
    QCOMPARE(p.zones[3].listedFloorArea, 400.0f);
    QVERIFY(f.tree.exists("temp/temp22.zon"));
    QCOMPARE(splitLines(f.tree.read("sketch/bld_mtx.all")).size(), std::size_t{2 * kLevelLines});
    QVERIFY(f.prompt.unscripted == 0);
  }

  void cancelChangesAsksAndLeavesTheSketchFileAlone() {
    Fixture f;
    screens::MainMenuWindow menu(f.state, f.prompt);
    whenShown<DrawForm>([&](DrawForm* d) {
      drag(d, 101, 101, 301, 301);
      f.prompt.answers = {Answer::Cancel};
      d->action("finish")->trigger();
      QVERIFY(d->isVisible());
      f.prompt.answers = {Answer::Ok};
      d->action("finish")->trigger();
      QVERIFY(!d->isVisible());
      QVERIFY(!d->exitedWithSave());
    });
    menu.stepButton(4)->click();
    QCOMPARE(f.tree.read("sketch/bld_mtx.all"), readFile(kTemplate));
    QCOMPARE(f.state.project.zoneCount, std::int16_t{0});
    QCOMPARE(f.prompt.log.back().title, std::string("Warning - Drawing update will not occur"));
  }

  void controlPanelMixesTheDrawingColour() {
    screens::ControlPanel panel(rgb(1, 2, 3));
    QCOMPARE(panel.windowTitle(), QString("Control Panel"));
    QCOMPARE(panel.bar(2)->value(), 3);
    panel.bar(0)->setValue(200);
    panel.bar(1)->setValue(100);
    panel.bar(2)->setValue(50);
    QCOMPARE(panel.colour(), rgb(200, 100, 50));
  }

  void saveFormProposesTheProjectNameAndCopiesTheSketch() {
    Fixture f;
    f.state.project.fileName = "/home/me/SCHOOL.INP";
    f.tree.write("sketch/bld_mtx.all", "Grid Size   : 2\r\n");
    QImage img(10, 10, QImage::Format_RGB32);
    img.fill(Qt::white);
    screens::SaveForm form(f.state, img, f.prompt);
    QCOMPARE(form.nameBox()->text(), QString("SCHOOL.wri"));
    form.option(0)->click();
    QCOMPARE(form.nameBox()->text(), QString("SCHOOL.jpg"));
    form.nameBox()->setText(QString::fromStdString((f.tree.root() / "pic.jpg").string()));
    form.findChild<QPushButton*>("okbutton")->click();
    QVERIFY(f.tree.exists("pic.jpg"));
    form.option(1)->click();
    form.lists()->setDirectory(QString::fromStdString(f.tree.dir()));
    form.nameBox()->setText("copy.wri");
    form.findChild<QPushButton*>("okbutton")->click();
    QCOMPARE(f.tree.read("copy.wri"), std::string("Grid Size   : 2\r\n"));
    // A folder that is not there: the error's text under "Paint".
    form.nameBox()->setText("/nonexistent/dir/x.wri");
    form.findChild<QPushButton*>("okbutton")->click();
    QCOMPARE(f.prompt.log.back().title, std::string("Paint"));
  }
};

QTEST_MAIN(SketchScreensTest)

#include "sketch_screens_test.moc"
