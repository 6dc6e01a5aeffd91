#pragma once

#include <functional>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include "ui/dialogs/dialog_builder.h"

namespace quorvel {

using ModalSteps = std::function<void(QDialog& dialog)>;

/// Runs `steps` in the next modal dialog, as soon as it is shown, and closes the dialog if they leave it
/// open. "Next" counts from now: a dialog that is up already is passed over.
inline void WhenModal(ModalSteps steps, QPointer<QWidget> before = QApplication::activeModalWidget(),
                      int patienceMs = 5000) {
  constexpr int kLookEveryMs = 5;
  QTimer::singleShot(0, [=, steps = std::move(steps)] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || dialog == before.data()) {
      ASSERT_GT(patienceMs, 0) << "no dialog came up";
      QTimer::singleShot(kLookEveryMs, [=] { WhenModal(steps, before, patienceMs - kLookEveryMs); });
      return;
    }
    QApplication::processEvents();
    const QPointer<QDialog> open(dialog);
    steps(*dialog);
    if (open && open->isVisible()) open->reject();
  });
}

/// The same for dialogs that follow one another.
inline void WhenModals(std::vector<ModalSteps> script) {
  if (script.empty()) return;
  WhenModal([script = std::move(script)](QDialog& dialog) {
    WhenModals({script.begin() + 1, script.end()});
    script.front()(dialog);
  });
}

/// The button with this number, pressed by its key.
inline void Press(QWidget& window, int id) {
  auto* button = FindControl<QAbstractButton>(window, id);
  ASSERT_TRUE(button) << "no button " << id;
  QTest::keyClick(button, Qt::Key_Space);
  QApplication::processEvents();
}

inline void PressKey(QWidget& widget, Qt::Key key, int times = 1, Qt::KeyboardModifiers modifiers = {}) {
  for (int i = 0; i < times; ++i) QTest::keyClick(&widget, key, modifiers);
  QApplication::processEvents();
}

}  // namespace quorvel
