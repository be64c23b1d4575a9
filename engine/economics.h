// Energy, demand and cost: the project's prices and first costs, the monthly
// utility bills, site and source energy by end use, and the life-cycle cost
// (NIST Handbook 135 present-value factors).
//
// Money in dollars, energy in I-P (kWh, therms, MBtu, gallons); the report
// converts to SI when it prints.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "engine/energy.h"

namespace marloven {
struct Project;
}

namespace tarn {

// One block of the demand charge schedule: `kw` more kilowatts of the month's
// peak at `rate` $/kW. The last rate also prices any excess.
struct DemandBlock {
  double kw = 0;
  double rate = 0;
};

// What the costs need of one simulated zone (model order).
struct ZoneCostInputs {
  double firstCostPerTon = 0;    // $/ton, "1st Cost  "
  double maintenancePerTon = 0;  // $/ton·year, "Maint Cost"
};

// The project's economics as numbers, I-P (the run copy is always I-P).
struct EconomicsInputs {
  int economicLife = 0;       // years, N
  double mechanicalLife = 0;  // years between HVAC replacements; 0 = never replaced
  double solarLife = 0;       // echoed only
  double discountRate = 0;
  double costEscalation = 0;  // maintenance and replacements
  double elecCost = 0, elecEscalation = 0;    // $/kWh
  double gasCost = 0, gasEscalation = 0;      // $/therm
  double waterCost = 0, waterEscalation = 0;  // $ per 1000 gallons
  std::vector<DemandBlock> demand;            // empty: no demand charge
  double grossFloorArea = 0;                  // ft²
  double zoneFloorArea = 0;                   // ft², Σ of the simulated zones
  double constructionCost = 0;                // $, "Con. Cost " × gross floor area
  double opaqueInsulationCost = 0;            // $, Σ "Ins. Cost " × opaque area
  double windowInsulationCost = 0;            // $, Σ "Ins. Cost " × window area
  double lightingCost = 0;                    // $, Σ "Cost/sqft " × zone floor area
  std::vector<ZoneCostInputs> zones;
};

// Reads the economics block, the demand charge schedule and the first-cost
// fields. Zones are taken as the model takes them: those with a floor area
// above 0, in file order.
EconomicsInputs economicsInputs(const marloven::Project& project);

// Demand charge of one month's peak by the blocks.
double demandCharge(double peakKw, const std::vector<DemandBlock>& blocks);

// Uniform present value factor with escalation: Σ_{y=1..N} ((1+e)/(1+d))^y.
double upvStar(int years, double discount, double escalation);
// Single present value factor of an amount in year y escalated at e.
double spv(double year, double discount, double escalation);

struct MonthBill {
  bool inPeriod = false;
  double kwh = 0, peakKw = 0;
  double energyCharge = 0, demandCharge = 0;  // $
  double therms = 0, gasCost = 0;
  double gallons = 0, waterCost = 0;
  double elecCost() const { return energyCharge + demandCharge; }
  double total() const { return elecCost() + gasCost + waterCost; }
};

// Site energy by end use in MBtu (electricity at 3412 Btu/kWh).
enum EndUse : int { kSpaceHeating = 0, kWaterHeating, kSpaceCooling, kFanMotors, kLighting, kEquipment, kEndUses };

struct SiteEnergy {
  std::array<double, kEndUses> mbtu{};
  double kwh = 0, therms = 0;
  double sourceKbtu = 0;
  double useFactor = 0;  // source kBtu per ft² of gross floor area
};

// One row of the life-cycle cost table.
struct LccRow {
  double amount = 0;      // first cost, annual cost or the replaced / residual amount
  double escalation = 0;
  double factor = 0;      // present value factor
  double presentValue = 0;
};

enum LccItem : int {
  kLccFirst = 0, kLccElectricity, kLccGas, kLccWater, kLccMaintenance, kLccReplacement, kLccResidual, kLccItems
};

struct FirstCosts {
  double construction = 0, opaqueInsulation = 0, windows = 0, lighting = 0, hvac = 0;
  double tons = 0;
  double total() const { return construction + opaqueInsulation + windows + lighting + hvac; }
};

struct CostResult {
  std::array<MonthBill, 12> months{};
  SiteEnergy site;
  FirstCosts first;
  std::vector<DemandBlock> demand;
  int economicLife = 0;
  double discountRate = 0, solarLife = 0, elecCost = 0;
  double grossFloorArea = 0;
  double periodDays = 0;    // calendar days the simulated hours stand for
  double annualScale = 1;   // applied to the annual costs of a short period
  std::array<LccRow, kLccItems> lcc{};
  int replacements = 0;
  double lifeCycleCost = 0;
  double lifeCycleCostPerArea = 0;  // $/ft²
};

// Site energy of one month (MBtu by end use).
std::array<double, kEndUses> monthSiteEnergy(const MonthEnergy& m);

// Bills, site and source energy, first costs and the life-cycle cost. Passive
// runs carry no HVAC costs.
CostResult computeCosts(const EconomicsInputs& in, const EnergyResult& energy, bool passive);

// Source-site ratios.
inline constexpr double kSourceElectricity = 3.340;
inline constexpr double kSourceGas = 1.047;

}  // namespace tarn
