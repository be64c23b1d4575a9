#include "common/text_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "common/file_error.h"

namespace marloven {
namespace {

using Lines = std::vector<std::string>;

TEST(SplitLinesTest, Table) {
  const std::string bytes("x\0y\x80\xff\x1a", 6);  // every byte is kept
  const std::vector<std::pair<std::string, Lines>> cases = {
      {"", {}}, {"a", {"a"}}, {"a\r\n", {"a"}}, {"a\r\nb", {"a", "b"}}, {"a\nb\n", {"a", "b"}},
      {"a\rb\r", {"a", "b"}}, {"a\r\n\r\nb", {"a", "", "b"}}, {"\r\n", {""}}, {"\n\n", {"", ""}},
      {"a\n\rb", {"a", "", "b"}},   // LF then a lone CR: two ends
      {"a\r\r\nb", {"a", "", "b"}},  // lone CR then CR LF
      {" x \r\n\r\n", {" x ", ""}}, {bytes + "\r\n" + bytes, {bytes, bytes}},
  };
  for (const auto& [text, lines] : cases)
    EXPECT_EQ(splitLines(text), lines) << "case " << ::testing::PrintToString(text);
}

TEST(LineReaderTest, ReadsInOrderThenFailsWith62) {
  auto r = LineReader::fromText("one\r\ntwo\r\nthree\r\n");
  EXPECT_EQ(r.lineNumber(), 0u);
  EXPECT_EQ(r.next(), "one");
  EXPECT_EQ(r.lineNumber(), 1u);
  EXPECT_EQ(r.next(), "two");
  EXPECT_FALSE(r.atEnd());
  EXPECT_EQ(r.rest(), (Lines{"three"}));  // the rest is consumed
  EXPECT_TRUE(r.atEnd());
  EXPECT_TRUE(r.rest().empty());
  try {
    r.next();
    FAIL() << "no error past the end";
  } catch (const FileError& e) {
    EXPECT_EQ(e.number(), err::kInputPastEnd);
  }
  EXPECT_EQ(r.lineNumber(), 3u);
  EXPECT_TRUE(LineReader::fromText("").atEnd());
}

TEST(ColumnTextTest, Table) {
  // column, count, fromColumn(line, column), midText(line, column, count)
  const std::vector<std::tuple<std::size_t, std::size_t, std::string, std::string>> cases = {
      {1, 2, "abcdef", "ab"}, {3, 2, "cdef", "cd"}, {6, 5, "f", "f"}, {7, 1, "", ""},
      {0, 3, "abcdef", "abc"},  // column 0 counts as 1
      {2, 0, "bcdef", ""},
  };
  for (const auto& [column, count, from, mid] : cases) {
    EXPECT_EQ(fromColumn("abcdef", column), from) << "col " << column;
    EXPECT_EQ(midText("abcdef", column, count), mid) << "col " << column << " n " << count;
  }
  EXPECT_EQ(midText("", 1, 1), "");
}

}  // namespace
}  // namespace marloven
