// The widgets are wired to the shell's logic: a few cases per screen, the rules
// themselves are tested in tests/shell.
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTimer>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>
#include <filesystem>
#include <memory>

#include "common/file_io.h"
#include "screens/desktop.h"
#include "screens/project_file_dialog.h"
#include "screens/text_viewer.h"
#include "screens/text_codec.h"
#include "modal.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

using namespace marloven;
using marloven::testing::whenShown;
using screens::Desktop;

namespace {

// One fresh installation, state and set of windows per test. The main screen
// moves the process into the installation, so the directory is put back.
struct Fixture {
  Fixture() { state->install = Installation(tree.dir()); }
  ~Fixture() { std::filesystem::current_path(cwd); }

  Desktop& started() {
    desktop = std::make_unique<Desktop>(*state, prompt);
    desktop->start();
    return *desktop;
  }

  std::filesystem::path cwd = std::filesystem::current_path();
  testing::TempInstall tree;
  std::unique_ptr<AppState> state = std::make_unique<AppState>();
  testing::FakePrompt prompt;
  std::unique_ptr<Desktop> desktop;
};


}  // namespace

class ScreensTest : public QObject {
  Q_OBJECT

 private slots:
  void openingScreenSelectsTheStartUpUnitsAndAsksOnRelease() {
    Fixture f;
    f.state->project.units = UnitSystem::IP;
    Desktop& d = f.started();
    QCOMPARE(d.mainForm().windowTitle(), QString("MARLOVEN EC (Energy Compliance) Release 6.5"));
    QVERIFY(d.mainForm().unitButton(1)->isChecked());
    f.prompt.answers = {Answer::Yes};
    QTest::mouseClick(d.mainForm().unitButton(2), Qt::LeftButton);
    QCOMPARE(f.state->project.units, UnitSystem::SI);
    QVERIFY(d.mainForm().unitButton(2)->isChecked());
    QVERIFY(!d.mainForm().unitButton(1)->isChecked());
    QCoreApplication::processEvents();
    QCOMPARE(f.prompt.log.size(), std::size_t{1});
    QCOMPARE(f.prompt.log[0].text, std::string("Set SI Units as the default?"));
    QCOMPARE(f.tree.read("temp/ecalc$.unt"), std::string("2\r\n"));
  }

  void arrowKeysMoveBetweenOptionsWithoutAsking() {
    Fixture f;
    Desktop& d = f.started();
    QRadioButton* ip = d.mainForm().unitButton(1);
    QRadioButton* si = d.mainForm().unitButton(2);
    // Keys reach the focus widget of the active window only.
    QApplication::setActiveWindow(&d.mainForm());
    si->setFocus();
    QCOMPARE(QApplication::focusWidget(), si);
    QTest::keyClick(si, Qt::Key_Up);
    QVERIFY(ip->isChecked());
    QCOMPARE(f.state->project.units, UnitSystem::IP);
    QTest::keyClick(ip, Qt::Key_Down);
    QVERIFY(si->isChecked());
    QCOMPARE(f.state->project.units, UnitSystem::SI);
    QTest::keyClick(si, Qt::Key_Left);
    QVERIFY(ip->isChecked());
    QCOMPARE(f.state->project.units, UnitSystem::IP);
    QTest::keyClick(ip, Qt::Key_Right);
    QVERIFY(si->isChecked());
    QCoreApplication::processEvents();
    QVERIFY(f.prompt.log.empty());
  }

  void enterKeyContinuesToTheMainScreenCaptioned() {
    Fixture f;
    Desktop& d = f.started();
    d.mainForm().unitButton(1)->setFocus();
    QTest::keyClick(d.mainForm().unitButton(1), Qt::Key_Return);
    QVERIFY(d.mainMenu().isVisible());
    QVERIFY(!d.mainForm().isVisible());
    QCOMPARE(d.mainMenu().windowTitle(), QString("-- New_Project.inp"));
    QVERIFY(f.prompt.log.empty());
  }

  void continueButtonShowsTheMainScreenAsAtStart() {
    Fixture f;
    Desktop& d = f.started();
    QTest::mouseClick(d.mainForm().continueButton(), Qt::LeftButton);
    auto& m = d.mainMenu();
    QVERIFY(m.isVisible());
    for (int step = 1; step <= 6; ++step) {
      QCOMPARE(m.stepButton(step)->isEnabled(), step <= 4);
      // Each step has its own artwork, with a disabled form of its own.
      const QIcon icon = m.stepButton(step)->icon();
      QVERIFY(!icon.pixmap(32, QIcon::Normal).isNull());
      QVERIFY(icon.pixmap(32, QIcon::Disabled).toImage() != icon.pixmap(32, QIcon::Normal).toImage());
      if (step > 1) QVERIFY(icon.pixmap(32).toImage() != m.stepButton(step - 1)->icon().pixmap(32).toImage());
    }
    QCOMPARE(m.stepButton(5)->text(), QString("5. Zone Description Parameters"));
    QVERIFY(!m.menu(MenuId::Analysis)->menuAction()->isEnabled());
    QVERIFY(m.menu(MenuId::File)->menuAction()->isEnabled());
    QVERIFY(m.action(Command::Exit)->isEnabled());
    QVERIFY(m.action(Command::NewProject)->isEnabled());
    QVERIFY(!m.action(Command::Database, 1)->isEnabled());  // no screen behind it yet
    QCOMPARE(m.action(Command::Run, 3)->text(), QString("Run with   A/C "));
    // A literal ampersand survives as text instead of becoming an access key.
    QCOMPARE(m.action(Command::Graph, 5)->text(), QString("Monthly Heating && Cooling"));
  }

  void closeBoxRefusedOnlyWhileAStepIsDone() {
    Fixture f;
    Desktop& d = f.started();
    f.state->project.flags.stepDone[2] = true;
    QVERIFY(!d.mainForm().close());
    QVERIFY(d.mainForm().isVisible());
    QVERIFY(d.mainMenu().isVisible());
    QCOMPARE(f.prompt.log.size(), std::size_t{1});
    QCOMPARE(f.prompt.log[0].title, std::string("Exit Warning"));
    f.state->project.flags.stepDone[2] = false;
    QVERIFY(d.mainForm().close());
    QCOMPARE(f.prompt.log.size(), std::size_t{1});
  }

  void exitCleansZoneScratch() {
    Fixture f;
    Desktop& d = f.started();
    d.mainForm().continueButton()->click();
    f.tree.write("temp/temp1.zon", "z");
    f.state->project.flags.fromFile = true;
    f.prompt.answers = {Answer::Cancel, Answer::No};  // stay; then leave without saving
    d.mainMenu().action(Command::Exit)->trigger();
    QVERIFY(d.mainMenu().isVisible());
    d.mainMenu().action(Command::Exit)->trigger();
    QCOMPARE(f.prompt.log[0].title, std::string("Exit"));
    QVERIFY(!f.tree.exists("temp/temp1.zon"));
    QVERIFY(!d.mainMenu().isVisible());
  }

  void retrieveAndSaveGoThroughTheirDialogs() {
    Fixture f;
    Desktop& d = f.started();
    d.mainForm().continueButton()->click();
    f.tree.write("school.inp", marloven::readFile(std::string(FIXTURE_DIR) + "/full_project.inp"));
    std::filesystem::current_path(f.tree.root());
    // The retrieve dialog lists the projects; a double click is OK.
    whenShown<screens::ProjectFileDialog>([&](screens::ProjectFileDialog* dlg) {
      QCOMPARE(dlg->objectName(), QString("oldfileform"));
      QCOMPARE(dlg->files()->count(), 1);
      QCOMPARE(dlg->files()->item(0)->text(), QString("school.inp"));
      emit dlg->files()->itemDoubleClicked(dlg->files()->item(0));
    });
    d.mainMenu().action(Command::RetrieveProject)->trigger();
    QVERIFY(f.state->project.flags.fromFile);
    QCOMPARE(d.mainMenu().windowTitle(), QString::fromStdString("-- " + f.tree.dir() + "/school.inp"));
    QVERIFY(d.mainMenu().menu(MenuId::Analysis)->menuAction()->isEnabled());
    // Saved in the other unit system under a new name: the model follows the file.
    f.state->project.flags.stepDone[4] = true;
    whenShown<screens::ProjectFileDialog>([&](screens::ProjectFileDialog* dlg) {
      QCOMPARE(dlg->objectName(), QString("saveinputform"));
      QCOMPARE(dlg->nameBox()->text(), QString("school.inp"));
      QCOMPARE(dlg->units(), UnitSystem::IP);
      dlg->findChild<QRadioButton*>()->parentWidget()->findChildren<QRadioButton*>()[1]->click();
      dlg->nameBox()->setText("copy");
      QTest::keyClick(dlg->nameBox(), Qt::Key_Return);
    });
    d.mainMenu().action(Command::SaveProject)->trigger();
    QVERIFY(f.tree.exists("copy.inp"));
    QCOMPARE(f.state->project.units, UnitSystem::SI);
    QCOMPARE(d.mainMenu().windowTitle(), QString::fromStdString("-- " + f.tree.dir() + "/copy.inp"));
  }

  void helpTextsShowReadOnly() {
    Fixture f;
    f.tree.write("helpinfo/mainhlp2.txt", "INTRODUCTION\r\n  two\r\n");
    Desktop& d = f.started();
    d.mainForm().continueButton()->click();
    whenShown<screens::TextViewer>([&](screens::TextViewer* v) {
      QCOMPARE(v->objectName(), QString("Learning"));
      QCOMPARE(v->windowTitle(), QString("INTRODUCTION TO MARLOVEN EC"));
      QCOMPARE(v->text()->toPlainText(), QString("INTRODUCTION\n  two\n"));
      QVERIFY(v->text()->isReadOnly());
      v->accept();
    });
    d.mainMenu().action(Command::HelpIntroduction)->trigger();
    // A missing help file reaches the error report.
    d.mainMenu().action(Command::HelpLearning)->trigger();
    QCOMPARE(f.prompt.log.back().title, std::string("Marloven Error #  53"));
  }

  void everyByteSurvivesTheTextCodec() {
    std::string all;
    for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
    const QString text = screens::fromBytes(all);
    QCOMPARE(text.size(), qsizetype{256});
    QCOMPARE(text.at(0x80), QChar(0x20AC));
    QCOMPARE(text.at(0xE9), QChar(0xE9));
    QVERIFY(screens::toBytes(text) == all);
    QCOMPARE(screens::toBytes(QString::fromUtf8("\xE2\x88\x9E")), std::string("?"));
  }
};

QTEST_MAIN(ScreensTest)
#include "screens_test.moc"
