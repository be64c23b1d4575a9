// Opening a stored output: the name test of the view dialog, the copy of the
// report (and its hourly files) back under the scratch folder, the comfort
// table rebuilt from the report, and which table or chart follows.
#pragma once

#include <optional>
#include <string>

#include "common/prompt.h"
#include "project/app_state.h"

namespace marloven {

// Section "IX." of a report and on, as the comfort file of a stored output
// holds it: read item by item (an item ends at a comma or a line end, its
// leading blanks dropped, quotes taken off), one item a line.
std::string comfortFromReport(const std::string& report);

class ViewOutputForm {
 public:
  // selector: 6 a table asked for, 10 a chart, 12 any output, 7 a comfort file.
  ViewOutputForm(AppState& state, Prompt& prompt, int selector)
      : state_(state), prompt_(prompt), selector_(selector) {}

  std::string pattern() const { return selector_ == 7 ? "*.fl*" : "*.ot*"; }
  static constexpr const char* kCaption = "View Output";

  // What follows a stored output's opening.
  struct View {
    enum Kind { Table, Chart, Comfort } kind;
    int number;
  };
  // OK with the typed name in the dialog's folder: nothing (after a message)
  // when the name or the copy fails, so the dialog stays.
  std::optional<View> clickOk(const std::string& directory, const std::string& name);

 private:
  AppState& state_;
  Prompt& prompt_;
  int selector_;
};

}  // namespace marloven
