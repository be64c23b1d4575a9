#include "project/installation.h"

#include <string>

#include "common/file_io.h"

namespace marloven {

std::string Installation::path(const std::string& sub) const { return joinPath(dir_, sub); }

std::string Installation::buildingTypeFile(int i) const {
  return path("btype/bdtype" + std::to_string(i) + ".dat");
}

std::string Installation::profileFile(int k) const {
  return path("profiles/bprof" + std::to_string(k) + ".dat");
}

std::string Installation::scratchDir() const { return path("temp"); }

std::string Installation::scratchFile(const std::string& name) const {
  return path("temp/" + name);
}

std::string Installation::unitChoiceFile() const { return scratchFile("ecalc$.unt"); }

std::string Installation::sketchFile() const { return path("sketch/bld_mtx.all"); }

std::string resolveUserPath(const std::string& directory, const std::string& name) {
  const bool full = (!name.empty() && name[0] == '/') || (name.size() >= 2 && name[1] == ':');
  return full ? name : joinPath(directory, name);
}

}  // namespace marloven
