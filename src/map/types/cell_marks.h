#pragma once

#include <cstdint>

#include "map/types/map_contents.h"

namespace quorvel {

/// The mark byte of a cell, whose bit 0 says that it is marked; 0 without a grid and outside it.
std::uint8_t IsMarked(const MapContents& map, CellCoord cell);
/// Stores the mark byte of a cell of the grid; anything else changes nothing.
void SetMark(MapContents& map, CellCoord cell, std::uint8_t mark);

}  // namespace quorvel
