// The whole run in a scratch directory: inputs, weather, loads, report files,
// log. Called by tarn64's main, by tests and by the benchmark.
#pragma once

#include <filesystem>
#include <optional>

#include "engine/calendar.h"
#include "engine/control_file.h"
#include "engine/economics.h"
#include "engine/energy.h"
#include "engine/loads.h"
#include "engine/model.h"
#include "engine/run_log.h"
#include "engine/weather.h"
#include "project/project_model.h"

namespace tarn {

// Everything a run computes, before any of it is printed.
struct Simulation {
  marloven::Project project;
  RunControl control;
  SimModel model;
  Calendar calendar;
  WeatherYear weather;
  LoadsResult loads;
  EnergyResult energy;
  CostResult costs;
};

// Reads the run's files in `dir` and simulates; none for a check run. Problems
// go to the log; fatal ones raise RunFailure. Writes nothing.
std::optional<Simulation> simulate(const std::filesystem::path& dir, RunLog& log);

ExitCode runEngine(const std::filesystem::path& dir);

}  // namespace tarn
