// marloven-cli run-engine DIR: the simulation engine on a prepared scratch
// directory, as the program starts it after a run's set-up.
#pragma once

#include <string>
#include <vector>

#include "cli/context.h"

namespace marloven::cli {

// Runs tarn64 in DIR and lists the result files it left there, or the errors
// of its log when it failed. The engine is MARLOVEN_TARN64 when set, else the
// tarn64 beside this program (installed tree, or the build tree's engine
// folder), else tarn64 on the PATH.
int runEngine(Context& c, const std::vector<std::string>& args);

// Starts the engine in dir and waits for it: its exit status, or -1 with the
// reason in `why` when it could not be started.
int spawnEngine(const std::string& dir, const std::string& engine, std::string& why);

// The engine this program starts.
std::string engineProgram();

}  // namespace marloven::cli
