#include "common/masks.h"

namespace marloven {

std::string applyMask(std::string_view text, std::string_view mask) {
  if (mask.find('@') != std::string_view::npos) {
    // Right-aligned in the mask's width; a longer text is kept whole.
    std::string out;
    if (text.size() < mask.size()) out.assign(mask.size() - text.size(), ' ');
    out += text;
    return out;
  }
  // "&" masks pass the text; a leading blank in the mask is literal.
  std::string out;
  if (!mask.empty() && mask.front() == ' ') out += ' ';
  out += text;
  return out;
}

}  // namespace marloven
