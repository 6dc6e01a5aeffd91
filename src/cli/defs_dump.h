#pragma once

#include <string_view>

#include "cli/results.h"
#include "map/types/map_contents.h"

namespace quorvel {

/// Prints `error LINE` for each line of an error text.
void DumpErrors(std::string_view errorText, Results& out);

/// Prints the types in order and the size limits of a new map:
/// `class NAME SIZE`, each followed by `member OFFSET NAME KIND DEFAULT REF` lines;
/// `list NAME ITEMS VALUES`, each followed by `item TEXT` and `value N` lines;
/// `limits RESULT minw minh maxw maxh defw defh`, with "-" for a number that the definitions do not give.
/// Classes are laid out for it, instances are not made.
void DumpDefinitions(const MapContents& contents, Results& out);

}  // namespace quorvel
