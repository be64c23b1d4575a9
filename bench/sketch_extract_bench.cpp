// Zone and surface extraction of a full sketch: 10 levels of 60 x 80 cells,
// each with 9 zones (90 in all, near the model's 99) in blocks separated by
// one-cell courtyards and pierced by light wells, so that walls are many and
// every wall scans across to its neighbours.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "common/file_io.h"
#include "common/prompt.h"
#include "sketch/extract_zones.h"
#include "sketch/level_files.h"

namespace marloven {
namespace {

constexpr int kLevels = 10;

struct FullSketch {
  SketchMatrix m;
  std::vector<std::string> levels;

  FullSketch() {
    m.setGridSize(2);
    m.levelCount = kLevels;
    for (int level = 1; level <= kLevels; ++level) {
      m.currentLevel = static_cast<std::int16_t>(level);
      m.floorsInLevel = level == 1 ? 2 : 1;
      m.setRoomHeight(12);
      m.clearCells();
      // Blocks of 19 x 26 cells on a 20 x 27 pitch with a light well every
      // 4 rows and 5 columns; upper levels lose a block here and there so the
      // levels below get roofs.
      for (int r = 1; r <= kGridRows; ++r)
        for (int c = 1; c <= kGridCols; ++c) {
          const int br = std::min((r - 1) / 20, 2), bc = std::min((c - 1) / 27, 2);
          const bool gap = (r - 1) % 20 == 19 || (c - 1) % 27 == 26;
          const bool well = r % 4 == 2 && c % 5 == 3;
          const bool missing = level > 1 && (br * 3 + bc + level) % 5 == 0;
          if (!gap && !well && !missing) m.cells[r][c] = static_cast<std::int16_t>(br * 3 + bc + 1);
        }
      m.levelHeader[kHeaderGridSize] = m.gridSize;
      m.levelHeader[kHeaderFloors] = m.floorsInLevel;
      m.levelHeader[kHeaderRoomHeight] = m.roomHeight;
      m.sumZoneAreas();
      levels.push_back(formatLevel(m));
    }
  }
};

class SilentPrompt : public Prompt {
 public:
  void beep() override {}
  void message(Icon, std::string_view, std::string_view) override { ++messages; }
  Answer ask(Buttons, Icon, std::string_view, std::string_view) override { return Answer::No; }
  std::optional<std::string> input(std::string_view, std::string_view, std::string_view) override { return {}; }
  int messages = 0;
};

void BM_ComputeExtraction(benchmark::State& state) {
  const FullSketch s;
  for (auto _ : state) {
    Extraction x = computeExtraction(s.m, s.levels, UnitSystem::IP);
    benchmark::DoNotOptimize(x);
  }
}
BENCHMARK(BM_ComputeExtraction)->Unit(benchmark::kMillisecond);

// The whole pass as the sketch screen's exit runs it: level files read,
// scratch files written, bld_mtx.all rebuilt.
void BM_ExtractZonesWithFiles(benchmark::State& state) {
  const FullSketch s;
  namespace fs = std::filesystem;
  const fs::path dir = fs::temp_directory_path() / ("marloven-bench-" + std::to_string(std::random_device{}()));
  fs::create_directories(dir / "temp");
  fs::create_directories(dir / "sketch");
  for (int level = 1; level <= kLevels; ++level)
    writeFileAtomic(levelFilePath(dir.string(), level), s.levels[level - 1]);
  SilentPrompt prompt;
  for (auto _ : state) {
    Project p;
    p.units = UnitSystem::IP;
    benchmark::DoNotOptimize(extractZones(s.m, dir.string(), p, prompt));
  }
  if (prompt.messages > 0) state.SkipWithError("extraction failed");
  fs::remove_all(dir);
}
BENCHMARK(BM_ExtractZonesWithFiles)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marloven
