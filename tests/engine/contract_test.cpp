// The engine as a program: files in, files out, log and exit code; the load
// table read back by the readers' columns; the standard test cases.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>

#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "engine/engine_run.h"
#include "engine/loads.h"
#include "engine/run_log.h"

namespace fs = std::filesystem;
using namespace tarn;

namespace {

class ScratchDir {
 public:
  ScratchDir() {
    path_ = fs::temp_directory_path() / ("tarn64-test-" + std::to_string(std::random_device{}()));
    fs::create_directories(path_);
  }
  ~ScratchDir() { fs::remove_all(path_); }
  const fs::path& path() const { return path_; }
  void put(const std::string& name, const std::string& bytes) const { marloven::writeFileAtomic((path_ / name).string(), bytes); }
  std::string get(const std::string& name) const { return marloven::readFile((path_ / name).string()); }
  bool has(const std::string& name) const { return fs::exists(path_ / name); }

 private:
  fs::path path_;
};

std::string fixture(const std::string& name) { return marloven::readFile(std::string(TARN_FIXTURES) + "/bestest/" + name); }

std::string simulatedControl(int runType) {
  return "Run type  :  " + std::to_string(runType) + "\r\nWthr type :  0\r\n1st day   :  4 \r\nRun begin :  1\r\n"
         "Run end   :  365\r\nHourly out:  0 \r\nSkip month: \r\nComfort   :  68       79 \r\n";
}

double cut(const std::string& line, std::size_t col, std::size_t width) {
  return marloven::leadingNumber(marloven::midText(line, col, width));
}

void expectNoResults(const ScratchDir& d) {
  for (const char* f : {"sim$.out", "ecalc$.wth", "ecalc$.flt", "sim$.out.part"}) EXPECT_FALSE(d.has(f)) << f;
}

}  // namespace

TEST(Contract, MissingOrTruncatedRunCopy) {
  ScratchDir d;
  d.put("ecalc$.tmp", simulatedControl(3));
  d.put("sim$.out", "old results");
  EXPECT_EQ(runEngine(d.path()), ExitCode::BadInput);
  expectNoResults(d);  // an old result never survives a failed run
  EXPECT_NE(d.get("tarn64.err").find("ERROR ecalc$.inp: cannot read the file"), std::string::npos);

  const std::string inp = fixture("case600.inp");
  d.put("ecalc$.inp", inp.substr(0, inp.find("ZONES") + 40));
  EXPECT_EQ(runEngine(d.path()), ExitCode::BadInput);
  expectNoResults(d);
  const std::string log = d.get("tarn64.err");
  EXPECT_NE(log.find("the run copy ends early, after line"), std::string::npos) << log;
  EXPECT_NE(log.find("STATUS FAILED 1"), std::string::npos);
}

TEST(Contract, BadControlLines) {
  ScratchDir d;
  d.put("ecalc$.inp", fixture("case600.inp"));
  std::string tmp = simulatedControl(3);
  tmp.replace(tmp.find("1st day   :  4"), 14, "1st day   :  9");
  d.put("ecalc$.tmp", tmp);
  EXPECT_EQ(runEngine(d.path()), ExitCode::BadInput);
  EXPECT_NE(d.get("tarn64.err").find("ERROR ecalc$.tmp line 3: weekday of 1 January must be 1 to 7"), std::string::npos);
  expectNoResults(d);

  d.put("ecalc$.tmp", "Run type  :  3\r\nWthr type :  0\r\n");
  EXPECT_EQ(runEngine(d.path()), ExitCode::BadInput);
  EXPECT_NE(d.get("tarn64.err").find("ecalc$.tmp line 3: the control file ends before the \"1st day\" line"),
            std::string::npos);
}

TEST(Contract, MissingRecordedWeather) {
  ScratchDir d;
  d.put("ecalc$.inp", fixture("case600.inp"));
  d.put("ecalc$.tmp", fixture("hvac.tmp"));
  EXPECT_EQ(runEngine(d.path()), ExitCode::BadWeather);
  EXPECT_NE(d.get("tarn64.err").find("ERROR ecalc$.tmy: the recorded weather file is missing"), std::string::npos);
  expectNoResults(d);
}

TEST(Contract, CheckRunWritesNoResults) {
  ScratchDir d;
  d.put("ecalc$.inp", fixture("case600.inp"));
  d.put("ecalc$.tmp", "1\r\n");
  EXPECT_EQ(runEngine(d.path()), ExitCode::Ok);
  expectNoResults(d);
  EXPECT_NE(d.get("tarn64.err").find("STATUS OK"), std::string::npos);
}

// A simulated-weather run: the load table read by the readers' columns closes
// (the categories add up to the total in every column), anchors are unique,
// lines fit 132 columns, and the same seed gives the same report.
TEST(Contract, SimulatedRunReportsAClosedLoadTable) {
  ScratchDir d;
  setenv("SOURCE_DATE_EPOCH", "1700000000", 1);
  d.put("ecalc$.inp", fixture("case900.inp"));
  d.put("ecalc$.tmp", simulatedControl(3));
  d.put("ecalc$.out", "front part\r\n ... PAGE 7 ...\r\n");
  ASSERT_EQ(runEngine(d.path()), ExitCode::Ok) << d.get("tarn64.err");
  EXPECT_EQ(d.get("ecalc$.out"), "front part\r\n ... PAGE 7 ...\r\n");
  const std::string sim = d.get("sim$.out");
  const std::vector<std::string> lines = marloven::splitLines(sim);
  std::size_t roof = 0;
  int anchors = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_LE(lines[i].size(), 132u);
    if (lines[i].rfind("ROOF", 0) == 0) roof = i, ++anchors;
    EXPECT_NE(lines[i].rfind("III.", 0) == 0 && i > 10, true);
  }
  ASSERT_EQ(anchors, 1);
  EXPECT_NE(lines[roof - 13].find("... PAGE  8 ..."), std::string::npos);  // pages continue the front part
  for (std::size_t col : {29u, 45u, 100u, 117u}) {
    double sum = 0;
    for (int r = 0; r < 12; ++r) sum += cut(lines[roof + r], col, 8);
    EXPECT_NEAR(sum, cut(lines[roof + 13], col, 8), 1e-9) << "column " << col;
  }
  EXPECT_LT(cut(lines[roof + 13], 100, 8), 0.0);  // heating total negative
  EXPECT_GT(cut(lines[roof + 13], 117, 8), 0.0);  // cooling total positive
  EXPECT_EQ(lines[roof + 20].substr(0, 12), "TIME OF PEAK");
  EXPECT_EQ(marloven::midText(lines[roof + 20], 36, 3), ":00");
  EXPECT_EQ(lines[roof + 21].substr(0, 12), "DATE OF PEAK");
  EXPECT_EQ(marloven::midText(lines[roof + 21], 30, 1), " ");
  const std::string wth = d.get("ecalc$.wth");
  EXPECT_NE(wth.find("\r\nVIII.  W E A T H E R"), std::string::npos);
  EXPECT_NE(wth.find("\r\n DAILY WEATHER, JANUARY 2025"), std::string::npos);
  EXPECT_NE(wth.find("\r\nIX.  S P A C E"), std::string::npos);
  EXPECT_EQ(d.get("ecalc$.flt"), "");

  ASSERT_EQ(runEngine(d.path()), ExitCode::Ok);
  EXPECT_EQ(d.get("sim$.out"), sim);
  EXPECT_EQ(d.get("ecalc$.wth"), wth);
}

// The twelve categories add up to the zone's load every hour (to rounding)
// and to the total every month: the standard room, and an office whose
// outside air goes to the coil in some hours and into the zone in others,
// with windows opened beside it.
TEST(Attribution, CategoriesCloseEveryHourAndMonth) {
  std::string office = marloven::readFile(std::string(TARN_FIXTURES) + "/office/office_two_zones.inp");
  for (const auto& [from, to] : {std::pair{"Nat. Vent No", "Nat. Vent Yes"}, {"CFM/sqft. 0", "CFM/sqft. 1"}})
    for (std::size_t at = office.find(from); at != std::string::npos; at = office.find(from, at))
      office.replace(at, std::string(from).size(), to);
  for (const std::string& project : {fixture("case600.inp"), office}) {
    ScratchDir d;
    d.put("ecalc$.inp", project);
    d.put("ecalc$.tmp", simulatedControl(3));
    RunLog log;
    const LoadsResult r = simulate(d.path(), log).value().loads;
    EXPECT_LT(r.balanceError, 1e-9);
    for (int m = 0; m < 12; ++m)
      for (const LoadRows* rows : {&r.monthHeating[m], &r.monthCooling[m]}) {
        double sum = 0;
        for (double v : rows->rows) sum += v;
        EXPECT_NEAR(sum, rows->total, 1e-3 * std::fabs(rows->total) + 1e-6) << "month " << m + 1;
      }
    EXPECT_LT(r.annualHeating().total, 0.0);
    EXPECT_GT(r.annualCooling().total, 0.0);
    EXPECT_EQ(r.annualHeating().rows[kPeopleLatent], 0.0);
    EXPECT_TRUE(r.peakHeating.any && r.peakCooling.any);
  }
}

// The standard lightweight and heavyweight cases on the recorded Denver year.
// A standard case run in-process on the recorded Denver year, so that the
// totals are compared unrounded (the report prints 0.1 MBtu, 0.03 MWh).
static LoadsResult standardCase(const std::string& file, const std::string& weatherPath, bool passive) {
  ScratchDir d;
  d.put("ecalc$.inp", fixture(file));
  d.put("ecalc$.tmp", fixture(passive ? "free_float.tmp" : "hvac.tmp"));
  d.put("ecalc$.tmy", marloven::readFile(weatherPath));
  RunLog log;
  return simulate(d.path(), log).value().loads;
}

TEST(StandardCases, AgainstTheReferencePrograms) {
  const std::string weather = std::string(TARN_WEATHER_DIR) + "/recorded/725650TYCST.epw";
  if (!fs::exists(weather)) GTEST_SKIP() << "recorded Denver weather not found at " << weather;
  struct Range { double lo, hi; };
  struct Case { const char* file; Range heat, cool, peakHeat, peakCool, tMin, tMax, tMean; };
  // Reference programs' min/max (heating and sensible cooling MWh, peaks kW,
  // free-float zone temperatures C), the edition that uses this weather file.
  const Case cases[] = {
      {"case600.inp", {3.993, 4.504}, {5.432, 6.162}, {3.020, 3.359}, {5.422, 6.481}, {-13.8, -9.9},
       {62.4, 68.4}, {24.3, 26.1}},
      {"case900.inp", {1.379, 1.814}, {2.267, 2.714}, {2.443, 2.778}, {2.556, 3.376}, {0.6, 2.2},
       {43.3, 46.0}, {24.5, 25.7}}};
  auto check = [](const char* file, const char* what, double v, Range r) {
    EXPECT_TRUE(v >= r.lo && v <= r.hi) << file << " " << what << " " << v << " outside " << r.lo << ".." << r.hi;
  };
  constexpr double kWh = 0.293071e-3;  // Btu -> kWh
  for (const Case& c : cases) {
    const LoadsResult hvac = standardCase(c.file, weather, false);
    const LoadRows heating = hvac.annualHeating(), cooling = hvac.annualCooling();
    auto sensible = [](const LoadRows& r) {
      return r.total - r.rows[kPeopleLatent] - r.rows[kInfiltrationLatent] - r.rows[kVentilationLatent];
    };
    check(c.file, "heating", -heating.total * kWh / 1000.0, c.heat);
    check(c.file, "cooling", sensible(cooling) * kWh / 1000.0, c.cool);
    check(c.file, "peak heating", -hvac.peakHeating.load.total * kWh, c.peakHeat);
    check(c.file, "peak cooling", sensible(hvac.peakCooling.load) * kWh, c.peakCool);

    // The result is kept: a reference into a temporary would dangle.
    const auto freeFloat = standardCase(c.file, weather, true);
    const ZoneTemperatures& t = freeFloat.zones.at(0).temps;
    auto celsius = [](double f) { return (f - 32.0) / 1.8; };
    check(c.file, "minimum", celsius(t.allMin), c.tMin);
    check(c.file, "maximum", celsius(t.allMax), c.tMax);
    check(c.file, "mean", celsius(t.annualSum / t.annualWeight), c.tMean);
    if (std::getenv("TARN_PRINT_CASES"))
      std::printf("%s heat %.3f cool %.3f peaks %.3f %.3f  FF %.2f %.2f %.2f\n", c.file, -heating.total * kWh / 1000.0,
                  sensible(cooling) * kWh / 1000.0, -hvac.peakHeating.load.total * kWh, sensible(hvac.peakCooling.load) * kWh,
                  celsius(t.allMin), celsius(t.allMax), celsius(t.annualSum / t.annualWeight));
  }
}
