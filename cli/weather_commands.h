// marloven-cli weather ...: the weather database of the installation.
#pragma once

#include <string>
#include <vector>

#include "cli/context.h"

namespace marloven::cli {

// weather import FILE.epw [--group NAME] [--city NAME]: monthly statistics of
// a recorded hourly weather file added to weather/weth.asc as Save As New adds
// a record.
int weatherImport(Context& c, const std::vector<std::string>& args);

}  // namespace marloven::cli
