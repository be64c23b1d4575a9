// Monthly statistics of a database record made from a recorded hourly weather
// file in the EPW layout (8 header lines, then one comma-separated record per
// hour; fields used: 2 month, 3 day, 7 dry bulb C, 8 dew point C, 14 global
// horizontal Wh/m2, 22 wind m/s; the LOCATION line gives the site).
#pragma once

#include <array>
#include <stdexcept>
#include <string>
#include <string_view>

#include "weather/weather_database.h"

namespace marloven {

// A file that cannot give a record; the message says why and where.
class WeatherImportError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct EpwSite {
  std::string city, state, country, source, station;
  double latitude = 0;    // degrees, north positive
  double longitude = 0;   // degrees, east positive
  double timeZone = 0;    // hours from GMT, east positive
  double elevation = 0;   // m
};

struct EpwStatistics {
  EpwSite site;
  // [row][month 0..11] in I-P, in the order of the database rows.
  std::array<std::array<double, 12>, kWeatherRows> months{};
  std::array<int, 12> days{};  // days seen in each month
};

// The statistics of a whole file's bytes. WeatherImportError when the file has
// no LOCATION line, a record has too few fields, or a month has no data.
EpwStatistics readEpw(std::string_view bytes);

// The group a place goes to when none is given: the state's name for the
// United States (and Puerto Rico), otherwise the country as the file names it.
std::string defaultWeatherGroup(const EpwSite& site);

// The fields of a database record (I-P) for the statistics. The site goes into
// the database's conventions: longitude positive west, the time zone as the
// standard meridian in degrees west, the elevation in whole feet. The city is
// cut so that "city, group" fits the location text of a new group (37
// characters). WeatherImportError for a group or city that the location text
// cannot hold (a comma, a quote, a mark in the group, an empty name).
WeatherFields fieldsFromEpw(const EpwStatistics& s, const std::string& group, const std::string& city);

// Adds the record of the statistics to the database at path as Save As New
// does (I-P). False, and nothing written, when the database already has a
// place of that city and group. fields gets the record as written.
bool importWeatherRecord(const std::string& path, const EpwStatistics& s, const std::string& group,
                         const std::string& city, WeatherFields& fields, int& record);

}  // namespace marloven
