#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/masks.h"
#include "common/split.h"

namespace marloven {
namespace {

struct SplitCase {
  std::string text;
  std::size_t maxTokens;
  std::vector<std::string> expected;
};

TEST(SplitBlanksTest, Table) {
  const std::vector<SplitCase> cases = {
      {"", 0, {}},
      {"5", 0, {"5"}},
      {"ab", 0, {"ab"}},
      {"1 2", 0, {"1", "2"}},
      {"a b c", 0, {"a", "b", "c"}},
      // A blank after a blank belongs to the next token.
      {"1  2", 0, {"1", " 2"}},
      {"1   2", 0, {"1", "  2"}},
      {"  a", 0, {"  a"}},
      // The last character is added before the token ends, blank or not.
      {"1 2 ", 0, {"1", "2 "}},
      {" 70 60 10 ", 0, {" 70", "60", "10 "}},
      {"1 ", 0, {"1 "}},
      {"1  ", 0, {"1", " "}},
      {" ", 0, {" "}},
      {"  ", 0, {"  "}},
      // Only the blank separates.
      {"\t1 2,3", 0, {"\t1", "2,3"}},
      // maxTokens.
      {"1 2 3", 1, {"1"}},
      {"1 2 3", 2, {"1", "2"}},
      {"1 2 3", 3, {"1", "2", "3"}},
      {"1 2 3", 9, {"1", "2", "3"}},
      {"1  2  3 ", 2, {"1", " 2"}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(splitBlanks(c.text, c.maxTokens), c.expected)
        << "text \"" << c.text << "\" max " << c.maxTokens;
  }
}

struct MaskCase {
  std::string text;
  std::string mask;
  std::string expected;
};

TEST(ApplyMaskTest, Table) {
  const std::vector<MaskCase> cases = {
      {"12", "@@@@@@", "    12"},
      {"123456", "@@@@@@", "123456"},
      {"1234567", "@@@@@@", "1234567"},  // never cut
      {"", "@@@", "   "},
      {" 5", "@@@@", "   5"},
      {"12", " &&&&", " 12"},
      {"12", "&&&&", "12"},
      {" 5", "&&&", " 5"},
      {"", " &&&&", " "},
      {"long text", "&", "long text"},
      {" 5", "", " 5"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(applyMask(c.text, c.mask), c.expected)
        << "text \"" << c.text << "\" mask \"" << c.mask << "\"";
  }
}

}  // namespace
}  // namespace marloven
