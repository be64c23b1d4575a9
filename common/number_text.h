// Number <-> text rules that every file, screen and report of the program shares.
//
// Everything here is locale-independent: the desktop toolkit switches the process
// to the user's locale, and a decimal comma must never reach a file.
//
//   leadingNumber("  12.5 ft")  -> 12.5      padded(0.5f)   -> " .5"
//   leadingNumber("abc")        -> 0         padded(-0.25f) -> "-.25"
//   bare(3.1f)                  -> "3.1"     printed(5)     -> " 5 "
#pragma once

#include <string>
#include <string_view>

namespace marloven {

// The number at the start of a text: leading blanks (and tabs) are skipped, then
// an optional sign, digits, an optional fraction and an optional exponent
// ("E", "e", "D" or "d" followed by digits) are taken up to the first character
// that cannot continue the number. Text with no digits there gives 0. Never fails.
double leadingNumber(std::string_view text);

// What a field's text holds. Blanks around the number are not part of it.
struct NumberText {
  enum Kind { Empty, Number, NotANumber, NotFinite } kind = Empty;
  double value = 0;
  bool whole = false;  // the number is the whole text, nothing follows it
};

// Reads the number at the start of text as leadingNumber does ("D" exponents,
// "+" signs), but tells apart text with no number, an infinity or NaN spelled
// out, and a number too large for a double (one too small is 0).
// Without leading and trailing blanks and tabs.
std::string_view trimmedBlanks(std::string_view s);
// Whether s starts with word (lower case), in any case.
bool startsNoCase(std::string_view s, std::string_view word);

NumberText readNumberText(std::string_view text);

// A whole-text number: NotANumber unless nothing but the number (and blanks)
// is there.
NumberText strictNumber(std::string_view text);

// Padded number text: the shortest decimal text that reads back to the same value
// (at most 7 significant digits for single precision, 15 for double; when no text
// of that many digits reads back, the value rounded to that many digits), with
// one leading blank when the value is not negative and a minus sign otherwise.
// No zero before the decimal point (".5"), no trailing zeros, no trailing point.
// Values whose decimal exponent is below -4, or at or above the digit count
// (7 / 15), use the exponent form "1.5E+07", "1E-05", "-2.5E-12" (sign and at
// least two digits after the "E"). Zero, negative zero included, is " 0".
std::string padded(float value);
std::string padded(double value);
inline std::string padded(int value) { return padded(static_cast<double>(value)); }

// Bare number text: the padded text without its leading blank.
std::string bare(float value);
std::string bare(double value);
inline std::string bare(int value) { return bare(static_cast<double>(value)); }

// A number printed to a file: the padded text plus one trailing blank (" 5 ").
std::string printed(float value);
std::string printed(double value);
inline std::string printed(int value) { return printed(static_cast<double>(value)); }

// RoundTo(value, digits) = floor(value * 10^digits + 0.5) / 10^digits, computed
// in double precision, the result in single precision. Halves therefore round
// up, also for negative values: RoundTo(-2.5, 0) is -2.
float roundTo(double value, int digits);

}  // namespace marloven
