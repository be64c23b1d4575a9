// Reading a project file into the model.
//
// The parse is pure: it fills the model and returns what reading a project also
// leaves on disk (a scratch file per zone, the working sketch). The desktop
// program and the command line write those with writeSideFiles(); the engine
// parses its run copy and touches nothing else.
//
// Files of the older shape (without "DesTemps" or "DemChgRate") load. The
// reader's known limits are kept on purpose, since saved files depend on them:
// a kind with exactly 26 types, or a profile kind at its limit, does not read
// back as written, and a file of 99 zones leaves "BUILDING MATRIX" as the first
// sketch line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "project/project_model.h"

namespace marloven {

struct ZoneScratchFile {
  std::string name;  // "temp<zone ID>.zon", under the scratch directory
  std::string text;  // CR LF lines, ended by "end"
};

struct ReadSideFiles {
  std::vector<ZoneScratchFile> zoneFiles;  // in zone order; a later one of the same name wins
  std::vector<std::string> sketchLines;    // the whole of sketch/bld_mtx.all
  // What the file holds beyond the reader's limits and was not read, one
  // sentence each, for the command line and the program to say.
  std::vector<std::string> notRead;
};

// Parses a whole project file into p, setting the flags a read sets. Raises
// FileError: 62 when the file ends early, 9 for an ID outside its table, 13 or 6
// for a surface value that is not a number, 52 for a zone ID that cannot name
// a scratch file. On error p is partly overwritten: parse into a copy to keep
// the old project (loadProjectFile does).
ReadSideFiles readProject(std::string_view bytes, Project& p);

// Takes the seed and weeks per month from a header line and nothing else.
void readHeader(std::string_view line, Project& p);

// Writes the scratch files under installDir/temp and installDir/sketch/bld_mtx.all.
void writeSideFiles(const std::string& installDir, const ReadSideFiles& files);

// Reads a project file from disk into p with its side files written in the
// installation. p changes only when the whole file was read.
void loadProjectFile(const std::string& installDir, const std::string& path, Project& p);
// The same, returning what was not read (ReadSideFiles::notRead).
std::vector<std::string> loadProjectFileNoting(const std::string& installDir, const std::string& path, Project& p);

}  // namespace marloven
