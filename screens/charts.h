// The chart screens (peak, monthly, source): one window whose picture is the
// model of the chart shown, painted in the drawing's twips scaled to the
// widget; the chart buttons move between the seven charts. Every rule is the
// chart builders'.
#pragma once

#include <QDialog>
#include <QWidget>
#include <array>
#include <functional>

#include "project/app_state.h"
#include "results/charts.h"

class QPainter;
class QPushButton;

namespace marloven::screens {

// Paints a chart model into any rectangle: screen, image, SVG, PDF, printer.
void paintChart(QPainter& p, const QRectF& target, const ChartModel& m);
// The logical surface a picture occupies (twips).
QSizeF chartSurface();

class ChartCanvas : public QWidget {
  Q_OBJECT

 public:
  explicit ChartCanvas(QWidget* parent = nullptr);
  void setModel(const ChartModel* m);
  QSize sizeHint() const override;
  // The drawing's point under a widget position.
  QPointF toTwips(const QPointF& widgetPos) const;
  QPointF toWidget(const QPointF& twips) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  QRectF target() const;
  const ChartModel* model_ = nullptr;
};

class ChartWindow : public QDialog {
  Q_OBJECT

 public:
  // saveOutput shows the output save dialog without its Run button.
  ChartWindow(AppState& state, Prompt& prompt, std::function<void()> saveOutput, QWidget* parent = nullptr);
  // Set when the window closed for the tabular screen.
  bool tabularRequested() const { return tabularRequested_; }
  QPushButton* tabularButton() const { return tabular_; }

  // Builds and shows chart c; false (after the error report) when the report
  // cannot give it.
  bool showChart(Chart c);
  const ChartModel& model() const { return model_; }
  ChartCanvas* canvas() const { return canvas_; }
  QPushButton* chartButton(Chart c) const { return buttons_.at(static_cast<int>(c)); }
  QPushButton* mainMenuButton() const { return mainMenu_; }
  QPushButton* saveButton() const { return save_; }

  // The picture alone, with the project, location and caption.
  QImage image(QSize size) const;
  bool savePng(const QString& path) const;
  bool saveSvg(const QString& path) const;
  bool savePdf(const QString& path) const;

 public slots:
  void reject() override;

 private:
  void refresh();
  void exportTo();
  void print();
  void paintPage(QPainter& p, const QRectF& page) const;

  AppState& state_;
  Prompt& prompt_;
  std::function<void()> saveOutput_;
  bool tabularRequested_ = false;
  QPushButton* tabular_ = nullptr;
  ChartModel model_;
  ChartCanvas* canvas_ = nullptr;
  std::array<QPushButton*, kCharts + 1> buttons_{};
  QPushButton* mainMenu_ = nullptr;
  QPushButton* save_ = nullptr;
};

}  // namespace marloven::screens
