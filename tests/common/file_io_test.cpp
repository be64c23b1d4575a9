#include "common/file_io.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <tuple>
#include <vector>

#include "common/file_error.h"
#include "support/temp_install.h"

namespace marloven {
namespace {

// The error number reading or writing a path raises, 0 for none; the path is
// always the detail.
int errorOf(bool write, const std::string& path) {
  try {
    write ? writeFileAtomic(path, "data") : static_cast<void>(readFile(path));
  } catch (const FileError& e) {
    EXPECT_EQ(e.detail(), path);
    return e.number();
  }
  return 0;
}

TEST(FileIoTest, WritesBytesUnchangedAndReplacingLeavesOnlyTheTarget) {
  testing::TempInstall t;
  const std::string path = t.path("temp/f.dat").string();
  const std::string bytes("a\r\nb\0c\x80\xff\x1a\n", 11);
  writeFileAtomic(path, bytes);
  EXPECT_EQ(readFile(path), bytes);
  ::chmod(path.c_str(), 0640);
  writeFileAtomic(path, "");
  EXPECT_EQ(readFile(path), "");
  EXPECT_EQ(t.files(), std::vector<std::string>{"temp/f.dat"});
  EXPECT_TRUE(fileExists(path));
  EXPECT_FALSE(fileExists(t.path("temp/b").string()));
  EXPECT_FALSE(fileExists(t.path("temp").string()));  // a folder is no file
  struct stat st {};
  ASSERT_EQ(::stat(path.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0640u);  // the replaced file's permissions stay
}

TEST(FileIoTest, ErrorsLeaveNoTemporary) {
  testing::TempInstall t;
  t.write("temp/plain", "x");
  const std::vector<std::tuple<bool, const char*, int>> cases = {  // write?, path, error
      {false, "temp/missing.dat", 53}, {false, "nofolder/x.dat", 53}, {false, "temp", 75},
      {false, "temp/plain/x", 76},     {true, "nofolder/x.dat", 53},  {true, "temp", 75}};
  for (const auto& [write, sub, error] : cases)
    EXPECT_EQ(errorOf(write, t.path(sub).string()), error) << sub << " write " << write;
  EXPECT_EQ(t.files(), std::vector<std::string>{"temp/plain"});
}

TEST(FileIoTest, WriteToReadOnlyFolderIs70) {
  testing::TempInstall t;
  if (::geteuid() == 0) GTEST_SKIP() << "permissions do not apply to root";
  const auto locked = t.path("sample");
  ::chmod(locked.c_str(), 0555);
  EXPECT_EQ(errorOf(true, (locked / "x.dat").string()), 70);
  ::chmod(locked.c_str(), 0755);
  EXPECT_TRUE(t.files().empty());
}

TEST(JoinPathTest, SlashOnlyWhenMissing) {
  EXPECT_EQ(joinPath("a", "b"), "a/b");
  EXPECT_EQ(joinPath("a/", "b"), "a/b");
  EXPECT_EQ(joinPath("/", "b"), "/b");
  EXPECT_EQ(joinPath("", "b"), "b");  // empty base: the current folder
}

}  // namespace
}  // namespace marloven
