// Section spans cut to their files and the comfort table split into pages.
#include "results/report_sections.h"

#include <gtest/gtest.h>

#include "common/file_error.h"
#include "sample_report.h"
#include "support/temp_install.h"

namespace marloven::testing {
namespace {

class ReportSections : public ::testing::Test {
 protected:
  std::string scratch() const { return install.path("temp").string(); }
  std::string cut(Section s) { return install.read("temp/" + std::string(sectionFileName(s))); }

  TempInstall install;
};

TEST_F(ReportSections, EachSpanRunsFromItsAnchorToBeforeTheNext) {
  const Lines project = projectPart(false);
  const Lines months = monthPage(wholeYear());
  install.write("temp/ecalc$.out", joined(project + zonePart() + loadPage() + months + hvacPart() +
                                          profilePart() + costPart() + weatherPart() + comfortPart()));
  for (Section s : {Section::ProjectData, Section::ZoneData, Section::MonthlySummaries, Section::HvacDesign,
                    Section::PeakProfiles, Section::CostAnalysis, Section::WeatherSummary})
    ASSERT_TRUE(cutSection(scratch(), s).ok()) << sectionFileName(s);

  // Each part of the sample starts with its anchor line, except where the
  // page furniture of the next section comes first: it stays with the span
  // before it, as the report was written.
  const auto furniture = [](const Lines& part) { return Lines(part.begin(), part.begin() + 3); };
  const auto body = [](const Lines& part) { return Lines(part.begin() + 3, part.end()); };
  EXPECT_EQ(cut(Section::ProjectData), joined(project));
  EXPECT_EQ(cut(Section::ZoneData), joined(zonePart() + furniture(loadPage())));
  EXPECT_EQ(cut(Section::MonthlySummaries), joined(body(loadPage()) + months + furniture(hvacPart())));
  EXPECT_EQ(cut(Section::HvacDesign), joined(body(hvacPart()) + furniture(profilePart())));
  // Section VI lies inside the peak profiles.
  EXPECT_EQ(cut(Section::PeakProfiles), joined(body(profilePart()) + furniture(costPart())));
  EXPECT_EQ(cut(Section::CostAnalysis), joined(body(costPart()) + furniture(weatherPart())));
  EXPECT_EQ(cut(Section::WeatherSummary), joined(body(weatherPart()) + furniture(comfortPart())));
  EXPECT_EQ(sectionFileName(Section::WeatherSummary), "tabweat.txt");
}

TEST_F(ReportSections, SpanKeepsTheBytesOfTheReport) {
  // Line ends as the file has them, a blank after "IV" counts, and a cost span
  // ends at "VIII" without its point.
  install.write("temp/ecalc$.out", "II.\r\nIV.x\nIV. a\r\n\rV. \r\nVII.\r\nc\r\nVIII \r\nIX.\r\n");
  ASSERT_TRUE(cutSection(scratch(), Section::HvacDesign).ok());
  EXPECT_EQ(cut(Section::HvacDesign), "IV. a\r\n\r");
  ASSERT_TRUE(cutSection(scratch(), Section::CostAnalysis).ok());
  EXPECT_EQ(cut(Section::CostAnalysis), "VII.\r\nc\r\n");
  // "VIII " is not "VIII.": the weather span never starts.
  EXPECT_EQ(cutSection(scratch(), Section::WeatherSummary).errorNumber, err::kInputPastEnd);

  // A report that begins with "II." has an empty project span.
  ASSERT_TRUE(cutSection(scratch(), Section::ProjectData).ok());
  EXPECT_TRUE(install.exists("temp/tabproj.txt"));
  EXPECT_EQ(cut(Section::ProjectData), "");
}

TEST_F(ReportSections, AFailedCutLeavesTheOldSpanFile) {
  install.write("temp/tabsum.txt", "old");
  ReadStatus s = cutSection(scratch(), Section::MonthlySummaries);
  EXPECT_EQ(s.errorNumber, err::kFileNotFound);
  EXPECT_FALSE(s.clearOutputViewable);

  // The span starts but its end anchor never comes.
  install.write("temp/ecalc$.out", joined(projectPart(false) + zonePart() + loadPage() + monthPage(wholeYear())));
  s = cutSection(scratch(), Section::MonthlySummaries);
  EXPECT_EQ(s.errorNumber, err::kInputPastEnd);
  EXPECT_EQ(s.message(), errorMessage(62));
  EXPECT_EQ(cut(Section::MonthlySummaries), "old");
}

// Comfort files: four header lines, then whatever the engine wrote.
Lines comfortHeader() {
  return {placed({{6, "SPACE COMFORT CONDITIONS -- PASSIVE RUN"}}), placed({{6, "COMFORT LIMITS  68.0 TO  79.0 F."}}),
          placed({{6, "PROJECT: Test Office"}, {60, "LOCATION: Denver, Colorado #"}}),
          placed({{6, std::string(123, '-')}})};
}

Lines filler(int count, const std::string& text = "         1         54.4-   55.3-") { return Lines(count, text); }

const std::string kProj = "*** PROJECT: Test Office";
const std::string kZone = " ZONE 11  Open office";

class ComfortSplit : public ReportSections {
 protected:
  ComfortPages split(const Lines& file) {
    install.write("temp/ecalc$.flt", joined(file));
    ComfortPages pages{-1, -1};
    const ReadStatus s = splitComfortFile(scratch(), pages);
    EXPECT_TRUE(s.ok()) << s.detail;
    return pages;
  }
  std::string page(int n) { return install.read("temp/" + std::to_string(n) + ".flt"); }
};

TEST_F(ComfortSplit, WithoutHeadingsTheFileIsOnePage) {
  const Lines file = comfortHeader() + filler(600) + Lines{"  ZONE not at column 2", "** PROJ"};
  const ComfortPages pages = split(file);
  EXPECT_EQ(pages.pageCount, 1);
  EXPECT_EQ(pages.pagesWritten, 1);
  EXPECT_EQ(page(1), joined(file));
  EXPECT_FALSE(install.exists("temp/2.flt"));
}

TEST_F(ComfortSplit, EveryReportHeadingStartsAPageWithThatLine) {
  const Lines summary = Lines{"", "     BUILDING SUMMARY"} + filler(3);
  const Lines zone1 = Lines{kProj, "", kZone} + filler(30);
  const Lines zone2 = Lines{kProj, "", " ZONE 12  Conference"} + filler(30);
  const ComfortPages pages = split(comfortHeader() + summary + zone1 + zone2);
  EXPECT_EQ(pages.pageCount, 3);
  EXPECT_EQ(pages.pagesWritten, 3);
  EXPECT_EQ(page(1), joined(comfortHeader() + summary));
  EXPECT_EQ(page(2), joined(zone1));
  EXPECT_EQ(page(3), joined(zone2));
}

TEST_F(ComfortSplit, AZoneHeadingBreaksOnlyAPageAbove448Lines) {
  // Page 1 holds exactly 448 lines when the first zone heading comes: it stays.
  // It then holds 449, so the next one breaks.
  const Lines first = comfortHeader() + filler(444) + Lines{kZone};
  // On a later page the carried heading is the first of its lines.
  const Lines second = Lines{" ZONE 12  Conference"} + filler(447) + Lines{" ZONE 13  Hall"};
  const Lines third = Lines{" ZONE 14  Store"} + filler(2);
  ComfortPages pages = split(first + second + third);
  EXPECT_EQ(pages.pageCount, 3);
  EXPECT_EQ(page(1), joined(first));
  EXPECT_EQ(page(2), joined(second));
  EXPECT_EQ(page(3), joined(third));

  // 449 lines: the next zone heading breaks.
  const Lines longer = Lines{" ZONE 12  Conference"} + filler(448);
  pages = split(first + longer + Lines{" ZONE 13  Hall"} + third);
  EXPECT_EQ(pages.pageCount, 3);
  EXPECT_EQ(page(2), joined(longer));
  EXPECT_EQ(page(3), joined(Lines{" ZONE 13  Hall"} + third));
}

TEST_F(ComfortSplit, AHeadingOnTheLastLineIsCountedButNeverWritten) {
  install.write("temp/2.flt", "stale");
  const Lines body = comfortHeader() + filler(5);
  const ComfortPages pages = split(body + Lines{kProj});
  EXPECT_EQ(pages.pageCount, 2);
  EXPECT_EQ(pages.pagesWritten, 1);
  EXPECT_EQ(page(1), joined(body));
  EXPECT_EQ(page(2), "stale");

  // An empty comfort file (a run with heating and cooling) writes no page.
  install.write("temp/1.flt", "stale");
  const ComfortPages none = split({});
  EXPECT_EQ(none.pageCount, 1);
  EXPECT_EQ(none.pagesWritten, 0);
  EXPECT_EQ(page(1), "stale");
}

TEST_F(ComfortSplit, FaultsLeaveTheCountAsItWas) {
  ComfortPages pages{7, 7};
  ReadStatus s = splitComfortFile(scratch(), pages);
  EXPECT_EQ(s.errorNumber, err::kFileNotFound);
  EXPECT_FALSE(s.clearOutputViewable);
  // Nothing after the header: the first read past it runs off the end.
  install.write("temp/ecalc$.flt", joined(comfortHeader()));
  s = splitComfortFile(scratch(), pages);
  EXPECT_EQ(s.errorNumber, err::kInputPastEnd);
  EXPECT_EQ(pages.pageCount, 7);
}

}  // namespace
}  // namespace marloven::testing
