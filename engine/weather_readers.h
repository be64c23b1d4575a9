// Readers of recorded weather files. Every value is converted to I-P on
// reading; gaps are filled; the hours are fitted to the calendar year.
#pragma once

#include <string>
#include <string_view>

#include "engine/run_log.h"
#include "engine/weather.h"

namespace tarn {

// Format numbers of the control file.
enum class WeatherFormat : int { Simulated = 0, Tmy2 = 1, Wyec2 = 2, Custom = 3, Epw = 4, Tmy3 = 5 };

// The format the content shows, which wins over the control file's code:
// an EPW "LOCATION," first line or a TMY3 CSV second line.
WeatherFormat detectFormat(std::string_view bytes, WeatherFormat declared);

// Reads a recorded year for the calendar year `year`. projectSite is used when
// the file has no location. Raises RunFailure(BadWeather) when the file is
// unreadable or short.
WeatherYear readRecorded(std::string_view bytes, WeatherFormat format, int year,
                         const Site& projectSite, RunLog& log);

}  // namespace tarn
