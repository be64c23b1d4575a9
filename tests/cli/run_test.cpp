// marloven-cli run: a project from its file to the summary in one command,
// runs side by side, the output save, and reports summarised together.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <thread>

#include "common/file_io.h"
#include "common/text_lines.h"
#include "engine/engine_run.h"
#include "run_cli.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

namespace fs = std::filesystem;

class RunCommand : public ::testing::Test {
 protected:
  void SetUp() override {
    setenv("MARLOVEN_TARN64", TARN_BINARY, 1);
    setenv("SOURCE_DATE_EPOCH", "1700000000", 1);
    inst_.write("btype/tcool.dat", readFile(std::string(INSTALL_DATA) + "/btype/tcool.dat"));
    inst_.write("sample/baltimore.inp", readFile(std::string(INSTALL_DATA) + "/sample/office.inp"));
  }
  void TearDown() override { unsetenv("MARLOVEN_TARN64"); }
  std::string office() const { return path("sample/baltimore.inp"); }
  std::string path(const std::string& sub) const { return inst_.path(sub).string(); }

  TempInstall inst_;
};

TEST_F(RunCommand, RunsAProjectAndPrintsItsSummary) {
  const Result r = runCli({"--install", inst_.dir(), "run", office(), "--out", path("sample/office")});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("total site energy"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("energy use intensity"), std::string::npos);
  EXPECT_NE(r.out.find("unmet hours"), std::string::npos);
  EXPECT_NE(r.out.find("saved " + path("sample/office.ot1")), std::string::npos) << r.out;
  // The run worked in a folder of its own and left the installation's scratch alone.
  EXPECT_FALSE(inst_.exists("temp/ecalc$.out"));
  const std::string report = inst_.read("sample/office.ot1");
  EXPECT_NE(report.find("ANNUAL SITE ENERGY BY END USE"), std::string::npos);
  EXPECT_TRUE(inst_.exists("sample/office-ot1.flt"));

  const Result csv = runCli({"results", "summary", path("sample/office.ot1"), "--csv"});
  ASSERT_EQ(csv.status, 0) << csv.err;
  const std::vector<std::string> lines = splitLines(csv.out);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].substr(0, 24), "run,units,space_heating,");
  EXPECT_EQ(lines[1].substr(0, lines[1].find(',')), "\"" + path("sample/office.ot1") + "\"");
}

TEST_F(RunCommand, TheShippedSampleRuns) {
  const Result r = runCli({"--install", inst_.dir(), "run", std::string(INSTALL_DATA) + "/sample/office.inp"});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("energy use intensity"), std::string::npos);
}

TEST_F(RunCommand, OptionsReachTheControlFileAndMistakesAreRefused) {
  const Result r = runCli({"--install", inst_.dir(), "run", office(), "--scratch", path("sample/a"), "--kind",
                           "passive", "--period", "1-Jun", "31-Aug", "--year", "13", "--weeks", "2", "--skip",
                           "Jul", "--comfort", "66", "80", "--repeat-weather"});
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> ctl = splitLines(inst_.read("sample/a/ecalc$.tmp"));
  ASSERT_EQ(ctl.size(), 8u);
  EXPECT_EQ(ctl[0], "Run type  :  4");
  EXPECT_EQ(ctl[2], "1st day   :  3 ");
  EXPECT_EQ(ctl[3], "Run begin :  152");
  EXPECT_EQ(ctl[4], "Run end   :  243");
  EXPECT_EQ(ctl[6], "Skip month:  7  ");
  EXPECT_EQ(ctl[7], "Comfort   :  66        80 ");
  EXPECT_EQ(inst_.read("sample/a/ecalc$.inp").substr(0, 26), "MARLOVEN  .83774665  2  IP");

  const Result date = runCli({"--install", inst_.dir(), "run", office(), "--period", "1-Jun", "31-Jun"});
  EXPECT_EQ(date.status, 1);
  EXPECT_NE(date.err.find("Please check the dates of the simulation period"), std::string::npos) << date.err;
  EXPECT_EQ(runCli({"--install", inst_.dir(), "run", office(), "--kind", "fast"}).status, 2);
  EXPECT_EQ(runCli({"--install", inst_.dir(), "run", office(), "--weather", "x.epw"}).status, 2);
  EXPECT_EQ(runCli({"--install", inst_.dir(), "run", office(), "--skip", "Juli"}).status, 2);
}

TEST_F(RunCommand, AFailingEngineSaysWhy) {
  // Recorded weather of the custom format that is no weather file at all.
  inst_.write("sample/bad.txt", "not weather\r\n");
  const Result r = runCli({"--install", inst_.dir(), "run", office(), "--weather", path("sample/bad.txt"), "--format",
                           "custom", "--year", "2001"});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("the engine failed"), std::string::npos) << r.err;
  EXPECT_NE(r.err.find("ERROR"), std::string::npos) << r.err;
  setenv("MARLOVEN_TARN64", "/nonexistent/tarn64", 1);
  const Result none = runCli({"--install", inst_.dir(), "run", office()});
  EXPECT_EQ(none.status, 1);
  EXPECT_NE(none.err.find("cannot run /nonexistent/tarn64"), std::string::npos) << none.err;
}

TEST_F(RunCommand, RunsStartedTogetherDoNotMeet) {
  std::array<Result, 2> results{};
  std::array<std::thread, 2> threads;
  // The engine runs as its own process; the set-up of both shares one installation.
  for (int i = 0; i < 2; ++i)
    threads[static_cast<std::size_t>(i)] = std::thread([&, i] {
      results[static_cast<std::size_t>(i)] = runCli({"--install", inst_.dir(), "run", office(), "--repeat-weather"});
    });
  for (auto& t : threads) t.join();
  ASSERT_EQ(results[0].status, 0) << results[0].err;
  ASSERT_EQ(results[1].status, 0) << results[1].err;
  const std::string a = splitLines(results[0].out)[1], b = splitLines(results[1].out)[1];
  EXPECT_NE(a, b);  // each its own scratch folder
  // The same project and seed: the same figures.
  EXPECT_EQ(results[0].out.substr(results[0].out.find("site energy")),
            results[1].out.substr(results[1].out.find("site energy")));
}

// An SI project hands the engine the numbers the same project saved in I-P
// does: the engine computes the same building.
TEST_F(RunCommand, AnSIProjectRunsAsTheSameProjectSavedInIP) {
  ASSERT_EQ(runCli({"--install", inst_.dir(), "inp", "convert", "--to", "si", office(), path("sample/si.inp")}).status, 0);
  ASSERT_EQ(runCli({"--install", inst_.dir(), "inp", "convert", "--to", "ip", path("sample/si.inp"), path("sample/ip.inp")})
                .status,
            0);
  for (const char* name : {"si", "ip"}) {
    const Result r = runCli({"--install", inst_.dir(), "run", path(std::string("sample/") + name + ".inp"), "--scratch",
                             path(std::string("sample/run-") + name), "--repeat-weather"});
    ASSERT_EQ(r.status, 0) << name << r.err;
  }
  EXPECT_EQ(inst_.read("sample/run-si/ecalc$.inp").substr(24, 2), "SI");
  tarn::RunLog logSi, logIp;
  const auto si = tarn::simulate(path("sample/run-si"), logSi);
  const auto ip = tarn::simulate(path("sample/run-ip"), logIp);
  ASSERT_TRUE(si && ip);
  EXPECT_DOUBLE_EQ(si->loads.annualHeating().total, ip->loads.annualHeating().total);
  EXPECT_DOUBLE_EQ(si->loads.annualCooling().total, ip->loads.annualCooling().total);
  // The SI report speaks SI: the same energy in GJ.
  EXPECT_NE(inst_.read("sample/run-si/ecalc$.out").find("Site (GJ)"), std::string::npos);
}

}  // namespace
}  // namespace marloven::testing
