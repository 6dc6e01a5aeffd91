#include "map/file/map_reader_binary.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "data/c_numbers.h"
#include "data/slot.h"
#include "map/file/map_file_layout.h"
#include "map/types/error_text.h"
#include "map/types/map_limits.h"

namespace quorvel {
namespace {

constexpr std::int64_t kChunkBytes = 256 * 1024;

std::int64_t OffsetLeaf(const DataBranch& tree, std::string_view path) {
  const DataLeaf* leaf = tree.FindLeaf(path);
  return leaf ? ToInt(leaf->GetValue()) : 0;
}

template <class... Values>
bool Refuse(std::string& errorText, fmt::format_string<Values...> format, Values&&... values) {
  AppendLine(errorText, format, std::forward<Values>(values)...);
  return false;
}

bool ReadBytes(std::streambuf& file, void* to, std::int64_t count, std::string& errorText) {
  return file.sgetn(static_cast<char*>(to), count) == count ||
         Refuse(errorText, "The file ended within its data block.");
}

bool ReadHead(std::streambuf& file, std::int64_t fileBytes, std::int64_t dataOffset, BlockHead& head,
              std::string& errorText) {
  if (dataOffset < 0 || dataOffset + kBlockHeadBytes > fileBytes) {
    return Refuse(errorText, "Data block offset {} leaves no room for the size in a file of {} bytes.",
                  dataOffset, fileBytes);
  }
  file.pubseekpos(dataOffset, std::ios_base::in);
  return ReadBytes(file, &head, sizeof head, errorText);
}

/// Whether a map of this size is legal and its values can all lie in the file.
bool CheckHead(const BlockHead& head, const MapContents& contents, std::int64_t dataOffset,
               std::int64_t fileBytes, std::string& errorText) {
  if (!CheckMap(contents, head.width, head.height, errorText)) return false;
  const std::int64_t cells = std::int64_t{head.width} * head.height;
  if (head.count != cells) {
    return Refuse(errorText, "Cell count {} is not {} x {} = {}.", head.count, head.width, head.height,
                  cells);
  }
  const std::int64_t dataEnd = dataOffset + DataBlockBytes(cells, contents.m_pCellClass);
  if (dataEnd > fileBytes) {
    return Refuse(errorText, "The values of {} cells end at {}, past the end of a file of {} bytes.", cells,
                  dataEnd, fileBytes);
  }
  return CheckLoadedCells(FileForm::Binary, static_cast<std::uint64_t>(cells), CellBlockBytes(contents),
                          static_cast<std::uint64_t>(fileBytes), errorText);
}

/// Everything from the text block to the end of the file, taken as it is. A text is then found by its offset,
/// however many cells share it and wherever its end may be.
class AdoptedTexts {
 public:
  AdoptedTexts(std::streambuf& file, std::int64_t fileBytes, std::int64_t textOffset, ClassDef& cellClass)
      : fileBytes_(fileBytes),
        textOffset_(textOffset),
        start_(std::clamp<std::int64_t>(textOffset, 0, fileBytes)),
        places_(StringPlaces(cellClass)) {
    if (places_.empty() || start_ == fileBytes) return;
    file.pubseekpos(start_, std::ios_base::in);
    base_ = cellClass.Texts().Adopt(file, static_cast<std::uint32_t>(fileBytes - start_));
  }

  /// Makes handles of the offsets in a cell's row. False: a text lies outside the file.
  bool TurnIntoHandles(std::int32_t index, std::byte* row, std::string& errorText) const {
    for (const StringPlace& place : places_) {
      const std::int64_t start = textOffset_ + LoadSlot<std::uint32_t>(row + place.packedOffset);
      if (start < 0 || start >= fileBytes_) {
        return Refuse(errorText, "The text \"{}\" of cell {} starts at {}, outside a file of {} bytes.",
                      place.member->GetName(), index, start, fileBytes_);
      }
      const TextHandle handle = TextArena::At(base_, static_cast<std::uint32_t>(start - start_));
      StoreSlot(row + place.packedOffset, handle);
    }
    return true;
  }

 private:
  const std::int64_t fileBytes_;
  const std::int64_t textOffset_;  ///< as the file gives it
  const std::int64_t start_;       ///< of what was taken
  const std::vector<StringPlace> places_;
  TextHandle base_ = TextHandle::Empty;
};

void StoreRow(const std::byte* row, const std::vector<BlockRun>& runs, std::byte* block) {
  for (const BlockRun& run : runs)
    std::memcpy(block + run.blockOffset, row + run.packedOffset, static_cast<std::size_t>(run.bytes));
}

/// Reads the values of all cells from where the file stands.
bool ReadRows(std::streambuf& file, std::int32_t count, const AdoptedTexts& texts, MapContents& contents,
              MapProgress& progress, std::string& errorText) {
  ClassDef& cellClass = *contents.m_pCellClass;
  const std::vector<BlockRun> runs = cellClass.PackedRuns();
  const std::int64_t rowBytes = cellClass.PackedSize();
  const std::int64_t rowsAtOnce =
      std::max<std::int64_t>(1, kChunkBytes / std::max<std::int64_t>(rowBytes, 1));
  std::vector<std::byte> chunk(static_cast<std::size_t>(rowsAtOnce * rowBytes));
  for (std::int32_t first = 0; first < count; first += static_cast<std::int32_t>(rowsAtOnce)) {
    const auto rows = static_cast<std::int32_t>(std::min<std::int64_t>(rowsAtOnce, count - first));
    if (!ReadBytes(file, chunk.data(), rows * rowBytes, errorText)) return false;
    // New instances have successive numbers.
    auto instance = static_cast<std::uint32_t>(cellClass.CreateInstances(static_cast<std::uint32_t>(rows)));
    std::byte* row = chunk.data();
    for (std::int32_t index = first; index < first + rows; ++index, ++instance, row += rowBytes) {
      if (!texts.TurnIntoHandles(index, row, errorText)) return false;
      contents.m_pGrid->CreateWith(index, static_cast<ClassInstance>(instance));
      StoreRow(row, runs, cellClass.Block(static_cast<ClassInstance>(instance)));
      progress.Step(index, count);
    }
  }
  return true;
}

}  // namespace

bool LoadBlocks(std::streambuf& file, std::uint64_t fileBytes, const DataBranch& tree, MapContents& contents,
                MapProgress& progress, std::string& errorText) {
  const auto bytes = static_cast<std::int64_t>(fileBytes);
  const std::int64_t dataOffset = OffsetLeaf(tree, kDataOffsetPath);
  BlockHead head;
  if (!CheckFileSize(FileForm::Binary, fileBytes, errorText) ||
      !ReadHead(file, bytes, dataOffset, head, errorText) ||
      !CheckHead(head, contents, dataOffset, bytes, errorText))
    return false;

  MakeGrid(contents, head.width, head.height);
  if (CellBlockBytes(contents) == 0) return true;  // no instance can be made, so no cell has a record
  const AdoptedTexts texts(file, bytes, OffsetLeaf(tree, kTextOffsetPath), *contents.m_pCellClass);
  file.pubseekpos(dataOffset + kBlockHeadBytes, std::ios_base::in);
  return ReadRows(file, head.count, texts, contents, progress, errorText);
}

}  // namespace quorvel
