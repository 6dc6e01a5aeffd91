#include "ui/wizard/label_editor.h"

#include <QKeyEvent>

#include "map/fill/property_settings.h"
#include "render/display_text.h"
#include "ui/dialogs/value_edit.h"
#include "ui/wizard/value_list.h"

namespace quorvel {
namespace {

bool EndsEditing(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  switch (static_cast<const QKeyEvent&>(event).key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return true;
    default:
      return false;
  }
}

}  // namespace

LabelEditor::LabelEditor(ValueList& list) : RoomyRows(&list), list_(list) {}

QWidget* LabelEditor::createEditor(QWidget*, const QStyleOptionViewItem&, const QModelIndex& index) const {
  const MemberDef& member = *list_.Model().Setting()->GetMember();
  auto* editor = new ValueEdit(member.GetKind(), DisplayText(member.GetName()), list_.parentWidget());
  editor->setAccessibleName(
      list_.Model().headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString());
  return editor;
}

/// Over the cell as far as that is seen.
void LabelEditor::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem&,
                                       const QModelIndex& index) const {
  editor->setGeometry(list_.CellPlace(index.row(), index.column()) & list_.ColumnPlace(index.column()));
}

bool LabelEditor::eventFilter(QObject* object, QEvent* event) {
  if (!EndsEditing(*event)) return RoomyRows::eventFilter(object, event);
  auto* editor = static_cast<QWidget*>(object);
  emit commitData(editor);
  emit closeEditor(editor);
  return true;
}

}  // namespace quorvel
