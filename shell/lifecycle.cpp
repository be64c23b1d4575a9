#include "shell/lifecycle.h"

#include <filesystem>
#include <random>
#include <system_error>

#include "common/column_printer.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "project/project_reader.h"
#include "project/project_writer.h"
#include "project/zone_entry.h"
#include "run/run_copy.h"
#include "common/error_report.h"
#include "project/file_names.h"
#include "shell/startup.h"

namespace marloven {

namespace fs = std::filesystem;

namespace {

constexpr const char* kSaveOutput = "Save output";

void deleteZoneScratch(const Installation& inst) {
  std::error_code ec;
  for (const auto& e : fs::directory_iterator(inst.scratchDir(), ec))
    if (e.path().extension() == ".zon") fs::remove(e.path(), ec);
}

// Copies a file when it exists; older outputs lack some of them.
void copyIfThere(const std::string& from, const std::string& to) {
  std::error_code ec;
  fs::copy_file(from, to, fs::copy_options::overwrite_existing, ec);
}

std::vector<std::string> sketchLinesIfAny(const Installation& inst) {
  return fileExists(inst.sketchFile()) ? readSketchLines(inst.dir()) : std::vector<std::string>{};
}

}  // namespace

Lifecycle::Lifecycle(AppState& state, Prompt& prompt, MainMenu& menu, std::function<double()> random)
    : state_(state), prompt_(prompt), menu_(menu), random_(std::move(random)) {
  if (!random_) {
    random_ = [engine = std::mt19937(std::random_device{}())]() mutable {
      return std::uniform_real_distribution<double>(0.0, 1.0)(engine);
    };
  }
}

bool Lifecycle::anyStepDone() const {
  const auto& done = state_.project.flags.stepDone;
  for (int i = 1; i <= kInputSteps; ++i)
    if (done[static_cast<size_t>(i)]) return true;
  return false;
}

bool Lifecycle::confirmDiscard() {
  if (!anyStepDone()) return true;
  prompt_.beep();
  return prompt_.ask(Buttons::YesNo, Icon::Exclamation, "Warning...",
                     "Your current data will be lost if you have not saved it.  Do you still want to "
                     "start a new project?") == Answer::Yes;
}

bool Lifecycle::newProject() {
  if (!confirmDiscard()) return false;
  Project& p = state_.project;
  resetProject(state_.install, p);
  p.flags.stepDone.fill(false);
  p.flags.outputViewable = false;
  p.flags.resultsDisplay = false;
  menu_.projectReset();
  return true;
}

bool Lifecycle::retrieve(const std::string& directory, const std::string& name, bool sample) {
  Project& p = state_.project;
  const std::string path = retrievePath(directory, name);
  try {
    // Parse first: a file that cannot be read leaves everything as it was.
    Project next = p;
    if (next.flags.fromFile) {
      // The reader keeps old pairs when the file has none.
      for (auto& pair : next.demand.pairs) pair = {};
      next.demand.pairCount = 0;
    }
    const std::string bytes = readFile(path);
    const ReadSideFiles side = readProject(bytes, next);
    if (p.flags.fromFile) deleteZoneScratch(state_.install);
    writeSideFiles(state_.install.dir(), side);
    p = std::move(next);
  } catch (const FileError& e) {
    reportError(prompt_, e);
    return false;
  }
  // Hourly files of a run saved under this name, with its last three characters
  // as the extension.
  const OutputFiles out = outputFiles(path.substr(0, path.size() - 4) + "." + path.substr(path.size() - 3));
  copyIfThere(out.energy, state_.install.scratchFile("ecalc$.hry"));
  copyIfThere(out.temperatures, state_.install.scratchFile("etemp$.hry"));
  copyIfThere(out.weather, state_.install.scratchFile("eweth$.hry"));

  p.flags.fromFile = true;
  p.baseName = name;
  p.fileName = p.previousName = p.rememberedName = path;
  menu_.projectOpened();
  if (sample)
    prompt_.message(Icon::Information, "Sample Project Retrieved",
                    "Sample Project is ready for review and/or Execution");
  return true;
}

Next Lifecycle::saveRequested() {
  const Project& p = state_.project;
  if (p.flags.resketched) {
    prompt_.message(Icon::Exclamation, "Error",
                    "The building has been re-sketched.  Please examine the zone descriptions before saving.");
    return Next::Stay;
  }
  if (!p.flags.stepDone[2] && !p.flags.fromFile) {
    prompt_.message(Icon::Exclamation, "Weather Data", "Please enter the weather data before saving the input file.");
    return Next::Stay;
  }
  if (!p.flags.stepDone[4]) {
    prompt_.message(Icon::Exclamation, "Building Sketch", "Please sketch your building before saving the input file.");
    return Next::Stay;
  }
  state_.project.flags.runKind = 0;
  return Next::SaveInputDialog;
}

bool Lifecycle::writeProjectFile(const std::string& path, UnitSystem units) {
  Project& p = state_.project;
  const Conversion conversion = units == p.units ? Conversion::None
                                : units == UnitSystem::IP ? Conversion::ToIP
                                                          : Conversion::ToSI;
  try {
    ColumnPrinter out;
    printHeader(out, p.seed, p.weeksPerMonth, units);
    writeProject(out, p, sketchLinesIfAny(state_.install), conversion);
    writeFileAtomic(path, out.str());
    return true;
  } catch (const FileError& e) {
    reportError(prompt_, e);
    return false;
  }
}

Next Lifecycle::saveInput(const std::string& directory, const std::string& name, UnitSystem units) {
  Project& p = state_.project;
  const std::string path = savePath(directory, name);
  if (!p.flags.fromFile && !p.flags.runMade) p.seed = padded(static_cast<float>(random_()));
  if (!writeProjectFile(path, units)) return Next::Stay;
  // Read back, so the model is what the file holds (in its units).
  try {
    loadProjectFile(state_.install.dir(), path, p);
  } catch (const FileError& e) {
    reportError(prompt_, e);
    return Next::Stay;
  }
  p.flags.fromFile = p.flags.inputSaved = p.flags.anySaveSinceStart = true;
  p.fileName = p.previousName = p.baseName = p.rememberedName = path;
  menu_.projectOpened();

  if (p.flags.exitAfterSave) {
    cleanUpAndQuit();
    return Next::Quit;
  }
  if (p.flags.runKind != 0) {
    if (!p.flags.runMade) {
      rereadHeader();
      return Next::RunSimulation;
    }
    outputDialogText_ = "Before running, you may wish to save the previous results -- otherwise, click the Run Button.";
    return Next::SaveOutputDialog;
  }
  if (p.flags.runMade &&
      prompt_.ask(Buttons::YesNo, Icon::Question, kSaveOutput,
                  "The last simulation results has not been saved.  Do you want to save them?") == Answer::Yes) {
    p.flags.runMade = false;
    outputDialogText_.clear();
    return Next::SaveOutputDialog;
  }
  return Next::Stay;
}

void Lifecycle::rereadHeader() {
  const Project& p = state_.project;
  if (!p.flags.fromFile) return;
  try {
    const auto lines = splitLines(readFile(p.fileName));
    if (!lines.empty()) readHeader(lines.front(), state_.project);
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
}

Next Lifecycle::runRequested(int kind) {
  Project& p = state_.project;
  if (p.flags.resketched) {
    prompt_.message(Icon::Exclamation, "Error",
                    "The building has been re-sketched. Please examine the zone descriptions before executing.");
    return Next::Stay;
  }
  p.flags.runKind = kind;
  if (p.flags.sketchCount > 0 &&
      prompt_.ask(Buttons::YesNo, Icon::Exclamation, "Warning...",
                  "If you have added or changed particular zone(s) with building sketch, you have to make "
                  "sure that you have opened the related zone form(s) before you run the energy "
                  "simulation.  Do you want to continue?") != Answer::Yes)
    return Next::Stay;

  if (kind == 1) {
    // Error Check Only: the check is that the model can be written as a run copy.
    try {
      writeErrorCheck(state_.install.dir(), p);
      menu_.enableViewMenu();
    } catch (const FileError& e) {
      reportError(prompt_, e);
    }
    return Next::Stay;
  }
  if (p.flags.inputSaved) return Next::RunSimulation;

  const Answer a = prompt_.ask(Buttons::YesNo, Icon::Question, "Save input",
                               "If you changed your input, you should save it under the same name or under a "
                               "new file name.  Do you want to run the simulation without saving the input?");
  if (a != Answer::Yes) return Next::SaveInputDialog;
  if (p.flags.runMade && !p.flags.outputSaved) {
    outputDialogText_ = p.flags.lastRunKind < 4
                            ? "Before running, you should save the previous results -- otherwise, click the Run Button."
                            : "Before running, you should save the previous results. An energy output file with "
                              ".ot* extension will also be saved.";
    return Next::SaveOutputDialog;
  }
  rereadHeader();
  return Next::RunSimulation;
}

Next Lifecycle::saveOutput(const std::string& directory, const std::string& name) {
  Project& p = state_.project;
  if (!isOutputName(name)) {
    prompt_.message(Icon::Exclamation, "Error",
                    "The file extension name should be :  .ot + a number, Example :  trial.ot1  or   "
                    "trial.ot2 .  Try again.");
    return Next::Stay;
  }
  const OutputFiles out = outputFiles(resolveUserPath(directory, name));
  try {
    writeFileAtomic(out.report, readFile(state_.install.scratchFile("ecalc$.out")));
    writeFileAtomic(out.comfort, readFile(state_.install.scratchFile("ecalc$.flt")));
    if (p.flags.hourlyOutputMade) {
      writeFileAtomic(out.energy, readFile(state_.install.scratchFile("ecalc$.hry")));
      writeFileAtomic(out.temperatures, readFile(state_.install.scratchFile("etemp$.hry")));
      writeFileAtomic(out.weather, readFile(state_.install.scratchFile("eweth$.hry")));
    }
  } catch (const FileError& e) {
    reportError(prompt_, e);
    return Next::Stay;
  }
  p.flags.outputSaved = true;
  p.outputFileName = name;
  if (p.flags.exitQuestionAnswered) {
    cleanUpAndQuit();
    return Next::Quit;
  }
  if (p.flags.runKind != 0) {
    rereadHeader();
    return Next::RunSimulation;
  }
  p.flags.runMade = false;
  return Next::Stay;
}

Next Lifecycle::runWithoutSavingOutput() {
  rereadHeader();
  outputDialogText_.clear();
  return Next::RunSimulation;
}

ExitQuestion Lifecycle::exitQuestion() const {
  const Project& p = state_.project;
  if (!p.flags.anySaveSinceStart && !p.flags.fromFile) return {"Do you want to save your input ?", {}};
  return {"Save input changes to:", p.previousName + " ?"};
}

Next Lifecycle::exitSave() {
  Project& p = state_.project;
  if (!p.flags.fromFile) {
    p.flags.exitAfterSave = true;
    return Next::SaveInputDialog;
  }
  if (!writeProjectFile(p.fileName, p.units)) return Next::Stay;
  cleanUpAndQuit();
  return Next::Quit;
}

Next Lifecycle::exitWithoutSave() {
  Project& p = state_.project;
  p.flags.exitQuestionAnswered = true;
  if (p.flags.runMade && !p.flags.outputSaved) {
    const Answer a = prompt_.ask(Buttons::YesNoCancel, Icon::Question, kSaveOutput,
                                 "The last simulation results has not been saved.  Do you wish to save them?");
    if (a == Answer::Yes) return Next::SaveOutputDialog;
    if (a == Answer::Cancel) return Next::Stay;
  }
  cleanUpAndQuit();
  return Next::Quit;
}

Next Lifecycle::view(int index) {
  Project& p = state_.project;
  switch (index) {
    case 6:
    case 10: return Next::Stay;
    case 12:
      if (p.flags.runMade && !p.flags.outputSaved &&
          prompt_.ask(Buttons::YesNo, Icon::Question, kSaveOutput,
                      "The last run has not been saved.  Do you wish to save it?") == Answer::Yes)
        return Next::SaveOutputDialog;
      return Next::SelectView;
    case 7: return Next::Tabular;
    case 8:
      if (!fileExists(state_.install.scratchFile("ecalc$.wth"))) {
        prompt_.message(Icon::Exclamation, "Error", "Output file does not exist");
        return Next::Stay;
      }
      return Next::Tabular;
    default: return Next::SelectView;
  }
}

Next Lifecycle::results(int kind, int index) {
  state_.results = {kind, index};
  return state_.project.flags.outputViewable ? Next::Results : Next::SelectView;
}

Next Lifecycle::openSketch() {
  Project& p = state_.project;
  p.flags.stepDone[4] = true;
  p.flags.orientationEdited = p.flags.floorAreaEdited = false;
  p.flags.zoneKey = false;
  for (int r = 1; r < ZoneListGrid::kRows - 1; ++r) {
    state_.zoneList.cells[r][0].clear();
    state_.zoneList.cells[r][1].clear();
  }
  for (ZoneRecord& z : p.zones) z.exists = z.opened = z.openedSinceSketch = false;
  menu_.sketchOpened();

  if (p.flags.sketchCount == 0 && !p.flags.fromFile) {
    // A new project's first sketch starts from the template.
    try {
      writeFileAtomic(state_.install.sketchFile(),
                      readFile(joinPath(state_.install.dir(), "sketch/bld_mtx2.000")));
      p.flags.newSketch = true;
    } catch (const FileError& e) {
      reportError(prompt_, e);
      return Next::Stay;
    }
  }
  p.flags.resketched = true;
  ++p.flags.sketchCount;
  return Next::Sketch;
}

Next Lifecycle::enterZones() {
  Project& p = state_.project;
  if (!p.flags.stepDone[1] && !p.flags.fromFile) {
    prompt_.message(Icon::Exclamation, "Error",
                    "Zone data cannot be edited because you have not entered the Project Information data.  "
                    "Please click the Project Information button.");
    return Next::Stay;
  }
  for (int z = 1; z <= p.zoneCount; ++z)
    if (p.zones[z].rowCount > kMaxSurfaceRows)
      prompt_.message(Icon::Exclamation, "Error",
                      "The number of exterior surfaces in zone " + p.zones[z].listedName +
                          " has exceeded the maximum of 33.  Return to the sketch and simplify the zone.");

  auto& grid = state_.zoneList.cells;
  for (int r = 1; r < ZoneListGrid::kRows - 1; ++r) {
    ZoneRecord& z = p.zones[r];
    if (r > p.zoneCount) {
      grid[r] = {};
      continue;
    }
    const std::string area = padded(z.listedFloorArea);
    grid[r] = {z.listedId, z.listedName, area};
    z.fields[kZoneId] = z.listedId;
    z.fields[kZoneName] = z.listedName;
    z.fields[kZoneFloorArea] = area;
  }

  if (p.flags.resketched) {
    try {
      // Works on a copy: a missing or damaged file leaves the zones as they were.
      Project next = p;
      next.data[kFloorArea] = padded(p.sketchFloorArea);
      next.data[kOrientation] = p.sketchOrientation;
      loadZoneDataAfterSketch(state_.install.dir(), next, state_.buildingTypeNumber);
      p = std::move(next);
    } catch (const FileError& e) {
      // Too many rows is the zone's own fault, already named above.
      if (e.number() == err::kSubscriptOutOfRange) {
        reportError(prompt_, e);
        return Next::Stay;
      }
      prompt_.message(Icon::Exclamation, "Zone data access Error",
                      "You have not drawn your building, or you have not named the building zone(s).  "
                      "Please return to the sketch program.");
      return Next::Stay;
    }
  }
  p.flags.resketched = false;
  p.flags.zonesOpened = true;
  return Next::ZoneList;
}

void Lifecycle::cleanUpAndQuit() { menu_.exit(); }

}  // namespace marloven
