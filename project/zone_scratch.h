// The zone scratch files temp/temp<zone ID>.zon: one value per line, 14 lines
// per surface row in the order of EnvelopeRow, ended by a line "end". The
// sketch's extraction and the project reader write them; zone entry reads them
// into the model (first pass) or compares them with it (merge pass).
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "project/project_model.h"

namespace marloven {

// "temp<zone ID>.zon". The ID is used as the text it is, so zones "1" and "01"
// have different files. FileError 52 for an ID that would lead out of the
// scratch directory or holds what no file name can.
std::string zoneScratchName(const std::string& zoneId);
// installDir/temp/temp<zone ID>.zon
std::string zoneScratchPath(const std::string& installDir, const std::string& zoneId);

struct ScratchRows {
  std::array<EnvelopeRow, kRowSlots> rows;  // 1..count
  std::int16_t count = 0;
};

// First pass over one file's text: rows until the line "end", which ends the
// reading where a row's first value would stand. The ID and exposure codes and
// the two texts are read by type; the other values are the leading numbers of
// their whole lines. FileError 62 when the text ends without "end", 13 for a
// row that starts with anything but a number or "end", 9 for a 34th row.
ScratchRows readScratchRows(std::string_view text);

// Merge pass over one file's text into rows 1..rowCount of the zone, the row
// count as it stands (rows further down the file are not read). A row whose
// area (to the nearest whole) or orientation differs from the model's is
// replaced by the file's; any other row keeps what the user made of it.
// Returns the number of rows replaced. A read failure raises FileError after
// the rows before it were merged; a row is never half replaced.
int mergeScratchRows(std::string_view text, ZoneRecord& zone);

// The people count that zone entry sets before the first pass: the whole part
// of the zone's numeric floor area over its floor area per person plus a half,
// as bare number text. FileError 11 when the area per person is 0.
std::string peopleFromFloorArea(const ZoneRecord& zone);

}  // namespace marloven
