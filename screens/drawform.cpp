#include "screens/drawform.h"

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <cmath>
#include <cstring>
#include <numeric>

#include "common/file_error.h"
#include "common/file_io.h"
#include "screens/controlpanel.h"
#include "screens/loadform.h"
#include "screens/saveform.h"
#include "screens/text_codec.h"
#include "screens/text_viewer.h"
#include "common/error_report.h"
#include "sketch/sketch_copies.h"

namespace marloven::screens {

QImage rasterImage(const Raster& r) {
  QImage img(r.width(), r.height(), QImage::Format_RGB32);
  const std::vector<Colour>& px = r.pixels();
  for (int y = 0; y < r.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(img.scanLine(y));
    const Colour* src = px.data() + static_cast<std::size_t>(y) * r.width();
    for (int x = 0; x < r.width(); ++x) line[x] = qRgb(redOf(src[x]), greenOf(src[x]), blueOf(src[x]));
  }
  return img;
}

// ---- the canvas ----

SketchCanvas::SketchCanvas(SketchEditor& editor, QWidget* parent) : QWidget(parent), editor_(editor) {
  setObjectName("canvas");
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  for (int i = 0; i < kZonesPerLevel; ++i) {
    auto* box = new QLineEdit(this);
    box->setObjectName(QString("znname%1").arg(i));
    box->setFrame(false);
    box->setMaxLength(25);
    box->setTextMargins(1, 0, 0, 0);
    connect(box, &QLineEdit::textEdited, this, [this, i](const QString& t) { editor_.renameZone(i, toBytes(t)); });
    names_[i] = box;
  }
}

namespace {

constexpr int kCanvasMargin = 4;  // logical pixels around the picture

int floorDiv(long long a, long long b) { return static_cast<int>(a >= 0 ? a / b : -((-a + b - 1) / b)); }

}  // namespace

int CanvasFit::rasterX(int deviceX) const { return floorDiv(static_cast<long long>(deviceX - left) * den, num); }
int CanvasFit::rasterY(int deviceY) const { return floorDiv(static_cast<long long>(deviceY - top) * den, num); }

CanvasFit fitCanvas(QSize device, QSize raster, int margin) {
  CanvasFit f;
  const int w = std::max(1, device.width() - 2 * margin), h = std::max(1, device.height() - 2 * margin);
  const int tenths = std::max(1, std::min(10 * w / raster.width(), 10 * h / raster.height()));
  const int common = std::gcd(tenths, 10);
  f.num = tenths / common;
  f.den = 10 / common;
  // Device pixels d with rasterX(d) inside the raster.
  f.width = static_cast<int>((static_cast<long long>(raster.width()) * f.num + f.den - 1) / f.den);
  f.height = static_cast<int>((static_cast<long long>(raster.height()) * f.num + f.den - 1) / f.den);
  f.left = (device.width() - f.width) / 2;
  f.top = (device.height() - f.height) / 2;
  return f;
}

QSize SketchCanvas::sizeHint() const {
  return {editor_.raster().width() + 2 * kCanvasMargin, editor_.raster().height() + 2 * kCanvasMargin};
}

CanvasFit SketchCanvas::fit() const {
  const double dpr = devicePixelRatioF();
  const QSize device(static_cast<int>(width() * dpr), static_cast<int>(height() * dpr));
  const Raster& r = editor_.raster();
  return fitCanvas(device, {r.width(), r.height()}, static_cast<int>(kCanvasMargin * dpr + 0.5));
}

QPointF SketchCanvas::toWidget(double x, double y) const {
  const Raster& r = editor_.raster();
  const CanvasFit f = fit();
  const double dpr = devicePixelRatioF();
  const double k = r.pixelsPerUnit() * f.num / f.den;  // device pixels per unit
  return {(f.left + (x - kScaleLeft) * k) / dpr, (f.top + (kScaleTop - y) * k) / dpr};
}

QPointF SketchCanvas::toUser(const QPointF& p) const {
  const Raster& r = editor_.raster();
  const CanvasFit f = fit();
  const double dpr = devicePixelRatioF();
  // Whole device pixels go through the same integer rule as the painting, so
  // what is under the pointer is what the editor reads there.
  const double dx = p.x() * dpr, dy = p.y() * dpr;
  const double fx = std::floor(dx), fy = std::floor(dy);
  const double rx = f.rasterX(static_cast<int>(fx)) + (dx - fx) * f.den / f.num;
  const double ry = f.rasterY(static_cast<int>(fy)) + (dy - fy) * f.den / f.num;
  return {r.toUserX(rx), r.toUserY(ry)};
}

void SketchCanvas::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), palette().window());
  const Raster& r = editor_.raster();
  const CanvasFit f = fit();
  // Each device pixel takes the raster pixel the mouse mapping gives it.
  QImage img(f.width, f.height, QImage::Format_RGB32);
  std::vector<int> column(static_cast<std::size_t>(f.width));
  for (int x = 0; x < f.width; ++x) column[x] = std::min(r.width() - 1, f.rasterX(f.left + x));
  const std::vector<Colour>& px = r.pixels();
  int lastRow = -1;
  for (int y = 0; y < f.height; ++y) {
    const int row = std::min(r.height() - 1, f.rasterY(f.top + y));
    auto* line = reinterpret_cast<QRgb*>(img.scanLine(y));
    if (row == lastRow) {
      std::memcpy(line, img.constScanLine(y - 1), static_cast<std::size_t>(f.width) * sizeof(QRgb));
      continue;
    }
    const Colour* src = px.data() + static_cast<std::size_t>(row) * r.width();
    for (int x = 0; x < f.width; ++x) {
      const Colour c = src[column[x]];
      line[x] = qRgb(redOf(c), greenOf(c), blueOf(c));
    }
    lastRow = row;
  }
  const double dpr = devicePixelRatioF();
  img.setDevicePixelRatio(dpr);
  p.drawImage(QPointF(f.left / dpr, f.top / dpr), img);
}

void SketchCanvas::placeNames() {
  const QFontMetrics fm(font());
  for (int i = 0; i < kZonesPerLevel; ++i) {
    const QPointF tl = toWidget(kNameBoxLeft, nameBoxTop(i));
    const QPointF br = toWidget(kNameBoxLeft + kNameBoxWidth, nameBoxTop(i) - kNameBoxHeight);
    QRect r = QRectF(tl, br).toRect();
    names_[i]->setGeometry(r.adjusted(0, 0, -1, -1));
    QFont f = names_[i]->font();
    f.setPixelSize(std::max(7, r.height() - 5));
    names_[i]->setFont(f);
  }
}

void SketchCanvas::resizeEvent(QResizeEvent* event) {
  placeNames();
  QWidget::resizeEvent(event);
}

void SketchCanvas::mousePressEvent(QMouseEvent* event) {
  setFocus();
  if (event->button() != Qt::LeftButton) return;
  const QPointF u = toUser(event->position());
  emit changed(editor_.mouseDown(u.x(), u.y()));
}

void SketchCanvas::mouseMoveEvent(QMouseEvent* event) {
  const QPointF u = toUser(event->position());
  emit changed(editor_.mouseMove(u.x(), u.y(), (event->buttons() & Qt::LeftButton) != 0));
}

void SketchCanvas::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPointF u = toUser(event->position());
  emit changed(editor_.mouseUp(u.x(), u.y()));
}

void SketchCanvas::keyPressEvent(QKeyEvent* event) {
  const QByteArray text = toBytes(event->text()).c_str();
  // Shift makes capitals; only command keys are not letters.
  const bool command = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
  if (text.size() == 1 && static_cast<unsigned char>(text[0]) >= 32 && !command) {
    emit changed(editor_.typed(text[0]));
    return;
  }
  QWidget::keyPressEvent(event);
}

// ---- the form ----

namespace {

QLineEdit* statusLine(const char* name, QWidget* parent, int width) {
  auto* box = new QLineEdit(parent);
  box->setObjectName(name);
  box->setReadOnly(true);
  box->setFocusPolicy(Qt::NoFocus);
  box->setMinimumWidth(width);
  return box;
}

// An edit box that hands its keys to the editor's filter first.
class FieldBox : public QLineEdit {
 public:
  FieldBox(SketchEditor& editor, SketchField f, QWidget* parent) : QLineEdit(parent), editor_(editor), field_(f) {}
  std::function<void()> onClick;
  std::function<void()> onKey;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    char key = 0;
    switch (event->key()) {
      case Qt::Key_Backspace: key = '\b'; break;
      case Qt::Key_Return:
      case Qt::Key_Enter: key = '\r'; break;
      default: {
        const QString t = event->text();
        if (t.size() == 1 && t[0].unicode() >= 32 && t[0].unicode() < 127) key = static_cast<char>(t[0].unicode());
      }
    }
    if (key == 0) {  // moves and the like are not keys of the text
      QLineEdit::keyPressEvent(event);
      return;
    }
    if (!editor_.fieldKey(field_, key)) return;
    if (onKey) onKey();
    if (key != '\r') QLineEdit::keyPressEvent(event);
  }
  void mousePressEvent(QMouseEvent* event) override {
    QLineEdit::mousePressEvent(event);
    if (onClick) onClick();
  }

 private:
  SketchEditor& editor_;
  SketchField field_;
};

}  // namespace

DrawForm::DrawForm(AppState& state, Prompt& prompt, QWidget* parent)
    : QDialog(parent),
      state_(state),
      prompt_(prompt),
      editor_(std::make_unique<SketchEditor>(state.install.dir(), state.project, prompt)) {
  setObjectName("DrawForm");
  setWindowFlag(Qt::WindowMaximizeButtonHint, true);
  canvas_ = new SketchCanvas(*editor_, this);
  connect(canvas_, &SketchCanvas::changed, this, [this](unsigned r) { show(r); });
  // A click into a name box makes its zone current.
  for (int i = 0; i < kZonesPerLevel; ++i) canvas_->nameBox(i)->installEventFilter(this);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(4, 4, 4, 4);
  layout->setSpacing(4);
  buildMenus();
  layout->setMenuBar(menuBar_);
  layout->addWidget(buildControls());
  layout->addWidget(canvas_, 1);
  level_ = new QScrollBar(Qt::Horizontal, this);
  level_->setObjectName("HScroll1");
  level_->setRange(0, 1000);
  level_->setSingleStep(1);
  level_->setPageStep(100);
  layout->addWidget(level_);
  connect(level_, &QScrollBar::valueChanged, this, [this](int v) { run([&] { return editor_->scroll(v); }); });
  resize(960, 760);
}

DrawForm::~DrawForm() = default;

QWidget* DrawForm::buildControls() {
  auto* box = new QWidget(this);
  auto* grid = new QGridLayout(box);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(2);
  const std::array<const char*, kSketchFields> names = {"gridsize", "Orientation", "num_floors", "ceiling_ht"};
  for (int i = 0; i < kSketchFields; ++i) {
    const auto f = static_cast<SketchField>(i);
    auto* edit = new FieldBox(*editor_, f, box);
    edit->setObjectName(names[i]);
    edit->setMaximumWidth(70);
    edit->onClick = [this, f] { editor_->fieldClicked(f); };
    // The compass turns as the orientation is typed.
    edit->onKey = [this] { canvas_->update(); };
    connect(edit, &QLineEdit::textEdited, this,
            [this, f](const QString& t) { run([&] { return editor_->fieldChanged(f, toBytes(t)); }); });
    fields_[i] = edit;
    auto* label = new QLabel(fromBytes(sketchFieldLabel(f)), box);
    label->setBuddy(edit);
    grid->addWidget(label, 0, 2 * i);
    grid->addWidget(edit, 0, 2 * i + 1);
  }
  exit_ = new QPushButton(tr("Exit"), box);
  exit_->setObjectName("Exit");
  exit_->setAutoDefault(false);
  connect(exit_, &QPushButton::clicked, this, [this] { finishExit(); });
  grid->addWidget(exit_, 0, 8, 1, 2);
  const std::array<std::pair<const char*, int>, 6> status = {
      {{"zone_area", 120}, {"BldgArea", 120}, {"Stories", 80}, {"Level", 70}, {"Coordinates0", 110}, {"Coordinates1", 130}}};
  auto* row = new QHBoxLayout;
  for (const auto& [name, width] : status) row->addWidget(statusLine(name, box, width));
  grid->addLayout(row, 1, 0, 1, 10);
  return box;
}

void DrawForm::buildMenus() {
  menuBar_ = new QMenuBar(this);
  auto add = [this](QMenu* m, const char* name, const QString& text, auto fn, QKeySequence keys = {}) {
    QAction* a = m->addAction(text);
    a->setObjectName(name);
    a->setShortcut(keys);
    // Held by the form too, so the keys work while the menus are away.
    if (!keys.isEmpty()) addAction(a);
    connect(a, &QAction::triggered, this, fn);
    return a;
  };
  auto tool = [this](DrawTool t) { return [this, t] { run([&] { return editor_->chooseTool(t); }); }; };

  QMenu* file = menuBar_->addMenu(tr("&File"));
  file->setObjectName("FileMenu");
  add(file, "SaveItem", tr("&Save Dwg..."), [this] { saveDrawing(); });
  add(file, "LoadItem", tr("&Load Dwg..."), [this] { loadDrawing(); });
  add(file, "PrintItem", tr("&Print"), [this] { printForm(); });
  add(file, "PdfItem", tr("&Export PDF..."), [this] { exportPdf(); });
  add(file, "ToItem", tr("Copy To Clip&board"), [this] { QApplication::clipboard()->setImage(canvasImage()); });
  add(file, "finish", tr("&Cancel Changes, Return"), [this] { cancelChanges(); });

  QMenu* drawing = menuBar_->addMenu(tr("&Draw Mode"));
  drawing->setObjectName("Drawing_editor");
  add(drawing, "boxbutton", tr("&Rectangular Zones"), tool(DrawTool::FilledBox));
  add(drawing, "MatrixButton", tr("&Grid Fill/Erase"), tool(DrawTool::CellPaint));
  add(drawing, "Guidelines", tr("&Dashed Guidelines"), tool(DrawTool::GuideBox));
  drawing->addSeparator();
  add(drawing, "FreeLine", tr("&Free Line"), tool(DrawTool::FreeLine), QKeySequence(Qt::CTRL | Qt::Key_L));
  add(drawing, "Circle", tr("&Circle"), tool(DrawTool::Circle), QKeySequence(Qt::CTRL | Qt::Key_O));
  add(drawing, "Pen", tr("&Pen"), tool(DrawTool::Pen), QKeySequence(Qt::CTRL | Qt::Key_E));

  QMenu* edit = menuBar_->addMenu(tr("&Edit"));
  edit->setObjectName("EditDraw");
  add(edit, "Erase_area", tr("Erase &Window"), [this] { run([&] { return editor_->eraseWindow(); }); });
  add(edit, "erase_dwg", tr("Erase &All"), [this] { run([&] { return editor_->eraseAll(); }); });
  edit->addSeparator();
  add(edit, "PasteItem", tr("&Paste Picture"), [this] { pastePicture(); }, QKeySequence(QKeySequence::Paste));

  QMenu* view = menuBar_->addMenu(tr("&View"));
  view->setObjectName("view");
  add(view, "Refresh_grid", tr("&Refresh Grid"), [this] { run([&] { return editor_->refreshGrid(); }); });
  add(view, "Redraw", tr("&Cleanup"), [this] { run([&] { return editor_->cleanup(); }); });
  view->addSeparator();
  add(view, "LevelUp", tr("Level &Up"), [this] { run([&] { return editor_->levelUp(); }); },
      QKeySequence(Qt::Key_PageUp));
  add(view, "LevelDown", tr("Level &Down"), [this] { run([&] { return editor_->levelDown(); }); },
      QKeySequence(Qt::Key_PageDown));

  QMenu* units = menuBar_->addMenu(tr("Drawing &Units"));
  units->setObjectName("Units");
  for (int i = 1; i <= 2; ++i) {
    QAction* a = add(units, i == 1 ? "draw_unit1" : "draw_unit2", i == 1 ? tr("I-P Units") : tr("SI Units"),
                     [this] { run([&] { return editor_->drawingUnits(); }); });
    const bool current = (state_.project.units == UnitSystem::IP) == (i == 1);
    a->setCheckable(true);
    a->setChecked(current);
    a->setEnabled(current);
  }

  QMenu* colour = menuBar_->addMenu(tr("&Color"));
  colour->setObjectName("ColorMenu");
  add(colour, "ColorItem", tr("Drawing &Color..."), [this] { colourPanel(); }, QKeySequence(Qt::CTRL | Qt::Key_K));

  QMenu* help = menuBar_->addMenu(tr("&Help"));
  help->setObjectName("hlp");
  add(help, "tutorial", tr("&Tutorial"), [this] {
    showHelpFile(this, state_.install.dir(), "help10.txt",
                 fromBytes("BUILDING SKETCH -- " + state_.project.fileName), prompt_);
  });
}

void DrawForm::pastePicture() {
  const QImage img = QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32);
  if (img.isNull()) return;
  std::vector<Colour> px(static_cast<std::size_t>(img.width()) * img.height());
  for (int y = 0; y < img.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(img.constScanLine(y));
    for (int x = 0; x < img.width(); ++x)
      px[static_cast<std::size_t>(y) * img.width() + x] = rgb(qRed(line[x]), qGreen(line[x]), qBlue(line[x]));
  }
  run([&] { return editor_->pastePicture(px, img.width(), img.height()); });
}

QLineEdit* DrawForm::statusBox(const char* name) const { return findChild<QLineEdit*>(name); }

QAction* DrawForm::action(const char* name) const { return findChild<QAction*>(name); }

bool DrawForm::start() {
  try {
    editor_->open();
  } catch (const FileError& e) {
    reportError(prompt_, e);
    return false;
  }
  setWindowTitle(fromBytes(editor_->caption()));
  show(kRedrawAll);
  return true;
}

template <typename F>
void DrawForm::run(F&& f) {
  try {
    show(f());
  } catch (const FileError& e) {
    reportError(prompt_, e);
    show(kRedrawAll);
  }
}

void DrawForm::show(unsigned redraw) {
  if (redraw & kRedrawCanvas) canvas_->update();
  if (redraw & kRedrawStatus) {
    const SketchStatus& s = editor_->status();
    statusBox("zone_area")->setText(fromBytes(s.zoneArea));
    statusBox("BldgArea")->setText(fromBytes(s.floorArea));
    statusBox("Stories")->setText(fromBytes(s.stories));
    statusBox("Level")->setText(fromBytes(s.level));
    statusBox("Coordinates0")->setText(fromBytes(s.position));
    statusBox("Coordinates1")->setText(fromBytes(s.dimensions));
    canvas_->setCursor(editor_->pointer() == Pointer::Cross ? Qt::CrossCursor : Qt::ArrowCursor);
  }
  if (redraw & kRedrawFields) {
    for (int i = 0; i < kSketchFields; ++i) {
      const QString t = fromBytes(editor_->fieldText(static_cast<SketchField>(i)));
      if (fields_[i]->text() != t) fields_[i]->setText(t);
    }
    statusBox("Level")->setText(fromBytes(editor_->status().level));
    const QSignalBlocker block(level_);
    level_->setValue(editor_->scrollValue());
  }
  if (redraw & kRedrawNames)
    for (int i = 0; i < kZonesPerLevel; ++i) {
      const QString t = fromBytes(editor_->matrix().zoneNames[i + 1]);
      if (canvas_->nameBox(i)->text() != t) canvas_->nameBox(i)->setText(t);
    }
}

QImage DrawForm::canvasImage() const { return rasterImage(editor_->raster()); }

void DrawForm::finishExit() {
  try {
    editor_->exit();
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
  saved_ = true;
  closing_ = true;
  accept();
}

void DrawForm::cancelChanges() {
  if (!editor_->cancelChanges()) return;
  closing_ = true;
  reject();
}

void DrawForm::closeEvent(QCloseEvent* event) {
  // The close box is Cancel Changes with its question.
  if (closing_ || editor_->cancelChanges()) {
    closing_ = true;
    event->accept();
  } else {
    event->ignore();
  }
}

bool DrawForm::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::MouseButtonPress)
    for (int i = 0; i < kZonesPerLevel; ++i)
      if (watched == canvas_->nameBox(i)) show(editor_->selectZone(i));
  return QDialog::eventFilter(watched, event);
}

void DrawForm::keyPressEvent(QKeyEvent* event) {
  // Esc is not a way out: the sketch leaves only by Exit or Cancel Changes.
  if (event->key() == Qt::Key_Escape) return;
  QDialog::keyPressEvent(event);
}

void DrawForm::saveDrawing() {
  SaveForm f(state_, canvasImage(), prompt_, this);
  f.exec();
}

void DrawForm::loadDrawing() {
  LoadForm f(fromBytes(state_.install.path("sketch")), this);
  if (f.exec() != QDialog::Accepted) return;
  try {
    show(editor_->loadDrawing(f.path()));
  } catch (const FileError& e) {
    prompt_.message(Icon::Exclamation, "Editor", errorMessage(e.number()));
  } catch (const std::exception& e) {
    prompt_.message(Icon::Exclamation, "Editor", e.what());
  }
}

void DrawForm::printOn(QPaintDevice& device) {
  // The form as it stands, less its menus, fitted to the page.
  const int below = menuBar_->isVisible() ? menuBar_->geometry().bottom() + 1 : 0;
  const QRect source(0, below, width(), height() - below);
  QPainter p(&device);
  const QRect page = p.viewport();
  const QSize size = source.size().scaled(page.size(), Qt::KeepAspectRatio);
  p.setViewport(page.x(), page.y(), size.width(), size.height());
  p.setWindow(0, 0, source.width(), source.height());
  render(&p, QPoint(), QRegion(source));
}

void DrawForm::printForm() {
  QPrinter printer;
  printer.setPageOrientation(width() >= height() ? QPageLayout::Landscape : QPageLayout::Portrait);
  QPrintDialog d(&printer, this);
  if (d.exec() != QDialog::Accepted) return;
  printOn(printer);
}

QByteArray canvasPdf(const QImage& picture, const QString& title) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter pdf(&buffer);
    pdf.setTitle(title);
    pdf.setCreator("MARLOVEN");
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setPageOrientation(picture.width() >= picture.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
    pdf.setPageMargins(QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
    QPainter p(&pdf);
    // JPEG would smear the dots and the zone colours a user compares.
    p.setRenderHint(QPainter::LosslessImageRendering);
    const QRect page = p.viewport();
    const QSize size = picture.size().scaled(page.size(), Qt::KeepAspectRatio);
    // Enlarged pixel for pixel first, so a viewer's smoothing cannot blur the
    // grid dots into grey.
    const QImage sharp = picture.scaled(picture.size() * 3, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    p.drawImage(QRect(QPoint(page.x() + (page.width() - size.width()) / 2, page.y()), size), sharp);
  }
  return buffer.data();
}

void DrawForm::exportPdfTo(const std::string& path) {
  const QByteArray bytes = canvasPdf(canvasImage(), windowTitle());
  try {
    writeFileAtomic(path, std::string(bytes.constData(), static_cast<std::size_t>(bytes.size())));
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
}

void DrawForm::exportPdf() {
  QFileDialog d(this, tr("Export PDF"), QDir::currentPath(), tr("PDF files (*.pdf)"));
  d.setObjectName("PdfDialog");
  d.setAcceptMode(QFileDialog::AcceptSave);
  d.setDefaultSuffix("pdf");
  d.selectFile(fromBytes(sketchCopyName(state_.project.fileName, ".pdf")));
  if (d.exec() != QDialog::Accepted || d.selectedFiles().isEmpty()) return;
  exportPdfTo(toBytes(d.selectedFiles().front()));
}

void DrawForm::colourPanel() {
  ControlPanel panel(editor_->foreground(), this);
  panel.exec();
  run([&] { return editor_->setColour(panel.colour()); });
}

}  // namespace marloven::screens
