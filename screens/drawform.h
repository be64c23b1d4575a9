// The building sketch screen. Every rule is the SketchEditor's; this binds
// the menus, boxes, level bar and the canvas to it and paints its raster.
#pragma once

#include <QDialog>
#include <QImage>
#include <array>
#include <memory>

#include "project/app_state.h"
#include "sketch/sketch_editor.h"

class QAction;
class QLineEdit;
class QMenu;
class QMenuBar;
class QPaintDevice;
class QPushButton;
class QScrollBar;

namespace marloven::screens {

// The raster as an image of the toolkit.
QImage rasterImage(const Raster& r);

// A PDF page of a picture, fitted to an A4 page with its proportions kept.
QByteArray canvasPdf(const QImage& picture, const QString& title);

// How the raster sits on the screen. A raster pixel takes num / den device
// pixels, a whole number of tenths, so that cells and grid dots, ten raster
// pixels apart, are all the same whole number of device pixels apart (and a
// plain scale wherever the room allows). The picture is centred with a margin.
struct CanvasFit {
  int num = 1;
  int den = 1;
  int left = 0;  // device pixel of the raster's top left corner
  int top = 0;
  int width = 0;  // device pixels the picture takes
  int height = 0;

  // The raster pixel shown at a device pixel (may lie outside the raster).
  int rasterX(int deviceX) const;
  int rasterY(int deviceY) const;
};
CanvasFit fitCanvas(QSize device, QSize raster, int margin);

// The drawing surface: the raster scaled to the widget without smoothing, the
// zone name boxes laid over the strip, mouse and typed keys to the editor.
class SketchCanvas : public QWidget {
  Q_OBJECT

 public:
  SketchCanvas(SketchEditor& editor, QWidget* parent = nullptr);

  QLineEdit* nameBox(int index) const { return names_[index]; }
  // Widget position of a point of the drawing's scale, and back. A point
  // maps to the scale inside the raster pixel painted under it.
  QPointF toWidget(double x, double y) const;
  QPointF toUser(const QPointF& p) const;
  CanvasFit fit() const;
  QSize sizeHint() const override;

 signals:
  void changed(unsigned redraw);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void placeNames();

  SketchEditor& editor_;
  std::array<QLineEdit*, kZonesPerLevel> names_{};
};

class DrawForm : public QDialog {
  Q_OBJECT

 public:
  DrawForm(AppState& state, Prompt& prompt, QWidget* parent = nullptr);
  ~DrawForm() override;

  // Splits and loads the sketch; false (after the error report) when it failed.
  bool start();

  SketchEditor& editor() { return *editor_; }
  SketchCanvas* canvas() const { return canvas_; }
  QLineEdit* field(SketchField f) const { return fields_[static_cast<int>(f)]; }
  QLineEdit* statusBox(const char* name) const;
  QScrollBar* levelBar() const { return level_; }
  QPushButton* exitButton() const { return exit_; }
  QAction* action(const char* name) const;
  QMenuBar* menus() const { return menuBar_; }
  // What Exit or Cancel Changes did: true when the sketch went through Exit.
  bool exitedWithSave() const { return saved_; }

  // The canvas as saved, copied or exported.
  QImage canvasImage() const;
  // The level on screen: a run's report pages its zones when it is not 0.
  int currentLevel() const { return editor_->matrix().currentLevel; }
  // The form as printed, without its menus, fitted to the device's page.
  void printOn(QPaintDevice& device);
  // The canvas as a PDF at the path, written whole or not at all; a failure
  // goes to the error report.
  void exportPdfTo(const std::string& path);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildMenus();
  QWidget* buildControls();
  // Runs an event of the editor; file trouble goes to the error report.
  template <typename F>
  void run(F&& f);
  void show(unsigned redraw);
  void finishExit();
  void cancelChanges();
  void saveDrawing();
  void loadDrawing();
  void printForm();
  void exportPdf();
  void pastePicture();
  void colourPanel();

  AppState& state_;
  Prompt& prompt_;
  std::unique_ptr<SketchEditor> editor_;
  SketchCanvas* canvas_ = nullptr;
  QMenuBar* menuBar_ = nullptr;
  std::array<QLineEdit*, kSketchFields> fields_{};
  QScrollBar* level_ = nullptr;
  QPushButton* exit_ = nullptr;
  bool saved_ = false;
  bool closing_ = false;
};

}  // namespace marloven::screens
