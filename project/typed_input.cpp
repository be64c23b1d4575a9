#include "project/typed_input.h"

#include <cmath>

#include "common/file_error.h"
#include "common/number_text.h"

namespace marloven {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

// The token a typed number is read from: leading blanks skipped, up to a blank
// or a comma.
std::string_view numberToken(std::string_view line) {
  std::size_t i = 0;
  while (i < line.size() && isBlank(line[i])) ++i;
  std::size_t j = i;
  while (j < line.size() && !isBlank(line[j]) && line[j] != ',') ++j;
  return line.substr(i, j - i);
}

// True when the whole token is one number in the form leadingNumber reads.
bool wholeTokenIsNumber(std::string_view t) {
  std::size_t i = 0;
  if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
  bool digits = false;
  while (i < t.size() && t[i] >= '0' && t[i] <= '9') ++i, digits = true;
  if (i < t.size() && t[i] == '.') {
    ++i;
    while (i < t.size() && t[i] >= '0' && t[i] <= '9') ++i, digits = true;
  }
  if (!digits) return false;
  if (i < t.size() && (t[i] == 'E' || t[i] == 'e' || t[i] == 'D' || t[i] == 'd')) {
    ++i;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
    bool expDigits = false;
    while (i < t.size() && t[i] >= '0' && t[i] <= '9') ++i, expDigits = true;
    if (!expDigits) return false;
  }
  return i == t.size();
}

}  // namespace

double inputNumber(std::string_view line) {
  const std::string_view token = numberToken(line);
  if (token.empty()) return 0;
  if (!wholeTokenIsNumber(token)) throw FileError(err::kTypeMismatch, std::string(line));
  return leadingNumber(token);
}

float inputSingle(std::string_view line) {
  const double v = inputNumber(line);
  if (std::isfinite(v) && std::fabs(v) > 3.402823466e38) throw FileError(err::kOverflow, std::string(line));
  return static_cast<float>(v);
}

std::int16_t inputWhole(std::string_view line) {
  const double v = std::nearbyint(inputNumber(line));  // the default mode rounds half to even
  if (!(v >= -32768.0 && v <= 32767.0)) throw FileError(err::kOverflow, std::string(line));
  return static_cast<std::int16_t>(v);
}

std::string inputText(std::string_view line) {
  std::size_t i = 0;
  while (i < line.size() && isBlank(line[i])) ++i;
  std::size_t j = line.find(',', i);
  if (j == std::string_view::npos) j = line.size();
  return std::string(line.substr(i, j - i));
}

}  // namespace marloven
