#pragma once

#include <array>
#include <cstdint>

#include "map/grid/cell_metrics.h"
#include "render/map_extent.h"
#include "render/pixel_scale.h"

namespace quorvel {

class CellGrid;

/// Columns and rows, the ends included; no cell where an end lies before its beginning.
struct CellSpan {
  std::int32_t firstColumn;
  std::int32_t lastColumn;
  std::int32_t firstRow;
  std::int32_t lastRow;
};

/// What the pen may pass the bounds of a cell by, in map pixels: half its width, and what rounding adds.
constexpr int kInkBeyondBoundsPx = 2;

/// All cells whose ink can meet `part` (device pixels), found by arithmetic, and possibly a row or a column
/// more.
CellSpan VisibleCells(const CellGrid& grid, const CellMetrics& metrics, PixelScale scale,
                      const MapRect& part);

/// The margins around the cells in device pixels, as far as they lie in `part`; some may be empty. On the
/// left they are as wide as a slant, at the top as high as odd columns sit lower; at the right and at the
/// bottom they begin where the last column's slants and the last row of even columns do.
std::array<MapRect, 4> Margins(const CellGrid& grid, const CellMetrics& metrics, PixelScale scale,
                               const MapRect& part);

}  // namespace quorvel
