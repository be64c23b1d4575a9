#include "sketch/sketch_copies.h"

#include "common/file_io.h"
#include "sketch/level_files.h"

namespace marloven {

std::string sketchCopyName(const std::string& projectFile, const std::string& extension) {
  std::string name = projectFile;
  const std::size_t cut = name.find_last_of("\\:/");
  if (cut != std::string::npos) name = name.substr(cut + 1);
  for (const char* ext : {".inp", ".INP"}) {
    const std::size_t n = std::char_traits<char>::length(ext);
    if (name.size() >= n && name.compare(name.size() - n, n, ext) == 0) {
      name.resize(name.size() - n);
      break;
    }
  }
  return name + extension;
}

std::string dialogPath(const std::string& directory, const std::string& name) {
  if ((name.size() > 1 && name[1] == ':') || (!name.empty() && name[0] == '/')) return name;
  if (!directory.empty() && (directory.back() == '/' || directory.back() == '\\')) return directory + name;
  return directory + "/" + name;
}

void saveSketchCopy(const std::string& installDir, const std::string& path) {
  writeFileAtomic(path, readFile(wholeSketchPath(installDir)));
}

}  // namespace marloven
