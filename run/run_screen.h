// The run screen's rules: its options as data (the highlighted week and
// month labels are the choice), the set-up on Execute Run, the watch of the
// engine, and Review Results joining the report. The desktop program starts
// and watches the engine process; this says what the screen shows.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "common/prompt.h"
#include "project/app_state.h"
#include "run/run_setup.h"

namespace marloven {

// The kind dialog before a run.
struct RunOptionsScreen {
  static constexpr const char* kCaption = "Marloven run Options";
  static constexpr const char* kWithHvac = "Run with conventional Heating and Air Conditioning";
  static constexpr const char* kPassive = "Comfort analysis with no HVAC (Passive Analysis)";
};

// "####.##": up to two decimals, no zero before the point, none after it.
std::string elapsedText(double seconds);

class RunScreen {
 public:
  enum class Stage { SetUp, Running, Finished };

  RunScreen(AppState& state, Prompt& prompt) : state_(state), prompt_(prompt) {}

  // The screen loads: the choices, the status line with the time.
  void load(const std::string& timeText);
  // The screen comes up: design temperatures estimated when the project has
  // none, the year box taken as the project's year.
  void activate();

  std::string caption() const;  // "Run Energy Simulation -- " + project file name
  RunChoices& choices() { return choices_; }
  const RunChoices& choices() const { return choices_; }
  Stage stage() const { return stage_; }
  const std::string& status() const { return status_; }
  // The engine's errors when it failed, for the finished screen to show.
  const std::vector<std::string>& problems() const { return problems_; }
  bool executeEnabled() const { return stage_ == Stage::SetUp; }
  // Nothing stops a running engine, and a finished run goes on only to its results.
  bool cancelEnabled() const { return stage_ == Stage::SetUp; }
  bool reviewEnabled() const { return stage_ == Stage::Finished; }
  bool designTempsEnabled() const { return !choices_.recordedWeather; }
  bool progressVisible() const { return stage_ == Stage::Running; }
  int progress() const { return progress_; }

  // Weather options: 1 is recorded weather (true: the file screen is to be
  // shown), 0 simulated.
  bool clickWeather(int index);
  void clickWeek(int i);
  void clickMonth(int i);
  // The year box after a key: it is the project's year from now on.
  void yearChanged(const std::string& text);

  // Execute Run pressed: the status says the run starts.
  void executePressed(const std::string& timeText);
  // Released: the set-up in scratchDir. True when the engine is to start; the
  // screen is then running. Otherwise the screen stays in set-up.
  bool execute(const std::string& scratchDir, const std::function<double()>& random, const RunClock& clock);
  // Each second of the run.
  void tick(const std::string& timeText);
  // The engine ended (exitStatus -1: it could not be started, with why).
  void engineEnded(const std::string& timeText, double seconds, int exitStatus, const std::string& why,
                   const std::string& scratchDir);
  // Review Results: the flags of a finished run and the joined report. False
  // (after the error report) when a part of the report is missing.
  bool reviewResults(const std::string& scratchDir);

 private:
  AppState& state_;
  Prompt& prompt_;
  RunChoices choices_;
  Stage stage_ = Stage::SetUp;
  std::string status_;
  std::vector<std::string> problems_;
  int progress_ = 30;
};

}  // namespace marloven
