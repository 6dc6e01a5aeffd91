#pragma once

#include "ui/wizard/roomy_rows.h"

namespace quorvel {

/// The text box over a value's label. Every way out of it stores the typed text: Enter, Tab, a click
/// elsewhere and Esc.
class LabelEditor : public RoomyRows {
  Q_OBJECT

 public:
  explicit LabelEditor(QWidget* list);

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;

 protected:
  bool eventFilter(QObject* editor, QEvent* event) override;
};

}  // namespace quorvel
