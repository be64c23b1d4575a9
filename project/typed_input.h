// Typed reading of one value per line, as the zone scratch files are read.
//
// A number ends at a blank, a comma or the line's end, after any leading blanks;
// an empty value is 0 and anything that is not a number raises FileError 13
// (type mismatch), which is also how the "end" line of a scratch file stops the
// reading of rows. A text value skips leading blanks and runs to a comma or the
// line's end, so a three-token shading code such as "0 0 N" survives.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace marloven {

double inputNumber(std::string_view line);
float inputSingle(std::string_view line);
// Rounded half to even; FileError 6 (overflow) outside -32768..32767.
std::int16_t inputWhole(std::string_view line);
std::string inputText(std::string_view line);

}  // namespace marloven
