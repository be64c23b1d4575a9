// One wall/roof/floor or window type as the catalog files hold it: seven lines
// (ID, description, U-factor, three properties, installed cost), always in I-P.
// In SI the U-factor and the cost are converted on the way in and out; every
// other line, and both in I-P, pass as the text they are.
#pragma once

#include <string>
#include <string_view>

#include "common/text_lines.h"
#include "project/project_model.h"
#include "project/unit_conversion.h"

namespace marloven {

inline constexpr int kCatalogLines = 7;
inline constexpr int kCatalogUFactor = 2;  // index of line 3 in CatalogType::fields
inline constexpr int kCatalogCost = 6;     // index of line 7

// W/(m2 K) per Btu/(ft2 h F), and m2 per ft2 (a cost per ft2 divided by it is a
// cost per m2).
inline constexpr double kUFactorToSI = 5.6782628;
inline constexpr double kSquareMetresPerFoot2 = 0.09290304;

// A number of a catalog converted for the other unit system: the text's
// leading number through the factor, RoundTo the digits, as bare number text
// (no leading blank) right-aligned by the "@" mask. Also used by the HVAC
// catalog's columns.
std::string catalogNumber(std::string_view text, Factor f, int digits, std::string_view mask);

// Reads the next seven lines as one type in the given units. FileError 62 when
// the lines end inside the record.
CatalogType readCatalogRecord(LineReader& in, UnitSystem units);

// Appends the seven lines of a type held in the given units, converted back to
// the file's I-P, each ended by CR LF.
void appendCatalogRecord(std::string& out, const CatalogType& type, UnitSystem units);

}  // namespace marloven
