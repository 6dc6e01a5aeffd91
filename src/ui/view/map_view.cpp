#include "ui/view/map_view.h"

#include <algorithm>
#include <cmath>

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

#include "map/document/editing.h"
#include "map/document/vastrel_doc.h"
#include "map/fill/map_filter.h"
#include "map/grid/cell_metrics.h"
#include "render/colour_members.h"
#include "render/map_extent.h"
#include "render/pixel_scale.h"
#include "ui/dialogs/go_to_cell_dialog.h"
#include "ui/drawings/tool_cursors.h"
#include "ui/resources/command_ids.h"
#include "ui/view/map_accessible.h"
#include "ui/view/map_input.h"
#include "ui/view/zoom_steps.h"

namespace quorvel {
namespace {

/// Changed cells are drawn together, once a frame of a usual screen.
constexpr int kFrameMs = 16;

/// What a view without a grid scrolls over.
constexpr MapRect kEmptyExtent = {0, 0, 10, 10};

constexpr CommandRow<CMapView> kViewCommands[] = {
    {{.id = ID_ZOOM_IN,
      .menuText = "Zoom &In",
      .keys = "+ =",
      .text = "Zoom In\nZoom In ( ] )",
      .whatsThis = "Draws cells 10 pixels larger, up to 100.",
      .whileBusy = WhileBusy::Runs},
     [](CMapView& view) { view.OnZoomIn(); }},
    {{.id = ID_ZOOM_OUT,
      .menuText = "Zoom &Out",
      .keys = "-",
      .text = "Zoom Out\nZoom Out ( [ )",
      .whatsThis = "Draws cells 10 pixels smaller, down to 10.",
      .whileBusy = WhileBusy::Runs},
     [](CMapView& view) { view.OnZoomOut(); }},
    {{.id = ID_GO_TO_CELL,
      .keys = "Ctrl+G",
      .text = "Go to a cell of the map\nGo To Cell (Ctrl+G)",
      .whatsThis = "Asks for a column and a row, or an index, and scrolls that cell into sight."},
     [](CMapView& view) { view.OnGoToCell(); },
     [](const CMapView& view) { return view.HasGrid(); }},
};

}  // namespace

CMapView::CMapView(const CWinApp& application)
    : commands_(*this, kViewCommands), input_(std::make_unique<MapInput>(*this, application)) {
  InstallMapAccessible();
  setAccessibleName(tr("Map view"));
  viewport()->setAccessibleName(tr("Map"));
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  BuildScrollBar(*horizontalScrollBar());
  BuildScrollBar(*verticalScrollBar());
  frameTimer_.setSingleShot(true);
  frameTimer_.setInterval(kFrameMs);
  connect(&frameTimer_, &QTimer::timeout, this, &CMapView::ShowTouchedCells);
}

CMapView::~CMapView() = default;

std::span<const CommandRow<CMapView>> CMapView::CommandRows() {
  return kViewCommands;
}

CVastrelDoc* CMapView::Document() const {
  return static_cast<CVastrelDoc*>(GetDocument());
}

bool CMapView::HasGrid() const {
  return Document() && Document()->m_pGrid;
}

/// The page size is that of one cell, as the line size; the thumb still shows how much of the map is in
/// sight.
void CMapView::BuildScrollBar(QScrollBar& bar) {
  connect(&bar, &QScrollBar::actionTriggered, this, [&bar](int action) {
    if (action == QAbstractSlider::SliderPageStepAdd) bar.setSliderPosition(bar.value() + bar.singleStep());
    if (action == QAbstractSlider::SliderPageStepSub) bar.setSliderPosition(bar.value() - bar.singleStep());
  });
}

void CMapView::OnInitialUpdate() {
  ShowToolCursor();
  SetCellSize(m_fCellSize);
}

void CMapView::ShowToolCursor() {
  const bool paints = Document() && Document()->m_hToolCursor == ToolCursor::Paint;
  const double ratio = devicePixelRatioF();
  viewport()->setCursor(paints ? PaintToolCursor(ratio) : PointerToolCursor(ratio));
}

void CMapView::OnUpdate(CView*, const UpdateHint& hint) {
  switch (hint.code) {
    case UpdateHint::Cell:
      RedrawCell(hint.cell);
      if (hint.cell == *Document()->m_pCurrentCell) AnnounceChangeOfCurrentCell(*this);
      break;
    case UpdateHint::CurrentCell:
      ShowCurrentCell();
      break;
    case UpdateHint::Tool:
      ShowToolCursor();
      break;
    case UpdateHint::All:
      SetCellSize(m_fCellSize);
      break;
  }
}

void CMapView::OnTitleChanged() {
  emit TitleChanged();
}

void CMapView::SetCellSize(float cellSizePx) {
  m_fCellSize = cellSizePx;
  SetScrollSizes();
  InvalidateAll();
}

void CMapView::SetScrollSizes() {
  const bool hasGrid = HasGrid();
  const CellMetrics metrics = CellMetrics::At(m_fCellSize);
  const MapRect extent = hasGrid ? MapExtent(*Document()->m_pGrid, m_fCellSize) : kEmptyExtent;
  const QSize shown = viewport()->size();

  const auto setRange = [](QScrollBar& bar, std::int64_t total, int page, int step) {
    bar.setRange(0, static_cast<int>(std::max<std::int64_t>(0, total - page)));
    bar.setPageStep(page);
    bar.setSingleStep(step);
  };
  setRange(*horizontalScrollBar(), extent.Width(), shown.width(), hasGrid ? metrics.columnStep : 1);
  setRange(*verticalScrollBar(), extent.Height(), shown.height(), hasGrid ? metrics.height : 1);
}

void CMapView::OnZoomIn() {
  Zoom(1);
}

void CMapView::OnZoomOut() {
  Zoom(-1);
}

void CMapView::Zoom(int steps) {
  const float cellSizePx = ZoomedCellSize(m_fCellSize, steps);
  if (cellSizePx != m_fCellSize) SetCellSize(cellSizePx);
  UpdateCurrentCell();
}

bool CMapView::ZoomAt(QPoint pointer, int steps) {
  const float cellSizePx = ZoomedCellSize(m_fCellSize, steps);
  if (cellSizePx == m_fCellSize) return false;
  const QPoint position =
      HasGrid() ? ScrolledThroughZoom(*Document()->m_pGrid, Place(), pointer, cellSizePx) : ScrollPosition();
  SetCellSize(cellSizePx);
  ScrollToPosition(position);
  return true;
}

void CMapView::OnGoToCell() {
  if (!HasGrid()) return;
  GoToCellDialog question(*Document()->m_pGrid, *Document()->m_pCurrentCell, window());
  if (question.exec() == QDialog::Accepted) GoToCell(question.Cell());
}

QPoint CMapView::ScrollPosition() const {
  return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

void CMapView::ScrollToPosition(QPoint position) {
  horizontalScrollBar()->setValue(position.x());
  verticalScrollBar()->setValue(position.y());
}

CellCoord CMapView::CellAt(QPoint viewportPoint) const {
  if (!HasGrid()) return {0, 0};
  const QPoint point = viewportPoint + ScrollPosition();
  return Document()->m_pGrid->HitTest(m_fCellSize, point.x(), point.y());
}

QRect CMapView::CellRect(CellCoord cell) const {
  const CellBounds bounds = CellMetrics::At(m_fCellSize).Bounds(cell);
  const QSize size(bounds.right - bounds.left, bounds.bottom - bounds.top);
  return {QPoint(bounds.left, bounds.top) - ScrollPosition(), size};
}

void CMapView::UpdateCurrentCell() {
  input_->TakePointer();
}

void CMapView::GoToCell(CellCoord cell) {
  input_->GoToCell(cell);
}

void CMapView::ShowCell(CellCoord cell) {
  ScrollToPosition(ScrolledIntoSight(Place(), viewport()->size(), cell));
}

void CMapView::StepMember(std::string& name, int step) {
  CVastrelDoc* document = Document();
  if (!document || !SelectIndexMember(document->m_pCellClass, name, step)) return;
  ShowCellText(*document, name);
  InvalidateAll();
}

MapLook CMapView::Look() {
  MapLook look;
  look.cellSizePx = m_fCellSize;
  look.pixelRatio = devicePixelRatioF();
  if (const CVastrelDoc* document = Document()) {
    look.outlineMember = SelectIndexMember(document->m_pCellClass, m_strOutlineMember, 0);
    look.fillMember = SelectIndexMember(document->m_pCellClass, m_strFillMember, 0);
    look.currentCell = *document->m_pCurrentCell;
    if (const CPropertySettingList* filter = document->m_pFilter.get()) {
      look.filter = [filter](const CellRecord& record) { return PassesFilter(*filter, record.data); };
    }
  }
  return look;
}

void CMapView::InvalidateAll() {
  isLookStale_ = true;
  viewport()->update();
}

void CMapView::RedrawCell(CellCoord cell) {
  if (!isLookStale_ && picture_.Touch(cell) && !frameTimer_.isActive()) frameTimer_.start();
}

void CMapView::ShowCurrentCell() {
  AnnounceCurrentCell(*this);
  if (isLookStale_) return;
  picture_.MoveCurrentCell(*Document()->m_pCurrentCell);
  ShowTouchedCells();
}

/// Draws the cells that changed; what was drawn reaches the screen with the next paint event.
void CMapView::ShowTouchedCells() {
  if (!HasGrid() || isLookStale_) return;
  for (const QRect& drawn : picture_.Refresh(*Document())) viewport()->update(InViewport(drawn));
}

QRect CMapView::InViewport(const QRect& pictureRect) const {
  const double ratio = picture_.Look().pixelRatio;
  return QRectF(QPointF(pictureRect.topLeft()) / ratio, QSizeF(pictureRect.size()) / ratio).toAlignedRect();
}

/// Brings the picture to the viewport's size, place and look.
void CMapView::FitPicture() {
  const double ratio = devicePixelRatioF();
  const bool isOtherScreen = picture_.Look().pixelRatio != ratio;
  if (isLookStale_ || isOtherScreen) {
    picture_.Reset(Look());
    isLookStale_ = false;
  }
  if (isOtherScreen) ShowToolCursor();
  const auto devicePixels = [ratio](int logical) { return static_cast<int>(std::ceil(logical * ratio)); };
  picture_.Resize({devicePixels(viewport()->width()), devicePixels(viewport()->height())});
  const PixelScale scale{ratio};
  picture_.ScrollTo(scale.At(horizontalScrollBar()->value()), scale.At(verticalScrollBar()->value()));
}

void CMapView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  if (!HasGrid()) {
    painter.fillRect(event->rect(), palette().base());
    return;
  }
  FitPicture();
  for (const QRect& drawn : picture_.Refresh(*Document())) {
    if (!event->rect().contains(InViewport(drawn))) viewport()->update(InViewport(drawn));
  }
  const double ratio = picture_.Look().pixelRatio;
  for (const QRect& rect : event->region()) {
    const QRectF source(QPointF(rect.topLeft()) * ratio, QSizeF(rect.size()) * ratio);
    painter.drawImage(QRectF(rect), picture_.Image(), source);
  }
}

void CMapView::resizeEvent(QResizeEvent*) {
  const MapInput::Hold hold = input_->HoldChosenCell();
  SetScrollSizes();
}

void CMapView::scrollContentsBy(int, int) {
  viewport()->update();
  input_->OnMapMoved();
}

void CMapView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  AnnounceCurrentCell(*this);
}

void CMapView::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) InvalidateAll();
}

}  // namespace quorvel
