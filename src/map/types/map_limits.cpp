#include "map/types/map_limits.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "map/types/error_text.h"

namespace quorvel {
namespace {

/// A grid keeps this many bytes for a cell beside its values: the number of its block, and its mark.
constexpr std::uint64_t kGridBytesACell = 5;

bool CheckSide(std::string_view name, std::int64_t cells, std::string& errorText) {
  if (cells < 1) {
    AppendLine(errorText, "Map {} {} is below 1.", name, cells);
  } else if (cells > kMaxSideCells) {
    AppendLine(errorText, "Map {} {} is above the limit of {} cells a side.", name, cells, kMaxSideCells);
  } else {
    return true;
  }
  return false;
}

}  // namespace

bool CheckMapSize(std::int64_t width, std::int64_t height, std::string& errorText) {
  const bool widthFits = CheckSide("width", width, errorText);
  const bool heightFits = CheckSide("height", height, errorText);
  if (!widthFits || !heightFits) return false;
  if (width * height <= kMaxCells) return true;
  AppendLine(errorText, "Map size {} x {} = {} cells is above the limit of {} cells.", width, height,
             width * height, kMaxCells);
  return false;
}

bool CheckFileSize(FileForm form, std::uint64_t fileBytes, std::string& errorText) {
  const std::uint64_t limit = form == FileForm::Binary ? kMaxBinaryFileBytes : kMaxTextFileBytes;
  if (fileBytes <= limit) return true;
  AppendLine(errorText, "File size {} bytes is above the limit of {} bytes for the {} form.", fileBytes,
             limit, NameOf(form));
  return false;
}

bool CheckCellBlock(std::uint64_t blockBytes, std::string& errorText) {
  if (blockBytes <= kMaxCellBlockBytes) return true;
  AppendLine(errorText, "Values of one cell take {} bytes, above the limit of {} bytes.", blockBytes,
             kMaxCellBlockBytes);
  return false;
}

bool CheckAllBlocks(std::uint64_t cells, std::uint64_t blockBytes, std::string& errorText) {
  if (blockBytes == 0 || cells <= kMaxAllBlocksBytes / blockBytes) return true;
  AppendLine(errorText, "Values of {} cells, {} bytes each, are above the limit of {} bytes.", cells,
             blockBytes, kMaxAllBlocksBytes);
  return false;
}

std::uint64_t MaxLoadedCells(FileForm form, std::uint64_t blockBytes, std::uint64_t fileBytes) {
  if (blockBytes == 0) return std::numeric_limits<std::uint64_t>::max();
  // A binary file's texts are kept as they are, beside the values.
  const std::uint64_t bytesAnInputByte =
      form == FileForm::Binary ? kBinaryLoadBytesAnInputByte - 1 : kTextLoadBytesAnInputByte;
  const std::uint64_t loadBytes = kLoadMemoryBaseBytes + bytesAnInputByte * fileBytes;
  return std::min(kMaxAllBlocksBytes / blockBytes, loadBytes / (blockBytes + kGridBytesACell));
}

bool CheckLoadedCells(FileForm form, std::uint64_t cells, std::uint64_t blockBytes, std::uint64_t fileBytes,
                      std::string& errorText) {
  if (!CheckAllBlocks(cells, blockBytes, errorText)) return false;
  const std::uint64_t limit = MaxLoadedCells(form, blockBytes, fileBytes);
  if (cells <= limit) return true;
  AppendLine(errorText,
             "Values of {} cells, {} bytes each, are above the limit of {} cells for a file of {} bytes.",
             cells, blockBytes, limit, fileBytes);
  return false;
}

}  // namespace quorvel
