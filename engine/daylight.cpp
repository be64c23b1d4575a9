#include "engine/daylight.h"

#include <algorithm>
#include <cmath>

#include "common/number_text.h"
#include "common/text_lines.h"
#include "engine/input_checks.h"
#include "engine/model.h"
#include "engine/run_log.h"

namespace tarn {

namespace {

constexpr double kFtPerM = 3.2808399;
constexpr std::size_t kValueColumn = 26;
constexpr std::size_t kFirstZoneLine = 13;

std::string trimmed(std::string_view s) {
  std::size_t a = 0, b = s.size();
  while (a < b && s[a] == ' ') ++a;
  while (b > a && s[b - 1] == ' ') --b;
  return std::string(s.substr(a, b - a));
}

std::string upper(std::string s) {
  for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return s;
}

}  // namespace

DaylightControls readDaylightFile(std::string_view bytes, bool si) {
  DaylightControls c;
  const std::vector<std::string> lines = marloven::splitLines(bytes);
  const double length = si ? kFtPerM : 1.0;
  auto where = [](std::size_t n) { return "ltshlf.dat line " + std::to_string(n); };
  // A control line's value, or nullopt-like empty text when the line is absent or blank.
  auto value = [&](std::size_t n) { return n <= lines.size() ? trimmed(marloven::fromColumn(lines[n - 1], kValueColumn)) : std::string(); };
  auto number = [&](std::size_t n, double fallback, double lo, double hi, const char* what) {
    const std::string v = value(n);
    if (v.empty()) return fallback;
    const NumberText t = strictNumber(v);
    if (t.kind != NumberText::Number)
      throw RunFailure(ExitCode::BadInput, where(n), std::string(what) + " \"" + v + "\" is not a number");
    const double x = t.value;
    if (x < lo || x > hi)
      throw RunFailure(ExitCode::BadInput, where(n), std::string(what) + " must be " + marloven::bare(lo) + " to " + marloven::bare(hi));
    return x;
  };

  const std::string dimming = upper(value(4));
  if (dimming.empty() || dimming.rfind("CONT", 0) == 0) c.dimming = Dimming::Continuous;
  else if (dimming.rfind("STEP", 0) == 0) c.dimming = Dimming::Stepped;
  else if (dimming.rfind("ON", 0) == 0) c.dimming = Dimming::OnOff;
  else
    throw RunFailure(ExitCode::BadInput, where(4), "dimming control \"" + value(4) + "\" is not CONTINUOUS, STEPPED or ON/OFF");
  c.minPower = number(5, c.minPower, 0.0, 1.0, "the minimum power fraction");
  c.minLight = number(6, c.minLight, 0.0, 0.99, "the minimum light fraction");
  c.workPlane = number(7, c.workPlane / length, 0.0, 1e3, "the work plane height") * length;
  c.reflectance = number(8, c.reflectance, 0.0, 0.95, "the room reflectance");

  for (std::size_t n = kFirstZoneLine; n <= lines.size(); ++n) {
    const std::string& l = lines[n - 1];
    const std::string id = trimmed(marloven::midText(l, 1, 4));
    if (id.empty()) continue;
    LightShelf s;
    const NumberText depth = readNumberText(marloven::midText(l, 45, 7));
    if (depth.kind == NumberText::NotFinite || (depth.kind == NumberText::Number && depth.value > 1e3))
      throw RunFailure(ExitCode::BadInput, where(n), "the shelf depth must be 0 to 1000");
    s.depth = std::max(0.0, depth.value) * length;
    const std::string refl = trimmed(marloven::midText(l, 63, 6));
    if (!refl.empty()) {
      const NumberText r = strictNumber(refl);
      if (r.kind != NumberText::Number)
        throw RunFailure(ExitCode::BadInput, where(n), "the shelf reflectance \"" + refl + "\" is not a number");
      s.reflectance = r.value;
    }
    if (s.reflectance < 0 || s.reflectance > 1)
      throw RunFailure(ExitCode::BadInput, where(n), "the shelf reflectance must be 0 to 1");
    c.shelves[id] = s;
  }
  return c;
}

double powerFraction(const DaylightControls& c, double illuminance, double target) {
  if (target <= 0) return 1.0;
  const double need = std::max(0.0, 1.0 - illuminance / target);  // light output still needed
  switch (c.dimming) {
    case Dimming::Stepped:
      // Small tolerance so that exactly one step's worth needs that step, not the next.
      return std::ceil(3.0 * need - 1e-9) / 3.0;
    case Dimming::OnOff:
      return need > 0 ? 1.0 : 0.0;
    case Dimming::Continuous:
    default:
      if (need <= c.minLight) return c.minPower;
      return c.minPower + (1.0 - c.minPower) * (need - c.minLight) / (1.0 - c.minLight);
  }
}

ZoneDaylight zoneDaylight(const ZoneModel& z, const SimModel& m, const DaylightControls& c) {
  ZoneDaylight d;
  d.beamPlane.assign(z.windows.size(), 0.0);
  if (!z.daylight || z.daylightDepth <= 0 || z.daylightTarget <= 0 || z.floorArea <= 0) return d;
  double width = 0, sideTauArea = 0, sideArea = 0, skylitArea = 0;
  for (const WindowClass& wc : z.windows)
    if (!wc.skylight) width += wc.width, sideTauArea += wc.areaTauVis, sideArea += wc.area;
  for (double a : z.skylights) {
    const double side = std::sqrt(a) + 1.4 * z.height;
    skylitArea += side * side;
  }
  const double daylit = std::min(z.floorArea, width * z.daylightDepth + skylitArea);
  if (daylit <= 0) return d;
  d.on = true;
  d.share = daylit / z.floorArea;
  d.target = z.daylightTarget;

  // Side windows: the average daylight factor of the daylit room, each window
  // seeing the sky above its far obstruction.
  if (width > 0) {
    const double roomSurfaces = 2.0 * daylit + 2.0 * (width + z.daylightDepth) * z.height;
    double sum = 0;
    for (std::size_t k = 0; k < z.windows.size(); ++k) {
      const WindowClass& wc = z.windows[k];
      if (wc.skylight) continue;
      const double f = std::clamp(m.groups[wc.group].obstruction, 0.0, 1.0);
      const double thetaDeg = 90.0 - std::asin(f) * 180.0 / kPi;
      sum += wc.areaTauVis * thetaDeg;
      d.beamPlane[k] = wc.areaTauVis * kBeamEfficacy * 0.3 / daylit;
    }
    const double df = sum / (roomSurfaces * (1.0 - c.reflectance * c.reflectance));  // percent
    d.diffuseH = df / 100.0 * kDiffuseEfficacy;
    auto it = c.shelves.find(z.id);
    if (it != c.shelves.end() && it->second.depth > 0 && sideArea > 0)
      d.beamH = it->second.reflectance * it->second.depth * width * (sideTauArea / sideArea) * kBeamEfficacy * 0.3 / daylit;
  }
  d.globalH = z.skylightAreaTauVis * 0.5 / daylit;
  return d;
}

}  // namespace tarn
