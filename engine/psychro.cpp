#include "engine/psychro.h"

#include <algorithm>
#include <cmath>

namespace tarn {

double pressureAtElevation(double feet) {
  return 29.921 * std::pow(1.0 - 6.8754e-6 * feet, 5.2559);
}

namespace {

// ln of the saturation pressure (psia) at Rankine temperature t, over ice below
// 32 °F, and its derivative with respect to t.
struct LnSaturation {
  double value, slope;
};

LnSaturation lnSaturation(double tF) {
  const double t = tF + 459.67;
  if (tF < 32.0) {
    const double c1 = -1.0214165e4, c2 = -4.8932428, c3 = -5.3765794e-3, c4 = 1.9202377e-7,
                 c5 = 3.5575832e-10, c6 = -9.0344688e-14, c7 = 4.1635019;
    return {c1 / t + c2 + c3 * t + c4 * t * t + c5 * t * t * t + c6 * t * t * t * t + c7 * std::log(t),
            -c1 / (t * t) + c3 + 2 * c4 * t + 3 * c5 * t * t + 4 * c6 * t * t * t + c7 / t};
  }
  const double c8 = -1.0440397e4, c9 = -1.1294650e1, c10 = -2.7022355e-2, c11 = 1.2890360e-5,
               c12 = -2.4780681e-9, c13 = 6.5459673;
  return {c8 / t + c9 + c10 * t + c11 * t * t + c12 * t * t * t + c13 * std::log(t),
          -c8 / (t * t) + c10 + 2 * c11 * t + 3 * c12 * t * t + c13 / t};
}

constexpr double kPsiaToInHg = 2.036021;

}  // namespace

double saturationPressure(double tF) { return std::exp(lnSaturation(tF).value) * kPsiaToInHg; }

double humidityRatioFromDewPoint(double tdpF, double pInHg) {
  const double pw = std::min(saturationPressure(tdpF), 0.99 * pInHg);
  return 0.621945 * pw / (pInHg - pw);
}

double humidityRatioFromRh(double tF, double rh, double pInHg) {
  const double pw = std::min(rh * saturationPressure(tF), 0.99 * pInHg);
  return 0.621945 * pw / (pInHg - pw);
}

double relativeHumidity(double tF, double tdpF) {
  return std::clamp(saturationPressure(std::min(tdpF, tF)) / saturationPressure(tF), 0.0, 1.0);
}

double dewPointFromRh(double tF, double rh) {
  const double target = std::max(rh, 0.005) * saturationPressure(tF);
  double lo = tF - 150.0, hi = tF;
  for (int i = 0; i < 60; ++i) {
    const double mid = 0.5 * (lo + hi);
    (saturationPressure(mid) < target ? lo : hi) = mid;
  }
  return 0.5 * (lo + hi);
}

double wetBulb(double tF, double tdpF, double pInHg) {
  const double w = humidityRatioFromDewPoint(std::min(tdpF, tF), pInHg);
  // g(t*) = the humidity ratio a wet bulb t* implies for air at t, less w. It
  // rises with t* on either side of 32 °F but jumps there (ice below, water
  // above), so near freezing it can cross zero on both sides. Halving the
  // bracket settles which side; inside one branch Newton steps, kept in the
  // bracket, find the same root in a few evaluations instead of sixty.
  auto g = [&](double ts, double& slope) {
    const LnSaturation ln = lnSaturation(ts);
    const double satP = std::exp(ln.value) * kPsiaToInHg;
    double pw = satP, dpw = satP * ln.slope;
    if (pw > 0.99 * pInHg) pw = 0.99 * pInHg, dpw = 0.0;
    const double ws = 0.621945 * pw / (pInHg - pw);
    const double dws = 0.621945 * pInHg * dpw / ((pInHg - pw) * (pInHg - pw));
    double a, b, c, dc;  // implied = ((a - b·t*)·ws − 0.240·(t − t*)) / c
    if (ts >= 32.0) a = 1093.0, b = 0.556, c = 1093.0 + 0.444 * tF - ts, dc = -1.0;
    else a = 1220.0, b = 0.04, c = 1220.0 + 0.444 * tF - 0.48 * ts, dc = -0.48;
    const double num = (a - b * ts) * ws - 0.240 * (tF - ts);
    const double dnum = -b * ws + (a - b * ts) * dws + 0.240;
    slope = (dnum * c - num * dc) / (c * c);
    return num / c - w;
  };
  double lo = std::min(tdpF, tF) - 1.0, hi = tF;
  int halvings = 0;
  for (; halvings < 60 && lo < 32.0 && hi > 32.0; ++halvings) {
    const double mid = 0.5 * (lo + hi);
    double slope = 0;
    (g(mid, slope) < 0 ? lo : hi) = mid;
  }
  if (halvings == 60) return 0.5 * (lo + hi);
  double x = 0.5 * (lo + hi);
  for (int i = 0; i < 100 && hi - lo > 1e-9; ++i) {
    double slope = 0;
    const double gx = g(x, slope);
    (gx < 0 ? lo : hi) = x;
    double next = slope > 0 ? x - gx / slope : 0.5 * (lo + hi);
    if (!(next > lo && next < hi)) next = 0.5 * (lo + hi);
    if (std::fabs(next - x) < 1e-11) return next;
    x = next;
  }
  return 0.5 * (lo + hi);
}

double skyInfrared(double tF, double tdpF, double cover) {
  const double tdp = (tdpF - 32.0) / 1.8 / 100.0;
  const double clear = 0.711 + 0.56 * tdp + 0.73 * tdp * tdp;
  const double n = std::clamp(cover, 0.0, 10.0);
  const double emissivity = std::min(1.0, clear * (1.0 + 0.0224 * n - 0.0035 * n * n + 0.00028 * n * n * n));
  const double t = tF + 459.67;
  return emissivity * 0.1714e-8 * t * t * t * t;
}

double cloudCoverFromClearness(double kt) {
  const double deficit = std::clamp(1.0 - kt / 0.75, 0.0, 0.75);
  return 10.0 * std::pow(deficit / 0.75, 1.0 / 3.4);
}

}  // namespace tarn
