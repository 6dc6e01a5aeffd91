#pragma once

#include <vector>

#include <QWidget>

namespace quorvel {

class CShareSlider;
class ValueList;

/// The share sliders over the middle column of a value list, one for each row that is seen. A list of one row
/// has none: its share is 100.
class ShareColumn : public QWidget {
  Q_OBJECT

 public:
  enum class Sliders { Hidden, Shown };

  /// A sibling of `list`, which outlives it.
  ShareColumn(ValueList& list, QWidget* parent);

  void Show(Sliders sliders);

 protected:
  void wheelEvent(QWheelEvent* event) override;

 private:
  void Arrange();
  void ShowSlider(CShareSlider& slider, int row, const QRect& place);
  CShareSlider& SliderNumber(std::size_t number);

  ValueList& list_;
  Sliders sliders_ = Sliders::Hidden;
  std::vector<CShareSlider*> pool_;  ///< the first belongs to the first row seen
  int firstRow_ = 0;
};

}  // namespace quorvel
