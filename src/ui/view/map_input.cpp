#include "ui/view/map_input.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QApplication>
#include <QCursor>
#include <QGestureEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPinchGesture>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>
#include <QTouchEvent>
#include <QWheelEvent>

#include "map/document/vastrel_doc.h"
#include "platform/documents/win_app.h"
#include "ui/view/cell_navigation.h"
#include "ui/view/cell_tooltip.h"
#include "ui/view/edge_scroll.h"
#include "ui/view/map_view.h"
#include "ui/view/scroll_keys.h"

namespace quorvel {
namespace {

/// Between two steps of a map that scrolls after the pointer.
constexpr int kEdgeScrollMs = 30;

}  // namespace

MapInput::MapInput(CMapView& view, const CWinApp& application) : view_(view), application_(application) {
  view.installEventFilter(this);
  view.viewport()->installEventFilter(this);
  view.viewport()->setMouseTracking(true);
  view.viewport()->grabGesture(Qt::PinchGesture);
  edgeTimer_.setInterval(kEdgeScrollMs);
  connect(&edgeTimer_, &QTimer::timeout, this, &MapInput::ScrollAlong);
}

CVastrelDoc* MapInput::Document() const {
  return view_.Document();
}

bool MapInput::eventFilter(QObject* watched, QEvent* event) {
  return watched == &view_ ? OnViewEvent(*event) : OnViewportEvent(*event);
}

bool MapInput::OnViewEvent(QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress:
      return OnKeyPress(static_cast<QKeyEvent&>(event));
    case QEvent::KeyRelease: {
      const auto& key = static_cast<QKeyEvent&>(event);
      if (key.key() == Qt::Key_Space && !key.isAutoRepeat()) LiftSpaceBar();
      return false;
    }
    case QEvent::FocusOut:
      EndAll();
      return false;
    default:
      return false;
  }
}

bool MapInput::OnViewportEvent(QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseMove:
      OnMouseMove(static_cast<QMouseEvent&>(event));
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:  // presses that follow one another quickly are presses all the same
      OnMousePress(static_cast<QMouseEvent&>(event));
      return true;
    case QEvent::MouseButtonRelease:
      OnMouseRelease(static_cast<QMouseEvent&>(event));
      return true;
    case QEvent::Wheel:
      return OnWheel(static_cast<QWheelEvent&>(event));
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
      OnTouch(static_cast<QTouchEvent&>(event));
      return true;
    case QEvent::NativeGesture:
      OnNativeGesture(static_cast<QNativeGestureEvent&>(event));
      return true;
    case QEvent::Gesture:
      OnGesture(static_cast<QGestureEvent&>(event));
      return true;
    case QEvent::ToolTip:
      ShowTooltip(static_cast<QHelpEvent&>(event));
      return true;
    default:
      return false;
  }
}

// --- Whose the current cell is

bool MapInput::TakeCellUnder(QPoint viewportPoint) {
  restingPointer_.reset();
  if (!Document()) return false;
  const CellCoord cell = view_.CellAt(viewportPoint);
  return SetCurrentCell(*Document(), &cell);
}

void MapInput::TakePointer() {
  TakeCellUnder(view_.viewport()->mapFromGlobal(QCursor::pos()));
}

void MapInput::GoToCell(CellCoord cell) {
  restingPointer_ = QCursor::pos();
  const bool hasMoved = SetCurrentCell(*Document(), &cell);
  if (hasMoved && isSpaceDown_) UseTool(ToolPhase::Moved);
  const Hold hold = HoldCell();
  view_.ShowCell(cell);
}

void MapInput::OnMapMoved() {
  if (!isCellHeld_) TakePointer();
}

// --- Pointer

void MapInput::OnMouseMove(const QMouseEvent& event) {
  EndWhatIsReleased(event.buttons());
  // The system tells the pointer's place also when a window beside it opens or closes.
  if (restingPointer_ == event.globalPosition().toPoint()) return;
  const QPoint pointer = event.position().toPoint();
  if (pannedBy_) view_.ScrollToPosition(*pannedBy_ - pointer);
  MoveTo(pointer);
}

void MapInput::OnMousePress(const QMouseEvent& event) {
  EndWhatIsReleased(event.buttons() & ~event.button());
  if (!Document()) return;
  if (event.button() == Qt::MiddleButton) BeginPan(event.position().toPoint());
  if (event.button() != Qt::LeftButton || isSpaceDown_) return;
  if (restingPointer_) TakeCellUnder(event.position().toPoint());
  m_bButtonDown = true;
  UseTool(ToolPhase::Pressed);
}

void MapInput::OnMouseRelease(const QMouseEvent& event) {
  EndWhatIsReleased(event.buttons() & ~event.button());
}

/// A release may never arrive: outside the window, or while a dialog comes up. The buttons of whatever event
/// comes next tell of it.
void MapInput::EndWhatIsReleased(Qt::MouseButtons held) {
  if (pannedBy_ && !held.testFlag(Qt::MiddleButton)) EndPan();
  if (m_bButtonDown && !held.testFlag(Qt::LeftButton)) EndDrag();
}

/// The keyboard has gone to another window, a dialog or a popup menu, and the pointer with it.
void MapInput::EndAll() {
  LiftSpaceBar();
  EndDrag();
  waitingFinger_.reset();
  if (pannedBy_) EndPan();
}

void MapInput::UseTool(ToolPhase phase) {
  if (Document() && !application_.IsBusy()) ApplyTool(*Document(), phase);
}

/// The pointer or a finger is at this place. A drag has hold of the edge that it has left, as long as there
/// is more of the map behind it, which then comes along.
void MapInput::MoveTo(QPoint pointer) {
  pointer_ = pointer;
  const QPoint beyond = IsDrag() ? BeyondEdge() : QPoint();
  if (TakeCellUnder(pointer - beyond) && IsDrag()) UseTool(ToolPhase::Moved);
  if (beyond.isNull()) {
    edgeTimer_.stop();
  } else if (!edgeTimer_.isActive()) {
    edgeTimer_.start();
  }
}

void MapInput::EndDrag() {
  edgeTimer_.stop();
  if (!IsDrag()) return;
  m_bButtonDown = isFingerDown_ = false;
  UseTool(ToolPhase::Released);
}

QPoint MapInput::BeyondEdge() const {
  const QPoint farthest(view_.horizontalScrollBar()->maximum(), view_.verticalScrollBar()->maximum());
  return BeyondEdgeOf(view_.viewport()->size(), pointer_, view_.ScrollPosition(), farthest);
}

/// Goes pixel by pixel: no cell between two steps is left out.
void MapInput::ScrollAlong() {
  const QPoint beyond = BeyondEdge();
  const QPoint held = pointer_ - beyond;
  const QPoint start = view_.ScrollPosition();
  const QPoint step = EdgeScrollStep(beyond, view_.CellSize());
  const int pixels = std::max(std::abs(step.x()), std::abs(step.y()));
  for (int pixel = 1; pixel <= pixels; ++pixel) {
    const Hold hold = HoldCell();
    view_.ScrollToPosition(start + QPoint(step.x() * pixel / pixels, step.y() * pixel / pixels));
    if (TakeCellUnder(held)) UseTool(ToolPhase::Moved);
  }
  if (BeyondEdge().isNull()) MoveTo(pointer_);
}

void MapInput::BeginPan(QPoint pointer) {
  pannedBy_ = view_.ScrollPosition() + pointer;
  view_.viewport()->setCursor(Qt::ClosedHandCursor);
}

void MapInput::EndPan() {
  pannedBy_.reset();
  view_.ShowToolCursor();
}

// --- Fingers

/// A finger acts when it is lifted or has moved like a drag. With a second finger before that it was the
/// beginning of a pinch, and with one later the drag is over.
void MapInput::OnTouch(const QTouchEvent& event) {
  const bool isCancelled = event.type() == QEvent::TouchCancel;
  if (isCancelled || event.pointCount() != 1) {
    waitingFinger_.reset();
    EndDrag();
    return;
  }
  const QPoint place = event.points().first().position().toPoint();
  if (event.type() == QEvent::TouchBegin) {
    view_.setFocus(Qt::MouseFocusReason);
    waitingFinger_ = place;
  } else if (event.type() == QEvent::TouchEnd) {
    LiftFinger();
  } else {
    const bool isFar =
        waitingFinger_ && (place - *waitingFinger_).manhattanLength() >= QApplication::startDragDistance();
    if (isFar) LetFingerAct();
    if (isFingerDown_) MoveTo(place);
  }
}

void MapInput::LiftFinger() {
  if (waitingFinger_) LetFingerAct();
  EndDrag();
}

/// Presses where the finger came down.
void MapInput::LetFingerAct() {
  TakeCellUnder(*waitingFinger_);
  waitingFinger_.reset();
  if (isSpaceDown_) return;
  isFingerDown_ = true;
  UseTool(ToolPhase::Pressed);
}

// --- Wheel and gestures

bool MapInput::OnWheel(const QWheelEvent& event) {
  EndWhatIsReleased(event.buttons());
  const Qt::KeyboardModifiers held = event.modifiers();
  if (held.testFlag(Qt::ControlModifier)) {
    if (event.phase() == Qt::ScrollBegin) zoomSteps_.Reset();
    ZoomAt(event.position().toPoint(), zoomSteps_.Turn(event.angleDelta(), event.pixelDelta()));
    return true;
  }
  if (held.testFlag(Qt::ShiftModifier)) {
    ScrollSideways(event);
    return true;
  }
  return false;
}

/// Some systems turn the wheel's direction themselves while Shift is held.
void MapInput::ScrollSideways(const QWheelEvent& event) {
  const auto sideways = [](QPoint delta) {
    return std::abs(delta.y()) > std::abs(delta.x()) ? delta.transposed() : delta;
  };
  QWheelEvent turned(event.position(), event.globalPosition(), sideways(event.pixelDelta()),
                     sideways(event.angleDelta()), event.buttons(), Qt::NoModifier, event.phase(),
                     event.inverted());
  QApplication::sendEvent(view_.horizontalScrollBar(), &turned);
}

/// A touchpad's pinch: each event tells by which share the fingers moved apart.
void MapInput::OnNativeGesture(const QNativeGestureEvent& event) {
  if (event.gestureType() == Qt::BeginNativeGesture) zoomSteps_.Reset();
  if (event.gestureType() != Qt::ZoomNativeGesture) return;
  ZoomAt(event.position().toPoint(), zoomSteps_.Pinch(1 + event.value(), view_.CellSize()));
}

/// A touch screen's pinch.
void MapInput::OnGesture(const QGestureEvent& event) {
  const auto* pinch = static_cast<QPinchGesture*>(event.gesture(Qt::PinchGesture));
  if (!pinch || !pinch->changeFlags().testFlag(QPinchGesture::ScaleFactorChanged)) return;
  if (pinch->state() == Qt::GestureStarted) zoomSteps_.Reset();
  const QPoint middle = view_.viewport()->mapFromGlobal(pinch->centerPoint().toPoint());
  ZoomAt(middle, zoomSteps_.Pinch(pinch->scaleFactor(), view_.CellSize()));
}

void MapInput::ZoomAt(QPoint pointer, int steps) {
  {
    const Hold hold = HoldCell();
    if (!view_.ZoomAt(pointer, steps)) return;
  }
  TakeCellUnder(pointer);
}

/// The pointer rests. Texts of the map are plain, whatever they look like.
void MapInput::ShowTooltip(const QHelpEvent& event) {
  const CellCoord cell = view_.CellAt(event.pos());
  const QString text = view_.HasGrid() ? CellTooltip(*Document(), view_.Look(), cell) : QString();
  const QString shown = text.isEmpty() ? QString() : Qt::convertFromPlainText(text);
  QToolTip::showText(event.globalPos(), shown, view_.viewport(), view_.CellRect(cell));
}

// --- Keys

bool MapInput::OnKeyPress(const QKeyEvent& event) {
  if (OnCellKey(event) || OnSpaceBar(event) || OnScrollKey(event)) return true;
  for (const QChar character : event.text()) OnChar(character);
  return false;
}

/// Alt and a key move the current cell. Off the map they begin in the middle of what is in sight.
bool MapInput::OnCellKey(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
  if (held != Qt::AltModifier || !view_.HasGrid()) return false;
  const CellGrid& grid = *Document()->m_pGrid;
  const CellCoord cell = *Document()->m_pCurrentCell;
  const auto direction = DirectionOfKey(event.key(), cell.column);
  if (!direction) return false;
  if (grid.IsValid(cell)) {
    const CellCoord moved = grid.CoordOf(grid.Neighbour(grid.IndexOf(cell), *direction));
    GoToCell(grid.IsValid(moved) ? moved : cell);
  } else {
    const CellCoord middle = view_.CellAt(view_.viewport()->rect().center());
    GoToCell(grid.IsValid(middle) ? middle : CellCoord{0, 0});
  }
  return true;
}

/// The space bar is the button for the current cell: while it is down, cells moved to are painted, too.
bool MapInput::OnSpaceBar(const QKeyEvent& event) {
  if (event.key() != Qt::Key_Space || !Document()) return false;
  if (event.isAutoRepeat() || isSpaceDown_ || IsDrag()) return true;
  isSpaceDown_ = true;
  UseTool(ToolPhase::Pressed);
  return true;
}

void MapInput::LiftSpaceBar() {
  if (std::exchange(isSpaceDown_, false)) UseTool(ToolPhase::Released);
}

bool MapInput::OnScrollKey(const QKeyEvent& event) {
  if (!view_.HasGrid()) return false;
  const auto position =
      ScrolledByKey(event.key(), event.modifiers(), view_.Place(), view_.viewport()->size());
  if (!position) return false;
  view_.ScrollToPosition(*position);
  TakePointer();
  return true;
}

/// "[" and "]" step the member that fills the cells, "{" and "}" the one that outlines them.
void MapInput::OnChar(QChar character) {
  if (character == u'[' || character == u']') view_.StepFillMember(character == u'[' ? -1 : 1);
  if (character == u'{' || character == u'}') view_.StepOutlineMember(character == u'{' ? -1 : 1);
}

}  // namespace quorvel
