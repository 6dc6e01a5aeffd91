#include "ui/wizard/origin_picker.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

#include "map/fill/property_settings.h"

namespace quorvel {
namespace {

constexpr int kMarkRadius = 3;
constexpr double kStepPercent = 1;
constexpr double kLongStepPercent = 10;

/// One hundredth in single precision: origins are drawn where the fill places them.
constexpr double kPercent = 0.01F;

int PixelAt(int extent, float percent) {
  return static_cast<int>(static_cast<double>(extent) * percent * kPercent);
}

void DrawCircle(QPainter& painter, const QPoint& at) {
  painter.drawEllipse(at.x() - kMarkRadius, at.y() - kMarkRadius, 2 * kMarkRadius, 2 * kMarkRadius);
}

void DrawCross(QPainter& painter, const QPoint& at) {
  painter.drawLine(at.x() - kMarkRadius, at.y(), at.x() + kMarkRadius, at.y());
  painter.drawLine(at.x(), at.y() - kMarkRadius, at.x(), at.y() + kMarkRadius);
}

/// A screen reader passes over a widget without a role.
QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
  auto* picker = qobject_cast<COriginPicker*>(object);
  return picker ? new QAccessibleWidget(picker, QAccessible::Canvas) : nullptr;
}

}  // namespace

COriginPicker::COriginPicker(QWidget* parent) : QWidget(parent) {
  QAccessible::installFactory(&MakeAccessible);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Origin"));
}

void COriginPicker::SetCurrent(CPropertySetting* setting, CValueSetting* value) {
  m_pSetting = setting;
  m_pValue = value;
  TellOrigin();
  update();
}

QPoint COriginPicker::PointOf(const CValueSetting& value) const {
  return {PixelAt(width(), value.GetOriginX()), PixelAt(height(), value.GetOriginY())};
}

void COriginPicker::paintEvent(QPaintEvent*) {
  if (!m_pSetting) return;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Midlight));
  painter.setBrush(palette().base());
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.setPen(palette().color(QPalette::Text));
  for (const auto& value : m_pSetting->GetValues()) {
    const QPoint at = PointOf(*value);
    if (value.get() == m_pValue) {
      DrawCircle(painter, at);
    } else {
      DrawCross(painter, at);
    }
  }
  if (hasFocus()) {
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
  }
}

void COriginPicker::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
  m_bDragging = true;
  MoveOriginTo(event->position().toPoint());
}

void COriginPicker::mouseMoveEvent(QMouseEvent* event) {
  if (m_bDragging) MoveOriginTo(event->position().toPoint());
}

void COriginPicker::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QWidget::mouseReleaseEvent(event);
  m_bDragging = false;
  MoveOriginTo(event->position().toPoint());
}

void COriginPicker::keyPressEvent(QKeyEvent* event) {
  const double step = event->modifiers() & Qt::ShiftModifier ? kLongStepPercent : kStepPercent;
  switch (event->key()) {
    case Qt::Key_Left:
      return MoveOrigin(-step, 0);
    case Qt::Key_Right:
      return MoveOrigin(step, 0);
    case Qt::Key_Up:
      return MoveOrigin(0, -step);
    case Qt::Key_Down:
      return MoveOrigin(0, step);
    default:
      QWidget::keyPressEvent(event);
  }
}

void COriginPicker::MoveOriginTo(const QPoint& point) {
  if (!m_pValue) return;
  m_pValue->SetOrigin(static_cast<float>(point.x()) / static_cast<float>(width()) * 100.0F,
                      static_cast<float>(point.y()) / static_cast<float>(height()) * 100.0F);
  TellOrigin();
  update();
}

void COriginPicker::MoveOrigin(double xPercent, double yPercent) {
  if (!m_pValue) return;
  m_pValue->SetOrigin(static_cast<float>(m_pValue->GetOriginX() + xPercent),
                      static_cast<float>(m_pValue->GetOriginY() + yPercent));
  TellOrigin();
  update();
}

void COriginPicker::TellOrigin() {
  if (!m_pValue) return setAccessibleDescription(tr("No value chosen"));
  setAccessibleDescription(
      tr("%1 % from the left, %2 % from the top").arg(m_pValue->GetOriginX()).arg(m_pValue->GetOriginY()));
}

}  // namespace quorvel
