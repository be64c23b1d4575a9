// The loads pass: every simulated hour, every zone's heat balance at its
// set-points (or floating), the split of the load into its categories, peaks,
// monthly and annual sums, and the zone temperatures for the comfort table.
#pragma once

#include <array>
#include <vector>

#include "engine/calendar.h"
#include "engine/energy.h"
#include "engine/model.h"
#include "engine/weather.h"

namespace tarn {

// The twelve categories in report order.
enum Category : int {
  kRoof = 0, kWalls, kWindowConduction, kWindowSolar, kLightsEquipment, kPeopleSensible,
  kPeopleLatent, kInfiltrationSensible, kInfiltrationLatent, kVentilationSensible,
  kVentilationLatent, kMassEffect, kCategories
};

struct LoadRows {
  std::array<double, kCategories> rows{};
  double total = 0;
  void add(const LoadRows& o, double w) {
    for (int i = 0; i < kCategories; ++i) rows[i] += w * o.rows[i];
    total += w * o.total;
  }
};

struct Peak {
  bool any = false;
  LoadRows load;  // Btu/h
  int day = 0, hour = 0;
};

struct ZoneTemperatures {
  std::array<std::array<double, 24>, 12> sum{}, weight{};
  std::array<double, 12> max{}, min{}, below{}, within{}, above{};
  double occBelow = 0, occWithin = 0, occAbove = 0;
  double allMin = 1e9, allMax = -1e9, annualSum = 0, annualWeight = 0;
};

struct ZoneLoads {
  double heating = 0, cooling = 0;          // weighted Btu
  double peakHeating = 0, peakCooling = 0;  // Btu/h (heating negative)
  ZoneTemperatures temps;
};

struct LoadsResult {
  std::array<LoadRows, 12> monthHeating, monthCooling;  // weighted Btu, building
  std::array<double, 12> monthPeakHeating{}, monthPeakCooling{};  // Btu/h
  Peak peakHeating, peakCooling;
  std::vector<ZoneLoads> zones;
  // Largest |Σ categories − total| of any zone-hour, relative to the largest flow.
  double balanceError = 0;
  // Every accumulated hour in calendar order, and each zone's record of it:
  // zoneHours[i * zones.size() + z] belongs to hours[i].
  std::vector<SimulatedHour> hours;
  std::vector<ZoneHourRecord> zoneHours;
  LoadRows annualHeating() const;
  LoadRows annualCooling() const;
};

// Comfort limits in °F.
LoadsResult runLoads(const SimModel& model, const WeatherYear& weather, const Calendar& cal, bool passive,
                     double comfortLowF, double comfortHighF);

}  // namespace tarn
