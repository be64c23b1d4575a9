// Opening the weather screen reads the database's groups and the cities of a
// group; loading a place walks the file to its record. Measured on the shipped
// database and on one of the largest size the program reads (3000 records).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "common/file_io.h"
#include "weather/weather_database.h"

namespace marloven {
namespace {

// The source tree's shipped database, found from this file's place in it.
const std::string kShipped =
    (std::filesystem::path(__FILE__).parent_path().parent_path() / "install/weather/weth.asc").string();

// 3000 records in 100 groups made from the shipped records.
const std::string& fullDatabase() {
  static const std::string bytes = [] {
    const std::string shipped = readFile(kShipped);
    const auto heads = readRecordHeads(shipped);
    std::string out;
    for (int g = 0; g < 100; ++g)
      for (int c = 0; c < 30; ++c) {
        WeatherFields f = *loadRecord(shipped, heads[static_cast<std::size_t>(c)].city,
                                      heads[static_cast<std::size_t>(c)].state, UnitSystem::IP);
        f.state = "State " + std::to_string(g);
        f.city = "City " + std::to_string(c);
        out += formatRecord(f, UnitSystem::IP, c == 0, "St");
      }
    return out;
  }();
  return bytes;
}

void listAll(benchmark::State& state, const std::string& bytes) {
  for (auto _ : state) {
    const auto heads = readRecordHeads(bytes);
    std::size_t cities = 0;
    for (const auto& g : listGroups(heads)) cities += listCities(heads, g.state).size();
    benchmark::DoNotOptimize(cities);
  }
}

void ShippedGroupsAndCitiesFromFile(benchmark::State& state) {
  for (auto _ : state) {
    const auto heads = readRecordHeadsFile(kShipped);
    std::size_t cities = 0;
    for (const auto& g : listGroups(heads)) cities += listCities(heads, g.state).size();
    benchmark::DoNotOptimize(cities);
  }
}
BENCHMARK(ShippedGroupsAndCitiesFromFile)->Unit(benchmark::kMillisecond);

void ShippedGroupsAndCities(benchmark::State& state) { listAll(state, readFile(kShipped)); }
BENCHMARK(ShippedGroupsAndCities)->Unit(benchmark::kMillisecond);

void FullGroupsAndCities(benchmark::State& state) { listAll(state, fullDatabase()); }
BENCHMARK(FullGroupsAndCities)->Unit(benchmark::kMillisecond);

void FullLoadLastRecordInSi(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(loadRecord(fullDatabase(), "City 29", "State 99", UnitSystem::SI));
}
BENCHMARK(FullLoadLastRecordInSi)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marloven
