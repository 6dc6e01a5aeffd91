#include "map/types/cell_marks.h"

namespace quorvel {
namespace {

/// Null without a grid and outside it.
std::uint8_t* MarkOf(const MapContents& map, CellCoord cell) {
  if (!map.m_pGrid || !map.m_pCellMarks || !map.m_pGrid->IsValid(cell)) return nullptr;
  return &map.m_pCellMarks[static_cast<std::size_t>(map.m_pGrid->IndexOf(cell))];
}

}  // namespace

std::uint8_t IsMarked(const MapContents& map, CellCoord cell) {
  const std::uint8_t* mark = MarkOf(map, cell);
  return mark ? *mark : 0;
}

void SetMark(MapContents& map, CellCoord cell, std::uint8_t mark) {
  if (std::uint8_t* stored = MarkOf(map, cell)) *stored = mark;
}

}  // namespace quorvel
