#include "map/document/paint_tool.h"

#include <cstdint>
#include <optional>

#include "map/document/vastrel_doc.h"
#include "map/types/member_editors.h"

namespace quorvel {
namespace {

MemberDef* MemberAt(const CVastrelDoc& document, int position) {
  if (!document.m_pCellClass || position < 0) return nullptr;
  const auto& members = document.m_pCellClass->Members();
  return static_cast<std::size_t>(position) < members.size() ? members[position].get() : nullptr;
}

void CreateAllEditors(CVastrelDoc& document) {
  for (const std::unique_ptr<MemberDef>& member : document.m_pCellClass->Members())
    CreateEditors(*member, document.m_nNextEditorId, document.m_editors);
}

std::optional<CellRecord> CurrentRecord(CVastrelDoc& document) {
  const CellCoord cell = *document.m_pCurrentCell;
  const std::optional<CellRecord> record = document.m_pGrid->Find(document.m_pGrid->IndexOf(cell));
  return record ? record : CreateCell(document, cell);
}

}  // namespace

void ShowPaintEditor(CVastrelDoc& document, int position) {
  MemberDef* member = MemberAt(document, position);
  if (!member) return;
  const WaitCursor wait(document.GetServices().feedback);
  if (document.m_nNextEditorId == kLastBarControl) CreateAllEditors(document);

  document.m_nPaintIndex = position;
  document.m_pPaintMember = member;
}

void OnToolOptionsCommand(CVastrelDoc& document, int controlId, int notification, int position) {
  if (controlId != kToolCombo || notification != kSelectionChanged) return;
  ShowPaintEditor(document, position);
  document.GetServices().toolOptions.ShowTool(document);
}

void PaintCurrentCell(CVastrelDoc& document) {
  const MemberDef* member = document.m_pPaintMember;
  if (!member || !document.m_pGrid || !document.m_pGrid->IsValid(*document.m_pCurrentCell)) return;

  std::uint32_t slot = 0;  // before the record: where there is no memory for the value no cell is made
  if (const MemberEditor* editor = EditorOf(*member)) editor->StoreInto(*member, &slot);
  if (const std::optional<CellRecord> record = CurrentRecord(document))
    document.StoreCellValue(*record, *member, &slot);
}

MemberEditor* FindEditor(const CVastrelDoc& document, int controlId) {
  for (const MemberDef* member : document.m_editors) {
    MemberEditor* editor = EditorOf(*member);
    if (editor && editor->GetControlId() == controlId) return editor;
  }
  return nullptr;
}

}  // namespace quorvel
