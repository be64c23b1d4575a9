#include "cli/engine_commands.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <ostream>

#include "common/file_io.h"
#include "common/text_lines.h"
#include "run/run_setup.h"

namespace marloven::cli {

namespace fs = std::filesystem;

namespace {

const char* const kResults[] = {"sim$.out", "ecalc$.wth", "ecalc$.flt", "ecalc$.hry", "etemp$.hry", "eweth$.hry"};

// The engine's exit status, or -1 with errno's text in `why` when it could not
// be started at all.
int spawnIn(const fs::path& dir, const std::string& engine, std::string& why) {
  int pipeFds[2];
  if (pipe2(pipeFds, O_CLOEXEC) != 0) {
    why = std::strerror(errno);
    return -1;
  }
  const pid_t parent = getpid();
  const pid_t pid = fork();
  if (pid < 0) {
    why = std::strerror(errno);
    close(pipeFds[0]);
    close(pipeFds[1]);
    return -1;
  }
  if (pid == 0) {
    close(pipeFds[0]);
    int failure = 0;
    // No engine outlives the command: it ends when the command does, however
    // the command was ended (an interrupt, kill, a closed terminal). The
    // parent may already be gone before the request takes hold.
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != parent) _exit(128 + SIGTERM);
    if (chdir(dir.c_str()) != 0) {
      failure = errno;
    } else {
      char* const argv[] = {const_cast<char*>("tarn64"), nullptr};
      execvp(engine.c_str(), argv);
      failure = errno;
    }
    // Tell the parent why, through the pipe that exec would have closed.
    [[maybe_unused]] const ssize_t n = write(pipeFds[1], &failure, sizeof failure);
    _exit(127);
  }
  close(pipeFds[1]);
  int failure = 0;
  const ssize_t got = read(pipeFds[0], &failure, sizeof failure);
  close(pipeFds[0]);
  int status = 0;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  if (got == static_cast<ssize_t>(sizeof failure)) {
    why = std::strerror(failure);
    return -1;
  }
  if (WIFEXITED(status)) return WEXITSTATUS(status);
  why = std::string("ended by signal ") + std::to_string(WTERMSIG(status));
  return -1;
}

}  // namespace

int spawnEngine(const std::string& dir, const std::string& engine, std::string& why) {
  return spawnIn(dir, engine, why);
}

std::string engineProgram() {
  std::error_code ec;
  const fs::path self = fs::read_symlink("/proc/self/exe", ec);
  return findEngine(ec ? std::string(".") : self.parent_path().string());
}

int runEngine(Context& c, const std::vector<std::string>& a) {
  if (a.size() != 1) {
    c.err << "run-engine: expected DIR\n" << usage();
    return 2;
  }
  const fs::path dir = a[0];
  if (!fs::is_directory(dir)) {
    c.err << "run-engine: " << dir.string() << " is not a directory\n";
    return 1;
  }
  for (const char* needed : {"ecalc$.inp", "ecalc$.tmp"}) {
    if (!fs::exists(dir / needed)) {
      c.err << "run-engine: " << (dir / needed).string() << " is missing; prepare the run first\n";
      return 1;
    }
  }
  const std::string engine = engineProgram();
  c.out << "running " << engine << " in " << dir.string() << "\n" << std::flush;
  std::string why;
  const int status = spawnIn(dir, engine, why);
  if (status < 0) {
    c.err << "run-engine: cannot run " << engine << ": " << why << "\n";
    return 1;
  }
  const fs::path log = dir / "tarn64.err";
  if (status != 0) {
    c.err << "run-engine: tarn64 failed with status " << status << "; log " << log.string() << ":\n";
    if (fileExists(log.string()))
      for (const std::string& l : splitLines(readFile(log.string())))
        if (l.rfind("ERROR", 0) == 0) c.err << "  " << l << "\n";
    return 1;
  }
  for (const char* name : kResults) {
    std::error_code ec;
    const auto size = fs::file_size(dir / name, ec);
    if (!ec) c.out << (dir / name).string() << "  " << size << " bytes\n";
  }
  if (fileExists(log.string())) {
    int warnings = 0;
    for (const std::string& l : splitLines(readFile(log.string()))) warnings += l.rfind("WARNING", 0) == 0;
    c.out << log.string() << "  " << warnings << (warnings == 1 ? " warning\n" : " warnings\n");
  }
  return 0;
}

}  // namespace marloven::cli
