#pragma once

#include <cstdint>

namespace quorvel {

/// Place of a cell in a map, from (0, 0) at the top left; (-1, -1) means that there is no cell.
struct CellCoord {
  std::int32_t column = -1;
  std::int32_t row = -1;

  friend bool operator==(const CellCoord&, const CellCoord&) = default;
};

}  // namespace quorvel
