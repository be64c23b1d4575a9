#include "run/run_setup.h"

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "common/column_printer.h"
#include "common/error_report.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "project/design_temperature.h"
#include "project/project_reader.h"
#include "project/project_writer.h"
#include "run/light_shelf.h"
#include "run/run_copy.h"

namespace marloven {

namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 12> kMonthNames = {"January", "February", "March",     "April",   "May",      "June",
                                                     "July",    "August",   "September", "October", "November", "December"};

bool leapYear(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

int daysIn(int month, int year) {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && leapYear(year) ? 29 : kDays[month - 1];
}

std::string lower(std::string s) {
  for (char& ch : s) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
  return s;
}

// A month by English name (three letters or more of it) or by number.
int monthOf(const std::string& text) {
  if (text.empty()) return 0;
  if (std::isdigit(static_cast<unsigned char>(text[0]))) {
    for (char ch : text)
      if (!std::isdigit(static_cast<unsigned char>(ch))) return 0;
    const int m = std::atoi(text.c_str());
    return m >= 1 && m <= 12 ? m : 0;
  }
  const std::string t = lower(text);
  if (t.size() < 3) return 0;
  for (int m = 0; m < 12; ++m) {
    const std::string name = lower(kMonthNames[m]);
    if (name.compare(0, t.size(), t) == 0) return m + 1;
  }
  return 0;
}

bool wholeNumber(const std::string& s) {
  if (s.empty()) return false;
  for (char ch : s)
    if (!std::isdigit(static_cast<unsigned char>(ch))) return false;
  return true;
}

std::string trim(const std::string& s) {
  const std::size_t a = s.find_first_not_of(' ');
  if (a == std::string::npos) return {};
  return s.substr(a, s.find_last_not_of(' ') - a + 1);
}

}  // namespace

RunChoices initialChoices(const AppState& s) {
  const Project& p = s.project;
  RunChoices c;
  c.kind = p.flags.runKind >= 2 && p.flags.runKind <= 4 ? p.flags.runKind : 3;
  if (p.flags.runMade && !s.lastRun.from.empty()) {
    c.from = s.lastRun.from;
    c.to = s.lastRun.to;
  }
  c.year = p.data[kConstructionYear];
  c.recordedWeather = p.flags.recordedWeatherPicked;
  if (c.recordedWeather) {
    c.weeks[3] = true;
  } else if (p.weeksPerMonth >= 1 && p.weeksPerMonth <= 4) {
    c.weeks[static_cast<std::size_t>(p.weeksPerMonth - 1)] = true;
  }
  const bool si = p.units == UnitSystem::SI;
  if (p.flags.runMade && !s.lastRun.lower.empty()) {
    c.lower = s.lastRun.lower;
    c.upper = s.lastRun.upper;
  } else {
    c.lower = si ? "20" : "68";
    c.upper = si ? "27" : "79";
  }
  for (int i = 0; i < 3; ++i) c.designTemps[i] = p.designTemps.values[i + 1];
  return c;
}

std::optional<int> dayOfYear(const std::string& text) {
  // day-month-year; blanks around the parts are allowed.
  const std::size_t a = text.find('-');
  const std::size_t b = a == std::string::npos ? a : text.find('-', a + 1);
  if (b == std::string::npos) return std::nullopt;
  const std::string dayText = trim(text.substr(0, a)), monthText = trim(text.substr(a + 1, b - a - 1)),
                    yearText = trim(text.substr(b + 1));
  if (!wholeNumber(dayText) || !wholeNumber(yearText) || dayText.size() > 2) return std::nullopt;
  const int day = std::atoi(dayText.c_str()), month = monthOf(monthText), year = std::atoi(yearText.c_str());
  if (month == 0 || day < 1 || day > daysIn(month, year)) return std::nullopt;
  int n = day;
  for (int m = 1; m < month; ++m) n += daysIn(m, year);
  return n;
}

std::optional<RunSetup> setUpRun(AppState& s, RunChoices& c, const std::string& scratchDir, Prompt& prompt,
                                 const std::function<double()>& random, const RunClock& clock,
                                 const std::optional<std::vector<std::string>>& sketchLines) {
  Project& p = s.project;
  if (c.recordedWeather) {
    if (c.from.empty() || c.to.empty()) {
      prompt.beep();
      prompt.message(Icon::Exclamation, "Simulation period",
                     "Please enter the simulation period in: dd-mmm format.  Example: 15-Oct");
      return std::nullopt;
    }
    if (!p.flags.recordedWeatherPicked) {
      prompt.beep();
      prompt.message(Icon::Exclamation, "Weather data file",
                     "You will use recorded weather data but you have not picked the weather data file. Please "
                     "click the Recorded Weather button and enter the correct weather data file. ");
      return std::nullopt;
    }
  }
  int weeks = 0;
  for (int i = 0; i < 4 && weeks == 0; ++i)
    if (c.weeks[i]) weeks = i + 1;
  if (weeks == 0) {
    prompt.beep();
    prompt.message(Icon::Exclamation, "Simulation length", "Please select the simulation length (week/month).");
    return std::nullopt;
  }
  p.flags.lastRunKind = c.kind;
  for (int i = 0; i < 3; ++i) p.designTemps.values[i + 1] = c.designTemps[i];

  // The year: two digits mean this century.
  if (c.from.empty() || c.from.back() != '-') c.from += '-';
  if (c.to.empty() || c.to.back() != '-') c.to += '-';
  int year = static_cast<int>(leadingNumber(c.year));
  if (year < 100) year += 2000;
  const std::string yearDigits = padded(year);
  c.year = yearDigits.substr(yearDigits.size() >= 4 ? yearDigits.size() - 4 : 0);
  p.data[kConstructionYear] = c.year;
  const std::optional<int> begin = dayOfYear(c.from + c.year), end = dayOfYear(c.to + c.year);
  if (!begin || !end) {
    prompt.message(Icon::Exclamation, "Error",
                   "Please check the dates of the simulation period and enter the dates in: dd-mmm format.  "
                   "Example: 15-Oct");
    return std::nullopt;
  }

  RunSetup r;
  ControlFile& ctl = r.control;
  ctl.runKind = c.kind;
  ctl.weatherFormat = c.recordedWeather ? s.recorded.format : 0;
  ctl.firstWeekday = firstDayOfYear(year);
  ctl.beginDay = *begin;
  ctl.endDay = *end;
  ctl.hourly = c.hourly;
  ctl.skip = c.skip;
  ctl.comfortLow = static_cast<float>(leadingNumber(c.lower));
  ctl.comfortHigh = static_cast<float>(leadingNumber(c.upper));

  ReportSetup& rep = r.report;
  rep.periodFrom = c.from + c.year;
  rep.periodTo = c.to + c.year;
  rep.periodKind = c.recordedWeather ? ctl.weatherFormat : 0;
  rep.weeksPerMonth = weeks;
  for (int m = 0; m < 12; ++m)
    if (c.skip[m]) rep.skippedMonths.emplace_back(kMonthNames[m]);
  rep.year = year;
  rep.firstWeekday = ctl.firstWeekday;
  rep.dateText = clock.dateText;
  rep.timeText = clock.timeText;
  rep.sketchLevel = s.sketchLevel;

  try {
    std::error_code ec;
    fs::create_directories(scratchDir, ec);
    // A set-up that stops must not leave an earlier report behind.
    writeFileAtomic(joinPath(scratchDir, "ecalc$.out"), {});

    p.seed = c.repeatWeather ? std::string(kRepeatedSeed) : padded(static_cast<float>(random()));
    p.weeksPerMonth = static_cast<std::int16_t>(weeks);
    ColumnPrinter copy;
    printHeader(copy, p.seed, weeks, p.units);
    const std::string installDir = s.install.dir();
    std::vector<std::string> sketch;
    if (sketchLines)
      sketch = *sketchLines;
    else if (fileExists(joinPath(installDir, "sketch/bld_mtx.all")))
      sketch = readSketchLines(installDir);
    // The engine always reads I-P numbers; the marker says how to report.
    writeProject(copy, p, sketch, p.units == UnitSystem::SI ? Conversion::ToIP : Conversion::None);
    writeFileAtomic(joinPath(scratchDir, "ecalc$.inp"), copy.take());
    writeFileAtomic(joinPath(scratchDir, "ecalc$.tmp"), controlFileText(ctl));

    p.designTemps.known = true;
    ReportSources src;
    src.hvacCatalog = readFile(joinPath(installDir, "btype/tcool.dat"));
    for (const std::string& line : sketch) src.sketch += line + "\r\n";
    const std::string shelf = joinPath(scratchDir, "ltshlf.dat");
    fs::remove(shelf, ec);
    for (int z = 1; z <= p.zoneCount && z <= kMaxZones; ++z)
      if (isDaylightYes(p.zones[z].daylight)) {
        src.lightShelf = lightShelfText(p);
        writeFileAtomic(shelf, src.lightShelf);
        break;
      }
    // Status 5: the report stopped, and the user was told why.
    if (writeFrontReportTo(joinPath(scratchDir, "ecalc$.out"), p, rep, src, prompt) != 0) return std::nullopt;
    // A comfort table left by an earlier run must not pass for this one's.
    for (const auto& e : fs::directory_iterator(scratchDir, ec))
      if (e.path().extension() == ".flt") fs::remove(e.path(), ec);
  } catch (const FileError& e) {
    reportError(prompt, e);
    return std::nullopt;
  }

  s.lastRun = {c.from, c.to, c.lower, c.upper};
  // The screen shows the period without the dash it gained.
  s.lastRun.from.pop_back();
  s.lastRun.to.pop_back();
  p.flags.runMade = true;
  p.flags.resultsDisplay = false;
  s.tabular.zonePagesReady = false;  // the zone pages of the last output are gone
  p.flags.hourlyOutputMade = c.hourly;
  return r;
}

void joinReport(const std::string& scratchDir) {
  std::string report = readFile(joinPath(scratchDir, "ecalc$.out"));
  for (const char* part : {"sim$.out", "ecalc$.wth", "ecalc$.flt"}) report += readFile(joinPath(scratchDir, part));
  writeFileAtomic(joinPath(scratchDir, "ecalc$.out"), report);
}

std::vector<std::string> engineErrors(const std::string& scratchDir) {
  std::vector<std::string> out;
  const std::string log = joinPath(scratchDir, "tarn64.err");
  if (!fileExists(log)) return out;
  for (const std::string& l : splitLines(readFile(log)))
    if (l.rfind("ERROR", 0) == 0) out.push_back(l);
  return out;
}

std::string findEngine(const std::string& programDir) {
  if (const char* e = std::getenv("MARLOVEN_TARN64"); e != nullptr && *e != '\0') return e;
  std::error_code ec;
  const fs::path dir = programDir;
  for (const fs::path& p : {dir / "tarn64", dir.parent_path() / "engine" / "tarn64"})
    if (fs::is_regular_file(p, ec)) return p.string();
  return "tarn64";
}

}  // namespace marloven
