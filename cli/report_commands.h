// marloven-cli report ...: the report's front part without a window.
#pragma once

#include <string>
#include <vector>

#include "cli/context.h"

namespace marloven::cli {

int reportFront(Context& c, const std::vector<std::string>& args);

}  // namespace marloven::cli
