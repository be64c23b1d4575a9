// temp/ltshlf.dat: the daylighting controls and light shelves of the
// daylighted zones. The run set-up writes it before the report, which echoes
// its first 66 lines; the engine reads the controls and shelf columns from it.
#pragma once

#include <string>

#include "project/project_model.h"

namespace marloven {

inline constexpr int kLightShelfLines = 66;

// The file's text in the project's units: the control lines with their
// defaults, one line per daylighted zone (depth and target from the zone, no
// shelf, shelf height at the top of the zone's highest window, reflectance
// .80), then empty lines up to line 66. Zones past line 66 follow it.
std::string lightShelfText(const Project& p);

// Writes the file when a zone is daylighted; true when it did.
bool writeLightShelfFile(const std::string& installDir, const Project& p);

}  // namespace marloven
