// Estimating design temperatures from the twelve monthly weather statistics.
//
// The estimate works in I-P (degrees F, feet, inches of mercury) on the month
// tables of the weather summary and converts its three results to SI at the end
// when the project works in SI.
#pragma once

#include "project/project_model.h"

namespace marloven {

// Fills the month tables and the elevation (always I-P) from weather lines 2 and
// 4..11. Values of a project in SI are converted to I-P first.
void parseWeatherLines(Project& p);

// Overwrites the month tables and the elevation with SI values made from the
// weather lines as held (which are I-P when this is called: the writer to SI
// runs while working in I-P).
void weatherToSI(Project& p);

// Saturation pressure over water, inches of mercury, for a temperature in F.
// Never below 0.0001.
float saturationPressure(float t);

// Parses the weather lines and stores summer dry-bulb, summer wet-bulb and
// winter dry-bulb as number text in p.designTemps.values[1..3].
void estimateDesignTemperatures(Project& p);

// The writers' and the run screen's condition for estimating: entry 1 empty for
// a project from a file, or the temperatures not known.
bool designTemperaturesNeeded(const Project& p);

}  // namespace marloven
