#include "ui/view/scroll_place.h"

#include <gtest/gtest.h>

#include "map/grid/hex_grid.h"

namespace quorvel {
namespace {

TEST(ScrollPlace, ZoomingKeepsEveryPixelsCell) {
  const CellGrid grid(6, 5);
  for (float from = 10; from <= 100; from += 10) {
    for (float to = 10; to <= 100; to += 10) {
      for (int y = 0; y < 5.5 * from; y += 3) {
        for (int x = 0; x < 5.3 * from; ++x) {
          const CellCoord cell = grid.HitTest(from, x, y);
          if (!grid.IsValid(cell)) continue;
          const QPoint pointer(11, 7);
          const ScrollPlace before = {from, QPoint(x, y) - pointer};
          const QPoint after = ScrolledThroughZoom(grid, before, pointer, to) + pointer;
          ASSERT_EQ(grid.HitTest(to, after.x(), after.y()), cell)
              << x << "," << y << " from " << from << " to " << to;
        }
      }
    }
  }
  EXPECT_EQ(ScrolledThroughZoom(grid, {20, {0, 0}}, {300, 400}, 40), QPoint(300, 400)) << "beside the map";
}

TEST(ScrollPlace, CellsComeIntoSightByTheShortestWay) {
  // At 40 pixels cell (5, 4) lies from (170, 180) to before (214, 220), its ink 2 pixels around.
  constexpr std::tuple<const char*, QPoint, QPoint> rows[] = {
      {"in sight already", {100, 100}, {100, 100}}, {"beyond the right", {0, 100}, {16, 100}},
      {"below the bottom", {100, 0}, {100, 72}},    {"left of it", {169, 100}, {168, 100}},
      {"above it", {100, 300}, {100, 178}},         {"far off", {9000, 9000}, {168, 178}}};
  for (const auto& [what, from, to] : rows)
    EXPECT_EQ(ScrolledIntoSight({40, from}, {200, 150}, {5, 4}), to) << what;
  EXPECT_EQ(ScrolledIntoSight({40, {0, 0}}, {20, 20}, {5, 4}), QPoint(168, 178)) << "a tiny viewport";
}

}  // namespace
}  // namespace quorvel
