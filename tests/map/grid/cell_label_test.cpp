#include "map/grid/cell_label.h"

#include <gtest/gtest.h>

#include "tests/map/map_samples.h"

namespace quorvel {
namespace {

TEST(FormatCellLabel, ShowsEachKindInItsWay) {
  MapContents contents = ContentsOf(SampleClasses());
  MakeGrid(contents, 1, 1);
  struct Row {
    const char *member, *value, *label;
  };
  constexpr Row kRows[] = {{"Name", "Vega", "N:Vega"},     {"Name", "", "N:"},
                           {"Count", "-3", "C:-3"},        {"Weight", "2.125", "W:2.12"},
                           {"Weight", "-1e999", "W:-inf"}, {"Kind", "2", "K:hole"},
                           {"Kind", "3", "K:<error>"},     {"Kind", "-1", "K:<error>"},
                           {"Part", "", "P:(object)"}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.label);
    if (std::string_view(row.member) == "Part") {
      CreateCell(contents, {0, 0});
    } else {
      SetValue(contents, 0, row.member, row.value);
    }
    const auto record = contents.m_pGrid->Find(0);
    std::string label = "before";
    FormatCellLabel(label, contents.m_pCellClass->FindMember(row.member), &*record);
    EXPECT_EQ(label, row.label);
  }
}

TEST(FormatCellLabel, KeepsTheTextWhereThereIsNothingToShow) {
  MapContents contents = ContentsOf(SampleClasses());
  MakeGrid(contents, 1, 1);
  const auto bare = contents.m_pGrid->FindOrCreate({0, 0});
  const MemberDef* member = contents.m_pCellClass->FindMember("Name");
  std::string label = "before";
  FormatCellLabel(label, member, nullptr);
  FormatCellLabel(label, member, &*bare);
  FormatCellLabel(label, nullptr, &*bare);
  EXPECT_EQ(label, "before");
}

}  // namespace
}  // namespace quorvel
