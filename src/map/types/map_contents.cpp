#include "map/types/map_contents.h"

#include "map/types/map_limits.h"

namespace quorvel {

std::uint64_t CellBlockBytes(const MapContents& contents) {
  return contents.m_pCellClass == nullptr ? 0 : static_cast<std::uint64_t>(contents.m_pCellClass->Size());
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
  contents.m_pGrid = std::make_unique<CellGrid>(width, height);
  contents.m_pCellMarks =
      std::make_unique<std::uint8_t[]>(static_cast<std::size_t>(contents.m_pGrid->CellCount()));
}

std::optional<CellRecord> CreateCell(MapContents& contents, CellCoord cell) {
  if (contents.m_pGrid == nullptr) return std::nullopt;
  std::optional<CellRecord> record = contents.m_pGrid->FindOrCreate(cell);
  if (!record) return std::nullopt;

  ClassDef* cellClass = contents.m_pCellClass;
  if (cellClass != nullptr) cellClass->DestroyInstance(record->data);  // of an earlier cell of this place
  record->data = cellClass == nullptr ? ClassInstance::None : cellClass->CreateInstance();
  if (record->data == ClassInstance::None) {
    contents.m_pGrid->Remove(*record);
    return std::nullopt;
  }
  contents.m_pGrid->SetData(record->index, record->data);
  return record;
}

}  // namespace quorvel
