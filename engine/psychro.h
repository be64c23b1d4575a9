// Moist-air relations in I-P units (°F, in Hg, lb/lb), after the psychrometric
// chapter of the ASHRAE Handbook of Fundamentals.
#pragma once

namespace tarn {

// Standard atmospheric pressure at an elevation in feet (in Hg).
double pressureAtElevation(double feet);
// Saturation vapour pressure over water/ice (in Hg) at t °F.
double saturationPressure(double tF);
// Humidity ratio of air with dew point tdp at pressure p.
double humidityRatioFromDewPoint(double tdpF, double pInHg);
// Humidity ratio at t °F and relative humidity rh (0..1).
double humidityRatioFromRh(double tF, double rh, double pInHg);
// Relative humidity (0..1) of air at t °F with dew point tdp.
double relativeHumidity(double tF, double tdpF);
// Dew point (°F) of air at t °F and relative humidity rh (0..1).
double dewPointFromRh(double tF, double rh);
// Long-wave irradiance of the sky on a horizontal surface (Btu/h·ft²): clear-sky
// emissivity from the dew point (Berdahl & Martin 1984), raised for opaque cloud
// cover in tenths (Walton 1983).
double skyInfrared(double tF, double tdpF, double opaqueCoverTenths);
// Opaque cloud cover (tenths) that goes with an hourly or daily clearness index,
// by inverting Kasten & Czeplak 1980 (G / G_clear = 1 − 0.75 (N/8)^3.4, clear-sky
// clearness 0.75).
double cloudCoverFromClearness(double kt);
// Thermodynamic wet bulb (°F), by bisection on the I-P wet-bulb relation.
double wetBulb(double tF, double tdpF, double pInHg);

}  // namespace tarn
