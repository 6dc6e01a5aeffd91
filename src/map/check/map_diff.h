#pragma once

#include <functional>
#include <string>

#include "map/types/map_contents.h"

namespace quorvel {

/// Takes the lines of a comparison one by one, without line ends.
using LineSink = std::function<void(const std::string& line)>;

/// Compares two maps that have a grid and tells every difference: `size: WxH -> WxH`, then `member NAME: only
/// in A` (or B, or `member NAME: KIND -> KIND`), then the cells in ascending order as `INDEX(COLUMN:ROW)
/// MEMBER: OLD -> NEW`. True when there is none.
///
/// Cells are matched by coordinate, as far as both maps reach, and INDEX is that of `a`. Members are matched
/// by name, equal names by their order, and compared by bits; a cell without a record counts with its
/// defaults, objects have no value. Values are formatted as the editor shows them, control bytes in them and
/// in names as %XX.
bool DiffMaps(const MapContents& a, const MapContents& b, const LineSink& report);

}  // namespace quorvel
