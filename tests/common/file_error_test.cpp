#include "common/file_error.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <utility>
#include <vector>

namespace marloven {
namespace {

// The double blanks inside these texts are easy to lose in an edit.
TEST(ErrorMessageTest, DoubleBlankTextsAndUnknownNumbers) {
  EXPECT_EQ(errorMessage(61), "Disk is full.  Save to another disk.");
  EXPECT_EQ(errorMessage(62),
            "MARLOVEN is unable to open your input file because it has a wrong format.  "
            "Check your input file.");
  EXPECT_EQ(errorMessage(70), "Permission denied.  Check the disk.");
  EXPECT_EQ(errorMessage(1000), "Application-defined or object-defined error");
}

TEST(ErrorTitleTest, NumberKeepsItsLeadingBlank) {
  EXPECT_EQ(errorTitle(7), "Marloven Error #  7");
  EXPECT_EQ(errorTitle(-1), "Marloven Error # -1");
}

TEST(FileErrorTest, CarriesNumberAndDetail) {
  const FileError e(err::kFileNotFound, "/x/y.dat");
  EXPECT_EQ(e.number(), 53);
  EXPECT_EQ(e.detail(), "/x/y.dat");
  const std::string what = e.what();
  EXPECT_EQ(what.rfind("Marloven Error #  53", 0), 0u) << what;
  EXPECT_NE(what.find("/x/y.dat"), std::string::npos) << what;
  EXPECT_EQ(std::string(FileError(err::kDiskFull).what()).find('('), std::string::npos);
}

TEST(ErrnoMappingTest, Table) {
  const std::vector<std::pair<int, int>> cases = {
      {ENOENT, 53}, {EACCES, 70}, {EROFS, 70}, {ENOSPC, 61},
      {ENOTDIR, 76}, {EIO, 57}, {EMFILE, 67}, {0, 75}};
  for (const auto& [e, number] : cases) EXPECT_EQ(errorNumberFromErrno(e), number) << "errno " << e;
}

}  // namespace
}  // namespace marloven
