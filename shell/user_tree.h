// The user's working copy of the installation tree. The shipped tree may be
// read-only and is replaced by updates, while catalogs, the weather database
// and temp are written to; so the program runs in a per-user copy seeded from
// the shipped tree.
#pragma once

#include <array>
#include <string>

namespace marloven {

// The data directories of an installation, the working copy's whole content.
inline constexpr std::array<const char*, 7> kInstallationDirs = {
    "btype", "profiles", "sketch", "weather", "helpinfo", "sample", "temp"};

// Creates the seven directories under userDir (and userDir itself) and copies
// each file below the shipped tree's seven directories that the user tree
// lacks. An existing file is never overwritten, so the user's edits survive an
// update. Programs beside the data are not copied. A missing shipped tree
// copies nothing. Returns the number of files copied; FileError when a
// directory cannot be made or a file cannot be copied.
int seedUserTree(const std::string& shippedDir, const std::string& userDir);

}  // namespace marloven
