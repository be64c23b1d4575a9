// Two whole years. The largest project: 99 zones of 33 surface rows, 4 weeks
// per month on synthesized weather; the zones are the daylit office perimeter
// zone (rooftop unit, economiser, outside air by its Vent profile), so the
// loads pass, daylighting, the systems pass and the costs all do their work.
// The smallest: the one-zone standard case on the recorded Denver year, the
// whole run as tarn64 makes it (files read, report and weather summary written).
#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "common/file_io.h"
#include "engine/calendar.h"
#include "engine/control_file.h"
#include "engine/economics.h"
#include "engine/engine_run.h"
#include "engine/loads.h"
#include "engine/model.h"
#include "engine/run_log.h"
#include "engine/systems.h"
#include "engine/weather.h"
#include "project/project_model.h"
#include "project/project_reader.h"
#include "largest_project.h"

namespace {

marloven::Project largestProject(std::vector<std::string>& sketch) {
  marloven::Project p;
  const auto side = marloven::readProject(
      marloven::readFile(std::string(TARN_FIXTURES) + "/office/office_two_zones.inp"), p);
  sketch = side.sketchLines;
  bench::makeLargest(p);
  return p;
}

// One year of the largest project; a named function, never inlined, so that a
// profiler can count one call of it.
[[gnu::noinline]] double year99Zones(const marloven::Project& project, const std::vector<std::string>& sketch,
                   const tarn::EconomicsInputs& economics) {
  tarn::RunLog log;
  const tarn::RunControl control;
  const tarn::SimModel model = tarn::buildModel(project, sketch, control, log);
  const tarn::Calendar cal = tarn::buildCalendar(model.year, control, model.occupiedDays, model.holidayCount, 4, log);
  const tarn::WeatherYear w = tarn::synthesize(model.stats, model.site, model.seed, model.year);
  const tarn::LoadsResult loads = tarn::runLoads(model, w, cal, false, 68, 79);
  const tarn::EnergyResult energy = tarn::runSystems(model, loads, w, control, log);
  return tarn::computeCosts(economics, energy, false).lifeCycleCost;
}

void BM_Year99Zones(benchmark::State& state) {
  std::vector<std::string> sketch;
  const marloven::Project project = largestProject(sketch);
  const tarn::EconomicsInputs economics = tarn::economicsInputs(project);
  for (auto _ : state) benchmark::DoNotOptimize(year99Zones(project, sketch, economics));
}
BENCHMARK(BM_Year99Zones)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

// A scratch directory holding case 600, its control file and the recorded
// Denver year, removed when the benchmark ends.
struct OneZoneScratch {
  std::filesystem::path dir;
  OneZoneScratch() {
    dir = std::filesystem::temp_directory_path() / ("tarn64-bench-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    const std::string cases = std::string(TARN_FIXTURES) + "/bestest/";
    std::filesystem::copy_file(cases + "case600.inp", dir / "ecalc$.inp");
    std::filesystem::copy_file(cases + "hvac.tmp", dir / "ecalc$.tmp");
    std::filesystem::copy_file(std::string(TARN_WEATHER_DIR) + "/recorded/725650TYCST.epw", dir / "ecalc$.tmy");
  }
  ~OneZoneScratch() {
    std::error_code ec;
    std::filesystem::remove_all(dir, ec);
  }
};

void BM_OneZoneRecordedYear(benchmark::State& state) {
  if (!std::filesystem::exists(std::string(TARN_WEATHER_DIR) + "/recorded/725650TYCST.epw")) {
    state.SkipWithError("recorded Denver weather not found");
    return;
  }
  const OneZoneScratch scratch;
  for (auto _ : state) {
    if (tarn::runEngine(scratch.dir) != tarn::ExitCode::Ok) state.SkipWithError("tarn64 run failed");
  }
}
BENCHMARK(BM_OneZoneRecordedYear)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace
