#pragma once

#include <string>

#include "data/member_def.h"
#include "map/grid/hex_grid.h"

namespace quorvel {

/// Sets `out` to the short label of one property of a cell: the first byte of the member's name, a colon and
/// the value ("N:Vega", "W:2.50", "O:(object)"; "<error>" for a position outside the list). `out` keeps its
/// text when the member, the record or its data is missing.
void FormatCellLabel(std::string& out, const MemberDef* member, const CellRecord* record);

}  // namespace quorvel
