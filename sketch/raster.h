// The sketch screen's drawing surface: an RGB image addressed in the screen's
// user scale, x from -100 (left) to 800 and y from 600 (top) down to 0. The
// pixels are the working truth of a level while it is drawn: cells are read
// back from them, so what is stored must be exact. Colours are whole values
// 0xBBGGRR, the form the zone colour table is defined in.
//
// Shapes include both end points, as the cells are sampled away from the grid
// lines; XOR drawing touches every pixel of a shape once, so drawing a shape a
// second time wipes it.
#pragma once

#include <cstdint>
#include <vector>

namespace marloven {

using Colour = std::uint32_t;  // 0xBBGGRR

inline constexpr Colour kWhite = 0xFFFFFF;
inline constexpr Colour kBlack = 0x000000;
inline constexpr Colour kPureRed = 0x0000FF;

inline constexpr int kScaleLeft = -100;
inline constexpr int kScaleRight = 800;
inline constexpr int kScaleTop = 600;
inline constexpr int kScaleBottom = 0;

inline int redOf(Colour c) { return static_cast<int>(c & 0xFF); }
inline int greenOf(Colour c) { return static_cast<int>((c >> 8) & 0xFF); }
inline int blueOf(Colour c) { return static_cast<int>((c >> 16) & 0xFF); }
inline Colour rgb(int red, int green, int blue) {
  return static_cast<Colour>((red & 0xFF) | ((green & 0xFF) << 8) | ((blue & 0xFF) << 16));
}

enum class DrawMode { Copy, Xor };

class Raster {
 public:
  // pixelsPerUnit: resolution of the image; 1 gives 901 x 601 pixels, so that
  // both ends of the scale are drawable.
  explicit Raster(double pixelsPerUnit = 1.0);

  int width() const { return width_; }
  int height() const { return height_; }
  double pixelsPerUnit() const { return scale_; }
  // Row by row from the top left, 0xBBGGRR each.
  const std::vector<Colour>& pixels() const { return pixels_; }

  int toPixelX(double x) const;
  int toPixelY(double y) const;
  double toUserX(double px) const { return px / scale_ + kScaleLeft; }
  double toUserY(double py) const { return kScaleTop - py / scale_; }

  void clear(Colour c);
  // The colour at a point of the scale; white outside the image.
  Colour pixel(double x, double y) const;
  Colour pixelAt(int px, int py) const;

  void fillRect(double x1, double y1, double x2, double y2, Colour c, DrawMode mode = DrawMode::Copy);
  void outline(double x1, double y1, double x2, double y2, Colour c, DrawMode mode = DrawMode::Copy,
               bool dashed = false);
  void line(double x1, double y1, double x2, double y2, Colour c, DrawMode mode = DrawMode::Copy,
            bool dashed = false);
  void circle(double cx, double cy, double radius, Colour c, DrawMode mode = DrawMode::Copy);
  // A square dot of width pixels at the point.
  void dot(double x, double y, int width, Colour c, DrawMode mode = DrawMode::Copy);
  // A picture of width x height pixels (rows from the top) over the image from
  // its top left corner; what does not fit is left out.
  void paste(const std::vector<Colour>& picture, int width, int height);
  // One character of the built-in 5 x 7 letters, its top left at the point.
  // Returns the width it took in units, so that a caller can go on.
  double character(double x, double y, char ch, Colour c);

 private:
  void put(int px, int py, Colour c, DrawMode mode);
  void putLine(int x0, int y0, int x1, int y1, Colour c, DrawMode mode, bool dashed, bool skipLast);

  double scale_;
  int width_;
  int height_;
  std::vector<Colour> pixels_;
};

}  // namespace marloven
