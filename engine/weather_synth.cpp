#include <algorithm>
#include <cmath>

#include "engine/psychro.h"
#include "engine/rng.h"
#include "engine/weather.h"

namespace tarn {

bool isLeapYear(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

int daysInMonth(int m, int y) {
  static constexpr int kLen[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return kLen[m - 1] + (m == 2 && isLeapYear(y) ? 1 : 0);
}

int firstDayOfMonth(int m, int y) {
  int d = 1;
  for (int k = 1; k < m; ++k) d += daysInMonth(k, y);
  return d;
}

std::array<double, 12> monthlyMeanDryBulb(const WeatherYear& w) {
  std::array<double, 12> monthly{};
  for (int m = 1; m <= 12; ++m) {
    const int first = firstDayOfMonth(m, w.year), len = daysInMonth(m, w.year);
    double s = 0;
    for (int h = (first - 1) * 24; h < (first - 1 + len) * 24; ++h) s += w.hours[h].dryBulb;
    monthly[m - 1] = s / (len * 24.0);
  }
  return monthly;
}

double annualMeanDryBulb(const WeatherYear& w) {
  double s = 0;
  for (const WeatherHour& h : w.hours) s += h.dryBulb;
  return w.hours.empty() ? 0.0 : s / static_cast<double>(w.hours.size());
}

namespace {

struct Weights {
  int j0, j1;
  double w0, w1;
};

// Interpolation weights of the mid-month anchors for a day (1-based), cyclic.
Weights anchorWeights(int day, int year) {
  const int yearDays = isLeapYear(year) ? 366 : 365;
  std::array<double, 12> mid{};
  for (int m = 1; m <= 12; ++m) mid[m - 1] = firstDayOfMonth(m, year) + (daysInMonth(m, year) - 1) / 2.0;
  const double d = day;
  if (d < mid[0]) {
    const double x0 = mid[11] - yearDays;
    const double t = (d - x0) / (mid[0] - x0);
    return {11, 0, 1.0 - t, t};
  }
  for (int j = 0; j < 11; ++j)
    if (d < mid[j + 1]) {
      const double t = (d - mid[j]) / (mid[j + 1] - mid[j]);
      return {j, j + 1, 1.0 - t, t};
    }
  const double x1 = mid[0] + yearDays;
  const double t = (d - mid[11]) / (x1 - mid[11]);
  return {11, 0, 1.0 - t, t};
}

// Solves a 12 x 12 system by Gaussian elimination with partial pivoting.
std::array<double, 12> solve12(std::array<std::array<double, 12>, 12> a, std::array<double, 12> b) {
  for (int c = 0; c < 12; ++c) {
    int p = c;
    for (int r = c + 1; r < 12; ++r)
      if (std::fabs(a[r][c]) > std::fabs(a[p][c])) p = r;
    std::swap(a[c], a[p]);
    std::swap(b[c], b[p]);
    for (int r = c + 1; r < 12; ++r) {
      const double f = a[r][c] / a[c][c];
      for (int k = c; k < 12; ++k) a[r][k] -= f * a[c][k];
      b[r] -= f * b[c];
    }
  }
  std::array<double, 12> x{};
  for (int r = 11; r >= 0; --r) {
    double s = b[r];
    for (int k = r + 1; k < 12; ++k) s -= a[r][k] * x[k];
    x[r] = s / a[r][r];
  }
  return x;
}

int monthOfDay(int day, int year) {
  int m = 1;
  while (m < 12 && day >= firstDayOfMonth(m + 1, year)) ++m;
  return m;
}

// Fraction of the daily range below the maximum, hours 1..24.
constexpr double kRangeFraction[24] = {.87, .92, .96, .99, 1.00, .98, .93, .84, .71, .56, .39, .23,
                                       .11, .03, 0,   .03, .10, .21, .34, .47, .58, .68, .76, .82};

double normalCdf(double z) { return 0.5 * std::erfc(-z / std::sqrt(2.0)); }

// Erbs, Klein & Duffie daily diffuse fraction.
double erbsDaily(double k, double ws) {
  if (ws <= 81.4 * kDeg)
    return k < 0.715 ? 1.0 - 0.2727 * k + 2.4495 * k * k - 11.9514 * k * k * k + 9.3879 * k * k * k * k
                     : 0.143;
  return k < 0.722 ? 1.0 + 0.2832 * k - 2.5557 * k * k + 0.8448 * k * k * k : 0.175;
}

}  // namespace

std::vector<double> meanPreservingCurve(const std::array<double, 12>& monthly, int year) {
  const int yearDays = isLeapYear(year) ? 366 : 365;
  std::array<std::array<double, 12>, 12> w{};
  for (int d = 1; d <= yearDays; ++d) {
    const int m = monthOfDay(d, year) - 1;
    const Weights k = anchorWeights(d, year);
    const double n = daysInMonth(m + 1, year);
    w[m][k.j0] += k.w0 / n;
    w[m][k.j1] += k.w1 / n;
  }
  const std::array<double, 12> anchors = solve12(w, monthly);
  std::vector<double> curve(yearDays);
  for (int d = 1; d <= yearDays; ++d) {
    const Weights k = anchorWeights(d, year);
    curve[d - 1] = k.w0 * anchors[k.j0] + k.w1 * anchors[k.j1];
  }
  return curve;
}

ClearnessDistribution::ClearnessDistribution(double meanClearness) {
  constexpr double kMin = 0.05;
  double kbar = std::clamp(meanClearness, 0.08, 0.78);
  kMax_ = 0.6313 + 0.267 * kbar - 11.9 * std::pow(kbar - 0.75, 8);
  kbar = std::clamp(kbar, kMin + 0.02, kMax_ - 0.02);
  mean_ = kbar;
  const double span = kMax_ - kMin;
  auto meanOf = [&](double g) {
    if (std::fabs(g) < 1e-9) return kMin + span / 2.0;
    return kMin + span / -std::expm1(-g * span) - 1.0 / g;
  };
  double lo = -300.0, hi = 300.0;
  for (int i = 0; i < 100; ++i) {
    const double mid = 0.5 * (lo + hi);
    (meanOf(mid) < kbar ? lo : hi) = mid;
  }
  gamma_ = 0.5 * (lo + hi);
}

double ClearnessDistribution::quantile(double u) const {
  constexpr double kMin = 0.05;
  const double span = kMax_ - kMin;
  u = std::clamp(u, 0.0, 1.0);
  if (std::fabs(gamma_) < 1e-9) return kMin + u * span;
  return kMin + std::log1p(u * std::expm1(gamma_ * span)) / gamma_;
}

WeatherYear synthesize(const MonthlyStats& s, const Site& site, std::string_view seedText,
                       int year) {
  WeatherYear wy;
  wy.year = year;
  wy.days = isLeapYear(year) ? 366 : 365;
  wy.site = site;
  wy.hours.resize(static_cast<std::size_t>(wy.days) * 24);
  wy.dailyClearness.resize(wy.days);

  const double lat = site.latitude * kDeg;
  std::vector<double> h0(wy.days);
  std::array<double, 12> h0Month{}, clear{};
  for (int d = 1; d <= wy.days; ++d) {
    h0[d - 1] = std::max(0.0, dailyExtraterrestrial(lat, dayAstro(d)));
    h0Month[monthOfDay(d, year) - 1] += h0[d - 1] / daysInMonth(monthOfDay(d, year), year);
  }
  for (int m = 0; m < 12; ++m) clear[m] = h0Month[m] > 0 ? s.solar[m] / h0Month[m] : 0.5;

  const auto dbAve = meanPreservingCurve(s.dbAve, year);
  const auto dbMax = meanPreservingCurve(s.dbMax, year);
  const auto dpAve = meanPreservingCurve(s.dpAve, year);
  const auto kbar = meanPreservingCurve(clear, year);
  const auto wind = meanPreservingCurve(s.wind, year);

  // A month's statistic is the spread of its daily values about the month's
  // mean; the smooth curve already moves within the month, so the random part
  // carries only the rest.
  auto netStd = [&](const std::vector<double>& curve, const std::array<double, 12>& sd, int m) {
    const int first = firstDayOfMonth(m + 1, year) - 1, n = daysInMonth(m + 1, year);
    double mean = 0, var = 0;
    for (int i = 0; i < n; ++i) mean += curve[first + i] / n;
    for (int i = 0; i < n; ++i) var += (curve[first + i] - mean) * (curve[first + i] - mean) / n;
    const double total = sd[m] * sd[m];
    return std::sqrt(std::max(0.25 * total, total - var));
  };
  std::array<double, 12> sAve{}, sMax{}, sDp{};
  for (int m = 0; m < 12; ++m) {
    sAve[m] = netStd(dbAve, s.aveStd, m);
    sMax[m] = netStd(dbMax, s.maxStd, m);
    sDp[m] = netStd(dpAve, s.dpStd, m);
  }

  double meanFraction = 0;
  for (double f : kRangeFraction) meanFraction += f / 24.0;
  const double pressure = pressureAtElevation(site.elevation);

  Random rng(fnv1a64(seedText));
  double a = 0, b = 0, c = 0, k = 0, w = 0;
  for (int d = 1; d <= wy.days; ++d) {
    const int m = monthOfDay(d, year) - 1;
    const double e1 = rng.normal(), e2 = rng.normal(), e3 = rng.normal(), e4 = rng.normal(),
                 e5 = rng.normal();
    if (d == 1) {
      a = e1, b = e2, c = e3, k = e4, w = e5;  // stationary start
    } else {
      a = 0.65 * a + std::sqrt(1.0 - 0.65 * 0.65) * e1;
      b = 0.5 * b + std::sqrt(0.75) * e2;
      c = 0.6 * c + 0.8 * e3;
      k = 0.3 * k + std::sqrt(0.91) * e4;
      w = 0.5 * w + std::sqrt(0.75) * e5;
    }
    const double tMean = dbAve[d - 1] + sAve[m] * a;
    const double tMax = std::max(tMean + 1.0, dbMax[d - 1] + sMax[m] * (0.85 * a + std::sqrt(1.0 - 0.85 * 0.85) * b));
    const double tDew = dpAve[d - 1] + sDp[m] * (0.5 * a + std::sqrt(0.75) * c);
    const double z = 0.5 * b + std::sqrt(0.75) * k;
    const double kt = ClearnessDistribution(kbar[d - 1]).quantile(normalCdf(z));
    const double v = wind[d - 1] * std::exp(0.35 * w - 0.35 * 0.35 / 2.0);
    wy.dailyClearness[d - 1] = kt;

    const DayAstro astro = dayAstro(d);
    const double ws = sunsetHourAngle(lat, astro.declination);
    const double hDay = kt * h0[d - 1];
    const double hDiffuse = hDay * erbsDaily(kt, ws);
    const double range = (tMax - tMean) / meanFraction;

    std::array<double, 24> rt{}, rd{}, sinAlt{};
    double sumT = 0, sumD = 0;
    const double a1 = 0.409 + 0.5016 * std::sin(ws - 60.0 * kDeg);
    const double b1 = 0.6609 - 0.4767 * std::sin(ws - 60.0 * kDeg);
    const double denom = std::sin(ws) - ws * std::cos(ws);
    for (int h = 1; h <= 24; ++h) {
      const double omega = 15.0 * kDeg * (solarTime(h - 0.5, site, astro.equationOfTime) - 12.0);
      sinAlt[h - 1] = sunVector(lat, astro.declination, omega).u;
      if (std::fabs(omega) < ws && denom > 0) {
        const double x = std::cos(omega) - std::cos(ws);
        rt[h - 1] = std::max(0.0, kPi / 24.0 * (a1 + b1 * std::cos(omega)) * x / denom);
        rd[h - 1] = std::max(0.0, kPi / 24.0 * x / denom);
      }
      sumT += rt[h - 1];
      sumD += rd[h - 1];
    }
    for (int h = 1; h <= 24; ++h) {
      WeatherHour& wh = wy.hours[static_cast<std::size_t>(d - 1) * 24 + (h - 1)];
      wh.dryBulb = tMax - kRangeFraction[h - 1] * range;
      wh.dewPoint = std::min(tDew, wh.dryBulb);
      wh.pressure = pressure;
      wh.wind = v * (1.0 + 0.25 * std::sin(2.0 * kPi * (h - 9) / 24.0));
      const double g = sumT > 0 ? hDay * rt[h - 1] / sumT : 0.0;
      double dif = sumD > 0 ? std::min(g, hDiffuse * rd[h - 1] / sumD) : 0.0;
      double beam = g - dif;
      if (sinAlt[h - 1] < 0.02) {
        dif = g;
        beam = 0;
      }
      wh.globalH = g;
      wh.diffuseH = dif;
      wh.directN = beam > 0 ? beam / sinAlt[h - 1] : 0.0;
      wh.skyIr = skyInfrared(wh.dryBulb, wh.dewPoint, cloudCoverFromClearness(kt));
    }
  }
  return wy;
}

}  // namespace tarn
