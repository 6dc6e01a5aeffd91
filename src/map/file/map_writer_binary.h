#pragma once

#include <cstdint>
#include <streambuf>

#include "map/file/map_progress.h"
#include "map/types/map_contents.h"

namespace quorvel {

/// Bytes of the block that holds width, height, count and every cell's values.
std::uint64_t MeasureDataBlock(const MapContents& contents);

/// Bytes of the block that holds every cell's texts; stops counting above `limit`.
std::uint64_t MeasureTextBlock(const MapContents& contents, std::uint64_t limit);

/// Writes both blocks, the data block first. The texts must be below 4 GiB in all.
void WriteBlocks(const MapContents& contents, std::streambuf& out, MapProgress& progress);

}  // namespace quorvel
