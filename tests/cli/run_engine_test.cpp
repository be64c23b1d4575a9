// marloven-cli run-engine: the real engine program on a scratch directory.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <thread>

#include "cli/engine_commands.h"
#include "common/file_io.h"
#include "run_cli.h"

namespace fs = std::filesystem;
using marloven::testing::runCli;

namespace {

class EngineDir : public ::testing::Test {
 protected:
  void SetUp() override {
    setenv("MARLOVEN_TARN64", TARN_BINARY, 1);
    dir_ = fs::temp_directory_path() / ("run-engine-" + std::to_string(std::random_device{}()));
    fs::create_directories(dir_);
  }
  void TearDown() override {
    unsetenv("MARLOVEN_TARN64");
    fs::remove_all(dir_);
  }
  void put(const char* name, const std::string& bytes) { marloven::writeFileAtomic((dir_ / name).string(), bytes); }
  fs::path dir_;
};

const char* const kControl =
    "Run type  :  3\r\nWthr type :  0\r\n1st day   :  4 \r\nRun begin :  1\r\nRun end   :  31\r\n"
    "Hourly out:  0 \r\nSkip month: \r\nComfort   :  68       79 \r\n";

TEST_F(EngineDir, ListsTheResultsOfASuccessfulRun) {
  put("ecalc$.inp", marloven::readFile(std::string(BESTEST_DIR) + "/case600.inp"));
  put("ecalc$.tmp", kControl);
  const auto r = runCli({"run-engine", dir_.string()});
  ASSERT_EQ(r.status, 0) << r.err;
  for (const char* name : {"sim$.out", "ecalc$.wth", "ecalc$.flt", "tarn64.err"})
    EXPECT_NE(r.out.find((dir_ / name).string()), std::string::npos) << name << "\n" << r.out;
  EXPECT_TRUE(fs::file_size(dir_ / "sim$.out") > 0);
}

TEST_F(EngineDir, FailuresNameTheCause) {
  auto r = runCli({"run-engine", dir_.string()});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("ecalc$.inp is missing"), std::string::npos) << r.err;

  // The engine's own refusal reaches the user with its log lines.
  put("ecalc$.inp", "not a project\r\n");
  put("ecalc$.tmp", kControl);
  r = runCli({"run-engine", dir_.string()});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("tarn64 failed with status 1"), std::string::npos) << r.err;
  EXPECT_NE(r.err.find("  ERROR ecalc$.inp"), std::string::npos) << r.err;
  EXPECT_FALSE(fs::exists(dir_ / "sim$.out"));

  setenv("MARLOVEN_TARN64", (dir_ / "no-such-engine").c_str(), 1);
  r = runCli({"run-engine", dir_.string()});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("cannot run"), std::string::npos) << r.err;

  EXPECT_EQ(runCli({"run-engine"}).status, 2);
  EXPECT_EQ(runCli({"run-engine", (dir_ / "absent").string()}).status, 1);
}

}  // namespace

namespace {
// Gone, or a zombie waiting for whoever adopted it.
bool processEnded(pid_t pid) {
  std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
  std::string text;
  if (!std::getline(stat, text)) return true;
  const std::size_t close = text.rfind(')');
  return close != std::string::npos && close + 2 < text.size() && text[close + 2] == 'Z';
}
}  // namespace

TEST_F(EngineDir, AnEngineEndsWithTheCommandThatStartedIt) {
  // An engine that would run for a minute, telling its process id.
  const fs::path engine = dir_ / "slow-engine";
  marloven::writeFileAtomic(engine.string(), "#!/bin/sh\necho $$ > engine.pid\nexec sleep 60\n");
  fs::permissions(engine, fs::perms::owner_all);
  const pid_t command = fork();
  ASSERT_GE(command, 0);
  if (command == 0) {
    std::string why;
    marloven::cli::spawnEngine(dir_.string(), engine.string(), why);
    _exit(0);
  }
  const fs::path pidFile = dir_ / "engine.pid";
  std::string pidText;
  for (int i = 0; i < 500 && pidText.empty(); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    if (fs::exists(pidFile)) pidText = marloven::readFile(pidFile.string());
  }
  ASSERT_FALSE(pidText.empty()) << "the engine did not start";
  const pid_t enginePid = static_cast<pid_t>(std::stol(pidText));
  kill(command, SIGTERM);  // as an interrupt or kill would end the command
  int status = 0;
  waitpid(command, &status, 0);
  bool ended = false;
  for (int i = 0; i < 300 && !ended; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    ended = processEnded(enginePid);
  }
  if (!ended) kill(enginePid, SIGKILL);
  EXPECT_TRUE(ended) << "the engine outlived its command";
}
