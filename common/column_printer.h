// Line-oriented printing with the column rules of the program's text files and
// reports: print zones of 14 columns, "go to column n", CR LF line ends.
//
//   ColumnPrinter p;
//   p.text("Wall ID.  ").number(5).endLine();   // "Wall ID.   5 \r\n"
//   p.text("ab").tab(6).text("x").endLine();     // "ab   x\r\n"
#pragma once

#include <string>
#include <string_view>

namespace marloven {

class ColumnPrinter {
 public:
  static constexpr int kZoneWidth = 14;

  // Appends text as it is. Texts must not hold line ends; use endLine().
  ColumnPrinter& text(std::string_view s);
  // Appends a number as printed to a file: padded text plus one trailing blank.
  ColumnPrinter& number(float value);
  ColumnPrinter& number(double value);
  ColumnPrinter& number(int value);
  // Moves to column n (1-based) with blanks. Already at n: nothing. Already past
  // n: the line ends and the new line is filled with blanks up to column n.
  // n below 1 counts as 1.
  ColumnPrinter& tab(int n);
  // Moves to the start of the next print zone (columns 15, 29, 43, ...), also
  // from the start of a line or of a zone.
  ColumnPrinter& zone();
  // Ends the line with CR LF.
  ColumnPrinter& endLine();
  // A line holding a form feed alone: the page break of printed reports.
  ColumnPrinter& pageFeedLine();
  // Convenience: a whole line.
  ColumnPrinter& line(std::string_view s) { return text(s).endLine(); }

  // The current column, 1-based.
  int column() const { return column_; }
  const std::string& str() const { return out_; }
  std::string take();

 private:
  std::string out_;
  int column_ = 1;
};

}  // namespace marloven
