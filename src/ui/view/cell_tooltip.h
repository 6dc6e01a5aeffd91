#pragma once

#include <QString>

#include "platform/documents/cell_coord.h"

namespace quorvel {

struct MapContents;
struct MapLook;

/// What a tooltip over the cell says, as plain text: its whole label, where the map shows a part of it or
/// none. Empty where it can be read on the map, where there is no label and no cell.
QString CellTooltip(const MapContents& map, const MapLook& look, CellCoord cell);

}  // namespace quorvel
