// The three hourly spreadsheet files: tab-separated text, one header row, CR LF
// lines, '.' as decimal point, fixed decimals, one row per simulated hour
// (warm-up excluded) in calendar order, units as the report's.
//
//   ecalc$.hry  the building's loads, electric demand by end use and gas
//   etemp$.hry  outdoor and zone air temperature and relative humidity
//   eweth$.hry  the weather used, the sun's position and the 6 ft ground temperature
#pragma once

#include <string>
#include <vector>

#include "engine/energy.h"
#include "engine/loads.h"
#include "engine/model.h"
#include "engine/weather.h"

namespace tarn {

std::string hourlyEnergyFile(const SimModel& model, const WeatherYear& weather, const EnergyResult& energy);
std::string hourlyTemperatureFile(const SimModel& model, const WeatherYear& weather, const LoadsResult& loads);
std::string hourlyWeatherFile(const SimModel& model, const WeatherYear& weather, const std::vector<SimulatedHour>& hours);

}  // namespace tarn
