#pragma once

#include "cli/results.h"
#include "map/types/map_contents.h"

namespace quorvel {

/// Prints for a person what a map holds: form, size, records, types, and each property with what its values
/// are.
void PrintSummary(const MapContents& contents, Results& out);

}  // namespace quorvel
