#pragma once

#include <cstdint>
#include <optional>

#include "platform/documents/cell_coord.h"

namespace quorvel {

class CellGrid;

/// A part of a map's plane, in map or device pixels; right and bottom are exclusive. 64 bits: the longest map
/// is 1,720,000,000 map pixels wide.
struct MapRect {
  std::int64_t left = 0;
  std::int64_t top = 0;
  std::int64_t right = 0;
  std::int64_t bottom = 0;

  std::int64_t Width() const { return right - left; }
  std::int64_t Height() const { return bottom - top; }
  bool IsEmpty() const { return right <= left || bottom <= top; }

  friend bool operator==(const MapRect&, const MapRect&) = default;
};

MapRect Intersection(const MapRect& a, const MapRect& b);

/// The cells of a rectangle of columns and rows, both corners included.
struct CellRange {
  CellCoord first;
  CellCoord last;
};

/// The whole map in map pixels, as far as a view scrolls: width * column step + s * sqrt(3)/6 by
/// height * cell height + s / 2, truncated.
MapRect MapExtent(const CellGrid& grid, float cellSizePx);

/// The smallest rectangle that holds the bounds of the cells of `range`, in map pixels. None when a corner
/// lies outside the grid; the corners may be any two opposite ones.
std::optional<MapRect> CellsExtent(const CellGrid& grid, float cellSizePx, CellRange range);

}  // namespace quorvel
