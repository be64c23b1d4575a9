// marloven-cli sketch ...: the building sketch without the sketch screen.
#pragma once

#include <string>
#include <vector>

#include "cli/context.h"

namespace marloven::cli {

// sketch extract [--from PROJECT.inp]: splits sketch/bld_mtx.all into level
// files, extracts the zones (the scratch files under temp/), rebuilds
// bld_mtx.all and prints the zones with their areas and surface rows. With
// --from, the project file is read first as a retrieve would, which puts its
// sketch block in bld_mtx.all; without it the remembered unit choice applies.
int sketchExtract(Context& c, const std::vector<std::string>& args);

}  // namespace marloven::cli
