// A fresh temporary installation tree for one test: the seven directories of an
// installation under a new folder in the system's temporary directory, removed
// again when the object goes.
#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace marloven::testing {

class TempInstall {
 public:
  TempInstall();
  ~TempInstall();
  TempInstall(const TempInstall&) = delete;
  TempInstall& operator=(const TempInstall&) = delete;

  const std::filesystem::path& root() const { return root_; }
  std::string dir() const { return root_.string(); }
  std::filesystem::path path(const std::string& sub) const { return root_ / sub; }

  // Writes bytes to a file under the tree (parent folders must exist).
  void write(const std::string& sub, const std::string& bytes) const;
  // The bytes of a file under the tree; empty when it is missing.
  std::string read(const std::string& sub) const;
  bool exists(const std::string& sub) const;

  // Minimal building type files bdtype1..42 and profile files bprof1..4 so that
  // start-up can run; the names are "Type <i>" with a trailing code "XX".
  void writeStartupData() const;

  // Every regular file under the tree, as paths relative to the root.
  std::vector<std::string> files() const;

 private:
  std::filesystem::path root_;
};

// Joins lines with CR LF, each line ended.
std::string crlf(std::initializer_list<std::string_view> lines);

}  // namespace marloven::testing
