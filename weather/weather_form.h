// The weather screen: the project's location picked from the database, its
// monthly statistics shown and edited, saved back as a new or replaced record,
// and deviations derived from a known extreme temperature.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "common/prompt.h"
#include "project/app_state.h"
#include "weather/epw_import.h"
#include "weather/weather_database.h"

namespace marloven {

// A box of the screen: the two names, the site data, a monthly value of a
// row, or a derivation input of a month.
struct WeatherBox {
  enum Kind { State, City, Station, Latitude, Longitude, TimeZone, Elevation, Month, AnnualExtreme, ExtremeDryBulb };
  Kind kind = State;
  int row = 0;    // Month: 0..7, in the order of WeatherRow
  int month = 0;  // Month, AnnualExtreme, ExtremeDryBulb: 0..11
};

// The caption of each monthly row, as the screen shows it.
extern const std::array<const char*, kWeatherRows> kWeatherRowCaptions;

class WeatherForm {
 public:
  WeatherForm(AppState& state, Prompt& prompt) : state_(state), prompt_(prompt) {}

  // The screen opens: the groups are listed and a project whose weather step
  // is done (or that came from a file) shows its own summary.
  void open();

  std::string caption() const;          // "Weather Data -- " + project file name
  std::string tutorialCaption() const;  // "WEATHER DATA -- " + project file name
  // "Deg. F", "Btu/sq.ft.", "Miles/hr." or their SI forms, for a row.
  std::string unitLabel(int row) const;

  const std::vector<std::string>& groups() const { return groups_; }
  const std::vector<std::string>& cities() const { return cities_; }
  const WeatherFields& fields() const { return fields_; }
  const std::string& text(const WeatherBox& b) const;
  bool edited() const { return edited_; }

  // The state list: a drop-down reads the database again, a click picks the
  // group, its first city and that record.
  void groupDropDown();
  void chooseGroup(int index);
  // The city list: a drop-down lists the cities of the state box again, a
  // click loads that city's record.
  void cityDropDown();
  void chooseCity(int index);
  // Focus leaves the state box: the cities of the typed state.
  void leaveState();

  // A key typed in a box: true when kept. Numeric boxes take digits, "-",
  // ".", Tab, Backspace and Enter; a kept key marks the data edited.
  bool keyPress(const WeatherBox& b, char key);
  // The box's text after a change; a derivation input derives its month's
  // deviations.
  void textChanged(const WeatherBox& b, const std::string& text);

  void saveNew();
  void saveUpdate();

  // "OK >>": true when the screen closes. With a state the location and the
  // summary go to the project and the weather step is done; unsaved edits
  // are asked about first.
  bool clickOk();
  // True after an OK that gave the project information screen its location.
  bool projectInfoLocationChanged() const { return projectInfoLocationChanged_; }

  // The statistics of a recorded year become a new record of the database,
  // as the command line's import makes it. The user is asked for group and
  // city, the file's own proposed; a place already in the database is
  // refused. The new record is then shown. False when nothing was added
  // (cancelled or refused; the user was told why).
  bool importRecorded(const EpwStatistics& stats);

 private:
  std::string& textRef(const WeatherBox& b);
  std::string databasePath() const;
  std::vector<WeatherRecordHead> heads() const;
  void listCitiesOf(const std::string& state);
  // Loads a record; derivation inputs that held other values run their rule
  // with 0.0 as they are reset.
  void load(const std::string& city, const std::string& state);

  AppState& state_;
  Prompt& prompt_;
  std::vector<std::string> groups_;
  std::vector<std::string> cities_;
  WeatherFields fields_;
  bool edited_ = false;
  bool projectInfoLocationChanged_ = false;
};

// A state text as the lists and searches use it: trailing blanks and marks
// removed.
std::string stateForSearch(std::string_view text);

}  // namespace marloven
