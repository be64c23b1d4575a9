// The engine's report files: section III of sim$.out (load components, peaks,
// monthly loads), the weather summary ecalc$.wth (VIII, ending with the IX
// heading) and the comfort table ecalc$.flt of passive runs.
#pragma once

#include <string>
#include <vector>

#include "engine/calendar.h"
#include "engine/control_file.h"
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

struct ReportContext {
  const SimModel& model;
  const RunControl& control;
  const Calendar& calendar;
  const WeatherYear& weather;
  std::string dateOfRun;  // "22 Nov 2026, 14:05"
  int firstPage = 1;
  RunLog* log = nullptr;
};

std::string writeSimOut(const ReportContext& c, const LoadsResult& loads, int& page);
std::string writeWeatherSummary(const ReportContext& c, int& page);
std::string writeComfort(const ReportContext& c, const LoadsResult& loads, int& page);

}  // namespace tarn
