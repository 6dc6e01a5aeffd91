#include "map/grid/cell_metrics.h"

namespace quorvel {
namespace {

// Single-precision constants of the map's geometry: the first is one step above the value nearest to
// sqrt(3)/2, the second the value nearest to sqrt(3)/12. Both move pixels, so they are kept to the bit.
constexpr float kColumnStepPerSize = 0.866025447845459F;
constexpr float kQuarterPerSize = 0.14433756470680237F;

std::int32_t Truncated(double size, double factor) {
  return static_cast<std::int32_t>(size * factor);
}

}  // namespace

CellMetrics CellMetrics::At(float cellSize) {
  return {.height = Truncated(cellSize, 1.0),
          .half = Truncated(cellSize, 0.5),
          .columnStep = Truncated(cellSize, kColumnStepPerSize),
          .quarter = Truncated(cellSize, kQuarterPerSize)};
}

CellBounds CellMetrics::Bounds(CellCoord cell) const {
  const std::int32_t left = ColumnLeft(cell.column);
  const std::int32_t top = RowTop(cell.column, cell.row);
  return {left, top, left + Width(), top + height};
}

CellPolygon CellMetrics::Outline(CellCoord cell) const {
  const std::int32_t left = ColumnLeft(cell.column);
  const std::int32_t right = left + columnStep;
  const std::int32_t slant = 2 * quarter;
  const std::int32_t top = RowTop(cell.column, cell.row);
  const std::int32_t middle = top + half;
  const std::int32_t bottom = middle + half;  // a pixel above the bounds' bottom when the height is odd
  return {{{right + slant, middle},
           {right, top},
           {left + slant, top},
           {left, middle},
           {left + slant, bottom},
           {right, bottom},
           {right - slant, middle}}};
}

}  // namespace quorvel
