#include "project/file_names.h"

#include "project/installation.h"

namespace marloven {

std::string retrievePath(const std::string& directory, const std::string& name) {
  std::string path = resolveUserPath(directory, name);
  if (!path.ends_with(".inp") && !path.ends_with(".INP")) path += ".inp";
  return path;
}

std::string savePath(const std::string& directory, const std::string& name) {
  std::string path = resolveUserPath(directory, name);
  const auto dot = path.rfind('.');
  // A dot inside a folder name is no extension.
  if (dot == std::string::npos || path.find('/', dot) != std::string::npos) return path + ".inp";
  if (path.ends_with("INP") || path.ends_with("inp")) return path;
  return path.substr(0, dot) + ".inp";
}

bool isOutputName(std::string_view name) {
  if (name.size() < 4) return false;
  const std::string_view ext = name.substr(name.size() - 4, 3);
  const char digit = name.back();
  return (ext == ".ot" || ext == ".OT" || ext == ".fl" || ext == ".FL") && digit >= '0' && digit <= '9';
}

OutputFiles outputFiles(const std::string& reportPath) {
  const auto dot = reportPath.rfind('.');
  const std::string stem =
      dot == std::string::npos ? reportPath : reportPath.substr(0, dot) + "-" + reportPath.substr(dot + 1);
  return {reportPath, stem + ".flt", stem + "-Energy.hry", stem + "-Temp.hry", stem + "-Weth.hry"};
}

std::string proposedOutputName(const Project& p) {
  if (!p.outputFileName.empty()) return p.outputFileName;
  if (!p.previousName.empty()) {
    const auto dot = p.previousName.rfind('.');
    return (dot == std::string::npos ? p.previousName + "." : p.previousName.substr(0, dot + 1)) + "ot1";
  }
  return "New_Project.ot1";
}

}  // namespace marloven
