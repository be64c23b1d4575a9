// The hourly weather year the loads pass runs on, and where it comes from:
// synthesis from the project's monthly statistics or a recorded file.
//
// Hour index i = 24·(day − 1) + (h − 1) for the hour ending at h:00 local
// standard time. Radiation values are hourly totals (Btu/ft²), temperatures °F,
// wind mph, pressure in Hg.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/solar.h"

namespace tarn {

struct WeatherHour {
  double dryBulb = 0;
  double dewPoint = 0;
  double globalH = 0;
  double directN = 0;
  double diffuseH = 0;
  double wind = 0;
  double pressure = 29.921;
  double skyIr = 0;  // long-wave irradiance of the sky on a horizontal surface, Btu/h·ft²
};

struct WeatherYear {
  int year = 2001;
  int days = 365;
  std::vector<WeatherHour> hours;  // days * 24
  Site site;
  std::string source;              // one line for the weather summary
  int recordedHours = 0;           // hours in the file (recorded weather)
  // Daily clearness index actually drawn (synthesis) or derived (recorded).
  std::vector<double> dailyClearness;
};

// The eight tables of the weather block, I-P, months 0..11.
struct MonthlyStats {
  std::array<double, 12> dbAve{}, aveStd{}, dbMax{}, maxStd{}, dpAve{}, dpStd{}, solar{}, wind{};
};

bool isLeapYear(int year);
int daysInMonth(int month, int year);  // month 1..12
int firstDayOfMonth(int month, int year);  // day of year 1..366

// Mean dry bulb of each calendar month, and of every hour of the year, °F.
std::array<double, 12> monthlyMeanDryBulb(const WeatherYear& w);
double annualMeanDryBulb(const WeatherYear& w);

// Deterministic synthesis: the whole calendar year from the seed text.
WeatherYear synthesize(const MonthlyStats& stats, const Site& site, std::string_view seedText,
                       int year);

// The smooth curve whose monthly means are the 12 values: piecewise linear
// between anchors at mid-month, anchors solved so each month's mean over its
// days is exact. Returns one value per day of the year.
std::vector<double> meanPreservingCurve(const std::array<double, 12>& monthly, int year);

// Daily clearness by the Bendt, Collares-Pereira & Rabl distribution: the value
// at cumulative probability u for a monthly mean kbar.
class ClearnessDistribution {
 public:
  explicit ClearnessDistribution(double meanClearness);
  double quantile(double u) const;
  double mean() const { return mean_; }
  double kMax() const { return kMax_; }

 private:
  double mean_, kMax_, gamma_;
};

}  // namespace tarn
