#pragma once

#include <QPushButton>
#include <QSlider>

namespace quorvel {

class CPropertySetting;

/// A slider over 0 to 100 percent: a property's coverage or a value's share.
class CShareSlider : public QSlider {
  Q_OBJECT

 public:
  explicit CShareSlider(QWidget* parent);

  /// Moves the slider to the percentage, truncated, without a report.
  void ShowPercent(float percent);

 signals:
  /// The user moved the slider, by mouse, wheel or key.
  void Moved(int percent);

 protected:
  void wheelEvent(QWheelEvent* event) override;
};

/// The button "Select" that stands for a coverage of all or nothing. A click and a key do the same.
class CShareButton : public QPushButton {
  Q_OBJECT

 public:
  explicit CShareButton(QWidget* parent);

  /// The setting, not owned, whose coverage the button shows and changes; null: none.
  void SetSetting(CPropertySetting* setting);

 private:
  void StoreCoverage(bool isChecked);
  void ShowState(bool isChecked);

  CPropertySetting* m_pSetting = nullptr;
};

}  // namespace quorvel
