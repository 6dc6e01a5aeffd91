#include "ui/view/cell_accessible.h"

#include <QWindow>

#include "map/document/editing.h"
#include "map/document/vastrel_doc.h"
#include "render/cell_look.h"
#include "render/display_text.h"

namespace quorvel {

QString LabelText(const MapContents& map, CellCoord cell) {
  if (!map.m_pGrid || !map.m_pGrid->IsValid(cell)) return {};
  return CellLook::Of(map, {}, cell).label.join(u'\n');
}

bool CellAccessible::isValid() const {
  return view_ && view_->HasGrid() && view_->Document()->m_pGrid->IsValid(cell_);
}

QWindow* CellAccessible::window() const {
  return view_ ? view_->window()->windowHandle() : nullptr;
}

QAccessibleInterface* CellAccessible::parent() const {
  return view_ ? QAccessible::queryAccessibleInterface(view_->viewport()) : nullptr;
}

QString CellAccessible::text(QAccessible::Text kind) const {
  if (!isValid()) return {};
  const CVastrelDoc& document = *view_->Document();
  if (kind == QAccessible::Name) return LabelText(document, cell_);
  if (kind == QAccessible::Description) return DisplayText(PositionText(*document.m_pGrid, cell_));
  return {};
}

QRect CellAccessible::rect() const {
  if (!isValid()) return {};
  const QRect inViewport = view_->CellRect(cell_);
  return {view_->viewport()->mapToGlobal(inViewport.topLeft()), inViewport.size()};
}

bool CellAccessible::isSelected() const {
  return isValid() && (IsMarked(*view_->Document(), cell_) & 1) != 0;
}

QAccessible::State CellAccessible::state() const {
  QAccessible::State state;
  if (!isValid()) {
    state.invalid = true;
    return state;
  }
  state.selectable = true;
  state.multiSelectable = true;
  state.focusable = true;
  state.selected = isSelected();
  state.focused = view_->hasFocus() && *view_->Document()->m_pCurrentCell == cell_;
  state.offscreen = !view_->viewport()->rect().intersects(view_->CellRect(cell_));
  return state;
}

void* CellAccessible::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                 : nullptr;
}

}  // namespace quorvel
