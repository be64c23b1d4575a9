// The splitting rule for blank-separated values inside one line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace marloven {

// Walks the text keeping the previous character (a blank at the start) and an
// accumulator. A blank after a non-blank ends a token; at the last character the
// character is first added, then the token ends; every other character, a blank
// after a blank included, goes into the accumulator. So runs of blanks make no
// empty tokens, a token may start with blanks, and the last token may keep a
// trailing blank ("1 2 " gives "1" and "2 "). Leading-number parsing ignores both.
//
// With maxTokens > 0 the walk stops when a further token would be the
// (maxTokens + 1)-th; that token is not returned.
std::vector<std::string> splitBlanks(std::string_view text, std::size_t maxTokens = 0);

}  // namespace marloven
