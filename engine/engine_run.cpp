#include "engine/engine_run.h"

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <optional>
#include <system_error>

#include "common/file_error.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "engine/calendar.h"
#include "engine/control_file.h"
#include "engine/daylight.h"
#include "engine/economics.h"
#include "engine/hourly_files.h"
#include "engine/input_checks.h"
#include "engine/loads.h"
#include "engine/model.h"
#include "engine/report.h"
#include "engine/systems.h"
#include "engine/weather_readers.h"
#include "project/project_model.h"
#include "project/project_reader.h"

namespace tarn {

namespace fs = std::filesystem;

namespace {

const char* const kOutputs[] = {"sim$.out", "ecalc$.wth", "ecalc$.flt", "ecalc$.hry", "etemp$.hry", "eweth$.hry"};

void removeOutputs(const fs::path& dir) {
  std::error_code ec;
  for (const char* name : kOutputs) fs::remove(dir / name, ec);
  for (const auto& entry : fs::directory_iterator(dir, ec))
    if (entry.path().extension() == ".part") fs::remove(entry.path(), ec);
}

std::string dateOfRun() {
  std::time_t now = std::time(nullptr);
  std::tm tm{};
  if (const char* epoch = std::getenv("SOURCE_DATE_EPOCH")) {
    now = static_cast<std::time_t>(std::strtoll(epoch, nullptr, 10));
    gmtime_r(&now, &tm);
  } else {
    localtime_r(&now, &tm);
  }
  static const char* const kMon[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  char buf[40];
  std::snprintf(buf, sizeof buf, "%d %s %d, %02d:%02d", tm.tm_mday, kMon[tm.tm_mon], tm.tm_year + 1900, tm.tm_hour, tm.tm_min);
  return buf;
}

std::string readInput(const fs::path& path, const char* name, ExitCode code) {
  try {
    return marloven::readFile(path.string());
  } catch (const marloven::FileError& e) {
    throw RunFailure(code, name, std::string("cannot read the file: ") + marloven::errorMessage(e.number()));
  }
}

// The page number of the last page mark of the report's front part, if readable.
int lastPageOfFrontPart(const fs::path& dir) {
  if (!marloven::fileExists((dir / "ecalc$.out").string())) return 0;
  try {
    const std::string text = marloven::readFile((dir / "ecalc$.out").string());
    int page = 0;
    for (const std::string& l : marloven::splitLines(text)) {
      const std::size_t at = l.find("... PAGE ");
      if (at != std::string::npos) page = static_cast<int>(marloven::leadingNumber(std::string_view(l).substr(at + 9)));
    }
    return page;
  } catch (...) {
    return 0;
  }
}

std::string logText(const RunLog& log) {
  std::string s;
  for (const std::string& l : log.lines()) s += l + "\r\n";
  return s;
}

}  // namespace

std::optional<Simulation> simulate(const fs::path& dir, RunLog& log) {
  const std::string inp = readInput(dir / "ecalc$.inp", "ecalc$.inp", ExitCode::BadInput);
  auto sim = std::make_optional<Simulation>();
  Simulation& r = *sim;
  marloven::ReadSideFiles side;
  // Before the reader turns texts into numbers of its own sizes.
  checkRunCopy(inp);
  try {
    side = marloven::readProject(inp, r.project);
  } catch (const marloven::FileError& e) {
    const std::size_t lines = marloven::splitLines(inp).size();
    const std::string what = e.number() == marloven::err::kInputPastEnd
                                 ? "the run copy ends early, after line " + std::to_string(lines)
                                 : "the run copy breaks the line scheme: " + marloven::errorMessage(e.number()) +
                                       (e.detail().empty() ? std::string() : " at \"" + e.detail() + "\"");
    throw RunFailure(ExitCode::BadInput, "ecalc$.inp", what);
  }
  r.control = parseControl(readInput(dir / "ecalc$.tmp", "ecalc$.tmp", ExitCode::BadInput), log);
  r.model = buildModel(r.project, side.sketchLines, r.control, log);
  const fs::path shelfFile = dir / "ltshlf.dat";
  if (marloven::fileExists(shelfFile.string()))
    r.model.daylight = readDaylightFile(readInput(shelfFile, "ltshlf.dat", ExitCode::BadInput), r.model.siReport);
  r.calendar = buildCalendar(r.model.year, r.control, r.model.occupiedDays, r.model.holidayCount, r.model.weeksPerMonth, log);
  if (r.control.runType == 1) return std::nullopt;

  if (r.control.weatherFormat == 0) {
    r.weather = synthesize(r.model.stats, r.model.site, r.model.seed, r.model.year);
  } else {
    const fs::path tmy = dir / "ecalc$.tmy";
    if (!marloven::fileExists(tmy.string()))
      throw RunFailure(ExitCode::BadWeather, "ecalc$.tmy", "the recorded weather file is missing");
    const std::string bytes = readInput(tmy, "ecalc$.tmy", ExitCode::BadWeather);
    r.weather = readRecorded(bytes, static_cast<WeatherFormat>(r.control.weatherFormat), r.model.year, r.model.site, log);
  }

  const bool si = r.model.siReport;
  const double low = si ? r.control.comfortLow * 1.8 + 32.0 : r.control.comfortLow;
  const double high = si ? r.control.comfortHigh * 1.8 + 32.0 : r.control.comfortHigh;
  const bool passive = r.control.runType == 4;
  r.loads = runLoads(r.model, r.weather, r.calendar, passive, low, high);
  r.energy = runSystems(r.model, r.loads, r.weather, r.control, log);
  r.costs = computeCosts(economicsInputs(r.project), r.energy, passive);
  return sim;
}

ExitCode runEngine(const fs::path& dir) {
  const auto started = std::chrono::steady_clock::now();
  RunLog log;
  const fs::path errPath = dir / "tarn64.err";
  auto finish = [&](ExitCode code) {
    if (code == ExitCode::Ok) {
      const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
      char buf[32];
      std::snprintf(buf, sizeof buf, "%.2f", seconds);
      log.add("STATUS OK " + std::to_string(log.warnings()) + " warnings " + buf + " s");
    } else {
      removeOutputs(dir);
      log.add("STATUS FAILED " + std::to_string(static_cast<int>(code)));
    }
    try {
      marloven::writeFileAtomic(errPath.string(), logText(log));
    } catch (const marloven::FileError&) {
      if (code == ExitCode::Ok) code = ExitCode::NotWritable;
    }
    return code;
  };

  try {
    marloven::writeFileAtomic(errPath.string(), "");
  } catch (const marloven::FileError& e) {
    std::cerr << "ERROR tarn64.err: cannot write the log in " << dir.string() << "\n";
    return ExitCode::NotWritable;
  }
  removeOutputs(dir);

  try {
    const std::optional<Simulation> sim = simulate(dir, log);
    if (!sim) return finish(ExitCode::Ok);  // a check run writes no results
    const RunControl& control = sim->control;
    const SimModel& model = sim->model;
    const WeatherYear& weather = sim->weather;
    const LoadsResult& loads = sim->loads;
    const EnergyResult& energy = sim->energy;

    ReportContext ctx{model, control, sim->calendar, weather, dateOfRun(), 1, &log};
    int page = lastPageOfFrontPart(dir) + 1;
    const std::string simOut = writeSimOut(ctx, loads, energy, sim->costs, page);
    const std::string wth = writeWeatherSummary(ctx, page);
    const std::string flt = writeComfort(ctx, loads, page);
    std::string hourlyEnergy, hourlyTemperatures, hourlyWeather;
    if (control.hourlyOut) {
      hourlyEnergy = hourlyEnergyFile(model, weather, energy);
      hourlyTemperatures = hourlyTemperatureFile(model, weather, loads);
      hourlyWeather = hourlyWeatherFile(model, weather, loads.hours);
    }

    // Parts first, then renamed so that sim$.out, renamed last, implies the rest.
    try {
      std::vector<std::pair<const char*, const std::string*>> files;
      if (control.hourlyOut)
        files = {{"ecalc$.hry", &hourlyEnergy}, {"etemp$.hry", &hourlyTemperatures}, {"eweth$.hry", &hourlyWeather}};
      files.insert(files.end(), {{"ecalc$.flt", &flt}, {"ecalc$.wth", &wth}, {"sim$.out", &simOut}});
      for (const auto& [name, text] : files) marloven::writeFileAtomic((dir / (std::string(name) + ".part")).string(), *text);
      for (const auto& [name, text] : files) fs::rename(dir / (std::string(name) + ".part"), dir / name);
    } catch (const std::exception& e) {
      throw RunFailure(ExitCode::NotWritable, "output", std::string("cannot write the result files: ") + e.what());
    }
    return finish(ExitCode::Ok);
  } catch (const RunFailure& f) {
    log.error(f.where(), f.what());
    std::cerr << "ERROR " << f.where() << ": " << f.what() << "\n";
    return finish(f.code());
  } catch (const std::exception& e) {
    log.error("engine", std::string("internal error: ") + e.what());
    std::cerr << "ERROR engine: internal error: " << e.what() << "\n";
    return finish(ExitCode::Internal);
  }
}

}  // namespace tarn
