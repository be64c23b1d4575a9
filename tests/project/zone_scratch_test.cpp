// Zone scratch files: the first pass, the merge that keeps the user's edits
// where the geometry stands, and the people count of zone entry.
#include "project/zone_scratch.h"

#include <gtest/gtest.h>

#include <functional>

#include "common/file_error.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

// One surface row as the sketch's extraction writes it.
std::string sketchRow(const std::string& area, const std::string& orientation, const std::string& kind = "2   ") {
  return crlf({" 1  ", " " + area + " ", orientation, kind, "  0  0 N", " 1  ", "0.0 ",
               kind[0] < '6' ? "90" : "0", "B", " 0 ", " 0 ", " 2.5 ", " 7.5 ", "0.0"});
}

int errorOf(const std::function<void()>& f) {
  try {
    f();
  } catch (const FileError& e) {
    return e.number();
  }
  return 0;
}

TEST(ZoneScratch, FirstPassReadsRowsUntilEnd) {
  EXPECT_EQ(readScratchRows("end\r\n").count, 0);
  const ScratchRows r = readScratchRows(sketchRow("400", "0") + sketchRow("12.5", "270", "6   ") + "end\r\n9999\r\n");
  ASSERT_EQ(r.count, 2);
  const EnvelopeRow& roof = r.rows[2];
  EXPECT_FLOAT_EQ(roof.wallArea, 12.5f);
  EXPECT_EQ(roof.wallOrientation, 270);
  EXPECT_EQ(roof.surfaceExposure, 6);
  EXPECT_EQ(roof.externalShading, "0  0 N");  // a text keeps its inner blanks
  EXPECT_EQ(roof.slope, 0.0f);
  EXPECT_FLOAT_EQ(roof.sillHeight, 2.5f);
  EXPECT_EQ(r.rows[1].slope, 90.0f);

  std::string full;
  for (int k = 1; k <= kMaxSurfaceRows; ++k) full += sketchRow(std::to_string(k), "0");
  EXPECT_EQ(readScratchRows(full + "end\r\n").count, 33);
  EXPECT_EQ(errorOf([&] { readScratchRows(full + sketchRow("34", "0") + "end\r\n"); }), err::kSubscriptOutOfRange);
  EXPECT_EQ(errorOf([&] { readScratchRows(sketchRow("400", "0")); }), err::kInputPastEnd);  // no "end"
  EXPECT_EQ(errorOf([&] { readScratchRows("wall\r\n"); }), err::kTypeMismatch);
}

TEST(ZoneScratch, MergeReplacesChangedRowsOnlyAndReadsNoFurtherThanTheCount) {
  ZoneRecord zone;
  zone.rowCount = 4;
  const std::string before = sketchRow("400", "0") + sketchRow("200", "90") + sketchRow("400", "180") +
                             sketchRow("200", "270") + "end\r\n";
  const ScratchRows read = readScratchRows(before);
  for (int k = 1; k <= 4; ++k) {
    zone.rows[k] = read.rows[k];
    zone.rows[k].windowId = 3;  // the user's edits
    zone.rows[k].windowArea = 40;
  }
  zone.rows[5].windowId = 9;  // a stale row behind the count

  // Row 2 grew, row 3 turned, row 4 moved by less than a half; row 5 is new.
  const std::string after = sketchRow("400", "0") + sketchRow("260", "90") + sketchRow("400", "0") +
                            sketchRow("200.4", "270") + sketchRow("100", "0") + "end\r\n";
  EXPECT_EQ(mergeScratchRows(after, zone), 2);
  EXPECT_EQ(zone.rowCount, 4);
  const struct {
    int row;
    float area;
    std::int16_t orientation, windowId;
  } expected[] = {{1, 400, 0, 3}, {2, 260, 90, 1}, {3, 400, 0, 1}, {4, 200, 270, 3}, {5, 0, 0, 9}};
  for (const auto& e : expected) {
    EXPECT_FLOAT_EQ(zone.rows[e.row].wallArea, e.area) << e.row;
    EXPECT_EQ(zone.rows[e.row].wallOrientation, e.orientation) << e.row;
    EXPECT_EQ(zone.rows[e.row].windowId, e.windowId) << e.row;
  }
  EXPECT_FLOAT_EQ(zone.rows[2].windowArea, 0.0f);

  // A file shorter than the count fails where it ends; the rows before are merged.
  zone.rows[1].wallArea = 1;
  EXPECT_EQ(errorOf([&] { mergeScratchRows(sketchRow("500", "0") + "end\r\n", zone); }), err::kTypeMismatch);
  EXPECT_FLOAT_EQ(zone.rows[1].wallArea, 500.0f);
  EXPECT_FLOAT_EQ(zone.rows[2].wallArea, 260.0f);
}

TEST(ZoneScratch, NamesKeepTheZoneIdText) {
  EXPECT_EQ(zoneScratchName("1"), "temp1.zon");
  EXPECT_EQ(zoneScratchName("01"), "temp01.zon");
  EXPECT_EQ(zoneScratchPath("/inst", "212"), "/inst/temp/temp212.zon");
  for (const char* bad : {"../x", "a/b", "a\\b"}) EXPECT_EQ(errorOf([&] { zoneScratchName(bad); }), err::kBadFileName);
}

TEST(ZoneScratch, PeopleFromFloorAreaPerPerson) {
  const struct {
    float area, perPerson;
    std::string people;
  } cases[] = {{5200, 25, "208"}, {250, 100, "3"}, {249, 100, "2"}};
  for (const auto& c : cases) {
    ZoneRecord z;
    z.listedFloorArea = c.area;
    z.floorAreaPerPerson = c.perPerson;
    EXPECT_EQ(peopleFromFloorArea(z), c.people) << c.area << " / " << c.perPerson;
  }
  ZoneRecord empty;
  empty.floorAreaPerPerson = 0;
  EXPECT_EQ(errorOf([&] { peopleFromFloorArea(empty); }), 11);
}

}  // namespace
}  // namespace marloven::testing
