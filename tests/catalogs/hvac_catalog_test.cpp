// The HVAC catalog: the columns of each unit system, the gas line's cost rule,
// and the shipped file, which reads and writes back unchanged in I-P.
#include "catalogs/hvac_catalog.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "common/file_error.h"
#include "common/number_text.h"
#include "common/file_io.h"
#include "common/text_lines.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

const std::string kShipped = readFile(hvacCatalogPath(std::string(MARLOVEN_SOURCE_DIR) + "/install"));

// A line made of texts at 1-based columns.
std::string at(std::vector<std::pair<int, std::string>> pieces) {
  std::string line;
  for (const auto& [column, text] : pieces) {
    line.resize(static_cast<std::size_t>(column - 1), ' ');
    line += text;
  }
  return line;
}

std::string cols(const std::string& line, std::size_t from, std::size_t to) {
  return std::string(midText(line, from, to - from + 1));
}

HvacCatalog nineSystems(const std::string& first, const std::string& maint) {
  HvacCatalog c;
  for (int i = 1; i <= kHvacSystems; ++i)
    c.rows[i] = {std::to_string(i), "SYSTEM " + std::to_string(i), "1", "10", "55", first, maint};
  return c;
}

TEST(HvacCatalog, ShippedFileReadsByUnitsAndWritesBackUnchangedInIp) {
  const HvacCatalog ip = parseHvacCatalog(kShipped, UnitSystem::IP);
  EXPECT_EQ(formatHvacCatalog(ip, UnitSystem::IP), kShipped);
  // Texts are cut with their blanks, from the columns of the unit system.
  const HvacRow& vav = ip.rows[1];
  EXPECT_EQ(vav.id + "|" + vav.description.substr(0, 8) + "|" + vav.staticPressure + "|" + vav.efficiency + "|" +
                vav.supplyTemp + "|" + vav.firstCost + "|" + vav.maintenanceCost,
            "1|VARIABLE|4.0   |9.5  |55  |2500 | 92.5 ");
  const HvacRow si = parseHvacCatalog(kShipped, UnitSystem::SI).rows[1];
  EXPECT_EQ(si.staticPressure + "|" + si.efficiency + "|" + si.supplyTemp + "|" + si.firstCost, " 995.2|2.78 |13  |2500 ");
  // The zone screen cuts the COP from columns 85-89 and the catalog screen
  // from 86-90: every system's whole number lies in both.
  const auto lines = splitLines(kShipped);
  for (int system = 1; system <= kHvacSystems; ++system) {
    const std::string& line = lines[static_cast<std::size_t>(1 + 2 * system)];
    const std::string cop = parseHvacCatalog(kShipped, UnitSystem::SI).rows[static_cast<std::size_t>(system)].efficiency;
    EXPECT_EQ(leadingNumber(line.substr(84, 5)), leadingNumber(cop)) << system;
    EXPECT_EQ(line.substr(84, 5).find_last_not_of(' '), 4u) << system << ": the COP ends in column 89";
  }
}

TEST(HvacCatalog, WritesBothLinesOfASystemInEachUnitSystem) {
  HvacCatalog c;
  c.rows[5] = {"5", "ROOF TOP UNITS", "1.5", "13.0", "55", "1500", "67.5"};
  auto lines = splitLines(formatHvacCatalog(c, UnitSystem::IP));
  ASSERT_EQ(lines.size(), 5u);  // headings and system 5 only: empty IDs are not written
  EXPECT_EQ(lines[0], at({{64, "FAN STATIC PRESS.  SYSTEM   SUPPLY TEMP  SYSTEM COST PER TON"}}));
  EXPECT_EQ(lines[2], "     " + std::string(135, '-'));
  const auto ipCommon = std::vector<std::pair<int, std::string>>{
      {6, "5"}, {11, "ROOF TOP UNITS"}, {65, "1.5"}, {72, " 373.2"}, {80, "13.0"}, {86, "3.81"}, {93, "55"}, {97, "13"}};
  auto elec = ipCommon, gas = ipCommon;
  elec.insert(elec.end(), {{103, "1500"}, {111, "67.5"}, {119, "ELEC. HEAT"}});
  gas.insert(gas.end(), {{103, "1700"}, {111, " 76.5"}, {119, "GAS HEAT"}});
  EXPECT_EQ(lines[3], at(elec));
  EXPECT_EQ(lines[4], at(gas));

  // In SI the typed texts go to the SI columns and the I-P ones are computed.
  c = nineSystems("1500", "67.5");
  c.rows[5] = {"5", "ROOF TOP UNITS", "373.2", "3.81", "13", "1500", "67.5"};
  const std::string si = formatHvacCatalog(c, UnitSystem::SI);
  lines = splitLines(si);
  EXPECT_EQ(lines[11], at({{6, "5"}, {11, "ROOF TOP UNITS"}, {65, " 1.5"}, {72, "373.2"}, {81, "  13"},
                           {86, "3.81"}, {93, "55"}, {97, "13"}, {103, "1500"}, {111, "67.5"},
                           {119, "ELEC. HEAT"}}));
  const HvacRow back = parseHvacCatalog(si, UnitSystem::IP).rows[5];
  EXPECT_EQ(back.staticPressure, " 1.5  ");
  EXPECT_EQ(back.efficiency, "   13");  // 3.81 x 3.412 = 12.99972
  EXPECT_EQ(back.supplyTemp, "55  ");   // 13 x 1.8 + 32 = 55.4
  EXPECT_EQ(parseHvacCatalog(si, UnitSystem::SI).rows[5].staticPressure, "373.2 ");
  // Written in SI once, the file stays as it is.
  EXPECT_EQ(formatHvacCatalog(parseHvacCatalog(si, UnitSystem::SI), UnitSystem::SI), si);
}

TEST(HvacCatalog, GasLineCostsBySystem) {
  // Columns 103-107 and 111-116 of the gas line, from electric costs 1000 and 40.
  const struct {
    int system;
    std::string first, maint;
  } expected[] = {{1, "1200 ", " 47.4 "}, {2, "1200 ", " 47.4 "}, {3, "1200 ", " 47.4 "},
                  {4, "1200 ", "   48 "}, {5, "1200 ", "   49 "}, {6, "1200 ", "   49 "},
                  {7, "     ", "      "}, {8, "1000 ", "   40 "}, {9, "1000 ", "   40 "}};
  for (UnitSystem units : {UnitSystem::IP, UnitSystem::SI}) {
    const auto lines = splitLines(formatHvacCatalog(nineSystems("1000", "40"), units));
    ASSERT_EQ(lines.size(), 21u);
    for (const auto& e : expected) {
      const std::string& elec = lines[static_cast<std::size_t>(1 + 2 * e.system)];
      const std::string& gas = lines[static_cast<std::size_t>(2 + 2 * e.system)];
      EXPECT_EQ(gas.substr(0, 100), elec.substr(0, 100)) << e.system;
      EXPECT_EQ(cols(elec, 103, 107) + cols(elec, 111, 116), "1000 40    ") << e.system;
      EXPECT_EQ(cols(gas, 103, 107), e.first) << e.system;
      EXPECT_EQ(cols(gas, 111, 116), e.maint) << e.system;
      EXPECT_EQ(gas.substr(118), "GAS HEAT");
    }
  }
}

TEST(HvacCatalog, FanPressureChangedInSiGoesToPaAsTypedAndToInchesComputed) {
  TempInstall t;
  const std::string path = hvacCatalogPath(t.dir());
  t.write("btype/tcool.dat", kShipped);
  HvacCatalog c = readHvacCatalog(path, UnitSystem::SI);
  c.rows[3].staticPressure = "600";
  writeHvacCatalog(path, c, UnitSystem::SI);
  const auto lines = splitLines(t.read("btype/tcool.dat"));
  for (std::size_t i : {7u, 8u}) {
    EXPECT_EQ(cols(lines[i], 72, 77), "600   ");
    EXPECT_EQ(cols(lines[i], 65, 71), " 2.4   ");  // 600 / 248.8 = 2.41
  }
  EXPECT_EQ(readHvacCatalog(path, UnitSystem::IP).rows[3].staticPressure, " 2.4  ");
}

TEST(HvacCatalog, BadFilesAndTooWideValuesAreRefused) {
  const auto lines = splitLines(kShipped);
  std::string tenSystems = kShipped + lines[3] + "\r\n" + lines[4] + "\r\n";
  const struct {
    std::string bytes;
    int number;
  } cases[] = {
      {kShipped.substr(0, kShipped.rfind("     9 ")), err::kInputPastEnd},  // no gas line for system 9
      {crlf({"only", "two"}), err::kInputPastEnd},
      {tenSystems, err::kSubscriptOutOfRange},
  };
  for (const auto& c : cases) {
    try {
      parseHvacCatalog(c.bytes, UnitSystem::IP);
      ADD_FAILURE() << c.bytes.size();
    } catch (const FileError& e) {
      EXPECT_EQ(e.number(), c.number);
    }
  }
  EXPECT_TRUE(parseHvacCatalog(crlf({lines[0], lines[1], lines[2]}), UnitSystem::IP).rows[1].id.empty());

  // A value that would not read back from its column leaves the file as it was.
  TempInstall t;
  t.write("btype/tcool.dat", kShipped);
  for (auto [field, text] : {std::pair{&HvacRow::staticPressure, std::string("41")},   // 10200.8 Pa
                             std::pair{&HvacRow::maintenanceCost, std::string("1234.56")}}) {
    HvacCatalog c = parseHvacCatalog(kShipped, UnitSystem::IP);
    c.rows[2].*field = text;
    try {
      writeHvacCatalog(hvacCatalogPath(t.dir()), c, UnitSystem::IP);
      ADD_FAILURE() << text;
    } catch (const FileError& e) {
      EXPECT_EQ(e.number(), err::kOverflow);
    }
    EXPECT_EQ(t.read("btype/tcool.dat"), kShipped);
  }
}

}  // namespace
}  // namespace marloven::testing
