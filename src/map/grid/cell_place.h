#pragma once

#include <optional>
#include <string_view>

#include "platform/documents/cell_coord.h"

namespace quorvel {

class CellGrid;

/// The cell of the grid that a user means by "12:40", its column and row, or by "481", its index; blanks
/// around a number do not matter. None for any other text and for a place outside the grid.
std::optional<CellCoord> ParseCellPlace(std::string_view text, const CellGrid& grid);

}  // namespace quorvel
