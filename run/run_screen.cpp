#include "run/run_screen.h"

#include <cstdio>

#include "common/error_report.h"
#include "common/file_error.h"
#include "project/design_temperature.h"

namespace marloven {

std::string elapsedText(double seconds) {
  char b[32];
  std::snprintf(b, sizeof b, "%.2f", seconds < 0 ? 0.0 : seconds);
  std::string t = b;
  while (t.back() == '0') t.pop_back();
  if (t.rfind("0.", 0) == 0) t.erase(0, 1);
  return t;
}

void RunScreen::load(const std::string& timeText) {
  choices_ = initialChoices(state_);
  stage_ = Stage::SetUp;
  problems_.clear();
  status_ = "Run Status Indicator...  Time=" + timeText;
}

void RunScreen::activate() {
  Project& p = state_.project;
  try {
    if (designTemperaturesNeeded(p)) estimateDesignTemperatures(p);
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
  for (int i = 0; i < 3; ++i) choices_.designTemps[i] = p.designTemps.values[i + 1];
  p.data[kConstructionYear] = choices_.year;
}

std::string RunScreen::caption() const { return "Run Energy Simulation -- " + state_.project.fileName; }

bool RunScreen::clickWeather(int index) {
  Project& p = state_.project;
  bool showFiles = false;
  if (index == 1) {
    choices_.recordedWeather = true;
    choices_.weeks = {false, false, false, true};
    showFiles = true;
  } else {
    choices_.recordedWeather = false;
    p.flags.recordedWeatherPicked = false;
  }
  p.data[kConstructionYear] = choices_.year;
  return showFiles;
}

void RunScreen::clickWeek(int i) {
  if (choices_.recordedWeather || i < 0 || i > 3) return;
  const bool was = choices_.weeks[static_cast<std::size_t>(i)];
  choices_.weeks = {};
  choices_.weeks[static_cast<std::size_t>(i)] = !was;
}

void RunScreen::clickMonth(int i) {
  if (i < 0 || i > 11) return;
  choices_.skip[static_cast<std::size_t>(i)] = !choices_.skip[static_cast<std::size_t>(i)];
}

void RunScreen::yearChanged(const std::string& text) {
  choices_.year = text;
  state_.project.data[kConstructionYear] = text;
}

void RunScreen::executePressed(const std::string& timeText) {
  status_ = "Simulation Started at " + timeText + " Please Stand By";
}

bool RunScreen::execute(const std::string& scratchDir, const std::function<double()>& random, const RunClock& clock) {
  const int kind = state_.project.flags.runKind;
  if (kind >= 2 && kind <= 4) choices_.kind = kind;
  if (!setUpRun(state_, choices_, scratchDir, prompt_, random, clock)) {
    stage_ = Stage::SetUp;
    return false;
  }
  stage_ = Stage::Running;
  progress_ = 30;
  problems_.clear();
  return true;
}

void RunScreen::tick(const std::string& timeText) {
  status_ = "Run Status Indicator...  Time=" + timeText;
  progress_ += 10;
  if (progress_ > 100) progress_ = 30;
}

void RunScreen::engineEnded(const std::string& timeText, double seconds, int exitStatus, const std::string& why,
                            const std::string& scratchDir) {
  stage_ = Stage::Finished;
  status_ = "Simulation Completed at " + timeText + "\r" + "Total time = " + elapsedText(seconds) + " Sec.";
  problems_.clear();
  if (exitStatus < 0) {
    reportError(prompt_, err::kFileNotFound);
    problems_.push_back("The simulation program could not be started: " + why);
  } else {
    problems_ = engineErrors(scratchDir);
    if (exitStatus != 0 && problems_.empty())
      problems_.push_back("The simulation program stopped with status " + std::to_string(exitStatus) + ".");
  }
  if (!problems_.empty()) status_ += "\rThe simulation did not finish: its results are missing or incomplete.";
}

bool RunScreen::reviewResults(const std::string& scratchDir) {
  ProjectFlags& f = state_.project.flags;
  f.outputSaved = false;
  f.outputViewable = true;
  f.inputSaved = false;
  f.runKind = 0;
  state_.project.previousName = state_.project.fileName;
  try {
    joinReport(scratchDir);
    return true;
  } catch (const FileError& e) {
    reportError(prompt_, e);
    return false;
  }
}

}  // namespace marloven
