// Converting numbers between I-P and SI as the converting project writers do.
//
// A converted number is formed in one order: the leading number of the text,
// the factor applied in double precision, RoundTo the field's digits, number
// text (leading blank when not negative), then the field's mask. Each direction
// has its own constants, which are not exact inverses: 1000 ft2 goes to 93 m2
// and comes back as 1001 ft2.
#pragma once

#include <string>
#include <string_view>

#include "project/project_model.h"

namespace marloven {

// The masks of the converted fields.
namespace mask {
inline constexpr std::string_view A = " &&&&&&&&&&&";
inline constexpr std::string_view B = "&&&&&&&&&&&";
inline constexpr std::string_view C = "@@@@@@";
inline constexpr std::string_view D = "@@@@";
inline constexpr std::string_view E = "@@@@@";
}  // namespace mask

// (value + before) times a factor, or over a divisor, then + after; in this
// order, as the conversion table states each operation.
struct Factor {
  double times = 1.0;
  double over = 0.0;
  double before = 0.0;
  double after = 0.0;
  double apply(double v) const {
    v += before;
    return (over != 0.0 ? v / over : v * times) + after;
  }
};

inline constexpr Factor times(double f) { return Factor{f, 0.0, 0.0, 0.0}; }
inline constexpr Factor over(double f) { return Factor{1.0, f, 0.0, 0.0}; }
inline constexpr Factor kFToC = Factor{1.0, 1.8, -32.0, 0.0};  // less 32, over 1.8
inline constexpr Factor kCToF = Factor{1.8, 0.0, 0.0, 32.0};   // times 1.8, plus 32

// The converted text of a stored text value.
std::string convertText(std::string_view text, Factor f, int digits, std::string_view m);
// The converted text of a single-precision field (turned to text and read back first).
std::string convertSingle(float value, Factor f, int digits, std::string_view m);

}  // namespace marloven
