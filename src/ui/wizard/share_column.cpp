#include "ui/wizard/share_column.h"

#include <QApplication>
#include <QRegion>
#include <QWheelEvent>

#include "map/fill/property_settings.h"
#include "ui/wizard/share_slider.h"
#include "ui/wizard/value_list.h"

namespace quorvel {

ShareColumn::ShareColumn(ValueList& list, QWidget* parent) : QWidget(parent), list_(list) {
  hide();
  connect(&list, &ValueList::PlacesChanged, this, &ShareColumn::Arrange);
  connect(&list.Model(), &ValueListModel::dataChanged, this, &ShareColumn::Arrange);
}

void ShareColumn::Show(Sliders sliders) {
  sliders_ = sliders;
  Arrange();
}

/// The column lets clicks through where it has no slider: it is cut out around them.
void ShareColumn::Arrange() {
  const int rows = list_.Model().rowCount();
  const QRect column = list_.ColumnPlace(ValueListModel::kSlider);
  QRegion covered;
  std::size_t used = 0;
  firstRow_ = list_.FirstSeenRow();
  if (sliders_ == Sliders::Shown && rows > 1) {
    for (int row = firstRow_; row >= 0 && row < rows; ++row) {
      const QRect cell = list_.CellPlace(row, ValueListModel::kSlider);
      if (!cell.intersects(column)) break;
      ShowSlider(SliderNumber(used++), row, cell.translated(-column.topLeft()));
      covered += cell.translated(-column.topLeft());
    }
  }
  for (std::size_t number = used; number < pool_.size(); ++number) pool_[number]->hide();
  setGeometry(column);
  if (!covered.isEmpty()) setMask(covered);
  setVisible(!covered.isEmpty());
}

void ShareColumn::ShowSlider(CShareSlider& slider, int row, const QRect& place) {
  const CValueSetting& value = *list_.Model().ValueAt(row);
  slider.setGeometry(place);
  slider.ShowPercent(value.GetShare());
  slider.setAccessibleDescription(list_.Model().index(row, ValueListModel::kValue).data().toString());
  slider.show();
}

CShareSlider& ShareColumn::SliderNumber(std::size_t number) {
  if (number < pool_.size()) return *pool_[number];
  auto* slider = new CShareSlider(this);
  slider->setAccessibleName(tr("Share"));
  slider->setBackgroundRole(QPalette::Base);  // seen on a selected row, too
  slider->setAutoFillBackground(true);
  connect(slider, &CShareSlider::Moved, this, [this, number](int percent) {
    const CValueSetting* value = list_.Model().ValueAt(firstRow_ + static_cast<int>(number));
    if (value) list_.Model().SetShare(*value, static_cast<float>(percent));
  });
  setTabOrder(pool_.empty() ? static_cast<QWidget*>(&list_) : pool_.back(), slider);
  pool_.push_back(slider);
  return *slider;
}

void ShareColumn::wheelEvent(QWheelEvent* event) {
  QApplication::sendEvent(list_.viewport(), event);
}

}  // namespace quorvel
