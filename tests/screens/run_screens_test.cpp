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
#include "screens/charts.h"
#include "screens/mainmenu_window.h"
#include "screens/runsim.h"
#include "screens/tabular.h"
#include <QPlainTextEdit>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include "screens/text_codec.h"
#include "screens/text_viewer.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

using namespace marloven;
using marloven::testing::whenShown;
using screens::RunOptionsDialog;
using screens::RunSimScreen;
using screens::ChartWindow;
using screens::TabularWindow;
using screens::toBytes;

namespace {

struct Fixture {
  Fixture() {
    tree.write("btype/tcool.dat", readFile(std::string(SOURCE_DIR) + "/install/btype/tcool.dat"));
    tree.write("sample/office.inp", readFile(std::string(SOURCE_DIR) + "/install/sample/office.inp"));
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
    whenShown<ChartWindow>([&](ChartWindow* w) {
      // A run ends on the breakdown of its energy; every button reaches its chart.
      reviewed = w->model().chart == Chart::SourceEnergy;
      QCOMPARE(w->objectName(), QString("source"));
      QVERIFY(!w->chartButton(Chart::SourceEnergy)->isEnabled());
      for (int c = 1; c <= kCharts; ++c) {
        const Chart chart = static_cast<Chart>(c);
        if (chart == Chart::SourceEnergy) continue;
        QTest::mouseClick(w->chartButton(chart), Qt::LeftButton);
        QCOMPARE(w->model().chart, chart);
        QVERIFY(!w->chartButton(chart)->isEnabled());
        QVERIFY(w->windowTitle().startsWith(QString::fromStdString(w->model().title) + " -- "));
      }
      QCOMPARE(w->objectName(), QString("monthly"));
      // The PNG export of every chart: at points the model fixes, the bar's
      // colour inside its rectangle, a trace's colour on its segment, white
      // outside the picture's drawing.
      const QString png = QString::fromStdString(f.tree.path("sample/chart.png").string());
      for (int c = 1; c <= kCharts; ++c) {
        QVERIFY(w->showChart(static_cast<Chart>(c)));
        QVERIFY(w->savePng(png));
        const QImage img(png);
        QCOMPARE(img.size(), QSize(1880, 1400));  // 0.2 pixel a twip
        auto at = [&](double x, double y) { return img.pixelColor(static_cast<int>(x * 0.2), static_cast<int>(y * 0.2)); };
        QCOMPARE(at(9300, 3000), QColor(Qt::white));
        const ChartModel& m = w->model();
        int checked = 0;
        for (const ChartBar& b : m.bars) {
          if (b.bottom - b.top < 60) continue;  // too thin to sample
          QCOMPARE(at((b.left + b.right) / 2, (b.top + b.bottom) / 2), QColor(b.fill.r, b.fill.g, b.fill.b));
          ++checked;
        }
        for (const ChartSegment& sg : m.segments) {
          const QColor px = at((sg.x1 + sg.x2) / 2, (sg.y1 + sg.y2) / 2);
          const QColor want(sg.colour.r, sg.colour.g, sg.colour.b);
          // Traces cross: the last one drawn at a point wins.
          if (std::abs(px.red() - want.red()) + std::abs(px.green() - want.green()) + std::abs(px.blue() - want.blue()) < 90)
            ++checked;
        }
        QVERIFY2(checked >= 3, qPrintable(QString::fromStdString(m.title)));
      }
      // The drawing and the page as vector files.
      const QString svg = QString::fromStdString(f.tree.path("sample/chart.svg").string());
      const QString pdf = QString::fromStdString(f.tree.path("sample/chart.pdf").string());
      QVERIFY(w->saveSvg(svg));
      QVERIFY(w->savePdf(pdf));
      const std::string svgText = readFile(toBytes(svg));
      QVERIFY(svgText.find("<svg") != std::string::npos);
      QVERIFY(svgText.find("Breakdown of Annual Energy") != std::string::npos);
      QCOMPARE(readFile(toBytes(pdf)).substr(0, 5), std::string("%PDF-"));
      // Unsaved results: Main Menu asks; Cancel stays, No leaves.
      f.prompt.answers = {Answer::Cancel, Answer::No, Answer::No};
      QTest::mouseClick(w->mainMenuButton(), Qt::LeftButton);
      QVERIFY(w->isVisible());
      QTest::mouseClick(w->mainMenuButton(), Qt::LeftButton);
      QVERIFY(!w->isVisible());
    });
    f.menu.action(Command::Run, 3)->trigger();
    QVERIFY(ran);
    QVERIFY(reviewed);
    QCOMPARE(f.prompt.log.size(), std::size_t{3});
    QCOMPARE(f.prompt.log[0].title, std::string("Save input"));
    QCOMPARE(f.prompt.log[1].title, std::string("Save Output"));
    QCOMPARE(f.prompt.log[1].text, std::string("The simulation results have not been saved.  Do you want to save them?"));
    QVERIFY(f.state.project.flags.outputViewable);
    QVERIFY(f.menu.menu(MenuId::View)->menuAction()->isEnabled());
    // The readers find their anchors in the joined report.
    ChartTables t;
    QVERIFY(readSiteEnergy(f.state.install.scratchDir(), t).ok());
    QVERIFY(readLoadBreakdown(f.state.install.scratchDir(), LoadColumn::PeakCooling, t).ok());
    QVERIFY(readMonthlyEnergy(f.state.install.scratchDir(), t).ok());
    QVERIFY(leadingNumber(t.site.endUse[kLighting]) > 0);
  }

  void tabularShowsEverySectionPrintsAndReadsOnly() {
    Fixture f;
    f.prompt.answers = {Answer::Yes};
    whenShown<RunSimScreen>([&](RunSimScreen* r) {
      QTest::mouseClick(r->executeButton(), Qt::LeftButton);
      QTRY_VERIFY_WITH_TIMEOUT(r->reviewButton()->isEnabled(), 20000);
      QTest::mouseClick(r->reviewButton(), Qt::LeftButton);
    });
    whenShown<ChartWindow>([&](ChartWindow* w) { QTest::mouseClick(w->tabularButton(), Qt::LeftButton); });
    bool checked = false;
    whenShown<TabularWindow>([&](TabularWindow* t) {
      f.prompt.answers = {Answer::No, Answer::No, Answer::No};  // a failed check still lets it close
      QVERIFY(t->windowTitle().startsWith("Monthly Summaries -- "));
      const std::array<std::pair<int, const char*>, 8> sections = {{{kTabProject, "Project Data"},
                                                                   {kTabZones, "Zone Data"},
                                                                   {kTabSummaries, "Monthly Summaries"},
                                                                   {kTabHvac, "Design Data for HVAC Zones"},
                                                                   {kTabPeaks, "Peak Demand Profiles"},
                                                                   {kTabCosts, "Cost Analysis"},
                                                                   {kTabWeather, "Weather Summary"},
                                                                   {kTabComfort, "Space Comfort Conditions"}}};
      for (const auto& [button, caption] : sections) {
        QTest::mouseClick(t->summary(button), Qt::LeftButton);
        QVERIFY2(t->windowTitle().startsWith(QString(caption) + " -- "), qPrintable(t->windowTitle()));
        QVERIFY(!t->summary(button)->isEnabled());
      }
      QVERIFY(!t->summary(kTabHourly)->isEnabled());  // no hourly files in this run
      // Five zones: two pages.
      QTest::mouseClick(t->summary(kTabZones), Qt::LeftButton);
      const QString first = t->text()->toPlainText();
      QVERIFY(t->nextButton()->isEnabled());
      QVERIFY(!t->previousButton()->isEnabled());
      QTest::mouseClick(t->nextButton(), Qt::LeftButton);
      QVERIFY(t->text()->toPlainText() != first);
      QVERIFY(t->previousButton()->isEnabled());
      QTest::mouseClick(t->previousButton(), Qt::LeftButton);
      QCOMPARE(t->text()->toPlainText(), first);
      // The text takes no typing.
      t->text()->setFocus();
      QTest::keyClicks(t->text(), "typed");
      QTest::keyClick(t->text(), Qt::Key_Delete);
      QCOMPARE(t->text()->toPlainText(), first);

      // The print path into a PDF: the section's first line on page 1.
      QTest::mouseClick(t->summary(kTabProject), Qt::LeftButton);
      const QString pdf = QString::fromStdString(f.tree.path("sample/project.pdf").string());
      QPrinter printer(QPrinter::HighResolution);
      printer.setOutputFormat(QPrinter::PdfFormat);
      printer.setOutputFileName(pdf);
      printer.setPageOrientation(QPageLayout::Landscape);
      const int pages = screens::paintReportPages(printer, t->text()->toPlainText());
      QVERIFY(pages >= 1);
      QProcess info;
      info.start("pdfinfo", {pdf});
      QVERIFY(info.waitForFinished(10000));
      QVERIFY(QString::fromUtf8(info.readAllStandardOutput()).contains(QRegularExpression(QString("Pages:\\s+%1\\b").arg(pages))));
      QProcess text;
      text.start("pdftotext", {"-layout", "-f", "1", "-l", "1", pdf, "-"});
      QVERIFY(text.waitForFinished(10000));
      const QString page1 = QString::fromUtf8(text.readAllStandardOutput());
      const QString firstLine = t->text()->toPlainText().section('\n', 0, 0).trimmed();
      QVERIFY2(!firstLine.isEmpty() && page1.contains(firstLine.left(40)), qPrintable(firstLine));
      const QString exported = QString::fromStdString(f.tree.path("sample/export.pdf").string());
      QVERIFY(t->exportPdf(exported));
      checked = true;
      QTest::mouseClick(t->summary(kTabMainMenu), Qt::LeftButton);
      QVERIFY(!t->isVisible());
    });
    f.menu.action(Command::Run, 3)->trigger();
    QVERIFY(checked);
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
