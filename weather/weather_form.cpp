#include "weather/weather_form.h"

#include "common/error_report.h"
#include "common/file_error.h"
#include "common/keys.h"
#include "common/number_text.h"
#include "weather/weather_summary.h"

namespace marloven {

const std::array<const char*, kWeatherRows> kWeatherRowCaptions = {
    "Bry Bulb Ave:", "Ave. Std. Dev:", "Bry Bulb Max:", "Max. Std. Dev:",
    "Dewpoint Ave:", "DP Std. Dev:",   "Solar Radiation:", "Wind Speed:"};

namespace {

constexpr double kAnnualExtremeFactor = 2.11;
constexpr double kRecordExtremeFactor = 3.1;

bool isMark(char c) { return c == '!' || c == '#' || c == '*' || c == '@'; }

bool numericKey(char k) {
  return k == key::kTab || k == key::kBackspace || k == key::kEnter || k == '-' || k == '.' || key::isDigit(k);
}

}  // namespace

std::string stateForSearch(std::string_view text) {
  std::size_t end = text.size();
  while (end > 0 && (text[end - 1] == ' ' || isMark(text[end - 1]))) --end;
  return std::string(text.substr(0, end));
}

std::string WeatherForm::databasePath() const { return weatherDatabasePath(state_.install.dir()); }

std::vector<WeatherRecordHead> WeatherForm::heads() const { return readRecordHeadsFile(databasePath()); }

void WeatherForm::open() {
  fields_ = {};
  fields_.annualExtreme.fill("0.0");
  fields_.extremeDryBulb.fill("0.0");
  edited_ = false;
  projectInfoLocationChanged_ = false;
  const Project& p = state_.project;
  if ((p.flags.stepDone[2] || p.flags.fromFile) && !p.weather.lines[2].empty()) {
    fields_ = fieldsFromSummary(p.weather);
    fields_.annualExtreme.fill("0.0");
    fields_.extremeDryBulb.fill("0.0");
  }
  groupDropDown();
  try {
    if (!fields_.state.empty()) listCitiesOf(fields_.state);
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
}

std::string WeatherForm::caption() const { return "Weather Data -- " + state_.project.fileName; }

std::string WeatherForm::tutorialCaption() const { return "WEATHER DATA -- " + state_.project.fileName; }

std::string WeatherForm::unitLabel(int row) const {
  const bool si = state_.project.units == UnitSystem::SI;
  if (row == kSolar) return si ? "kJ/sq.m." : "Btu/sq.ft.";
  if (row == kWind) return si ? "m/sec." : "Miles/hr.";
  return si ? "Deg. C" : "Deg. F";
}

std::string& WeatherForm::textRef(const WeatherBox& b) {
  switch (b.kind) {
    case WeatherBox::State: return fields_.state;
    case WeatherBox::City: return fields_.city;
    case WeatherBox::Station: return fields_.station;
    case WeatherBox::Latitude: return fields_.latitude;
    case WeatherBox::Longitude: return fields_.longitude;
    case WeatherBox::TimeZone: return fields_.timeZone;
    case WeatherBox::Elevation: return fields_.elevation;
    case WeatherBox::Month: return fields_.rows.at(b.row).at(b.month);
    case WeatherBox::AnnualExtreme: return fields_.annualExtreme.at(b.month);
    case WeatherBox::ExtremeDryBulb: return fields_.extremeDryBulb.at(b.month);
  }
  throw FileError(err::kSubscriptOutOfRange, "weather box");
}

const std::string& WeatherForm::text(const WeatherBox& b) const {
  return const_cast<WeatherForm*>(this)->textRef(b);
}

void WeatherForm::groupDropDown() {
  groups_.clear();
  try {
    for (const WeatherGroup& g : listGroups(heads())) groups_.push_back(g.state);
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
}

void WeatherForm::listCitiesOf(const std::string& state) { cities_ = listCities(heads(), state); }

void WeatherForm::chooseGroup(int index) {
  if (index < 0 || index >= static_cast<int>(groups_.size())) return;
  try {
    fields_.state = stateForSearch(groups_[index]);
    listCitiesOf(fields_.state);
    if (cities_.empty()) return;
    fields_.city = cities_.front();
    load(fields_.city, fields_.state);
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
}

void WeatherForm::cityDropDown() {
  try {
    listCitiesOf(fields_.state);
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
}

void WeatherForm::chooseCity(int index) {
  if (index < 0 || index >= static_cast<int>(cities_.size())) return;
  try {
    fields_.city = cities_[index];
    load(fields_.city, fields_.state);
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
}

void WeatherForm::leaveState() { cityDropDown(); }

void WeatherForm::load(const std::string& city, const std::string& state) {
  std::optional<WeatherFields> f = loadRecordFile(databasePath(), city, state, state_.project.units);
  if (!f) return;
  const WeatherFields before = fields_;
  fields_ = std::move(*f);
  // The reset of a derivation input that held another value is a change of
  // its text: its rule runs with 0.0 against the newly loaded maximum.
  for (int m = 0; m < 12; ++m)
    if (before.annualExtreme[m] != "0.0") deriveDeviations(fields_, m, 0.0, kAnnualExtremeFactor);
  for (int m = 0; m < 12; ++m)
    if (before.extremeDryBulb[m] != "0.0") deriveDeviations(fields_, m, 0.0, kRecordExtremeFactor);
}

bool WeatherForm::keyPress(const WeatherBox& b, char k) {
  switch (b.kind) {
    case WeatherBox::Station: return true;
    case WeatherBox::State:
    case WeatherBox::City: edited_ = true; return true;
    default: break;
  }
  if (!numericKey(k)) {
    prompt_.message(Icon::Exclamation, "Error", "Please use numerical values.");
    return false;
  }
  edited_ = true;
  return true;
}

void WeatherForm::textChanged(const WeatherBox& b, const std::string& text) {
  std::string& t = textRef(b);
  if (t == text) return;
  t = text;
  if (b.kind == WeatherBox::AnnualExtreme)
    deriveDeviations(fields_, b.month, leadingNumber(text), kAnnualExtremeFactor);
  if (b.kind == WeatherBox::ExtremeDryBulb)
    deriveDeviations(fields_, b.month, leadingNumber(text), kRecordExtremeFactor);
}

void WeatherForm::saveNew() {
  try {
    int record = 0;
    const SaveOutcome o = saveAsNew(databasePath(), fields_, state_.project.units, edited_, &record);
    if (o != SaveOutcome::Saved) {
      const WeatherMessage m = saveMessage(o);
      prompt_.message(Icon::Information, m.title, m.text);
      return;
    }
    edited_ = false;
    // The new record is the current one now: a later update must not replace
    // the record it was copied from.
    fields_.record = record;
    groupDropDown();
    listCitiesOf(fields_.state);
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
}

void WeatherForm::saveUpdate() {
  try {
    const SaveOutcome o = saveAsUpdate(databasePath(), fields_, state_.project.units, edited_);
    if (o != SaveOutcome::Saved) {
      const WeatherMessage m = saveMessage(o);
      prompt_.message(Icon::Information, m.title, m.text);
      return;
    }
    edited_ = false;
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
}

bool WeatherForm::clickOk() {
  if (fields_.state.empty()) return true;
  if (edited_) {
    const Answer a = prompt_.ask(Buttons::YesNo, Icon::Question, "Save Weather Data",
                                 "You have edited some values of the weather data.  Click 'Save As New' to save "
                                 "the data into a new record, or 'Save As Update' to update the weather file.  "
                                 "Save new data now?");
    if (a == Answer::Yes) return false;
    edited_ = false;
  }
  Project& p = state_.project;
  const auto before = p.weather.lines;
  applyWeather(p, fields_);
  p.flags.stepDone[2] = true;
  p.flags.projectDataFilled = true;
  // Design temperatures estimated from other weather are estimated again.
  if (p.weather.lines != before) p.designTemps.known = false;
  if (p.flags.weatherRereadPending) {
    projectInfoLocationChanged_ = true;
    p.flags.weatherRereadPending = false;
  }
  return true;
}

bool WeatherForm::importRecorded(const EpwStatistics& stats) {
  const std::string title = "Import Recorded Weather";
  const std::optional<std::string> group =
      prompt_.input(title, "U.S. state or country of the new record:", defaultWeatherGroup(stats.site));
  if (!group) return false;
  const std::optional<std::string> city = prompt_.input(title, "City of the new record:", stats.site.city);
  if (!city) return false;
  try {
    WeatherFields added;
    int record = 0;
    if (!importWeatherRecord(databasePath(), stats, *group, *city, added, record)) {
      prompt_.message(Icon::Exclamation, title,
                      "The weather database already has " + added.city + ", " + added.state +
                          ".  Give the city another name.");
      return false;
    }
    groupDropDown();
    fields_.state = added.state;
    listCitiesOf(added.state);
    fields_.city = added.city;
    load(added.city, added.state);
    return true;
  } catch (const WeatherImportError& e) {
    prompt_.message(Icon::Exclamation, title, e.what());
  } catch (const FileError& e) {
    reportError(prompt_, e);
  }
  return false;
}

}  // namespace marloven
