// What every subcommand gets: the installation it works in and its streams.
// Each command group lives in its own file and is listed in commands.cpp.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace marloven::cli {

struct Context {
  std::string installDir = ".";
  std::ostream& out;
  std::ostream& err;
};

// A subcommand: the arguments after its two words; returns the exit status
// (0 done, 2 usage mistake). FileError and filesystem errors are turned into
// the error report and status 1 by the caller.
using Command = std::function<int(Context&, const std::vector<std::string>&)>;

// The usage text printed after a usage mistake.
const char* usage();

// Throws FileError 76 when the installation has no temp directory: commands
// that write scratch files need one.
void requireInstallation(const Context& c);

// Tells on the error stream what a project file held beyond the reader's limits.
void sayNotRead(const Context& c, const std::string& file, const std::vector<std::string>& notRead);

}  // namespace marloven::cli
