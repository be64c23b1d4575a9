#include "common/file_error.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <vector>

namespace marloven {
namespace {

struct MessageCase {
  int number;
  std::string message;
};

TEST(ErrorMessageTest, Table) {
  const std::string disk = "Disk error. Please check the disk and try again.";
  const std::string path = "Path not found or path/file access error.";
  const std::vector<MessageCase> cases = {
      {7, "File is too big to open."},
      {52, "Bad file name or number."},
      {53,
       "Bad file name, or some files are missing, or your input is not complete. "
       "Re-check your program input data."},
      {55, "Error. File already open."},
      {57, disk},
      {68, disk},
      {71, disk},
      {72, disk},
      {61, "Disk is full.  Save to another disk."},
      {62,
       "MARLOVEN is unable to open your input file because it has a wrong format.  "
       "Check your input file."},
      {70, "Permission denied.  Check the disk."},
      {75, path},
      {76, path},
      {3, "Return without GoSub"},
      {5, "Invalid procedure call or argument"},
      {6, "Overflow"},
      {9, "Subscript out of range"},
      {11, "Division by zero"},
      {13, "Type mismatch"},
      {54, "Bad file mode"},
      {58, "File already exists"},
      {63, "Bad record number"},
      {64, "Bad file name"},
      {67, "Too many files"},
      {74, "Can't rename with different drive"},
      {0, "Application-defined or object-defined error"},
      {1000, "Application-defined or object-defined error"},
      {-1, "Application-defined or object-defined error"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(errorMessage(c.number), c.message) << "error " << c.number;
  }
}

TEST(ErrorTitleTest, NumberKeepsItsLeadingBlank) {
  EXPECT_EQ(errorTitle(53), "Marloven Error #  53");
  EXPECT_EQ(errorTitle(7), "Marloven Error #  7");
  EXPECT_EQ(errorTitle(-1), "Marloven Error # -1");
}

TEST(FileErrorTest, CarriesNumberAndDetail) {
  try {
    throw FileError(err::kFileNotFound, "/x/y.dat");
  } catch (const std::runtime_error& e) {
    const auto* fe = dynamic_cast<const FileError*>(&e);
    ASSERT_NE(fe, nullptr);
    EXPECT_EQ(fe->number(), 53);
    EXPECT_EQ(fe->detail(), "/x/y.dat");
    const std::string what = e.what();
    EXPECT_EQ(what.rfind("Marloven Error #  53", 0), 0u) << what;
    EXPECT_NE(what.find("/x/y.dat"), std::string::npos) << what;
  }
  const FileError noDetail(err::kDiskFull);
  EXPECT_EQ(noDetail.detail(), "");
  EXPECT_EQ(noDetail.number(), 61);
}

TEST(ErrnoMappingTest, Table) {
  const std::vector<std::pair<int, int>> cases = {
      {ENOENT, 53}, {EACCES, 70},       {EPERM, 70},  {EROFS, 70},  {ENOSPC, 61},
      {EDQUOT, 61}, {ENOTDIR, 76},      {EISDIR, 75}, {EIO, 57},    {EMFILE, 67},
      {ENFILE, 67}, {ENAMETOOLONG, 75}, {ENOMEM, 7},  {EINVAL, 75}, {0, 75},
  };
  for (const auto& [e, number] : cases) {
    EXPECT_EQ(errorNumberFromErrno(e), number) << "errno " << e;
  }
}

}  // namespace
}  // namespace marloven
