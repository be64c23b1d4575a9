#include "engine/zone_balance.h"

#include <limits>

namespace tarn {

ZoneHour::ZoneHour(const ZoneNetwork& net, const HourInputs& in, double thetaMPrev)
    : net_(net), in_(in), thetaMPrev_(thetaMPrev) {
  k_ = net.capacity;  // C / Δt with Δt = 1 h
  const double twoK = 2.0 * k_;
  g_ = twoK * net.hMs / (twoK + net.hMs);
  const double phiS = in.phiSt + in.phiM * net.hMs / (twoK + net.hMs);
  s_ = g_ * thetaMPrev + in.hXThetaX + phiS;
  d_ = net.hIs + g_ + in.hX;
  hEq_ = net.hIs * (g_ + in.hX) / d_;
  tPrime_ = s_ / (g_ + in.hX);
}

double ZoneHour::airTemperature(double hVe, double phi) const {
  return (hVe * in_.thetaO + hEq_ * tPrime_ + in_.phiIa + phi) / (hVe + hEq_);
}

double ZoneHour::powerFor(double hVe, double theta) const {
  return (hVe + hEq_) * theta - (hVe * in_.thetaO + hEq_ * tPrime_ + in_.phiIa);
}

double ZoneHour::ventilationFor(double hVe0, double theta) const {
  const double denom = theta - in_.thetaO;
  if (denom == 0.0) return std::numeric_limits<double>::infinity();
  return (hVe0 * in_.thetaO + hEq_ * tPrime_ + in_.phiIa - (hVe0 + hEq_) * theta) / denom;
}

ZoneHour::Result ZoneHour::finish(double hVe, double phi) const {
  Result r;
  r.thetaA = airTemperature(hVe, phi);
  r.thetaS = (net_.hIs * r.thetaA + s_) / d_;
  const double twoK = 2.0 * k_;
  const double thetaMAvg = (twoK * thetaMPrev_ + net_.hMs * r.thetaS + in_.phiM) / (twoK + net_.hMs);
  r.thetaMNew = 2.0 * thetaMAvg - thetaMPrev_;
  r.storage = k_ * (r.thetaMNew - thetaMPrev_);
  return r;
}

}  // namespace tarn
