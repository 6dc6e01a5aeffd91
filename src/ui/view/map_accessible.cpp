#include "ui/view/map_accessible.h"

#include <algorithm>

#include "map/document/editing.h"
#include "map/document/vastrel_doc.h"
#include "ui/view/cell_accessible.h"
#include "ui/view/map_view.h"

namespace quorvel {
namespace {

constexpr std::size_t kMaxBodies = 4096;

/// Programs that walk the whole tree ask several questions of each child, a message each.
constexpr int kMaxListed = 1000;

std::uint64_t KeyOf(CellCoord cell) {
  return std::uint64_t{static_cast<std::uint32_t>(cell.row)} << 32 | static_cast<std::uint32_t>(cell.column);
}

int ColumnsOf(const CellSpan& span) {
  return std::max(0, span.lastColumn - span.firstColumn + 1);
}

int RowsOf(const CellSpan& span) {
  return std::max(0, span.lastRow - span.firstRow + 1);
}

QString CurrentLabel(const CMapView& view) {
  return view.HasGrid() ? LabelText(*view.Document(), *view.Document()->m_pCurrentCell) : QString();
}

/// The view around the drawing area, which has the keyboard.
class ViewAccessible final : public QAccessibleWidget {
 public:
  explicit ViewAccessible(CMapView& view) : QAccessibleWidget(&view), view_(view) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Description ? CurrentLabel(view_) : QAccessibleWidget::text(kind);
  }

 private:
  CMapView& view_;
};

QAccessibleInterface* MakeMapAccessible(const QString&, QObject* object) {
  if (auto* view = qobject_cast<CMapView*>(object)) return new ViewAccessible(*view);
  auto* view = object ? qobject_cast<CMapView*>(object->parent()) : nullptr;
  return view && view->viewport() == object ? new MapAccessible(*view) : nullptr;
}

/// The body of the current cell. Null when nobody listens or no cell is current.
QAccessibleInterface* ListenedCurrentCell(CMapView& view) {
  if (!QAccessible::isActive() || !view.Document()) return nullptr;
  auto* map = dynamic_cast<MapAccessible*>(QAccessible::queryAccessibleInterface(view.viewport()));
  return map ? map->BodyOf(*view.Document()->m_pCurrentCell) : nullptr;
}

void Tell(QAccessible::Event what, QAccessibleInterface& who) {
  QAccessibleEvent event(&who, what);
  QAccessible::updateAccessibility(&event);
}

void TellDescription(CMapView& view) {
  QAccessibleEvent event(view.viewport(), QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&event);
}

}  // namespace

MapAccessible::MapAccessible(CMapView& view)
    : QAccessibleWidget(view.viewport(), QAccessible::Table), view_(view) {}

MapAccessible::~MapAccessible() {
  for (const auto& [key, id] : bodies_) QAccessible::deleteAccessibleInterface(id);
}

const MapContents* MapAccessible::Map() const {
  return view_.HasGrid() ? view_.Document() : nullptr;
}

QAccessibleInterface* MapAccessible::BodyOf(CellCoord cell) const {
  if (!Map() || !Map()->m_pGrid->IsValid(cell)) return nullptr;
  const auto [found, isNew] = bodies_.try_emplace(KeyOf(cell), 0);
  if (!isNew) return QAccessible::accessibleInterface(found->second);

  auto* body = new CellAccessible(view_, cell);
  found->second = QAccessible::registerAccessibleInterface(body);
  oldestFirst_.push_back(KeyOf(cell));
  if (oldestFirst_.size() > kMaxBodies) {
    const auto oldest = bodies_.find(oldestFirst_.front());
    QAccessible::deleteAccessibleInterface(oldest->second);
    bodies_.erase(oldest);
    oldestFirst_.pop_front();
  }
  return body;
}

CellSpan MapAccessible::InSight() const {
  if (!Map()) return {0, -1, 0, -1};
  const QRect shown(view_.ScrollPosition(), view_.viewport()->size());
  return VisibleCells(
      *Map()->m_pGrid, CellMetrics::At(view_.CellSize()), PixelScale{},
      {shown.left(), shown.top(), shown.left() + shown.width(), shown.top() + shown.height()});
}

int MapAccessible::childCount() const {
  const CellSpan span = InSight();
  const int cells = ColumnsOf(span) * RowsOf(span);
  return cells <= kMaxListed ? cells : 0;
}

QAccessibleInterface* MapAccessible::child(int index) const {
  const CellSpan span = InSight();
  const int columns = ColumnsOf(span);
  if (index < 0 || index >= columns * RowsOf(span)) return nullptr;
  return BodyOf({span.firstColumn + index % columns, span.firstRow + index / columns});
}

int MapAccessible::indexOfChild(const QAccessibleInterface* child) const {
  const auto* body = dynamic_cast<const CellAccessible*>(child);
  if (!body) return -1;
  const CellSpan span = InSight();
  const CellCoord cell = body->Cell();
  const bool isInSight = cell.column >= span.firstColumn && cell.column <= span.lastColumn &&
                         cell.row >= span.firstRow && cell.row <= span.lastRow;
  return isInSight ? (cell.row - span.firstRow) * ColumnsOf(span) + cell.column - span.firstColumn : -1;
}

QAccessibleInterface* MapAccessible::childAt(int x, int y) const {
  const QPoint place = view_.viewport()->mapFromGlobal(QPoint(x, y));
  if (!Map() || !view_.viewport()->rect().contains(place)) return nullptr;
  return BodyOf(view_.CellAt(place));
}

QAccessibleInterface* MapAccessible::focusChild() const {
  return Map() && view_.hasFocus() ? BodyOf(*view_.Document()->m_pCurrentCell) : nullptr;
}

QString MapAccessible::text(QAccessible::Text kind) const {
  return kind == QAccessible::Description ? CurrentLabel(view_) : QAccessibleWidget::text(kind);
}

void* MapAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface* MapAccessible::cellAt(int row, int column) const {
  return BodyOf({column, row});
}

int MapAccessible::rowCount() const {
  return Map() ? Map()->m_pGrid->Height() : 0;
}

int MapAccessible::columnCount() const {
  return Map() ? Map()->m_pGrid->Width() : 0;
}

int MapAccessible::selectedCellCount() const {
  if (!Map()) return 0;
  const std::uint8_t* marks = Map()->m_pCellMarks.get();
  return static_cast<int>(std::count_if(marks, marks + Map()->m_pGrid->CellCount(),
                                        [](std::uint8_t mark) { return (mark & 1) != 0; }));
}

QList<QAccessibleInterface*> MapAccessible::selectedCells() const {
  QList<QAccessibleInterface*> selected;
  const CellSpan span = InSight();
  for (int row = span.firstRow; row <= span.lastRow; ++row) {
    for (int column = span.firstColumn; column <= span.lastColumn; ++column) {
      if ((IsMarked(*Map(), CellCoord{column, row}) & 1) == 0) continue;
      selected << BodyOf({column, row});
      if (selected.size() == static_cast<qsizetype>(kMaxBodies)) return selected;
    }
  }
  return selected;
}

void InstallMapAccessible() {
  QAccessible::installFactory(&MakeMapAccessible);
}

void AnnounceCurrentCell(CMapView& view) {
  QAccessibleInterface* cell = ListenedCurrentCell(view);
  if (!cell) return;
  TellDescription(view);
  if (view.hasFocus()) Tell(QAccessible::Focus, *cell);
}

void AnnounceChangeOfCurrentCell(CMapView& view) {
  QAccessibleInterface* cell = ListenedCurrentCell(view);
  if (!cell) return;
  TellDescription(view);
  Tell(QAccessible::NameChanged, *cell);
  Tell(cell->state().selected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove, *cell);
}

}  // namespace quorvel
