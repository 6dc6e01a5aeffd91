#pragma once

#include <cstdint>
#include <streambuf>
#include <string>

#include "data/data_tree.h"
#include "map/file/map_progress.h"
#include "map/types/map_contents.h"

namespace quorvel {

/// Makes the grid and the cells of a binary form from the blocks that the tree points to. `file` can seek.
/// False: the file is refused, and a line in the error text says why.
bool LoadBlocks(std::streambuf& file, std::uint64_t fileBytes, const DataBranch& tree, MapContents& contents,
                MapProgress& progress, std::string& errorText);

}  // namespace quorvel
