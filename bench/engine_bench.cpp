// The largest project a year long: 99 zones of 33 surface rows, 4 weeks per
// month on synthesized weather. The zones are the daylit office perimeter
// zone (rooftop unit, economiser, outside air by its Vent profile), so the
// loads pass, daylighting, the systems pass and the costs all do their work.
#include <benchmark/benchmark.h>

#include <string>

#include "common/file_io.h"
#include "engine/calendar.h"
#include "engine/control_file.h"
#include "engine/economics.h"
#include "engine/loads.h"
#include "engine/model.h"
#include "engine/run_log.h"
#include "engine/systems.h"
#include "engine/weather.h"
#include "project/project_model.h"
#include "project/project_reader.h"

namespace {

marloven::Project largestProject(std::vector<std::string>& sketch) {
  marloven::Project p;
  const auto side = marloven::readProject(
      marloven::readFile(std::string(TARN_FIXTURES) + "/office/office_two_zones.inp"), p);
  sketch = side.sketchLines;
  const marloven::ZoneRecord base = p.zones[1];
  for (int z = 1; z <= marloven::kMaxZones; ++z) {
    marloven::ZoneRecord zr = base;
    zr.fields[marloven::kZoneId] = std::to_string(100 + z);
    zr.rowCount = marloven::kMaxSurfaceRows;
    for (int r = 1; r <= marloven::kMaxSurfaceRows; ++r) {
      marloven::EnvelopeRow row = base.rows[1 + (r - 1) % base.rowCount];
      row.wallOrientation = static_cast<std::int16_t>((r * 45 + z * 15) % 360);
      row.wallArea /= 16.0f;
      row.windowArea /= 16.0f;
      zr.rows[r] = row;
    }
    p.zones[z] = zr;
  }
  p.zoneCount = marloven::kMaxZones;
  return p;
}

void BM_Year99Zones(benchmark::State& state) {
  std::vector<std::string> sketch;
  const marloven::Project project = largestProject(sketch);
  tarn::RunLog log;
  const tarn::RunControl control;
  const tarn::EconomicsInputs economics = tarn::economicsInputs(project);
  for (auto _ : state) {
    const tarn::SimModel model = tarn::buildModel(project, sketch, control, log);
    const tarn::Calendar cal = tarn::buildCalendar(model.year, control, model.occupiedDays, model.holidayCount, 4, log);
    const tarn::WeatherYear w = tarn::synthesize(model.stats, model.site, model.seed, model.year);
    const tarn::LoadsResult loads = tarn::runLoads(model, w, cal, false, 68, 79);
    const tarn::EnergyResult energy = tarn::runSystems(model, loads, w, control, log);
    const tarn::CostResult costs = tarn::computeCosts(economics, energy, false);
    benchmark::DoNotOptimize(costs.lifeCycleCost);
  }
}
BENCHMARK(BM_Year99Zones)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace
