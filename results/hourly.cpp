#include "results/hourly.h"

#include "common/error_report.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "common/text_lines.h"

namespace marloven {

const std::array<HourlyFile, 3> kHourlyFiles = {{
    {"ecalc$.hry", "Abbreviated hourly weather and whole-building energy data", "hourly-energy.csv"},
    {"etemp$.hry", "Hourly outdoor and indoor temperatures and RH by zones", "hourly-temperatures.csv"},
    {"eweth$.hry", "Hourly weather data only", "hourly-weather.csv"},
}};

std::string HourlyForm::caption() const { return "Marloven Hourly Data Output -- " + state_.project.fileName; }

std::string hourlyCsv(const std::string& tabText) {
  std::string out;
  out.reserve(tabText.size() + tabText.size() / 8);
  for (const std::string& line : splitLines(tabText)) {
    std::size_t start = 0;
    bool firstField = true;
    while (start <= line.size()) {
      const std::size_t tab = line.find('\t', start);
      const std::string field = line.substr(start, tab == std::string::npos ? std::string::npos : tab - start);
      if (!firstField) out += ',';
      firstField = false;
      if (field.find_first_of(",\"") == std::string::npos) {
        out += field;
      } else {
        out += '"';
        for (char c : field) out += c == '"' ? std::string("\"\"") : std::string(1, c);
        out += '"';
      }
      if (tab == std::string::npos) break;
      start = tab + 1;
    }
    out += "\r\n";
  }
  return out;
}

std::optional<std::string> HourlyForm::display() {
  if (choice_ < 1 || choice_ > 3) {
    prompt_.message(Icon::Information, "Display Option", "You must first select a display option");
    return std::nullopt;
  }
  const HourlyFile& f = kHourlyFiles[static_cast<std::size_t>(choice_ - 1)];
  choice_ = 0;
  try {
    const std::string csv = state_.install.scratchFile(f.csv);
    writeFileAtomic(csv, hourlyCsv(readFile(state_.install.scratchFile(f.file))));
    return csv;
  } catch (const FileError& e) {
    reportError(prompt_, e);
    return std::nullopt;
  }
}

bool HourlyForm::saveCsv(const std::string& path) {
  if (choice_ < 1 || choice_ > 3) {
    prompt_.message(Icon::Information, "Display Option", "You must first select a display option");
    return false;
  }
  try {
    writeFileAtomic(path, hourlyCsv(readFile(state_.install.scratchFile(kHourlyFiles[static_cast<std::size_t>(choice_ - 1)].file))));
    return true;
  } catch (const FileError& e) {
    reportError(prompt_, e);
    return false;
  }
}

void HourlyForm::openFailed() {
  prompt_.message(Icon::Exclamation, "EXCEL Access Error",
                  "This function cannot be performed.  Either Excel is not on the execute path or the previous run "
                  "had a file creation error.  You may still access these three files under the "
                  "'yourdirectoryname\\temp' sub-directory if you can start your EXCEL application by another "
                  "method.  The hourly spreadsheet files have the '.hry' extension.");
}

}  // namespace marloven
