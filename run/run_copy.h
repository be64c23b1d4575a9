// The files that define a run for the engine, in the scratch directory:
// the run copy of the project (temp/ecalc$.inp) and the control file
// (temp/ecalc$.tmp).
#pragma once

#include <string>

#include "project/project_model.h"

namespace marloven {

// The project as a run copy: line 1 with the seed, weeks per month and the
// units marker of the project's units, then every record written straight,
// then the sketch file of the installation when there is one. The writer
// completes the model as a save does (design temperatures, outside-air kinds).
std::string runCopyText(const std::string& installDir, Project& p);

// Error Check Only: the control file says "1" and the run copy is written.
// The check is that the model can be written; FileError when it cannot.
void writeErrorCheck(const std::string& installDir, Project& p);

// The week-day of 1 January of a year, 1 Sunday .. 7 Saturday, as the
// control file gives it to the engine.
int firstDayOfYear(int year);

}  // namespace marloven
