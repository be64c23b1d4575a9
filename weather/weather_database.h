// The weather database weather/weth.asc: monthly climate statistics of places,
// grouped by state or country, always I-P in the file.
//
// A record is exactly 10 lines:
//
//   "Co","Colorad"
//   "DENVER INTL AP, Colorado !           " "725650" 39.8  104.7  105 5413
//     33.4  31.9    43  42.5  59.9 ...                (8 rows of 12 values)
//
// Line 1: a 2-character code and the group name cut to 7 characters. Line 2:
// the location text "city, state" with optional marks ("!", "#", "*", "@", a
// mark may be followed by "#"), the station number as text, latitude,
// longitude, time zone (standard meridian) and elevation (ft). Lines 3..10:
// the eight monthly rows in 6 columns each, in the order of WeatherRow.
//
// Searches go by the city and state taken from the location text, never by the
// 7-character group name, so groups alike in their first 7 characters stay
// apart. The city is the text before the first comma, so a city that holds a
// comma of its own cannot be found under its full name again.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "project/project_model.h"

namespace marloven {

inline constexpr int kMaxWeatherRecords = 3000;
inline constexpr int kWeatherRecordLines = 10;

// The monthly rows of a record, in file order.
enum WeatherRow : int {
  kDryBulbAverage = 0,   // F
  kDryBulbAverageStd,    // F
  kDryBulbMaximum,       // F, mean daily maximum
  kDryBulbMaximumStd,    // F
  kDewPointAverage,      // F
  kDewPointStd,          // F
  kSolar,                // Btu/sq.ft. per day
  kWind,                 // miles/hr
  kWeatherRows
};

// The head of a record: its first two lines, as the lists and searches use it.
struct WeatherRecordHead {
  int number = 0;           // 1-based position in the file
  std::string code;         // line 1, first text
  std::string groupName;    // line 1, second text (7 characters)
  std::string location;     // line 2, the quoted location text with its blanks
  std::string station;
  double latitude = 0, longitude = 0, timeZone = 0;
  std::string elevation;    // the field's text
  std::string city;         // before the first comma
  std::string state;        // behind ", " without trailing blanks and marks
  std::string mark;         // "", "!", "#", "*", "@", or one of them followed by "#"
};

struct WeatherGroup {
  std::string state;        // as listed
  int firstRecord = 0;      // 1-based
  int count = 0;
};

// The texts of the weather screen: site data, the 96 monthly values in the
// current units, and what a load keeps (record number and mark).
struct WeatherFields {
  std::string state;        // sttext
  std::string city;         // citytext
  std::string station;      // WMO
  std::string latitude, longitude, timeZone, elevation;
  std::array<std::array<std::string, 12>, kWeatherRows> rows;  // [row][month 0..11]
  // The derivation inputs of the screen; a load sets them to "0.0".
  std::array<std::string, 12> annualExtreme;
  std::array<std::string, 12> extremeDryBulb;
  std::string mark;
  int record = 0;           // 1-based number of the loaded record; 0 none
};

// The comma-and-blank tolerant reading of one line's fields: a quoted text runs
// to its closing quote; an unquoted field ends at a comma or the line's end
// (a number also at a blank); blanks and one comma after a field are skipped.
class FieldReader {
 public:
  explicit FieldReader(std::string_view line) : line_(line) {}
  std::string text();
  double number();
  // The unquoted field's text as it stands (numbers kept as text).
  std::string token();
  bool atEnd() const;

 private:
  void skipSeparator();
  std::string_view line_;
  std::size_t pos_ = 0;
};

// City, state and mark of a location text.
void splitLocation(std::string_view location, std::string& city, std::string& state, std::string& mark);

// installDir/weather/weth.asc
std::string weatherDatabasePath(const std::string& installDir);

// The heads of the records in the bytes of a database, at most 3000. FileError
// 62 when the last record has fewer than 10 lines.
std::vector<WeatherRecordHead> readRecordHeads(std::string_view bytes);
// The same on a file; a missing file has no records.
std::vector<WeatherRecordHead> readRecordHeadsFile(const std::string& path);

// Groups in file order with their first record and count. A group changes
// where the group name or the state of the location text changes.
std::vector<WeatherGroup> listGroups(const std::vector<WeatherRecordHead>& heads);
// Cities of one state in file order.
std::vector<std::string> listCities(const std::vector<WeatherRecordHead>& heads, std::string_view state);
// The first record whose city and state are these.
const WeatherRecordHead* findLocation(const std::vector<WeatherRecordHead>& heads, std::string_view city,
                                      std::string_view state);

// The fields of the record of this city and state in the given units, or
// nothing when no record matches (the screen's fields then stay unchanged).
std::optional<WeatherFields> loadRecord(std::string_view bytes, std::string_view city, std::string_view state,
                                        UnitSystem units);
std::optional<WeatherFields> loadRecordFile(const std::string& path, std::string_view city, std::string_view state,
                                            UnitSystem units);

// The 10 lines of a record (CR LF each) made from the fields in the given units.
// code is the group's code for an existing group; a new group takes the first
// two characters of the state and the mark "!".
std::string formatRecord(const WeatherFields& f, UnitSystem units, bool newGroup, std::string_view code = {});

// What a save did; the screen shows message(outcome) unless it is Saved.
enum class SaveOutcome { Saved, NothingEdited, NotFound, Full };
struct WeatherMessage {
  std::string_view title;
  std::string_view text;
};
WeatherMessage saveMessage(SaveOutcome outcome);

// Save As New: behind the last record of the group whose state is f.state, or
// appended as a new group marked "!". The database is replaced whole or, on a
// failure, not at all. Returns the new record's number. Full, and nothing
// written, when the database holds kMaxWeatherRecords places: the reader would
// never see a record behind them.
SaveOutcome saveAsNew(const std::string& path, const WeatherFields& f, UnitSystem units, bool edited,
                      int* recordNumber = nullptr);
// Save As Update: replaces record f.record, when a record of f.city and f.state
// exists at all.
SaveOutcome saveAsUpdate(const std::string& path, const WeatherFields& f, UnitSystem units, bool edited);

}  // namespace marloven
