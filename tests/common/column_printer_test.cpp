#include "common/column_printer.h"

#include <gtest/gtest.h>

#include <string>

namespace marloven {
namespace {

TEST(ColumnPrinterTest, NumbersAndTabs) {
  ColumnPrinter p;
  p.text("Wall ID.  ").number(5).endLine();
  p.text("ab").tab(6).text("x").endLine();
  p.number(0.5f).number(-1.5).number(12345678.0f).endLine();
  EXPECT_EQ(p.str(), "Wall ID.   5 \r\nab   x\r\n .5 -1.5  1.234568E+07 \r\n");
  EXPECT_EQ(p.column(), 1);
}

TEST(ColumnPrinterTest, TabRules) {
  ColumnPrinter p;
  p.text("abcde").tab(6);  // already there
  EXPECT_EQ(p.column(), 6);
  p.tab(3).text("x");  // behind: a new line filled up to column 3
  EXPECT_EQ(p.column(), 4);
  p.tab(-5).tab(0).text("y");  // below 1 counts as 1
  EXPECT_EQ(p.str(), "abcde\r\n  x\r\ny");
}

TEST(ColumnPrinterTest, Zones) {
  ColumnPrinter p;
  p.zone();  // a leading zone move leaves the first zone empty
  EXPECT_EQ(p.column(), 15);
  p.endLine();
  p.text("a").zone();
  EXPECT_EQ(p.column(), 15);
  p.text(std::string(13, 'b')).zone();  // column 28 -> 29
  EXPECT_EQ(p.column(), 29);
  p.zone();  // at a zone start: the next one
  EXPECT_EQ(p.column(), 43);
  EXPECT_EQ(p.str(), std::string(14, ' ') + "\r\n" + "a" + std::string(13, ' ') + std::string(13, 'b') + " " +
                         std::string(14, ' '));
}

TEST(ColumnPrinterTest, PageFeedLineAndTake) {
  ColumnPrinter p;
  p.line("one").pageFeedLine().text("two");
  EXPECT_EQ(p.column(), 4);
  EXPECT_EQ(p.take(), "one\r\n\f\r\ntwo");
  EXPECT_EQ(p.str(), "");
  EXPECT_EQ(p.column(), 1);
}

}  // namespace
}  // namespace marloven
