#include "engine/systems.h"

#include <algorithm>
#include <cmath>

#include "engine/psychro.h"
#include "engine/solar.h"

namespace tarn {

double coldDeckTemperature(int coolType) { return coolType == 8 ? 57.0 : 55.0; }

double designFanKw(int coolType, double supplyCfm, double staticPressureField) {
  double sp = staticPressureField;
  if (sp <= 0) {
    switch (coolType) {
      case 1: case 2: case 3: sp = 3.0; break;
      case 5: sp = 1.5; break;
      case 8: sp = 0.3; break;
      default: sp = 0.5; break;
    }
  }
  const double efficiency = coolType <= 3 ? 0.55 : 0.45;
  return supplyCfm * sp * 0.11733 / efficiency / 1000.0;
}

double vavFanFraction(double x) {
  x = std::clamp(x, 0.0, 1.0);
  return 0.0013 + 0.1470 * x + 0.9506 * x * x - 0.0998 * x * x * x;
}

double chillerPartLoadCurve(double plr) { return 0.2229 + 0.3130 * plr + 0.4641 * plr * plr; }

double chillerKw(double load, double capacity, double eer) {
  if (load <= 0 || capacity <= 0 || eer <= 0) return 0.0;
  const double full = capacity / (eer * 1000.0);
  const double plr = std::min(1.0, load / capacity);
  // Below a tenth of its capacity the chiller cycles at that tenth's efficiency.
  if (plr < 0.1) return full * chillerPartLoadCurve(0.1) * plr / 0.1;
  return full * chillerPartLoadCurve(plr);
}

double dxRatedCop(int coolType, double seerField) {
  double eer;
  if (seerField <= 0) eer = 1.12 * 10.0 - 0.02 * 100.0;
  else if (coolType == 8) eer = seerField;
  else eer = 1.12 * seerField - 0.02 * seerField * seerField;
  return eer / 3.412;
}

double compressorCoolingCop(double ratedCop) {
  const double fanFree = 1.0 / ratedCop - kRatedFanHeatShare;
  return ratedCop > 0 && fanFree > 0 ? (1.0 + kRatedFanHeatShare) / fanFree : ratedCop;
}

double compressorHeatingCop(double ratedCop) {
  const double fanFree = 1.0 / ratedCop - kRatedFanHeatShare;
  return ratedCop > 0 && fanFree > 0 ? (1.0 - kRatedFanHeatShare) / fanFree : ratedCop;
}

namespace {

// Head pressure control keeps the condenser as if the outdoor air were at
// least this warm; the linear corrections run away below it.
constexpr double kDxLowestOutdoorF = 65.0;

}  // namespace

double dxCapacity(double ratedCapacity, double outdoorF) {
  const double t = std::max(outdoorF, kDxLowestOutdoorF);
  return std::max(0.0, ratedCapacity * (1.0 - 0.004 * (t - 95.0)));
}

double dxCop(double ratedCop, double outdoorF) {
  const double t = std::max(outdoorF, kDxLowestOutdoorF);
  return ratedCop / (1.0 + 0.0125 * (t - 95.0));
}

double dxCoolingKw(double load, double ratedCapacity, double ratedCop, double outdoorF) {
  if (load <= 0 || ratedCapacity <= 0 || ratedCop <= 0) return 0.0;
  const double capacity = dxCapacity(ratedCapacity, outdoorF);
  if (capacity <= 0) return 0.0;
  const double delivered = std::min(load, capacity);
  const double plf = 1.0 - 0.15 * (1.0 - delivered / capacity);
  return delivered / (dxCop(ratedCop, outdoorF) * plf) / kBtuPerKwh;
}

double gasEfficiency(double field) {
  if (field <= 0) return 0.8;
  return field > 1.5 ? field / 100.0 : field;
}

double heatPumpCop(double cop47, double outdoorF) { return std::max(1.0, cop47 * (1.0 + 0.01167 * (outdoorF - 47.0))); }

double heatPumpCapacity(double capacity47, double outdoorF) {
  return std::max(0.0, capacity47 * (1.0 + 0.0167 * (outdoorF - 47.0)));
}

HeatPumpHour heatPumpHeating(double load, double cop47, double capacity47, double outdoorF) {
  HeatPumpHour h;
  if (load <= 0) return h;
  if (outdoorF < 0.0) {
    h.backupKw = load / kBtuPerKwh;
    return h;
  }
  const double fromPump = std::min(load, heatPumpCapacity(capacity47, outdoorF));
  h.compressorKw = fromPump / heatPumpCop(cop47, outdoorF) / kBtuPerKwh;
  h.backupKw = (load - fromPump) / kBtuPerKwh;
  return h;
}

double economiserOutsideAir(double minimumCfm, double supplyCfm, double zoneF, double outdoorF, double supplyF,
                            bool cooling) {
  if (!cooling || supplyCfm <= 0 || outdoorF >= zoneF || outdoorF >= kEconomiserHighLimitF) return minimumCfm;
  const double wanted = supplyCfm * (zoneF - supplyF) / (zoneF - outdoorF);
  return std::clamp(wanted, minimumCfm, std::max(minimumCfm, supplyCfm));
}

double hotWaterGallons(const ZoneModel& z, bool occupiedDay, int hour0) {
  double day = 0;
  for (double v : z.hotWater) day += v;
  if (day <= 0 || z.hotWaterPerPerson <= 0) return 0.0;
  const double share = (occupiedDay ? z.hotWater[hour0] : z.hotWaterBase) / day;
  return z.hotWaterPerPerson * z.people * share;
}

double mainsTemperature(double annualMeanF, double monthlySpreadF, int day) {
  const double ratio = 0.4 + 0.01 * (annualMeanF - 44.0);
  const double lag = 35.0 - (annualMeanF - 44.0);
  return annualMeanF + 6.0 + ratio * (monthlySpreadF / 2.0) * std::sin((0.986 * (day - 15.0 - lag) - 90.0) * kDeg);
}

namespace {

bool chilledWaterType(int t) { return t >= 1 && t <= 4; }

struct ZoneSize {
  double supply = 0, outsideAir = 0, fanKw = 0;
  double coolCap = 0, heatCap = 0;
  double dxCop = 0, plantEer = 10;
  bool heatPump = false;
  double cop47 = 2.4, cap47 = 0;
  double gasEta = 0.8, resistanceCop = 1.0, waterHeaterCop = 1.0;
  double peakSensible = 0, peakHeating = 0, peakCoil = 0, peakHeatCoil = 0;
  double upperAtPeak = 78, lowerAtPeak = 68;
};

struct Outdoor {
  double t = 0, w = 0, wetBulb = 0, cp = 1.08, latent = 4840;
};

struct CoilHour {
  double cool = 0;     // sensible + latent at the cooling coil, Btu/h
  double heat = 0;     // heating coil, reheat and hot deck, Btu/h
  double mixing = 0;   // heat spent against cooling, Btu/h
  double fanKw = 0, pumpKw = 0, water = 0;
  bool unmet = false;
};

// The air side of one zone-hour. Sizing runs every fan through the whole hour
// at design flow and no capacity limits.
CoilHour airSide(const ZoneModel& z, const ZoneSize& s, const ZoneHourRecord& r, const Outdoor& o, bool sizing) {
  CoilHour c;
  const int type = z.coolType;
  const double load = r.sensible, ta = r.airTemp;
  const double zoneLatent = std::max(0.0, static_cast<double>(r.latent));
  const double cp = o.cp;

  if (type == 9 && load > 0) {
    // 100 % outdoor air through the wetted pad; the unit cycles to the load.
    const double supplyT = o.t - 0.85 * (o.t - o.wetBulb);
    const double capacity = cp * s.supply * (ta - supplyT);
    double runtime = 1.0;
    if (sizing) {
      c.cool = load;
      c.fanKw = s.fanKw;
      return c;
    }
    if (capacity <= 0) {
      c.unmet = true;
      return c;
    }
    if (capacity >= load) runtime = load / capacity;
    else c.unmet = true;
    c.cool = runtime * capacity;
    c.fanKw = s.fanKw * runtime;
    c.pumpKw = 0.1 * s.supply * runtime / 1000.0;
    c.water = cp * s.supply * runtime * (o.t - supplyT) / 1000.0 / 8.33;
    return c;
  }

  const bool ventOn = r.ventFraction > 0;
  const double minimumOa = ventOn ? s.outsideAir * r.ventFraction : 0.0;
  const double tc = coldDeckTemperature(type);
  const double fanHeatFull = s.fanKw * kBtuPerKwh;
  if (r.zoneOutsideAir > 0) {
    // The zone floated with the outside air in it: the fan runs (VAV at its
    // minimum flow), the mixed air goes in as it is, the coils are idle.
    c.fanKw = type == 1 && s.supply > 0 ? s.fanKw * vavFanFraction(0.3) : s.fanKw;
    return c;
  }
  // What the cooling equipment can give this hour: DX units lose capacity in the heat.
  const double coolCap = type >= 5 && type <= 8 ? dxCapacity(s.coolCap, o.t) : s.coolCap;
  // Evaporative heating and the fans of small units cycle with the load;
  // constant-volume and VAV fans run while the Vent profile is on, and cycle
  // with the load when it is off (no outside air then).
  const bool cycles = !sizing && (type >= 6 || !ventOn);

  if (cycles) {
    if (load == 0) return c;
    const double oa = type == 9 ? 0.0 : minimumOa;
    double supplyT = load > 0 && s.supply > 0 ? ta - load / (cp * s.supply) : ta;
    const bool econ = z.economiser && type <= 7;
    const double oaCfm = econ ? economiserOutsideAir(oa, s.supply, ta, o.t, supplyT, load > 0) : oa;
    const double oaSensible = cp * oaCfm * (o.t - ta);
    const double oaLatent = o.latent * oaCfm * (o.w - r.humidityRatio);
    double runtime;
    if (load > 0) {
      const double denom = coolCap - oaSensible - std::max(0.0, oaLatent) - fanHeatFull;
      runtime = denom > 0 ? std::min(1.0, (load + zoneLatent) / denom) : 1.0;
      c.cool = std::max(0.0, load + runtime * (oaSensible + fanHeatFull)) + std::max(0.0, zoneLatent + runtime * oaLatent);
      c.unmet = c.cool > coolCap * (1.0 + 1e-9);
    } else {
      const double denom = s.heatCap + oaSensible + fanHeatFull;
      runtime = denom > 0 ? std::min(1.0, -load / denom) : 1.0;
      c.heat = std::max(0.0, -load - runtime * (oaSensible + fanHeatFull));
      c.unmet = c.heat > s.heatCap * (1.0 + 1e-9);
    }
    c.fanKw = s.fanKw * runtime;
    return c;
  }

  // The fan runs the whole hour.
  double v = s.supply;
  if (type == 1) v = load > 0 ? std::clamp(load / (cp * std::max(1.0, ta - tc)), 0.3 * s.supply, s.supply) : 0.3 * s.supply;
  const double supplyT = v > 0 ? ta - load / (cp * v) : ta;  // what the zone needs
  const bool econ = z.economiser && type <= 7 && !sizing;
  const double target = type <= 3 ? tc : supplyT;
  const double oaCfm = econ ? economiserOutsideAir(minimumOa, v, ta, o.t, target, load > 0) : minimumOa;
  const double mixT = v > 0 ? ta + std::min(1.0, oaCfm / v) * (o.t - ta) : ta;
  double sensibleCool = 0;
  if (type == 1) {
    sensibleCool = std::max(0.0, cp * v * (mixT - tc));
    const double reheat = std::max(0.0, cp * v * (supplyT - tc));
    const double preheat = std::max(0.0, cp * v * (tc - mixT));
    c.heat = reheat + preheat;
  } else if (type == 2 || type == 3) {
    const double hot = std::clamp((supplyT - tc) / (kHotDeckF - tc), 0.0, 1.0);
    sensibleCool = cp * v * (1.0 - hot) * std::max(0.0, mixT - tc);
    c.heat = cp * v * hot * std::max(0.0, kHotDeckF - mixT);
  } else {
    const double net = load + cp * oaCfm * (o.t - ta);
    sensibleCool = std::max(0.0, net);
    c.heat = std::max(0.0, -net);
  }
  c.fanKw = type == 1 && s.supply > 0 ? s.fanKw * vavFanFraction(v / s.supply) : s.fanKw;
  const double fanHeat = c.fanKw * kBtuPerKwh;
  if (type <= 3) c.mixing = std::min(sensibleCool, c.heat);
  if (sensibleCool > 0) {
    const double latent = std::max(0.0, zoneLatent + o.latent * oaCfm * (o.w - r.humidityRatio));
    c.cool = sensibleCool + fanHeat + latent;
  } else {
    c.heat = std::max(0.0, c.heat - fanHeat);
  }
  if (!sizing) c.unmet = c.cool > coolCap * (1.0 + 1e-9) || c.heat > s.heatCap * (1.0 + 1e-9);
  return c;
}

// Steady heat loss of a zone at the winter design temperature with no gains.
double designHeatLoss(const SimModel& m, const ZoneModel& z, double lowF, double cp, double outsideAirCfm) {
  double hExterior = z.hWindow;
  for (const ZoneElement& e : z.elements)
    if (m.classes[e.cls].kind == ExteriorClass::SolAir) hExterior += e.conductance;
  // The exterior conductances were raised to sit in series with h_is.
  const double ua = z.hIs > 0 ? hExterior * z.hIs / (hExterior + z.hIs) : hExterior;
  return std::max(0.0, (ua + cp * (z.infiltrationCfm + outsideAirCfm)) * (lowF - m.winterDesignDryBulb()));
}

}  // namespace

EnergyResult runSystems(const SimModel& m, const LoadsResult& loads, const WeatherYear& w, const RunControl& control,
                        RunLog& log) {
  EnergyResult res;
  const bool passive = control.runType == 4;
  const std::size_t nz = m.zones.size();
  const std::size_t nh = loads.hours.size();
  res.hours = loads.hours;
  res.energy.assign(nh, HourEnergy{});
  res.zones.resize(nz);
  if (loads.zoneHours.size() != nh * nz) throw RunFailure(ExitCode::Internal, "systems", "the loads pass left no hourly zone records");

  auto record = [&](std::size_t i, std::size_t z) -> const ZoneHourRecord& { return loads.zoneHours[i * nz + z]; };
  auto outdoor = [&](const SimulatedHour& sh, bool wetBulbNeeded) {
    const WeatherHour& wh = w.hours[static_cast<std::size_t>(sh.day - 1) * 24 + (sh.hour - 1)];
    Outdoor o;
    o.t = wh.dryBulb;
    o.w = humidityRatioFromDewPoint(wh.dewPoint, wh.pressure);
    o.wetBulb = wetBulbNeeded ? wetBulb(wh.dryBulb, wh.dewPoint, wh.pressure) : wh.dryBulb;
    o.cp = 1.08 * wh.pressure / 29.921;
    o.latent = 4840.0 * wh.pressure / 29.921;
    return o;
  };
  bool anyEvaporative = false;
  for (const ZoneModel& z : m.zones) anyEvaporative = anyEvaporative || z.coolType == 9;
  std::vector<Outdoor> outside(passive ? 0 : nh);
  for (std::size_t i = 0; i < outside.size(); ++i) outside[i] = outdoor(loads.hours[i], anyEvaporative);

  // Sizing on the loads pass's peaks (design conditions at the site's pressure).
  std::vector<ZoneSize> sizes(nz);
  const double cpDesign = 1.08 * pressureAtElevation(m.site.elevation) / 29.921;
  for (std::size_t z = 0; z < nz && !passive; ++z) {
    const ZoneModel& zm = m.zones[z];
    ZoneSize& s = sizes[z];
    for (std::size_t i = 0; i < nh; ++i) {
      const ZoneHourRecord& r = record(i, z);
      if (r.sensible > s.peakSensible) s.peakSensible = r.sensible, s.upperAtPeak = r.airTemp;
      if (-r.sensible > s.peakHeating) s.peakHeating = -r.sensible, s.lowerAtPeak = r.airTemp;
    }
    double supplyT = coldDeckTemperature(zm.coolType);
    if (zm.coolType == 9)
      supplyT = m.summerDesignDryBulb() - 0.85 * (m.summerDesignDryBulb() - m.summerDesignWetBulb());
    const double coolFlow = 1.15 * s.peakSensible / (cpDesign * std::max(5.0, s.upperAtPeak - supplyT));
    const double heatFlow = s.peakHeating / (cpDesign * std::max(5.0, kHotDeckF - s.lowerAtPeak));
    switch (zm.oaKind) {
      case ZoneModel::OutsideAirKind::PerPerson: s.outsideAir = zm.oaRate * zm.people; break;
      case ZoneModel::OutsideAirKind::PerArea: s.outsideAir = zm.oaRate * zm.floorArea; break;
      case ZoneModel::OutsideAirKind::PercentOfSupply: break;
    }
    s.supply = std::max({coolFlow, heatFlow, s.outsideAir});
    if (zm.oaKind == ZoneModel::OutsideAirKind::PercentOfSupply) s.outsideAir = zm.oaRate / 100.0 * s.supply;
    s.fanKw = designFanKw(zm.coolType, s.supply, zm.staticPressure);
    s.dxCop = compressorCoolingCop(dxRatedCop(zm.coolType, zm.seer));
    s.plantEer = zm.seer > 0 ? zm.seer : 10.0;
    s.heatPump = zm.coolType == 7 || zm.heatType == 3;
    s.cop47 = compressorHeatingCop(zm.heatType == 3 && zm.heatCop > 0 ? zm.heatCop : 2.4);
    s.gasEta = gasEfficiency(zm.heatCop);
    s.resistanceCop = zm.heatCop > 0 ? std::min(1.0, zm.heatCop) : 1.0;
    if (zm.heatType == 2 && zm.heatCop > 1.0)
      log.warning("zone " + zm.id, "electric resistance heat cannot have a COP above 1; 1 is used");
    s.waterHeaterCop = zm.heatType == 1 ? s.gasEta : zm.heatType == 2 ? s.resistanceCop : (zm.heatCop > 0 ? zm.heatCop : 2.4);
  }

  // Peak coil loads at design flow, each zone's and the shared plant's coincident peak.
  double plantPeak = 0, boilerPeak = 0;
  if (!passive) {
    for (std::size_t i = 0; i < nh; ++i) {
      const Outdoor& o = outside[i];
      double plant = 0, boiler = 0;
      for (std::size_t z = 0; z < nz; ++z) {
        const ZoneModel& zm = m.zones[z];
        ZoneSize& s = sizes[z];
        const CoilHour c = airSide(zm, s, record(i, z), o, true);
        s.peakCoil = std::max(s.peakCoil, c.cool);
        s.peakHeatCoil = std::max(s.peakHeatCoil, c.heat);
        if (chilledWaterType(zm.coolType)) {
          plant += c.cool;
          if (zm.heatType == 1 && !s.heatPump) boiler += c.heat;
        }
      }
      if (plant > plantPeak) {
        plantPeak = plant;
        res.plant.peakDay = loads.hours[i].day;
        res.plant.peakHour = loads.hours[i].hour;
      }
      boilerPeak = std::max(boilerPeak, boiler);
    }
    double eerWeighted = 0, eerWeight = 0;
    for (std::size_t z = 0; z < nz; ++z) {
      const ZoneModel& zm = m.zones[z];
      ZoneSize& s = sizes[z];
      if (zm.coolType == 9) {
        const double supplyT = m.summerDesignDryBulb() - 0.85 * (m.summerDesignDryBulb() - m.summerDesignWetBulb());
        s.coolCap = cpDesign * s.supply * std::max(0.0, s.upperAtPeak - supplyT);
      } else {
        s.coolCap = 1.15 * s.peakCoil;
      }
      s.heatCap = std::max(1.25 * s.peakHeatCoil, designHeatLoss(m, zm, s.lowerAtPeak, cpDesign, s.outsideAir));
      // A heat pump zone that never cools has no cooling capacity to go by.
      s.cap47 = zm.coolType == 7 && s.coolCap > 0 ? s.coolCap : 1.25 * s.peakHeatCoil;
      if (chilledWaterType(zm.coolType)) {
        res.plant.chilledWater = true;
        eerWeighted += s.plantEer * std::max(1.0, s.coolCap);
        eerWeight += std::max(1.0, s.coolCap);
        if (zm.heatType == 1 && !s.heatPump) res.plant.boiler = true;
      }
    }
    res.plant.coincidentPeak = plantPeak;
    res.plant.chillerCapacity = 1.15 * plantPeak;
    res.plant.chillerEer = eerWeight > 0 ? eerWeighted / eerWeight : 0;
    res.plant.boilerCapacity = res.plant.boiler ? 1.25 * boilerPeak : 0.0;
    if (!res.plant.chilledWater) res.plant.peakDay = res.plant.peakHour = 0;
  }

  // Cold water for the water heaters, from the monthly means of the weather used.
  const std::array<double, 12> monthlyMean = monthlyMeanDryBulb(w);
  const double annualMean = annualMeanDryBulb(w);
  const auto [coldest, warmest] = std::minmax_element(monthlyMean.begin(), monthlyMean.end());
  const double spread = *warmest - *coldest;

  // Hot water drawn by each zone at each hour of an occupied day, and at any hour of another day.
  std::vector<std::array<double, 25>> drawn(nz);
  for (std::size_t z = 0; z < nz; ++z) {
    for (int h = 0; h < 24; ++h) drawn[z][h] = hotWaterGallons(m.zones[z], true, h);
    drawn[z][24] = hotWaterGallons(m.zones[z], false, 0);
  }

  // The year, hour by hour.
  for (std::size_t i = 0; i < nh; ++i) {
    const SimulatedHour& sh = loads.hours[i];
    const Outdoor o = passive ? Outdoor{} : outside[i];
    const double weight = sh.weight;
    const double mainsRise = kHotWaterF - mainsTemperature(annualMean, spread, sh.day);
    HourEnergy& e = res.energy[i];
    double plantLoad = 0;
    bool unmet = false;
    for (std::size_t z = 0; z < nz; ++z) {
      const ZoneModel& zm = m.zones[z];
      const ZoneSize& s = sizes[z];
      const ZoneHourRecord& r = record(i, z);
      ZoneDesign& zd = res.zones[z];
      e.lights += r.lightsW / 1000.0;
      e.equipment += r.equipmentW / 1000.0;
      zd.lightsKwh += weight * r.lightsW / 1000.0;
      zd.lightsKwhUndimmed += weight * r.lightsFullW / 1000.0;
      zd.equipmentKwh += weight * r.equipmentW / 1000.0;

      const double gallons = drawn[z][sh.occupied ? sh.hour - 1 : 24];
      if (gallons > 0) {
        const double heat = 8.33 * gallons * mainsRise;  // Btu
        if (zm.heatType == 1) e.waterGas += heat / s.gasEta / 1000.0;
        else e.waterHeatElec += heat / s.waterHeaterCop / kBtuPerKwh;
        e.water += gallons;
        zd.hotWaterGallons += weight * gallons;
      }
      if (passive) continue;

      const CoilHour c = airSide(zm, s, r, o, false);
      e.fans += c.fanKw;
      e.cooling += c.pumpKw;
      e.water += c.water;
      e.coolingLoad += c.cool / 1000.0;
      e.heatingLoad += c.heat / 1000.0;
      zd.mixingLossKbtu += weight * c.mixing / 1000.0;
      if (c.unmet) {
        zd.unmetHours += weight;
        unmet = true;
      }
      if (chilledWaterType(zm.coolType)) {
        plantLoad += c.cool;
      } else if (zm.coolType != 9) {
        e.cooling += dxCoolingKw(c.cool, s.coolCap, s.dxCop, o.t);
      }
      if (c.heat > 0) {
        if (s.heatPump) {
          const HeatPumpHour hp = heatPumpHeating(c.heat, s.cop47, s.cap47, o.t);
          e.heatingElec += hp.compressorKw + hp.backupKw;
        } else if (zm.heatType == 1) {
          e.spaceGas += c.heat / s.gasEta / 1000.0;
        } else {
          e.heatingElec += c.heat / s.resistanceCop / kBtuPerKwh;
        }
      }
    }
    e.cooling += chillerKw(plantLoad, res.plant.chillerCapacity, res.plant.chillerEer);
    if (unmet) res.unmetHours += weight;

    MonthEnergy& me = res.months[sh.month - 1];
    me.lightsKwh += weight * e.lights;
    me.equipmentKwh += weight * e.equipment;
    me.fansKwh += weight * e.fans;
    me.coolingKwh += weight * e.cooling;
    me.heatingElecKwh += weight * e.heatingElec;
    me.waterHeatElecKwh += weight * e.waterHeatElec;
    me.spaceGasKbtu += weight * e.spaceGas;
    me.waterGasKbtu += weight * e.waterGas;
    me.waterGallons += weight * e.water;
    const double demand = e.totalElec();
    if (demand > me.peakKw || me.peakDay == 0) {
      me.peakKw = demand;
      me.peakDay = sh.day;
      me.peakHour = sh.hour;
    }
  }

  for (std::size_t z = 0; z < nz; ++z) {
    const ZoneModel& zm = m.zones[z];
    const ZoneSize& s = sizes[z];
    ZoneDesign& zd = res.zones[z];
    zd.coolType = zm.coolType;
    zd.heatType = zm.heatType;
    zd.heatPump = s.heatPump;
    if (passive) continue;
    zd.designHeating = s.peakHeatCoil;
    zd.designCoolingSensible = s.peakSensible;
    zd.designCoolingTotal = s.peakCoil;
    zd.supplyCfm = s.supply;
    zd.outsideAirCfm = s.outsideAir;
    zd.fanKw = s.fanKw;
    zd.coolingCapacity = s.coolCap;
    zd.heatingCapacity = s.heatCap;
  }
  return res;
}

}  // namespace tarn
