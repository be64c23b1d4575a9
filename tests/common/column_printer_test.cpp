#include "common/column_printer.h"

#include <gtest/gtest.h>

#include <string>

namespace marloven {
namespace {

TEST(ColumnPrinterTest, NumbersTabsPageFeedAndTake) {
  ColumnPrinter p;
  p.line("one").text("Wall ID.  ").number(5).endLine();
  p.text("ab").tab(6).text("x").endLine();
  p.number(0.5f).number(-1.5).number(12345678.0f).endLine().pageFeedLine().text("end");
  EXPECT_EQ(p.take(), "one\r\nWall ID.   5 \r\nab   x\r\n .5 -1.5  1.234568E+07 \r\n\f\r\nend");
  EXPECT_EQ(p.str(), "");
  EXPECT_EQ(p.column(), 1);
}

TEST(ColumnPrinterTest, TabRules) {
  ColumnPrinter p;
  p.text("abcde").tab(6);  // already there
  EXPECT_EQ(p.column(), 6);
  p.tab(3).text("x");  // past it: a new line filled up to column 3
  EXPECT_EQ(p.column(), 4);
  p.tab(-5).tab(0).text("y");  // below 1 counts as 1
  EXPECT_EQ(p.str(), "abcde\r\n  x\r\ny");
}

TEST(ColumnPrinterTest, Zones) {
  ColumnPrinter p;
  p.zone().endLine();  // a leading zone move leaves the first zone empty
  p.text("a").zone();
  EXPECT_EQ(p.column(), 15);
  p.text(std::string(13, 'b')).zone();  // column 28 -> 29
  EXPECT_EQ(p.column(), 29);
  p.zone();  // at a zone start: the next one
  EXPECT_EQ(p.column(), 43);
  EXPECT_EQ(p.str(), std::string(14, ' ') + "\r\na" + std::string(13, ' ') +
                         std::string(13, 'b') + " " + std::string(14, ' '));
}

}  // namespace
}  // namespace marloven
