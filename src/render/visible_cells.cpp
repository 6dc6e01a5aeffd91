#include "render/visible_cells.h"

#include <algorithm>
#include <cmath>

#include "map/grid/hex_grid.h"

namespace quorvel {
namespace {

struct Range {
  std::int32_t first;
  std::int32_t last;
};

/// Those of `count` bands, `step` map pixels apart and `size` wide, that can meet device pixels from `begin`
/// to before `end`.
Range BandsBetween(std::int64_t begin, std::int64_t end, double ratio, int step, int size,
                   std::int32_t count) {
  const double beyond = kInkBeyondBoundsPx + 1;
  const double first = std::floor((static_cast<double>(begin) / ratio - size - beyond) / step);
  const double last = std::floor((static_cast<double>(end) / ratio + beyond) / step);
  return {static_cast<std::int32_t>(std::clamp(first, 0.0, static_cast<double>(count))),
          static_cast<std::int32_t>(std::clamp(last, -1.0, count - 1.0))};
}

}  // namespace

CellSpan VisibleCells(const CellGrid& grid, const CellMetrics& metrics, PixelScale scale,
                      const MapRect& part) {
  const Range columns =
      BandsBetween(part.left, part.right, scale.ratio, metrics.columnStep, metrics.Width(), grid.Width());
  const Range rows = BandsBetween(part.top, part.bottom, scale.ratio, metrics.height,
                                  metrics.height + metrics.half, grid.Height());
  return {columns.first, columns.last, rows.first, rows.last};
}

std::array<MapRect, 4> Margins(const CellGrid& grid, const CellMetrics& metrics, PixelScale scale,
                               const MapRect& part) {
  MapRect left = part;
  left.right = std::min(part.right, scale.At(2 * metrics.quarter + 1));
  MapRect top = part;
  top.bottom = std::min(part.bottom, scale.At(metrics.half + 1));
  MapRect right = part;
  right.left = std::max(part.left, scale.At(std::int64_t{grid.Width()} * metrics.columnStep));
  MapRect bottom = part;
  bottom.top = std::max(part.top, scale.At(std::int64_t{grid.Height()} * metrics.height));
  return {left, top, right, bottom};
}

}  // namespace quorvel
