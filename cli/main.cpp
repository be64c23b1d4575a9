// marloven-cli: the project files and analyses of the desktop program, without a window.
#include <iostream>
#include <string>
#include <vector>

#include "cli/commands.h"

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  return marloven::cli::run(args, std::cout, std::cerr);
}
