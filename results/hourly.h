// The hourly spreadsheets of a run: which of the three files, and what the
// user is told when none was chosen or it cannot be opened.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "common/prompt.h"
#include "project/app_state.h"

namespace marloven {

struct HourlyFile {
  const char* file;   // under the scratch folder
  const char* label;  // the option's caption
  const char* csv;    // the comma-separated copy a spreadsheet opens
};

// The engine's tab-separated hourly text as comma-separated values: a field
// holding a comma or a quote is quoted. Spreadsheets open a ".csv" into
// columns by themselves, which they do not do for a ".hry".
std::string hourlyCsv(const std::string& tabText);
extern const std::array<HourlyFile, 3> kHourlyFiles;

class HourlyForm {
 public:
  HourlyForm(AppState& state, Prompt& prompt) : state_(state), prompt_(prompt) {}

  std::string caption() const;  // "Marloven Hourly Data Output -- " + project file name
  void activate() { choice_ = 0; }
  void choose(int option) { choice_ = option + 1; }  // 0..2
  int choice() const { return choice_; }
  // "Display it Now": the comma-separated copy of the chosen file, made under
  // the scratch folder, to open; nothing after the reminder or a file error.
  std::optional<std::string> display();
  // "Save as CSV...": the chosen file's copy written to path; false after a
  // message (no choice) or the error report.
  bool saveCsv(const std::string& path);
  // The file could not be opened by the desktop.
  void openFailed();

 private:
  AppState& state_;
  Prompt& prompt_;
  int choice_ = 0;
};

}  // namespace marloven
