#include "common/number_text.h"

#include <gtest/gtest.h>

#include <charconv>
#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace marloven {
namespace {

struct FloatCase {
  float value;
  const char* expected;
};

struct DoubleCase {
  double value;
  const char* expected;
};

TEST(PaddedTest, SinglePrecision) {
  const std::vector<FloatCase> cases = {
      {0.5f, " .5"},
      {-0.25f, "-.25"},
      {3.10f, " 3.1"},
      {1000.0f, " 1000"},
      {-7.0f, "-7"},
      {123.456f, " 123.456"},
      {0.1f, " .1"},  // not the digits of its double value
      {0.0f, " 0"},
      {-0.0f, " 0"},
      // Seven digits is the limit of the plain form, 1E+07 the first exponent form.
      {1234567.0f, " 1234567"},
      {9999999.0f, " 9999999"},
      {1.0e7f, " 1E+07"},
      {12345678.0f, " 1.234568E+07"},
      {16777216.0f, " 1.677722E+07"},
      {-12345678.0f, "-1.234568E+07"},
      // .0001 is still plain, .00001 is not.
      {0.0001f, " .0001"},
      {0.00012345f, " .00012345"},
      {0.00001f, " 1E-05"},
      {-0.000015f, "-1.5E-05"},
      // Shortest texts of eight digits are rounded to seven.
      {1.0000001f, " 1"},
      {0.99999994f, " .9999999"},
      {9.9999995e-17f, " 1E-16"},  // the rounding carries into the next decade
      {std::numeric_limits<float>::max(), " 3.402823E+38"},
      {std::numeric_limits<float>::denorm_min(), " 1E-45"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(padded(c.value), c.expected) << "float " << c.value;
  }
}

TEST(PaddedTest, DoublePrecision) {
  const std::vector<DoubleCase> cases = {
      {1.5e-12, " 1.5E-12"},
      {-2.5e-12, "-2.5E-12"},
      {0.1 + 0.2, " .3"},  // 0.30000000000000004 needs 17 digits
      {0.1, " .1"},
      {static_cast<double>(0.1f), " .100000001490116"},
      {123456789012345.0, " 123456789012345"},
      {999999999999999.0, " 999999999999999"},
      {1e15, " 1E+15"},
      {1234567890123456.0, " 1.23456789012346E+15"},
      {12345678.0, " 12345678"},  // plain in double up to 15 digits
      {0.0001, " .0001"},
      {0.00001, " 1E-05"},
      {1e100, " 1E+100"},
      {-1e-300, "-1E-300"},
      {-0.0, " 0"},
      {2.0 / 3.0, " .666666666666667"},
      {0.9999999999999999, " 1"},  // 16 digits round up to the next decade
  };
  for (const auto& c : cases) {
    EXPECT_EQ(padded(c.value), c.expected) << "double " << c.value;
  }
}

TEST(PaddedTest, IntegersAndVariants) {
  EXPECT_EQ(padded(0), " 0");
  EXPECT_EQ(padded(53), " 53");
  EXPECT_EQ(padded(-12), "-12");
  EXPECT_EQ(padded(123456789), " 123456789");  // through double: no exponent

  EXPECT_EQ(bare(0.5f), ".5");
  EXPECT_EQ(bare(-0.25f), "-.25");
  EXPECT_EQ(bare(0.0), "0");
  EXPECT_EQ(bare(3.1f), "3.1");
  EXPECT_EQ(bare(42), "42");

  EXPECT_EQ(printed(5), " 5 ");
  EXPECT_EQ(printed(-1.5f), "-1.5 ");
  EXPECT_EQ(printed(1e-5), " 1E-05 ");
}

TEST(PaddedTest, NonFiniteValuesDoNotCrash) {
  EXPECT_EQ(padded(std::numeric_limits<float>::infinity()), " Inf");
  EXPECT_EQ(padded(-std::numeric_limits<double>::infinity()), "-Inf");
  EXPECT_EQ(padded(std::numeric_limits<double>::quiet_NaN()), " NaN");
}

// Checks the shape rules on one text and that it reads back to the value.
template <typename T>
void expectWellFormed(T value, const std::string& text) {
  SCOPED_TRACE("value text " + text);
  ASSERT_GE(text.size(), 2u);
  EXPECT_TRUE(text[0] == ' ' || text[0] == '-');
  if (text.size() > 2) {
    EXPECT_NE(text[1], '0');
  }
  EXPECT_NE(text.back(), '.');
  const auto e = text.find('E');
  const std::string mantissa = text.substr(0, e);
  if (mantissa.find('.') != std::string::npos) {
    EXPECT_NE(mantissa.back(), '0');
  }
  EXPECT_EQ(static_cast<T>(leadingNumber(text)), value);
}

// Any decimal of at most 7 (15) digits turned into a float (double) has a text
// of at most that many digits that reads back, so padded() must read back.
TEST(PaddedTest, ShortDecimalsReadBack) {
  std::mt19937 gen(20240611);
  std::uniform_int_distribution<long long> mant7(1, 9999999);
  std::uniform_int_distribution<long long> mant15(1, 999999999999999);
  std::uniform_int_distribution<int> exp(-25, 25);
  for (int i = 0; i < 3000; ++i) {
    const int e = exp(gen);
    const long long m7 = mant7(gen);
    const float f = static_cast<float>(static_cast<double>(m7) * std::pow(10.0, e));
    expectWellFormed(f, padded(f));
    expectWellFormed(-f, padded(-f));
    const long long m15 = mant15(gen);
    const std::string dt = std::to_string(m15) + "e" + std::to_string(e);
    double d = 0;
    std::from_chars(dt.data(), dt.data() + dt.size(), d);
    expectWellFormed(d, padded(d));
  }
}

struct ParseCase {
  const char* text;
  double expected;
};

TEST(LeadingNumberTest, Table) {
  const std::vector<ParseCase> cases = {
      {".5", 0.5},
      {"-.25x", -0.25},
      {"  12abc", 12},
      {"  12.5 ft", 12.5},
      {"\t \t7", 7},
      {"abc", 0},
      {"", 0},
      {"   ", 0},
      {"1E3", 1000},
      {"1e3", 1000},
      {"1.5D2", 150},
      {"1.5d-2", 0.015},
      {"2E+3", 2000},
      {"1E", 1},
      {"1E+", 1},
      {"1e-x", 1},
      {"- 5", 0},
      {"5 6", 5},
      {"+3", 3},
      {"+.5", 0.5},
      {"5.", 5},
      {"1.2.3", 1.2},
      {"1,5", 1},  // a comma never is a decimal point
      {".", 0},
      {"-.", 0},
      {"-", 0},
      {"+-1", 0},
      {"0x10", 0},
      {"inf", 0},
      {"nan", 0},
      {"\n5", 0},  // only blanks and tabs are skipped
      {"007", 7},
      {" 1.234568E+07", 12345680},
      {"0.1000000000000000000000000000001", 0.1},
      {"0e99999999999999", 0},
      // Out of the range of double: 0.
      {"1e400", 0},
      {"-1e400", 0},
      {"1e-400", 0},
      {"1e99999999999999999999", 0},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(leadingNumber(c.text), c.expected) << "text \"" << c.text << "\"";
  }
}

TEST(LeadingNumberTest, HugeDigitRunIsOutOfRange) {
  EXPECT_EQ(leadingNumber(std::string(400, '9')), 0.0);
  EXPECT_EQ(leadingNumber("1" + std::string(300, '0')), 1e300);
}

TEST(LeadingNumberTest, RandomBytesNeverThrow) {
  std::mt19937 gen(7);
  std::uniform_int_distribution<int> len(0, 24);
  std::uniform_int_distribution<int> byte(0, 255);
  const std::string alphabet = " \t+-.eEdD0123456789x";
  std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
  for (int i = 0; i < 5000; ++i) {
    std::string s;
    const int n = len(gen);
    for (int k = 0; k < n; ++k)
      s += (i % 2 == 0) ? static_cast<char>(byte(gen)) : alphabet[pick(gen)];
    double v = 1.0;
    EXPECT_NO_THROW(v = leadingNumber(s)) << "case " << i;
    EXPECT_TRUE(std::isfinite(v)) << "case " << i;
  }
}

struct RoundCase {
  double value;
  int digits;
  double expected;
};

TEST(RoundToTest, Table) {
  const std::vector<RoundCase> cases = {
      {2.5, 0, 3},
      {-2.5, 0, -2},  // halves go up, also below zero
      {-2.6, 0, -3},
      {92.90304, 0, 93},
      {0.125, 2, 0.13},
      {-0.125, 2, -0.12},
      // 1.005 is 1.00499999999999989... and 100 times it is 100.49999999999999.
      {1.005, 2, 1.0},
      // 2.675 is 2.67499999999999982..., but 100 times it rounds to 267.5.
      {2.675, 2, 2.68},
      {123.456, -1, 120},
      {0.0, 3, 0.0},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(roundTo(c.value, c.digits), static_cast<float>(c.expected))
        << "roundTo(" << c.value << ", " << c.digits << ")";
  }
}

// The desktop toolkit switches the process to the user's locale; texts must not
// change with it.
TEST(NumberTextLocaleTest, CommaDecimalLocaleChangesNothing) {
  const std::string savedC = std::setlocale(LC_ALL, nullptr);
  const std::locale savedCpp;
  const char* names[] = {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "nl_NL.UTF-8"};
  const char* found = nullptr;
  for (const char* name : names) {
    if (std::setlocale(LC_ALL, name) != nullptr) {
      found = name;
      break;
    }
  }
  if (found == nullptr) GTEST_SKIP() << "no comma-decimal locale installed";
  try {
    std::locale::global(std::locale(found));
  } catch (const std::runtime_error&) {
    // The C locale alone is still worth checking.
  }
  EXPECT_STREQ(std::localeconv()->decimal_point, ",");

  EXPECT_EQ(padded(0.5f), " .5");
  EXPECT_EQ(padded(1234.5), " 1234.5");
  EXPECT_EQ(padded(12345678.0f), " 1.234568E+07");
  EXPECT_EQ(leadingNumber("1.5"), 1.5);
  EXPECT_EQ(leadingNumber("1,5"), 1.0);
  EXPECT_EQ(leadingNumber(" 2.5E-3"), 0.0025);

  std::locale::global(savedCpp);
  std::setlocale(LC_ALL, savedC.c_str());
}

}  // namespace
}  // namespace marloven
