#pragma once

#include <functional>

#include <QDialog>
#include <QRect>
#include <QWidget>

#include "ui/resources/dialog_templates.h"

namespace quorvel {

/// Pixels of a rectangle in dialog units, for the font of `widget`.
QRect PixelsOf(const DialogRect& rect, const QWidget& widget);

/// Makes a control of one's own, a child of the dialog, for a row of its template; null: the usual one.
using ControlMaker = std::function<QWidget*(const ControlRow&)>;

/// Makes the template's controls as children of `parent`. A control's object name is its number; a label with
/// a
/// "&" is the buddy of the next control that the Tab key reaches. IDOK and IDCANCEL end a dialog.
void BuildControls(const DialogTemplate& source, QWidget& parent, const ControlMaker& makeOwn = {});

/// The same for a dialog of fixed size with the template's caption.
void BuildDialog(const DialogTemplate& source, QDialog& dialog);

/// The control with this number, null when there is none of that class.
template <class Control>
Control* FindControl(const QWidget& parent, int id) {
  return parent.findChild<Control*>(QString::number(id));
}

}  // namespace quorvel
