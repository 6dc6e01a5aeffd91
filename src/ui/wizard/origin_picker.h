#pragma once

#include <QWidget>

namespace quorvel {

class CPropertySetting;
class CValueSetting;

/// The map's rectangle with the origins of a property's values: a circle for the current value, crosses for
/// the others. The mouse drags the current value's origin; the arrow keys move it by 1 percent, with Shift
/// by 10.
class COriginPicker : public QWidget {
  Q_OBJECT

 public:
  explicit COriginPicker(QWidget* parent);

  /// Setting and value, neither owned; null: none. The value is one of the setting's.
  void SetCurrent(CPropertySetting* setting, CValueSetting* value);
  CValueSetting* CurrentValue() const { return m_pValue; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QPoint PointOf(const CValueSetting& value) const;
  void MoveOriginTo(const QPoint& point);
  void MoveOrigin(double xPercent, double yPercent);
  void TellOrigin();

  CPropertySetting* m_pSetting = nullptr;
  CValueSetting* m_pValue = nullptr;
  bool m_bDragging = false;
};

}  // namespace quorvel
