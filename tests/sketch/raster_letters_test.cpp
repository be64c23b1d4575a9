// The letters a user types on the drawing: small letters are their own shapes,
// and every letter reads back whole at the raster's scales.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "sketch/raster.h"

namespace marloven::testing {
namespace {

constexpr Colour kInk = 0x204080;

// The 5 x 7 letter as drawn, read back one letter pixel at a time ("#" set);
// fails when a letter pixel is not a whole square of the image or when ink
// falls outside the letter's box.
std::string drawnShape(char ch, double scale) {
  Raster r(scale);
  const double x = 100, y = 300;
  const double advance = r.character(x, y, ch, kInk);
  const int cell = static_cast<int>(scale + 0.5);
  EXPECT_DOUBLE_EQ(advance, 6.0 * cell / scale) << ch;
  const int left = r.toPixelX(x), top = r.toPixelY(y);
  std::string shape;
  int inkInBox = 0;
  for (int row = 0; row < 7; ++row)
    for (int col = 0; col < 5; ++col) {
      const Colour first = r.pixelAt(left + col * cell, top + row * cell);
      for (int j = 0; j < cell; ++j)
        for (int i = 0; i < cell; ++i)
          EXPECT_EQ(r.pixelAt(left + col * cell + i, top + row * cell + j), first) << ch << " at " << row << "," << col;
      shape += first == kInk ? '#' : ' ';
      inkInBox += first == kInk ? cell * cell : 0;
    }
  int inkAll = 0;
  for (Colour p : r.pixels()) inkAll += p == kInk;
  EXPECT_EQ(inkAll, inkInBox) << ch << " spills out of its box";
  return shape;
}

TEST(RasterLetters, SmallLettersAreNotCapitalsAndEveryLetterIsTellable) {
  for (double scale : {1.0, 2.0}) {
    std::map<std::string, char> seen;
    std::string letters;
    for (char c = 'A'; c <= 'Z'; ++c) letters += c;
    for (char c = 'a'; c <= 'z'; ++c) letters += c;
    for (char c = '0'; c <= '9'; ++c) letters += c;
    for (char c : letters) {
      const std::string shape = drawnShape(c, scale);
      EXPECT_NE(shape, std::string(35, ' ')) << c << " draws nothing";
      const auto [it, fresh] = seen.emplace(shape, c);
      EXPECT_TRUE(fresh) << c << " looks like " << it->second << " at scale " << scale;
    }
  }
  EXPECT_NE(drawnShape('a', 1.0), drawnShape('A', 1.0));
}

TEST(RasterLetters, ShapesDoNotChangeWithTheScale) {
  for (char c : std::string("aAgGqQyYx1l")) EXPECT_EQ(drawnShape(c, 1.0), drawnShape(c, 3.0)) << c;
}

TEST(RasterLetters, CharactersWithoutALetterTakeTheirPlaceAndDrawNothing) {
  Raster r;
  EXPECT_DOUBLE_EQ(r.character(0, 300, ' ', kInk), 6.0);
  EXPECT_DOUBLE_EQ(r.character(0, 300, '~', kInk), 6.0);
  EXPECT_DOUBLE_EQ(r.character(0, 300, '\xE9', kInk), 6.0);
  for (Colour p : r.pixels()) ASSERT_EQ(p, kWhite);
}

}  // namespace
}  // namespace marloven::testing
