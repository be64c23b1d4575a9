#include "common/column_printer.h"

#include <utility>

#include "common/number_text.h"

namespace marloven {

ColumnPrinter& ColumnPrinter::text(std::string_view s) {
  out_ += s;
  column_ += static_cast<int>(s.size());
  return *this;
}

ColumnPrinter& ColumnPrinter::number(float value) { return text(printed(value)); }
ColumnPrinter& ColumnPrinter::number(double value) { return text(printed(value)); }
ColumnPrinter& ColumnPrinter::number(int value) { return text(printed(value)); }

ColumnPrinter& ColumnPrinter::tab(int n) {
  if (n < 1) n = 1;
  if (column_ > n) endLine();
  if (column_ < n) {
    out_.append(static_cast<std::size_t>(n - column_), ' ');
    column_ = n;
  }
  return *this;
}

ColumnPrinter& ColumnPrinter::zone() {
  // A column already at a zone start, the line's first included, still moves
  // on to the next zone, as a leading comma of a print list does.
  const int next = ((column_ - 1) / kZoneWidth + 1) * kZoneWidth + 1;
  return tab(next);
}

ColumnPrinter& ColumnPrinter::endLine() {
  out_ += "\r\n";
  column_ = 1;
  return *this;
}

ColumnPrinter& ColumnPrinter::pageFeedLine() { return text("\f").endLine(); }

std::string ColumnPrinter::take() {
  std::string s = std::move(out_);
  out_.clear();
  column_ = 1;
  return s;
}

}  // namespace marloven
