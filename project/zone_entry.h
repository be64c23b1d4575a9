// What entering the zones after a sketch does with the installation's files:
// default wall and window types, default profiles, and the zone scratch files
// (first pass on a project's first zone entry, merge pass afterwards).
//
// Every function here changes the project only when all of its reading
// succeeded, so a missing or damaged file leaves the model as it was; the
// caller shows the zone data access message or the error report.
#pragma once

#include <array>
#include <string>

#include "project/project_model.h"

namespace marloven {

// A line of hourly degrees F as whole degrees C, each value right-aligned in
// two, joined by single blanks.
std::string temperaturesToSI(const std::string& line);

// How many records of the wall and window catalogs a project starts with.
inline constexpr int kDefaultTypeCount = 15;
// Of those wall records only the wall, roof and floor that the sketch assigns
// keep their ID; the others stay behind free entries until chosen.
inline constexpr std::array<int, 3> kSketchWallIds = {1, 8, 14};

// Walls 1..15 from profiles/bprof6.dat and windows 1..15 from profiles/bprof7.dat,
// in the project's units. FileError 53 when a file is missing, 62 when it holds
// fewer than 15 records.
void loadDefaultTypes(const std::string& installDir, Project& p);

// For each profile kind not yet loaded for the project: kinds 1..4 take the
// line of the building type from profiles/bprof<k>.dat as profile number
// <building type>; the temperature kind takes lines 1..4 of profiles/bprof5.dat
// as profiles 1..4, each value turned to whole degrees C in SI. IDs are padded
// number text. FileError 53 / 62 for a missing or short file, 9 for a building
// type outside 1..42 when a kind needs it.
void loadDefaultProfiles(const std::string& installDir, Project& p, int buildingType);

// First pass for zones 1..zoneCount: the people count from the floor area per
// person, then all rows of temp/temp<zone ID>.zon and their count. All zones or
// none: FileError (53 for a missing file) leaves every zone as it was.
void readZoneScratchFiles(const std::string& installDir, Project& p);

// Merge pass for zones 1..zoneCount (see mergeScratchRows). Errors are ignored
// zone by zone: a missing or short file keeps that zone's rows from where it
// failed.
void mergeZoneScratchFiles(const std::string& installDir, Project& p);

// Zone entry after a sketch, in order: on the project's first zone entry (zones
// opened not set) the default types, the default profiles and the first pass;
// afterwards the default profiles and the merge pass. The flags are the
// caller's to set. All or nothing, as above.
void loadZoneDataAfterSketch(const std::string& installDir, Project& p, int buildingType);

}  // namespace marloven
