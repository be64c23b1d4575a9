#include "screens/step_icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <array>
#include <cmath>
#include <functional>
#include <numbers>

namespace marloven::screens {

namespace {

// Drawn on a 64 x 64 canvas and scaled, so every size stays crisp. All icons
// share the rounded badge, the stroke width and the white glyph; only the
// badge colour and the glyph differ.
constexpr int kCanvas = 64;
const QColor kGlyph(255, 255, 255);

struct Artwork {
  QColor badge;
  std::function<void(QPainter&)> glyph;
};

QPen glyphPen(qreal width = 4.0) {
  QPen pen(kGlyph, width);
  pen.setCapStyle(Qt::RoundCap);
  pen.setJoinStyle(Qt::RoundJoin);
  return pen;
}

// 1: a form with a pencil mark, the project's identification.
void projectGlyph(QPainter& p) {
  p.setPen(glyphPen());
  p.setBrush(Qt::NoBrush);
  p.drawRoundedRect(QRectF(17, 12, 30, 40), 3, 3);
  for (int y : {23, 31, 39}) p.drawLine(QPointF(23, y), QPointF(41, y));
  p.drawLine(QPointF(23, 46), QPointF(33, 46));
}

// 2: sun behind a cloud.
void weatherGlyph(QPainter& p) {
  p.setPen(glyphPen(3.5));
  p.setBrush(Qt::NoBrush);
  const QPointF sun(26, 25);
  p.drawEllipse(sun, 8, 8);
  for (int i = 0; i < 8; ++i) {
    const double a = i * std::numbers::pi / 4;
    p.drawLine(sun + QPointF(12 * std::cos(a), 12 * std::sin(a)), sun + QPointF(16 * std::cos(a), 16 * std::sin(a)));
  }
  QPainterPath cloud;
  cloud.addEllipse(QPointF(34, 42), 9, 8);
  cloud.addEllipse(QPointF(44, 36), 10, 10);
  cloud.addEllipse(QPointF(51, 44), 7, 6);
  cloud.addRoundedRect(QRectF(27, 40, 31, 10), 5, 5);
  cloud.setFillRule(Qt::WindingFill);
  p.setBrush(kGlyph);
  p.setPen(Qt::NoPen);
  p.drawPath(cloud.simplified());
}

// 3: a stack of coins and a rising line, costs over the years.
void economicsGlyph(QPainter& p) {
  p.setPen(Qt::NoPen);
  p.setBrush(kGlyph);
  for (int i = 0; i < 4; ++i) p.drawRoundedRect(QRectF(10, 45 - i * 8, 24, 6), 3, 3);
  p.setPen(glyphPen(3.5));
  p.setBrush(Qt::NoBrush);
  p.drawPolyline(QPolygonF({QPointF(38, 48), QPointF(44, 38), QPointF(49, 42), QPointF(54, 26)}));
  p.drawPolyline(QPolygonF({QPointF(48, 26), QPointF(54, 26), QPointF(54, 32)}));
}

// 4: a floor plan on a grid with a pencil.
void sketchGlyph(QPainter& p) {
  p.setPen(QPen(QColor(255, 255, 255, 150), 1.5));
  for (int x = 14; x <= 46; x += 8) p.drawLine(QPointF(x, 14), QPointF(x, 50));
  for (int y = 14; y <= 50; y += 8) p.drawLine(QPointF(14, y), QPointF(50, y));
  p.setPen(glyphPen());
  p.drawPolyline(QPolygonF({QPointF(14, 22), QPointF(38, 22), QPointF(38, 38), QPointF(30, 38), QPointF(30, 50),
                            QPointF(14, 50), QPointF(14, 22)}));
  QPainterPath pencil;
  pencil.moveTo(44, 48);
  pencil.lineTo(56, 36);
  pencil.lineTo(60, 40);
  pencil.lineTo(48, 52);
  pencil.lineTo(42, 54);
  pencil.closeSubpath();
  p.setPen(Qt::NoPen);
  p.setBrush(kGlyph);
  p.drawPath(pencil);
}

// 5: a building cut into zones, one of them picked.
void zonesGlyph(QPainter& p) {
  p.setPen(glyphPen());
  p.setBrush(Qt::NoBrush);
  p.drawRect(QRectF(13, 15, 38, 34));
  p.drawLine(QPointF(32, 15), QPointF(32, 49));
  p.drawLine(QPointF(13, 32), QPointF(51, 32));
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(255, 255, 255, 190));
  p.drawRect(QRectF(34.5, 17.5, 14, 12));
}

// 6: run the analysis: a play mark over a load curve.
void runGlyph(QPainter& p) {
  p.setPen(glyphPen(3));
  p.setBrush(Qt::NoBrush);
  QPainterPath curve;
  curve.moveTo(12, 46);
  curve.cubicTo(22, 26, 30, 52, 40, 34);
  curve.cubicTo(46, 24, 50, 30, 54, 22);
  p.drawPath(curve);
  p.setPen(Qt::NoPen);
  p.setBrush(kGlyph);
  p.drawPolygon(QPolygonF({QPointF(22, 14), QPointF(40, 25), QPointF(22, 36)}));
}

// Sample projects: an open folder with a small house.
void sampleGlyph(QPainter& p) {
  p.setPen(glyphPen(3.5));
  p.setBrush(Qt::NoBrush);
  p.drawPolygon(QPolygonF({QPointF(10, 20), QPointF(24, 20), QPointF(28, 25), QPointF(54, 25), QPointF(54, 50),
                           QPointF(10, 50)}));
  p.setPen(Qt::NoPen);
  p.setBrush(kGlyph);
  p.drawPolygon(QPolygonF({QPointF(24, 37), QPointF(32, 30), QPointF(40, 37), QPointF(38, 37), QPointF(38, 46),
                           QPointF(26, 46), QPointF(26, 37)}));
}

// Previous output: a bar chart on a page.
void outputGlyph(QPainter& p) {
  p.setPen(glyphPen(3.5));
  p.setBrush(Qt::NoBrush);
  p.drawLine(QPointF(12, 50), QPointF(52, 50));
  p.setPen(Qt::NoPen);
  p.setBrush(kGlyph);
  const std::array<std::pair<int, int>, 4> bars = {{{15, 20}, {24, 32}, {33, 14}, {42, 26}}};
  for (auto [x, h] : bars) p.drawRect(QRectF(x, 46 - h, 7, h));
}

const std::array<Artwork, kMainMenuSteps + 1>& stepArtwork() {
  static const std::array<Artwork, kMainMenuSteps + 1> art = {{
      {QColor(), nullptr},
      {QColor(0x2f, 0x6f, 0xb3), projectGlyph},
      {QColor(0x2a, 0x9d, 0xc4), weatherGlyph},
      {QColor(0x3b, 0x9a, 0x57), economicsGlyph},
      {QColor(0xd0, 0x7c, 0x21), sketchGlyph},
      {QColor(0x8a, 0x4f, 0xb0), zonesGlyph},
      {QColor(0xc2, 0x3b, 0x3b), runGlyph},
  }};
  return art;
}

QPixmap render(const Artwork& art, int size, bool disabled) {
  QPixmap pm(size, size);
  pm.fill(Qt::transparent);
  QPainter p(&pm);
  p.setRenderHint(QPainter::Antialiasing);
  p.scale(static_cast<qreal>(size) / kCanvas, static_cast<qreal>(size) / kCanvas);
  QColor badge = art.badge;
  if (disabled) badge = QColor::fromHsv(badge.hsvHue(), 20, 175);
  p.setPen(Qt::NoPen);
  p.setBrush(badge);
  p.drawRoundedRect(QRectF(2, 2, 60, 60), 12, 12);
  art.glyph(p);
  return pm;
}

QIcon iconOf(const Artwork& art) {
  QIcon icon;
  // Drawn for each size rather than scaled, and in a disabled form of our own:
  // the style's greying would wash the badge out to an unreadable blot.
  for (int size : {16, 24, 32, 40, 48, 64, 80, 128}) {
    icon.addPixmap(render(art, size, false), QIcon::Normal);
    icon.addPixmap(render(art, size, true), QIcon::Disabled);
  }
  return icon;
}

}  // namespace

QIcon stepIcon(int step) {
  if (step < 1 || step > kMainMenuSteps) return {};
  return iconOf(stepArtwork()[static_cast<std::size_t>(step)]);
}

QIcon sampleProjectsIcon() { return iconOf({QColor(0x55, 0x6b, 0x7d), sampleGlyph}); }

QIcon previousOutputIcon() { return iconOf({QColor(0x55, 0x6b, 0x7d), outputGlyph}); }

}  // namespace marloven::screens
