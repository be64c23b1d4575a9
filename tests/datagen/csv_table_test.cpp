#include "tools/datagen/csv_table.h"

#include <gtest/gtest.h>

namespace marloven::datagen {
namespace {

TEST(CsvTable, ReadsQuotedFieldsCommentsAndCrLf) {
  const auto t = CsvTable::parse(
      "# a comment, with a comma\r\nid,name,u\r\n1,\"Brick, CMU\",0.090\r\n\r\n2,\"say \"\"hi\"\"\",.5\n",
      "x.csv");
  ASSERT_EQ(t.rows(), 2);
  EXPECT_EQ(t.at(0, "name"), "Brick, CMU");
  EXPECT_EQ(t.at(1, "name"), "say \"hi\"");
  EXPECT_DOUBLE_EQ(t.number(0, "u"), 0.09);
  EXPECT_DOUBLE_EQ(t.number(1, "u"), 0.5);
}

TEST(CsvTable, BadDataNamesTheFileLineAndColumn) {
  const auto message = [](auto&& f) {
    try {
      f();
    } catch (const DataError& e) {
      return std::string(e.what());
    }
    return std::string("no error");
  };
  EXPECT_EQ(message([] { CsvTable::parse("a,b\n1,2,3\n", "t.csv"); }),
            "t.csv, line 2: 3 fields, the header has 2");
  EXPECT_EQ(message([] { CsvTable::parse("a\n\"open\n", "t.csv"); }), "t.csv, line 2: quote not closed");
  const auto t = CsvTable::parse("# c\na,b\n1.5x,\n", "t.csv");
  EXPECT_EQ(message([&] { t.number(0, "a"); }), "t.csv, line 3, column a: \"1.5x\" is not a number");
  EXPECT_EQ(message([&] { t.number(0, "b"); }), "t.csv, line 3, column b: \"\" is not a number");
  EXPECT_EQ(message([&] { t.at(0, "c"); }), "t.csv: no column \"c\"");
}

}  // namespace
}  // namespace marloven::datagen
