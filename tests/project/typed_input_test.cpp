#include "project/typed_input.h"

#include <gtest/gtest.h>

#include "common/file_error.h"

namespace marloven {
namespace {

int errorOf(void (*f)()) {
  try {
    f();
  } catch (const FileError& e) {
    return e.number();
  }
  return 0;
}

TEST(TypedInput, NumbersEndAtBlankCommaOrLineEnd) {
  struct Case {
    const char* line;
    double expected;
  } cases[] = {{" 5 ", 5},         {"120.50", 120.5}, {" -.25 ", -0.25}, {"7,8", 7},
               {"", 0},            {"   ", 0},         {"1E3", 1000},     {"3 4", 3},
               {" 1.5E-02 ", .015}};
  for (const auto& c : cases) EXPECT_DOUBLE_EQ(inputNumber(c.line), c.expected) << '"' << c.line << '"';
}

TEST(TypedInput, TextThatIsNoNumberIsATypeMismatch) {
  for (const char* bad : {"end", "5x", "x5", ".", "-", "1E", "1.2.3"}) {
    try {
      inputNumber(bad);
      ADD_FAILURE() << "no error for \"" << bad << '"';
    } catch (const FileError& e) {
      EXPECT_EQ(e.number(), 13) << bad;
    }
  }
}

TEST(TypedInput, WholeNumbersRoundHalfToEvenAndOverflowPast16Bits) {
  EXPECT_EQ(inputWhole("2.5"), 2);
  EXPECT_EQ(inputWhole("3.5"), 4);
  EXPECT_EQ(inputWhole("-2.5"), -2);
  EXPECT_EQ(inputWhole(" 32767 "), 32767);
  EXPECT_EQ(inputWhole("-32768"), -32768);
  EXPECT_EQ(errorOf([] { inputWhole("32768"); }), 6);
  EXPECT_EQ(errorOf([] { inputWhole("-1E9"); }), 6);
}

TEST(TypedInput, TextSkipsLeadingBlanksAndStopsAtAComma) {
  EXPECT_EQ(inputText(" 0 0 N"), "0 0 N");
  EXPECT_EQ(inputText("W"), "W");
  EXPECT_EQ(inputText("  a,b"), "a");
  EXPECT_EQ(inputText("   "), "");
  EXPECT_EQ(inputText("x  "), "x  ");
}

}  // namespace
}  // namespace marloven
