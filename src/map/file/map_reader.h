#pragma once

#include <optional>
#include <streambuf>
#include <string>

#include "map/types/map_contents.h"
#include "platform/documents/feedback.h"
#include "platform/files/outcome.h"

namespace quorvel {

/// How the cells of a text form come in: each as it is read, or through a data tree of the whole file. The
/// streamed road is many times faster and gives the same map, but takes only cells in the order and form that
/// a saved map has.
enum class Road { Streamed, Tree };

/// Reads a map of either form, its definitions and then its cells. `file` must be able to seek and is read
/// from its start, whatever its position. Throws std::bad_alloc when memory runs out.
///
/// None: this road does not lead through the file, nothing was added to the error text, and the tree road has
/// to be taken; it never answers none. A file that is refused gives contents without a grid, and at least one
/// line in the error text that says why. Other lines do not keep a map from being usable. A file that could
/// not be read to its end looks like a short one here: ask the stream before the contents are used.
std::optional<MapContents> ReadMap(std::streambuf& file, Road road, Feedback& feedback,
                                   std::string& errorText);

/// Reads a map by the streamed road where it leads through, else by the tree. Input that cannot seek is first
/// taken into memory. Done: `contents` has a grid, though there may be lines in the error text. Refused:
/// `contents` has the types that could be built. NoMemory: it has nothing, and a line says so.
Outcome LoadMapFile(std::streambuf& file, MapContents& contents, Feedback& feedback, std::string& errorText);

}  // namespace quorvel
