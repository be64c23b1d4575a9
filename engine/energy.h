// What the systems pass hands to the report sections, the costs and the
// hourly files: the building's demand by end use for every simulated hour,
// monthly sums, and the design data of every zone's system and the plant.
//
// Units: kW for electric demand (one hour at 1 kW is 1 kWh), kBtu/h for gas
// and coil loads, gallons for water, Btu/h for design loads, cfm for air.
#pragma once

#include <array>
#include <vector>

namespace tarn {

inline constexpr double kBtuPerKwh = 3412.0;

// One simulated hour of the run (warm-up excluded), in calendar order.
struct SimulatedHour {
  int day = 1;        // day of year
  int month = 1;      // 1..12
  int dayOfMonth = 1;
  int weekday = 1;    // 1 = Sunday
  int hour = 1;       // hour ending at hour:00 local standard time, 1..24
  bool occupied = false;
  double weight = 1;  // calendar days this simulated day stands for
};

// One zone in one simulated hour, as the loads pass left it.
struct ZoneHourRecord {
  float sensible = 0;       // ideal sensible load at the zone, outside air excluded, Btu/h (+ cooling, − heating)
  float latent = 0;         // latent load of people and infiltration at the zone, Btu/h (+ to remove)
  float airTemp = 0;        // °F
  float humidityRatio = 0;  // lb/lb
  float lightsW = 0;        // lighting after daylight dimming
  float lightsFullW = 0;    // lighting the profile asks for
  float equipmentW = 0;
  float ventFraction = 0;   // the Vent profile this hour
  float zoneOutsideAir = 0; // cfm a running fan brought into the floating zone; its coils idle
  float people = 0;         // people present
};

// The building's energy in one simulated hour (not weighted).
struct HourEnergy {
  double lights = 0, equipment = 0, fans = 0, cooling = 0;  // kW
  double heatingElec = 0, waterHeatElec = 0;                // kW
  double spaceGas = 0, waterGas = 0;                        // kBtu/h of fuel
  double water = 0;                                         // gallons
  double heatingLoad = 0, coolingLoad = 0;                  // kBtu/h at the coils, both ≥ 0
  double totalElec() const { return lights + equipment + fans + cooling + heatingElec + waterHeatElec; }
  double gas() const { return spaceGas + waterGas; }
};

// Weighted sums over the simulated days of one calendar month.
struct MonthEnergy {
  double lightsKwh = 0, equipmentKwh = 0, fansKwh = 0, coolingKwh = 0;
  double heatingElecKwh = 0, waterHeatElecKwh = 0;
  double spaceGasKbtu = 0, waterGasKbtu = 0;
  double waterGallons = 0;
  double peakKw = 0;          // largest simulated hourly demand of the month
  int peakDay = 0, peakHour = 0;  // day of year and hour (1..24) of that demand; 0 = none
  double totalKwh() const {
    return lightsKwh + equipmentKwh + fansKwh + coolingKwh + heatingElecKwh + waterHeatElecKwh;
  }
};

struct ZoneDesign {
  int coolType = 5;  // 1..9 as used
  int heatType = 1;  // 1 gas, 2 electric resistance, 3 heat pump, as used
  bool heatPump = false;  // space heat from a heat pump (cooling type 7 or heating type 3)
  double designHeating = 0;          // Btu/h, peak heating coil load (positive)
  double designCoolingSensible = 0;  // Btu/h, peak zone sensible cooling
  double designCoolingTotal = 0;     // Btu/h, peak coil load with latent and outside air
  double supplyCfm = 0, outsideAirCfm = 0;
  double fanKw = 0;                  // at design flow
  double coolingCapacity = 0;        // Btu/h
  double heatingCapacity = 0;        // Btu/h
  double unmetHours = 0;             // weighted
  double lightsKwh = 0;              // after daylight dimming, weighted
  double lightsKwhUndimmed = 0;      // what the profile asked for
  double equipmentKwh = 0;
  double mixingLossKbtu = 0;         // reheat and hot-deck heat spent against cooling (types 1-3), weighted
  double hotWaterGallons = 0;        // weighted
};

struct PlantDesign {
  bool chilledWater = false;     // any zone of types 1-4
  double chillerCapacity = 0;    // Btu/h
  double coincidentPeak = 0;     // Btu/h, largest hourly plant load
  int peakDay = 0, peakHour = 0; // of that load
  bool boiler = false;           // types 1-4 with gas heat
  double boilerCapacity = 0;     // Btu/h
  double chillerEer = 0;         // Btu/Wh, capacity-weighted over the plant's zones
};

struct EnergyResult {
  std::vector<SimulatedHour> hours;
  std::vector<HourEnergy> energy;  // one per entry of hours
  std::array<MonthEnergy, 12> months{};
  std::vector<ZoneDesign> zones;   // model order
  PlantDesign plant;
  double unmetHours = 0;           // weighted, all zones
};

}  // namespace tarn
