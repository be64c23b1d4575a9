// The zone list and the zone description through their widgets; the rules
// are tested in tests/input.
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>
#include <filesystem>

#include "common/file_io.h"
#include "modal.h"
#include "screens/mainmenu_window.h"
#include "screens/profiles.h"
#include "screens/zones.h"
#include "common/text_lines.h"
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

  void profileScreensChooseAndEditAZonesSchedules() {
    testing::TempInstall tree;
    for (const char* f : {"btype/tcool.dat", "btype/theat.dat", "profiles/bprof1.dat", "profiles/bprof2.dat",
                          "profiles/bprof3.dat", "profiles/bprof4.dat", "profiles/bprof5.dat"})
      tree.write(f, readFile(std::string(SOURCE_DIR) + "/install/" + f));
    AppState state{Installation(tree.dir())};
    testing::FakePrompt prompt;
    Project& p = state.project;
    p.units = UnitSystem::IP;
    p.zoneCount = 1;
    p.currentZone = 1;
    p.zones[1].fields[kZoneId] = "11";
    p.zones[1].fields[kLightProfile] = " 24";
    p.zones[1].fields[kSummerOccupied] = "1";
    state.buildingTypeNumber = 24;
    for (int k = 1; k <= 4; ++k) {
      const auto lines = splitLines(readFile(std::string(SOURCE_DIR) + "/install/profiles/bprof" + std::to_string(k) + ".dat"));
      for (int i = 1; i <= kBuildingTypes; ++i) state.tables.profileDefaults[k][i] = lines[i];
    }
    for (int i = 1; i <= kBuildingTypes; ++i) state.tables.buildingTypeNames[i] = "Type " + std::to_string(i);
    ZoneFormWindow zone(state, prompt);
    zone.show();
    bool profiles = false, temperatures = false;
    whenShown<screens::ProfileWindow>([&](screens::ProfileWindow* w) {
      QVERIFY(w->windowTitle().startsWith("Lighting Profiles (percentage) -- "));
      w->scrollBar()->setValue(0);
      QTest::mouseClick(w->label(3), Qt::LeftButton);  // profile 3 into the project, chosen
      QLineEdit* row = w->text(3);
      row->setFocus();
      row->end(false);
      QTest::keyClicks(row, "x");
      QCOMPARE(prompt.log.back().text, std::string("You should use numerical value."));
      QTest::mouseClick(w->okButton(), Qt::LeftButton);
      QVERIFY(!w->isVisible());
      profiles = true;
    });
    QTest::mouseClick(zone.box(kLightProfile), Qt::LeftButton);
    QVERIFY(profiles);
    QCOMPARE(zone.box(kLightProfile)->text(), QString(" 3"));
    QCOMPARE(state.project.profiles.kinds[4][3].id, std::string(" 3"));

    whenShown<screens::TemperatureWindow>([&](screens::TemperatureWindow* w) {
      QVERIFY(w->windowTitle().startsWith("Temperature Profiles (degree F) -- "));
      QTest::mouseClick(w->label(5), Qt::LeftButton);
      QTest::mouseClick(w->okButton(), Qt::LeftButton);
      temperatures = true;
    });
    QTest::mouseClick(zone.box(kSummerOccupied), Qt::LeftButton);
    QVERIFY(temperatures);
    QCOMPARE(zone.box(kSummerOccupied)->text(), QString("5"));
    QCOMPARE(state.project.zones[1].fields[kSummerOccupied], std::string("5"));
  }
};

QTEST_MAIN(ZoneScreensTest)
#include "zone_screens_test.moc"
