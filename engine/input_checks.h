// Checks of the numbers the engine reads, before anything is computed with them:
// each is finite and inside a physical range, or the run stops with BadInput
// naming the file, the line and the field.
#pragma once

#include <string>
#include <string_view>

namespace tarn {

// What a field's text holds. Blanks around the number are not part of it.
struct NumberText {
  enum Kind { Empty, Number, NotANumber, NotFinite } kind = Empty;
  double value = 0;
  bool whole = false;  // the number is the whole text, nothing follows it
};

// Reads the number at the start of text as the shared leading-number rule does
// ("D" exponents, "+" signs), but tells apart text with no number, an infinity
// or NaN spelled out, and a number too large for a double.
NumberText readNumberText(std::string_view text);

// A whole-text number for a control value: NotANumber unless nothing but the
// number (and blanks) is there.
NumberText strictNumber(std::string_view text);

// Checks every numeric field of a run copy (ecalc$.inp): the header's seed and
// weeks per month, the project, economics and weather blocks, the wall, roof
// and window types, the profiles, the zones and their surface rows. Raises
// RunFailure(BadInput) at "ecalc$.inp line <n>" for the first bad value.
void checkRunCopy(std::string_view bytes);

// "<field> <text> ..." messages shared by the readers.
std::string notFiniteMessage(std::string_view field, std::string_view text);

}  // namespace tarn
