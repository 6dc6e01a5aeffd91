#pragma once

#include <QComboBox>

namespace quorvel {

/// A drop-down list in a bar. The wheel turns its choice only while it has the keyboard: rolling across the
/// bar changes nothing.
class BarCombo : public QComboBox {
  Q_OBJECT
 public:
  explicit BarCombo(QWidget* parent);

 protected:
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace quorvel
