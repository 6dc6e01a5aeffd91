#include "ui/wizard/roomy_rows.h"

#include <algorithm>

#include "ui/wizard/share_slider.h"

namespace quorvel {
namespace {

constexpr int kRoomPx = 4;

}  // namespace

RoomyRows::RoomyRows(QWidget* list)
    : QStyledItemDelegate(list), sliderHeight_(CShareSlider(list).sizeHint().height()) {}

QSize RoomyRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QSize size = QStyledItemDelegate::sizeHint(option, index);
  size.setHeight(std::max(size.height(), sliderHeight_) + kRoomPx);
  return size;
}

}  // namespace quorvel
