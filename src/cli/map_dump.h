#pragma once

#include "cli/results.h"
#include "map/types/map_contents.h"

namespace quorvel {

/// Prints `form text|binary`, `width N` and `height N` ("none" without a grid), and in ascending order for
/// each record `record INDEX VALUE...` with one value for each member of the cell class, "-" for an object
/// member.
void DumpMap(const MapContents& contents, Results& out);

}  // namespace quorvel
