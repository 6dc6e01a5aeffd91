#pragma once

#include <array>
#include <cstdint>

#include "platform/documents/cell_coord.h"

namespace quorvel {

/// A point in map pixels: from the top left corner of the whole map, before scrolling.
struct PixelPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;

  friend bool operator==(const PixelPoint&, const PixelPoint&) = default;
};

/// From a cell's left tip to its right one, and a cell's height; right and bottom are exclusive. At odd sizes
/// the outline ends a pixel above the bottom.
struct CellBounds {
  std::int32_t left, top, right, bottom;
};

/// Outline of a cell: its six corners counter-clockwise from the right tip (right tip, right and left end of
/// the top edge, left tip, left and right end of the bottom edge), then its centre.
using CellPolygon = std::array<PixelPoint, 7>;

/// The whole-pixel measures of flat-top cells of one size, from which every place on a map is summed.
/// Valid cell places at sizes up to 100 pixels stay below 2^31 for maps of 20,000,000 cells a side.
struct CellMetrics {
  std::int32_t height;      ///< of a cell, trunc(s)
  std::int32_t half;        ///< by which odd columns sit lower, trunc(s / 2)
  std::int32_t columnStep;  ///< from one column's left tips to the next's, trunc(s * sqrt(3)/2)
  std::int32_t quarter;     ///< half the width of a slanted edge, trunc(s * sqrt(3)/12)

  /// The measures at `cellSize` pixels of cell height. Products are formed in double and truncated toward
  /// zero.
  static CellMetrics At(float cellSize);

  std::int32_t ColumnLeft(std::int32_t column) const { return column * columnStep; }
  std::int32_t ColumnOffset(std::int32_t column) const { return column % 2 != 0 ? half : 0; }
  std::int32_t RowTop(std::int32_t column, std::int32_t row) const {
    return row * height + ColumnOffset(column);
  }

  /// Left tip to right tip.
  std::int32_t Width() const { return columnStep + 2 * quarter; }

  CellBounds Bounds(CellCoord cell) const;
  CellPolygon Outline(CellCoord cell) const;
};

}  // namespace quorvel
