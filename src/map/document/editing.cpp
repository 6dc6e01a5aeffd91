#include "map/document/editing.h"

#include <memory>
#include <new>
#include <string>
#include <utility>

#include <fmt/format.h>

#include "map/document/paint_tool.h"
#include "map/document/vastrel_doc.h"

namespace quorvel {
namespace {

constexpr std::uint8_t kMarkBit = 1;

enum class MarkMode : std::uint8_t { Unmark = 0, Mark = kMarkBit };

std::uint8_t WithMark(std::uint8_t mark, std::uint8_t mode) {
  return static_cast<std::uint8_t>((mark & ~kMarkBit) | (mode & kMarkBit));
}

/// The mode of a drag is the opposite of the mark of the cell that it starts on.
void PaintMark(CVastrelDoc& document, ToolPhase phase) {
  const CellCoord cell = *document.m_pCurrentCell;
  const std::uint8_t mark = IsMarked(document, cell);
  if (phase == ToolPhase::Pressed)
    document.m_bMarkMode = WithMark(document.m_bMarkMode, static_cast<std::uint8_t>(~mark));
  if (!document.m_pGrid || !document.m_pGrid->IsValid(cell)) return;

  const std::uint8_t painted = WithMark(mark, document.m_bMarkMode);
  if (painted == mark) return;
  SetMark(document, cell, painted);
  document.UpdateAllViews(nullptr, {UpdateHint::Cell, cell, {}});
}

void MarkEveryCell(CVastrelDoc& document, MarkMode mode) {
  if (!document.m_pGrid) return;
  std::uint8_t* marks = document.m_pCellMarks.get();
  for (std::int32_t index = 0; index < document.m_pGrid->CellCount(); ++index)
    marks[index] = WithMark(marks[index], static_cast<std::uint8_t>(mode));
  document.UpdateAllViews(nullptr);
}

void ShowCursor(CVastrelDoc& document, ToolCursor cursor) {
  document.m_hToolCursor = cursor;
  document.UpdateAllViews(nullptr, {UpdateHint::Tool, {}, {}});
}

}  // namespace

std::string PositionText(const CellGrid& grid, CellCoord cell) {
  if (!grid.IsValid(cell)) return {};
  return fmt::format("{}({}:{})", grid.IndexOf(cell), cell.column, cell.row);
}

void ShowCellText(CVastrelDoc& document, std::string_view text) {
  document.GetServices().feedback.SetStatusText(text);
}

bool SetCurrentCell(CVastrelDoc& document, const CellCoord* cell) {
  if (!document.m_pGrid) return false;
  if (!cell) {
    ShowCellText(document, "");
    return false;
  }
  const CellCoord current = *cell;
  const CellCoord previous = std::exchange(*document.m_pCurrentCell, current);
  if (current == previous) return false;

  ShowCellText(document, PositionText(*document.m_pGrid, current));
  document.UpdateAllViews(nullptr, {UpdateHint::CurrentCell, current, previous});
  return true;
}

int SelectTool(CVastrelDoc& document, int tool) {
  document.m_nTool = tool;
  if (tool == kPointerTool) ShowCursor(document, ToolCursor::Pointer);
  if (tool == kCellPropertyTool) {
    ShowPaintEditor(document, document.m_nPaintIndex);
    ShowCursor(document, ToolCursor::Paint);
  }
  document.GetServices().toolOptions.ShowTool(document);
  return document.m_nTool;
}

void ApplyTool(CVastrelDoc& document, ToolPhase phase) try {
  if (phase == ToolPhase::Pressed) document.m_bStrokeEnded = false;
  if (document.m_bStrokeEnded) return;
  if (document.m_nTool == kPointerTool) PaintMark(document, phase);
  if (document.m_nTool == kCellPropertyTool && phase != ToolPhase::Released) PaintCurrentCell(document);
} catch (const std::bad_alloc&) {
  document.m_bStrokeEnded = true;
  document.ReportErrors("There is not enough memory to paint the cell.\n");
}

void OnEditSelectAll(CVastrelDoc& document) {
  MarkEveryCell(document, MarkMode::Mark);
}

void OnEditDeselect(CVastrelDoc& document) {
  MarkEveryCell(document, MarkMode::Unmark);
}

void OnViewFilter(CVastrelDoc& document) {
  const ClassDef* cellClass = document.m_pMapClass ? document.m_pCellClass : nullptr;
  Services& services = document.GetServices();
  std::optional<CPropertySettingList> chosen =
      services.mapDialogs.ChooseFilter(document.m_pFilter.get(), cellClass);
  if (!chosen) return;

  const WaitCursor wait(services.feedback);
  document.m_pFilter = std::make_unique<CPropertySettingList>(std::move(*chosen));
  document.UpdateAllViews(nullptr);
}

}  // namespace quorvel
