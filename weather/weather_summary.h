// From the weather screen's fields to the project and back: the location text,
// the 11 lines of the project's WeatherSummary, and the fields again from a
// summary that a project brought along.
#pragma once

#include <string>

#include "project/project_model.h"
#include "weather/weather_database.h"

namespace marloven {

// "city, state " + the mark: the project's location entry.
std::string locationText(const WeatherFields& f);

// The summary lines 1..11 in the units of the fields' texts:
//   line 2: the location up to column 50, the station in columns 51-55, then
//           latitude, longitude, time zone and elevation right-aligned in 6
//           columns each (56-61, 62-67, 68-73, 74-79);
//   lines 4..11: a 7-character tag and 12 values in 6 columns, one decimal,
//           solar whole.
// The station is cut or padded to 5 characters so that the columns after it
// stay where the readers look for them.
WeatherSummary buildSummary(const WeatherFields& f);

// Applies the location and the summary to the project (entry 3 and the
// weather lines). The screen marks the weather step as done.
void applyWeather(Project& p, const WeatherFields& f);

// The screen's fields from a project's summary: the location of line 2 split
// as a database location, the site data from their columns, the 96 values
// from columns 9, 15, 21, ... 5 wide; all rounded to one decimal (solar
// whole) and right-aligned in 5 columns.
WeatherFields fieldsFromSummary(const WeatherSummary& w);

// The deviations of month m (0..11) derived from a known extreme temperature:
// the maximum's deviation from how far the extreme lies above the mean daily
// maximum, in units of factor (2.11 for a mean annual extreme, 3.1 for a
// record extreme), the mean's as 0.87 of it, the dew point's equal to the
// mean's. Texts with a leading blank when not negative.
void deriveDeviations(WeatherFields& f, int m, double extreme, double factor);

}  // namespace marloven
