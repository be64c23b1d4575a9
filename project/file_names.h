// The file name rules of the retrieve and save dialogs.
#pragma once

#include <string>
#include <string_view>

#include "project/project_model.h"

namespace marloven {

// A project to read: the typed name by the common name rule, ".inp" appended
// unless it already ends in ".inp" or ".INP".
std::string retrievePath(const std::string& directory, const std::string& name);

// A project to write: by the name rule; no "." appends ".inp", and an
// extension other than "inp"/"INP" is replaced by "inp".
std::string savePath(const std::string& directory, const std::string& name);

// A results name: ".ot" or ".fl" (either case) and one digit at the end.
bool isOutputName(std::string_view name);

// The files of a saved set of results, named from the report's path
// ("a/project.ot1" -> "a/project-ot1.flt", "a/project-ot1-Energy.hry", ...).
struct OutputFiles {
  std::string report, comfort, energy, temperatures, weather;
};
OutputFiles outputFiles(const std::string& reportPath);

// The name the output save dialog proposes: the output file name, else the
// previous project name with "ot1" as its extension, else "New_Project.ot1".
std::string proposedOutputName(const Project& p);

}  // namespace marloven
