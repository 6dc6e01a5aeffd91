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
  struct Row {
    const char* what;
    QPoint from, to;
    CellCoord cell;
  };
  // At 40 pixels cell (5, 4) lies from (170, 180) to before (214, 220), its ink 2 pixels around.
  constexpr Row rows[] = {
      {"in sight already", {100, 100}, {100, 100}, {5, 4}}, {"beyond the right", {0, 100}, {16, 100}, {5, 4}},
      {"below the bottom", {100, 0}, {100, 72}, {5, 4}},    {"left of it", {169, 100}, {168, 100}, {5, 4}},
      {"above it", {100, 300}, {100, 178}, {5, 4}},         {"far off", {9000, 9000}, {168, 178}, {5, 4}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(ScrolledIntoSight({40, row.from}, {200, 150}, row.cell), row.to);
  }
  EXPECT_EQ(ScrolledIntoSight({40, {0, 0}}, {20, 20}, {5, 4}), QPoint(168, 178)) << "a tiny viewport";
}

}  // namespace
}  // namespace quorvel
