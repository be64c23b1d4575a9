// The engine's report files: sim$.out (section III: load components, peaks,
// site energy, monthly energy and costs; IV HVAC design data; V peak demand
// profiles; VI zone loads and energy; VII cost analysis), the weather summary
// ecalc$.wth (VIII, ending with the IX heading) and the comfort table
// ecalc$.flt of passive runs.
#pragma once

#include <string>
#include <vector>

#include "engine/calendar.h"
#include "engine/control_file.h"
#include "engine/economics.h"
#include "engine/energy.h"
#include "engine/loads.h"
#include "engine/model.h"
#include "engine/weather.h"

namespace tarn {

class RunLog;

// A right-aligned fixed-decimal field of `width` characters with at least one
// blank before the number; fewer decimals when it does not fit, all '*' (and a
// warning) when it still does not fit. Never "-0.0".
std::string numberField(double value, int width, int decimals, RunLog* log = nullptr);

// Rounds parts to `decimals` so that the rounded parts add up exactly to the
// rounded total (largest remainder); the total is the last element returned.
std::vector<double> roundParts(const std::vector<double>& parts, int decimals);
// The same towards a given printed total (already rounded to `decimals`). When
// every part is zero the parts stay zero and the last element is their sum.
std::vector<double> roundPartsTo(const std::vector<double>& parts, int decimals, double total);

struct ReportContext {
  const SimModel& model;
  const RunControl& control;
  const Calendar& calendar;
  const WeatherYear& weather;
  std::string dateOfRun;  // "22 Nov 2026, 14:05"
  int firstPage = 1;
  RunLog* log = nullptr;
};

// Sections III to VII.
std::string writeSimOut(const ReportContext& c, const LoadsResult& loads, const EnergyResult& energy,
                        const CostResult& costs, int& page);
std::string writeWeatherSummary(const ReportContext& c, int& page);
std::string writeComfort(const ReportContext& c, const LoadsResult& loads, int& page);

}  // namespace tarn
