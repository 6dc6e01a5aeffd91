#include "ui/wizard/label_editor.h"

#include <QKeyEvent>

#include "map/property_settings.h"
#include "ui/value_edit.h"
#include "ui/wizard/value_list_model.h"

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

LabelEditor::LabelEditor(QWidget* list) : RoomyRows(list) {}

QWidget* LabelEditor::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                   const QModelIndex& index) const {
  const auto* values = qobject_cast<const ValueListModel*>(index.model());
  auto* editor = new ValueEdit(values->Setting()->GetMember()->GetKind(), parent);
  editor->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
  return editor;
}

bool LabelEditor::eventFilter(QObject* object, QEvent* event) {
  if (!EndsEditing(*event)) return RoomyRows::eventFilter(object, event);
  auto* editor = static_cast<QWidget*>(object);
  emit commitData(editor);
  emit closeEditor(editor);
  return true;
}

}  // namespace quorvel
