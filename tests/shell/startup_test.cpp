#include "shell/startup.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "support/temp_install.h"

namespace marloven {
namespace {

namespace fs = std::filesystem;
using testing::crlf;
using testing::TempInstall;

TEST(UnitChoice, OnlyALeadingOneOnTheFirstLineGivesIp) {
  // The file's bytes (nullopt: no file at all) and the units read.
  const std::vector<std::pair<std::optional<std::string>, UnitSystem>> cases = {
      {std::nullopt, UnitSystem::SI}, {"1\r\n", UnitSystem::IP}, {"1", UnitSystem::IP},
      {" 1\r\n", UnitSystem::IP},     {"1.0\r\n", UnitSystem::IP}, {"2\r\n", UnitSystem::SI},
      {"", UnitSystem::SI},           {"abc\r\n", UnitSystem::SI}, {"10\r\n", UnitSystem::SI},
      {"1.5\r\n", UnitSystem::SI},    {"\r\n1\r\n", UnitSystem::SI}};
  TempInstall t;
  const Installation inst(t.dir());
  for (const auto& [file, units] : cases) {
    fs::remove(t.path("temp/ecalc$.unt"));
    if (file) t.write("temp/ecalc$.unt", *file);
    EXPECT_EQ(readUnitChoice(inst), units) << ::testing::PrintToString(file);
  }
  fs::remove(t.path("temp/ecalc$.unt"));
  fs::create_directory(t.path("temp/ecalc$.unt"));  // unreadable
  EXPECT_EQ(readUnitChoice(inst), UnitSystem::SI);
}

TEST(UnitChoice, WriteGivesOneCrLfLineThatReadsBack) {
  TempInstall t;
  const Installation inst(t.dir());
  writeUnitChoice(inst, UnitSystem::IP);
  EXPECT_EQ(t.read("temp/ecalc$.unt"), "1\r\n");
  EXPECT_EQ(readUnitChoice(inst), UnitSystem::IP);
  writeUnitChoice(inst, UnitSystem::SI);
  EXPECT_EQ(t.read("temp/ecalc$.unt"), "2\r\n");
  EXPECT_EQ(t.files(), std::vector<std::string>{"temp/ecalc$.unt"});
}

TEST(BuildingTypeName, ThirdCharacterFromEndBecomesOneBlank) {
  EXPECT_EQ(buildingTypeName("Office SE"), "Office SE");
  EXPECT_EQ(buildingTypeName("Office-SE"), "Office SE");
  EXPECT_EQ(buildingTypeName("School/ Elementary  SE"), "School/ Elementary  SE");
  EXPECT_EQ(buildingTypeName("ABC"), " BC");
  for (const char* line : {"", "AB"}) {
    try {
      buildingTypeName(line);
      ADD_FAILURE() << "no error for \"" << line << '"';
    } catch (const FileError& e) {
      EXPECT_EQ(e.number(), 5) << '"' << line << '"';
    }
  }
}

TEST(StartUp, MissingType17IsError53YetEverythingElseLoads) {
  TempInstall t;
  t.writeStartupData();
  t.write("btype/bdtype42.dat", crlf({"School/ Elementary  SE", "second line"}));
  fs::remove(t.path("btype/bdtype17.dat"));
  t.write("temp/ecalc$.unt", "1\r\n");
  AppState s{Installation(t.dir())};
  const auto error = startUp(s, Date{2026, 11, 22});
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->number(), 53);
  EXPECT_EQ(s.project.units, UnitSystem::IP);
  EXPECT_EQ(s.tables.dateText, "22 Nov 2026");
  EXPECT_EQ(s.tables.upperMonthNames[12], "DEC");
  const StartupTables& tables = s.tables;
  EXPECT_EQ(tables.buildingTypeNames[16], "Type 16 XX");
  EXPECT_EQ(tables.buildingTypeNames[17], "");
  EXPECT_EQ(tables.buildingTypeNames[18], "Type 18 XX");
  EXPECT_EQ(tables.buildingTypeNames[42], "School/ Elementary  SE");
  // Profile lines start after the heading.
  EXPECT_EQ(tables.profileDefaults[1][1], "profile 1/1");
  EXPECT_EQ(tables.profileDefaults[4][42], "profile 4/42");
}

TEST(StartupTables, DamagedFilesReportTheirErrorNumber) {
  std::string fortyOneLines = "heading\r\n";
  for (int i = 1; i <= 41; ++i) fortyOneLines += "p\r\n";
  // The file, its new bytes (nullopt: deleted) and the error.
  const std::vector<std::tuple<std::string, std::optional<std::string>, int>> cases = {
      {"btype/bdtype1.dat", std::nullopt, 53}, {"btype/bdtype42.dat", std::nullopt, 53},
      {"profiles/bprof4.dat", std::nullopt, 53}, {"btype/bdtype5.dat", "", 62},
      {"btype/bdtype9.dat", "AB\r\n", 5},        {"profiles/bprof2.dat", fortyOneLines, 62}};
  for (const auto& [file, bytes, error] : cases) {
    TempInstall t;
    t.writeStartupData();
    bytes ? t.write(file, *bytes) : static_cast<void>(fs::remove(t.path(file)));
    StartupTables tables;
    try {
      loadStartupTables(Installation(t.dir()), tables);
      ADD_FAILURE() << "no error for " << file;
    } catch (const FileError& e) {
      EXPECT_EQ(e.number(), error) << file;
    }
  }
}

TEST(StartUp, CompleteTreeHasNoErrorAndResetsTheModel) {
  TempInstall t;
  t.writeStartupData();
  AppState s{Installation(t.dir())};
  Project& p = s.project;
  p.units = UnitSystem::IP;
  p.fileName = p.outputFileName = "old";
  p.weeksPerMonth = 2;
  p.flags.resketched = p.flags.zonesOpened = true;
  p.sketchScale = {1, 2};
  for (auto& kind : p.profiles.kinds)
    for (auto& profile : kind) profile.id = "7";

  EXPECT_FALSE(startUp(s, Date{2026, 3, 1}).has_value());
  EXPECT_EQ(p.units, UnitSystem::SI);
  EXPECT_EQ(p.fileName, "New_Project");
  EXPECT_EQ(p.outputFileName, "Untitled.ot1");
  EXPECT_EQ(p.weeksPerMonth, 4);
  EXPECT_FALSE(p.flags.resketched || p.flags.zonesOpened);
  EXPECT_EQ(p.sketchScale, (std::array<int, 2>{60, 80}));
  for (int k = 1; k <= kProfileKinds; ++k)
    for (int i = 1; i <= kMaxProfiles; ++i)
      EXPECT_EQ(p.profiles.kinds[k][i].id, "") << "kind " << k << " id " << i;
  EXPECT_EQ(s.tables.buildingTypeNames[42], "Type 42 XX");
}

TEST(ResolveUserPath, FullPathsStayAndOthersJoin) {
  EXPECT_EQ(resolveUserPath("/home/u", "office.inp"), "/home/u/office.inp");
  EXPECT_EQ(resolveUserPath("/home/u/", "office.inp"), "/home/u/office.inp");
  EXPECT_EQ(resolveUserPath("/home/u", "/data/office.inp"), "/data/office.inp");
  EXPECT_EQ(resolveUserPath("/home/u", "C:\\data\\office.inp"), "C:\\data\\office.inp");
}

}  // namespace
}  // namespace marloven
