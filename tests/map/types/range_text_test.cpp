#include "map/types/range_text.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(ParseRange, SplitsMinimumDefaultMaximum) {
  using Range = NumberDefault<std::string_view>;  // minimum, maximum, default
  constexpr std::pair<const char*, Range> kRows[] = {
      {"2<10<50", {"2", "50", "10"}},
      {"1<1000", {"1", "1000", "0"}},
      {"64", {"0", "64", "0"}},
      {"", {"0", "0", "0"}},
      {"5<3", {"5", "3", "0"}},             // nothing orders the numbers
      {"size:2<10<50", {"2", "50", "10"}},  // a prefix goes, up to the first colon
      {"a:b:7", {"0", "b:7", "0"}},
      {"x:", {"0", "0", "0"}},
      {"array", {"0", "0", "0"}},
      {"x:array", {"0", "0", "0"}},
      {"arrays", {"0", "arrays", "0"}},
      {"<5<6", {"0", "<5<6", "0"}},  // a "<" in first place hides every later one
      {"1<<5", {"1", "<5", "0"}},
      {"1<", {"1", "0", "0"}},
      {"1<2<", {"1", "2", "0"}},  // nothing left: the middle piece stays the maximum
      {"1<2<3<4", {"1", "3<4", "2"}}};
  for (const auto& [text, range] : kRows) EXPECT_EQ(ParseRange(text), range) << text;
}

TEST(ParseKind, IgnoresLetterCaseAndNothingElse) {
  constexpr std::tuple<std::string_view, int, int> kRows[] = {
      // of a definition, of a member
      {"class", 0, -1},  {"CLASS", 0, -1},   {"List", 1, -1},  {"lists", -1, -1},
      {"string", -1, 0}, {"Int", -1, 1},     {"FLOAT", -1, 2}, {"index", -1, 3},
      {"oBject", -1, 4}, {" class", -1, -1}, {"", -1, -1},     {"in", -1, -1}};
  for (const auto& [text, definitionKind, memberKind] : kRows) {
    EXPECT_EQ(ParseDefinitionKind(text), definitionKind) << text;
    EXPECT_EQ(ParseMemberKind(text), memberKind) << text;
  }
}

}  // namespace
}  // namespace quorvel
