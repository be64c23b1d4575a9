// Mixes a drawing colour from three bars of red, green and blue. The sketch
// takes the swatch's colour whichever way the panel is left.
#pragma once

#include <QDialog>

#include "sketch/raster.h"

class QLabel;
class QScrollBar;

namespace marloven::screens {

class ControlPanel : public QDialog {
  Q_OBJECT

 public:
  explicit ControlPanel(Colour start, QWidget* parent = nullptr);

  QScrollBar* bar(int index) const { return bars_[index]; }  // 0 red, 1 green, 2 blue
  Colour colour() const { return colour_; }

 private:
  void mix();

  QScrollBar* bars_[3] = {};
  QLabel* swatch_ = nullptr;
  Colour colour_;
};

}  // namespace marloven::screens
