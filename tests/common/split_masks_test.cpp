#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "common/masks.h"
#include "common/split.h"

namespace marloven {
namespace {

TEST(SplitBlanksTest, Table) {
  const std::vector<std::tuple<std::string, std::size_t, std::vector<std::string>>> cases = {
      {"", 0, {}}, {"5", 0, {"5"}}, {"a b c", 0, {"a", "b", "c"}},
      // A blank after a blank belongs to the next token.
      {"1   2", 0, {"1", "  2"}}, {"  a", 0, {"  a"}},
      // The last character is added before the token ends, blank or not.
      {" 70 60 10 ", 0, {" 70", "60", "10 "}}, {"1 ", 0, {"1 "}}, {"1  ", 0, {"1", " "}},
      {" ", 0, {" "}},
      {"\t1 2,3", 0, {"\t1", "2,3"}},  // only the blank separates
      {"1 2 3", 1, {"1"}}, {"1 2 3", 9, {"1", "2", "3"}}, {"1  2  3 ", 2, {"1", " 2"}},
  };
  for (const auto& [text, maxTokens, tokens] : cases)
    EXPECT_EQ(splitBlanks(text, maxTokens), tokens) << "text \"" << text << "\" max " << maxTokens;
}

TEST(ApplyMaskTest, Table) {
  const std::vector<std::vector<std::string>> cases = {  // text, mask, result
      {"12", "@@@@@@", "    12"}, {"123456", "@@@@@@", "123456"},
      {"1234567", "@@@@@@", "1234567"},  // never cut
      {"", "@@@", "   "}, {"12", " &&&&", " 12"}, {"12", "&&&&", "12"}, {"", " &&&&", " "},
      {"long text", "&", "long text"}, {" 5", "", " 5"}};
  for (const auto& c : cases)
    EXPECT_EQ(applyMask(c[0], c[1]), c[2]) << "text \"" << c[0] << "\" mask \"" << c[1] << "\"";
}

}  // namespace
}  // namespace marloven
