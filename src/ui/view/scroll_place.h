#pragma once

#include <QPoint>
#include <QSize>

#include "platform/documents/cell_coord.h"

namespace quorvel {

class CellGrid;

/// What of a map a view shows: the cell size, and the map pixel in its top left corner.
struct ScrollPlace {
  float cellSizePx;
  QPoint position;
};

// Both answers may lie outside what there is to scroll.

/// The scroll position at another cell size, at which `pointer` (in the viewport) is over the same cell as
/// before, at the same place within it. Beside the map the distance from its corner grows with the cells.
QPoint ScrolledThroughZoom(const CellGrid& grid, const ScrollPlace& before, QPoint pointer, float cellSizePx);

/// The scroll position nearest to the one before at which the cell is in sight whole, or its left top as far
/// as it is larger than the viewport.
QPoint ScrolledIntoSight(const ScrollPlace& before, QSize viewport, CellCoord cell);

}  // namespace quorvel
