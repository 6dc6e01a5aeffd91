#pragma once

#include <QAccessible>
#include <QPointer>

#include "platform/documents/cell_coord.h"
#include "ui/view/map_view.h"

namespace quorvel {

/// What assistive technology reads of one cell: its label as name, its place as the status bar shows it as
/// description, "selected" for marked. Holds nothing but the cell's place; once the map has no such cell, or
/// the view has gone, it is no longer valid.
class CellAccessible final : public QAccessibleInterface, public QAccessibleTableCellInterface {
 public:
  CellAccessible(CMapView& view, CellCoord cell) : view_(&view), cell_(cell) {}

  CellCoord Cell() const { return cell_; }

  bool isValid() const override;
  QObject* object() const override { return nullptr; }
  QWindow* window() const override;
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override;
  QAccessible::Role role() const override { return QAccessible::Cell; }
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  bool isSelected() const override;
  QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override { return cell_.column; }
  int rowIndex() const override { return cell_.row; }
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  QAccessibleInterface* table() const override { return parent(); }

 private:
  QPointer<CMapView> view_;
  CellCoord cell_;
};

/// The label of a cell of the map, a property a line; empty where there is none.
QString LabelText(const MapContents& map, CellCoord cell);

}  // namespace quorvel
