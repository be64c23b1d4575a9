// The installation directory and the fixed paths under it. Every file the
// program uses is the installation directory plus one of these sub-paths.
#pragma once

#include <string>

namespace marloven {

class Installation {
 public:
  explicit Installation(std::string dir = ".") : dir_(std::move(dir)) {}

  const std::string& dir() const { return dir_; }
  std::string path(const std::string& sub) const;  // dir + "/" + sub

  std::string buildingTypeFile(int i) const;  // btype/bdtype<i>.dat
  std::string profileFile(int k) const;       // profiles/bprof<k>.dat
  std::string scratchDir() const;             // temp
  std::string scratchFile(const std::string& name) const;  // temp/<name>
  std::string unitChoiceFile() const;         // temp/ecalc$.unt
  std::string sketchFile() const;             // sketch/bld_mtx.all

 private:
  std::string dir_;
};

// A name typed by the user is a full path when it starts with "/" or, for names
// from other systems, when its second character is ":". Otherwise it is joined
// to the directory with "/".
std::string resolveUserPath(const std::string& directory, const std::string& name);

}  // namespace marloven
