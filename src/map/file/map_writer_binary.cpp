#include "map/file/map_writer_binary.h"

#include <bit>
#include <cstring>
#include <new>
#include <string_view>
#include <vector>

#include "data/slot.h"

namespace quorvel {
namespace {

static_assert(std::endian::native == std::endian::little, "numbers in files are little-endian");

/// The cells' values in index order, whether or not they have a record.
class AllCells {
 public:
  explicit AllCells(const MapContents& contents)
      : grid_(*contents.m_pGrid), cellClass_(contents.m_pCellClass) {
    if (PackedSize() == 0) return;
    defaults_ = cellClass_->CreateInstance();
    if (defaults_ == ClassInstance::None) throw std::bad_alloc();
  }
  ~AllCells() {
    if (cellClass_ != nullptr) cellClass_->DestroyInstance(defaults_);
  }
  AllCells(const AllCells&) = delete;
  AllCells& operator=(const AllCells&) = delete;

  const CellGrid& Grid() const { return grid_; }
  ClassDef* CellClass() const { return cellClass_; }
  std::int32_t PackedSize() const { return cellClass_ == nullptr ? 0 : cellClass_->PackedSize(); }

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
      if (!visit(index, cellClass_ == nullptr ? nullptr : cellClass_->Block(data))) return;
    }
  }

 private:
  const CellGrid& grid_;
  ClassDef* cellClass_;
  ClassInstance defaults_ = ClassInstance::None;
};

/// The string members of the cell class: where their handles lie, and the texts.
class CellTexts {
 public:
  explicit CellTexts(ClassDef* cellClass) {
    if (cellClass == nullptr) return;
    texts_ = &cellClass->Texts();
    cellClass->LayOut();
    std::int32_t packedOffset = 0;
    for (const auto& member : cellClass->Members()) {
      if (member->GetKind() == MemberKind::String) places_.push_back({packedOffset, member->GetOffset()});
      if (member->GetKind() != MemberKind::Object) packedOffset += 4;
    }
  }

  struct Place {
    std::int32_t packedOffset, blockOffset;
  };
  const std::vector<Place>& Places() const { return places_; }

  std::string_view Text(const std::byte* block, const Place& place) const {
    return texts_->Text(LoadSlot<TextHandle>(block + place.blockOffset));
  }

 private:
  const TextArena* texts_ = nullptr;
  std::vector<Place> places_;
};

void Put(std::streambuf& out, const void* bytes, std::size_t count) {
  out.sputn(static_cast<const char*>(bytes), static_cast<std::streamsize>(count));
}

void WriteDataBlock(const AllCells& cells, const CellTexts& texts, std::streambuf& out,
                    MapProgress& progress) {
  const std::int32_t count = cells.Grid().CellCount();
  const std::int32_t head[] = {cells.Grid().Width(), cells.Grid().Height(), count};
  Put(out, head, sizeof head);

  std::vector<std::byte> row(static_cast<std::size_t>(cells.PackedSize()));
  const std::vector<BlockRun> runs = row.empty() ? std::vector<BlockRun>() : cells.CellClass()->PackedRuns();
  std::uint32_t textPosition = 0;
  cells.ForEach([&](std::int32_t index, const std::byte* block) {
    for (const BlockRun& run : runs) {
      std::memcpy(&row[run.packedOffset], block + run.blockOffset, static_cast<std::size_t>(run.bytes));
    }
    for (const CellTexts::Place& place : texts.Places()) {
      StoreSlot(&row[place.packedOffset], textPosition);
      textPosition += static_cast<std::uint32_t>(texts.Text(block, place).size() + 1);
    }
    Put(out, row.data(), row.size());
    progress.Step(index, count);
    return true;
  });
}

void WriteTextBlock(const AllCells& cells, const CellTexts& texts, std::streambuf& out) {
  if (texts.Places().empty()) return;
  cells.ForEach([&](std::int32_t, const std::byte* block) {
    for (const CellTexts::Place& place : texts.Places()) {
      const std::string_view text = texts.Text(block, place);
      Put(out, text.data(), text.size());
      out.sputc('\0');
    }
    return true;
  });
}

}  // namespace

std::uint64_t MeasureDataBlock(const MapContents& contents) {
  const std::int32_t rowBytes = contents.m_pCellClass == nullptr ? 0 : contents.m_pCellClass->PackedSize();
  return 12 +
         static_cast<std::uint64_t>(contents.m_pGrid->CellCount()) * static_cast<std::uint64_t>(rowBytes);
}

std::uint64_t MeasureTextBlock(const MapContents& contents, std::uint64_t limit) {
  const AllCells cells(contents);
  const CellTexts texts(cells.CellClass());
  std::uint64_t bytes = 0;
  if (texts.Places().empty()) return 0;
  cells.ForEach([&](std::int32_t, const std::byte* block) {
    for (const CellTexts::Place& place : texts.Places()) bytes += texts.Text(block, place).size() + 1;
    return bytes <= limit;
  });
  return bytes;
}

void WriteBlocks(const MapContents& contents, std::streambuf& out, MapProgress& progress) {
  const AllCells cells(contents);
  const CellTexts texts(cells.CellClass());
  WriteDataBlock(cells, texts, out, progress);
  WriteTextBlock(cells, texts, out);
}

}  // namespace quorvel
