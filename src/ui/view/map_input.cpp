// The input side of CMapView: pointer, wheel, gestures and keys.

#include <cmath>
#include <utility>

#include <QApplication>
#include <QGestureEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPinchGesture>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>
#include <QWheelEvent>

#include "map/document/vastrel_doc.h"
#include "map/grid/cell_metrics.h"
#include "platform/documents/win_app.h"
#include "render/colour_members.h"
#include "ui/view/cell_navigation.h"
#include "ui/view/cell_tooltip.h"
#include "ui/view/map_accessible.h"
#include "ui/view/map_view.h"

namespace quorvel {

// --- Pointer

void CMapView::mouseMoveEvent(QMouseEvent* event) {
  // The system tells the pointer's place also when a window beside it opens or closes.
  if (restingPointer_ == event->globalPosition().toPoint()) return;
  const QPoint pointer = event->position().toPoint();
  if (pannedBy_) ScrollToPosition(*pannedBy_ - pointer);
  if (TakeCellUnder(pointer) && m_bButtonDown) UseTool(ToolPhase::Moved);
}

void CMapView::UseTool(ToolPhase phase) {
  if (!application_.IsBusy()) ApplyTool(*Document(), phase);
}

void CMapView::mousePressEvent(QMouseEvent* event) {
  if (!Document()) return;
  if (event->button() == Qt::MiddleButton) BeginPan(event->position().toPoint());
  if (event->button() != Qt::LeftButton || isSpaceDown_) return;
  if (restingPointer_) TakeCellUnder(event->position().toPoint());
  m_bButtonDown = true;
  UseTool(ToolPhase::Pressed);
}

/// Presses that follow one another quickly are presses all the same.
void CMapView::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
}

void CMapView::mouseReleaseEvent(QMouseEvent* event) {
  if (!Document()) return;
  if (event->button() == Qt::MiddleButton) EndPan();
  if (event->button() != Qt::LeftButton || !m_bButtonDown) return;
  m_bButtonDown = false;
  UseTool(ToolPhase::Released);
}

void CMapView::BeginPan(QPoint pointer) {
  pannedBy_ = ScrollPosition() + pointer;
  viewport()->setCursor(Qt::ClosedHandCursor);
}

void CMapView::EndPan() {
  pannedBy_.reset();
  ShowToolCursor();
}

// --- Wheel and gestures

void CMapView::wheelEvent(QWheelEvent* event) {
  const Qt::KeyboardModifiers held = event->modifiers();
  if (held.testFlag(Qt::ControlModifier)) {
    if (event->phase() == Qt::ScrollBegin) zoomSteps_.Reset();
    ZoomAt(event->position().toPoint(), zoomSteps_.Turn(event->angleDelta(), event->pixelDelta()));
    event->accept();
  } else if (held.testFlag(Qt::ShiftModifier)) {
    ScrollSideways(*event);
    event->accept();
  } else {
    QAbstractScrollArea::wheelEvent(event);
  }
}

/// Some systems turn the wheel's direction themselves while Shift is held.
void CMapView::ScrollSideways(const QWheelEvent& event) {
  const auto sideways = [](QPoint delta) {
    return std::abs(delta.y()) > std::abs(delta.x()) ? delta.transposed() : delta;
  };
  QWheelEvent turned(event.position(), event.globalPosition(), sideways(event.pixelDelta()),
                     sideways(event.angleDelta()), event.buttons(), Qt::NoModifier, event.phase(),
                     event.inverted());
  QApplication::sendEvent(horizontalScrollBar(), &turned);
}

bool CMapView::viewportEvent(QEvent* event) {
  switch (event->type()) {
    case QEvent::NativeGesture:
      OnNativeGesture(*static_cast<QNativeGestureEvent*>(event));
      return true;
    case QEvent::Gesture:
      OnGesture(*static_cast<QGestureEvent*>(event));
      return true;
    case QEvent::ToolTip:
      ShowTooltip(*static_cast<QHelpEvent*>(event));
      return true;
    default:
      return QAbstractScrollArea::viewportEvent(event);
  }
}

/// A touchpad's pinch: each event tells by which share the fingers moved apart.
void CMapView::OnNativeGesture(const QNativeGestureEvent& event) {
  if (event.gestureType() == Qt::BeginNativeGesture) zoomSteps_.Reset();
  if (event.gestureType() != Qt::ZoomNativeGesture) return;
  ZoomAt(event.position().toPoint(), zoomSteps_.Pinch(1 + event.value(), m_fCellSize));
}

/// A touch screen's pinch. The first finger alone was a press, which ends here.
void CMapView::OnGesture(const QGestureEvent& event) {
  const auto* pinch = static_cast<QPinchGesture*>(event.gesture(Qt::PinchGesture));
  if (!pinch || !pinch->changeFlags().testFlag(QPinchGesture::ScaleFactorChanged)) return;
  if (pinch->state() == Qt::GestureStarted) zoomSteps_.Reset();
  m_bButtonDown = false;
  const QPoint middle = viewport()->mapFromGlobal(pinch->centerPoint().toPoint());
  ZoomAt(middle, zoomSteps_.Pinch(pinch->scaleFactor(), m_fCellSize));
}

/// The pointer rests. Texts of the map are plain, whatever they look like.
void CMapView::ShowTooltip(const QHelpEvent& event) {
  const CellCoord cell = CellAt(event.pos());
  const QString text = HasGrid() ? CellTooltip(*Document(), Look(), cell) : QString();
  const QString shown = text.isEmpty() ? QString() : Qt::convertFromPlainText(text);
  QToolTip::showText(event.globalPos(), shown, viewport(), CellRect(cell));
}

// --- Keys

void CMapView::keyPressEvent(QKeyEvent* event) {
  if (OnCellKey(*event) || OnSpaceBar(*event) || OnArrowKey(event->key())) return;
  for (const QChar character : event->text()) OnChar(character);
  QAbstractScrollArea::keyPressEvent(event);
}

/// Alt and a key move the current cell. Off the map they begin in the middle of what is in sight.
bool CMapView::OnCellKey(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
  if (held != Qt::AltModifier || !HasGrid()) return false;
  const CellGrid& grid = *Document()->m_pGrid;
  const CellCoord cell = *Document()->m_pCurrentCell;
  const auto direction = DirectionOfKey(event.key(), cell.column);
  if (!direction) return false;
  if (grid.IsValid(cell)) {
    const CellCoord moved = grid.CoordOf(grid.Neighbour(grid.IndexOf(cell), *direction));
    GoToCell(grid.IsValid(moved) ? moved : cell);
  } else {
    const CellCoord middle = CellAt(viewport()->rect().center());
    GoToCell(grid.IsValid(middle) ? middle : CellCoord{0, 0});
  }
  return true;
}

/// The space bar is the button for the current cell: while it is down, cells moved to are painted, too.
bool CMapView::OnSpaceBar(const QKeyEvent& event) {
  if (event.key() != Qt::Key_Space || !Document()) return false;
  if (event.isAutoRepeat() || isSpaceDown_ || m_bButtonDown) return true;
  isSpaceDown_ = true;
  UseTool(ToolPhase::Pressed);
  return true;
}

void CMapView::LiftSpaceBar() {
  if (!std::exchange(isSpaceDown_, false) || !Document()) return;
  UseTool(ToolPhase::Released);
}

void CMapView::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) LiftSpaceBar();
  QAbstractScrollArea::keyReleaseEvent(event);
}

void CMapView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  AnnounceCurrentCell(*this);
}

void CMapView::focusOutEvent(QFocusEvent* event) {
  LiftSpaceBar();
  QAbstractScrollArea::focusOutEvent(event);
}

bool CMapView::OnArrowKey(int key) {
  const bool isArrow =
      key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
  if (!isArrow || !HasGrid()) return false;
  const CellMetrics metrics = CellMetrics::At(m_fCellSize);
  const int dx = (key == Qt::Key_Right) - (key == Qt::Key_Left);
  const int dy = (key == Qt::Key_Down) - (key == Qt::Key_Up);
  ScrollToPosition(ScrollPosition() + QPoint(metrics.columnStep * dx, metrics.height * dy));
  UpdateCurrentCell();
  return true;
}

/// "[" and "]" step the member that fills the cells, "{" and "}" the one that outlines them.
void CMapView::OnChar(QChar character) {
  CVastrelDoc* document = Document();
  const bool stepsFill = character == u'[' || character == u']';
  const bool stepsOutline = character == u'{' || character == u'}';
  if (!document || (!stepsFill && !stepsOutline)) return;
  const int step = character == u'[' || character == u'{' ? -1 : 1;
  std::string& name = stepsFill ? m_strFillMember : m_strOutlineMember;
  const MemberDef* member = SelectIndexMember(document->m_pCellClass, name, step);
  if (!member) return;
  ShowCellText(*document, name);
  InvalidateAll();
}

}  // namespace quorvel
