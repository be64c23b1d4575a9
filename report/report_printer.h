// The writing primitives of the 132-column report. The results screens cut
// values out of the report by column, so these rules are a contract:
// "at" pads to a column and breaks the line when it is already past it, a
// number is printed with its leading and trailing blank, "@" masks pad on the
// left and never cut.
#pragma once

#include <string>
#include <string_view>

#include "common/column_printer.h"
#include "project/project_model.h"

namespace marloven {

class ReportPrinter {
 public:
  ReportPrinter& at(int column) {
    out_.tab(column);
    return *this;
  }
  ReportPrinter& text(std::string_view s) {
    out_.text(s);
    return *this;
  }
  // Number text with one trailing blank: " 3.1 ", "-2 ". Single-precision
  // values print with at most 7 digits, double with 15.
  ReportPrinter& number(float value);
  ReportPrinter& number(double value);
  ReportPrinter& number(int value) { return number(static_cast<double>(value)); }
  // The number's text (no leading blank) through a mask of "@" or " &".
  ReportPrinter& masked(float value, std::string_view mask);
  ReportPrinter& masked(std::string_view text, std::string_view mask);
  // Ends the line; a line that holds items is ended first, so a held line
  // followed by end() is one line.
  ReportPrinter& end() {
    out_.endLine();
    return *this;
  }
  // A visible empty line: ends a held line first.
  ReportPrinter& emptyLine();
  // Ends a held line; nothing when the line is empty.
  ReportPrinter& finish();
  ReportPrinter& pageFeed();

  ReportPrinter& fullRule();     // 132 "=" from column 1
  ReportPrinter& heavyRule();    // column 5, 126 "="
  ReportPrinter& lightRule();    // column 5, 126 "-"
  ReportPrinter& catalogRule();  // column 5, 114 "-"
  ReportPrinter& tableRule();    // column 9, 113 "-"

  // The page number at column 115, then an empty line.
  ReportPrinter& pageMark();
  // Counts a page that carries no mark of its own.
  void countPage() { ++page_; }
  int page() const { return page_; }

  // Name at 14 and location at 98 on line 1; description, design stage,
  // scheme, building type, weather year and the date of the run below.
  ReportPrinter& projectHeader(const Project& p, std::string_view date, std::string_view time);

  int column() const { return out_.column(); }
  const std::string& str() const { return out_.str(); }

 private:
  ReportPrinter& rule(int column, int count, char c);

  ColumnPrinter out_;
  int page_ = 0;
};

}  // namespace marloven
