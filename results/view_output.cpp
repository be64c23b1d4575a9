#include "results/view_output.h"

#include <cctype>
#include <vector>

#include "common/error_report.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "common/text_lines.h"
#include "project/file_names.h"
#include "project/installation.h"

namespace marloven {

std::string comfortFromReport(const std::string& report) {
  std::vector<std::string> items;
  bool started = false;
  for (const std::string& line : splitLines(report)) {
    std::size_t i = 0;
    while (i <= line.size()) {
      while (i < line.size() && line[i] == ' ') ++i;
      std::string item;
      if (i < line.size() && line[i] == '"') {
        const std::size_t close = line.find('"', i + 1);
        item = line.substr(i + 1, close == std::string::npos ? std::string::npos : close - i - 1);
        i = close == std::string::npos ? line.size() : close + 1;
        const std::size_t comma = line.find(',', i);
        i = comma == std::string::npos ? line.size() + 1 : comma + 1;
      } else {
        const std::size_t comma = line.find(',', i);
        item = line.substr(i, comma == std::string::npos ? std::string::npos : comma - i);
        i = comma == std::string::npos ? line.size() + 1 : comma + 1;
      }
      if (!started && item.rfind("IX.", 0) == 0) started = true;
      if (started) items.push_back(item);
    }
  }
  std::string out;
  for (const std::string& item : items) out += item + "\r\n";
  return out;
}

std::optional<ViewOutputForm::View> ViewOutputForm::clickOk(const std::string& directory, const std::string& name) {
  const bool comfort = selector_ == 7;
  const std::string ext = name.size() >= 3 ? name.substr(name.size() - 3) : std::string();
  const std::string letters = ext.substr(0, 2);
  const bool lettersOk = comfort ? (letters == "FL" || letters == "fl") : (letters == "OT" || letters == "ot");
  if (ext.size() != 3 || !lettersOk || !std::isdigit(static_cast<unsigned char>(ext[2])) ||
      name[name.size() - 4] != '.') {
    prompt_.message(Icon::Exclamation, "Error",
                    comfort ? "The file extension name should be :  .fl + a number, Example :  trial.fl1 .  Try again."
                            : "The file extension name should be :  .ot + a number, Example :  trial.ot1  or   "
                              "trial.ot2 .  Try again.");
    return std::nullopt;
  }
  const std::string path = resolveUserPath(directory, name);
  Project& p = state_.project;
  try {
    if (comfort) {
      writeFileAtomic(state_.install.scratchFile("ecalc$.flt"), readFile(path));
    } else {
      const std::string report = readFile(path);
      writeFileAtomic(state_.install.scratchFile("ecalc$.out"), report);
      // The hourly files are optional: without them the output still shows.
      p.flags.hourlyOutputMade = false;
      const OutputFiles stored = outputFiles(path);
      try {
        writeFileAtomic(state_.install.scratchFile("ecalc$.hry"), readFile(stored.energy));
        writeFileAtomic(state_.install.scratchFile("etemp$.hry"), readFile(stored.temperatures));
        writeFileAtomic(state_.install.scratchFile("eweth$.hry"), readFile(stored.weather));
        p.flags.hourlyOutputMade = true;
      } catch (const FileError&) {
      }
      writeFileAtomic(state_.install.scratchFile("ecalc$.flt"), comfortFromReport(report));
    }
  } catch (const FileError& e) {
    reportError(prompt_, e);
    return std::nullopt;
  }
  p.outputFileName = path;
  p.flags.outputViewable = true;
  state_.tabular.zonePagesReady = false;
  if (comfort) return View{View::Comfort, 8};
  if (selector_ == 12) state_.results = {};
  if (state_.results.kind == 6) return View{View::Table, state_.results.index};
  if (state_.results.kind == 10) return View{View::Chart, state_.results.index};
  return View{View::Chart, 7};
}

}  // namespace marloven
