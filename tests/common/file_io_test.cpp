#include "common/file_io.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "common/file_error.h"
#include "support/temp_install.h"

namespace marloven {
namespace {

namespace fs = std::filesystem;

int errorOf(void (*f)(const std::string&), const std::string& path) {
  try {
    f(path);
  } catch (const FileError& e) {
    EXPECT_EQ(e.detail(), path);
    return e.number();
  }
  return 0;
}

void readIt(const std::string& path) { readFile(path); }
void writeIt(const std::string& path) { writeFileAtomic(path, "data"); }

TEST(FileIoTest, WritesAndReadsBytesUnchanged) {
  testing::TempInstall t;
  const std::string path = t.path("temp/bytes.dat").string();
  const std::string bytes("a\r\nb\0c\x80\xff\x1a\n", 11);
  writeFileAtomic(path, bytes);
  EXPECT_EQ(readFile(path), bytes);
  writeFileAtomic(path, "");
  EXPECT_EQ(readFile(path), "");
  EXPECT_TRUE(fileExists(path));
}

TEST(FileIoTest, ReplacingLeavesOnlyTheTarget) {
  testing::TempInstall t;
  const std::string path = t.path("temp/f.txt").string();
  writeFileAtomic(path, "old");
  ::chmod(path.c_str(), 0640);
  writeFileAtomic(path, "new contents");
  EXPECT_EQ(readFile(path), "new contents");
  EXPECT_EQ(t.files(), std::vector<std::string>{"temp/f.txt"});
  struct stat st {};
  ASSERT_EQ(::stat(path.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0640u);  // the replaced file's permissions stay
}

TEST(FileIoTest, ReadErrors) {
  testing::TempInstall t;
  EXPECT_EQ(errorOf(readIt, t.path("temp/missing.dat").string()), 53);
  EXPECT_EQ(errorOf(readIt, t.path("nofolder/x.dat").string()), 53);
  EXPECT_EQ(errorOf(readIt, t.dir()), 75);  // a folder
  t.write("temp/plain", "x");
  EXPECT_EQ(errorOf(readIt, t.path("temp/plain/x").string()), 76);
}

TEST(FileIoTest, WriteErrorsLeaveNoTemporary) {
  testing::TempInstall t;
  EXPECT_EQ(errorOf(writeIt, t.path("nofolder/x.dat").string()), 53);
  EXPECT_EQ(errorOf(writeIt, t.path("temp").string()), 75);  // a folder
  EXPECT_TRUE(t.files().empty());
}

TEST(FileIoTest, WriteToReadOnlyFolderIs70) {
  testing::TempInstall t;
  if (::geteuid() == 0) GTEST_SKIP() << "permissions do not apply to root";
  const auto locked = t.path("sample");
  ::chmod(locked.c_str(), 0555);
  EXPECT_EQ(errorOf(writeIt, (locked / "x.dat").string()), 70);
  ::chmod(locked.c_str(), 0755);
  EXPECT_TRUE(t.files().empty());
}

TEST(FileIoTest, FileExists) {
  testing::TempInstall t;
  t.write("temp/a", "x");
  EXPECT_TRUE(fileExists(t.path("temp/a").string()));
  EXPECT_FALSE(fileExists(t.path("temp/b").string()));
  EXPECT_FALSE(fileExists(t.path("temp").string()));  // a folder is no file
}

TEST(JoinPathTest, Table) {
  const std::vector<std::vector<std::string>> cases = {
      {"a", "b", "a/b"},
      {"a/", "b", "a/b"},
      {"/", "b", "/b"},
      {"/x/y", "z.dat", "/x/y/z.dat"},
      {"", "b", "b"},  // empty base: the current folder
  };
  for (const auto& c : cases) {
    EXPECT_EQ(joinPath(c[0], c[1]), c[2]) << "\"" << c[0] << "\" + \"" << c[1] << "\"";
  }
}

}  // namespace
}  // namespace marloven
