#include "catalogs/hvac_catalog.h"

#include "common/column_printer.h"
#include "common/file_error.h"
#include "common/file_io.h"
#include "common/number_text.h"
#include "common/text_lines.h"
#include "project/catalog_record.h"
#include "project/unit_conversion.h"

namespace marloven {

namespace {

constexpr double kPascalPerInch = 248.8;
constexpr double kSeerPerCop = 3.412;

// A column as 1-based first column and width.
struct Column {
  int first;
  int width;
};
namespace col {
constexpr Column description{11, 51};
constexpr Column inch{65, 6};
constexpr Column pascal{72, 6};
constexpr Column seer{80, 5};
constexpr Column cop{86, 5};
// The COP is written in columns 86-89, so that the zone screen's cut (85-89)
// and the catalog screen's (86-90) both hold all of it.
constexpr Column copWritten{86, 4};
constexpr Column fahrenheit{93, 4};
constexpr Column celsius{97, 4};
constexpr Column firstCost{103, 5};
constexpr Column maintenance{111, 6};
// The SEER computed from a COP is written one column in, within the same cut.
constexpr Column seerFromCop{81, 4};
}  // namespace col
constexpr int kIdColumn = 6;
constexpr int kIdWidth = 5;
constexpr int kHeatColumn = 119;

std::string cut(std::string_view line, Column c) {
  return std::string(midText(line, static_cast<std::size_t>(c.first), static_cast<std::size_t>(c.width)));
}

constexpr Factor plus(double amount) { return Factor{1.0, 0.0, 0.0, amount}; }

double gasFirstCostAddition(int system) { return system <= 6 ? 200.0 : 0.0; }
double gasMaintenanceAddition(int system) {
  if (system <= 3) return 7.4;
  if (system == 4) return 8.0;
  if (system <= 6) return 9.0;
  return 0.0;
}

// Prints a text at its column; a text wider than the column would shift or be
// cut from the columns after it, so the write is refused before anything is
// replaced.
class SystemLine {
 public:
  SystemLine(ColumnPrinter& out, int system) : out_(out), system_(system) {}
  void put(int column, int width, const std::string& text, const char* what) {
    if (static_cast<int>(text.size()) > width)
      throw FileError(err::kOverflow, "system " + std::to_string(system_) + ": " + what + " \"" + text +
                                          "\" is wider than its " + std::to_string(width) + " columns");
    out_.tab(column).text(text);
  }
  void put(Column c, const std::string& text, const char* what) { put(c.first, c.width, text, what); }

 private:
  ColumnPrinter& out_;
  int system_;
};

void printSystem(ColumnPrinter& out, const HvacRow& row, int system, UnitSystem units, bool gas) {
  SystemLine line(out, system);
  line.put(kIdColumn, kIdWidth, row.id, "ID");
  line.put(col::description, row.description, "name");
  if (units == UnitSystem::IP) {
    line.put(col::inch, row.staticPressure, "fan pressure");
    line.put(col::pascal, catalogNumber(row.staticPressure, times(kPascalPerInch), 1, "@@@@@@"), "fan pressure");
    line.put(col::seer, row.efficiency, "SEER");
    line.put(col::copWritten, catalogNumber(row.efficiency, over(kSeerPerCop), 2, "@@@@"), "COP");
    line.put(col::fahrenheit, row.supplyTemp, "supply temperature");
    line.put(col::celsius, catalogNumber(row.supplyTemp, kFToC, 0, "@@"), "supply temperature");
  } else {
    line.put(col::inch, catalogNumber(row.staticPressure, over(kPascalPerInch), 1, "@@@@"), "fan pressure");
    line.put(col::pascal, row.staticPressure, "fan pressure");
    line.put(col::seerFromCop, catalogNumber(row.efficiency, times(kSeerPerCop), 1, "@@@@"), "SEER");
    // As typed or cut: the cut's trailing blank is no part of the number.
    std::string cop = row.efficiency;
    while (!cop.empty() && cop.back() == ' ') cop.pop_back();
    line.put(col::copWritten, cop, "COP");
    line.put(col::fahrenheit, catalogNumber(row.supplyTemp, kCToF, 0, "@@"), "supply temperature");
    line.put(col::celsius, row.supplyTemp, "supply temperature");
  }
  if (!gas) {
    line.put(col::firstCost, row.firstCost, "first cost");
    line.put(col::maintenance, row.maintenanceCost, "maintenance cost");
    out.tab(kHeatColumn).text("ELEC. HEAT").endLine();
    return;
  }
  if (system == kHeatPumpSystem) {
    line.put(col::firstCost, "   ", "first cost");
    line.put(col::maintenance, "   ", "maintenance cost");
  } else {
    line.put(col::firstCost, catalogNumber(row.firstCost, plus(gasFirstCostAddition(system)), 0, "@@@"), "first cost");
    line.put(col::maintenance, catalogNumber(row.maintenanceCost, plus(gasMaintenanceAddition(system)), 2, "@@@@@"),
             "maintenance cost");
  }
  out.tab(kHeatColumn).text("GAS HEAT").endLine();
}

}  // namespace

std::string hvacCatalogPath(const std::string& installDir) { return joinPath(installDir, "btype/tcool.dat"); }

HvacCatalog parseHvacCatalog(std::string_view bytes, UnitSystem units) {
  LineReader in = LineReader::fromText(bytes);
  for (int i = 0; i < 3; ++i) in.next();  // headings
  HvacCatalog c;
  for (int r = 1; !in.atEnd(); ++r) {
    if (r > kHvacSystems) throw FileError(err::kSubscriptOutOfRange, "HVAC system " + std::to_string(r));
    const std::string line = in.next();
    HvacRow& row = c.rows[r];
    row.id = bare(r);
    row.description = cut(line, col::description);
    const bool si = units == UnitSystem::SI;
    row.staticPressure = cut(line, si ? col::pascal : col::inch);
    row.efficiency = cut(line, si ? col::cop : col::seer);
    row.supplyTemp = cut(line, si ? col::celsius : col::fahrenheit);
    row.firstCost = cut(line, col::firstCost);
    row.maintenanceCost = cut(line, col::maintenance);
    in.next();  // the system's gas heat line
  }
  return c;
}

std::string formatHvacCatalog(const HvacCatalog& catalog, UnitSystem units) {
  ColumnPrinter out;
  out.tab(64).text("FAN STATIC PRESS.  SYSTEM   SUPPLY TEMP  SYSTEM COST PER TON").endLine();
  out.line("     I.D.  NAME OF SYSTEM                                      (INCH)   (Pa)    SEER  COP    F   C      1ST...MAINT.");
  out.text("     ").text(std::string(135, '-')).endLine();
  for (int i = 1; i <= kHvacSystems; ++i) {
    const HvacRow& row = catalog.rows[i];
    if (row.id.empty()) continue;
    printSystem(out, row, i, units, false);
    printSystem(out, row, i, units, true);
  }
  return out.take();
}

HvacCatalog readHvacCatalog(const std::string& path, UnitSystem units) {
  return parseHvacCatalog(readFile(path), units);
}

void writeHvacCatalog(const std::string& path, const HvacCatalog& catalog, UnitSystem units) {
  writeFileAtomic(path, formatHvacCatalog(catalog, units));
}

}  // namespace marloven
