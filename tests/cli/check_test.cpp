// marloven-cli inp check: the error check's run copy and control file.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/commands.h"
#include "project/project_test_util.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

int runCli(const std::vector<std::string>& args, std::string* out = nullptr, std::string* err = nullptr) {
  std::ostringstream o, e;
  const int status = cli::run(args, o, e);
  if (out) *out = o.str();
  if (err) *err = e.str();
  return status;
}

TEST(Check, WritesTheRunCopyAndTheControlFile) {
  TempInstall inst;
  inst.write("in.inp", fixture("full_project.inp"));
  std::string out, err;
  ASSERT_EQ(runCli({"--install", inst.dir(), "inp", "check", inst.path("in.inp").string()}, &out, &err), 0) << err;
  EXPECT_EQ(inst.read("temp/ecalc$.tmp"), "1\r\n");
  // The run copy is the project written as a save in its own units would.
  ReadSideFiles side;
  Project p = readFresh(fixture("full_project.inp"), &side);
  EXPECT_EQ(inst.read("temp/ecalc$.inp"), writeAsSaved(p, side.sketchLines));
  EXPECT_NE(out.find(std::to_string(p.zoneCount) + " zones"), std::string::npos) << out;
}

TEST(Check, ABadProjectLeavesNoNewRunCopy) {
  TempInstall inst;
  inst.write("temp/ecalc$.inp", "earlier\r\n");
  auto lines = fixtureLines("full_project.inp");
  lines.resize(lines.size() / 2);
  inst.write("half.inp", joinCrlf(lines));
  std::string err;
  EXPECT_EQ(runCli({"--install", inst.dir(), "inp", "check", inst.path("half.inp").string()}, nullptr, &err), 1);
  EXPECT_NE(err.find("Marloven Error #"), std::string::npos) << err;
  EXPECT_EQ(inst.read("temp/ecalc$.inp"), "earlier\r\n");
  EXPECT_FALSE(inst.exists("temp/ecalc$.tmp"));
  EXPECT_EQ(runCli({"--install", inst.dir(), "inp", "check"}), 2);
}

TEST(ReportFront, WritesTheFrontPartAsARunWould) {
  TempInstall inst;
  inst.write("btype/tcool.dat", "HVAC TABLE\r\n");
  inst.write("in.inp", fixture("full_project.inp"));
  std::string out, err;
  ASSERT_EQ(runCli({"--install", inst.dir(), "report", "front", inst.path("in.inp").string(), "--period", "1-Mar",
                    "30-Sep", "--weeks", "2", "--skip", "Jul,Aug"},
                   &out, &err),
            0)
      << err;
  const std::string report = inst.read("temp/ecalc$.out");
  EXPECT_NE(report.find("Simulation period is: 1-Mar-"), std::string::npos);
  EXPECT_NE(report.find("Weeks per month simulated will be 2."), std::string::npos);
  EXPECT_NE(report.find("Unoccupied months are: July, August."), std::string::npos);
  EXPECT_NE(report.find("\r\nII.  Z O N E"), std::string::npos);
  EXPECT_TRUE(inst.exists("temp/ltshlf.dat"));  // the fixture has daylighted zones

  EXPECT_EQ(runCli({"--install", inst.dir(), "report", "front", inst.path("in.inp").string(), "--period", "31-Foo",
                    "1-Jan"}),
            2);
  EXPECT_EQ(runCli({"--install", inst.dir(), "report", "front", inst.path("in.inp").string(), "--weeks", "5"}), 2);
}

}  // namespace
}  // namespace marloven::testing
