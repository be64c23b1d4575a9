// marloven-cli inp check: the error check's run copy and control file.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/commands.h"
#include "run_cli.h"
#include "project/project_test_util.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

TEST(Check, WritesTheRunCopyAndTheControlFile) {
  TempInstall inst;
  inst.write("in.inp", fixture("full_project.inp"));
  const Result r = runCli({"--install", inst.dir(), "inp", "check", inst.path("in.inp").string()});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(inst.read("temp/ecalc$.tmp"), "1\r\n");
  // The run copy is the project written as a save in its own units would.
  ReadSideFiles side;
  Project p = readFresh(fixture("full_project.inp"), &side);
  EXPECT_EQ(inst.read("temp/ecalc$.inp"), writeAsSaved(p, side.sketchLines));
  EXPECT_NE(r.out.find(std::to_string(p.zoneCount) + " zones"), std::string::npos) << r.out;
}

TEST(Check, ABadProjectLeavesNoNewRunCopy) {
  TempInstall inst;
  inst.write("temp/ecalc$.inp", "earlier\r\n");
  auto lines = fixtureLines("full_project.inp");
  lines.resize(lines.size() / 2);
  inst.write("half.inp", joinCrlf(lines));
  const Result r = runCli({"--install", inst.dir(), "inp", "check", inst.path("half.inp").string()});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("Marloven Error #"), std::string::npos) << r.err;
  EXPECT_EQ(inst.read("temp/ecalc$.inp"), "earlier\r\n");
  EXPECT_FALSE(inst.exists("temp/ecalc$.tmp"));
  EXPECT_EQ(runCli({"--install", inst.dir(), "inp", "check"}).status, 2);
}

TEST(Check, SaysWhichZonesBeyondTheLimitWereNotRead) {
  // The fixture's zone "12" repeated to 100 zones.
  auto lines = fixtureLines("full_project.inp");
  const int a = indexOf(lines, "Zone No.  12"), b = indexOf(lines, "9999", a);
  const int zones = indexOf(lines, "ZONES"), matrix = indexOf(lines, "BUILDING MATRIX");
  std::vector<std::string> body;
  for (int i = 1; i <= 100; ++i) {
    body.push_back("Zone No.  " + std::to_string(100 + i));
    body.insert(body.end(), lines.begin() + a + 1, lines.begin() + b + 1);
  }
  lines.erase(lines.begin() + zones + 1, lines.begin() + matrix);
  lines.insert(lines.begin() + zones + 1, body.begin(), body.end());
  TempInstall inst;
  inst.write("many.inp", joinCrlf(lines));
  const Result r = runCli({"--install", inst.dir(), "inp", "check", inst.path("many.inp").string()});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.err, "warning: " + inst.path("many.inp").string() +
                       ": 1 zone after the 99th not read: a project holds at most 99 zones\n");
  EXPECT_NE(r.out.find("99 zones"), std::string::npos) << r.out;
}

TEST(ReportFront, WritesTheFrontPartAsARunWould) {
  TempInstall inst;
  inst.write("btype/tcool.dat", "HVAC TABLE\r\n");
  inst.write("in.inp", fixture("full_project.inp"));
  const Result r = runCli({"--install", inst.dir(), "report", "front", inst.path("in.inp").string(), "--period",
                           "1-Mar", "30-Sep", "--weeks", "2", "--skip", "Jul,Aug"});
  ASSERT_EQ(r.status, 0) << r.err;
  const std::string report = inst.read("temp/ecalc$.out");
  EXPECT_NE(report.find("Simulation period is: 1-Mar-"), std::string::npos);
  EXPECT_NE(report.find("Weeks per month simulated will be 2."), std::string::npos);
  EXPECT_NE(report.find("Unoccupied months are: July, August."), std::string::npos);
  EXPECT_NE(report.find("\r\nII.  Z O N E"), std::string::npos);
  EXPECT_TRUE(inst.exists("temp/ltshlf.dat"));  // the fixture has daylighted zones

  EXPECT_EQ(runCli({"--install", inst.dir(), "report", "front", inst.path("in.inp").string(), "--period", "31-Foo",
                    "1-Jan"}).status,
            2);
  EXPECT_EQ(
      runCli({"--install", inst.dir(), "report", "front", inst.path("in.inp").string(), "--weeks", "5"}).status, 2);
}

}  // namespace
}  // namespace marloven::testing
