// Runs the command line in-process for the command tests.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"

namespace marloven::testing {

struct Result {
  int status;
  std::string out, err;
};

inline Result runCli(const std::vector<std::string>& args) {
  std::ostringstream out, err;
  const int status = cli::run(args, out, err);
  return {status, out.str(), err.str()};
}

}  // namespace marloven::testing
