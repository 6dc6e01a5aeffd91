#include "render/map_extent.h"

#include <algorithm>

#include "map/grid/cell_metrics.h"
#include "map/grid/hex_grid.h"

namespace quorvel {

MapRect Intersection(const MapRect& a, const MapRect& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

MapRect MapExtent(const CellGrid& grid, float cellSizePx) {
  constexpr double kSlantWidth = 0.28867512941360474F;  // sqrt(3)/6 as a single
  const CellMetrics metrics = CellMetrics::At(cellSizePx);
  const double width = double{1} * grid.Width() * metrics.columnStep + cellSizePx * kSlantWidth;
  const double height = double{1} * grid.Height() * metrics.height + cellSizePx * 0.5;
  return {0, 0, static_cast<std::int64_t>(width), static_cast<std::int64_t>(height)};
}

std::optional<MapRect> CellsExtent(const CellGrid& grid, float cellSizePx, CellRange range) {
  if (!grid.IsValid(range.first) || !grid.IsValid(range.last)) return std::nullopt;
  const auto [left, right] = std::minmax(range.first.column, range.last.column);
  const auto [top, bottom] = std::minmax(range.first.row, range.last.row);
  // The columns' tops and bottoms come in two heights only: those of two neighbouring columns.
  const std::int32_t other = std::min(left + 1, right);
  const CellMetrics metrics = CellMetrics::At(cellSizePx);
  return MapRect{metrics.Bounds({left, top}).left,
                 std::min(metrics.Bounds({left, top}).top, metrics.Bounds({other, top}).top),
                 metrics.Bounds({right, top}).right,
                 std::max(metrics.Bounds({left, bottom}).bottom, metrics.Bounds({other, bottom}).bottom)};
}

}  // namespace quorvel
