#include "shell/user_tree.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "common/file_error.h"
#include "support/temp_install.h"

namespace marloven {
namespace {

namespace fs = std::filesystem;
using testing::TempInstall;

// A shipped tree with data in several folders, a sub-folder, a placeholder
// and a program beside the data.
void writeShipped(const TempInstall& shipped) {
  fs::create_directory(shipped.path("weather/cities"));
  shipped.write("btype/bdtype1.dat", "Office SE\r\n");
  shipped.write("profiles/bprof1.dat", "shipped\r\n");
  shipped.write("weather/cities/denver.wth", "w\r\n");
  shipped.write("helpinfo/help1.txt", "help\r\n");
  shipped.write("sample/.gitkeep", "");
  shipped.write("marloven", "program");
}

TEST(UserTree, FreshUserTreeGetsTheSevenFoldersAndAllData) {
  TempInstall shipped;
  writeShipped(shipped);
  TempInstall base;
  const fs::path user = base.path("home/marloven");
  EXPECT_EQ(seedUserTree(shipped.dir(), user.string()), 4);
  for (const char* d : kInstallationDirs) EXPECT_TRUE(fs::is_directory(user / d)) << d;
  std::vector<std::string> expected;
  for (const char* f : {"btype/bdtype1.dat", "helpinfo/help1.txt", "profiles/bprof1.dat",
                        "weather/cities/denver.wth"})
    expected.push_back(std::string("home/marloven/") + f);
  EXPECT_EQ(base.files(), expected);
  EXPECT_EQ(base.read("home/marloven/weather/cities/denver.wth"), "w\r\n");
}

TEST(UserTree, ExistingFilesAreNeverOverwrittenAndNewOnesArrive) {
  TempInstall shipped;
  writeShipped(shipped);
  TempInstall user;
  user.write("profiles/bprof1.dat", "edited by the user\r\n");
  user.write("temp/ecalc$.unt", "1\r\n");
  EXPECT_EQ(seedUserTree(shipped.dir(), user.dir()), 3);
  EXPECT_EQ(user.read("profiles/bprof1.dat"), "edited by the user\r\n");

  // An update ships a new file and changes an old one.
  shipped.write("btype/bdtype2.dat", "Retail RT\r\n");
  shipped.write("btype/bdtype1.dat", "changed\r\n");
  EXPECT_EQ(seedUserTree(shipped.dir(), user.dir()), 1);
  EXPECT_EQ(user.read("btype/bdtype2.dat"), "Retail RT\r\n");
  EXPECT_EQ(user.read("btype/bdtype1.dat"), "Office SE\r\n");
  EXPECT_EQ(user.read("temp/ecalc$.unt"), "1\r\n");
}

TEST(UserTree, MissingShippedTreeStillMakesTheFoldersUnlessAFileIsInTheWay) {
  TempInstall base;
  const fs::path user = base.path("u");
  EXPECT_EQ(seedUserTree(base.path("nowhere").string(), user.string()), 0);
  for (const char* d : kInstallationDirs) EXPECT_TRUE(fs::is_directory(user / d)) << d;
  base.write("sample/u", "a file where the tree should go");
  EXPECT_THROW(seedUserTree(base.path("nowhere").string(), base.path("sample/u").string()),
               FileError);
}

}  // namespace
}  // namespace marloven
