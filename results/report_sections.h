// The tabular screens' cuts of the joined report: one span of
// temp/ecalc$.out per section, written to its own text file, and the comfort
// table temp/ecalc$.flt split into numbered page files.
//
// Files are rewritten on each use and never deleted here. A cut that fails
// writes nothing, so a span file is either the old one or the whole new span.
// Faults do not ask the caller to clear "output viewable".
#pragma once

#include <string>
#include <string_view>

#include "results/read_status.h"

namespace marloven {

enum class Section {
  ProjectData,       // first line of the file up to "II."
  ZoneData,          // "II." up to "III."
  MonthlySummaries,  // "III." up to "IV. "
  HvacDesign,        // "IV. " up to "V. "
  PeakProfiles,      // "V. " up to "VII." (section VI lies inside)
  CostAnalysis,      // "VII." up to "VIII" (with or without its point)
  WeatherSummary,    // "VIII." up to "IX."
};

// The span file under the scratch folder: "tabproj.txt", "tabzone.txt", ...
std::string_view sectionFileName(Section section);

// Cuts the span from <scratchDir>/ecalc$.out to <scratchDir>/<sectionFileName>:
// the line with the first anchor is included, the line with the end anchor is
// not, and the bytes (line ends included) are those of the report. Anchors are
// tested on column 1 on. 53 when the report is missing, 62 when an anchor
// never comes.
ReadStatus cutSection(const std::string& scratchDir, Section section);

// The comfort table file the engine leaves under the scratch folder.
inline constexpr const char* kComfortFile = "ecalc$.flt";
// A comfort page holds at least this many lines before it breaks at a zone
// heading, so a zone's table is never cut in two.
inline constexpr int kComfortPageLines = 448;

struct ComfortPages {
  // The count the tabular screen pages by. When the file ends on a line that
  // would start a page (or is empty), that page is never written and the count
  // stands one above the pages written.
  int pageCount = 0;
  int pagesWritten = 0;
};

// Splits <scratchDir>/ecalc$.flt into <scratchDir>/1.flt, 2.flt, ...: page 1
// starts with the file's four header lines; a new page starts at every line
// beginning "*** PROJ", and at a line beginning " ZONE" once the page holds
// more than kComfortPageLines lines. Page files end their lines with CR LF.
// On a fault the pages are left as they are (those written stay).
ReadStatus splitComfortFile(const std::string& scratchDir, ComfortPages& pages);

}  // namespace marloven
