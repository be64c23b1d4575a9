// A whole run as marloven-cli run does it, in its three parts: the set-up
// (checks, run copy, control file, report's front part), the engine as its
// own process, and the join of the report. On the sample office and on the
// largest project (99 zones of 33 surface rows).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "cli/engine_commands.h"
#include "common/file_io.h"
#include "common/prompt.h"
#include "project/project_reader.h"
#include "run/run_setup.h"
#include "largest_project.h"

namespace {

namespace fs = std::filesystem;

class Silent : public marloven::Prompt {
 public:
  void beep() override {}
  void message(marloven::Icon, std::string_view, std::string_view) override {}
  marloven::Answer ask(marloven::Buttons, marloven::Icon, std::string_view, std::string_view) override {
    return marloven::Answer::No;
  }
  std::optional<std::string> input(std::string_view, std::string_view, std::string_view) override { return {}; }
};

struct Case {
  marloven::AppState state;
  std::vector<std::string> sketch;
  std::string scratch;
};

// The sample office, or the largest project made from it.
Case makeCase(bool largest) {
  Case c{marloven::AppState(marloven::Installation(std::string(SOURCE_DIR) + "/install")), {}, {}};
  marloven::Project& p = c.state.project;
  c.sketch = marloven::readProject(marloven::readFile(std::string(SOURCE_DIR) + "/install/sample/office.inp"), p)
                 .sketchLines;
  if (largest) bench::makeLargest(p);
  c.scratch = (fs::temp_directory_path() / (largest ? "marloven-bench-99" : "marloven-bench-1")).string();
  fs::create_directories(c.scratch);
  return c;
}

bool setUp(Case& c) {
  Silent prompt;
  marloven::RunChoices choices = marloven::initialChoices(c.state);
  choices.repeatWeather = true;
  return marloven::setUpRun(c.state, choices, c.scratch, prompt, [] { return 0.5; }, {"23 Nov 2026", "12:00"},
                            c.sketch)
      .has_value();
}

void BM_SetUp(benchmark::State& state) {
  Case c = makeCase(state.range(0) != 0);
  for (auto _ : state)
    if (!setUp(c)) state.SkipWithError("the set-up stopped");
}

void BM_Engine(benchmark::State& state) {
  Case c = makeCase(state.range(0) != 0);
  if (!setUp(c)) state.SkipWithError("the set-up stopped");
  for (auto _ : state) {
    std::string why;
    if (marloven::cli::spawnEngine(c.scratch, TARN64, why) != 0) state.SkipWithError(("engine: " + why).c_str());
  }
}

void BM_Join(benchmark::State& state) {
  Case c = makeCase(state.range(0) != 0);
  if (!setUp(c)) state.SkipWithError("the set-up stopped");
  std::string why;
  marloven::cli::spawnEngine(c.scratch, TARN64, why);
  const std::string front = marloven::readFile(marloven::joinPath(c.scratch, "ecalc$.out"));
  for (auto _ : state) {
    state.PauseTiming();
    marloven::writeFileAtomic(marloven::joinPath(c.scratch, "ecalc$.out"), front);
    state.ResumeTiming();
    marloven::joinReport(c.scratch);
  }
}

// Argument 0: the sample office; 1: 99 zones.
BENCHMARK(BM_SetUp)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Engine)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Join)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
