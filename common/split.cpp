#include "common/split.h"

namespace marloven {

std::vector<std::string> splitBlanks(std::string_view text, std::size_t maxTokens) {
  std::vector<std::string> tokens;
  std::string acc;
  char prev = ' ';
  const std::size_t n = text.size();
  for (std::size_t i = 0; i < n; ++i) {
    const char c = text[i];
    bool ends = false;
    if (i + 1 == n) {
      // The last character is kept even when it is a blank: "1 2 " gives "2 ".
      acc += c;
      ends = true;
    } else if (c == ' ' && prev != ' ') {
      ends = true;
    } else {
      acc += c;
    }
    prev = c;
    if (ends) {
      // The accumulator always holds at least the previous (non-blank) character
      // here, so no empty token can appear.
      tokens.push_back(std::move(acc));
      acc.clear();
      if (maxTokens > 0 && tokens.size() == maxTokens) break;
    }
  }
  return tokens;
}

}  // namespace marloven
