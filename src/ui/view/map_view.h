#pragma once

#include <optional>
#include <string>

#include <QAbstractScrollArea>
#include <QTimer>

#include "map/document/editing.h"
#include "platform/documents/view.h"
#include "ui/commands/command_target.h"
#include "ui/view/map_picture.h"
#include "ui/view/scroll_place.h"
#include "ui/view/zoom_steps.h"

class QGestureEvent;
class QHelpEvent;
class QNativeGestureEvent;

namespace quorvel {

class CVastrelDoc;
class CWinApp;

/// A map as a field of hexagons in a scrolling window. Follows the pointer from cell to cell and turns
/// presses and drags into tool actions of the document; everything that changes the map happens there.
///
/// Scroll positions are in map pixels. A view without a document, or whose document has no grid, is empty.
class CMapView : public QAbstractScrollArea, public CView {
  Q_OBJECT
 public:
  /// The application outlives the view. While it is busy the pointer is followed, but tools do nothing.
  explicit CMapView(const CWinApp& application);
  ~CMapView() override;

  CVastrelDoc* Document() const;
  /// Whether there is a map to see.
  bool HasGrid() const;
  CommandTarget& Commands() { return commands_; }

  /// Called once, when the view has its document and its place.
  void OnInitialUpdate();
  void OnUpdate(CView* sender, const UpdateHint& hint) override;
  void OnTitleChanged() override;

  /// Height of a cell in pixels: 10, 20, ... 100.
  float CellSize() const { return m_fCellSize; }
  void SetCellSize(float cellSizePx);
  /// By a step, with the scroll position kept as far as there is so much to scroll.
  void OnZoomIn();
  void OnZoomOut();
  /// By that many steps, positive for larger cells, with the cell under a point of the viewport kept there.
  void ZoomAt(QPoint pointer, int steps);
  /// Asks for the cell.
  void OnGoToCell();

  /// Takes the cell under the pointer, wherever the pointer is, as the document's current cell.
  void UpdateCurrentCell();
  /// Takes a cell of the grid as the document's current cell and scrolls it into sight. It stays the current
  /// one until the pointer moves or the user zooms or scrolls.
  void GoToCell(CellCoord cell);
  /// Each coordinate is held within what there is to scroll.
  void ScrollToPosition(QPoint position);
  QPoint ScrollPosition() const;
  /// The cell that owns a point of the viewport, (-1, -1) beside the map; (0, 0) when there is no map.
  CellCoord CellAt(QPoint viewportPoint) const;
  /// The bounds of a cell in the viewport, in sight or not.
  QRect CellRect(CellCoord cell) const;

  /// Shows the cursor of the document's tool over the map.
  void ShowToolCursor();

  /// What the view shows and how, for its own picture and for paper.
  MapLook Look();

 signals:
  void TitleChanged();

 protected:
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void BuildScrollBar(QScrollBar& bar);
  void SetScrollSizes();
  void FitPicture();
  void InvalidateAll();
  void RedrawCell(CellCoord cell);
  void ShowTouchedCells();
  void ShowCurrentCell();
  QRect InViewport(const QRect& pictureRect) const;
  ScrollPlace Place() const { return {m_fCellSize, ScrollPosition()}; }
  bool TakeCellUnder(QPoint viewportPoint);
  void Zoom(int steps);

  void UseTool(ToolPhase phase);
  void BeginPan(QPoint pointer);
  void EndPan();
  void OnNativeGesture(const QNativeGestureEvent& event);
  void OnGesture(const QGestureEvent& event);
  void ScrollSideways(const QWheelEvent& event);
  void ShowTooltip(const QHelpEvent& event);
  bool OnCellKey(const QKeyEvent& event);
  bool OnSpaceBar(const QKeyEvent& event);
  void LiftSpaceBar();
  bool OnArrowKey(int key);
  void OnChar(QChar character);

  float m_fCellSize = 100;
  bool m_bButtonDown = false;
  std::string m_strOutlineMember;
  std::string m_strFillMember;

  const CWinApp& application_;
  CommandMap<CMapView> commands_;
  MapPicture picture_;
  bool isLookStale_ = true;
  QTimer frameTimer_;

  /// The map is dragged by this point of it, in map pixels.
  std::optional<QPoint> pannedBy_;
  ZoomSteps zoomSteps_;
  bool isMovingItself_ = false;  // scrolls, and takes the right cell at the end
  bool isSpaceDown_ = false;
  /// Where the pointer rests while the current cell is one that a key chose; none: it is the pointer's.
  std::optional<QPoint> restingPointer_;
};

}  // namespace quorvel
