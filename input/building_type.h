// A building type's defaults: btype/bdtype<n>.dat fills the project data, the
// economics, the demand charge flag and the field defaults of every zone, so a
// project is complete enough to run with nothing typed in.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "project/project_model.h"

namespace marloven {

inline constexpr int kBuildingTypeLines = 57;

// The 42 captions of the Building Type menu; entry n names bdtype<n>.dat.
extern const std::array<const char*, kBuildingTypes + 1> kBuildingTypeCaptions;

// A value line of the file: its first 20 characters without trailing blanks.
std::string buildingTypeValue(std::string_view line);

// The project information boxes 0..11 that a choice fills (the screen's, so
// what the user typed into location, orientation and floor area is kept).
using ProjectInfoBoxes = std::array<std::string, kProjectDataCount>;

// Loads building type n into the boxes and the project. The boxes' location,
// orientation and floor area are kept when present (floor area "0" counts as
// absent); the evaluation year becomes `year`. In SI the file's I-P defaults
// are converted. Zones 1..98 get the numbered fields, zones 1..99 the natural
// ventilation, daylight and economiser texts; the current zone's profile fields
// name the type. The project becomes one without a file.
//
// The whole file is read before anything changes: FileError 53 when it is
// missing, 62 when it has fewer than 57 lines, 9 for n outside 1..42; the
// boxes and the project are then as they were.
void loadBuildingType(const std::string& installDir, int n, int year, ProjectInfoBoxes& boxes,
                      Project& p);

}  // namespace marloven
