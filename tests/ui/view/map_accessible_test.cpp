// What a screen reader is told about a map.

#include "ui/view/map_accessible.h"

#include <QHelpEvent>
#include <QToolTip>

#include "map/document/editing.h"
#include "tests/ui/editor.h"
#include "ui/view/cell_tooltip.h"

namespace quorvel {
namespace {

/// How the label of a cell of Editor's maps begins.
QString LabelStart(int index) {
  return QStringLiteral("n:Sol\nv:%1\n").arg(index);
}

MapAccessible& TableOf(CMapView& view) {
  return dynamic_cast<MapAccessible&>(*QAccessible::queryAccessibleInterface(view.viewport()));
}

TEST(MapAccessible, IsATableOfLabelledCells) {
  Editor editor;
  CVastrelDoc& document = *editor.OpenMap(10, 8);
  MapAccessible& table = TableOf(editor.View());
  const QAccessibleInterface& view = *QAccessible::queryAccessibleInterface(&editor.View());
  EXPECT_EQ(view.text(QAccessible::Name), "Map view");
  EXPECT_EQ(view.child(0), &table);
  EXPECT_EQ(table.text(QAccessible::Name), "Map");
  EXPECT_EQ(table.role(), QAccessible::Table);
  ASSERT_TRUE(table.tableInterface());
  EXPECT_EQ(table.rowCount(), 8);
  EXPECT_EQ(table.columnCount(), 10);
  EXPECT_EQ(table.text(QAccessible::Description), "") << "no cell is current yet";

  editor.MovePointer(editor.Middle({2, 1}));
  EXPECT_TRUE(table.text(QAccessible::Description).startsWith(LabelStart(12)));
  EXPECT_EQ(view.text(QAccessible::Description), table.text(QAccessible::Description));
  QAccessibleInterface* cell = table.cellAt(1, 2);
  ASSERT_TRUE(cell);
  EXPECT_EQ(cell->text(QAccessible::Name), table.text(QAccessible::Description));
  EXPECT_EQ(cell->text(QAccessible::Description), "12(2:1)");
  EXPECT_EQ(cell->tableCellInterface()->rowIndex(), 1);
  EXPECT_EQ(cell->tableCellInterface()->columnIndex(), 2);
  EXPECT_EQ(cell->parent(), &table);
  EXPECT_TRUE(cell->rect().contains(editor.View().viewport()->mapToGlobal(editor.Middle({2, 1}))));
  EXPECT_FALSE(table.cellAt(8, 0) || table.cellAt(0, 10) || table.cellAt(-1, -1));

  EXPECT_FALSE(cell->state().selected);
  OnEditSelectAll(document);
  EXPECT_TRUE(cell->state().selected);
  EXPECT_EQ(table.selectedCellCount(), 80);
}

TEST(MapAccessible, ItsChildrenAreTheCellsInSightAndFewAreKept) {
  Editor editor;
  ASSERT_TRUE(editor.OpenMap(100, 80));
  CMapView& view = editor.View();
  MapAccessible& table = TableOf(view);
  for (const QPoint place : {QPoint(0, 0), {3000, 3000}, {99999, 99999}}) {
    view.ScrollToPosition(place);
    ASSERT_GT(table.childCount(), 30);
    EXPECT_LT(table.childCount(), 300);
    for (int index = 0; index < table.childCount(); ++index) {
      QAccessibleInterface* cell = table.child(index);
      ASSERT_EQ(table.indexOfChild(cell), index);
      const QPoint middle = cell->rect().center();
      if (!table.rect().contains(middle)) continue;
      ASSERT_EQ(table.childAt(middle.x(), middle.y()), cell);
    }
  }
  view.SetCellSize(10);
  EXPECT_EQ(table.childCount(), 0) << "thousands are in sight";
  EXPECT_EQ(table.child(table.indexOfChild(table.cellAt(40, 70))), table.cellAt(40, 70));
  view.SetCellSize(100);
  view.ScrollToPosition({3000, 3000});
  EXPECT_EQ(table.indexOfChild(table.cellAt(0, 0)), -1) << "far out of sight";
  EXPECT_TRUE(table.cellAt(0, 0)->state().offscreen);

  const QAccessible::Id first = QAccessible::uniqueId(table.cellAt(0, 0));
  for (int index = 0; index < 8000; ++index) ASSERT_TRUE(table.cellAt(index / 100, index % 100));
  EXPECT_FALSE(QAccessible::accessibleInterface(first)) << "its body was given up for others";
  EXPECT_TRUE(table.cellAt(0, 0)->text(QAccessible::Name).startsWith(LabelStart(0))) << "and is made anew";
}

TEST(CellTooltip, SaysWhatTheCellCannotShow) {
  Editor editor;
  CVastrelDoc& document = *editor.OpenMap(10, 8);
  MapLook look;
  EXPECT_EQ(CellTooltip(document, look, {2, 1}), "") << "it can be read at 100 pixels";
  look.filter = [](const CellRecord&) { return false; };
  EXPECT_TRUE(CellTooltip(document, look, {2, 1}).startsWith(LabelStart(12))) << "faded cells bear no label";
  look.filter = nullptr;
  look.cellSizePx = 40;
  EXPECT_TRUE(CellTooltip(document, look, {2, 1}).startsWith(LabelStart(12))) << "two lines have room";
  EXPECT_EQ(CellTooltip(document, look, {10, 0}), "") << "beside the map";

  editor.View().SetCellSize(20);
  const QPoint place = editor.Middle({2, 1});
  QHelpEvent rest(QEvent::ToolTip, place, editor.View().viewport()->mapToGlobal(place));
  QApplication::sendEvent(editor.View().viewport(), &rest);
  EXPECT_TRUE(QToolTip::isVisible());
  EXPECT_TRUE(QToolTip::text().contains("v:12")) << QToolTip::text().toStdString();
  QToolTip::hideText();
}

}  // namespace
}  // namespace quorvel
