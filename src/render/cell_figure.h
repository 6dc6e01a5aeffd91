#pragma once

#include <array>

#include <QPoint>
#include <QRect>

#include "map/grid/cell_metrics.h"
#include "render/pixel_scale.h"

namespace quorvel {

/// Moves each coordinate of every point by `d` away from point 6, the centre; a coordinate that equals the
/// centre's stays.
void GrowOutline(CellPolygon& points, int d);

/// Where a cell's lines lie, in device pixels from the cell's corner, the left top of its bounds. At whole
/// pixel ratios it is the same for all cells; at others it depends on how the corner's place was rounded.
struct CellFigure {
  std::array<QPoint, 6> body;  ///< the outline shrunk by one map pixel, which pen, brush and mark follow
  std::array<QPoint, 6> rim;   ///< the outline, which the current cell's rim follows
  QRect label;                 ///< holds the label, which is clipped to it

  static CellFigure Of(CellCoord cell, const CellMetrics& metrics, PixelScale scale);

  friend bool operator==(const CellFigure&, const CellFigure&) = default;
};

/// The device pixel of the cell's corner, in the whole map.
struct CellCorner {
  std::int64_t x = 0;
  std::int64_t y = 0;

  static CellCorner Of(CellCoord cell, const CellMetrics& metrics, PixelScale scale) {
    return {scale.At(metrics.ColumnLeft(cell.column)), scale.At(metrics.RowTop(cell.column, cell.row))};
  }
};

}  // namespace quorvel
