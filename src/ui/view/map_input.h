#pragma once

#include <optional>

#include <QObject>
#include <QScopedValueRollback>
#include <QTimer>

#include "map/document/editing.h"
#include "ui/view/zoom_steps.h"

class QGestureEvent;
class QHelpEvent;
class QKeyEvent;
class QMouseEvent;
class QNativeGestureEvent;
class QTouchEvent;
class QWheelEvent;

namespace quorvel {

class CMapView;
class CVastrelDoc;
class CWinApp;

/// What the user does to a map view with pointer, fingers, wheel and keys: follows the pointer from cell to
/// cell, turns presses and drags into tool actions of the document, scrolls and zooms the view. Owns all that
/// lives on between two such events.
///
/// A stroke of the tool lasts while a button, a finger or the space bar is down. While the application is
/// busy the pointer is followed, but tools do nothing.
class MapInput : public QObject {
 public:
  /// Hears the events of the view and of its viewport before they do. Both arguments outlive it.
  MapInput(CMapView& view, const CWinApp& application);

  /// Takes the cell under the pointer, wherever the pointer is, as the document's current cell.
  void TakePointer();
  /// Takes a cell of the grid and scrolls it into sight. It stays the current one until the pointer moves or
  /// the user zooms or scrolls.
  void GoToCell(CellCoord cell);

  /// The map has moved under the pointer.
  void OnMapMoved();
  /// While the answer lives, a map that moves leaves the current cell alone, ...
  using Hold = QScopedValueRollback<bool>;
  Hold HoldCell() { return Hold(isCellHeld_, true); }
  /// ... a cell that a key chose, that is.
  Hold HoldChosenCell() { return Hold(isCellHeld_, isCellHeld_ || restingPointer_); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  CVastrelDoc* Document() const;
  /// True: the event is done with.
  bool OnViewEvent(QEvent& event);
  bool OnViewportEvent(QEvent& event);

  void OnMouseMove(const QMouseEvent& event);
  void OnMousePress(const QMouseEvent& event);
  void OnMouseRelease(const QMouseEvent& event);
  void EndWhatIsReleased(Qt::MouseButtons held);
  void EndAll();

  bool TakeCellUnder(QPoint viewportPoint);
  void UseTool(ToolPhase phase);
  bool IsDrag() const { return m_bButtonDown || isFingerDown_; }
  void MoveTo(QPoint pointer);
  void EndDrag();
  QPoint BeyondEdge() const;
  void ScrollAlong();

  void BeginPan(QPoint pointer);
  void EndPan();

  void OnTouch(const QTouchEvent& event);
  void LiftFinger();
  void LetFingerAct();

  bool OnWheel(const QWheelEvent& event);
  void ScrollSideways(const QWheelEvent& event);
  void OnNativeGesture(const QNativeGestureEvent& event);
  void OnGesture(const QGestureEvent& event);
  void ZoomAt(QPoint pointer, int steps);
  void ShowTooltip(const QHelpEvent& event);

  bool OnKeyPress(const QKeyEvent& event);
  bool OnCellKey(const QKeyEvent& event);
  bool OnSpaceBar(const QKeyEvent& event);
  bool OnScrollKey(const QKeyEvent& event);
  void OnChar(QChar character);
  void LiftSpaceBar();

  CMapView& view_;
  const CWinApp& application_;

  bool m_bButtonDown = false;
  bool isFingerDown_ = false;
  bool isSpaceDown_ = false;
  /// Where a finger came down that has not acted yet: it may be the first of a pinch.
  std::optional<QPoint> waitingFinger_;
  /// The place of the drag, in the viewport or beside it, and the clock of the map that scrolls after it.
  QPoint pointer_;
  QTimer edgeTimer_;
  /// The map is dragged by this point of it, in map pixels.
  std::optional<QPoint> pannedBy_;
  ZoomSteps zoomSteps_;

  bool isCellHeld_ = false;
  /// Where the pointer rests while the current cell is one that a key chose; none: it is the pointer's.
  std::optional<QPoint> restingPointer_;
};

}  // namespace quorvel
