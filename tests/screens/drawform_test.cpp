// The sketch form's commands beyond drawing: every command can be found in a
// menu with its keys, print and PDF carry the drawing, the clipboard holds the
// canvas picture, Load Dwg replaces the sketch or leaves it alone, and the
// canvas is shown at a scale that keeps the grid even and the mouse exact.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPrinter>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <set>

#include "common/file_error.h"
#include "common/file_io.h"
#include "screens/controlpanel.h"
#include "screens/drawform.h"
#include "screens/loadform.h"
#include "modal.h"
#include "support/fake_prompt.h"
#include "support/temp_install.h"

using namespace marloven;
using marloven::testing::whenShown;
using screens::DrawForm;

namespace {

const std::string kTemplate = std::string(SOURCE_DIR) + "/install/sketch/bld_mtx2.000";


// A sketch form open on the shipped empty sketch, shown at a given size.
struct Form {
  explicit Form(QSize size = {1000, 720}) {
    state.install = Installation(tree.dir());
    tree.write("sketch/bld_mtx2.000", readFile(kTemplate));
    tree.write("sketch/bld_mtx.all", readFile(kTemplate));
    state.project.units = UnitSystem::IP;
    state.project.fileName = "/home/me/office.inp";
    form = std::make_unique<DrawForm>(state, prompt);
    started = form->start();
    form->resize(size);
    form->QDialog::show();
    QCoreApplication::processEvents();
  }
  DrawForm& d() { return *form; }
  QImage shot() { return form->canvas()->grab().toImage().convertToFormat(QImage::Format_RGB32); }
  int cells(int zone) const {
    int n = 0;
    for (int r = 1; r <= kGridRows; ++r)
      for (int c = 1; c <= kGridCols; ++c) n += form->editor().matrix().cells[r][c] == zone;
    return n;
  }

  testing::TempInstall tree;
  AppState state;
  testing::FakePrompt prompt;
  std::unique_ptr<DrawForm> form;
  bool started = false;
};

// A filled box of the zone, dragged between two points of the drawing.
void box(DrawForm& d, int zone, double x1, double y1, double x2, double y2) {
  d.editor().selectZone(zone - 1);
  testing::dragOn(d.canvas(), x1, y1, x2, y2);
}

QRgb qtColour(Colour c) { return qRgb(redOf(c), greenOf(c), blueOf(c)); }

std::set<QRgb> coloursOf(const QImage& img) {
  std::set<QRgb> out;
  for (int y = 0; y < img.height(); ++y)
    for (int x = 0; x < img.width(); ++x) out.insert(img.pixel(x, y) | 0xFF000000u);
  return out;
}

}  // namespace

class DrawFormTest : public QObject {
  Q_OBJECT

 private slots:
  void everyCommandHasAMenuEntryShowingItsKeys() {
    Form f;
    QVERIFY(f.started);
    QStringList titles;
    for (QAction* m : f.d().menus()->actions()) titles << m->text();
    QCOMPARE(titles, QStringList({"&File", "&Draw Mode", "&Edit", "&View", "Drawing &Units", "&Color", "&Help"}));
    const struct {
      const char* menu;
      const char* item;
      QKeySequence keys;
    } entries[] = {
        {"Drawing_editor", "FreeLine", QKeySequence("Ctrl+L")}, {"Drawing_editor", "Circle", QKeySequence("Ctrl+O")},
        {"Drawing_editor", "Pen", QKeySequence("Ctrl+E")},      {"ColorMenu", "ColorItem", QKeySequence("Ctrl+K")},
        {"view", "LevelUp", QKeySequence("PgUp")},              {"view", "LevelDown", QKeySequence("PgDown")},
        {"EditDraw", "PasteItem", QKeySequence::Paste},         {"FileMenu", "PdfItem", QKeySequence()},
    };
    for (const auto& e : entries) {
      auto* menu = f.d().findChild<QMenu*>(e.menu);
      QVERIFY2(menu != nullptr, e.menu);
      QVERIFY2(menu->actions().contains(f.d().action(e.item)), e.item);
      QCOMPARE(f.d().action(e.item)->shortcut(), e.keys);
    }
    // Export PDF stands right behind Print.
    const QList<QAction*> file = f.d().findChild<QMenu*>("FileMenu")->actions();
    QCOMPARE(file.indexOf(f.d().action("PdfItem")), file.indexOf(f.d().action("PrintItem")) + 1);
  }

  void theKeysDoWhatTheEntriesSay() {
    Form f;
    QVERIFY(f.started);
    f.d().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&f.d()));
    f.d().canvas()->setFocus();
    QTest::keyClick(f.d().canvas(), Qt::Key_L, Qt::ControlModifier);
    QCOMPARE(f.d().editor().tool(), DrawTool::FreeLine);
    QTest::keyClick(f.d().canvas(), Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(f.d().editor().tool(), DrawTool::Circle);
    QTest::keyClick(f.d().canvas(), Qt::Key_E, Qt::ControlModifier);
    QCOMPARE(f.d().editor().tool(), DrawTool::Pen);
    f.prompt.answers = {Answer::Yes};
    QTest::keyClick(f.d().canvas(), Qt::Key_PageUp);
    QCOMPARE(f.d().statusBox("Level")->text(), QString("Level= 2"));
    QTest::keyClick(f.d().canvas(), Qt::Key_PageDown);
    QCOMPARE(f.d().statusBox("Level")->text(), QString("Level= 1"));
    whenShown<screens::ControlPanel>([](screens::ControlPanel* p) {
      p->bar(0)->setValue(10);
      p->bar(1)->setValue(20);
      p->bar(2)->setValue(30);
      p->accept();
    });
    QTest::keyClick(f.d().canvas(), Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(f.d().editor().foreground(), rgb(10, 20, 30));
    // Letters typed with Shift are letters, not commands.
    QTest::mouseClick(f.d().canvas(), Qt::LeftButton, Qt::NoModifier, f.d().canvas()->toWidget(100, 300).toPoint());
    const std::vector<Colour> before = f.d().editor().raster().pixels();
    QTest::keyClick(f.d().canvas(), Qt::Key_A, Qt::ShiftModifier);
    QVERIFY(f.d().editor().raster().pixels() != before);
    QCOMPARE(f.prompt.unscripted, 0);
  }

  void printedFormHoldsTheDrawingInItsZoneColours() {
    Form f;
    QVERIFY(f.started);
    box(f.d(), 2, 100, 100, 300, 300);
    box(f.d(), 3, 400, 100, 600, 200);
    QImage page(1100, 850, QImage::Format_RGB32);
    page.fill(Qt::white);
    f.d().printOn(page);
    const std::set<QRgb> colours = coloursOf(page);
    QVERIFY(colours.size() > 3);
    const auto zone = stockZoneColours();
    QVERIFY(colours.count(qtColour(zone[1])) == 1);
    QVERIFY(colours.count(qtColour(zone[2])) == 1);
    QVERIFY(colours.count(qtColour(kBlack)) == 1);
    // A real printer device (a PDF file) takes the same picture.
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    const std::string out = (f.tree.root() / "print.pdf").string();
    printer.setOutputFileName(QString::fromStdString(out));
    f.d().printOn(printer);
    QVERIFY(readFile(out).starts_with("%PDF-"));
  }

  void exportPdfWritesTheCanvasWholeOrNotAtAll() {
    Form f;
    QVERIFY(f.started);
    box(f.d(), 2, 100, 100, 300, 300);
    const std::string out = (f.tree.root() / "plan.pdf").string();
    whenShown<QFileDialog>([&](QFileDialog* d) {
      QCOMPARE(d->acceptMode(), QFileDialog::AcceptSave);
      QCOMPARE(d->defaultSuffix(), QString("pdf"));
      QCOMPARE(d->selectedFiles().value(0).section('/', -1), QString("office.pdf"));
      // Typed, as selectFile races the folder's listing.
      d->findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(out));
      static_cast<QDialog*>(d)->done(QDialog::Accepted);
    });
    f.d().action("PdfItem")->trigger();
    const std::string pdf = readFile(out);
    QVERIFY(pdf.starts_with("%PDF-"));
    QVERIFY(pdf.find("%%EOF") != std::string::npos);
    // The canvas picture itself is in it, enlarged pixel for pixel.
    const int width = f.d().canvasImage().width() * 3;
    QVERIFY(pdf.find("/Width " + std::to_string(width)) != std::string::npos);
    for (const std::string& name : f.tree.files()) QVERIFY2(name.find(".tmp") == std::string::npos, name.c_str());

    // Cancelling the dialog writes nothing; a folder that is not there gives
    // the error report and no file.
    const std::vector<std::string> files = f.tree.files();
    whenShown<QFileDialog>([](QFileDialog* d) { d->reject(); });
    f.d().action("PdfItem")->trigger();
    QCOMPARE(f.tree.files(), files);
    f.d().exportPdfTo((f.tree.root() / "nowhere" / "plan.pdf").string());
    QVERIFY(!f.prompt.log.empty());
    QVERIFY(f.prompt.log.back().title.starts_with("Marloven Error # "));
    QCOMPARE(f.tree.files(), files);
  }

  void clipboardHoldsTheCanvasPictureAndPastesItBack() {
    Form f;
    QVERIFY(f.started);
    box(f.d(), 2, 100, 100, 300, 300);
    f.d().action("ToItem")->trigger();
    const QImage copied = f.d().canvasImage();
    QCOMPARE(QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), copied);
    box(f.d(), 5, 0, 0, 800, 600);
    QVERIFY(f.d().canvasImage() != copied);
    f.d().action("PasteItem")->trigger();
    QCOMPARE(f.d().canvasImage(), copied);
  }

  void loadDwgReplacesTheSketchOrLeavesItAlone() {
    Form f;
    QVERIFY(f.started);
    box(f.d(), 2, 100, 100, 300, 300);
    const std::string whole = f.tree.read("sketch/bld_mtx.all");
    // Another building: zone 9 in the top left corner of level 1, two levels.
    std::string other = readFile(kTemplate);
    const std::size_t firstRow = other.find("\r\n0") + 2;
    other.replace(firstRow, 3, "999");
    f.tree.write("sketch/other.wri", other + other);
    f.tree.write("sketch/notes.wri", "Dear Sir,\r\nthe plans.\r\n");
    f.tree.write("sketch/gone.wri", other);

    auto pick = [&](const QString& name, const char* button, std::function<void()> before = {}) {
      whenShown<screens::LoadForm>([=](screens::LoadForm* l) {
        const QList<QListWidgetItem*> found = l->lists()->files()->findItems(name, Qt::MatchExactly);
        QVERIFY2(!found.isEmpty(), qPrintable(name));
        l->lists()->files()->setCurrentItem(found.front());
        if (before) before();
        l->findChild<QPushButton*>(button)->click();
      });
      f.d().action("LoadItem")->trigger();
    };

    pick("other.wri", "cancelbutton");
    QCOMPARE(f.tree.read("sketch/bld_mtx.all"), whole);
    QCOMPARE(f.cells(2), 400);
    QVERIFY(f.prompt.log.empty());

    pick("notes.wri", "okbutton");
    QCOMPARE(f.prompt.log.back().title, std::string("Editor"));
    QCOMPARE(f.prompt.log.back().text, errorMessage(err::kBadFileName));
    QCOMPARE(f.tree.read("sketch/bld_mtx.all"), whole);
    QCOMPARE(f.cells(2), 400);

    pick("gone.wri", "okbutton", [&] { std::filesystem::remove(f.tree.path("sketch/gone.wri")); });
    QCOMPARE(f.prompt.log.back().title, std::string("Editor"));
    QCOMPARE(f.prompt.log.back().text, errorMessage(err::kFileNotFound));
    QCOMPARE(f.cells(2), 400);

    pick("other.wri", "okbutton");
    QCOMPARE(f.tree.read("sketch/bld_mtx.all"), other + other);
    QCOMPARE(f.cells(2), 0);
    QCOMPARE(f.cells(9), 3);
    QCOMPARE(f.d().editor().matrix().levelCount, std::int16_t{2});
    QCOMPARE(f.prompt.log.size(), std::size_t{2});
  }

  void canvasScaleKeepsGridDotsEvenAndTheMouseExact() {
    for (const QSize size : {QSize(1000, 720), QSize(760, 560), QSize(1500, 1000), QSize(2000, 1500), QSize(600, 420)}) {
      Form f(size);
      QVERIFY(f.started);
      const QString at = QString("%1x%2").arg(size.width()).arg(size.height());
      const screens::CanvasFit fit = f.d().canvas()->fit();
      QVERIFY2((10 * fit.num) % fit.den == 0, qPrintable(at));
      const QImage shot = f.shot();
      const Raster& r = f.d().editor().raster();

      // Dots along a grid line: 81 of them, all the same distance apart.
      const int y = static_cast<int>(std::floor(f.d().canvas()->toWidget(0, 300).y() + 0.5));
      std::vector<int> starts;
      bool inDot = false;
      for (int x = static_cast<int>(f.d().canvas()->toWidget(0, 300).x()); x < shot.width(); ++x) {
        const bool dot = (shot.pixel(x, y) & 0xFFFFFF) == 0;
        if (dot && !inDot) starts.push_back(x);
        inDot = dot;
      }
      QVERIFY2(starts.size() == 81, qPrintable(at + QString(" %1 dots").arg(starts.size())));
      std::set<int> gaps;
      for (std::size_t i = 1; i < starts.size(); ++i) gaps.insert(starts[i] - starts[i - 1]);
      QVERIFY2(gaps.size() == 1, qPrintable(at));
      QCOMPARE(*gaps.begin(), 10 * fit.num / fit.den);

      // What is on screen under a point is what the editor reads there.
      const QPointF topLeft = f.d().canvas()->toWidget(0, 600), bottomRight = f.d().canvas()->toWidget(800, 0);
      for (int py = static_cast<int>(topLeft.y()); py < static_cast<int>(bottomRight.y()); py += 3)
        for (int px = static_cast<int>(topLeft.x()); px < static_cast<int>(bottomRight.x()); px += 7) {
          const QPointF u = f.d().canvas()->toUser(QPointF(px, py));
          if (u.x() < 0) continue;  // the strip's boxes lie over the raster
          QCOMPARE(shot.pixel(px, py) | 0xFF000000u, qtColour(r.pixel(u.x(), u.y())));
        }

      // A click on a cell's centre fills that cell and no other.
      f.d().action("MatrixButton")->trigger();
      const std::pair<int, int> cells[] = {{1, 1}, {60, 80}, {1, 80}, {60, 1}, {31, 47}};
      for (const auto& [row, col] : cells) {
        const QPoint p = f.d().canvas()->toWidget(10 * (col - 0.5), 10 * (row - 0.5)).toPoint();
        QTest::mouseClick(f.d().canvas(), Qt::LeftButton, Qt::NoModifier, p);
        QVERIFY2(f.d().editor().matrix().cells[row][col] == 1, qPrintable(at + QString(" cell %1,%2").arg(row).arg(col)));
      }
      QCOMPARE(f.cells(1), 5);
    }
  }

  void fitIsTheLargestEvenScaleThatShowsTheWholeRaster() {
    const QSize raster(901, 601);
    const screens::CanvasFit same = screens::fitCanvas({909, 609}, raster, 4);
    QCOMPARE(same.num, 1);
    QCOMPARE(same.den, 1);
    QCOMPARE(same.left, 4);
    const screens::CanvasFit twice = screens::fitCanvas({1900, 1300}, raster, 4);
    QCOMPARE(twice.num, 2);
    QCOMPARE(twice.den, 1);
    QCOMPARE(twice.left, (1900 - 1802) / 2);
    QCOMPARE(twice.top, (1300 - 1202) / 2);
    QCOMPARE(twice.rasterX(twice.left + 3), 1);
    QCOMPARE(twice.rasterX(twice.left - 1), -1);
    const screens::CanvasFit small = screens::fitCanvas({800, 600}, raster, 4);
    QCOMPARE(small.num, 4);
    QCOMPARE(small.den, 5);
    QCOMPARE(small.width, 721);
    for (int w = 300; w <= 2600; w += 23) {
      const screens::CanvasFit f = screens::fitCanvas({w, w * 2 / 3}, raster, 4);
      QVERIFY(f.rasterX(f.left) == 0 && f.rasterX(f.left + f.width - 1) == 900 && f.rasterX(f.left + f.width) > 900);
      if (w >= 909 && w * 2 / 3 >= 609) QVERIFY(f.left >= 4 && f.left + f.width <= w - 4);
    }
  }
};

QTEST_MAIN(DrawFormTest)

#include "drawform_test.moc"
