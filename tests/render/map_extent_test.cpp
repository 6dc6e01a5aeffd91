#include "render/map_extent.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "map/grid/hex_grid.h"

namespace quorvel {
namespace {

TEST(MapExtent, IsThatOfTheScrollBars) {
  EXPECT_EQ(MapExtent(CellGrid(10, 5), 40), (MapRect{0, 0, 351, 220}));
  EXPECT_EQ(MapExtent(CellGrid(1000, 1000), 100), (MapRect{0, 0, 86028, 100050}));
  EXPECT_EQ(MapExtent(CellGrid(20'000'000, 5), 100).right, 1'720'000'028);
}

TEST(CellsExtent, HoldsTheBoundsOfAllItsCells) {
  const CellGrid grid(6, 6);
  const float size = 30;
  const CellCoord corners[] = {{0, 0}, {1, 0}, {3, 1}, {2, 2}, {4, 5}, {5, 5}, {3, 3}};
  for (const CellCoord a : corners) {
    for (const CellCoord b : corners) {
      SCOPED_TRACE(testing::Message() << a.column << ":" << a.row << " to " << b.column << ":" << b.row);
      MapRect expected{1 << 20, 1 << 20, 0, 0};
      for (int index = 0; index < grid.CellCount(); ++index) {
        const CellCoord cell = grid.CoordOf(index);
        if (cell.column !=
                std::clamp(cell.column, std::min(a.column, b.column), std::max(a.column, b.column)) ||
            cell.row != std::clamp(cell.row, std::min(a.row, b.row), std::max(a.row, b.row)))
          continue;
        int left = 0, top = 0, right = 0, bottom = 0;
        grid.GetCellBounds(size, cell, &left, &top, &right, &bottom);
        expected = {std::min<std::int64_t>(expected.left, left), std::min<std::int64_t>(expected.top, top),
                    std::max<std::int64_t>(expected.right, right),
                    std::max<std::int64_t>(expected.bottom, bottom)};
      }
      EXPECT_EQ(CellsExtent(grid, size, {a, b}), expected);
    }
  }
  EXPECT_FALSE(CellsExtent(grid, size, {{0, 0}, {6, 0}}));
  EXPECT_FALSE(CellsExtent(grid, size, {{-1, -1}, {2, 2}}));
}

}  // namespace
}  // namespace quorvel
