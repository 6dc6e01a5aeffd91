#include "map/grid/cell_metrics.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

struct Row {
  float cellSize;
  std::int32_t height, half, columnStep, quarter;
};

TEST(CellMetrics, FourWholePixelMeasuresOfEverySize) {
  constexpr Row rows[] = {{10, 10, 5, 8, 1},
                          {15, 15, 7, 12, 2},
                          {20, 20, 10, 17, 2},
                          {25, 25, 12, 21, 3},
                          {40, 40, 20, 34, 5},
                          {100, 100, 50, 86, 14},
                          {10.99F, 10, 5, 9, 1},  // cut, not rounded
                          {16777216, 16777216, 8388608, 14529496,
                           2421582},  // only the constant one step above sqrt(3)/2 gives the step
                          {0.5F, 0, 0, 0, 0}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.cellSize);
    const CellMetrics metrics = CellMetrics::At(row.cellSize);
    EXPECT_EQ(metrics.height, row.height);
    EXPECT_EQ(metrics.half, row.half);
    EXPECT_EQ(metrics.columnStep, row.columnStep);
    EXPECT_EQ(metrics.quarter, row.quarter);
  }
}

TEST(CellMetrics, OutlineAndBottomOfOddHeights) {
  const CellMetrics metrics = CellMetrics::At(25);
  constexpr CellPolygon expected = {{{48, 24}, {42, 12}, {27, 12}, {21, 24}, {27, 36}, {42, 36}, {36, 24}}};
  EXPECT_EQ(metrics.Outline({1, 0}), expected);
  EXPECT_EQ(metrics.RowTop(1, 0) + metrics.height, 37);  // the bounds end a pixel below the outline
}

TEST(CellMetrics, FarthestCellsStayInRange) {
  const CellMetrics metrics = CellMetrics::At(100);
  EXPECT_EQ(metrics.Outline({19'999'999, 0})[0].x, 20'000'000LL * 86 + 28);
  EXPECT_EQ(metrics.Outline({1, 19'999'999})[4].y, 20'000'000LL * 100 + 50);
}

}  // namespace
}  // namespace quorvel
