#include "ui/dialog_builder.h"

#include <QComboBox>
#include <QFontMetrics>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "ui/command_icons.h"
#include "ui/shown_text.h"

namespace quorvel {
namespace {

/// The pixels of a dialog unit: the average of the 52 letters is 4 units wide, a line 8 units high.
struct DialogBase {
  double width, height;
};

DialogBase BaseOf(const QWidget& widget) {
  const QFontMetrics metrics = widget.fontMetrics();
  const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
  return {metrics.horizontalAdvance(letters) / 52.0 / 4, metrics.height() / 8.0};
}

QPushButton* MakeButton(const ControlRow& row, QWidget& parent) {
  auto* button = new QPushButton(QString::fromUtf8(row.text), &parent);
  const bool isDefault = row.kind == ControlKind::DefaultButton;
  button->setDefault(isDefault);
  button->setAutoDefault(isDefault);
  if (auto* dialog = qobject_cast<QDialog*>(&parent)) {
    if (row.id == IDOK) QObject::connect(button, &QPushButton::clicked, dialog, &QDialog::accept);
    if (row.id == IDCANCEL) QObject::connect(button, &QPushButton::clicked, dialog, &QDialog::reject);
  }
  return button;
}

QLabel* MakeIcon(const ControlRow& row, QWidget& parent) {
  auto* label = new QLabel(&parent);
  label->setPixmap(ApplicationIcon().pixmap(PixelsOf(row.place, parent).size(), parent.devicePixelRatioF()));
  return label;
}

QWidget* MakeControl(const ControlRow& row, QWidget& parent) {
  switch (row.kind) {
    case ControlKind::Icon:
      return MakeIcon(row, parent);
    case ControlKind::Label:
      return new QLabel(QString::fromUtf8(row.text), &parent);
    case ControlKind::DefaultButton:
    case ControlKind::Button:
      return MakeButton(row, parent);
    case ControlKind::ComboBox:
      return new QComboBox(&parent);
    case ControlKind::ListBox:
      return new QListWidget(&parent);
  }
  return nullptr;
}

/// A drop-down's height in the template is that of its open list; buttons and labels must hold the desktop's
/// font.
QRect PlaceOf(const ControlRow& row, const QWidget& control, const QWidget& parent) {
  QRect place = PixelsOf(row.place, parent);
  if (row.kind == ControlKind::ComboBox) place.setHeight(control.sizeHint().height());
  if (row.kind != ControlKind::ListBox)
    place.setHeight(std::max(place.height(), control.sizeHint().height()));
  return place;
}

}  // namespace

QRect PixelsOf(const DialogRect& rect, const QWidget& widget) {
  const DialogBase base = BaseOf(widget);
  return {qRound(rect.x * base.width), qRound(rect.y * base.height), qRound(rect.width * base.width),
          qRound(rect.height * base.height)};
}

void BuildControls(const DialogTemplate& source, QWidget& parent) {
  QLabel* labelBefore = nullptr;
  for (const ControlRow& row : source.controls) {
    QWidget* control = MakeControl(row, parent);
    control->setObjectName(QString::number(row.id));
    control->setGeometry(PlaceOf(row, *control, parent));
    if (labelBefore) labelBefore->setBuddy(control);
    labelBefore = row.kind == ControlKind::Label ? static_cast<QLabel*>(control) : nullptr;
  }
}

void BuildDialog(const DialogTemplate& source, QDialog& dialog) {
  dialog.setObjectName(QString::number(source.id));
  dialog.setWindowTitle(QString::fromUtf8(source.caption));
  BuildControls(source, dialog);
  dialog.setFixedSize(PixelsOf({0, 0, source.width, source.height}, dialog).size());
}

}  // namespace quorvel
