#include "map/types/map_contents.h"

#include <new>
#include <utility>

#include "map/types/map_limits.h"

namespace quorvel {

std::uint64_t CellBlockBytes(const MapContents& contents) {
  return contents.m_pCellClass ? static_cast<std::uint64_t>(contents.m_pCellClass->Size()) : 0;
}

bool CheckMap(const MapContents& contents, std::int64_t width, std::int64_t height, std::string& errorText) {
  return CheckMapSize(width, height, errorText) && CheckCellBlock(CellBlockBytes(contents), errorText);
}

bool CheckFullMap(const MapContents& contents, std::int64_t width, std::int64_t height,
                  std::string& errorText) {
  return CheckMap(contents, width, height, errorText) &&
         CheckAllBlocks(static_cast<std::uint64_t>(width * height), CellBlockBytes(contents), errorText);
}

void MakeGrid(MapContents& contents, int width, int height) {
  auto grid = std::make_unique<CellGrid>(width, height);
  contents.m_pCellMarks = std::make_unique<std::uint8_t[]>(static_cast<std::size_t>(grid->CellCount()));
  contents.m_pGrid = std::move(grid);
}

std::optional<CellRecord> CreateCell(MapContents& contents, CellCoord cell) {
  if (!contents.m_pGrid) return std::nullopt;
  CellGrid& grid = *contents.m_pGrid;
  std::optional<CellRecord> record = grid.FindOrCreate(cell);
  if (!record) return std::nullopt;

  const ClassInstance earlier = record->data;
  ClassDef* cellClass = contents.m_pCellClass;
  try {
    record->data = cellClass ? cellClass->CreateInstance() : ClassInstance::None;
  } catch (const std::bad_alloc&) {
    if (earlier == ClassInstance::None) grid.Remove(*record);
    throw;
  }
  if (cellClass) cellClass->DestroyInstance(earlier);
  if (record->data == ClassInstance::None) {
    grid.Remove(*record);
    return std::nullopt;
  }
  grid.SetData(record->index, record->data);
  return record;
}

}  // namespace quorvel
