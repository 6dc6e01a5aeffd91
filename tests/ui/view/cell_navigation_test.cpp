#include "ui/view/cell_navigation.h"

#include <set>

#include <QtCore/qnamespace.h>
#include <gtest/gtest.h>

#include "map/grid/hex_grid.h"

namespace quorvel {
namespace {

CellCoord Moved(const CellGrid& grid, CellCoord cell, int key) {
  return grid.CoordOf(grid.Neighbour(grid.IndexOf(cell), DirectionOfKey(key, cell.column).value()));
}

TEST(CellNavigation, KeysReachAllSixNeighboursAndBack) {
  struct Row {
    Qt::Key key, back;
    CellCoord fromEven, fromOdd;  // relative to the cell left
  };
  constexpr Row rows[] = {{Qt::Key_Up, Qt::Key_Down, {0, -1}, {0, -1}},
                          {Qt::Key_Right, Qt::Key_Left, {1, 0}, {1, 0}},
                          {Qt::Key_PageUp, Qt::Key_End, {1, -1}, {1, 0}},
                          {Qt::Key_PageDown, Qt::Key_Home, {1, 0}, {1, 1}}};
  const CellGrid grid(9, 9);
  for (const CellCoord start : {CellCoord{4, 4}, CellCoord{5, 4}}) {
    std::set<int> reached;
    for (const Row& row : rows) {
      SCOPED_TRACE(row.key);
      const CellCoord step = start.column == 4 ? row.fromEven : row.fromOdd;
      const CellCoord moved = Moved(grid, start, row.key);
      EXPECT_EQ(moved, (CellCoord{start.column + step.column, start.row + step.row}));
      EXPECT_EQ(Moved(grid, moved, row.back), start);
      reached.insert(grid.IndexOf(moved));
      reached.insert(grid.IndexOf(Moved(grid, start, row.back)));
    }
    EXPECT_EQ(reached.size(), 6U);
  }
  EXPECT_FALSE(DirectionOfKey(Qt::Key_Space, 0));
}

}  // namespace
}  // namespace quorvel
