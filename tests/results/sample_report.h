// Small joined reports for the results readers' tests, laid out in the
// engine's columns: each line is built by placing texts at 1-based columns.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace marloven::testing {

using Lines = std::vector<std::string>;

// A line with each text placed at its column, blanks between (a later text
// may overwrite an earlier one).
std::string placed(std::initializer_list<std::pair<std::size_t, std::string_view>> items);

// Right-aligned in a field of width characters.
std::string right(std::string_view text, std::size_t width);

// The lines ended with CR LF, joined.
std::string joined(const Lines& lines);
Lines operator+(Lines a, const Lines& b);

// Section I up to the weather page: the "WEATHER" line at column 4 and the
// solar heading's unit 13 lines after it ("SQ.FT." at 11 or "SQ.M." at 12).
Lines projectPart(bool si);
// Section II: "II." and two zones.
Lines zonePart();
// Section III page 1: the heading, the page header (project at 14, location at
// 98), the load table from "ROOF" to row 22, and the site energy block.
Lines loadPage();
// Section III page 2: "MON", four skipped lines, a row for each label given
// (the first fixes the month, the others are not read), "=" and the two totals
// rows. Row i (from 0) holds heating "1<i>.5", cooling 100 (i + 1), gas 200 + i,
// electricity 300 + i and total 500 + i; totals 99.9, 9999, 777, 888, 999.
Lines monthPage(const std::vector<std::string>& labels);
// Sections IV to IX, each started by its anchor line.
Lines hvacPart();
Lines profilePart();  // V. and VI.
Lines costPart();
Lines weatherPart();
Lines comfortPart();

// The twelve month labels.
std::vector<std::string> wholeYear();

// A complete report with all anchors.
Lines fullReport(bool si = false, const std::vector<std::string>& months = wholeYear());

}  // namespace marloven::testing
