#include "map/grid/hex_grid.h"

#include <bit>
#include <cassert>

namespace quorvel {
namespace {

constexpr std::uint64_t Bit(std::size_t position) {
  return std::uint64_t{1} << (position % 64);
}

/// How often `step` can be taken off `distance` while more than `step` is left: a boundary belongs to the
/// part before.
std::int64_t StepsBefore(std::int64_t distance, std::int64_t step) {
  return distance > 0 ? (distance - 1) / step : 0;
}

constexpr std::size_t PagesFor(std::int32_t cells) {
  return (static_cast<std::size_t>(cells) + 63) / 64;
}

}  // namespace

CellGrid::CellGrid(std::int32_t width, std::int32_t height)
    : height_(height),
      width_(width),
      pages_(PagesFor(width * height)),
      usedPages_((pages_.size() + 63) / 64) {
  assert(width > 0 && height > 0);
}

CellGrid::~CellGrid() = default;

bool CellGrid::IsValid(CellCoord cell) const {
  return cell.column >= 0 && cell.column < width_ && cell.row >= 0 && cell.row < height_;
}

std::int32_t CellGrid::IndexOf(CellCoord cell) const {
  return IsValid(cell) ? cell.row * width_ + cell.column : -1;
}

CellCoord CellGrid::CoordOf(std::int32_t index) const {
  if (!IsValid(index)) return {};
  const std::int32_t row = index / width_;
  return {.column = index - row * width_, .row = row};
}

std::int32_t CellGrid::Neighbour(std::int32_t index, int direction) const {
  if (!IsValid(index)) return -1;
  return direction >= 0 && direction < 6 ? Neighbours(index)[direction] : index;
}

std::array<std::int32_t, 6> CellGrid::Neighbours(std::int32_t index) const {
  std::array<std::int32_t, 6> neighbours = {-1, -1, -1, -1, -1, -1};
  if (!IsValid(index)) return neighbours;
  const std::int32_t column = index % width_;
  const std::int32_t lowered =
      column % 2 != 0 ? width_ : 0;  // an odd column's slanted neighbours lie a row lower
  const auto ifValid = [this](std::int32_t neighbour) { return IsValid(neighbour) ? neighbour : -1; };

  neighbours[1] = ifValid(index - width_);
  neighbours[4] = ifValid(index + width_);
  if (column > 0) {
    neighbours[2] = ifValid(index - width_ + lowered - 1);
    neighbours[3] = ifValid(index + lowered - 1);
  }
  if (column < width_ - 1) {
    neighbours[0] = ifValid(index - width_ + lowered + 1);
    neighbours[5] = ifValid(index + lowered + 1);
  }
  return neighbours;
}

CellRecord CellGrid::RecordAt(std::int32_t index) const {
  const CellCoord cell = CoordOf(index);
  return {cell.column, cell.row, index, pages_[index / kPageCells]->data[index % kPageCells], this};
}

bool CellGrid::HasRecord(std::int32_t index) const {
  if (!IsValid(index)) return false;
  const Page* page = pages_[index / kPageCells].get();
  return page && (page->present & Bit(index)) != 0;
}

std::optional<CellRecord> CellGrid::Find(std::int32_t index) const {
  if (!HasRecord(index)) return std::nullopt;
  return RecordAt(index);
}

std::optional<CellRecord> CellGrid::Following(std::int32_t index) const {
  if (index >= CellCount() - 1) return std::nullopt;
  const std::int32_t from = index < 0 ? 0 : index + 1;
  const std::size_t firstPage = from / kPageCells;

  if (const Page* page = pages_[firstPage].get()) {
    const std::uint64_t rest = page->present >> (from % kPageCells);
    if (rest != 0) return RecordAt(from + std::countr_zero(rest));
  }

  std::size_t word = (firstPage + 1) / 64;
  if (word == usedPages_.size()) return std::nullopt;
  std::uint64_t pages = usedPages_[word] & (~std::uint64_t{0} << ((firstPage + 1) % 64));
  while (pages == 0) {
    if (++word == usedPages_.size()) return std::nullopt;
    pages = usedPages_[word];
  }
  const auto page = static_cast<std::int32_t>(word * 64) + std::countr_zero(pages);
  return RecordAt(page * kPageCells + std::countr_zero(pages_[page]->present));
}

CellGrid::Page& CellGrid::PageForWriting(std::int32_t index) {
  std::unique_ptr<Page>& page = pages_[index / kPageCells];
  if (!page) page = std::make_unique<Page>();
  return *page;
}

/// The data of the record of a valid index, which is made if there is none.
ClassInstance& CellGrid::DataForWriting(std::int32_t index) {
  Page& page = PageForWriting(index);
  ClassInstance& data = page.data[index % kPageCells];
  if ((page.present & Bit(index)) == 0) {
    const std::size_t pageNumber = index / kPageCells;
    page.present |= Bit(index);
    usedPages_[pageNumber / 64] |= Bit(pageNumber);
    data = {};
    ++count_;
  }
  return data;
}

std::optional<CellRecord> CellGrid::FindOrCreate(CellCoord cell) {
  const std::int32_t index = IndexOf(cell);
  if (index < 0) return std::nullopt;
  return CellRecord{cell.column, cell.row, index, DataForWriting(index), this};
}

void CellGrid::CreateWith(std::int32_t index, ClassInstance data) {
  if (IsValid(index)) DataForWriting(index) = data;
}

std::optional<CellRecord> CellGrid::Remove(const CellRecord& record) {
  if (record.grid != this || !HasRecord(record.index)) return std::nullopt;
  const std::size_t pageNumber = record.index / kPageCells;
  Page& page = *pages_[pageNumber];
  page.present &= ~Bit(record.index);
  if (page.present == 0) usedPages_[pageNumber / 64] &= ~Bit(pageNumber);
  --count_;
  return Following(record.index);
}

void CellGrid::RemoveAll() {
  for (std::unique_ptr<Page>& page : pages_) page.reset();
  usedPages_.assign(usedPages_.size(), 0);
  count_ = 0;
}

void CellGrid::SetData(std::int32_t index, ClassInstance data) {
  if (HasRecord(index)) pages_[index / kPageCells]->data[index % kPageCells] = data;
}

bool CellGrid::GetCellPolygon(float cellSize, CellCoord cell, CellPolygon& points) const {
  if (!IsValid(cell)) return false;
  points = CellMetrics::At(cellSize).Outline(cell);
  return true;
}

bool CellGrid::GetCellBounds(float cellSize, CellCoord cell, std::int32_t* left, std::int32_t* top,
                             std::int32_t* right, std::int32_t* bottom) const {
  if (!IsValid(cell)) return false;
  const CellBounds bounds = CellMetrics::At(cellSize).Bounds(cell);
  if (left) *left = bounds.left;
  if (top) *top = bounds.top;
  if (right) *right = bounds.right;
  if (bottom) *bottom = bounds.bottom;
  return true;
}

CellCoord CellGrid::HitTest(float cellSize, std::int32_t x, std::int32_t y) const {
  const CellMetrics metrics = CellMetrics::At(cellSize);
  if (metrics.columnStep < 1 || metrics.height < 1) return {};
  const std::int64_t stripsWidth = std::int64_t{width_} * metrics.columnStep;
  const std::int64_t columnHeight = std::int64_t{height_} * metrics.height;

  const std::int64_t dx = std::int64_t{x} - metrics.quarter;
  if (dx < 0 || dx > stripsWidth) return {};
  const auto column = static_cast<std::int32_t>(StepsBefore(dx, metrics.columnStep));

  const std::int64_t dy = std::int64_t{y} - metrics.ColumnOffset(column);
  if (dy < 0 || dy > columnHeight) return {};
  return {.column = column, .row = static_cast<std::int32_t>(StepsBefore(dy, metrics.height))};
}

}  // namespace quorvel
