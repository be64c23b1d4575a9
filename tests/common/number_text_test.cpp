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
#include <tuple>
#include <utility>
#include <vector>

namespace marloven {
namespace {

TEST(PaddedTest, SinglePrecision) {
  const std::vector<std::pair<float, const char*>> cases = {
      {0.5f, " .5"}, {-0.25f, "-.25"}, {3.10f, " 3.1"}, {1000.0f, " 1000"}, {123.456f, " 123.456"},
      {0.0f, " 0"}, {-0.0f, " 0"}, {0.1f, " .1"},  // not the digits of its double value
      // Seven digits is the limit of the plain form, 1E+07 the first exponent form.
      {9999999.0f, " 9999999"}, {1.0e7f, " 1E+07"}, {12345678.0f, " 1.234568E+07"},
      {-12345678.0f, "-1.234568E+07"},
      // .0001 is still plain, .00001 is not.
      {0.0001f, " .0001"}, {0.00012345f, " .00012345"}, {0.00001f, " 1E-05"},
      {-0.000015f, "-1.5E-05"},
      // Shortest texts of eight digits are rounded to seven, at times into the next decade.
      {1.0000001f, " 1"}, {0.99999994f, " .9999999"}, {9.9999995e-17f, " 1E-16"},
      {std::numeric_limits<float>::max(), " 3.402823E+38"},
      {std::numeric_limits<float>::denorm_min(), " 1E-45"},
  };
  for (const auto& [value, text] : cases) EXPECT_EQ(padded(value), text) << "float " << value;
}

TEST(PaddedTest, DoublePrecision) {
  const std::vector<std::pair<double, const char*>> cases = {
      {1.5e-12, " 1.5E-12"}, {0.1, " .1"}, {-0.0, " 0"}, {2.0 / 3.0, " .666666666666667"},
      {0.1 + 0.2, " .3"},  // 0.30000000000000004 needs 17 digits
      {static_cast<double>(0.1f), " .100000001490116"}, {12345678.0, " 12345678"},
      // Fifteen digits is the limit of the plain form in double precision.
      {999999999999999.0, " 999999999999999"}, {1e15, " 1E+15"},
      {1234567890123456.0, " 1.23456789012346E+15"},
      {0.0001, " .0001"}, {0.00001, " 1E-05"}, {1e100, " 1E+100"}, {-1e-300, "-1E-300"},
      {0.9999999999999999, " 1"},  // 16 digits round up to the next decade
  };
  for (const auto& [value, text] : cases) EXPECT_EQ(padded(value), text) << "double " << value;
}

TEST(PaddedTest, IntegersVariantsAndNonFinite) {
  EXPECT_EQ(padded(-12), "-12");
  EXPECT_EQ(padded(123456789), " 123456789");  // through double: no exponent
  EXPECT_EQ(bare(-0.25f), "-.25");
  EXPECT_EQ(bare(0.0), "0");
  EXPECT_EQ(bare(42), "42");
  EXPECT_EQ(printed(5), " 5 ");
  EXPECT_EQ(printed(-1.5f), "-1.5 ");
  EXPECT_EQ(printed(1e-5), " 1E-05 ");
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
  EXPECT_FALSE(text.size() > 2 && text[1] == '0');
  EXPECT_NE(text.back(), '.');
  const std::string mantissa = text.substr(0, text.find('E'));
  EXPECT_FALSE(mantissa.find('.') != std::string::npos && mantissa.back() == '0');
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
    const float f = static_cast<float>(static_cast<double>(mant7(gen)) * std::pow(10.0, e));
    expectWellFormed(f, padded(f));
    expectWellFormed(-f, padded(-f));
    const std::string dt = std::to_string(mant15(gen)) + "e" + std::to_string(e);
    double d = 0;
    std::from_chars(dt.data(), dt.data() + dt.size(), d);
    expectWellFormed(d, padded(d));
  }
}

TEST(LeadingNumberTest, Table) {
  const std::vector<std::pair<std::string, double>> cases = {
      {".5", 0.5}, {"-.25x", -0.25}, {"  12.5 ft", 12.5}, {"\t \t7", 7}, {"abc", 0}, {"", 0},
      {"   ", 0}, {"1E3", 1000}, {"1e3", 1000}, {"1.5D2", 150}, {"1.5d-2", 0.015}, {"2E+3", 2000},
      {"1E", 1}, {"1E+", 1}, {"1e-x", 1}, {"- 5", 0}, {"5 6", 5}, {"+3", 3}, {"+.5", 0.5},
      {"5.", 5}, {"1.2.3", 1.2}, {".", 0}, {"-.", 0}, {"-", 0}, {"+-1", 0}, {"0x10", 0},
      {"inf", 0}, {"007", 7}, {" 1.234568E+07", 12345680},
      {"1,5", 1},  // a comma never is a decimal point
      {"\n5", 0},  // only blanks and tabs are skipped
      {"0.1000000000000000000000000000001", 0.1}, {"0e99999999999999", 0},
      {"1" + std::string(300, '0'), 1e300},
      // Out of the range of double: 0.
      {"1e400", 0}, {"-1e400", 0}, {"1e-400", 0}, {"1e99999999999999999999", 0},
      {std::string(400, '9'), 0},
  };
  for (const auto& [text, value] : cases)
    EXPECT_EQ(leadingNumber(text), value) << "text \"" << text << "\"";
}

TEST(LeadingNumberTest, RandomBytesNeverThrow) {
  std::mt19937 gen(7);
  std::uniform_int_distribution<int> len(0, 24);
  std::uniform_int_distribution<int> byte(0, 255);
  const std::string alphabet = " \t+-.eEdD0123456789x";
  std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
  for (int i = 0; i < 5000; ++i) {
    std::string s;
    for (int k = len(gen); k > 0; --k)
      s += (i % 2 == 0) ? static_cast<char>(byte(gen)) : alphabet[pick(gen)];
    double v = 1.0;
    EXPECT_NO_THROW(v = leadingNumber(s)) << "case " << i;
    EXPECT_TRUE(std::isfinite(v)) << "case " << i;
  }
}

TEST(RoundToTest, Table) {
  const std::vector<std::tuple<double, int, double>> cases = {
      {2.5, 0, 3}, {-2.5, 0, -2},  // halves go up, also below zero
      {-2.6, 0, -3}, {0.125, 2, 0.13}, {-0.125, 2, -0.12}, {123.456, -1, 120},
      // 1.005 is 1.00499999999999989... and 100 times it is 100.49999999999999.
      {1.005, 2, 1.0},
      // 2.675 is 2.67499999999999982..., but 100 times it rounds to 267.5.
      {2.675, 2, 2.68},
  };
  for (const auto& [value, digits, rounded] : cases)
    EXPECT_EQ(roundTo(value, digits), static_cast<float>(rounded))
        << "roundTo(" << value << ", " << digits << ")";
}

// The desktop toolkit switches the process to the user's locale; texts must not
// change with it.
TEST(NumberTextLocaleTest, CommaDecimalLocaleChangesNothing) {
  const std::string savedC = std::setlocale(LC_ALL, nullptr);
  const std::locale savedCpp;
  const char* found = nullptr;
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "nl_NL.UTF-8"})
    if (found == nullptr && std::setlocale(LC_ALL, name) != nullptr) found = name;
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
