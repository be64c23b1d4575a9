// Format masks of stored and printed fields.
#pragma once

#include <string>
#include <string_view>

namespace marloven {

// A mask of "@" characters pads the text on the left with blanks up to the
// mask's length and never cuts a longer text. A mask of "&" characters passes
// the text unchanged, with a literal leading blank when the mask begins with one
// (" &&&&" on "12" gives " 12"). An empty mask passes the text unchanged.
std::string applyMask(std::string_view text, std::string_view mask);

}  // namespace marloven
