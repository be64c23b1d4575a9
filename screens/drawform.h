// The building sketch screen. Every rule is the SketchEditor's; this binds
// the menus, boxes, level bar and the canvas to it and paints its raster.
#pragma once

#include <QDialog>
#include <QImage>
#include <array>
#include <memory>

#include "shell/app_state.h"
#include "sketch/sketch_editor.h"

class QAction;
class QLineEdit;
class QMenu;
class QMenuBar;
class QPushButton;
class QScrollBar;

namespace marloven::screens {

// The raster as an image of the toolkit.
QImage rasterImage(const Raster& r);

// The drawing surface: the raster scaled to the widget without smoothing, the
// zone name boxes laid over the strip, mouse and typed keys to the editor.
class SketchCanvas : public QWidget {
  Q_OBJECT

 public:
  SketchCanvas(SketchEditor& editor, QWidget* parent = nullptr);

  QLineEdit* nameBox(int index) const { return names_[index]; }
  // Widget position of a point of the drawing's scale, and back.
  QPointF toWidget(double x, double y) const;
  QPointF toUser(const QPointF& p) const;
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
  QRectF target() const;
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

  // The whole form as printed, and the canvas as saved or copied.
  QImage canvasImage() const;

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
