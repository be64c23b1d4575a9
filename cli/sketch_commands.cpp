#include "cli/sketch_commands.h"

#include <ostream>
#include <utility>

#include "common/file_io.h"
#include "common/number_text.h"
#include "project/project_reader.h"
#include "project/installation.h"
#include "shell/startup.h"
#include "sketch/extract_zones.h"
#include "sketch/level_files.h"

namespace marloven::cli {

namespace {

// Messages go to the error stream; a question gets the cautious answer, as
// nobody is there to give another.
class StreamPrompt : public Prompt {
 public:
  explicit StreamPrompt(std::ostream& err) : err_(err) {}
  void beep() override {}
  void message(Icon, std::string_view title, std::string_view text) override {
    err_ << title << ": " << text << "\n";
  }
  Answer ask(Buttons buttons, Icon, std::string_view title, std::string_view text) override {
    err_ << title << ": " << text << "\n";
    return buttons == Buttons::Ok ? Answer::Ok : buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
  }
  std::optional<std::string> input(std::string_view, std::string_view, std::string_view) override {
    return std::nullopt;
  }

 private:
  std::ostream& err_;
};

std::string padRight(std::string s, std::size_t width) {
  if (s.size() < width) s.append(width - s.size(), ' ');
  return s;
}

std::string padLeft(std::string s, std::size_t width) {
  if (s.size() < width) s.insert(0, width - s.size(), ' ');
  return s;
}

void printZones(std::ostream& out, const Project& p) {
  const char* unit = p.units == UnitSystem::IP ? "sq.ft" : "sq.m.";
  out << padRight("Zone", 6) << padRight("Name", 17) << padLeft(std::string("Area ") + unit, 12) << padLeft("Rows", 6)
      << "\n";
  for (int z = 1; z <= p.zoneCount; ++z) {
    const ZoneRecord& r = p.zones[z];
    out << padRight(r.listedId, 6) << padRight(r.listedName, 17) << padLeft(bare(r.listedFloorArea), 12)
        << padLeft(std::to_string(r.rowCount), 6) << "\n";
  }
  out << "Total floor area " << bare(p.sketchFloorArea) << " " << unit << " in " << p.zoneCount
      << (p.zoneCount == 1 ? " zone" : " zones") << "\n";
}

}  // namespace

int sketchExtract(Context& c, const std::vector<std::string>& a) {
  const bool from = a.size() == 2 && a[0] == "--from";
  if (!a.empty() && !from) {
    c.err << "sketch extract: expected no arguments or --from PROJECT.inp\n" << usage();
    return 2;
  }
  requireInstallation(c);
  Project p;
  if (from) {
    Project read;
    const ReadSideFiles side = readProject(readFile(a[1]), read);
    if (side.sketchLines.empty()) {
      c.err << "sketch extract: " << a[1] << " has no sketch (no BUILDING MATRIX block)\n";
      return 1;
    }
    writeSideFiles(c.installDir, side);
    p = std::move(read);
  } else {
    p.units = readUnitChoice(Installation(c.installDir));
  }
  StreamPrompt prompt(c.err);
  SketchMatrix m;
  openSketch(m, c.installDir, p, prompt);
  switch (extractZones(m, c.installDir, p, prompt)) {
    case ExtractOutcome::Failed:
      return 1;
    case ExtractOutcome::NoLevels:
      c.out << "The sketch has no levels: nothing extracted\n";
      return 0;
    case ExtractOutcome::Done:
      break;
  }
  printZones(c.out, p);
  return 0;
}

}  // namespace marloven::cli
