#pragma once

#include <cstdint>
#include <deque>
#include <unordered_map>

#include <QAccessibleWidget>

#include "platform/documents/cell_coord.h"
#include "render/visible_cells.h"

namespace quorvel {

class CMapView;
struct MapContents;

/// The drawing area of a map view as assistive technology sees it: a table of all cells of the map, which
/// describes itself by the label of the current cell. Its children are the cells in sight, row by row; any
/// other cell is reached by its row and column. Cells get a body when they are asked for, and of those only
/// the latest are kept.
class MapAccessible final : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit MapAccessible(CMapView& view);
  ~MapAccessible() override;

  /// Null for a cell outside the map. Good until some thousand other cells have been asked for.
  QAccessibleInterface* BodyOf(CellCoord cell) const;

  QAccessibleInterface* child(int index) const override;
  /// 0 while very many cells are in sight; each of them can still be asked for.
  int childCount() const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;
  QString text(QAccessible::Text kind) const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QAccessibleInterface* cellAt(int row, int column) const override;
  int rowCount() const override;
  int columnCount() const override;
  QString rowDescription(int row) const override { return QString::number(row); }
  QString columnDescription(int column) const override { return QString::number(column); }
  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  void modelChange(QAccessibleTableModelChangeEvent*) override {}

  int selectedCellCount() const override;
  /// Those in sight.
  QList<QAccessibleInterface*> selectedCells() const override;
  // Marks are made cell by cell; rows and columns are never selected as such.
  int selectedRowCount() const override { return 0; }
  int selectedColumnCount() const override { return 0; }
  QList<int> selectedRows() const override { return {}; }
  QList<int> selectedColumns() const override { return {}; }
  bool isRowSelected(int) const override { return false; }
  bool isColumnSelected(int) const override { return false; }
  bool selectRow(int) override { return false; }
  bool selectColumn(int) override { return false; }
  bool unselectRow(int) override { return false; }
  bool unselectColumn(int) override { return false; }

 private:
  /// Null when the view shows no map.
  const MapContents* Map() const;
  CellSpan InSight() const;

  CMapView& view_;
  // By row and column; the bodies belong to Qt, which knows them by number.
  mutable std::unordered_map<std::uint64_t, QAccessible::Id> bodies_;
  mutable std::deque<std::uint64_t> oldestFirst_;
};

/// Lets the viewports of map views be MapAccessible, and the views describe themselves like them.
void InstallMapAccessible();

/// Tells assistive technology that another cell of the view became the current one; nothing happens while
/// none listens.
void AnnounceCurrentCell(CMapView& view);
/// Tells it that the value or the mark of the current cell changed.
void AnnounceChangeOfCurrentCell(CMapView& view);

}  // namespace quorvel
