#include "cli/run_commands.h"

#include <stdlib.h>

#include <ctime>
#include <filesystem>
#include <ostream>
#include <random>

#include "cli/engine_commands.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "project/app_state.h"
#include "project/project_reader.h"
#include "results/run_summary.h"
#include "run/run_setup.h"
#include "project/file_names.h"

namespace marloven::cli {

namespace fs = std::filesystem;

namespace {

constexpr const char* kRunUsage =
    "run: expected PROJECT.inp [--kind abbreviated|hvac|passive] [--period FROM TO] [--year YEAR]\n"
    "     [--weeks 1..4] [--skip MONTH,...] [--comfort LOW HIGH] [--hourly] [--repeat-weather]\n"
    "     [--weather FILE --format tmy2|wyec2|custom|iwec] [--scratch DIR] [--out NAME]\n";

constexpr std::array<const char*, 12> kMonths = {"jan", "feb", "mar", "apr", "may", "jun",
                                                 "jul", "aug", "sep", "oct", "nov", "dec"};

// Messages go to stderr; a question cannot be answered and counts as No.
class StreamPrompt : public Prompt {
 public:
  explicit StreamPrompt(std::ostream& err) : err_(err) {}
  void beep() override {}
  void message(Icon, std::string_view title, std::string_view text) override {
    err_ << (title.empty() ? std::string_view("Message") : title) << ": " << text << "\n";
  }
  Answer ask(Buttons, Icon, std::string_view title, std::string_view text) override {
    err_ << title << ": " << text << "\n";
    return Answer::No;
  }
  std::optional<std::string> input(std::string_view, std::string_view, std::string_view) override { return {}; }

 private:
  std::ostream& err_;
};

std::string lower(std::string s) {
  for (char& ch : s) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
  return s;
}

// A month by its three letters or its whole English name.
int monthIndex(const std::string& name) {
  static constexpr std::array<const char*, 12> kNames = {"january", "february", "march",     "april",
                                                         "may",     "june",     "july",      "august",
                                                         "september", "october", "november", "december"};
  const std::string m = lower(name);
  for (int i = 0; i < 12; ++i)
    if (m == kMonths[i] || m == kNames[i]) return i;
  return -1;
}

RunClock now() {
  static constexpr std::array<const char*, 12> kShort = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const std::time_t t = std::time(nullptr);
  std::tm local{};
  localtime_r(&t, &local);
  char clock[8];
  std::strftime(clock, sizeof clock, "%H:%M", &local);
  return {std::to_string(local.tm_mday) + " " + kShort[static_cast<std::size_t>(local.tm_mon)] + " " +
              std::to_string(local.tm_year + 1900),
          clock};
}

// Copies what an output save keeps: the report, its comfort table and, when
// the run made them, the hourly files.
void saveOutput(const std::string& scratch, const std::string& name, bool hourly, std::ostream& out) {
  const std::string reportPath = isOutputName(name) ? name : name + ".ot1";
  const OutputFiles f = outputFiles(reportPath);
  writeFileAtomic(f.report, readFile(joinPath(scratch, "ecalc$.out")));
  writeFileAtomic(f.comfort, readFile(joinPath(scratch, "ecalc$.flt")));
  out << "saved " << f.report << "\n";
  if (!hourly) return;
  writeFileAtomic(f.energy, readFile(joinPath(scratch, "ecalc$.hry")));
  writeFileAtomic(f.temperatures, readFile(joinPath(scratch, "etemp$.hry")));
  writeFileAtomic(f.weather, readFile(joinPath(scratch, "eweth$.hry")));
}

}  // namespace

int runProject(Context& c, const std::vector<std::string>& a) {
  if (a.empty() || a[0].rfind("--", 0) == 0) {
    c.err << kRunUsage;
    return 2;
  }
  const std::string project = a[0];
  std::optional<int> kind, weeks, format;
  std::optional<std::string> from, to, year, lowerLimit, upperLimit, weatherFile, scratch, outName;
  std::array<bool, 12> skip{};
  bool hourly = false, repeat = false;
  auto bad = [&](const std::string& what) {
    c.err << "run: " << what << "\n" << kRunUsage;
    return 2;
  };
  for (std::size_t i = 1; i < a.size(); ++i) {
    const std::string& o = a[i];
    const bool has1 = i + 1 < a.size(), has2 = i + 2 < a.size();
    if (o == "--kind" && has1) {
      const std::string k = a[++i];
      kind = k == "abbreviated" ? 2 : k == "hvac" ? 3 : k == "passive" ? 4 : 0;
      if (*kind == 0) return bad("unknown kind " + k);
    } else if (o == "--period" && has2) {
      from = a[i + 1];
      to = a[i + 2];
      i += 2;
    } else if (o == "--year" && has1) {
      year = a[++i];
    } else if (o == "--weeks" && has1) {
      weeks = static_cast<int>(leadingNumber(a[++i]));
      if (*weeks < 1 || *weeks > 4) return bad("weeks per month must be 1 to 4");
    } else if (o == "--skip" && has1) {
      const std::string list = a[++i] + ",";
      for (std::size_t p = 0, q; (q = list.find(',', p)) != std::string::npos; p = q + 1) {
        const int m = monthIndex(list.substr(p, q - p));
        if (m < 0) return bad("unknown month " + list.substr(p, q - p));
        skip[static_cast<std::size_t>(m)] = true;
      }
    } else if (o == "--comfort" && has2) {
      lowerLimit = a[i + 1];
      upperLimit = a[i + 2];
      i += 2;
    } else if (o == "--hourly") {
      hourly = true;
    } else if (o == "--repeat-weather") {
      repeat = true;
    } else if (o == "--weather" && has1) {
      weatherFile = a[++i];
    } else if (o == "--format" && has1) {
      const std::string f = lower(a[++i]);
      format = f == "tmy2" ? 1 : f == "wyec2" ? 2 : f == "custom" ? 3 : f == "iwec" || f == "epw" ? 4 : 0;
      if (*format == 0) return bad("unknown weather format " + f);
    } else if (o == "--scratch" && has1) {
      scratch = a[++i];
    } else if (o == "--out" && has1) {
      outName = a[++i];
    } else {
      return bad("unexpected " + o);
    }
  }
  if (weatherFile.has_value() != format.has_value()) return bad("--weather and --format go together");

  // The project is read without writing its scratch files or sketch into the
  // installation, so that runs of several projects may share one.
  AppState state{Installation(c.installDir)};
  ReadSideFiles side;
  {
    Project p;
    side = readProject(readFile(project), p);
    sayNotRead(c, project, side.notRead);
    state.project = std::move(p);
  }
  Project& p = state.project;
  RunChoices choices = initialChoices(state);
  if (kind) choices.kind = *kind;
  p.flags.runKind = choices.kind;
  if (from) choices.from = *from, choices.to = *to;
  if (year) choices.year = *year;
  if (weeks) {
    choices.weeks = {};
    choices.weeks[static_cast<std::size_t>(*weeks - 1)] = true;
  }
  choices.skip = skip;
  if (lowerLimit) choices.lower = *lowerLimit, choices.upper = *upperLimit;
  choices.hourly = hourly;
  choices.repeatWeather = repeat;

  std::string dir;
  if (scratch) {
    dir = *scratch;
    fs::create_directories(dir);
  } else {
    // Each run gets a folder of its own, so runs started together never meet.
    const fs::path runs = fs::path(c.installDir) / "temp" / "runs";
    fs::create_directories(runs);
    std::string pattern = (runs / "run-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw FileError(errorNumberFromErrno(errno), runs.string());
    dir = pattern;
  }
  if (weatherFile) {
    writeFileAtomic(joinPath(dir, "ecalc$.tmy"), readFile(*weatherFile));
    state.recorded = {*format, *weatherFile, true, false};
    p.flags.recordedWeatherPicked = true;
    choices.recordedWeather = true;
    choices.weeks = {false, false, false, true};
  }

  StreamPrompt prompt(c.err);
  std::mt19937_64 gen(std::random_device{}());
  std::uniform_real_distribution<double> uniform(0.0, 1.0);
  const auto setup = setUpRun(state, choices, dir, prompt, [&] { return uniform(gen); }, now(), side.sketchLines);
  if (!setup) return 1;

  const std::string engine = engineProgram();
  c.out << "running " << engine << " in " << dir << "\n" << std::flush;
  std::string why;
  const int status = spawnEngine(dir, engine, why);
  if (status < 0) {
    c.err << "run: cannot run " << engine << ": " << why << "\n";
    return 1;
  }
  const std::vector<std::string> errors = engineErrors(dir);
  if (status != 0 || !errors.empty()) {
    c.err << "run: the engine failed (status " << status << "):\n";
    for (const std::string& e : errors) c.err << "  " << e << "\n";
    return 1;
  }
  joinReport(dir);
  RunSummary summary;
  const ReadStatus read = readRunSummary(dir, summary);
  if (!read.ok()) {
    c.err << "run: the report cannot be read: " << read.message() << " (" << read.detail << ")\n";
    return 1;
  }
  c.out << joinPath(dir, "ecalc$.out") << "\n" << summaryText(summary);
  if (outName) saveOutput(dir, *outName, hourly, c.out);
  return 0;
}

int resultsSummary(Context& c, const std::vector<std::string>& a) {
  bool csv = false;
  std::vector<std::string> reports;
  for (const std::string& s : a) {
    if (s == "--csv")
      csv = true;
    else
      reports.push_back(s);
  }
  if (reports.empty()) {
    c.err << "results summary: expected REPORT... [--csv]\n";
    return 2;
  }
  if (csv) c.out << summaryCsvHeader();
  int failures = 0;
  for (const std::string& report : reports) {
    // The readers read a report under the name a run gives it.
    fs::path dir = fs::temp_directory_path() / "marloven-summary-XXXXXX";
    std::string pattern = dir.string();
    if (mkdtemp(pattern.data()) == nullptr) throw FileError(errorNumberFromErrno(errno), pattern);
    RunSummary s;
    ReadStatus st;
    try {
      writeFileAtomic(joinPath(pattern, "ecalc$.out"), readFile(report));
      st = readRunSummary(pattern, s);
    } catch (const FileError& e) {
      st.errorNumber = e.number();
      st.detail = e.detail();
    }
    std::error_code ec;
    fs::remove_all(pattern, ec);
    if (!st.ok()) {
      c.err << "results summary: " << report << ": " << st.message() << "\n";
      ++failures;
      continue;
    }
    if (csv)
      c.out << summaryCsvLine(report, s);
    else
      c.out << report << "\n" << summaryText(s);
  }
  return failures == 0 ? 0 : 1;
}

}  // namespace marloven::cli
