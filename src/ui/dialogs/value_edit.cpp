#include "ui/dialogs/value_edit.h"

#include <QPalette>

#include "data/c_numbers.h"

namespace quorvel {
namespace {

const QColor kWrongOnLight(0xb0, 0x00, 0x20);
const QColor kWrongOnDark(0xff, 0x8a, 0x80);

bool IsValueOf(MemberKind kind, const QString& text) {
  bool isNumber = true;
  if (kind == MemberKind::Int) text.toInt(&isNumber);
  if (kind == MemberKind::Float) text.toFloat(&isNumber);
  return isNumber;
}

/// The number that the start of a text stands for.
QString TakenFor(MemberKind kind, const QString& text) {
  const std::string bytes = text.toStdString();
  return kind == MemberKind::Int ? QString::number(ToInt(bytes)) : QString::number(ToFloat(bytes));
}

QString TroubleWith(MemberKind kind, const QString& text) {
  if (IsValueOf(kind, text)) return {};
  return ValueEdit::tr("No number: taken for %1").arg(TakenFor(kind, text));
}

}  // namespace

ValueEdit::ValueEdit(MemberKind kind, const QString& description, QWidget* parent)
    : QLineEdit(parent), kind_(kind) {
  setAccessibleDescription(description);
  connect(this, &QLineEdit::textChanged, this,
          [this](const QString& text) { Mark(TroubleWith(kind_, text)); });
}

/// Colour alone does not reach everybody, so the text is underlined too, and assistive technology has the
/// trouble as the box's help.
void ValueEdit::Mark(const QString& trouble) {
  QPalette colours;
  QFont letters;
  if (!trouble.isEmpty()) {
    const bool isDark = palette().color(QPalette::Base).lightness() < 128;
    colours.setColor(QPalette::Text, isDark ? kWrongOnDark : kWrongOnLight);
    letters.setUnderline(true);
  }
  setPalette(colours);
  setFont(letters);
  setToolTip(trouble);
  setWhatsThis(trouble);
}

}  // namespace quorvel
