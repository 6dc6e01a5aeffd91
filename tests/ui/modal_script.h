#pragma once

#include <functional>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include "ui/dialog_builder.h"

namespace quorvel {

/// Runs `steps` in the next modal dialog, as soon as it is shown, and closes the dialog if they leave it
/// open.
inline void WhenModal(std::function<void(QDialog& dialog)> steps) {
  QTimer::singleShot(0, [steps = std::move(steps)] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_TRUE(dialog) << "no dialog came up";
    QApplication::processEvents();
    steps(*dialog);
    if (dialog->isVisible()) dialog->reject();
  });
}

/// The button with this number, pressed by its key.
inline void Press(QWidget& window, int id) {
  auto* button = FindControl<QAbstractButton>(window, id);
  ASSERT_TRUE(button) << "no button " << id;
  QTest::keyClick(button, Qt::Key_Space);
  QApplication::processEvents();
}

}  // namespace quorvel
