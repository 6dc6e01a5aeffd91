#include "render/cell_figure.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(GrowOutline, MovesCornersTowardTheCentreByBothCoordinates) {
  CellPolygon points = CellMetrics::At(40).Outline({1, 0});
  GrowOutline(points, -1);
  // Tips keep the centre's y; the centre stays.
  const CellPolygon expected = {{{77, 40}, {67, 21}, {45, 21}, {35, 40}, {45, 59}, {67, 59}, {58, 40}}};
  EXPECT_EQ(points, expected);
  GrowOutline(points, +1);
  EXPECT_EQ(points, CellMetrics::At(40).Outline({1, 0}));
}

TEST(CellFigure, IsTheSameForAllCellsAtWholeRatios) {
  const CellMetrics metrics = CellMetrics::At(30);
  for (const double ratio : {1.0, 2.0}) {
    for (const CellCoord cell : {CellCoord{1, 0}, {2, 7}, {999, 998}})
      EXPECT_EQ(CellFigure::Of(cell, metrics, {ratio}), CellFigure::Of({0, 0}, metrics, {ratio})) << ratio;
  }
}

TEST(CellFigure, InsetsTheLabel) {
  EXPECT_EQ(CellFigure::Of({0, 0}, CellMetrics::At(10), {1}).label, QRect(2, 4, 6, 2));
  EXPECT_EQ(CellFigure::Of({3, 5}, CellMetrics::At(100), {1}).label, QRect(28, 4, 58, 92));
  EXPECT_EQ(CellFigure::Of({0, 0}, CellMetrics::At(10), {1.5}).label, QRect(3, 6, 9, 3));
}

/// Neighbours' corners fall on the same device pixel, whatever was rounded.
TEST(CellFigure, MeetsItsNeighboursAtBrokenRatios) {
  const CellMetrics metrics = CellMetrics::At(70);
  for (const double ratio : {1.25, 1.5, 1.7}) {
    for (int column = 0; column < 40; ++column) {
      const PixelScale scale{ratio};
      const auto right = CellCorner::Of({column, 0}, metrics, scale).x +
                         CellFigure::Of({column, 0}, metrics, scale).rim[1].x();  // right end of the top edge
      EXPECT_EQ(right, CellCorner::Of({column + 1, 0}, metrics, scale).x) << ratio << " " << column;
    }
  }
}

}  // namespace
}  // namespace quorvel
