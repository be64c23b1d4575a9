// The weather screen and the recorded weather file screens are wired to their
// logic; the rules themselves are tested in tests/weather.
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>
#include <filesystem>

#include "common/file_io.h"
#include "modal.h"
#include "screens/folder_files.h"
#include "screens/mainmenu_window.h"
#include "screens/projectinfo.h"
#include "screens/selectweth.h"
#include "screens/weatherform.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

using namespace marloven;
using marloven::testing::whenShown;
using screens::ProjectInfoScreen;
using screens::SelectWeatherScreen;
using screens::WeatherPreview;
using screens::WeatherScreen;

namespace {

struct Fixture {
  explicit Fixture(UnitSystem units = UnitSystem::IP) {
    tree.write("weather/weth.asc", readFile(std::string(SOURCE_DIR) + "/install/weather/weth.asc"));
    state.project.units = units;
    menu.show();
  }
  ~Fixture() { std::filesystem::current_path(cwd); }

  std::filesystem::path cwd = std::filesystem::current_path();
  testing::TempInstall tree;
  AppState state{Installation(tree.dir())};
  testing::FakePrompt prompt;
  screens::MainMenuWindow menu{state, prompt};
};

void choose(QComboBox* c, const QString& text) {
  const int i = c->findText(text);
  QVERIFY2(i >= 0, qPrintable(text));
  c->setCurrentIndex(i);
  emit c->activated(i);
}

}  // namespace

class WeatherScreensTest : public QObject {
  Q_OBJECT

 private slots:
  void stepTwoPicksAPlaceAndOkGivesItToTheProject() {
    Fixture f(UnitSystem::SI);
    whenShown<WeatherScreen>([&](WeatherScreen* w) {
      QCOMPARE(w->windowTitle(), QString("Weather Data -- New_Project"));
      QCOMPARE(w->unitLabel(kSolar)->text(), QString("kJ/sq.m."));
      choose(w->groupList(), "Colorado");
      QCOMPARE(w->box({WeatherBox::City})->text(), QString("DENVER INTL AP"));
      choose(w->cityList(), "Golden");
      QCOMPARE(w->box({WeatherBox::Station})->text(), QString("724666"));
      QLineEdit* elev = w->box({WeatherBox::Elevation});
      const QString before = elev->text();
      elev->setFocus();
      QTest::keyClicks(elev, "x");
      QCOMPARE(elev->text(), before);
      QCOMPARE(f.prompt.log.back().text, std::string("Please use numerical values."));
      QTest::mouseClick(w->okButton(), Qt::LeftButton);
      QVERIFY(!w->isVisible());
    });
    QTest::mouseClick(f.menu.stepButton(2), Qt::LeftButton);
    QVERIFY(f.state.project.flags.stepDone[2]);
    QCOMPARE(f.state.project.data[kLocation], std::string("Golden, Colorado "));
  }

  void aKnownExtremeRedrawsTheDeviationsAndThePlot() {
    Fixture f;
    WeatherScreen w(f.state, f.prompt);
    w.show();
    choose(w.groupList(), "Colorado");
    QLineEdit* ext = w.box({WeatherBox::AnnualExtreme, 0, 0});
    ext->setFocus();
    ext->selectAll();
    QTest::keyClicks(ext, "100");
    QCOMPARE(w.box({WeatherBox::Month, kDryBulbMaximumStd, 0})->text(), QString(" 24.9"));  // (100 - 47.4) / 2.11
    const QImage before = w.plot()->grab().toImage();
    QLineEdit* jan = w.box({WeatherBox::Month, kDryBulbAverage, 0});
    jan->setFocus();
    jan->selectAll();
    QTest::keyClicks(jan, "-20");
    QVERIFY(w.plot()->grab().toImage() != before);
    QVERIFY(w.logic().edited());
  }

  void getWeatherFillsTheProjectInformationLocation() {
    Fixture f;
    whenShown<ProjectInfoScreen>([&](ProjectInfoScreen* p) {
      whenShown<WeatherScreen>([&](WeatherScreen* w) {
        choose(w->groupList(), "Colorado");
        w->okButton()->click();
      });
      p->weatherButton()->click();
      QCOMPARE(p->box(kLocation)->text(), QString("DENVER INTL AP, Colorado !"));
      p->reject();
    });
    QTest::mouseClick(f.menu.stepButton(1), Qt::LeftButton);
    QVERIFY(f.state.project.flags.stepDone[2]);
    QVERIFY(!f.state.project.flags.weatherRereadPending);
  }

  void importingARecordedYearShowsTheNewRecord() {
    const std::string epw = std::string(SOURCE_DIR) + "/../shared/weather/recorded/USA_AK_Fairbanks.Intl.AP.702610_TMY3.epw";
    if (!fileExists(epw)) QSKIP("recorded weather not found");
    Fixture f;
    WeatherScreen w(f.state, f.prompt);
    w.show();
    f.prompt.inputs = {std::string("Alaska"), std::string("Fairbanks Intl")};
    w.importFile(QString::fromStdString(epw));
    QCOMPARE(w.box({WeatherBox::State})->text(), QString("Alaska"));
    QCOMPARE(w.box({WeatherBox::City})->text(), QString("Fairbanks Intl"));
    QCOMPARE(w.cityList()->currentText(), QString("Fairbanks Intl"));
    QCOMPARE(w.box({WeatherBox::Station})->text(), QString("702610"));
    QVERIFY(f.tree.read("weather/weth.asc").find("Fairbanks Intl, Alaska") != std::string::npos);
    // A file that is no recorded year says why and adds nothing.
    f.tree.write("sample/notes.epw", "just some notes\r\n");
    const std::string before = f.tree.read("weather/weth.asc");
    w.importFile(QString::fromStdString(f.tree.path("sample/notes.epw").string()));
    QCOMPARE(f.prompt.log.back().title, std::string("Import Recorded Weather"));
    QCOMPARE(f.tree.read("weather/weth.asc"), before);
  }

  void aRecordedFileIsPickedPreviewedAndCopiedForTheRun() {
    Fixture f;
    std::string file;
    for (int i = 1; i <= 30; ++i) file += "line " + std::to_string(i) + "\r\n";
    f.tree.write("sample/denver.tm2", file);
    SelectWeatherScreen s(f.state, f.prompt, QString::fromStdString(f.tree.path("sample").string()));
    s.show();
    QListWidget* files = s.lists()->files();
    const auto found = files->findItems("denver.tm2", Qt::MatchExactly);
    QCOMPARE(found.size(), 1);
    files->setCurrentItem(found[0]);
    QCOMPARE(s.nameBox()->text(), QString("denver.tm2"));
    QTest::mouseClick(s.okButton(), Qt::LeftButton);  // no format yet
    QCOMPARE(f.prompt.log.back().title, std::string("Weather File Format"));
    s.formatButton(0)->click();
    bool previewed = false;
    whenShown<WeatherPreview>([&](WeatherPreview* p) {
      previewed = true;
      QVERIFY(p->windowTitle().endsWith("sample/denver.tm2"));
      QVERIFY(p->text()->toPlainText().contains("THIS IS ONLY PART OF YOUR WEATHER FILE."));
      QVERIFY(p->text()->toPlainText().contains("line 20"));
      QVERIFY(!p->text()->toPlainText().contains("line 21"));
      p->accept();
    });
    QTest::mouseClick(s.okButton(), Qt::LeftButton);
    QVERIFY(previewed);
    QVERIFY(!s.isVisible());
    QCOMPARE(f.tree.read("temp/ecalc$.tmy"), file);
    QCOMPARE(f.state.recorded.format, 1);
  }
};

QTEST_MAIN(WeatherScreensTest)
#include "weather_screens_test.moc"
