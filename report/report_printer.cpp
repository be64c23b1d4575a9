#include "report/report_printer.h"

#include "common/masks.h"
#include "common/number_text.h"

namespace marloven {

ReportPrinter& ReportPrinter::number(float value) {
  out_.text(printed(value));
  return *this;
}

ReportPrinter& ReportPrinter::number(double value) {
  out_.text(printed(value));
  return *this;
}

ReportPrinter& ReportPrinter::masked(float value, std::string_view mask) {
  return masked(bare(value), mask);
}

ReportPrinter& ReportPrinter::masked(std::string_view text, std::string_view mask) {
  out_.text(applyMask(text, mask));
  return *this;
}

ReportPrinter& ReportPrinter::finish() {
  if (out_.column() > 1) out_.endLine();
  return *this;
}

ReportPrinter& ReportPrinter::emptyLine() {
  finish();
  out_.endLine();
  return *this;
}

ReportPrinter& ReportPrinter::pageFeed() {
  finish();
  out_.pageFeedLine();
  return *this;
}

ReportPrinter& ReportPrinter::rule(int column, int count, char c) {
  out_.tab(column).text(std::string(static_cast<std::size_t>(count), c)).endLine();
  return *this;
}

ReportPrinter& ReportPrinter::fullRule() {
  finish();
  return rule(1, 132, '=');
}
ReportPrinter& ReportPrinter::heavyRule() { return rule(5, 126, '='); }
ReportPrinter& ReportPrinter::lightRule() { return rule(5, 126, '-'); }
ReportPrinter& ReportPrinter::catalogRule() { return rule(5, 114, '-'); }
ReportPrinter& ReportPrinter::tableRule() { return rule(9, 113, '-'); }

ReportPrinter& ReportPrinter::pageMark() {
  ++page_;
  at(115).text("... PAGE ").number(page_).text("...").end();
  return emptyLine();
}

ReportPrinter& ReportPrinter::projectHeader(const Project& p, std::string_view date, std::string_view time) {
  text("*** PROJECT: ").text(p.data[kProjectName]).at(88).text("LOCATION: ").text(p.data[kLocation]).end();
  text("    DESCRIPTION: ").text(p.data[kProjectDesc]).at(88).text("Design Phase: ").text(p.data[kDesignStage]).end();
  text("    SCHEME: ").text(p.data[kSchemeNumber]);
  at(35).text("TYPE: ").text(p.data[kBuildingType]);
  at(60).text("Weather Year: ").text(p.data[kConstructionYear]);
  at(88).text("Date of Run: ").text(date).text(", ").text(time).end();
  return *this;
}

}  // namespace marloven
