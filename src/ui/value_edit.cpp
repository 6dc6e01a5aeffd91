#include "ui/value_edit.h"

#include <QLocale>
#include <QPalette>

#include "data/c_numbers.h"

namespace quorvel {
namespace {

const QColor kWrongOnLight(0xb0, 0x00, 0x20);
const QColor kWrongOnDark(0xff, 0x8a, 0x80);

bool IsValueOf(MemberKind kind, const QString& text) {
  bool isNumber = true;
  if (kind == MemberKind::Int) QLocale::c().toInt(text, &isNumber);
  if (kind == MemberKind::Float) QLocale::c().toFloat(text, &isNumber);
  return isNumber;
}

/// The number that the start of a text stands for.
QString TakenFor(MemberKind kind, const QString& text) {
  const std::string bytes = text.toStdString();
  return kind == MemberKind::Int ? QString::number(ToInt(bytes)) : QString::number(ToDouble(bytes));
}

}  // namespace

ValueEdit::ValueEdit(MemberKind kind, QWidget* parent) : QLineEdit(parent), kind_(kind) {
  connect(this, &QLineEdit::textChanged, this, &ValueEdit::MarkText);
}

void ValueEdit::MarkText(const QString& text) {
  const bool isValue = IsValueOf(kind_, text);
  QPalette colours;
  if (!isValue) {
    const bool isDark = palette().color(QPalette::Base).lightness() < 128;
    colours.setColor(QPalette::Text, isDark ? kWrongOnDark : kWrongOnLight);
  }
  setPalette(colours);
  setToolTip(isValue ? QString() : tr("No number: taken for %1").arg(TakenFor(kind_, text)));
}

}  // namespace quorvel
