#include "map/types/map_contents.h"

#include <new>

#include <gtest/gtest.h>

#include "map/types/map_limits.h"
#include "tests/map/failing_memory.h"
#include "tests/map/map_samples.h"

namespace quorvel {
namespace {

TEST(MapContents, CreateCellMakesOneFreshInstanceACell) {
  MapContents contents = ContentsOf(SampleClasses());
  EXPECT_FALSE(CreateCell(contents, {0, 0}));  // no grid yet
  MakeGrid(contents, 2, 2);
  SetValue(contents, 3, "Count", "8");
  const auto again = CreateCell(contents, {1, 1});
  ASSERT_TRUE(again);
  std::string value;
  const MemberDef* count = contents.m_pCellClass->FindMember("Count");
  count->FormatValue(value, count->GetValuePtr(again->data));
  EXPECT_EQ(value, "5");
  EXPECT_EQ(contents.m_pCellClass->CountInstances(), 1U);  // the earlier one has ended
  EXPECT_EQ(contents.m_pGrid->Find(3)->data, again->data);
  EXPECT_FALSE(CreateCell(contents, {2, 0}));
}

TEST(MapContents, WantOfMemoryLeavesTheCellAndTheGridAsTheyWere) {
  const auto refusals = [](auto act, auto check) {
    return RefusalsOf(
        [&] {
          try {
            act();
            return true;
          } catch (const std::bad_alloc&) {
            return false;
          }
        },
        check);
  };
  MapContents contents = ContentsOf(SampleClasses());
  EXPECT_GT(refusals([&] { MakeGrid(contents, 100, 100); },
                     [&](bool) { EXPECT_EQ(!contents.m_pGrid, !contents.m_pCellMarks); }),
            0);
  EXPECT_GT(refusals(
                [&] {
                  CreateCell(contents, {99, 99});
                },
                [&](bool isDone) { EXPECT_EQ(contents.m_pGrid->Count(), isDone ? 1 : 0); }),
            0);
  EXPECT_EQ(contents.m_pCellClass->CountInstances(), 1U);
}

TEST(MapContents, AFullMapMustHoldAllItsValues) {
  std::string definitions = Lines("[Classes/Map] type='class' [Classes/Cell] type='class'");
  for (int i = 0; i < 1100; ++i) definitions += Lines("[Classes/Cell/m" + std::to_string(i) + "] type='int'");
  const MapContents contents = ContentsOf(definitions);
  std::string errorText;
  EXPECT_TRUE(CheckMap(contents, 1000, 1000, errorText));
  EXPECT_TRUE(CheckFullMap(contents, 1000, 976, errorText));
  EXPECT_EQ(errorText, "");
  EXPECT_FALSE(CheckFullMap(contents, 1000, 977, errorText));
  EXPECT_EQ(errorText, "Values of 977000 cells, 4400 bytes each, are above the limit of 4294967296 bytes.\n");
}

}  // namespace
}  // namespace quorvel
