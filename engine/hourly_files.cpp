#include "engine/hourly_files.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "engine/envelope.h"
#include "engine/psychro.h"
#include "engine/solar.h"

namespace tarn {

namespace {

const char* const kWeekdayNames[7] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

// Fixed decimals, never "-0.0".
std::string fixed(double v, int decimals) {
  const double scale = std::pow(10.0, decimals);
  double r = std::round(v * scale) / scale;
  if (r == 0.0) r = 0.0;
  char buf[64];
  const auto res = std::to_chars(buf, buf + sizeof buf, r, std::chars_format::fixed, decimals);
  return std::string(buf, res.ptr);
}

class Table {
 public:
  explicit Table(std::size_t rows) { out_.reserve(rows * 128); }
  Table& cell(const std::string& s) {
    if (!first_) out_ += '\t';
    out_ += s;
    first_ = false;
    return *this;
  }
  Table& cell(double v, int decimals) { return cell(fixed(v, decimals)); }
  void end() {
    out_ += "\r\n";
    first_ = true;
  }
  std::string take() { return std::move(out_); }

 private:
  std::string out_;
  bool first_ = true;
};

const WeatherHour& weatherAt(const WeatherYear& w, const SimulatedHour& h) {
  const std::size_t i = static_cast<std::size_t>(h.day - 1) * 24 + static_cast<std::size_t>(h.hour - 1);
  return w.hours[std::min(i, w.hours.size() - 1)];
}

double temp(double f, bool si) { return si ? (f - 32.0) / 1.8 : f; }
double radiation(double btuPerFt2Hour, bool si) { return si ? btuPerFt2Hour * 3.154591 : btuPerFt2Hour; }

// Relative humidity (%) of air at t °F with humidity ratio w at pressure p.
double rhFromHumidityRatio(double tF, double w, double pInHg) {
  const double pw = w * pInHg / (0.621945 + w);
  return std::clamp(100.0 * pw / saturationPressure(tF), 0.0, 100.0);
}

std::string cleanName(std::string s) {
  std::replace(s.begin(), s.end(), '\t', ' ');
  while (!s.empty() && s.back() == ' ') s.pop_back();
  return s;
}

}  // namespace

std::string hourlyEnergyFile(const SimModel& model, const WeatherYear& weather, const EnergyResult& energy) {
  const bool si = model.siReport;
  const double rate = si ? 0.29307107 : 1.0;  // kBtu/h -> kW
  Table t(energy.hours.size());
  for (const char* h : {"Month", "Day", "Hour", "Weekday", "DayType", "Weight"}) t.cell(h);
  if (si)
    for (const char* h : {"DryBulb_C", "WetBulb_C", "GlobalHoriz_W/m2", "HeatingLoad_kW", "CoolingLoad_kW"}) t.cell(h);
  else
    for (const char* h : {"DryBulb_F", "WetBulb_F", "GlobalHoriz_Btu/hft2", "HeatingLoad_kBtu/h", "CoolingLoad_kBtu/h"}) t.cell(h);
  for (const char* h : {"Lights_kW", "Equipment_kW", "Fans_kW", "Cooling_kW", "HeatingElec_kW", "WaterHeatElec_kW", "TotalElec_kW"})
    t.cell(h);
  t.cell(si ? "Gas_kW" : "Gas_kBtu/h");
  t.end();
  const std::size_t n = std::min(energy.hours.size(), energy.energy.size());
  for (std::size_t i = 0; i < n; ++i) {
    const SimulatedHour& h = energy.hours[i];
    const HourEnergy& e = energy.energy[i];
    const WeatherHour& w = weatherAt(weather, h);
    t.cell(std::to_string(h.month)).cell(std::to_string(h.dayOfMonth)).cell(std::to_string(h.hour))
        .cell(kWeekdayNames[(h.weekday + 6) % 7]).cell(h.occupied ? "OCC" : "UNOCC").cell(h.weight, 3)
        .cell(temp(w.dryBulb, si), 1).cell(temp(wetBulb(w.dryBulb, w.dewPoint, w.pressure), si), 1)
        .cell(radiation(w.globalH, si), 1).cell(e.heatingLoad * rate, 3).cell(e.coolingLoad * rate, 3)
        .cell(e.lights, 3).cell(e.equipment, 3).cell(e.fans, 3).cell(e.cooling, 3).cell(e.heatingElec, 3)
        .cell(e.waterHeatElec, 3).cell(e.totalElec(), 3).cell(e.gas() * rate, 3);
    t.end();
  }
  return t.take();
}

std::string hourlyTemperatureFile(const SimModel& model, const WeatherYear& weather, const LoadsResult& loads) {
  const bool si = model.siReport;
  const std::size_t zones = loads.zones.size();
  Table t(loads.hours.size());
  t.cell("Month").cell("Day").cell("Hour").cell(si ? "OutdoorDB_C" : "OutdoorDB_F").cell("OutdoorRH_%");
  for (std::size_t z = 0; z < zones && z < model.zones.size(); ++z) {
    const std::string label = cleanName(model.zones[z].id) + " " + cleanName(model.zones[z].name);
    t.cell(label + (si ? " T_C" : " T_F")).cell(label + " RH_%");
  }
  t.end();
  for (std::size_t i = 0; i < loads.hours.size(); ++i) {
    const SimulatedHour& h = loads.hours[i];
    const WeatherHour& w = weatherAt(weather, h);
    t.cell(std::to_string(h.month)).cell(std::to_string(h.dayOfMonth)).cell(std::to_string(h.hour))
        .cell(temp(w.dryBulb, si), 1).cell(100.0 * relativeHumidity(w.dryBulb, w.dewPoint), 0);
    for (std::size_t z = 0; z < zones && z < model.zones.size(); ++z) {
      const std::size_t k = i * zones + z;
      if (k >= loads.zoneHours.size()) break;
      const ZoneHourRecord& r = loads.zoneHours[k];
      t.cell(temp(r.airTemp, si), 1).cell(rhFromHumidityRatio(r.airTemp, r.humidityRatio, w.pressure), 0);
    }
    t.end();
  }
  return t.take();
}

std::string hourlyWeatherFile(const SimModel& model, const WeatherYear& weather, const std::vector<SimulatedHour>& hours) {
  const bool si = model.siReport;
  Table t(hours.size());
  if (si)
    for (const char* h : {"Month", "Day", "Hour", "DryBulb_C", "DewPoint_C", "WetBulb_C", "RH_%", "HumRatio_kg/kg",
                          "Pressure_kPa", "GlobalHoriz_W/m2", "DirectNormal_W/m2", "DiffuseHoriz_W/m2", "Wind_m/s",
                          "SunAltitude_deg", "SunAzimuth_deg", "GroundTemp6ft_C"})
      t.cell(h);
  else
    for (const char* h : {"Month", "Day", "Hour", "DryBulb_F", "DewPoint_F", "WetBulb_F", "RH_%", "HumRatio_lb/lb",
                          "Pressure_inHg", "GlobalHoriz_Btu/hft2", "DirectNormal_Btu/hft2", "DiffuseHoriz_Btu/hft2",
                          "Wind_mph", "SunAltitude_deg", "SunAzimuth_deg", "GroundTemp6ft_F"})
      t.cell(h);
  t.end();
  const std::vector<double> ground = groundTemperature(weather, 6.0);
  const double lat = weather.site.latitude * kDeg;
  for (const SimulatedHour& h : hours) {
    const WeatherHour& w = weatherAt(weather, h);
    // The sun at mid-hour, as the loads pass places it.
    const DayAstro a = dayAstro(h.day);
    const double omega = 15.0 * kDeg * (solarTime(h.hour - 0.5, weather.site, a.equationOfTime) - 12.0);
    const Vec3 sun = sunVector(lat, a.declination, omega);
    const double altitude = std::asin(std::clamp(sun.u, -1.0, 1.0)) / kDeg;
    double azimuth = solarAzimuth(sun) / kDeg;
    if (azimuth < 0) azimuth += 360.0;
    const double groundF = ground.empty() ? 0.0 : ground[std::min<std::size_t>(h.day - 1, ground.size() - 1)];
    t.cell(std::to_string(h.month)).cell(std::to_string(h.dayOfMonth)).cell(std::to_string(h.hour))
        .cell(temp(w.dryBulb, si), 1).cell(temp(w.dewPoint, si), 1).cell(temp(wetBulb(w.dryBulb, w.dewPoint, w.pressure), si), 1)
        .cell(100.0 * relativeHumidity(w.dryBulb, w.dewPoint), 0)
        .cell(humidityRatioFromDewPoint(w.dewPoint, w.pressure), 5)
        .cell(si ? w.pressure * 3.38639 : w.pressure, 2)
        .cell(radiation(w.globalH, si), 1).cell(radiation(w.directN, si), 1).cell(radiation(w.diffuseH, si), 1)
        .cell(si ? w.wind * 0.44704 : w.wind, 1).cell(altitude, 1).cell(azimuth, 1).cell(temp(groundF, si), 1);
    t.end();
  }
  return t.take();
}

}  // namespace tarn
