#include "project/unit_conversion.h"

#include "common/masks.h"
#include "common/number_text.h"

namespace marloven {

std::string convertText(std::string_view text, Factor f, int digits, std::string_view m) {
  return applyMask(padded(roundTo(f.apply(leadingNumber(text)), digits)), m);
}

std::string convertSingle(float value, Factor f, int digits, std::string_view m) {
  return convertText(padded(value), f, digits, m);
}

}  // namespace marloven
