#include "engine/model.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "common/number_text.h"
#include "common/split.h"
#include "common/text_lines.h"
#include "project/design_temperature.h"
#include "project/project_model.h"
#include "engine/run_log.h"

namespace tarn {

using marloven::leadingNumber;

namespace {

constexpr double kMaxLagHours = 23.0;

std::string zoneWhere(const std::string& id, int row) {
  return "zone " + id + (row > 0 ? " row " + std::to_string(row) : std::string());
}

// A profile of a kind by the zone's ID text; nullptr when missing.
const marloven::Profile* findProfile(const marloven::Project& p, marloven::ProfileKind kind,
                                     const std::string& idText) {
  const double id = leadingNumber(idText);
  for (const marloven::Profile& pr : p.profiles.of(kind))
    if (!pr.id.empty() && leadingNumber(pr.id) == id) return &pr;
  return nullptr;
}

// Occ, HW, Lite: a value above 1 is a percent.
Hourly fractionProfile(const Hourly& v) {
  Hourly out{};
  for (int h = 0; h < 24; ++h) out[h] = v[h] > 1.0 ? v[h] / 100.0 : v[h];
  return out;
}

double leastOf(const Hourly& v) { return *std::min_element(v.begin(), v.end()); }

// Room heights by zone ID from the sketch block: "level + zone index" IDs whose
// cells exist on a level take its height; others the last level's.
struct RoomHeights {
  std::map<std::string, double> byId;
  double last = 10.0;
};

RoomHeights roomHeights(const std::vector<std::string>& sketch) {
  RoomHeights rh;
  int level = 0;
  std::size_t levelStart = 0;
  double height = 10.0;
  auto closeLevel = [&](std::size_t endLine) {
    if (level == 0) return;
    rh.last = height;
    // Cell rows are lines 32..91 of the level, 80 cells each.
    for (std::size_t i = levelStart + 31; i < std::min(endLine, levelStart + 91); ++i) {
      const std::string_view cells = marloven::midText(sketch[i], 1, 80);
      for (char c : cells) {
        if (c == ' ' || c == '0') continue;
        const int zone = (c >= '0' && c <= '9') ? c - '0' : c - 55;
        if (zone > 0) rh.byId[std::to_string(level) + std::to_string(zone)] = height;
      }
    }
  };
  for (std::size_t i = 0; i < sketch.size(); ++i) {
    const std::string& l = sketch[i];
    if (l.rfind("Grid", 0) == 0 || l.rfind("grid", 0) == 0) {
      closeLevel(i);
      ++level;
      levelStart = i;
      height = 10.0;
    } else if (l.rfind("Room Height", 0) == 0) {
      const double h = leadingNumber(marloven::fromColumn(l, 14));
      if (h > 0) height = h;
    }
  }
  closeLevel(sketch.size());
  return rh;
}

// A code field as an integer, 0 when far outside any code: a conversion out of
// the integer's range is undefined.
int smallWhole(double v) { return v > -1000 && v < 1000 ? static_cast<int>(v) : 0; }

double lightsRadiantFraction(int type) {
  switch (type) {
    case 2: case 5: return 0.8;
    case 3: case 4: case 6: return 0.7;
    default: return 0.6;
  }
}

std::string trimmed(std::string s) {
  while (!s.empty() && s.back() == ' ') s.pop_back();
  std::size_t i = 0;
  while (i < s.size() && s[i] == ' ') ++i;
  return s.substr(i);
}

}  // namespace

Hourly parseProfileValues(std::string_view text) {
  Hourly v{};
  const auto tokens = marloven::splitBlanks(text);
  double last = 0;
  for (int h = 0; h < 24; ++h) {
    if (h < static_cast<int>(tokens.size())) last = leadingNumber(tokens[h]);
    v[h] = last;
  }
  return v;
}

ShadingTokens parseShading(std::string_view text) {
  ShadingTokens t;
  for (std::string tok : marloven::splitBlanks(text)) {
    if (tok.empty()) continue;
    std::replace(tok.begin(), tok.end(), ',', '.');
    const char letter = static_cast<char>(std::toupper(static_cast<unsigned char>(tok[0])));
    const double v = std::max(0.0, leadingNumber(std::string_view(tok).substr(1)));
    switch (letter) {
      case 'R': t.right = v; break;
      case 'L': t.left = v; break;
      case 'T': t.overhang = v; break;
      case 'F': t.obstruction = std::min(1.0, v); break;
      default: break;  // N and numbers: no shading
    }
  }
  return t;
}

double solarEscapeShare(double areaTauDiffuse, double windowArea, double interiorArea) {
  const double absorbing = kInteriorAbsorptance * std::max(0.0, interiorArea - windowArea);
  const double total = absorbing + areaTauDiffuse;
  return total > 0 ? areaTauDiffuse / total : 0.0;
}

double filmCorrection(double hExterior, double hIs) {
  if (hIs <= 0) return 1.0;
  return 1.0 / (1.0 - std::min(kMaxFilmShare, hExterior / hIs));
}

double constructionCapacity(double u, double lagHours) {
  return std::min(10.0, 0.26 * u * lagHours * lagHours);
}

SimModel buildModel(const marloven::Project& project, const std::vector<std::string>& sketchLines,
                    const RunControl& control, RunLog& log) {
  SimModel m;
  // The run copy always carries I-P numbers, whatever the report marker says.
  marloven::Project p = project;
  m.siReport = project.units == marloven::UnitSystem::SI;
  p.units = marloven::UnitSystem::IP;

  const std::string yearText = trimmed(p.data[marloven::kConstructionYear]);
  const double yearValue = leadingNumber(yearText.size() > 4 ? yearText.substr(yearText.size() - 4) : yearText);
  m.year = yearValue >= 1 && yearValue <= 9999 ? static_cast<int>(yearValue) : 0;  // "1e99" fits 4 characters
  if (m.year < 1) {
    log.warning("ecalc$.inp", "no construction year; 2001 is used");
    m.year = 2001;
  }
  const double orientation = leadingNumber(p.data[marloven::kOrientation]);
  m.projectName = p.data[marloven::kProjectName];
  m.location = p.data[marloven::kLocation];
  m.description = p.data[marloven::kProjectDesc];
  m.designStage = p.data[marloven::kDesignStage];
  m.scheme = p.data[marloven::kSchemeNumber];
  m.buildingType = p.data[marloven::kBuildingType];
  m.occupiedDays = leadingNumber(p.data[marloven::kOccupiedDays]);
  m.holidayCount = leadingNumber(p.data[marloven::kAnnualHolidays]);
  m.seed = trimmed(p.seed);
  m.weeksPerMonth = p.weeksPerMonth;

  // Site from weather line 2.
  const std::string& w2 = p.weather.lines[2];
  m.site.latitude = leadingNumber(marloven::midText(w2, 56, 6));
  m.site.longitude = leadingNumber(marloven::midText(w2, 62, 6));
  const double tz = leadingNumber(marloven::midText(w2, 68, 6));
  m.site.meridian = std::fabs(tz) <= 14.0 ? 15.0 * tz : tz;
  m.site.elevation = leadingNumber(w2.size() > 6 ? std::string_view(w2).substr(w2.size() - 6) : std::string_view(w2));
  if (std::fabs(m.site.longitude - m.site.meridian) > 30.0 && std::fabs(m.site.longitude + m.site.meridian) <= 30.0) {
    m.site.meridian = -m.site.meridian;
    log.warning("ecalc$.inp weather line 2", "time zone sign flipped to match the longitude");
  }
  if (std::fabs(m.site.latitude) > 90.0)
    throw RunFailure(ExitCode::BadInput, "ecalc$.inp weather line 2", "latitude outside -90 to 90");

  marloven::parseWeatherLines(p);
  std::array<std::array<double, 12>*, 8> tables = {&m.stats.dbAve, &m.stats.aveStd, &m.stats.dbMax, &m.stats.maxStd,
                                                   &m.stats.dpAve, &m.stats.dpStd, &m.stats.solar, &m.stats.wind};
  for (int t = 0; t < 8; ++t)
    for (int k = 0; k < 12; ++k) (*tables[t])[k] = leadingNumber(p.weather.months[t + 1][k + 1]);

  if (p.designTemps.values[1].empty()) marloven::estimateDesignTemperatures(p);
  for (int i = 1; i <= 3; ++i) m.designTemps[i] = leadingNumber(p.designTemps.values[i]);

  const RoomHeights heights = roomHeights(sketchLines);
  std::map<std::tuple<long, long, long, long, long, long>, int> groupIndex;
  std::map<std::tuple<int, int, long, long, long>, int> classIndex;
  auto groupOf = [&](const OrientationGroup& g) {
    // A plane facing straight up sees the same sun and sky whatever its azimuth.
    const long azimuthKey = g.tilt < 1e-9 ? 0 : std::lround(g.azimuth / kDeg * 10);
    const auto key = std::make_tuple(azimuthKey, std::lround(g.tilt / kDeg * 10),
                                     std::lround(g.groundReflectance * 1000), std::lround(g.finRight * 1000),
                                     std::lround(g.finLeft * 1000), std::lround(g.obstruction * 1000));
    auto it = groupIndex.find(key);
    if (it != groupIndex.end()) return it->second;
    m.groups.push_back(g);
    return groupIndex[key] = static_cast<int>(m.groups.size()) - 1;
  };
  auto classOf = [&](const ExteriorClass& c) {
    const auto key = std::make_tuple(static_cast<int>(c.kind), c.group, std::lround(c.absorptance * 1e4),
                                     std::lround(c.lag * 1e4), std::lround(c.decrement * 1e4));
    auto it = classIndex.find(key);
    if (it != classIndex.end()) return it->second;
    m.classes.push_back(c);
    return classIndex[key] = static_cast<int>(m.classes.size()) - 1;
  };

  constexpr double kSoil = 0.69;  // Btu/h·ft·°F
  for (int zi = 1; zi <= p.zoneCount; ++zi) {
    const marloven::ZoneRecord& zr = p.zones[zi];
    ZoneModel z;
    z.id = trimmed(zr.fields[marloven::kZoneId]);
    z.name = zr.fields[marloven::kZoneName];
    z.floorArea = leadingNumber(zr.fields[marloven::kZoneFloorArea]);
    if (z.floorArea <= 0) {
      log.warning(zoneWhere(z.id, 0), "floor area 0 or less; zone not simulated");
      continue;
    }
    auto hi = heights.byId.find(z.id);
    z.height = sketchLines.empty() ? 10.0 : (hi != heights.byId.end() ? hi->second : heights.last);
    z.volume = z.floorArea * z.height;

    double grossArea = 0, massFromConstructions = 0, windowArea = 0, areaTauDiffuse = 0;
    double stripArea = 0, hStripCount = 0;
    struct CoreRow { double area; int k; double dt; };
    std::vector<CoreRow> cores;
    std::map<std::tuple<int, long, long, int, int, long, char, bool>, int> windowIndex;
    for (int r = 1; r <= zr.rowCount; ++r) {
      const marloven::EnvelopeRow& row = zr.rows[r];
      const std::string where = zoneWhere(z.id, r);
      if (row.wallArea < 0 || row.windowArea < 0) {
        log.warning(where, "negative area; row ignored");
        continue;
      }
      const int wallId = row.wallId;
      if (wallId < 1 || wallId > marloven::kMaxTypeId || p.walls[wallId].id().empty()) {
        log.warning(where, "wall type " + std::to_string(wallId) + " is not in the types; row ignored");
        continue;
      }
      const auto& wt = p.walls[wallId].fields;
      const double uWall = leadingNumber(wt[2]), absorb = leadingNumber(wt[3]);
      double lag = leadingNumber(wt[4]), dec = leadingNumber(wt[5]);
      if (lag < 0 || lag > kMaxLagHours || dec < 0 || dec > 1)
        log.warning(where, "time lag or decrement factor outside its range; clamped");
      lag = std::clamp(lag, 0.0, kMaxLagHours);
      dec = std::clamp(dec, 0.0, 1.0);

      double gross = row.wallArea;
      double winArea = row.windowArea;
      const marloven::CatalogType* win = nullptr;
      if (winArea > 0) {
        const int wid = row.windowId;
        if (wid < 1 || wid > marloven::kMaxTypeId || p.windows[wid].id().empty()) {
          log.warning(where, "window type " + std::to_string(wid) + " is not in the types; window ignored");
          winArea = 0;
        } else {
          win = &p.windows[wid];
        }
      }
      if (winArea > gross) {
        log.warning(where, "window area above the gross area; clipped");
        winArea = gross;
      }
      grossArea += gross;
      const double opaque = gross - winArea;

      int exposure = row.surfaceExposure;
      const double slope = row.slope;
      bool roof = false, ground = false, core = false;
      if (exposure < 1) {
        log.warning(where, "surface exposure below 1 taken as 2");
        exposure = 2;
      }
      if (exposure == 6) roof = true;
      else if (exposure >= 71 && exposure <= 76) core = true;
      else if (exposure >= 7) {
        if (exposure != 7) log.warning(where, "surface exposure " + std::to_string(exposure) + " taken as 7");
        ground = true;
      }
      const double dt = 1.0 + (uWall > 0 ? kSoil / uWall : 0.0);
      if (core) {
        cores.push_back({opaque, exposure - 70, dt});
        continue;
      }
      if (ground) {
        ExteriorClass c;
        if (slope < 45.0) {
          c.kind = ExteriorClass::GroundPerimeter;
          const double w = m.siReport ? 3.281 : 3.0;
          const double perimeter = opaque / w;
          const double f = kSoil / kPi * std::log(1.0 + kPi * w / dt);
          z.elements.push_back({classOf(c), f * perimeter, false});
          stripArea += opaque;
          hStripCount += 1;
        } else {
          c.kind = ExteriorClass::BasementWall;
          const double hb = 8.0;
          const double uEff = 2.0 * kSoil / (kPi * hb) * std::log(1.0 + kPi * hb / (2.0 * dt));
          z.elements.push_back({classOf(c), uEff * opaque, false});
        }
        continue;
      }

      OrientationGroup g;
      g.azimuth = std::fmod(row.wallOrientation + orientation + 720.0, 360.0) * kDeg;
      g.tilt = std::clamp(static_cast<double>(slope), 0.0, 180.0) * kDeg;
      g.groundReflectance = row.groundReflectance > 0 ? row.groundReflectance : 0.2;
      const ShadingTokens tokens = parseShading(row.externalShading);
      const bool tokensApply = !roof && slope > 0 && slope < 135.0;
      if (tokensApply) {
        g.finRight = tokens.right;
        g.finLeft = tokens.left;
        g.obstruction = tokens.obstruction;
      }
      const int gi = groupOf(g);

      if (opaque > 0 && uWall > 0) {
        ExteriorClass c;
        c.kind = ExteriorClass::SolAir;
        c.group = gi;
        c.absorptance = absorb;
        c.lag = lag;
        c.decrement = dec;
        z.elements.push_back({classOf(c), uWall * opaque, roof});
        massFromConstructions += opaque * constructionCapacity(uWall, lag);
      }
      if (win && winArea > 0) {
        const double uWin = leadingNumber(win->fields[2]), shgc = leadingNumber(win->fields[3]);
        const double emissivity = leadingNumber(win->fields[4]);
        z.hWindow += uWin * winArea;
        windowArea += winArea;
        // Diffuse transmittance of clear glazing: 0.87 of the normal SHGC for
        // the hemispherical average, 0.9 of that transmitted rather than absorbed.
        areaTauDiffuse += winArea * 0.87 * 0.9 * shgc;
        WindowClass wc;
        wc.group = gi;
        double sill = row.sillHeight, top = row.windowHeight;
        if (sill <= 0 && top <= 0) sill = 2.5, top = 7.5;
        wc.height = std::max(0.5, top - sill);
        if (tokensApply && tokens.overhang > 0) {
          const double hToOverhang = std::max(wc.height, z.height - sill);
          wc.overhang = tokens.overhang;
          wc.gapHeight = hToOverhang - wc.height;
        }
        int blind = row.venetianBlind;
        if (blind != 0 && blind != 1 && blind != 5) {
          log.warning(where, "Venetian blind code " + std::to_string(blind) + " taken as none");
          blind = 0;
        }
        wc.blind = blind;
        wc.shadeTau = std::clamp(static_cast<double>(row.diffuseTransmittance), 0.0, 1.0);
        const char s = row.surfaceCode.empty() ? 'B' : static_cast<char>(std::toupper(static_cast<unsigned char>(row.surfaceCode[0])));
        wc.season = (s == 'S' || s == 'W') ? s : 'B';
        wc.skylight = roof;
        const auto key = std::make_tuple(gi, std::lround(wc.overhang * 1e4), std::lround(wc.gapHeight * 1e4),
                                         wc.blind, static_cast<int>(std::lround(wc.shadeTau * 1e4)),
                                         std::lround(wc.height * 1e4), wc.season, wc.skylight);
        auto it = windowIndex.find(key);
        const double uaEps = uWin * winArea * (emissivity > 0 && emissivity <= 1 ? emissivity : 0.84);
        // A blank daylight transmittance: the SHGC, which clear glazing's exceeds.
        double tauVis = leadingNumber(win->fields[5]);
        if (tauVis <= 0 || tauVis > 1) tauVis = std::clamp(shgc, 0.0, 1.0);
        if (roof) {
          z.skylights.push_back(winArea);
          z.skylightAreaTauVis += winArea * tauVis;
        }
        if (it == windowIndex.end()) {
          wc.areaShgc = winArea * shgc;
          wc.uaEmissivity = uaEps;
          wc.area = winArea;
          wc.width = winArea / wc.height;
          wc.areaTauVis = winArea * tauVis;
          windowIndex[key] = static_cast<int>(z.windows.size());
          z.windows.push_back(wc);
        } else {
          WindowClass& merged = z.windows[it->second];
          merged.areaShgc += winArea * shgc;
          merged.uaEmissivity += uaEps;
          merged.area += winArea;
          merged.width += winArea / wc.height;
          merged.areaTauVis += winArea * tauVis;
        }
      }
    }
    // Floor cores: the conductance of the core beyond the perimeter strip.
    for (const CoreRow& c : cores) {
      const double w = m.siReport ? 3.281 : 3.0;
      double r, perimeter;
      if (stripArea > 0) {
        r = (stripArea + c.area) / stripArea;
        perimeter = stripArea / w;
      } else {
        r = c.k + 0.5;
        perimeter = c.area / ((r - 1.0) * w);
      }
      const double h = perimeter * kSoil / kPi * std::log((kPi * r * w + c.dt) / (kPi * w + c.dt));
      ExteriorClass cls;
      cls.kind = ExteriorClass::GroundCore;
      z.elements.push_back({classOf(cls), std::max(0.0, h), false});
    }
    (void)hStripCount;

    // Room surfaces: the rows, or at least a square room's floor, ceiling and walls.
    const double interior = std::max(grossArea, 2.0 * z.floorArea + 4.0 * std::sqrt(z.floorArea) * z.height);
    z.solarEscape = solarEscapeShare(areaTauDiffuse, windowArea, interior);
    const double at = interior;
    const double am = std::min(2.5 * z.floorArea, at);
    // Air to surfaces: 3.1 W/m²·K over the room's own surfaces (see the README:
    // the simplified method's 3.45 belongs to its nominal 4.5 × floor area).
    z.hIs = kSurfaceLink * at;
    // Catalog U-values are air-to-air: they already hold the inside film, which
    // the network carries as the air-to-surface link h_is. The exterior
    // conductances are raised so that, in steady state, the room loses
    // Σ U·A through the link and them in series, not less.
    double hExterior = z.hWindow;
    for (const ZoneElement& e : z.elements) hExterior += e.conductance;
    const double scale = filmCorrection(hExterior, z.hIs);
    z.hWindow *= scale;
    for (ZoneElement& e : z.elements) e.conductance *= scale;
    for (WindowClass& wc : z.windows) wc.uaEmissivity *= scale;
    z.hMs = 1.60 * am;
    z.massShare = am / at;
    const double internalMass = std::max(0.0, leadingNumber(zr.fields[marloven::kInternalMass]));
    z.capacity = z.floorArea * (1.0 + 0.2 * internalMass) + massFromConstructions;

    z.infiltrationCfm = std::max(0.0, leadingNumber(zr.fields[marloven::kInfiltration])) * z.volume / 60.0;
    const std::string nv = trimmed(zr.naturalVent);
    z.naturalVent = !nv.empty() && (nv[0] == 'Y' || nv[0] == 'y');
    z.naturalVentMaxCfm = std::max(0.0, leadingNumber(zr.fields[marloven::kNaturalVentRate])) * z.floorArea;

    z.people = std::max(0.0, leadingNumber(zr.fields[marloven::kPeople]));
    z.lightsW = std::max(0.0, leadingNumber(zr.fields[marloven::kLightingPower])) * z.floorArea;
    z.equipmentW = std::max(0.0, leadingNumber(zr.fields[marloven::kEquipmentLoad])) * z.floorArea;
    z.lightsRadiant = lightsRadiantFraction(smallWhole(leadingNumber(zr.fields[marloven::kLightingType])));

    const marloven::OutsideAir oa = marloven::splitOutsideAir(zr.fields[marloven::kOutsideAir]);
    const double rate = std::max(0.0, leadingNumber(oa.number));
    z.oaRate = rate;
    if (oa.kind == "CS") {
      z.oaKind = ZoneModel::OutsideAirKind::PerArea;
      z.outsideAirCfm = rate * z.floorArea;
    } else if (oa.kind == "PA") {
      // The design supply flow comes from sizing after the loads: the load
      // table counts none of this air, the systems pass all of it.
      z.oaKind = ZoneModel::OutsideAirKind::PercentOfSupply;
      if (rate > 100) {
        log.warning(zoneWhere(z.id, 0), "outside air above 100 % of the supply air; 100 % is used");
        z.oaRate = 100;
      }
    } else {
      z.outsideAirCfm = rate * z.people;
    }

    const std::string where = zoneWhere(z.id, 0);
    const double coolField = leadingNumber(zr.fields[marloven::kCoolingType]);
    z.coolType = smallWhole(coolField);
    if (z.coolType < 1 || z.coolType > 9 || z.coolType != coolField) {
      log.warning(where, "cooling type \"" + trimmed(zr.fields[marloven::kCoolingType]) + "\" is not 1 to 9; 5 (rooftop) is used");
      z.coolType = 5;
    }
    const double heatField = leadingNumber(zr.fields[marloven::kHeatingType]);
    z.heatType = smallWhole(heatField);
    if (z.heatType < 1 || z.heatType > 3 || z.heatType != heatField) {
      log.warning(where, "heating type \"" + trimmed(zr.fields[marloven::kHeatingType]) + "\" is not 1 to 3; 1 (gas) is used");
      z.heatType = 1;
    }
    z.staticPressure = std::max(0.0, leadingNumber(zr.fields[marloven::kStaticPressure]));
    z.seer = std::max(0.0, leadingNumber(zr.fields[marloven::kCoolingEfficiency]));
    z.heatCop = std::max(0.0, leadingNumber(zr.fields[marloven::kHeatingEfficiency]));
    const std::string econ = trimmed(zr.economizer);
    z.economiser = !econ.empty() && (econ[0] == 'Y' || econ[0] == 'y');
    z.hotWaterPerPerson = std::max(0.0, leadingNumber(zr.fields[marloven::kHotWaterPerPerson]));

    z.daylight = marloven::isDaylightYes(zr.daylight);
    z.daylightDepth = std::max(0.0, leadingNumber(zr.fields[marloven::kDaylitDepth]));
    z.daylightTarget = std::max(0.0, leadingNumber(zr.fields[marloven::kTargetIlluminance]));
    if (z.daylight && (z.daylightDepth <= 0 || z.daylightTarget <= 0)) {
      log.warning(where, "daylighting needs a depth and a target above 0; the lights are not dimmed");
      z.daylight = false;
    }

    auto profile = [&](marloven::ProfileKind kind, int field, const char* what) {
      const marloven::Profile* pr = findProfile(p, kind, zr.fields[field]);
      if (!pr) {
        log.warning(zoneWhere(z.id, 0), std::string(what) + " profile \"" + trimmed(zr.fields[field]) +
                                            "\" is missing; a flat 100 % profile is used");
        Hourly one{};
        one.fill(1.0);
        return one;
      }
      return parseProfileValues(pr->values);
    };
    z.occ = fractionProfile(profile(marloven::ProfileKind::Occ, marloven::kOccProfile, "occupancy"));
    z.lite = fractionProfile(profile(marloven::ProfileKind::Lite, marloven::kLightProfile, "lighting"));
    Hourly vent = profile(marloven::ProfileKind::Vent, marloven::kVentProfile, "ventilation");
    for (double& v : vent) v = std::clamp(v, 0.0, 1.0);
    z.vent = vent;
    if (z.hotWaterPerPerson > 0)
      z.hotWater = fractionProfile(profile(marloven::ProfileKind::HW, marloven::kHotWaterProfile, "hot water"));
    z.hotWaterBase = leastOf(z.hotWater);
    z.occBase = leastOf(z.occ);
    z.liteBase = leastOf(z.lite);
    z.ventBase = leastOf(z.vent);

    auto thermostat = [&](int field, double fallback, const char* what) {
      const marloven::Profile* pr = findProfile(p, marloven::ProfileKind::Temp, zr.fields[field]);
      if (!pr) {
        log.warning(zoneWhere(z.id, 0), std::string(what) + " thermostat profile \"" + trimmed(zr.fields[field]) +
                                            "\" is missing; " + std::to_string(static_cast<int>(fallback)) + " F is used");
        Hourly t{};
        t.fill(fallback);
        return t;
      }
      return parseProfileValues(pr->values);
    };
    z.upperOcc = thermostat(marloven::kSummerOccupied, 78, "upper (S-Occ.)");
    z.lowerOcc = thermostat(marloven::kWinterOccupied, 68, "lower (W-Occ.)");
    z.upperUnocc = thermostat(marloven::kSummerUnoccupied, 78, "upper (S-Unocc.)");
    z.lowerUnocc = thermostat(marloven::kWinterUnoccupied, 68, "lower (W-Unocc.)");
    bool raised = false;
    for (int h = 0; h < 24; ++h) {
      if (z.upperOcc[h] < z.lowerOcc[h] + 1) z.upperOcc[h] = z.lowerOcc[h] + 1, raised = true;
      if (z.upperUnocc[h] < z.lowerUnocc[h] + 1) z.upperUnocc[h] = z.lowerUnocc[h] + 1, raised = true;
    }
    if (raised) log.warning(zoneWhere(z.id, 0), "upper set-point below lower + 1 F at some hour; raised");
    m.zones.push_back(std::move(z));
  }
  if (m.zones.empty())
    throw RunFailure(ExitCode::BadInput, "ecalc$.inp", "no zone has a floor area above 0");
  (void)control;
  return m;
}

}  // namespace tarn
