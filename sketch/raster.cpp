#include "sketch/raster.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace marloven {

namespace {

int roundHalfUp(double v) { return static_cast<int>(std::floor(v + 0.5)); }

// Letters for the user's notes on the drawing: 5 x 7, rows from the top, "#" a
// set pixel. Small letters sit on the same base line as capitals, with a body
// of five rows (or four over a tail of two for g, j, p, q and y), so that a
// typed note reads as typed.
struct Glyph {
  char ch;
  const char* rows[7];
};
constexpr Glyph kGlyphs[] = {
    {'0', {" ### ", "#   #", "#  ##", "# # #", "##  #", "#   #", " ### "}},
    {'1', {"  #  ", " ##  ", "  #  ", "  #  ", "  #  ", "  #  ", " ### "}},
    {'2', {" ### ", "#   #", "    #", "   # ", "  #  ", " #   ", "#####"}},
    {'3', {"#####", "   # ", "  #  ", "   # ", "    #", "#   #", " ### "}},
    {'4', {"   # ", "  ## ", " # # ", "#  # ", "#####", "   # ", "   # "}},
    {'5', {"#####", "#    ", "#### ", "    #", "    #", "#   #", " ### "}},
    {'6', {"  ## ", " #   ", "#    ", "#### ", "#   #", "#   #", " ### "}},
    {'7', {"#####", "    #", "   # ", "  #  ", " #   ", " #   ", " #   "}},
    {'8', {" ### ", "#   #", "#   #", " ### ", "#   #", "#   #", " ### "}},
    {'9', {" ### ", "#   #", "#   #", " ####", "    #", "   # ", " ##  "}},
    {'A', {" ### ", "#   #", "#   #", "#####", "#   #", "#   #", "#   #"}},
    {'B', {"#### ", "#   #", "#   #", "#### ", "#   #", "#   #", "#### "}},
    {'C', {" ### ", "#   #", "#    ", "#    ", "#    ", "#   #", " ### "}},
    {'D', {"#### ", "#   #", "#   #", "#   #", "#   #", "#   #", "#### "}},
    {'E', {"#####", "#    ", "#    ", "#### ", "#    ", "#    ", "#####"}},
    {'F', {"#####", "#    ", "#    ", "#### ", "#    ", "#    ", "#    "}},
    {'G', {" ### ", "#   #", "#    ", "# ###", "#   #", "#   #", " ####"}},
    {'H', {"#   #", "#   #", "#   #", "#####", "#   #", "#   #", "#   #"}},
    {'I', {" ### ", "  #  ", "  #  ", "  #  ", "  #  ", "  #  ", " ### "}},
    {'J', {"  ###", "   # ", "   # ", "   # ", "   # ", "#  # ", " ##  "}},
    {'K', {"#   #", "#  # ", "# #  ", "##   ", "# #  ", "#  # ", "#   #"}},
    {'L', {"#    ", "#    ", "#    ", "#    ", "#    ", "#    ", "#####"}},
    {'M', {"#   #", "## ##", "# # #", "# # #", "#   #", "#   #", "#   #"}},
    {'N', {"#   #", "#   #", "##  #", "# # #", "#  ##", "#   #", "#   #"}},
    {'O', {" ### ", "#   #", "#   #", "#   #", "#   #", "#   #", " ### "}},
    {'P', {"#### ", "#   #", "#   #", "#### ", "#    ", "#    ", "#    "}},
    {'Q', {" ### ", "#   #", "#   #", "#   #", "# # #", "#  # ", " ## #"}},
    {'R', {"#### ", "#   #", "#   #", "#### ", "# #  ", "#  # ", "#   #"}},
    {'S', {" ####", "#    ", "#    ", " ### ", "    #", "    #", "#### "}},
    {'T', {"#####", "  #  ", "  #  ", "  #  ", "  #  ", "  #  ", "  #  "}},
    {'U', {"#   #", "#   #", "#   #", "#   #", "#   #", "#   #", " ### "}},
    {'V', {"#   #", "#   #", "#   #", "#   #", "#   #", " # # ", "  #  "}},
    {'W', {"#   #", "#   #", "#   #", "# # #", "# # #", "# # #", " # # "}},
    {'X', {"#   #", "#   #", " # # ", "  #  ", " # # ", "#   #", "#   #"}},
    {'Y', {"#   #", "#   #", " # # ", "  #  ", "  #  ", "  #  ", "  #  "}},
    {'Z', {"#####", "    #", "   # ", "  #  ", " #   ", "#    ", "#####"}},
    {'a', {"     ", "     ", " ### ", "    #", " ####", "#   #", " ####"}},
    {'b', {"#    ", "#    ", "# ## ", "##  #", "#   #", "#   #", "#### "}},
    {'c', {"     ", "     ", " ### ", "#    ", "#    ", "#   #", " ### "}},
    {'d', {"    #", "    #", " ## #", "#  ##", "#   #", "#   #", " ####"}},
    {'e', {"     ", "     ", " ### ", "#   #", "#####", "#    ", " ### "}},
    {'f', {"  ## ", " #  #", " #   ", "###  ", " #   ", " #   ", " #   "}},
    {'g', {"     ", " ####", "#   #", "#   #", " ####", "    #", " ### "}},
    {'h', {"#    ", "#    ", "# ## ", "##  #", "#   #", "#   #", "#   #"}},
    {'i', {"  #  ", "     ", " ##  ", "  #  ", "  #  ", "  #  ", " ### "}},
    {'j', {"   # ", "     ", "  ## ", "   # ", "   # ", "#  # ", " ##  "}},
    {'k', {"#    ", "#    ", "#  # ", "# #  ", "##   ", "# #  ", "#  # "}},
    {'l', {" ##  ", "  #  ", "  #  ", "  #  ", "  #  ", "  #  ", " ### "}},
    {'m', {"     ", "     ", "## # ", "# # #", "# # #", "#   #", "#   #"}},
    {'n', {"     ", "     ", "# ## ", "##  #", "#   #", "#   #", "#   #"}},
    {'o', {"     ", "     ", " ### ", "#   #", "#   #", "#   #", " ### "}},
    {'p', {"     ", "#### ", "#   #", "#   #", "#### ", "#    ", "#    "}},
    {'q', {"     ", " ####", "#   #", "#   #", " ####", "    #", "    #"}},
    {'r', {"     ", "     ", "# ## ", "##  #", "#    ", "#    ", "#    "}},
    {'s', {"     ", "     ", " ####", "#    ", " ### ", "    #", "#### "}},
    {'t', {" #   ", " #   ", "###  ", " #   ", " #   ", " #  #", "  ## "}},
    {'u', {"     ", "     ", "#   #", "#   #", "#   #", "#  ##", " ## #"}},
    {'v', {"     ", "     ", "#   #", "#   #", "#   #", " # # ", "  #  "}},
    {'w', {"     ", "     ", "#   #", "#   #", "# # #", "# # #", " # # "}},
    {'x', {"     ", "     ", "#   #", " # # ", "  #  ", " # # ", "#   #"}},
    {'y', {"     ", "#   #", "#   #", "#   #", " ####", "    #", " ### "}},
    {'z', {"     ", "     ", "#####", "   # ", "  #  ", " #   ", "#####"}},
    {'.', {"     ", "     ", "     ", "     ", "     ", " ##  ", " ##  "}},
    {',', {"     ", "     ", "     ", "     ", " ##  ", "  #  ", " #   "}},
    {'-', {"     ", "     ", "     ", "#####", "     ", "     ", "     "}},
    {'+', {"     ", "  #  ", "  #  ", "#####", "  #  ", "  #  ", "     "}},
    {'=', {"     ", "     ", "#####", "     ", "#####", "     ", "     "}},
    {':', {"     ", " ##  ", " ##  ", "     ", " ##  ", " ##  ", "     "}},
    {'/', {"     ", "    #", "   # ", "  #  ", " #   ", "#    ", "     "}},
    {'(', {"   # ", "  #  ", " #   ", " #   ", " #   ", "  #  ", "   # "}},
    {')', {" #   ", "  #  ", "   # ", "   # ", "   # ", "  #  ", " #   "}},
    {'\'', {"  #  ", "  #  ", " #   ", "     ", "     ", "     ", "     "}},
    {'"', {" # # ", " # # ", "     ", "     ", "     ", "     ", "     "}},
    {'#', {" # # ", " # # ", "#####", " # # ", "#####", " # # ", " # # "}},
    {'?', {" ### ", "#   #", "    #", "   # ", "  #  ", "     ", "  #  "}},
    {'!', {"  #  ", "  #  ", "  #  ", "  #  ", "  #  ", "     ", "  #  "}},
    {'*', {"     ", "  #  ", "# # #", " ### ", "# # #", "  #  ", "     "}},
};

const Glyph* glyphOf(char ch) {
  for (const Glyph& g : kGlyphs)
    if (g.ch == ch) return &g;
  return nullptr;
}

}  // namespace

Raster::Raster(double pixelsPerUnit)
    : scale_(pixelsPerUnit),
      width_(roundHalfUp((kScaleRight - kScaleLeft) * pixelsPerUnit) + 1),
      height_(roundHalfUp((kScaleTop - kScaleBottom) * pixelsPerUnit) + 1),
      pixels_(static_cast<std::size_t>(width_) * height_, kWhite) {}

int Raster::toPixelX(double x) const { return roundHalfUp((x - kScaleLeft) * scale_); }
int Raster::toPixelY(double y) const { return roundHalfUp((kScaleTop - y) * scale_); }

void Raster::clear(Colour c) { std::fill(pixels_.begin(), pixels_.end(), c); }

Colour Raster::pixelAt(int px, int py) const {
  if (px < 0 || py < 0 || px >= width_ || py >= height_) return kWhite;
  return pixels_[static_cast<std::size_t>(py) * width_ + px];
}

Colour Raster::pixel(double x, double y) const {
  // The pixel whose area holds the point, not the nearest grid corner.
  return pixelAt(static_cast<int>(std::floor((x - kScaleLeft) * scale_)),
                 static_cast<int>(std::floor((kScaleTop - y) * scale_)));
}

void Raster::put(int px, int py, Colour c, DrawMode mode) {
  if (px < 0 || py < 0 || px >= width_ || py >= height_) return;
  Colour& p = pixels_[static_cast<std::size_t>(py) * width_ + px];
  p = mode == DrawMode::Xor ? ((p ^ c) & 0xFFFFFF) : c;
}

void Raster::fillRect(double x1, double y1, double x2, double y2, Colour c, DrawMode mode) {
  int l = toPixelX(x1), r = toPixelX(x2), t = toPixelY(y1), b = toPixelY(y2);
  if (l > r) std::swap(l, r);
  if (t > b) std::swap(t, b);
  l = std::max(l, 0);
  t = std::max(t, 0);
  r = std::min(r, width_ - 1);
  b = std::min(b, height_ - 1);
  for (int py = t; py <= b; ++py)
    for (int px = l; px <= r; ++px) put(px, py, c, mode);
}

void Raster::outline(double x1, double y1, double x2, double y2, Colour c, DrawMode mode, bool dashed) {
  int l = toPixelX(x1), r = toPixelX(x2), t = toPixelY(y1), b = toPixelY(y2);
  if (l > r) std::swap(l, r);
  if (t > b) std::swap(t, b);
  // Each side leaves its last pixel to the next, so XOR touches corners once.
  if (l == r || t == b) {
    putLine(l, t, r, b, c, mode, dashed, false);
    return;
  }
  putLine(l, t, r, t, c, mode, dashed, true);
  putLine(r, t, r, b, c, mode, dashed, true);
  putLine(r, b, l, b, c, mode, dashed, true);
  putLine(l, b, l, t, c, mode, dashed, true);
}

void Raster::line(double x1, double y1, double x2, double y2, Colour c, DrawMode mode, bool dashed) {
  putLine(toPixelX(x1), toPixelY(y1), toPixelX(x2), toPixelY(y2), c, mode, dashed, false);
}

void Raster::putLine(int x0, int y0, int x1, int y1, Colour c, DrawMode mode, bool dashed, bool skipLast) {
  const int dx = std::abs(x1 - x0), sx = x0 < x1 ? 1 : -1;
  const int dy = -std::abs(y1 - y0), sy = y0 < y1 ? 1 : -1;
  int err = dx + dy;
  for (int step = 0;; ++step) {
    const bool last = x0 == x1 && y0 == y1;
    if (last && skipLast) break;
    // Dashes of 6 pixels on, 3 off.
    if (!dashed || step % 9 < 6) put(x0, y0, c, mode);
    if (last) break;
    const int e2 = 2 * err;
    if (e2 >= dy) {
      err += dy;
      x0 += sx;
    }
    if (e2 <= dx) {
      err += dx;
      y0 += sy;
    }
  }
}

void Raster::circle(double cx, double cy, double radius, Colour c, DrawMode mode) {
  const int x0 = toPixelX(cx), y0 = toPixelY(cy);
  const int rad = roundHalfUp(radius * scale_);
  if (rad <= 0) {
    put(x0, y0, c, mode);
    return;
  }
  // The eight octants meet on shared pixels; collect them once each.
  std::vector<std::pair<int, int>> pts;
  int x = rad, y = 0, err = 1 - rad;
  while (x >= y) {
    for (const auto& [px, py] : {std::pair{x, y}, {y, x}, {-y, x}, {-x, y}, {-x, -y}, {-y, -x}, {y, -x}, {x, -y}})
      pts.emplace_back(x0 + px, y0 + py);
    ++y;
    if (err < 0) {
      err += 2 * y + 1;
    } else {
      --x;
      err += 2 * (y - x) + 1;
    }
  }
  std::sort(pts.begin(), pts.end());
  pts.erase(std::unique(pts.begin(), pts.end()), pts.end());
  for (const auto& [px, py] : pts) put(px, py, c, mode);
}

void Raster::dot(double x, double y, int width, Colour c, DrawMode mode) {
  const int px = toPixelX(x), py = toPixelY(y);
  const int from = -(width - 1) / 2;
  for (int j = 0; j < width; ++j)
    for (int i = 0; i < width; ++i) put(px + from + i, py + from + j, c, mode);
}

void Raster::paste(const std::vector<Colour>& picture, int width, int height) {
  if (width <= 0 || height <= 0 || picture.size() < static_cast<std::size_t>(width) * height) return;
  for (int py = 0; py < std::min(height, height_); ++py)
    for (int px = 0; px < std::min(width, width_); ++px)
      put(px, py, picture[static_cast<std::size_t>(py) * width + px] & 0xFFFFFF, DrawMode::Copy);
}

double Raster::character(double x, double y, char ch, Colour c) {
  const Glyph* g = glyphOf(ch);
  const int px = toPixelX(x), py = toPixelY(y);
  // A pixel of the letter is a square of at least one pixel of the image.
  const int cell = std::max(1, roundHalfUp(scale_));
  if (g != nullptr)
    for (int row = 0; row < 7; ++row)
      for (int col = 0; col < 5; ++col)
        if (g->rows[row][col] == '#')
          for (int j = 0; j < cell; ++j)
            for (int i = 0; i < cell; ++i) put(px + col * cell + i, py + row * cell + j, c, DrawMode::Copy);
  return 6.0 * cell / scale_;
}

}  // namespace marloven
