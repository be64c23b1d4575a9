// Wall and window catalogs: I-P passes texts untouched, SI converts two lines
// and rounds them in the file, and damaged files are refused with their number.
#include "catalogs/type_catalog.h"

#include <gtest/gtest.h>

#include "common/file_error.h"
#include "common/file_io.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

const std::string kInstall = std::string(MARLOVEN_SOURCE_DIR) + "/install";

// Numbers in forms a reformatting writer would change.
const std::string kOddCatalog = crlf({"1", "Brick, R-7.6", "0.090", "0.70", "8.1", ".34", "28.00",
                                      "2", "", "0.25", "0.7", "4.8", "0.64", "1.23",
                                      "3", "Slab", "0.0333", "0.7", "0", "1", "0.004"});

TEST(TypeCatalog, IpRoundTripIsByteIdenticalForShippedAndOddFiles) {
  for (const std::string& bytes : {readFile(typeCatalogPath(kInstall, TypeCatalogKind::Walls)),
                                   readFile(typeCatalogPath(kInstall, TypeCatalogKind::Windows)), kOddCatalog})
    EXPECT_EQ(formatTypeCatalog(parseTypeCatalog(bytes, UnitSystem::IP), UnitSystem::IP), bytes);
}

TEST(TypeCatalog, SiReadsConvertedAndWritesBackRounded) {
  const TypeCatalog si = parseTypeCatalog(kOddCatalog, UnitSystem::SI);
  // U x 5.6782628 to 3 digits, cost / .09290304 to 2 digits, right-aligned in six.
  EXPECT_EQ(si.entries[1].fields[2], "  .511");   // .51104
  EXPECT_EQ(si.entries[1].fields[6], "301.39");   // 301.3895, no blank before it
  EXPECT_EQ(si.entries[2].fields[2], "  1.42");   // 1.41957
  EXPECT_EQ(si.entries[2].fields[6], " 13.24");   // 13.2396
  EXPECT_EQ(si.entries[1].fields[3], "0.70");     // other lines as they stand
  // Back to I-P: U / 5.6782628 to 3 digits, cost x .09290304 to 2 digits.
  EXPECT_EQ(formatTypeCatalog(si, UnitSystem::SI),
            crlf({"1", "Brick, R-7.6", "   .09", "0.70", "8.1", ".34", "    28",
                  "2", "", "   .25", "0.7", "4.8", "0.64", "  1.23",
                  "3", "Slab", "  .033", "0.7", "0", "1", "     0"}));
}

TEST(TypeCatalog, WriteStopsAtFirstEmptyIdAndReplacesTheFile) {
  TempInstall t;
  const std::string path = typeCatalogPath(t.dir(), TypeCatalogKind::Windows);
  t.write("profiles/bprof7.dat", "old contents that are longer than the new\r\n");
  TypeCatalog c = parseTypeCatalog(kOddCatalog, UnitSystem::IP);
  c.entries[2].fields[0].clear();
  writeTypeCatalog(path, c, UnitSystem::IP);
  EXPECT_EQ(t.read("profiles/bprof7.dat"), kOddCatalog.substr(0, kOddCatalog.find("\r\n2\r\n") + 2));

  for (int n = 1; n <= kCatalogEntries; ++n) c.entries[n].fields = {std::to_string(n), "", "", "", "", "", ""};
  writeTypeCatalog(path, c, UnitSystem::IP);
  EXPECT_EQ(readTypeCatalog(path, UnitSystem::IP).entries[30].id(), "30");
}

TEST(TypeCatalog, DamagedFilesAreRefusedAndTheHeldCatalogStays) {
  TempInstall t;
  const std::string path = typeCatalogPath(t.dir(), TypeCatalogKind::Walls);
  t.write("profiles/bprof6.dat", kOddCatalog);
  TypeCatalog held = readTypeCatalog(path, UnitSystem::IP);

  std::string thirtyOne;
  for (int n = 1; n <= 31; ++n) thirtyOne += crlf({std::to_string(n), "d", "1", "1", "1", "1", "1"});
  const struct {
    std::string bytes;
    int number;
  } cases[] = {
      {kOddCatalog.substr(0, kOddCatalog.size() - 7), err::kInputPastEnd},  // last entry partial
      {kOddCatalog + "\r\n", err::kInputPastEnd},                           // a stray empty line
      {thirtyOne, err::kSubscriptOutOfRange},
  };
  for (const auto& c : cases) {
    t.write("profiles/bprof6.dat", c.bytes);
    try {
      held = readTypeCatalog(path, UnitSystem::SI);
      ADD_FAILURE() << "read " << c.bytes.size() << " bytes";
    } catch (const FileError& e) {
      EXPECT_EQ(e.number(), c.number);
    }
  }
  EXPECT_EQ(formatTypeCatalog(held, UnitSystem::IP), kOddCatalog);
  try {
    readTypeCatalog(t.dir() + "/profiles/none.dat", UnitSystem::IP);
    ADD_FAILURE();
  } catch (const FileError& e) {
    EXPECT_EQ(e.number(), err::kFileNotFound);
  }
}

}  // namespace
}  // namespace marloven::testing
