#pragma once

#include "ui/wizard/roomy_rows.h"

namespace quorvel {

class ValueList;

/// The text box over a value's label. Every way out of it stores the typed text: Enter, Tab, a click
/// elsewhere and Esc. It is the list's sibling, as all that lies over the list.
class LabelEditor : public RoomyRows {
  Q_OBJECT

 public:
  explicit LabelEditor(ValueList& list);

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;

 protected:
  bool eventFilter(QObject* editor, QEvent* event) override;

 private:
  ValueList& list_;
};

}  // namespace quorvel
