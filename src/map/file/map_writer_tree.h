#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "data/data_tree.h"
#include "map/types/map_contents.h"

namespace quorvel {

/// The tree of a map's file of that form without the cells. In the binary form its offsets are 0 until
/// SettleOffsets.
std::unique_ptr<DataBranch> BuildFileTree(const MapContents& contents, FileForm form, std::string_view title);

/// Where the blocks of a binary file begin, in bytes from the start of the file.
struct BlockOffsets {
  std::uint64_t data = 0;
  std::uint64_t text = 0;
};

/// Sets the tree's offsets for a data block of that size; since their digits count themselves, until they are
/// true.
BlockOffsets SettleOffsets(DataBranch& tree, std::uint64_t dataBytes);

}  // namespace quorvel
