#include "ui/view/scroll_place.h"

#include <cmath>
#include <cstdint>

#include "map/grid/cell_metrics.h"
#include "map/grid/hex_grid.h"
#include "render/visible_cells.h"

namespace quorvel {
namespace {

/// A distance from 1 to `from` becomes one from 1 to `to`, so a pixel that a cell owns stays its own.
int Stretched(int distance, int from, int to) {
  return static_cast<int>((std::int64_t{distance} * to + from - 1) / from);
}

/// The corner of the box in which the hit test gives pixels to the cell, which begins one pixel further on.
QPoint HitCorner(const CellMetrics& metrics, CellCoord cell) {
  return {metrics.ColumnLeft(cell.column) + metrics.quarter, metrics.RowTop(cell.column, cell.row)};
}

QPoint Scaled(QPoint point, double factor) {
  return {static_cast<int>(std::floor(point.x() * factor)), static_cast<int>(std::floor(point.y() * factor))};
}

/// From `low` to `high` shall be in sight where `shown` begin at `position`.
int Reached(int position, int shown, int low, int high) {
  if (high > position + shown) position = high - shown;
  return low < position ? low : position;
}

}  // namespace

QPoint ScrolledThroughZoom(const CellGrid& grid, const ScrollPlace& before, QPoint pointer,
                           float cellSizePx) {
  const QPoint point = before.position + pointer;
  const CellCoord cell = grid.HitTest(before.cellSizePx, point.x(), point.y());
  if (!grid.IsValid(cell)) return Scaled(point, double{cellSizePx} / before.cellSizePx) - pointer;

  const CellMetrics from = CellMetrics::At(before.cellSizePx);
  const CellMetrics to = CellMetrics::At(cellSizePx);
  const QPoint within = point - HitCorner(from, cell);
  const QPoint stretched(Stretched(within.x(), from.columnStep, to.columnStep),
                         Stretched(within.y(), from.height, to.height));
  return HitCorner(to, cell) + stretched - pointer;
}

QPoint ScrolledIntoSight(const ScrollPlace& before, QSize viewport, CellCoord cell) {
  const CellBounds bounds = CellMetrics::At(before.cellSizePx).Bounds(cell);
  const auto reached = [](int position, int shown, int low, int high) {
    return Reached(position, shown, low - kInkBeyondBoundsPx, high + kInkBeyondBoundsPx);
  };
  return {reached(before.position.x(), viewport.width(), bounds.left, bounds.right),
          reached(before.position.y(), viewport.height(), bounds.top, bounds.bottom)};
}

}  // namespace quorvel
