#include "map/grid/cell_label.h"

#include <gtest/gtest.h>

#include "tests/map/map_samples.h"

namespace quorvel {
namespace {

TEST(FormatCellLabel, ShowsEachKindInItsWay) {
  MapContents contents = EmptySampleMap(1, 1);
  constexpr std::tuple<const char*, const char*, const char*> kRows[] = {
      {"Name", "Vega", "N:Vega"},    {"Name", "", "N:"},         {"Count", "-3", "C:-3"},
      {"Weight", "2.125", "W:2.12"}, {"Kind", "2", "K:hole"},    {"Weight", "-1e999", "W:-inf"},
      {"Kind", "3", "K:<error>"},    {"Kind", "-1", "K:<error>"}};
  for (const auto& [member, value, expected] : kRows) {
    SetValue(contents, 0, member, value);
    const auto record = contents.m_pGrid->Find(0);
    std::string label = "before";
    FormatCellLabel(label, Member(contents, member), &*record);
    EXPECT_EQ(label, expected);
  }
  const auto record = contents.m_pGrid->Find(0);
  std::string label;
  FormatCellLabel(label, Member(contents, "Part"), &*record);
  EXPECT_EQ(label, "P:(object)");
}

TEST(FormatCellLabel, KeepsTheTextWhereThereIsNothingToShow) {
  MapContents contents = EmptySampleMap(1, 1);
  const auto bare = contents.m_pGrid->FindOrCreate({0, 0});
  const MemberDef* member = Member(contents, "Name");
  std::string label = "before";
  FormatCellLabel(label, member, nullptr);
  FormatCellLabel(label, member, &*bare);
  FormatCellLabel(label, nullptr, &*bare);
  EXPECT_EQ(label, "before");
}

}  // namespace
}  // namespace quorvel
