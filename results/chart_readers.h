// The chart readers of the joined report temp/ecalc$.out.
//
// Each reader opens the report from its first line, walks to the "WEATHER"
// line of the front part (columns 4-10), takes the unit flag from the 13th line
// after it ("SQ.M." in columns 12-16 means SI), reads on to its own anchor and
// cuts texts out of fixed columns (numbered from 1). Values stay text, as they
// were cut; the charts read them with leadingNumber.
//
// The readers keep what they cut in a ChartTables that outlives the call: an
// entry that a read does not reach (a month outside a shorter year, row 13 of
// the load table) keeps the text of an earlier read. A fault leaves what was
// cut before it in place, and the status asks the caller to clear
// "output viewable".
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "results/read_status.h"

namespace marloven {

// The units the output was run in; independent of the program's own units.
enum class OutputUnits : std::int16_t { IP = 1, SI = 2 };

// The four column pairs of the load breakdown table.
enum class LoadColumn { PeakHeating = 0, PeakCooling = 1, AnnualHeating = 2, AnnualCooling = 3 };

// One column pair of the load breakdown, rows 1..14 (entry 0 unused).
// After a read the rows are folded to the charts' categories: entries 1..9 are
// roof, walls, window conduction, window solar, lights/equipment, people
// sensible, people latent, infiltration/ventilation (rows 8-11 added up) and
// mass effect; entry 11 is the total (entry 14 still holds it too). Row 13 is
// never cut. Percent texts are cut and kept as they are.
struct LoadBreakdown {
  std::array<std::string, 15> value;
  std::array<std::string, 15> percent;
};
inline constexpr int kLoadCategories = 9;
inline constexpr int kLoadTotal = 11;

// Months are indexed 1 (January) to 12; firstMonth is 0 (JAN) to 11 (DEC), and
// the rows are stored at firstMonth + 1, + 2, ... whatever their own labels say.
struct MonthlyEnergy {
  int firstMonth = 0;
  int lastMonth = 0;  // the index of the last row read (firstMonth when there was none)
  std::array<std::string, 13> heating;  // MBtu (I-P) or GJ (SI)
  std::array<std::string, 13> cooling;  // kWh of cooling electricity
  std::string heatingTotal;
  std::string coolingTotal;
};

// As MonthlyEnergy, with one more entry: the year's totals are stored at
// lastMonth + 1, which may be 13.
struct MonthlyCosts {
  int firstMonth = 0;
  int lastMonth = 0;
  std::array<std::string, 14> gas;
  std::array<std::string, 14> electricity;
  std::array<std::string, 14> total;
};

enum EndUse { kSpaceHeating = 1, kWaterHeating, kSpaceCooling, kFanMotors, kLighting, kEquipment };

struct SiteEnergy {
  std::array<std::string, 7> endUse;  // by EndUse, MBtu (I-P) or GJ (SI)
  std::string total;                  // cut, not shown
  std::string sourceFactor;           // kBtu/ft2 (I-P) or MJ/m2 (SI)
  // Cut from the page header of section III; every chart shows the last cut.
  std::string projectCaption;   // columns 14-48
  std::string locationCaption;  // columns 98-134
};

struct ChartTables {
  OutputUnits units = OutputUnits::IP;  // set anew by every reader
  std::array<LoadBreakdown, 4> loads;   // by LoadColumn
  // Rows 21 and 22 of the load table, cut by every load breakdown read. The
  // dates carry their own leading blank; nothing is trimmed.
  std::string peakHeatingTime;  // row 21, columns 30-44
  std::string peakCoolingTime;  // row 21, columns 46-60
  std::string peakHeatingDate;  // row 22, columns 30-46
  std::string peakCoolingDate;  // row 22, columns 47-63
  MonthlyEnergy energy;
  MonthlyCosts costs;
  SiteEnergy site;
};

// The report the readers open, under the scratch folder.
inline constexpr const char* kEngineOutputFile = "ecalc$.out";

// Each reader works on <scratchDir>/ecalc$.out as it stands on disk.
// Faults: 53 when the file is missing, 62 when an anchor never comes (a line
// read past the end), 9 when a month row falls past its table (more than 12
// rows, or the cost totals past 13).
ReadStatus readLoadBreakdown(const std::string& scratchDir, LoadColumn column, ChartTables& tables);
ReadStatus readMonthlyEnergy(const std::string& scratchDir, ChartTables& tables);
ReadStatus readMonthlyCosts(const std::string& scratchDir, ChartTables& tables);
ReadStatus readSiteEnergy(const std::string& scratchDir, ChartTables& tables);

// 0 for "JAN" to 11 for "DEC"; any other label counts as January.
int monthNumber(std::string_view label);

}  // namespace marloven
