// The zone list and the zone description through their widgets; the rules
// are tested in tests/input.
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>
#include <filesystem>

#include "common/file_io.h"
#include "modal.h"
#include "screens/mainmenu_window.h"
#include "screens/zones.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

using namespace marloven;
using marloven::testing::whenShown;
using screens::ZoneFormWindow;
using screens::ZoneListWindow;

class ZoneScreensTest : public QObject {
  Q_OBJECT

 private slots:
  void aZoneIsOpenedEditedAndStoredFromTheList() {
    const std::filesystem::path cwd = std::filesystem::current_path();
    testing::TempInstall tree;
    for (const char* f : {"btype/tcool.dat", "btype/theat.dat"})
      tree.write(f, readFile(std::string(SOURCE_DIR) + "/install/" + f));
    tree.write("sample/office.inp", readFile(std::string(SOURCE_DIR) + "/install/sample/office.inp"));
    AppState state{Installation(tree.dir())};
    testing::FakePrompt prompt;
    screens::MainMenuWindow menu{state, prompt};
    menu.show();
    QVERIFY(menu.lifecycle().retrieve(tree.path("sample").string(), "office.inp"));
    menu.refresh();
    QVERIFY(menu.stepButton(5)->isEnabled());

    bool edited = false;
    whenShown<ZoneListWindow>([&](ZoneListWindow* list) {
      QVERIFY(list->windowTitle().startsWith("ZONE NAMES -- "));
      QCOMPARE(list->grid()->item(0, 1)->text(), QString("South"));
      whenShown<ZoneFormWindow>([&](ZoneFormWindow* z) {
        prompt.answers = {};
        QVERIFY(z->windowTitle().startsWith("Zone Description -- "));
        QCOMPARE(z->box(kZoneName)->text(), QString("East"));
        QLineEdit* mass = z->box(kInternalMass);
        mass->setFocus();
        mass->selectAll();
        QTest::keyClicks(mass, "3x");
        QCOMPARE(mass->text(), QString("3"));
        QCOMPARE(prompt.log.back().text, std::string("You should use numerical value."));
        const QString before = z->box(kFirstCost)->text();
        z->acType(1)->trigger();
        QCOMPARE(z->box(kCoolingType)->text(), QString(" 1"));
        QVERIFY(z->box(kFirstCost)->text() != before);
        QCOMPARE(z->box(kFirstCost)->text(), QString("2700"));  // gas heat: the furnace added
        QTest::mouseClick(z->okButton(), Qt::LeftButton);
        QVERIFY(!z->isVisible());
        edited = true;
      });
      list->grid()->setCurrentCell(1, 0);
      const QPoint cell = list->grid()->visualItemRect(list->grid()->item(1, 0)).center();
      QTest::mouseClick(list->grid()->viewport(), Qt::LeftButton, Qt::NoModifier, cell);
      QTest::mouseDClick(list->grid()->viewport(), Qt::LeftButton, Qt::NoModifier, cell);
      QVERIFY2(edited, qPrintable(QString::number(prompt.log.size())));
      prompt.answers = {Answer::Yes};
      QTest::mouseClick(list->backButton(), Qt::LeftButton);
      QVERIFY(!list->isVisible());
    });
    QTest::mouseClick(menu.stepButton(5), Qt::LeftButton);
    QVERIFY(edited);
    const ZoneRecord& east = state.project.zones[2];
    QCOMPARE(east.fields[kInternalMass], std::string("3"));
    QCOMPARE(east.fields[kCoolingType], std::string(" 1"));
    QCOMPARE(east.fields[kFirstCost], std::string("2700"));
    QVERIFY(east.opened);
    QVERIFY(state.project.flags.stepDone[5]);
    std::filesystem::current_path(cwd);
  }
};

QTEST_MAIN(ZoneScreensTest)
#include "zone_screens_test.moc"
