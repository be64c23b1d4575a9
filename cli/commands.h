// The subcommands of the command-line companion, callable from tests.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace marloven::cli {

// Runs a command line (without the program name). Output and messages go to
// out and err; the result is the process's exit status: 0 on success, 1 when
// a file could not be used (the error report's message on err), 2 for a usage
// mistake.
int run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace marloven::cli
