#include "map/file/map_reader_binary.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <iterator>
#include <vector>

#include <fmt/format.h>

#include "data/c_numbers.h"
#include "data/slot.h"
#include "map/types/map_limits.h"

namespace quorvel {
namespace {

static_assert(std::endian::native == std::endian::little, "numbers in files are little-endian");

constexpr std::int64_t kHeadBytes = 12;
constexpr std::size_t kChunkBytes = 256 * 1024;

/// What the data block begins with.
struct BlockHead {
  std::int32_t width, height, count;
};

struct StringMemberPlace {
  const MemberDef* member;
  std::int32_t packedOffset;
};

/// One reading of the blocks; gives up at the first inconsistency.
class BlockReader {
 public:
  BlockReader(std::streambuf& file, std::uint64_t fileBytes, const DataBranch& tree, MapContents& contents,
              std::string& errorText)
      : file_(file),
        fileBytes_(static_cast<std::int64_t>(fileBytes)),
        dataOffset_(OffsetLeaf(tree, "Version/Data/Offsets/Data")),
        textOffset_(OffsetLeaf(tree, "Version/Data/Offsets/Text")),
        contents_(contents),
        cellClass_(*contents.m_pCellClass),
        rowBytes_(cellClass_.PackedSize()),
        errorText_(errorText) {}

  bool Read(MapProgress& progress) {
    if (!ReadHead()) return false;
    MakeGrid(contents_, head_.width, head_.height);
    if (CellBlockBytes(contents_) == 0) return true;  // no instance can be made, so no cell has a record
    AdoptTexts();
    return ReadRows(progress);
  }

 private:
  static std::int64_t OffsetLeaf(const DataBranch& tree, std::string_view path) {
    const DataLeaf* leaf = tree.FindLeaf(path);
    return leaf == nullptr ? 0 : ToInt(leaf->GetValue());
  }

  template <class... Values>
  bool Refuse(fmt::format_string<Values...> format, Values&&... values) {
    fmt::format_to(std::back_inserter(errorText_), format, std::forward<Values>(values)...);
    errorText_ += '\n';
    return false;
  }

  bool ReadBytes(void* to, std::int64_t count) {
    return file_.sgetn(static_cast<char*>(to), count) == count ||
           Refuse("The file ended within its data block.");
  }

  bool ReadHead() {
    if (dataOffset_ < 0 || dataOffset_ + kHeadBytes > fileBytes_) {
      return Refuse("Data block offset {} leaves no room for the size in a file of {} bytes.", dataOffset_,
                    fileBytes_);
    }
    file_.pubseekpos(dataOffset_, std::ios_base::in);
    if (!ReadBytes(&head_, sizeof head_) || !CheckMap(contents_, head_.width, head_.height, errorText_))
      return false;

    const std::int64_t cells = std::int64_t{head_.width} * head_.height;
    if (head_.count != cells) {
      return Refuse("Cell count {} is not {} x {} = {}.", head_.count, head_.width, head_.height, cells);
    }
    const std::int64_t dataEnd = dataOffset_ + kHeadBytes + cells * rowBytes_;
    if (dataEnd > fileBytes_) {
      return Refuse("The values of {} cells end at {}, past the end of a file of {} bytes.", cells, dataEnd,
                    fileBytes_);
    }
    return CheckLoadedCells(kBinaryForm, static_cast<std::uint64_t>(cells), CellBlockBytes(contents_),
                            static_cast<std::uint64_t>(fileBytes_), errorText_);
  }

  /// Takes everything from the text block to the end of the file as it is. A text is then found by its
  /// offset, however many cells share it and wherever its end may be.
  void AdoptTexts() {
    std::int32_t packedOffset = 0;
    for (const auto& member : cellClass_.Members()) {
      if (member->GetKind() == MemberKind::String) strings_.push_back({member.get(), packedOffset});
      if (member->GetKind() != MemberKind::Object) packedOffset += 4;
    }
    textStart_ = std::clamp<std::int64_t>(textOffset_, 0, fileBytes_);
    if (strings_.empty() || textStart_ == fileBytes_) return;
    file_.pubseekpos(textStart_, std::ios_base::in);
    texts_ = cellClass_.Texts().Adopt(file_, static_cast<std::uint32_t>(fileBytes_ - textStart_));
  }

  bool ReadRows(MapProgress& progress) {
    file_.pubseekpos(dataOffset_ + kHeadBytes, std::ios_base::in);
    const std::vector<BlockRun> runs = cellClass_.PackedRuns();
    const std::int64_t rowsAtOnce =
        std::max<std::int64_t>(1, static_cast<std::int64_t>(kChunkBytes) / std::max(rowBytes_, 1));
    std::vector<std::byte> chunk(static_cast<std::size_t>(rowsAtOnce * rowBytes_));
    for (std::int32_t first = 0; first < head_.count; first += static_cast<std::int32_t>(rowsAtOnce)) {
      const std::int64_t rows = std::min<std::int64_t>(rowsAtOnce, head_.count - first);
      if (!ReadBytes(chunk.data(), rows * rowBytes_)) return false;
      // New instances of the whole chunk have successive numbers.
      const auto instances =
          static_cast<std::uint32_t>(cellClass_.CreateInstances(static_cast<std::uint32_t>(rows)));
      for (std::int32_t row = 0; row < rows; ++row) {
        const auto instance = static_cast<ClassInstance>(instances + static_cast<std::uint32_t>(row));
        if (!MakeCell(first + row, instance, chunk.data() + std::int64_t{row} * rowBytes_, runs))
          return false;
        progress.Step(first + row, head_.count);
      }
    }
    return true;
  }

  bool MakeCell(std::int32_t index, ClassInstance instance, std::byte* row,
                const std::vector<BlockRun>& runs) {
    for (const StringMemberPlace& place : strings_) {
      if (!TurnIntoHandle(index, place, row + place.packedOffset)) return false;
    }
    contents_.m_pGrid->CreateWith(index, instance);
    std::byte* block = cellClass_.Block(instance);
    for (const BlockRun& run : runs) {
      std::memcpy(block + run.blockOffset, row + run.packedOffset, static_cast<std::size_t>(run.bytes));
    }
    return true;
  }

  /// The file's offset of a text becomes its handle.
  bool TurnIntoHandle(std::int32_t index, const StringMemberPlace& place, std::byte* slot) {
    const auto offset = LoadSlot<std::uint32_t>(slot);
    const std::int64_t start = textOffset_ + offset;
    if (start < 0 || start >= fileBytes_) {
      return Refuse("The text \"{}\" of cell {} starts at {}, outside a file of {} bytes.",
                    place.member->GetName(), index, start, fileBytes_);
    }
    const TextHandle handle = TextArena::At(texts_, static_cast<std::uint32_t>(start - textStart_));
    StoreSlot(slot, handle);
    return true;
  }

  std::streambuf& file_;
  const std::int64_t fileBytes_;
  const std::int64_t dataOffset_;
  const std::int64_t textOffset_;
  MapContents& contents_;
  ClassDef& cellClass_;
  const std::int32_t rowBytes_;
  std::string& errorText_;

  BlockHead head_{};
  std::vector<StringMemberPlace> strings_;
  std::int64_t textStart_ = 0;  ///< of the texts that were adopted
  TextHandle texts_ = TextHandle::Empty;
};

}  // namespace

bool LoadBlocks(std::streambuf& file, std::uint64_t fileBytes, const DataBranch& tree, MapContents& contents,
                MapProgress& progress, std::string& errorText) {
  return CheckFileSize(kBinaryForm, fileBytes, errorText) &&
         BlockReader(file, fileBytes, tree, contents, errorText).Read(progress);
}

}  // namespace quorvel
