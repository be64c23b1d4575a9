// Checks of the numbers the engine reads, before anything is computed with them:
// each is finite and inside a physical range, or the run stops with BadInput
// naming the file, the line and the field.
#pragma once

#include <string>
#include <string_view>

#include "common/number_text.h"

namespace tarn {

using marloven::NumberText;
using marloven::readNumberText;
using marloven::strictNumber;

// Checks every numeric field of a run copy (ecalc$.inp): the header's seed and
// weeks per month, the project, economics and weather blocks, the wall, roof
// and window types, the profiles, the zones and their surface rows. Raises
// RunFailure(BadInput) at "ecalc$.inp line <n>" for the first bad value.
void checkRunCopy(std::string_view bytes);

// "<field> <text> ..." messages shared by the readers.
std::string notFiniteMessage(std::string_view field, std::string_view text);

}  // namespace tarn
