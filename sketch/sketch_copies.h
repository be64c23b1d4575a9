// The sketch's own file dialogs: a saved copy of the whole-building file
// (".wri", a plain copy, not a word processor's document), a picture of the
// canvas (".jpg"), and loading a saved copy in.
#pragma once

#include <string>

namespace marloven {

// The name the save dialog proposes: the project file's name behind its
// folder, without ".inp" or ".INP", with the extension of the kind chosen.
std::string sketchCopyName(const std::string& projectFile, const std::string& extension);
// Where a dialog's name box points: the box itself when it is a full path
// (starting "/", or with ":" as its second character), else in the folder.
std::string dialogPath(const std::string& directory, const std::string& name);
// bld_mtx.all as it stands copied to the path: edits that have not been
// through Exit are not in it.
void saveSketchCopy(const std::string& installDir, const std::string& path);

}  // namespace marloven
