#include "engine/economics.h"

#include <algorithm>
#include <cmath>

#include "common/number_text.h"
#include "project/project_model.h"

namespace tarn {

using marloven::leadingNumber;

namespace {

double positive(const std::string& text) { return std::max(0.0, leadingNumber(text)); }

// The schedule is priced when it has pairs, unless the toggle was turned off:
// turning it off keeps the pairs in the project.
bool demandScheduleOn(const marloven::DemandChargeSchedule& d) {
  const std::size_t at = d.text.find_first_not_of(' ');
  const bool off = at != std::string::npos && (d.text[at] == 'N' || d.text[at] == 'n');
  return d.pairCount > 0 && !off;
}

}  // namespace

EconomicsInputs economicsInputs(const marloven::Project& p) {
  using namespace marloven;
  EconomicsInputs in;
  in.economicLife = static_cast<int>(std::lround(positive(p.economics[kEconomicLife])));
  in.mechanicalLife = positive(p.economics[kMechanicalLife]);
  in.solarLife = positive(p.economics[kSolarLife]);
  in.discountRate = positive(p.economics[kDiscountRate]);
  in.costEscalation = leadingNumber(p.economics[kCostEscalation]);
  in.elecCost = positive(p.economics[kElecCost]);
  in.elecEscalation = leadingNumber(p.economics[kElecEscalation]);
  in.gasCost = positive(p.economics[kGasCost]);
  in.gasEscalation = leadingNumber(p.economics[kGasEscalation]);
  in.waterCost = positive(p.economics[kWaterCost]);
  in.waterEscalation = leadingNumber(p.economics[kWaterEscalation]);

  if (demandScheduleOn(p.demand)) {
    const int n = std::min<int>(p.demand.pairCount, kDemandPairs);
    for (int i = 1; i <= n; ++i)
      in.demand.push_back({positive(p.demand.pairs[i].first), positive(p.demand.pairs[i].second)});
  }

  for (int zi = 1; zi <= p.zoneCount; ++zi) {
    const ZoneRecord& zr = p.zones[zi];
    const double area = leadingNumber(zr.fields[kZoneFloorArea]);
    if (area <= 0) continue;  // the model skips such a zone too
    in.zoneFloorArea += area;
    in.lightingCost += positive(zr.fields[kLightingCost]) * area;
    in.zones.push_back({positive(zr.fields[kFirstCost]), positive(zr.fields[kMaintenanceCost])});
    for (int r = 1; r <= zr.rowCount; ++r) {
      const EnvelopeRow& row = zr.rows[r];
      if (row.wallArea < 0 || row.windowArea < 0) continue;
      if (row.wallId < 1 || row.wallId > kMaxTypeId || p.walls[row.wallId].id().empty()) continue;
      double window = 0;
      if (row.windowArea > 0 && row.windowId >= 1 && row.windowId <= kMaxTypeId && !p.windows[row.windowId].id().empty()) {
        window = std::min<double>(row.windowArea, row.wallArea);
        in.windowInsulationCost += positive(p.windows[row.windowId].fields[6]) * window;
      }
      in.opaqueInsulationCost += positive(p.walls[row.wallId].fields[6]) * (row.wallArea - window);
    }
  }
  in.grossFloorArea = leadingNumber(p.data[kFloorArea]);
  if (in.grossFloorArea <= 0) in.grossFloorArea = in.zoneFloorArea;
  in.constructionCost = positive(p.data[kConstructionCost]) * in.grossFloorArea;
  return in;
}

double demandCharge(double peakKw, const std::vector<DemandBlock>& blocks) {
  if (blocks.empty() || peakKw <= 0) return 0.0;
  double left = peakKw, charge = 0;
  for (const DemandBlock& b : blocks) {
    const double take = std::min(left, b.kw);
    charge += take * b.rate;
    left -= take;
  }
  return charge + left * blocks.back().rate;
}

double upvStar(int years, double discount, double escalation) {
  const double q = (1.0 + escalation) / (1.0 + discount);
  double sum = 0, f = 1;
  for (int y = 1; y <= years; ++y) sum += (f *= q);
  return sum;
}

double spv(double year, double discount, double escalation) {
  return std::pow((1.0 + escalation) / (1.0 + discount), year);
}

std::array<double, kEndUses> monthSiteEnergy(const MonthEnergy& m) {
  const double e = kBtuPerKwh * 1e-6;  // kWh -> MBtu
  std::array<double, kEndUses> s{};
  s[kSpaceHeating] = m.spaceGasKbtu * 1e-3 + m.heatingElecKwh * e;
  s[kWaterHeating] = m.waterGasKbtu * 1e-3 + m.waterHeatElecKwh * e;
  s[kSpaceCooling] = m.coolingKwh * e;
  s[kFanMotors] = m.fansKwh * e;
  s[kLighting] = m.lightsKwh * e;
  s[kEquipment] = m.equipmentKwh * e;
  return s;
}

CostResult computeCosts(const EconomicsInputs& in, const EnergyResult& energy, bool passive) {
  CostResult r;
  r.demand = in.demand;
  r.economicLife = in.economicLife;
  r.discountRate = in.discountRate;
  r.solarLife = in.solarLife;
  r.elecCost = in.elecCost;
  r.grossFloorArea = in.grossFloorArea;

  // Months and days the run covers, from its simulated hours.
  double hourWeights = 0;
  for (const SimulatedHour& h : energy.hours) {
    hourWeights += h.weight;
    r.months[h.month - 1].inPeriod = true;
  }
  r.periodDays = hourWeights / 24.0;
  r.annualScale = r.periodDays > 0 && r.periodDays < 365.0 ? 365.0 / r.periodDays : 1.0;

  double gasKbtu = 0;
  for (int m = 0; m < 12; ++m) {
    const MonthEnergy& me = energy.months[m];
    MonthBill& b = r.months[m];
    b.kwh = me.totalKwh();
    b.peakKw = me.peakKw;
    b.energyCharge = b.kwh * in.elecCost;
    b.demandCharge = demandCharge(me.peakKw, in.demand);
    b.therms = (me.spaceGasKbtu + me.waterGasKbtu) / 100.0;
    b.gasCost = b.therms * in.gasCost;
    b.gallons = me.waterGallons;
    b.waterCost = b.gallons / 1000.0 * in.waterCost;
    const auto s = monthSiteEnergy(me);
    for (int u = 0; u < kEndUses; ++u) r.site.mbtu[u] += s[u];
    r.site.kwh += b.kwh;
    r.site.therms += b.therms;
    gasKbtu += me.spaceGasKbtu + me.waterGasKbtu;
  }
  r.site.sourceKbtu = r.site.kwh * kBtuPerKwh * 1e-3 * kSourceElectricity + gasKbtu * kSourceGas;
  r.site.useFactor = in.grossFloorArea > 0 ? r.site.sourceKbtu / in.grossFloorArea : 0.0;

  // First costs.
  r.first.construction = in.constructionCost;
  r.first.opaqueInsulation = in.opaqueInsulationCost;
  r.first.windows = in.windowInsulationCost;
  r.first.lighting = in.lightingCost;
  double maintenance = 0;
  if (!passive) {
    const std::size_t n = std::min(in.zones.size(), energy.zones.size());
    for (std::size_t z = 0; z < n; ++z) {
      const double tons = energy.zones[z].coolingCapacity / 12000.0;
      r.first.tons += tons;
      r.first.hvac += tons * in.zones[z].firstCostPerTon;
      maintenance += tons * in.zones[z].maintenancePerTon;
    }
  }

  // Life-cycle cost.
  const int n = in.economicLife;
  const double d = in.discountRate;
  auto annual = [&](LccItem item, double amount, double e) {
    r.lcc[item] = {amount, e, upvStar(n, d, e), 0.0};
    r.lcc[item].presentValue = amount * r.lcc[item].factor;
  };
  double elec = 0, gas = 0, water = 0;
  for (const MonthBill& b : r.months) elec += b.elecCost(), gas += b.gasCost, water += b.waterCost;
  r.lcc[kLccFirst] = {r.first.total(), 0.0, 1.0, r.first.total()};
  annual(kLccElectricity, elec * r.annualScale, in.elecEscalation);
  annual(kLccGas, gas * r.annualScale, in.gasEscalation);
  annual(kLccWater, water * r.annualScale, in.waterEscalation);
  annual(kLccMaintenance, maintenance, in.costEscalation);

  // HVAC replaced at its first cost every Mech.Life years inside the study
  // period; the equipment in place at its end keeps a straight-line residual.
  const double life = in.mechanicalLife, hvac = r.first.hvac, e = in.costEscalation;
  LccRow& rep = r.lcc[kLccReplacement];
  LccRow& res = r.lcc[kLccResidual];
  rep.escalation = res.escalation = e;
  if (life > 0 && hvac > 0) {
    double lastInstalled = 0;
    for (double y = life; y < n - 1e-9; y += life) {
      rep.factor += spv(y, d, e);
      lastInstalled = y;
      ++r.replacements;
    }
    rep.amount = hvac;
    rep.presentValue = hvac * rep.factor;
    const double remaining = std::clamp((lastInstalled + life - n) / life, 0.0, 1.0);
    res.amount = hvac * remaining;
    res.factor = spv(n, d, e);
    res.presentValue = -res.amount * res.factor;
  }

  for (const LccRow& row : r.lcc) r.lifeCycleCost += row.presentValue;
  r.lifeCycleCostPerArea = in.grossFloorArea > 0 ? r.lifeCycleCost / in.grossFloorArea : 0.0;
  return r;
}

}  // namespace tarn
