#include "shell/startup.h"

#include <unistd.h>

#include <array>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>
#include <system_error>

#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"

namespace marloven {

namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 13> kMonths = {"",    "Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<const char*, 13> kUpperMonths = {"",    "JAN", "FEB", "MAR", "APR",
                                                      "MAY", "JUN", "JUL", "AUG", "SEP",
                                                      "OCT", "NOV", "DEC"};

// Deletes the regular files directly in the scratch directory whose name ends
// in the extension. Nothing outside temp/ is touched, and failures are ignored:
// a clean-up must never stop the program.
void deleteScratch(const Installation& inst, const std::string& extension) {
  std::error_code ec;
  fs::directory_iterator it(inst.scratchDir(), ec);
  if (ec) return;
  for (const auto& entry : it) {
    std::error_code kind;
    if (!entry.is_regular_file(kind)) continue;
    if (entry.path().extension().string() != extension) continue;
    std::error_code removed;
    fs::remove(entry.path(), removed);
  }
}

bool isExecutableFile(const fs::path& p) {
  std::error_code ec;
  return fs::is_regular_file(p, ec) && ::access(p.c_str(), X_OK) == 0;
}

}  // namespace

void setStartupDefaults(Project& p) {
  p.fileName = "New_Project";
  p.outputFileName = "Untitled.ot1";
  p.weeksPerMonth = 4;
  p.flags.resketched = false;
  p.flags.zonesOpened = false;
  p.sketchScale = {60, 80};
  for (auto& kind : p.profiles.kinds)
    for (auto& profile : kind) profile.id.clear();
}

std::string buildingTypeName(std::string_view line1) {
  // The original rule cuts with a negative length on a short line: a run-time
  // error, kept as error 5 so the report shows it.
  if (line1.size() < 3) throw FileError(5, "building type line too short");
  std::string name(line1.substr(0, line1.size() - 3));
  name += ' ';
  name += line1.substr(line1.size() - 2);
  return name;
}

void loadStartupTables(const Installation& inst, StartupTables& t) {
  // Every file is tried, so one damaged file costs only its own entries; the
  // first failure is raised at the end.
  std::optional<FileError> first;
  auto attempt = [&first](auto&& load) {
    try {
      load();
    } catch (const FileError& e) {
      if (!first) first = e;
    }
  };
  for (int i = 1; i <= kBuildingTypes; ++i) {
    attempt([&] {
      LineReader in = LineReader::fromText(readFile(inst.buildingTypeFile(i)));
      t.buildingTypeNames[i] = buildingTypeName(in.next());
    });
  }
  for (int k = 1; k <= 4; ++k) {
    attempt([&] {
      LineReader in = LineReader::fromText(readFile(inst.profileFile(k)));
      in.next();  // heading
      for (int i = 1; i <= kBuildingTypes; ++i) t.profileDefaults[k][i] = in.next();
    });
  }
  if (first) throw *first;
}

std::string dateText(const Date& d) {
  const int m = (d.month >= 1 && d.month <= 12) ? d.month : 1;
  return std::to_string(d.day) + " " + kMonths[m] + " " + std::to_string(d.year);
}

UnitSystem readUnitChoice(const Installation& inst) {
  try {
    const auto lines = splitLines(readFile(inst.unitChoiceFile()));
    if (!lines.empty() && leadingNumber(lines.front()) == 1.0) return UnitSystem::IP;
  } catch (const std::exception&) {
    // A missing or unreadable file means the default.
  }
  return UnitSystem::SI;
}

void writeUnitChoice(const Installation& inst, UnitSystem units) {
  writeFileAtomic(inst.unitChoiceFile(), units == UnitSystem::IP ? "1\r\n" : "2\r\n");
}

std::optional<FileError> startUp(AppState& s, const Date& today) {
  StartupTables& t = s.tables;
  for (int m = 1; m <= 12; ++m) {
    t.monthNames[m] = kMonths[m];
    t.upperMonthNames[m] = kUpperMonths[m];
  }
  t.spreadsheetPath = findSpreadsheetProgram();
  setStartupDefaults(s.project);

  std::optional<FileError> error;
  try {
    loadStartupTables(s.install, t);
  } catch (const FileError& e) {
    error = e;
  }

  t.today = today;
  t.dateText = dateText(today);
  s.project.units = readUnitChoice(s.install);
  return error;
}

std::string findSpreadsheetProgram() {
  const char* path = std::getenv("PATH");
  if (path == nullptr) return {};
  const std::string dirs(path);
  for (const char* program : {"libreoffice", "localc", "soffice", "gnumeric"}) {
    std::size_t start = 0;
    while (start <= dirs.size()) {
      std::size_t end = dirs.find(':', start);
      if (end == std::string::npos) end = dirs.size();
      const std::string dir = dirs.substr(start, end - start);
      // An empty PATH entry means the current directory, which is the
      // installation; a spreadsheet program is never looked for there.
      if (!dir.empty()) {
        const fs::path candidate = fs::path(dir) / program;
        if (isExecutableFile(candidate)) return candidate.string();
      }
      start = end + 1;
    }
  }
  return {};
}

void killZoneScratch(const Installation& inst, const Project& p) {
  const ProjectFlags& f = p.flags;
  bool hadProjectData = f.fromFile || f.inputSaved || f.sketchCount > 0;
  for (int i = 1; i <= kProfileKinds; ++i)
    hadProjectData = hadProjectData || f.profileKindLoaded[i] || f.profileKindTouched[i];
  if (hadProjectData) deleteScratch(inst, ".zon");
}

void resetProject(const Installation& inst, Project& p) {
  p.previousName = p.fileName;
  p.fileName = "NewProject.inp";
  if (p.flags.sketchCount > 0) deleteScratch(inst, ".tmp");

  ProjectFlags& f = p.flags;
  f.fromFile = false;
  f.weatherRereadPending = false;
  f.projectDataFilled = false;
  f.sketchCount = 0;
  f.resketched = false;
  f.zonesOpened = false;
  f.runKind = 0;
  f.runMade = false;
  f.outputViewable = false;
  f.inputSaved = false;
  f.anySaveSinceStart = false;
  f.daylightingInUse = false;
  f.orientationEdited = f.floorAreaEdited = false;
  f.zoneKey = false;
  f.buildingTypeChosen = false;
  f.recordedWeatherPicked = false;
  p.designTemps = DesignTemperatures{};

  f.profileKindLoaded = {};
  f.profileKindTouched = {};
  // Only the per-zone state goes: zone rows stay behind a zone count of 0 until
  // a sketch or a file sets them again.
  p.zoneCount = 0;
  for (int z = 1; z < kZoneSlots; ++z) {
    p.zones[z].exists = false;
    p.zones[z].opened = false;
  }
  p.data = {};
  p.weather = WeatherSummary{};
  p.economics = {};
  p.demand.text.clear();

  p.weeksPerMonth = 4;
}

}  // namespace marloven
