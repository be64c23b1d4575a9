#include "cli/commands.h"

#include "cli/context.h"
#include "cli/engine_commands.h"
#include "cli/report_commands.h"
#include "cli/run_commands.h"
#include "cli/weather_commands.h"
#include "cli/sketch_commands.h"

#include <filesystem>
#include <functional>
#include <map>
#include <new>
#include <ostream>

#include "common/column_printer.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "project/project_reader.h"
#include "project/project_writer.h"
#include "run/run_copy.h"

namespace marloven::cli {

namespace {

constexpr const char* kUsage =
    "usage: marloven-cli [--install DIR] <command> ...\n"
    "\n"
    "  --install DIR        the installation tree to work in (default: the current directory)\n"
    "\n"
    "commands:\n"
    "  inp normalize IN OUT  read a project file and write it back as a save would\n"
    "  inp convert --to ip|si IN OUT\n"
    "                        read a project file and write it in the other unit system\n"
    "  inp check IN          read a project file and write the run copy of an error check\n"
    "                        (temp/ecalc$.inp and the control file temp/ecalc$.tmp)\n"
    "  report front IN [--period FROM TO] [--weeks 1..4] [--skip MONTH,...]\n"
    "                        write the report's front part temp/ecalc$.out as a run would\n"
    "  weather import FILE.epw [--group NAME] [--city NAME]\n"
    "                        add the monthly statistics of a recorded hourly weather file\n"
    "                        to weather/weth.asc (group: the state or country of the file)\n"
    "  sketch extract [--from PROJECT.inp]\n"
    "                        split sketch/bld_mtx.all, extract its zones and rebuild it\n"
    "  run-engine DIR        run the simulation engine tarn64 on the run files in DIR\n"
    "                        (ecalc$.inp, ecalc$.tmp) and list the results it wrote\n"
    "  run PROJECT.inp [--kind abbreviated|hvac|passive] [--period FROM TO] [--year YEAR]\n"
    "      [--weeks 1..4] [--skip MONTH,...] [--comfort LOW HIGH] [--hourly] [--repeat-weather]\n"
    "      [--weather FILE --format tmy2|wyec2|custom|iwec] [--scratch DIR] [--out NAME]\n"
    "                        set up a run, run the engine, join the report and print a\n"
    "                        summary; each run works in a folder of its own under temp/runs\n"
    "  results summary REPORT... [--csv]\n"
    "                        site energy by end use, intensity, peaks and unmet hours of\n"
    "                        finished reports (a saved .ot1 or a run's ecalc$.out)\n";

// Reads IN into the model (with its scratch files and sketch written in the
// installation) and writes it back: the file's own seed, weeks per month and
// units marker, then the project as it stands.
int normalize(Context& c, const std::vector<std::string>& a) {
  if (a.size() != 2) {
    c.err << "inp normalize: expected IN and OUT\n" << kUsage;
    return 2;
  }
  requireInstallation(c);
  Project p;
  sayNotRead(c, a[0], loadProjectFileNoting(c.installDir, a[0], p));
  ColumnPrinter printer;
  printHeader(printer, p.seed, p.weeksPerMonth, p.units);
  writeProjectStraight(printer, p, readSketchLines(c.installDir));
  writeFileAtomic(a[1], printer.str());
  return 0;
}

// The error report as one line: title, message and what failed.
void report(std::ostream& err, int number, const std::string& detail) {
  err << errorTitle(number) << ": " << errorMessage(number);
  if (!detail.empty()) err << " (" << detail << ")";
  err << "\n";
}

// Reads IN and writes it with the units marker of the target system: through
// the converting writer when the file is in the other system, straight (as a
// save in the same system is) when it already is in the target system.
int convert(Context& c, const std::vector<std::string>& a) {
  if (a.size() != 4 || a[0] != "--to" || (a[1] != "ip" && a[1] != "si")) {
    c.err << "inp convert: expected --to ip|si IN OUT\n" << kUsage;
    return 2;
  }
  requireInstallation(c);
  const UnitSystem target = a[1] == "ip" ? UnitSystem::IP : UnitSystem::SI;
  Project p;
  sayNotRead(c, a[2], loadProjectFileNoting(c.installDir, a[2], p));
  const Conversion conversion =
      p.units == target ? Conversion::None : (target == UnitSystem::IP ? Conversion::ToIP : Conversion::ToSI);
  ColumnPrinter printer;
  printHeader(printer, p.seed, p.weeksPerMonth, target);
  writeProject(printer, p, readSketchLines(c.installDir), conversion);
  writeFileAtomic(a[3], printer.str());
  return 0;
}

// Error Check Only without a window: the project is read as a retrieve reads
// it and written as the run copy; the check is that both succeed.
int check(Context& c, const std::vector<std::string>& a) {
  if (a.size() != 1) {
    c.err << "inp check: expected IN\n" << kUsage;
    return 2;
  }
  requireInstallation(c);
  Project p;
  sayNotRead(c, a[0], loadProjectFileNoting(c.installDir, a[0], p));
  writeErrorCheck(c.installDir, p);
  c.out << joinPath(c.installDir, "temp/ecalc$.inp") << ": " << p.zoneCount << (p.zoneCount == 1 ? " zone" : " zones")
        << ", " << (p.units == UnitSystem::IP ? "I-P" : "SI") << " units\n";
  return 0;
}

const std::map<std::string, Command>& commands() {
  static const std::map<std::string, Command> table = {
      {"inp normalize", normalize},
      {"inp convert", convert},
      {"inp check", check},
      {"report front", reportFront},
      {"weather import", weatherImport},
      {"sketch extract", sketchExtract},
      {"run-engine", runEngine},
      {"run", runProject},
      {"results summary", resultsSummary},
  };
  return table;
}

}  // namespace

const char* usage() { return kUsage; }

void requireInstallation(const Context& c) {
  if (!std::filesystem::is_directory(std::filesystem::path(c.installDir) / "temp"))
    throw FileError(err::kPathNotFound, c.installDir + " has no temp directory");
}

void sayNotRead(const Context& c, const std::string& file, const std::vector<std::string>& notRead) {
  for (const std::string& what : notRead) c.err << "warning: " << file << ": " << what << "\n";
}

int run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  Context c{".", out, err};
  std::size_t i = 0;
  while (i < args.size() && args[i].rfind("--", 0) == 0) {
    if (args[i] == "--help") {
      out << kUsage;
      return 0;
    }
    if (args[i] == "--install" && i + 1 < args.size()) {
      c.installDir = args[i + 1];
      i += 2;
      continue;
    }
    err << "unknown or incomplete option " << args[i] << "\n" << kUsage;
    return 2;
  }
  if (i >= args.size()) {
    err << kUsage;
    return 2;
  }
  // Commands are one word or two.
  std::size_t words = 1;
  auto found = commands().find(args[i]);
  if (found == commands().end() && i + 1 < args.size()) {
    found = commands().find(args[i] + " " + args[i + 1]);
    words = 2;
  }
  if (found == commands().end()) {
    err << "unknown command: " << args[i] << (i + 1 < args.size() ? " " + args[i + 1] : "") << "\n" << kUsage;
    return 2;
  }
  try {
    return found->second(c, std::vector<std::string>(args.begin() + static_cast<long>(i + words), args.end()));
  } catch (const FileError& e) {
    report(err, e.number(), e.detail());
  } catch (const std::bad_alloc&) {
    report(err, err::kOutOfMemory, {});
  } catch (const std::filesystem::filesystem_error& e) {
    report(err, errorNumberFromErrno(e.code().value()), e.what());
  }
  return 1;
}

}  // namespace marloven::cli
