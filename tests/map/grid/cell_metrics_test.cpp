#include "map/grid/cell_metrics.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(CellMetrics, FourWholePixelMeasuresOfEverySize) {
  constexpr std::pair<float, std::array<std::int32_t, 4>> rows[] = {
      {10, {10, 5, 8, 1}},
      {15, {15, 7, 12, 2}},
      {25, {25, 12, 21, 3}},
      {40, {40, 20, 34, 5}},
      {100, {100, 50, 86, 14}},
      {10.99F, {10, 5, 9, 1}},  // cut, not rounded
      // Only the constant one step above sqrt(3)/2 gives this column step.
      {16777216, {16777216, 8388608, 14529496, 2421582}},
      {0.5F, {0, 0, 0, 0}}};
  for (const auto& [cellSize, measures] : rows) {
    const auto [height, half, columnStep, quarter] = CellMetrics::At(cellSize);
    EXPECT_EQ((std::array{height, half, columnStep, quarter}), measures) << cellSize;
  }
}

TEST(CellMetrics, OutlineOfOddHeightsAndFarAway) {
  constexpr CellPolygon expected = {{{48, 24}, {42, 12}, {27, 12}, {21, 24}, {27, 36}, {42, 36}, {36, 24}}};
  EXPECT_EQ(CellMetrics::At(25).Outline({1, 0}), expected);
  const CellMetrics metrics = CellMetrics::At(100);
  EXPECT_EQ(metrics.Outline({19'999'999, 0})[0].x, 20'000'000LL * 86 + 28);
  EXPECT_EQ(metrics.Outline({1, 19'999'999})[4].y, 20'000'000LL * 100 + 50);
}

}  // namespace
}  // namespace quorvel
