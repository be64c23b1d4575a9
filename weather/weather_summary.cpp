#include "weather/weather_summary.h"

#include <cmath>

#include "common/masks.h"
#include "common/number_text.h"
#include "common/text_lines.h"

namespace marloven {

namespace {

constexpr std::array<const char*, kWeatherRows> kSummaryTags = {
    "DB Ave ", "Ave Std", "DB Max ", "Max Std", "DP Ave ", "DP Std ", "SOLAR  ", "WIND   "};

int digitsOf(int row) { return row == kSolar ? 0 : 1; }

// 6 − length blanks in front.
std::string rightIn6(const std::string& s) { return s.size() < 6 ? std::string(6 - s.size(), ' ') + s : s; }

std::string shownFrom(std::string_view text, int digits) {
  return applyMask(bare(roundTo(leadingNumber(text), digits)), "@@@@@");
}

}  // namespace

std::string locationText(const WeatherFields& f) { return f.city + ", " + f.state + " " + f.mark; }

WeatherSummary buildSummary(const WeatherFields& f) {
  WeatherSummary w;
  w.lines[1] = std::string(51, ' ') + "WMO#  Lat. Long.  STM.  Elev";

  std::string line = locationText(f);
  if (line.size() < 50) line.resize(50, ' ');
  std::string station = f.station.substr(0, std::min<std::size_t>(5, f.station.size()));
  station.resize(5, ' ');
  line += station + rightIn6(f.latitude) + rightIn6(f.longitude) + rightIn6(f.timeZone) + rightIn6(f.elevation);
  w.lines[2] = line;

  w.lines[3] = "          Jan   Feb   Mar   Apr   May   Jun   Jul   Aug   Sep   Oct   Nov   Dec";
  for (int row = 0; row < kWeatherRows; ++row) {
    std::string values = kSummaryTags[row];
    for (int m = 0; m < 12; ++m)
      values += applyMask(bare(roundTo(leadingNumber(f.rows[row][m]), digitsOf(row))), "@@@@@@");
    w.lines[4 + row] = values;
  }
  return w;
}

void applyWeather(Project& p, const WeatherFields& f) {
  p.data[kLocation] = locationText(f);
  const WeatherSummary w = buildSummary(f);
  p.weather.lines = w.lines;
}

WeatherFields fieldsFromSummary(const WeatherSummary& w) {
  WeatherFields f;
  const std::string& line2 = w.lines[2];
  splitLocation(midText(line2, 1, 50), f.city, f.state, f.mark);
  std::string_view station = midText(line2, 51, 5);
  while (!station.empty() && station.back() == ' ') station.remove_suffix(1);
  f.station = std::string(station);
  f.latitude = shownFrom(midText(line2, 56, 6), 1);
  f.longitude = shownFrom(midText(line2, 62, 6), 1);
  f.timeZone = shownFrom(midText(line2, 68, 6), 1);
  f.elevation = shownFrom(midText(line2, 74, 6), 1);
  for (int row = 0; row < kWeatherRows; ++row)
    for (int m = 0; m < 12; ++m)
      f.rows[row][m] = shownFrom(midText(w.lines[4 + row], static_cast<std::size_t>(9 + 6 * m), 5), digitsOf(row));
  f.annualExtreme.fill("0.0");
  f.extremeDryBulb.fill("0.0");
  return f;
}

void deriveDeviations(WeatherFields& f, int m, double extreme, double factor) {
  const double dbMax = leadingNumber(f.rows[kDryBulbMaximum][m]);
  const double maxStd = std::floor(((extreme - dbMax) / factor) * 10.0 + 0.5) / 10.0;
  const double aveStd = std::floor(maxStd * 0.87 * 10.0 + 0.5) / 10.0;
  f.rows[kDryBulbMaximumStd][m] = padded(static_cast<float>(maxStd));
  f.rows[kDryBulbAverageStd][m] = padded(static_cast<float>(aveStd));
  f.rows[kDewPointStd][m] = f.rows[kDryBulbAverageStd][m];
}

}  // namespace marloven
