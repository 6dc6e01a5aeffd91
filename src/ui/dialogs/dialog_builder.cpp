#include "ui/dialogs/dialog_builder.h"

#include <algorithm>
#include <string_view>

#include <QComboBox>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>

#include "ui/drawings/command_icons.h"
#include "ui/resources/shown_text.h"

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
  button->setCheckable(row.kind == ControlKind::CheckButton);
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

QLabel* MakeLabel(const ControlRow& row, QWidget& parent) {
  auto* label = new QLabel(QString::fromUtf8(row.text), &parent);
  label->setAlignment(Qt::AlignVCenter | (row.style & kAlignRight ? Qt::AlignRight : Qt::AlignLeft));
  return label;
}

/// A box that cannot be written into is passed over by the Tab key.
QLineEdit* MakeEdit(const ControlRow& row, QWidget& parent) {
  auto* edit = new QLineEdit(QString::fromUtf8(row.text), &parent);
  if (row.style & kReadOnly) {
    edit->setReadOnly(true);
    edit->setFocusPolicy(Qt::ClickFocus);
  }
  return edit;
}

QWidget* MakeControl(const ControlRow& row, QWidget& parent) {
  switch (row.kind) {
    case ControlKind::Icon:
      return MakeIcon(row, parent);
    case ControlKind::Label:
      return MakeLabel(row, parent);
    case ControlKind::Edit:
      return MakeEdit(row, parent);
    case ControlKind::DefaultButton:
    case ControlKind::Button:
    case ControlKind::CheckButton:
      return MakeButton(row, parent);
    case ControlKind::ComboBox:
      return new QComboBox(&parent);
    case ControlKind::ListBox:
      return new QListWidget(&parent);
    case ControlKind::Slider:
      return new QSlider(Qt::Horizontal, &parent);
    case ControlKind::ListView:
    case ControlKind::Static:
      break;
  }
  return new QWidget(&parent);
}

bool IsList(ControlKind kind) {
  return kind == ControlKind::ListBox || kind == ControlKind::ListView || kind == ControlKind::Static;
}

/// A drop-down's height in the template is that of its open list; buttons and labels must hold the desktop's
/// font.
QRect PlaceOf(const ControlRow& row, const QWidget& control, const QWidget& parent) {
  QRect place = PixelsOf(row.place, parent);
  if (IsList(row.kind)) return place;
  const QSize needed = control.sizeHint();
  if (row.kind == ControlKind::ComboBox) place.setHeight(needed.height());
  place.setHeight(std::max(place.height(), needed.height()));
  if (row.kind == ControlKind::Label) place.setWidth(std::max(place.width(), needed.width()));
  return place;
}

/// "&Data Type:" names "Data Type".
QString NameIn(const QLabel& label) {
  return label.text().remove(u'&').remove(u':');
}

/// A label with a key of its own leads to the control after it that takes the keyboard. A list has its name
/// from it; the other controls are called after their label anyway.
void JoinLabel(QLabel*& label, const ControlRow& row, QWidget& control) {
  if (row.kind == ControlKind::Label) {
    if (std::string_view(row.text).find('&') != std::string_view::npos)
      label = static_cast<QLabel*>(&control);
  } else if (label && (control.focusPolicy() & Qt::TabFocus)) {
    label->setBuddy(&control);
    if (IsList(row.kind)) control.setAccessibleName(NameIn(*label));
    label = nullptr;
  }
}

}  // namespace

QRect PixelsOf(const DialogRect& rect, const QWidget& widget) {
  const DialogBase base = BaseOf(widget);
  return {qRound(rect.x * base.width), qRound(rect.y * base.height), qRound(rect.width * base.width),
          qRound(rect.height * base.height)};
}

void BuildControls(const DialogTemplate& source, QWidget& parent, const ControlMaker& makeOwn) {
  QLabel* label = nullptr;
  for (const ControlRow& row : source.controls) {
    QWidget* control = makeOwn ? makeOwn(row) : nullptr;
    if (!control) control = MakeControl(row, parent);
    control->setObjectName(QString::number(row.id));
    control->setGeometry(PlaceOf(row, *control, parent));
    if (row.style & kHidden) control->hide();
    JoinLabel(label, row, *control);
  }
}

void BuildDialog(const DialogTemplate& source, QDialog& dialog) {
  dialog.setObjectName(QString::number(source.id));
  dialog.setWindowTitle(QString::fromUtf8(source.caption));
  BuildControls(source, dialog);
  dialog.setFixedSize(PixelsOf({0, 0, source.width, source.height}, dialog).size());
}

}  // namespace quorvel
