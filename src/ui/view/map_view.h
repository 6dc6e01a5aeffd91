#pragma once

#include <memory>
#include <string>

#include <QAbstractScrollArea>
#include <QTimer>

#include "platform/documents/view.h"
#include "ui/commands/command_target.h"
#include "ui/view/map_picture.h"
#include "ui/view/scroll_place.h"

namespace quorvel {

class CVastrelDoc;
class CWinApp;
class MapInput;

/// A map as a field of hexagons in a scrolling window: draws, scrolls and zooms. What the user does to it is
/// heard by its MapInput; everything that changes the map happens in the document.
///
/// Scroll positions are in map pixels. A view without a document, or whose document has no grid, is empty.
class CMapView : public QAbstractScrollArea, public CView {
  Q_OBJECT
 public:
  /// The application outlives the view.
  explicit CMapView(const CWinApp& application);
  ~CMapView() override;

  CVastrelDoc* Document() const;
  /// Whether there is a map to see.
  bool HasGrid() const;
  CommandTarget& Commands() { return commands_; }
  static std::span<const CommandRow<CMapView>> CommandRows();

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
  /// False: the cells are as large as they were.
  bool ZoomAt(QPoint pointer, int steps);
  /// Asks for the cell.
  void OnGoToCell();

  /// Takes the cell under the pointer, wherever the pointer is, as the document's current cell.
  void UpdateCurrentCell();
  /// Takes a cell of the grid as the document's current cell and scrolls it into sight. It stays the current
  /// one until the pointer moves or the user zooms or scrolls.
  void GoToCell(CellCoord cell);
  /// Scrolls a cell of the grid into sight.
  void ShowCell(CellCoord cell);
  /// Each coordinate is held within what there is to scroll.
  void ScrollToPosition(QPoint position);
  QPoint ScrollPosition() const;
  ScrollPlace Place() const { return {m_fCellSize, ScrollPosition()}; }
  /// The cell that owns a point of the viewport, (-1, -1) beside the map; (0, 0) when there is no map.
  CellCoord CellAt(QPoint viewportPoint) const;
  /// The bounds of a cell in the viewport, in sight or not.
  QRect CellRect(CellCoord cell) const;

  /// Shows the cursor of the document's tool over the map.
  void ShowToolCursor();

  /// The next (1) or the previous (-1) index member colours the cells, or their outlines, from now on; its
  /// name is shown. Nothing happens without an index member.
  void StepFillMember(int step) { StepMember(m_strFillMember, step); }
  void StepOutlineMember(int step) { StepMember(m_strOutlineMember, step); }

  /// What the view shows and how, for its own picture and for paper.
  MapLook Look();

 signals:
  void TitleChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void focusInEvent(QFocusEvent* event) override;
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
  void Zoom(int steps);
  void StepMember(std::string& name, int step);

  float m_fCellSize = 100;
  std::string m_strOutlineMember;
  std::string m_strFillMember;

  CommandMap<CMapView> commands_;
  MapPicture picture_;
  bool isLookStale_ = true;
  QTimer frameTimer_;
  std::unique_ptr<MapInput> input_;
};

}  // namespace quorvel
