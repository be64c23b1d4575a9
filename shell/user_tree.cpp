#include "shell/user_tree.h"

#include <filesystem>
#include <system_error>

#include "common/file_error.h"

namespace marloven {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::error_code& ec, const fs::path& p) {
  throw FileError(errorNumberFromErrno(ec.value()), p.string());
}

void makeDirectory(const fs::path& p) {
  std::error_code ec;
  fs::create_directories(p, ec);
  if (ec) fail(ec, p);
}

int copyMissing(const fs::path& from, const fs::path& to) {
  std::error_code ec;
  if (!fs::is_directory(from, ec)) return 0;
  int copied = 0;
  fs::recursive_directory_iterator it(from, ec);
  if (ec) fail(ec, from);
  for (const fs::recursive_directory_iterator end; it != end;) {
    const fs::path source = it->path();
    const fs::path target = to / source.lexically_relative(from);
    std::error_code kind;
    if (it->is_directory(kind)) {
      makeDirectory(target);
    } else if (it->is_regular_file(kind) && source.filename() != ".gitkeep") {
      // .gitkeep only keeps empty folders in version control.
      std::error_code copy;
      if (fs::copy_file(source, target, fs::copy_options::skip_existing, copy)) ++copied;
      if (copy) fail(copy, target);
    }
    it.increment(ec);
    if (ec) fail(ec, source);
  }
  return copied;
}

}  // namespace

int seedUserTree(const std::string& shippedDir, const std::string& userDir) {
  int copied = 0;
  for (const char* dir : kInstallationDirs) {
    makeDirectory(fs::path(userDir) / dir);
    copied += copyMissing(fs::path(shippedDir) / dir, fs::path(userDir) / dir);
  }
  return copied;
}

}  // namespace marloven
