// One zone's hourly heat balance: air, surface and mass nodes with the mass
// node integrated by Crank-Nicolson over the hour. Closed form, no iteration:
// the air temperature is linear in the HVAC power.
#pragma once

namespace tarn {

struct ZoneNetwork {
  double hIs = 0;       // air <-> surface, Btu/h·°F
  double hMs = 0;       // surface <-> mass
  double capacity = 0;  // mass node, Btu/°F (per 1 h step)
};

struct HourInputs {
  double thetaO = 0;    // outdoor air, °F
  double hX = 0;        // exterior <-> surface conductance
  double hXThetaX = 0;  // Σ H_j·T_eq,j
  double phiIa = 0;     // convective gains to the air node, Btu/h
  double phiSt = 0;     // radiant gains to the surface node
  double phiM = 0;      // radiant gains to the mass node
};

// The part of the hour's solution that does not depend on the air exchange or
// the HVAC power.
class ZoneHour {
 public:
  ZoneHour(const ZoneNetwork& net, const HourInputs& in, double thetaMPrev);
  // Air temperature for an air-exchange conductance hVe (supply at θ_o) and an
  // HVAC power phi (+ heating).
  double airTemperature(double hVe, double phi) const;
  // HVAC power that holds the air at theta with conductance hVe.
  double powerFor(double hVe, double theta) const;
  // The extra air-exchange conductance that holds theta with no HVAC power
  // beyond base conductance hVe0 (may be negative or infinite: caller checks).
  double ventilationFor(double hVe0, double theta) const;

  struct Result {
    double thetaA, thetaS, thetaMNew, storage;
  };
  Result finish(double hVe, double phi) const;

 private:
  const ZoneNetwork& net_;
  HourInputs in_;
  double thetaMPrev_, k_, g_, s_, d_, hEq_, tPrime_;
};

}  // namespace tarn
