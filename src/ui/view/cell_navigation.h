#pragma once

#include <optional>

namespace quorvel {

/// The direction (see CellGrid::Neighbour) in which Alt and a key leave a cell of this column; none for other
/// keys. The arrows go up, down, and along the row; Home, End, PageUp and PageDown, which lie around the
/// arrows of a numeric pad, go to the upper left, lower left, upper right and lower right.
std::optional<int> DirectionOfKey(int key, int column);

}  // namespace quorvel
