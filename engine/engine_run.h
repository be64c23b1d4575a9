// The whole run in a scratch directory: inputs, weather, loads, report files,
// log. Called by tarn64's main, by tests and by the benchmark.
#pragma once

#include <filesystem>

#include "engine/run_log.h"

namespace tarn {

ExitCode runEngine(const std::filesystem::path& dir);

}  // namespace tarn
