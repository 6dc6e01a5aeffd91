#include "map/grid/hex_grid.h"

#include <set>
#include <tuple>

#include <gtest/gtest.h>

namespace quorvel {

void PrintTo(const CellCoord& cell, std::ostream* out) {
  *out << '(' << cell.column << ", " << cell.row << ')';
}

namespace {

std::vector<std::int32_t> Indices(const CellGrid& grid) {
  std::vector<std::int32_t> indices;
  for (auto record = grid.Following(-1); record; record = grid.Following(record->index))
    indices.push_back(record->index);
  return indices;
}

TEST(CellGrid, NumbersCellsRowByRow) {
  const CellGrid grid(4, 3);
  for (std::int32_t index = 0; index < grid.CellCount(); ++index)
    EXPECT_EQ(grid.IndexOf(grid.CoordOf(index)), index);
  EXPECT_EQ(grid.CoordOf(6), (CellCoord{2, 1}));
  for (const std::int32_t outside : {-1, 12}) EXPECT_EQ(grid.CoordOf(outside), CellCoord{}) << outside;
  for (const CellCoord outside : {CellCoord{4, 0}, {-1, 1}, {0, 3}, {2, -1}, {}}) {
    EXPECT_EQ(grid.IndexOf(outside), -1);
    EXPECT_FALSE(grid.IsValid(outside));
  }
}

TEST(CellGrid, NeighboursWorkedOutByHand) {
  const CellGrid grid(4, 3);
  EXPECT_EQ(grid.Neighbours(1), (std::array{2, -1, 0, 4, 5, 6}));
  EXPECT_EQ(grid.Neighbours(12), (std::array{-1, -1, -1, -1, -1, -1}));
  for (const int beyond : {-1, 6}) {
    EXPECT_EQ(grid.Neighbour(1, beyond), 1) << "no direction: the cell itself";
    EXPECT_EQ(grid.Neighbour(12, beyond), -1);
  }
}

/// The pixels' own view: a neighbour is the cell under the pixel one step from a cell's centre, and so is the
/// way back.
TEST(CellGrid, NeighboursLieWhereTheirDirectionsPoint) {
  constexpr std::array<PixelPoint, 6> steps = {
      {{34, -20}, {0, -40}, {-34, -20}, {-34, 20}, {0, 40}, {34, 20}}};
  for (const auto& [width, height] : {std::pair{1, 7}, {2, 2}, {7, 1}, {5, 4}, {8, 9}}) {
    const CellGrid grid(width, height);
    for (std::int32_t cell = 0; cell < grid.CellCount(); ++cell) {
      const PixelPoint centre = CellMetrics::At(40).Outline(grid.CoordOf(cell))[6];
      for (int direction = 0; direction < 6; ++direction) {
        SCOPED_TRACE(testing::Message()
                     << "from " << cell << " of " << width << " in direction " << direction);
        const std::int32_t next = grid.Neighbour(cell, direction);
        const CellCoord there =
            grid.HitTest(40, centre.x + steps[direction].x, centre.y + steps[direction].y);
        EXPECT_EQ(grid.CoordOf(next), there);
        EXPECT_TRUE(next < 0 || grid.Neighbour(next, (direction + 3) % 6) == cell);
      }
    }
  }
}

TEST(CellGrid, PolygonAndBounds) {
  const CellGrid grid(3, 2);
  CellPolygon points;
  ASSERT_TRUE(grid.GetCellPolygon(40, {1, 0}, points));
  EXPECT_EQ(points, (CellPolygon{{{78, 40}, {68, 20}, {44, 20}, {34, 40}, {44, 60}, {68, 60}, {58, 40}}}));

  std::int32_t left = 0, top = 0, right = 0, bottom = 0;
  ASSERT_TRUE(grid.GetCellBounds(40, {1, 0}, &left, &top, &right, &bottom));
  EXPECT_EQ(std::tuple(left, top, right, bottom), std::tuple(34, 20, 78, 60));
  ASSERT_TRUE(grid.GetCellBounds(25, {1, 1}, nullptr, &top, nullptr, nullptr));
  EXPECT_EQ(std::tuple(left, top, right, bottom), std::tuple(34, 37, 78, 60));

  EXPECT_FALSE(grid.GetCellPolygon(40, {3, 0}, points));
  EXPECT_FALSE(grid.GetCellBounds(40, {0, -1}, &left, &top, &right, &bottom));
  EXPECT_TRUE((points[0] == PixelPoint{78, 40} && left == 34)) << "nothing is changed outside";
}

/// The hit test as it is defined: steps of one cell at a time. The judge of the one that divides.
CellCoord HitTestByWalking(const CellGrid& grid, float cellSize, std::int32_t x, std::int32_t y) {
  const auto [h, half, columnStep, quarter] = CellMetrics::At(cellSize);
  if (x < quarter || y < 0 || x > grid.Width() * columnStep + quarter || y > grid.Height() * h + half)
    return {};
  std::int32_t dx = x - quarter, column = 0;
  while (dx > columnStep) dx -= columnStep, ++column;
  std::int32_t dy = y - (column % 2 == 1 ? half : 0), row = 0;
  if (dy < 0 || dy > grid.Height() * h) return {};
  while (dy > h) dy -= h, ++row;
  return {column, row};
}

TEST(CellGrid, HitTestAgreesWithWalkingAtEveryPixel) {
  for (const auto& [width, height] : {std::pair{1, 1}, {4, 3}, {5, 2}}) {
    const CellGrid grid(width, height);
    for (const float size : {2.0F, 10.0F, 13.7F, 15.0F, 25.0F, 40.0F}) {
      const CellMetrics metrics = CellMetrics::At(size);
      for (std::int32_t y = -2; y <= (height + 1) * metrics.height; ++y)
        for (std::int32_t x = -2; x <= (width + 1) * metrics.columnStep; ++x)
          ASSERT_EQ(grid.HitTest(size, x, y), HitTestByWalking(grid, size, x, y))
              << size << ": " << x << ", " << y;
    }
  }
}

TEST(CellGrid, HitTestAtTheEdges) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  struct Row {
    std::int32_t width, height;
    float size;
    std::int32_t x, y;
    CellCoord cell;
  };
  constexpr Row rows[] = {
      {20'000'000, 5, 100, 20'000'000 * 86 + 14, 50, {19'999'999, 0}},
      {20'000'000, 5, 100, 20'000'000 * 86 + 15, 50, {}},
      {5, 20'000'000, 100, 14, 2'000'000'000, {0, 19'999'999}},
      {5, 20'000'000, 100, kMost, kMost, {}},
      {4, 3, 0.5F, 0, 0, {}},  // cells without extent own no pixel
  };
  for (const Row& row : rows)
    EXPECT_EQ(CellGrid(row.width, row.height).HitTest(row.size, row.x, row.y), row.cell)
        << row.x << ", " << row.y;
}

TEST(CellGrid, RecordsOfCellsAndOfNone) {
  CellGrid grid(4, 3), other(4, 3);
  const CellRecord record = *grid.FindOrCreate({3, 1});
  EXPECT_EQ((CellCoord{record.column, record.row}), (CellCoord{3, 1}));
  for (const CellCoord outside : {CellCoord{}, {4, 0}, {0, 3}}) EXPECT_FALSE(grid.FindOrCreate(outside));

  grid.SetData(7, ClassInstance{77});
  grid.SetData(6, ClassInstance{66});  // no record to give it to
  EXPECT_EQ(grid.FindOrCreate({3, 1})->data, ClassInstance{77});
  EXPECT_FALSE(grid.Find(6));

  EXPECT_FALSE(other.Remove(record)) << "of another grid";
  grid.Remove(record);
  EXPECT_FALSE(grid.Remove(record)) << "no longer there";
  EXPECT_EQ(grid.FindOrCreate({3, 1})->data, ClassInstance{}) << "a new record begins without data";
  grid.RemoveAll();
  EXPECT_EQ(grid.Count(), 0);
  EXPECT_FALSE(grid.Following(-1));
}

TEST(CellGrid, AgreesWithASetThroughRandomEdits) {
  for (const auto& [width, height] : {std::pair{1, 1}, {8, 8}, {13, 5}, {64, 65}, {10'000, 10'000}}) {
    SCOPED_TRACE(width);
    CellGrid grid(width, height);
    std::set<std::int32_t> model;
    std::uint32_t state = 12'345;
    for (int edit = 0; edit < 2'000; ++edit) {
      state = state * 1'664'525U + 1'013'904'223U;
      const auto index = static_cast<std::int32_t>((state >> 8) % grid.CellCount());
      if (const auto record = grid.Find(index); record && state >> 31 != 0) {
        const auto following = grid.Remove(*record);
        const auto expected = model.erase(model.find(index));
        ASSERT_EQ(following ? following->index : -1, expected == model.end() ? -1 : *expected);
      } else {
        grid.FindOrCreate(grid.CoordOf(index));
        model.insert(index);
      }
      ASSERT_EQ(grid.Count(), static_cast<std::int32_t>(model.size()));
    }
    EXPECT_EQ(Indices(grid), std::vector<std::int32_t>(model.begin(), model.end()));
  }
}

}  // namespace
}  // namespace quorvel
