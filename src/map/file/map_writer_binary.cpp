#include "map/file/map_writer_binary.h"

#include <cstring>
#include <string_view>
#include <vector>

#include "data/slot.h"
#include "map/file/map_file_layout.h"

namespace quorvel {
namespace {

/// The cells' values in index order, whether or not they have a record.
class AllCells {
 public:
  explicit AllCells(const MapContents& contents)
      : grid_(*contents.m_pGrid), cellClass_(contents.m_pCellClass) {
    if (PackedSize() == 0) return;
    defaults_ = cellClass_->CreateInstance();
  }
  ~AllCells() {
    if (cellClass_) cellClass_->DestroyInstance(defaults_);
  }
  AllCells(const AllCells&) = delete;
  AllCells& operator=(const AllCells&) = delete;

  const CellGrid& Grid() const { return grid_; }
  ClassDef* CellClass() const { return cellClass_; }
  std::int32_t PackedSize() const { return cellClass_ ? cellClass_->PackedSize() : 0; }

  /// Calls `visit(index, block)` until it answers false. The block is null where there are no values at all.
  template <class Visit>
  void ForEach(Visit visit) const {
    auto record = grid_.Following(-1);
    const std::int32_t cells = grid_.CellCount();
    for (std::int32_t index = 0; index < cells; ++index) {
      ClassInstance data = defaults_;
      if (record && record->index == index) {
        if (record->data != ClassInstance::None) data = record->data;
        record = grid_.Following(index);
      }
      if (!visit(index, cellClass_ ? cellClass_->Block(data) : nullptr)) return;
    }
  }

 private:
  const CellGrid& grid_;
  ClassDef* cellClass_;
  ClassInstance defaults_ = ClassInstance::None;
};

/// The string members of the cell class, laid out.
std::vector<StringPlace> TextPlaces(ClassDef* cellClass) {
  if (!cellClass) return {};
  cellClass->LayOut();
  return StringPlaces(*cellClass);
}

std::string_view TextIn(const std::byte* block, const StringPlace& place) {
  return place.member->Text(block + place.member->GetOffset());
}

void Put(std::streambuf& out, const void* bytes, std::size_t count) {
  out.sputn(static_cast<const char*>(bytes), static_cast<std::streamsize>(count));
}

void WriteDataBlock(const AllCells& cells, const std::vector<StringPlace>& texts, std::streambuf& out,
                    MapProgress& progress) {
  const std::int32_t count = cells.Grid().CellCount();
  const BlockHead head{.width = cells.Grid().Width(), .height = cells.Grid().Height(), .count = count};
  Put(out, &head, sizeof head);

  std::vector<std::byte> row(static_cast<std::size_t>(cells.PackedSize()));
  const std::vector<BlockRun> runs = row.empty() ? std::vector<BlockRun>() : cells.CellClass()->PackedRuns();
  std::uint32_t textPosition = 0;
  cells.ForEach([&](std::int32_t index, const std::byte* block) {
    for (const BlockRun& run : runs) {
      std::memcpy(&row[run.packedOffset], block + run.blockOffset, static_cast<std::size_t>(run.bytes));
    }
    for (const StringPlace& place : texts) {
      StoreSlot(&row[place.packedOffset], textPosition);
      textPosition += static_cast<std::uint32_t>(TextIn(block, place).size() + 1);
    }
    Put(out, row.data(), row.size());
    progress.Step(index, count);
    return true;
  });
}

void WriteTextBlock(const AllCells& cells, const std::vector<StringPlace>& texts, std::streambuf& out) {
  if (texts.empty()) return;
  cells.ForEach([&](std::int32_t, const std::byte* block) {
    for (const StringPlace& place : texts) {
      const std::string_view text = TextIn(block, place);
      Put(out, text.data(), text.size());
      out.sputc('\0');
    }
    return true;
  });
}

}  // namespace

std::uint64_t MeasureDataBlock(const MapContents& contents) {
  return static_cast<std::uint64_t>(DataBlockBytes(contents.m_pGrid->CellCount(), contents.m_pCellClass));
}

std::uint64_t MeasureTextBlock(const MapContents& contents, std::uint64_t limit) {
  const AllCells cells(contents);
  const std::vector<StringPlace> texts = TextPlaces(contents.m_pCellClass);
  std::uint64_t bytes = 0;
  if (texts.empty()) return 0;
  cells.ForEach([&](std::int32_t, const std::byte* block) {
    for (const StringPlace& place : texts) bytes += TextIn(block, place).size() + 1;
    return bytes <= limit;
  });
  return bytes;
}

void WriteBlocks(const MapContents& contents, std::streambuf& out, MapProgress& progress) {
  const AllCells cells(contents);
  const std::vector<StringPlace> texts = TextPlaces(contents.m_pCellClass);
  WriteDataBlock(cells, texts, out, progress);
  WriteTextBlock(cells, texts, out);
}

}  // namespace quorvel
