// tarn64: the hourly simulation engine. Run with no arguments in the scratch
// directory; see the engine's README for the files it reads and writes.
#include <cstring>
#include <filesystem>
#include <iostream>

#include "engine/engine_run.h"

#ifndef TARN_VERSION
#define TARN_VERSION "0.1"
#endif
#ifndef TARN_GIT_HASH
#define TARN_GIT_HASH "unknown"
#endif

namespace {
const char* const kUsage =
    "usage: tarn64 [--version | --help]\n"
    "Run with no arguments in the scratch directory. Reads ecalc$.inp, ecalc$.tmp\n"
    "(and ecalc$.tmy for recorded weather); writes sim$.out, ecalc$.wth, ecalc$.flt\n"
    "and the log tarn64.err. Exit 0 success, 1 bad input, 2 weather missing or short,\n"
    "3 output not writable, 4 internal error, 64 bad argument.\n";
}

int main(int argc, char** argv) {
  if (argc > 1) {
    if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
      std::cout << "tarn64 " << TARN_VERSION << " " << TARN_GIT_HASH << "\n";
      return 0;
    }
    if (argc == 2 && std::strcmp(argv[1], "--help") == 0) {
      std::cout << kUsage;
      return 0;
    }
    std::cerr << kUsage;
    return 64;
  }
  return static_cast<int>(tarn::runEngine(std::filesystem::current_path()));
}
