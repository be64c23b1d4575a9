#include "engine/loads.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/daylight.h"
#include "engine/envelope.h"
#include "engine/psychro.h"
#include "engine/zone_balance.h"

namespace tarn {

LoadRows LoadsResult::annualHeating() const {
  LoadRows r;
  for (const LoadRows& m : monthHeating) r.add(m, 1.0);
  return r;
}

LoadRows LoadsResult::annualCooling() const {
  LoadRows r;
  for (const LoadRows& m : monthCooling) r.add(m, 1.0);
  return r;
}

namespace {

constexpr double kBtuPerWh = 3.412;
constexpr double kDeviceThreshold = 30.0;  // Btu/h·ft² on the window

struct ZoneState {
  double thetaM = 68.0;
  double w = 0.008;
};

}  // namespace

LoadsResult runLoads(const SimModel& m, const WeatherYear& w, const Calendar& cal, bool passive,
                     double comfortLowF, double comfortHighF) {
  const GroupIrradiance irr = computeIrradiance(m.groups, w);
  const std::vector<std::vector<double>> tEq = exteriorTemperatures(m, irr, w);

  // Blind season: months warmer than the year's mean are summer.
  std::array<bool, 13> summer{};
  {
    const std::array<double, 12> monthly = monthlyMeanDryBulb(w);
    const double annual = annualMeanDryBulb(w);
    for (int mo = 1; mo <= 12; ++mo) summer[mo] = monthly[mo - 1] > annual;
  }

  const std::size_t nz = m.zones.size();
  LoadsResult res;
  res.zones.resize(nz);
  std::vector<ZoneState> state(nz);
  std::vector<ZoneNetwork> nets(nz);
  std::vector<double> hRoof(nz), hWall(nz);
  // Each zone's exterior conductances summed per class and category: rows of
  // one construction facing one way cost one term per hour, not one per row.
  std::vector<std::vector<ZoneElement>> terms(nz);
  for (std::size_t z = 0; z < nz; ++z) {
    const ZoneModel& zm = m.zones[z];
    nets[z] = {zm.hIs, zm.hMs, zm.capacity};
    for (const ZoneElement& e : zm.elements) {
      (e.roof ? hRoof[z] : hWall[z]) += e.conductance;
      auto same = std::find_if(terms[z].begin(), terms[z].end(),
                               [&](const ZoneElement& t) { return t.cls == e.cls && t.roof == e.roof; });
      if (same == terms[z].end()) terms[z].push_back(e);
      else same->conductance += e.conductance;
    }
    state[z].thetaM = 0.5 * (zm.lowerOcc[0] + zm.upperOcc[0]);
    for (auto& t : res.zones[z].temps.max) t = -1e9;
    for (auto& t : res.zones[z].temps.min) t = 1e9;
  }
  std::vector<ZoneDaylight> daylight(nz);
  for (std::size_t z = 0; z < nz; ++z) daylight[z] = zoneDaylight(m.zones[z], m, m.daylight);
  // The overhang's sky factor of each window class, fixed for the year.
  std::vector<std::vector<double>> overhangSky(nz);
  for (std::size_t z = 0; z < nz; ++z)
    for (const WindowClass& wc : m.zones[z].windows)
      overhangSky[z].push_back(overhangSkyFactor(wc.overhang, wc.height, wc.gapHeight));

  std::size_t accumulatedDays = 0;
  for (const RunDay& rd : cal.sequence) accumulatedDays += rd.accumulate ? 1 : 0;
  res.hours.reserve(accumulatedDays * 24);
  res.zoneHours.reserve(accumulatedDays * 24 * nz);

  for (const RunDay& rd : cal.sequence) {
    const DayInfo& day = cal.at(rd.day);
    const int month = day.month - 1;
    const double weight = day.weight;
    for (int h = 0; h < 24; ++h) {
      const int t = (rd.day - 1) * 24 + h;
      const WeatherHour& wh = w.hours[t];
      const double thetaO = wh.dryBulb;
      const double pr = wh.pressure / 29.921;
      const double cpAir = 1.08 * pr, latentAir = 4840.0 * pr;
      const double wOut = humidityRatioFromDewPoint(wh.dewPoint, wh.pressure);
      LoadRows heatHour, coolHour;
      bool anyHeat = false, anyCool = false;
      if (rd.accumulate)
        res.hours.push_back({rd.day, day.month, day.dayOfMonth, day.weekday, h + 1, day.occupied, weight});
      // Outdoor illuminance of the hour for daylighting: diffuse and beam on the horizontal.
      const double beamH = std::max(0.0, wh.globalH - wh.diffuseH);
      const double globalIlluminance = kDiffuseEfficacy * wh.diffuseH + kBeamEfficacy * beamH;
      // The air a cooling coil leaves in the room, 50 % at the upper set-point;
      // zones mostly share that set-point, so the last one is kept.
      double heldUp = std::numeric_limits<double>::quiet_NaN(), heldW = 0;

      for (std::size_t z = 0; z < nz; ++z) {
        const ZoneModel& zm = m.zones[z];
        const bool occ = day.occupied;
        const double fOcc = occ ? zm.occ[h] : zm.occBase;
        const double fLite = occ ? zm.lite[h] : zm.liteBase;
        const double fVent = occ ? zm.vent[h] : zm.ventBase;
        const double low = occ ? zm.lowerOcc[h] : zm.lowerUnocc[h];
        const double up = occ ? zm.upperOcc[h] : zm.upperUnocc[h];

        const double peopleSens = 250.0 * zm.people * fOcc, peopleLat = 200.0 * zm.people * fOcc;
        const ZoneDaylight& dl = daylight[z];
        double solar = 0, windowSky = 0, beamLight = 0;
        for (std::size_t k = 0; k < zm.windows.size(); ++k) {
          const WindowClass& wc = zm.windows[k];
          windowSky += wc.uaEmissivity * irr.at(irr.skyLoss, wc.group, t);
          const WindowIrradiance wi = windowIrradiance(wc, irr, t, overhangSky[z][k]);
          const double beam = wi.beam, sky = wi.sky, gnd = wi.ground;
          double attenuation = 1.0;
          const bool inSeason = wc.season == 'B' || (wc.season == 'S') == summer[day.month];
          if (inSeason && beam + sky + gnd > kDeviceThreshold) {
            if (wc.blind == 1) attenuation *= 0.65;
            if (wc.blind == 5) attenuation *= 0.15;
            if (wc.shadeTau > 0) attenuation *= wc.shadeTau + 0.35 * (1.0 - wc.shadeTau);
          }
          // Beam lands on the floor; what it reflects joins the diffuse light, a
          // share of which leaves again through the glazing.
          if (dl.on) beamLight += dl.beamPlane[k] * beam;
          const double beamIn = beam * irr.at(irr.angular, wc.group, t), diffuseIn = 0.87 * (sky + gnd);
          solar += wc.areaShgc * attenuation *
                   (beamIn * (1.0 - zm.solarEscape * (1.0 - kInteriorAbsorptance)) + diffuseIn * (1.0 - zm.solarEscape));
        }
        windowSky /= exteriorFilm(wh.wind);
        // The dimmed lights are what the zone gets as heat.
        double dimming = 1.0;
        if (dl.on) {
          const double e = dl.diffuseH * wh.diffuseH + dl.globalH * globalIlluminance + dl.beamH * beamH + beamLight;
          dimming = (1.0 - dl.share) + dl.share * powerFraction(m.daylight, e, dl.target);
        }
        const double lightsFullW = zm.lightsW * fLite;
        const double lights = lightsFullW * dimming * kBtuPerWh, equip = zm.equipmentW * fLite * kBtuPerWh;

        double sumRoof = 0, sumWall = 0;
        for (const ZoneElement& e : terms[z]) (e.roof ? sumRoof : sumWall) += e.conductance * tEq[e.cls][t];
        HourInputs in;
        in.thetaO = thetaO;
        in.hX = zm.hWindow + hRoof[z] + hWall[z];
        in.hXThetaX = zm.hWindow * thetaO - windowSky + sumRoof + sumWall;
        const double radiant = 0.6 * peopleSens + zm.lightsRadiant * lights + 0.3 * equip + solar;
        in.phiIa = 0.4 * peopleSens + (1.0 - zm.lightsRadiant) * lights + 0.7 * equip;
        in.phiM = zm.massShare * radiant;
        in.phiSt = radiant - in.phiM;

        const ZoneHour zh(nets[z], in, state[z].thetaM);
        const double hInf = cpAir * zm.infiltrationCfm;
        // Outside air flows while the fan runs. Constant-volume and VAV fans run
        // the whole hour while the Vent profile is on, so a zone that floats
        // takes that air in (night ventilation); the other fans run only with a load.
        const double oaCfm = passive ? 0.0 : zm.outsideAirCfm * fVent;
        const bool fanRunsAllHour = oaCfm > 0 && zm.coolType <= 5;
        const double hOa = fanRunsAllHour ? cpAir * oaCfm : 0.0;
        double hNv = 0, phi = 0;
        bool held = false;
        double setPoint = 0;
        const double free = zh.airTemperature(hInf + hOa, 0.0);
        if (free < low) {
          held = !passive;
          setPoint = low;
        } else if (free > up) {
          const bool windowsOpen = zm.naturalVent && zm.naturalVentMaxCfm > 0 && thetaO < up &&
                                   thetaO >= comfortLowF && thetaO <= comfortHighF;
          if (windowsOpen) {
            const double need = zh.ventilationFor(hInf + hOa, up), most = cpAir * zm.naturalVentMaxCfm;
            hNv = std::clamp(need, 0.0, most);
          }
          held = !passive && zh.airTemperature(hInf + hOa + hNv, 0.0) > up;
          setPoint = up;
        }
        // A zone held at a set-point takes the outside air at the coil: with the
        // air node at the set-point the zone's nodes and the energy are the same
        // as with that air in the zone. A floating zone takes it in.
        const double hZoneOa = held ? 0.0 : hOa;
        const double coilOaCfm = held ? oaCfm : 0.0;
        const double deliveredOaCfm = held || fanRunsAllHour ? oaCfm : 0.0;
        if (held) phi = zh.powerFor(hInf + hNv, setPoint);
        const ZoneHour::Result r = zh.finish(hInf + hNv + hZoneOa, phi);
        ZoneState& st = state[z];
        st.thetaM = r.thetaMNew;

        LoadRows lr;
        lr.rows[kRoof] = sumRoof - hRoof[z] * r.thetaS;
        lr.rows[kWalls] = sumWall - hWall[z] * r.thetaS;
        lr.rows[kWindowConduction] = zm.hWindow * (thetaO - r.thetaS) - windowSky;
        lr.rows[kWindowSolar] = solar;
        lr.rows[kLightsEquipment] = lights + equip;
        lr.rows[kPeopleSensible] = peopleSens;
        lr.rows[kInfiltrationSensible] = hInf * (thetaO - r.thetaA);
        const double oaSensible = cpAir * coilOaCfm * (thetaO - r.thetaA);
        lr.rows[kVentilationSensible] = (hNv + hZoneOa) * (thetaO - r.thetaA) + oaSensible;
        lr.rows[kMassEffect] = -r.storage;
        double sum = 0, scale = std::fabs(phi);
        for (double v : lr.rows) sum += v, scale = std::max(scale, std::fabs(v));
        const double load = -phi + oaSensible;  // coil sensible load, + cooling
        if (scale > 0) res.balanceError = std::max(res.balanceError, std::fabs(sum - load) / scale);

        // Moisture: the coil holds 50 % RH at the upper set-point in cooling
        // hours; otherwise the room air follows a one-node balance.
        const double nvCfm = cpAir > 0 ? hNv / cpAir : 0.0;
        if (load > 0) {
          if (up != heldUp) heldUp = up, heldW = humidityRatioFromRh(up, 0.5, wh.pressure);
          st.w = heldW;
          lr.rows[kPeopleLatent] = peopleLat;
          lr.rows[kInfiltrationLatent] = latentAir * zm.infiltrationCfm * (wOut - st.w);
          lr.rows[kVentilationLatent] = latentAir * (nvCfm + coilOaCfm) * (wOut - st.w);
          lr.total = load + lr.rows[kPeopleLatent] + lr.rows[kInfiltrationLatent] + lr.rows[kVentilationLatent];
        } else {
          const double rho = 0.075 * pr;
          const double mass = 5.0 * rho * zm.volume;
          const double flow = 60.0 * rho * (zm.infiltrationCfm + nvCfm + deliveredOaCfm);
          st.w = (mass * st.w + flow * wOut + peopleLat / 1061.0) / (mass + flow);
          lr.total = load;
        }

        if (!rd.accumulate) continue;
        ZoneHourRecord rec;
        rec.sensible = static_cast<float>(-phi);
        rec.latent = static_cast<float>(load > 0 ? lr.rows[kPeopleLatent] + lr.rows[kInfiltrationLatent] : 0.0);
        rec.airTemp = static_cast<float>(r.thetaA);
        rec.humidityRatio = static_cast<float>(st.w);
        rec.lightsW = static_cast<float>(lightsFullW * dimming);
        rec.lightsFullW = static_cast<float>(lightsFullW);
        rec.equipmentW = static_cast<float>(zm.equipmentW * fLite);
        rec.ventFraction = static_cast<float>(fVent);
        rec.zoneOutsideAir = static_cast<float>(hZoneOa > 0 ? oaCfm : 0.0);
        rec.people = static_cast<float>(zm.people * fOcc);
        res.zoneHours.push_back(rec);
        ZoneLoads& zl = res.zones[z];
        if (!passive && load < 0) {
          res.monthHeating[month].add(lr, weight);
          heatHour.add(lr, 1.0);
          anyHeat = true;
          zl.heating += weight * lr.total;
          zl.peakHeating = std::min(zl.peakHeating, lr.total);
        } else if (!passive && load > 0) {
          res.monthCooling[month].add(lr, weight);
          coolHour.add(lr, 1.0);
          anyCool = true;
          zl.cooling += weight * lr.total;
          zl.peakCooling = std::max(zl.peakCooling, lr.total);
        }
        ZoneTemperatures& tz = zl.temps;
        const double ta = r.thetaA;
        tz.sum[month][h] += weight * ta;
        tz.weight[month][h] += weight;
        tz.max[month] = std::max(tz.max[month], ta);
        tz.min[month] = std::min(tz.min[month], ta);
        tz.allMax = std::max(tz.allMax, ta);
        tz.allMin = std::min(tz.allMin, ta);
        tz.annualSum += weight * ta;
        tz.annualWeight += weight;
        const int band = ta < comfortLowF ? 0 : (ta > comfortHighF ? 2 : 1);
        (band == 0 ? tz.below : band == 1 ? tz.within : tz.above)[month] += weight;
        if (occ && fOcc > 0) (band == 0 ? tz.occBelow : band == 1 ? tz.occWithin : tz.occAbove) += weight;
      }

      if (!rd.accumulate) continue;
      if (anyHeat) {
        res.monthPeakHeating[month] = std::min(res.monthPeakHeating[month], heatHour.total);
        if (!res.peakHeating.any || heatHour.total < res.peakHeating.load.total)
          res.peakHeating = {true, heatHour, rd.day, h + 1};
      }
      if (anyCool) {
        res.monthPeakCooling[month] = std::max(res.monthPeakCooling[month], coolHour.total);
        if (!res.peakCooling.any || coolHour.total > res.peakCooling.load.total)
          res.peakCooling = {true, coolHour, rd.day, h + 1};
      }
    }
  }
  return res;
}

}  // namespace tarn
