// marloven-cli run: a project from its file to the joined report in one
// command, as the program's run screen does it; and the summary of finished
// reports side by side.
#pragma once

#include <string>
#include <vector>

#include "cli/context.h"

namespace marloven::cli {

int runProject(Context& c, const std::vector<std::string>& args);
int resultsSummary(Context& c, const std::vector<std::string>& args);

}  // namespace marloven::cli
