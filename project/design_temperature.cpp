#include "project/design_temperature.h"

#include <cmath>

#include "common/number_text.h"
#include "common/split.h"
#include "common/text_lines.h"

namespace marloven {

namespace {

// Rounding to one decimal as the estimate does it: Int(x * 10 + 0.5) / 10.
double roundTenth(double x) { return std::floor(x * 10.0 + 0.5) / 10.0; }

enum Tag { kDbAve = 1, kAveStd, kDbMax, kMaxStd, kDpAve, kDpStd, kSolar, kWind };

double toIp(int tag, double v) {
  switch (tag) {
    case kDbAve: case kDbMax: case kDpAve: return v * 1.8 + 32.0;
    case kAveStd: case kMaxStd: case kDpStd: return v * 1.8;
    case kSolar: return v * 0.08805507;
    default: return v * 2.236936;
  }
}

double month(const Project& p, int tag, int m) { return leadingNumber(p.weather.months[tag][m]); }

// Fills the month table of one weather row (tag 1..8) from its line as held,
// each value mapped; missing values read as 0.
template <typename Map>
void fillMonths(WeatherSummary& w, int tag, Map map) {
  const auto values = splitBlanks(fromColumn(w.lines[tag + 3], 9), 12);
  for (std::size_t i = 0; i < 12; ++i) {
    const double v = i < values.size() ? leadingNumber(values[i]) : 0.0;
    w.months[tag][i + 1] = padded(static_cast<float>(map(v)));
  }
}

}  // namespace

void parseWeatherLines(Project& p) {
  WeatherSummary& w = p.weather;
  const std::string& line2 = w.lines[2];
  const std::size_t tail = line2.size() >= 6 ? line2.size() - 6 : 0;
  double elevation = leadingNumber(std::string_view(line2).substr(tail));
  if (p.units == UnitSystem::SI) elevation = std::floor(elevation * 3.28084);
  w.elevation = static_cast<float>(elevation);

  const bool si = p.units == UnitSystem::SI;
  for (int tag = 1; tag <= 8; ++tag)
    fillMonths(w, tag, [&](double v) { return si ? roundTenth(toIp(tag, v)) : v; });
}

void weatherToSI(Project& p) {
  WeatherSummary& w = p.weather;
  w.elevation = static_cast<float>(std::floor(w.elevation * 0.3048 + 0.5));
  for (int tag = 1; tag <= 8; ++tag)
    fillMonths(w, tag, [tag](double v) {
      switch (tag) {
        case kDbAve: case kDbMax: case kDpAve: return (v - 32.0) / 1.8;
        case kAveStd: case kMaxStd: case kDpStd: return v / 1.8;
        case kSolar: return std::floor(v * 11.3565295);
        default: return roundTenth(v * 0.44704);
      }
    });
}

float saturationPressure(float t) {
  double result;
  if (t <= 85.0f) {
    const double w = ((3.67113e-8 * t - 3.56797e-7) * t + 5.97982e-5) * t + 9.47894e-4;
    result = w * 29.92 / (w + 0.622);
  } else {
    const double tk = (t + 459.688) / 1.8;
    const double z = 373.16 / tk;
    const double a = -7.90298 * (z - 1);
    const double b = 5.02808 * std::log(z);
    const double c = -1.3816e-7 * (std::pow(10.0, 11.344 * (1 - 1 / z)) - 1);
    const double d = 8.1328e-3 * (std::pow(10.0, -3.49149 * (z - 1)) - 1);
    result = 29.921 * std::pow(10.0, a + b + c + d);
  }
  if (result < 0) result = 0.0001;
  return static_cast<float>(result);
}

bool designTemperaturesNeeded(const Project& p) {
  return (p.designTemps.values[1].empty() && p.flags.fromFile) || !p.designTemps.known;
}

void estimateDesignTemperatures(Project& p) {
  parseWeatherLines(p);
  const double P = 29.92 - p.weather.elevation * 5.031 / 5000.0;
  double S = -999, W = 999, D = -999, T = 0;
  for (int m = 1; m <= 12; ++m) {
    const double dbAve = month(p, kDbAve, m), aveStd = month(p, kAveStd, m);
    const double dbMax = month(p, kDbMax, m), maxStd = month(p, kMaxStd, m);
    const double dpAve = month(p, kDpAve, m), dpStd = month(p, kDpStd, m);
    // 2.11 standard deviations for all three extremes.
    double x = dbMax + 2.11 * maxStd;
    if (x > S) S = roundTenth(x);
    x = 2 * (dbAve - 2.11 * aveStd) - (dbMax - 2.11 * maxStd);
    if (x < W) W = roundTenth(x);
    x = dpAve + 2.11 * dpStd;
    if (x > D) {
      D = x;
      T = dbAve;
    }
  }

  const double pv = saturationPressure(static_cast<float>(D));
  const double r = 0.622 * pv / (P - pv);
  const double h = 0.24 * T + r * (1061 + 0.444 * T);

  double B;
  bool keep = false;
  if (!(h < 0.001) && T > D) {
    const double L = std::log(h);
    B = h <= 11.758 ? 0.6041 + 3.4841 * L + 1.3601 * L * L + 0.97303 * L * L * L
                    : 30.9185 - 39.682 * L + 20.5841 * L * L - 1.758 * L * L * L;
    const double dP = std::fabs(P - 29.92);
    if (!(h > 0.01 && dP < 0.22)) {
      // Search for the wet-bulb whose saturated enthalpy matches h.
      double step = -(dP / 2);
      int previousSign = -1;
      for (int guard = 0; guard < 10000; ++guard) {
        const double ps = saturationPressure(static_cast<float>(B));
        const double rs = 0.622 * ps / (P - ps);
        const double H = 0.24 * B + rs * (1061 + 0.444 * B);
        if (std::fabs(h - H) < 0.03 || std::fabs(step) < 0.1) break;
        const int sign = H < h ? 1 : -1;
        if (sign != previousSign) step *= -0.4;
        B += step;
        previousSign = sign;
      }
    }
    keep = !(B < D);
  }
  if (!keep) B = (D + T) / 2;
  double wetBulb = roundTenth(B);
  if (wetBulb > T) wetBulb = T;

  double results[3] = {S, wetBulb, W};
  for (int i = 0; i < 3; ++i) {
    double v = results[i];
    if (p.units == UnitSystem::SI) v = std::floor((v - 32) / 1.8 * 10 + 0.5) / 10;
    p.designTemps.values[i + 1] = padded(static_cast<float>(v));
  }
}

}  // namespace marloven
