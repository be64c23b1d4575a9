#include "results/hourly.h"

namespace marloven {

const std::array<HourlyFile, 3> kHourlyFiles = {{
    {"ecalc$.hry", "Abbreviated hourly weather and whole-building energy data"},
    {"etemp$.hry", "Hourly outdoor and indoor temperatures and RH by zones"},
    {"eweth$.hry", "Hourly weather data only"},
}};

std::string HourlyForm::caption() const { return "Marloven Hourly Data Output -- " + state_.project.fileName; }

std::optional<std::string> HourlyForm::display() {
  if (choice_ < 1 || choice_ > 3) {
    prompt_.message(Icon::Information, "Display Option", "You must first select a display option");
    return std::nullopt;
  }
  const std::string path = state_.install.scratchFile(kHourlyFiles[static_cast<std::size_t>(choice_ - 1)].file);
  choice_ = 0;
  return path;
}

void HourlyForm::openFailed() {
  prompt_.message(Icon::Exclamation, "EXCEL Access Error",
                  "This function cannot be performed.  Either Excel is not on the execute path or the previous run "
                  "had a file creation error.  You may still access these three files under the "
                  "'yourdirectoryname\\temp' sub-directory if you can start your EXCEL application by another "
                  "method.  The hourly spreadsheet files have the '.hry' extension.");
}

}  // namespace marloven
