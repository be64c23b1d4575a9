// The systems pass: each zone's HVAC system sized on the loads pass's peaks,
// then every stored zone-hour taken through the air side (outside air,
// economiser, fans, coils, mixing losses), the chilled-water plant or the DX
// unit, the heating source, and the service hot water, to the building's energy.
// The zones' temperatures are those of the loads pass: HVAC does not feed back.
#pragma once

#include "engine/control_file.h"
#include "engine/energy.h"
#include "engine/loads.h"
#include "engine/model.h"
#include "engine/run_log.h"
#include "engine/weather.h"

namespace tarn {

inline constexpr double kHotDeckF = 105.0;
inline constexpr double kEconomiserHighLimitF = 75.0;
inline constexpr double kHotWaterF = 120.0;

// Supply (cold deck) temperature of a cooling type, °F.
double coldDeckTemperature(int coolType);
// Design fan power, kW, for a supply flow (cfm) at the zone's static pressure
// field (in. w.g., 0 = the type's default).
double designFanKw(int coolType, double supplyCfm, double staticPressureField);
// VAV fan power as a fraction of design at flow fraction x = V / V_d.
double vavFanFraction(double x);

// Chilled-water plant: the part-load curve (1 at full load) and the power, kW,
// for a plant load and capacity (Btu/h) at a seasonal EER (Btu/Wh).
double chillerPartLoadCurve(double plr);
double chillerKw(double load, double capacity, double eer);

// DX cooling: the rated COP (Btu/Btu) of a type's SEER field (EER for type 8,
// 0 = SEER 10), and capacity, COP and power at an outdoor temperature.
double dxRatedCop(int coolType, double seerField);
// Ratings of packaged units include their indoor fan: its power in the
// denominator, its heat in the capacity (AHRI: 400 cfm per ton at 0.365 W/cfm
// when the rating has no fan of its own). The engine runs that fan on its own
// (fan energy, fan heat at the coil), so the compressor works at the rating's
// COP net of that fan, in cooling and in heat pump heating.
inline constexpr double kRatedFanHeatShare = 3.412 * 0.365 * 400.0 / 12000.0;  // fan heat per unit of capacity
double compressorCoolingCop(double ratedCop);
double compressorHeatingCop(double ratedCop);
double dxCapacity(double ratedCapacity, double outdoorF);
double dxCop(double ratedCop, double outdoorF);
double dxCoolingKw(double load, double ratedCapacity, double ratedCop, double outdoorF);

// Heating: gas efficiency from the Heat COP field (above 1.5 a percent, 0 → 0.8),
// heat pump COP and capacity at an outdoor temperature, and the hour's power
// of a heat pump meeting a load with electric resistance backup.
double gasEfficiency(double field);
double heatPumpCop(double cop47, double outdoorF);
double heatPumpCapacity(double capacity47, double outdoorF);
struct HeatPumpHour {
  double compressorKw = 0, backupKw = 0;
};
HeatPumpHour heatPumpHeating(double load, double cop47, double capacity47, double outdoorF);

// The outside air an economiser takes (cfm): when cooling and the outdoor air is
// below the zone and the high limit, up to the whole supply flow, as much as
// brings the mixed air down to the supply temperature; the minimum otherwise.
double economiserOutsideAir(double minimumCfm, double supplyCfm, double zoneF, double outdoorF, double supplyF,
                            bool cooling);

// Service hot water drawn by a zone in one hour (gallons): HW/person × people a
// day, spread by the occupied day's HW profile.
double hotWaterGallons(const ZoneModel& z, bool occupiedDay, int hour0);
// Cold water supply temperature on a day of the year from the annual mean
// outdoor temperature and the spread of the monthly means (°F).
double mainsTemperature(double annualMeanF, double monthlySpreadF, int day);

EnergyResult runSystems(const SimModel& model, const LoadsResult& loads, const WeatherYear& weather,
                        const RunControl& control, RunLog& log);

}  // namespace tarn
