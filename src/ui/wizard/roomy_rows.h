#pragma once

#include <QStyledItemDelegate>

namespace quorvel {

/// Rows of one height in both lists of the cell page, high enough for a share's slider.
class RoomyRows : public QStyledItemDelegate {
  Q_OBJECT

 public:
  explicit RoomyRows(QWidget* list);

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  const int sliderHeight_;
};

}  // namespace quorvel
