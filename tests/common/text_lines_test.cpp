#include "common/text_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/file_error.h"

namespace marloven {
namespace {

struct LinesCase {
  std::string text;
  std::vector<std::string> expected;
};

TEST(SplitLinesTest, Table) {
  const std::vector<LinesCase> cases = {
      {"", {}},
      {"a", {"a"}},
      {"a\r\n", {"a"}},
      {"a\r\nb", {"a", "b"}},
      {"a\nb\n", {"a", "b"}},
      {"a\rb\r", {"a", "b"}},
      {"a\r\n\r\nb", {"a", "", "b"}},
      {"\r\n", {""}},
      {"\n\n", {"", ""}},
      {"a\n\rb", {"a", "", "b"}},   // LF then a lone CR: two ends
      {"a\r\r\nb", {"a", "", "b"}},  // lone CR then CR LF
      {" x \r\n\r\n", {" x ", ""}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(splitLines(c.text), c.expected) << "case " << ::testing::PrintToString(c.text);
  }
}

TEST(SplitLinesTest, KeepsEveryByte) {
  const std::string line("x\0y\x80\xff\x1a", 6);
  const auto lines = splitLines(line + "\r\n" + line);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0], line);
  EXPECT_EQ(lines[1], line);
}

TEST(LineReaderTest, ReadsInOrderThenFailsWith62) {
  auto r = LineReader::fromText("one\r\ntwo\r\n");
  EXPECT_EQ(r.lineNumber(), 0u);
  EXPECT_FALSE(r.atEnd());
  EXPECT_EQ(r.next(), "one");
  EXPECT_EQ(r.lineNumber(), 1u);
  EXPECT_EQ(r.next(), "two");
  EXPECT_EQ(r.lineNumber(), 2u);
  EXPECT_TRUE(r.atEnd());
  try {
    r.next();
    FAIL() << "no error past the end";
  } catch (const FileError& e) {
    EXPECT_EQ(e.number(), err::kInputPastEnd);
  }
  EXPECT_EQ(r.lineNumber(), 2u);
}

TEST(LineReaderTest, EmptyTextIsAtEnd) {
  auto r = LineReader::fromText("");
  EXPECT_TRUE(r.atEnd());
  EXPECT_THROW(r.next(), FileError);
}

TEST(LineReaderTest, RestTakesTheUnreadLines) {
  LineReader r({"a", "b", "c"});
  r.next();
  EXPECT_EQ(r.rest(), (std::vector<std::string>{"b", "c"}));
  EXPECT_TRUE(r.atEnd());
  EXPECT_TRUE(r.rest().empty());
}

struct ColumnCase {
  std::string line;
  std::size_t column;
  std::size_t count;  // for midText
  std::string from;   // fromColumn(line, column)
  std::string mid;    // midText(line, column, count)
};

TEST(ColumnTextTest, Table) {
  const std::vector<ColumnCase> cases = {
      {"abcdef", 1, 2, "abcdef", "ab"},
      {"abcdef", 3, 2, "cdef", "cd"},
      {"abcdef", 6, 5, "f", "f"},
      {"abcdef", 7, 1, "", ""},
      {"abcdef", 100, 1, "", ""},
      {"abcdef", 0, 3, "abcdef", "abc"},  // column 0 counts as 1
      {"abcdef", 2, 0, "bcdef", ""},
      {"", 1, 1, "", ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(fromColumn(c.line, c.column), c.from) << c.line << " col " << c.column;
    EXPECT_EQ(midText(c.line, c.column, c.count), c.mid)
        << c.line << " col " << c.column << " count " << c.count;
  }
}

}  // namespace
}  // namespace marloven
