// The generated part of the installation tree: building type files, profile
// tables, the three catalogs, the heating table and the sketch template, made
// from the readable tables of data/. The shipped files under install/ are this
// output; `./dev.sh data` rewrites them and a test keeps them equal.
#pragma once

#include <string>
#include <vector>

#include "tools/datagen/csv_table.h"

namespace marloven::datagen {

struct InstallFile {
  std::string path;   // relative to the installation tree, "/"-separated
  std::string bytes;  // CR LF text
};

// Reads the tables of dataDir and returns every generated file, in a fixed
// order. DataError (or FileError for a missing table) on bad data: nothing is
// returned half made.
std::vector<InstallFile> makeInstallData(const std::string& dataDir);

}  // namespace marloven::datagen
