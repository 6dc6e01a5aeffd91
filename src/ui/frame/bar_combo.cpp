#include "ui/frame/bar_combo.h"

#include <QWheelEvent>

namespace quorvel {

BarCombo::BarCombo(QWidget* parent) : QComboBox(parent) {
  setFocusPolicy(Qt::StrongFocus);  // the library's own policy lets the wheel take the keyboard
}

void BarCombo::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

}  // namespace quorvel
