#include "common/number_text.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <system_error>

namespace marloven {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Significant digits (no trailing zeros, at least one) and the decimal exponent of
// the first digit, read from the scientific text std::to_chars writes
// ("d.ddde+XX", "de-XX").
struct Digits {
  std::string digits;
  int exponent = 0;
};

Digits parseScientific(std::string_view sci) {
  Digits d;
  std::size_t i = 0;
  for (; i < sci.size() && sci[i] != 'e'; ++i)
    if (isDigit(sci[i])) d.digits += sci[i];
  while (d.digits.size() > 1 && d.digits.back() == '0') d.digits.pop_back();
  if (i < sci.size()) {
    std::string_view e = sci.substr(i + 1);
    if (!e.empty() && e.front() == '+') e.remove_prefix(1);
    std::from_chars(e.data(), e.data() + e.size(), d.exponent);
  }
  return d;
}

template <typename T>
Digits chooseDigits(T magnitude, std::size_t maxDigits) {
  char buf[64];
  auto r = std::to_chars(buf, buf + sizeof buf, magnitude, std::chars_format::scientific);
  Digits d = parseScientific(std::string_view(buf, static_cast<std::size_t>(r.ptr - buf)));
  if (d.digits.size() <= maxDigits) return d;
  // The shortest text that reads back needs too many digits: round instead.
  r = std::to_chars(buf, buf + sizeof buf, magnitude, std::chars_format::scientific,
                    static_cast<int>(maxDigits) - 1);
  return parseScientific(std::string_view(buf, static_cast<std::size_t>(r.ptr - buf)));
}

std::string layout(const Digits& d, int maxDigits) {
  const std::string& s = d.digits;
  const int x = d.exponent;
  std::string out;
  if (x < -4 || x >= maxDigits) {
    out += s[0];
    if (s.size() > 1) {
      out += '.';
      out.append(s, 1);
    }
    out += 'E';
    out += x < 0 ? '-' : '+';
    const int ax = x < 0 ? -x : x;
    if (ax < 10) out += '0';
    out += std::to_string(ax);
  } else if (x >= 0) {
    const std::size_t intLen = static_cast<std::size_t>(x) + 1;
    if (s.size() <= intLen) {
      out = s;
      out.append(intLen - s.size(), '0');
    } else {
      out.assign(s, 0, intLen);
      out += '.';
      out.append(s, intLen);
    }
  } else {
    // No zero before the point: ".5", ".0001".
    out += '.';
    out.append(static_cast<std::size_t>(-x - 1), '0');
    out += s;
  }
  return out;
}

template <typename T>
std::string paddedText(T value, int maxDigits) {
  if (value == 0) return " 0";  // also -0
  if (std::isnan(value)) return " NaN";
  const bool negative = std::signbit(value);
  const T magnitude = negative ? -value : value;
  std::string body = std::isinf(value)
                         ? std::string("Inf")
                         : layout(chooseDigits(magnitude, static_cast<std::size_t>(maxDigits)),
                                  maxDigits);
  return (negative ? "-" : " ") + body;
}

std::string withoutLeadingBlank(std::string s) {
  if (!s.empty() && s.front() == ' ') s.erase(0, 1);
  return s;
}

}  // namespace

std::string_view trimmedBlanks(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
  return s;
}

bool startsNoCase(std::string_view s, std::string_view word) {
  if (s.size() < word.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i)
    if ((s[i] | 0x20) != word[i]) return false;
  return true;
}

NumberText readNumberText(std::string_view text) {
  NumberText out;
  const std::string_view t = trimmedBlanks(text);
  if (t.empty()) return out;
  std::size_t i = 0;
  const std::size_t n = t.size();
  std::string norm;
  if (t[i] == '+' || t[i] == '-') {
    if (t[i] == '-') norm += '-';
    ++i;
  }
  if (startsNoCase(t.substr(i), "inf") || startsNoCase(t.substr(i), "nan")) {
    out.kind = NumberText::NotFinite;
    return out;
  }
  std::size_t digits = 0;
  const std::size_t intStart = i;
  while (i < n && isDigit(t[i])) ++i;
  digits += i - intStart;
  norm += digits ? std::string(t.substr(intStart, i - intStart)) : std::string("0");
  if (i < n && t[i] == '.') {
    const std::size_t f = ++i;
    while (i < n && isDigit(t[i])) ++i;
    digits += i - f;
    if (i > f) norm += "." + std::string(t.substr(f, i - f));
  }
  if (digits == 0) {
    out.kind = NumberText::NotANumber;
    return out;
  }
  if (i < n && (t[i] == 'E' || t[i] == 'e' || t[i] == 'D' || t[i] == 'd')) {
    std::size_t j = i + 1;
    std::string exp = "e";
    if (j < n && (t[j] == '+' || t[j] == '-')) exp += t[j++];
    const std::size_t first = j;
    while (j < n && isDigit(t[j])) exp += t[j++];
    if (j > first) {
      norm += exp;
      i = j;
    }
  }
  double v = 0;
  const auto r = std::from_chars(norm.data(), norm.data() + norm.size(), v);
  out.whole = i == n;
  if (r.ec == std::errc::result_out_of_range) {
    // Too small to be anything but zero is zero; too large is no number at all.
    if (norm.find("e-") == std::string::npos) {
      out.kind = NumberText::NotFinite;
      return out;
    }
    v = 0;
  }
  out.kind = std::isfinite(v) ? NumberText::Number : NumberText::NotFinite;
  out.value = v;
  return out;
}

NumberText strictNumber(std::string_view text) {
  NumberText n = readNumberText(text);
  if (n.kind == NumberText::Number && !n.whole) n.kind = NumberText::NotANumber;
  return n;
}

double leadingNumber(std::string_view text) {
  std::size_t i = 0;
  const std::size_t n = text.size();
  while (i < n && (text[i] == ' ' || text[i] == '\t')) ++i;

  // The number is rebuilt in the one form std::from_chars takes: no "+" sign,
  // "e" for the exponent, at least one digit before the point.
  std::string norm;
  if (i < n && (text[i] == '+' || text[i] == '-')) {
    if (text[i] == '-') norm += '-';
    ++i;
  }
  std::size_t digitCount = 0;
  std::string intPart;
  while (i < n && isDigit(text[i])) intPart += text[i++];
  digitCount += intPart.size();
  std::string fracPart;
  if (i < n && text[i] == '.') {
    ++i;
    while (i < n && isDigit(text[i])) fracPart += text[i++];
    digitCount += fracPart.size();
  }
  if (digitCount == 0) return 0.0;
  norm += intPart.empty() ? "0" : intPart;
  if (!fracPart.empty()) norm += '.' + fracPart;

  if (i < n && (text[i] == 'E' || text[i] == 'e' || text[i] == 'D' || text[i] == 'd')) {
    std::size_t j = i + 1;
    std::string exp = "e";
    if (j < n && (text[j] == '+' || text[j] == '-')) exp += text[j++];
    const std::size_t firstDigit = j;
    while (j < n && isDigit(text[j])) exp += text[j++];
    if (j > firstDigit) norm += exp;  // "1E" and "1E+" stop before the letter
  }

  double value = 0.0;
  const auto r = std::from_chars(norm.data(), norm.data() + norm.size(), value);
  // Values outside the range of double (too large, or too small to be anything
  // but zero) give 0 rather than an infinity that would spread through sums.
  if (r.ec != std::errc()) return 0.0;
  return value;
}

std::string padded(float value) { return paddedText(value, 7); }
std::string padded(double value) { return paddedText(value, 15); }

std::string bare(float value) { return withoutLeadingBlank(padded(value)); }
std::string bare(double value) { return withoutLeadingBlank(padded(value)); }

std::string printed(float value) { return padded(value) + ' '; }
std::string printed(double value) { return padded(value) + ' '; }

float roundTo(double value, int digits) {
  const double scale = std::pow(10.0, digits);
  return static_cast<float>(std::floor(value * scale + 0.5) / scale);
}

}  // namespace marloven
