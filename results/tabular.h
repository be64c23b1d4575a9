// The tabular screen's rules: which span or page it shows under which
// caption, the zone pages (four zones on the first, five on each later one),
// the weather split at seven months, the comfort pages, the buttons, and
// leaving with unsaved results.
#pragma once

#include <array>
#include <string>

#include "common/prompt.h"
#include "project/app_state.h"
#include "results/read_status.h"

namespace marloven {

// The Summary buttons by index.
enum TabularButton : int {
  kTabProject = 0, kTabZones, kTabSummaries, kTabHvac, kTabPeaks, kTabCosts, kTabWeather,
  kTabPrint, kTabMainMenu, kTabHourly, kTabComfort, kTabButtons
};
extern const std::array<const char*, kTabButtons> kTabularCaptions;

// Splits <scratchDir>/tabzone.txt into <scratchDir>/1.txt, 2.txt, ...: the
// page count.
int splitZonePages(const std::string& scratchDir);
// Splits <scratchDir>/tabweat.txt into 1wth.txt and 2wth.txt at the seventh
// month: the months counted.
int splitWeatherPages(const std::string& scratchDir);

class TabularForm {
 public:
  TabularForm(AppState& state, Prompt& prompt) : state_(state), prompt_(prompt) {}

  // A View Output table entry 1..8 (project data .. comfort), or the chart
  // screens' "Tabular" (3): the section shown as its button would.
  void showTable(int table);
  // A Summary button 0..6 or 10 (print, leave and hourly are the screen's).
  void clickSummary(int index);
  // "Next >>" (1) and "<< Previous" (2).
  void clickPage(int index);
  // "Main Menu": Close, or SaveOutput (the dialog without Run), or Stay.
  enum class Leave { Close, SaveOutput, Stay };
  Leave clickMainMenu();
  // Save Output: its button goes off while the dialog is up.
  void clickSave() { saveEnabled_ = false; }

  const std::string& text() const { return text_; }
  std::string caption() const;
  const std::string& title() const { return title_; }
  bool summaryEnabled(int index) const { return enabled_.at(static_cast<std::size_t>(index)); }
  bool nextEnabled() const { return next_; }
  bool previousEnabled() const { return previous_; }
  bool saveEnabled() const { return saveEnabled_; }

 private:
  void show(const std::string& file, const std::string& title);
  void showZonePage();
  bool failed(const ReadStatus& st);

  AppState& state_;
  Prompt& prompt_;
  std::string text_;
  std::string title_;
  std::array<bool, kTabButtons> enabled_{};
  bool next_ = false, previous_ = false, saveEnabled_ = true;
  int comfortIndex_ = 0;
};

}  // namespace marloven
