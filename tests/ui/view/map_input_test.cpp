// What the hand does to a map view: strokes and how they end, fingers, the view's edge, keys that scroll.

#include "ui/view/map_input.h"

#include <algorithm>
#include <functional>
#include <set>

#include <QScrollBar>
#include <QWheelEvent>

#include "tests/ui/editor.h"
#include "ui/drawings/tool_cursors.h"

namespace quorvel {
namespace {

class Input : public testing::Test {
 protected:
  /// The numbers of the cells with this mark.
  std::vector<int> CellsWith(int mark) {
    const CVastrelDoc& document = *editor.View().Document();
    std::vector<int> cells;
    for (int index = 0; index < document.m_pGrid->CellCount(); ++index) {
      if (document.m_pCellMarks[index] == mark) cells.push_back(index);
    }
    return cells;
  }
  std::vector<int> Marked() { return CellsWith(1); }
  std::vector<int> Unmarked() { return CellsWith(0); }
  QWidget& Viewport() { return *editor.View().viewport(); }
  template <class Event>
  void Send(QWidget& widget, Event event) {
    QApplication::sendEvent(&widget, &event);
  }

  Editor editor;
};

TEST_F(Input, AStrokeEndsWithItsButtonWhateverTellsOfIt) {
  ASSERT_TRUE(editor.OpenMap(10, 8));
  const QPoint first = editor.Middle({1, 1}), second = editor.Middle({2, 1}), later = editor.Middle({4, 4});
  const std::pair<const char*, std::function<void()>> ends[] = {
      {"a move without it", [&] { editor.LetGoUnseen(); }},
      {"the wheel",
       [&] {
         Send(Viewport(), QWheelEvent(later, Viewport().mapToGlobal(later), {}, {0, 120}, {}, {},
                                      Qt::NoScrollPhase, false));
       }},
      {"another button",
       [&] {
         Send(Viewport(), QMouseEvent(QEvent::MouseButtonPress, later, Viewport().mapToGlobal(later),
                                      Qt::RightButton, Qt::RightButton, {}));
       }},
      {"a dialog, a popup menu, another window",
       [&] { Send(editor.View(), QFocusEvent(QEvent::FocusOut, Qt::PopupFocusReason)); }},
  };
  for (const auto& [what, end] : ends) {
    SCOPED_TRACE(what);
    editor.Run(ID_EDIT_DESELECT);
    editor.PressAt(first);
    editor.MovePointer(second);
    end();
    editor.MovePointer(later);
    EXPECT_EQ(Marked(), (std::vector{11, 12}));
    editor.Release(later);
  }
  editor.Run(ID_EDIT_DESELECT);
  editor.PressAt(first);
  editor.PressAt(first);
  EXPECT_TRUE(Marked().empty()) << "a second press is a stroke of its own, which unmarks";
  editor.Release(first);
  Send(Viewport(), QMouseEvent(QEvent::MouseButtonDblClick, first, Viewport().mapToGlobal(first),
                               Qt::LeftButton, Qt::LeftButton, {}));
  EXPECT_EQ(Marked(), std::vector{11}) << "a quick one counts, too";
}

TEST_F(Input, ADragThatLeavesTheViewDrawsTheMapAlong) {
  struct Row {
    const char* what;
    QPoint from, pull;
    QPoint towards;
  };
  const Row rows[] = {{"down", {0, 0}, {0, 1}, {0, 700}},
                      {"up", {1000, 4000}, {0, -1}, {1000, 3300}},
                      {"right", {0, 0}, {1, 0}, {700, 0}},
                      {"left", {4000, 1000}, {-1, 0}, {3300, 1000}}};
  ASSERT_TRUE(editor.OpenMap(100, 80));
  CMapView& view = editor.View();
  const QPoint middle = Viewport().rect().center();
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    editor.Run(ID_EDIT_DESELECT);
    view.ScrollToPosition(row.from);
    editor.PressAt(middle);
    const QPoint outside = middle + QPoint(row.pull.x() * 5000, row.pull.y() * 5000);
    editor.MovePointer(outside);
    const auto isThere = [&] {
      const QPoint gone = view.ScrollPosition() - row.from;
      const QPoint wanted = row.towards - row.from;
      return QPoint::dotProduct(gone, row.pull) >= QPoint::dotProduct(wanted, row.pull);
    };
    EXPECT_TRUE(QTest::qWaitFor(isThere, 20000));
    editor.Release(outside);

    // Every cell on the way of the edge that the pointer left, and none that was out of sight.
    const CellGrid& grid = *view.Document()->m_pGrid;
    const QRect edge = Viewport().rect();
    const QPoint held(std::clamp(outside.x(), edge.left(), edge.right()),
                      std::clamp(outside.y(), edge.top(), edge.bottom()));
    const QPoint way = view.ScrollPosition() - row.from;
    const int pixels = way.manhattanLength();
    std::set<int> expected = {
        grid.IndexOf(grid.HitTest(100, middle.x() + row.from.x(), middle.y() + row.from.y()))};
    for (int pixel = 0; pixel <= pixels; ++pixel) {
      const QPoint point = held + row.from + way * pixel / pixels;
      expected.insert(grid.IndexOf(grid.HitTest(100, point.x(), point.y())));
    }
    const std::vector<int> marked = Marked();
    EXPECT_EQ(std::set<int>(marked.begin(), marked.end()), expected);
    const QPoint rests = view.ScrollPosition();
    editor.Settle();
    EXPECT_EQ(view.ScrollPosition(), rests) << "the button is up";
  }

  view.ScrollToPosition({0, 0});
  editor.PressAt(middle);
  editor.MovePointer({-50, middle.y()});
  editor.Settle();
  EXPECT_EQ(*view.Document()->m_pCurrentCell, CellCoord{}) << "beside the map there is nothing to draw along";
}

TEST_F(Input, AFingerActsWhenItIsLiftedOrDragsAndTwoZoom) {
  ASSERT_TRUE(editor.OpenMap(100, 80));
  static QPointingDevice* const screen = QTest::createTouchDevice();  // lives as long as the program
  const auto touch = [&] { return QTest::touchEvent(&Viewport(), screen); };
  const QPoint first = editor.Middle({1, 1});
  const auto pinch = [&](int from, int to) {
    for (int inward = from; inward <= to; inward += 10)
      touch().move(0, {100 + inward, 200}).move(1, {500 - inward, 200});
    touch().release(0, {100 + to, 200}).release(1, {500 - to, 200});
  };

  touch().press(0, first);
  touch().move(0, first + QPoint(QApplication::startDragDistance() / 2, 0));
  EXPECT_TRUE(Marked().empty()) << "it may be the first of two";
  touch().release(0, first);
  EXPECT_EQ(Marked(), std::vector{101}) << "a tap";

  editor.Run(ID_EDIT_SELECT_ALL);
  touch().press(0, first);
  touch().move(0, first + QPoint(QApplication::startDragDistance(), 0));
  touch().move(0, editor.Middle({2, 1}));
  touch().move(0, editor.Middle({2, 2}));
  touch().press(1, editor.Middle({5, 5})).stationary(0);
  touch().move(0, editor.Middle({3, 3})).stationary(1);
  touch().release(0, editor.Middle({3, 3})).release(1, editor.Middle({5, 5}));
  EXPECT_EQ(Unmarked(), (std::vector{101, 102, 202})) << "a drag, until the second finger came down";

  editor.Run(ID_EDIT_DESELECT);
  editor.View().SetCellSize(100);
  touch().press(0, {100, 200});
  touch().stationary(0).press(1, {500, 200});
  pinch(10, 100);
  EXPECT_EQ(editor.View().CellSize(), 50);
  EXPECT_TRUE(Marked().empty()) << "two fingers only zoom";
}

TEST_F(Input, KeysScroll) {
  struct Row {
    Qt::Key key;
    Qt::KeyboardModifiers held;
    QPoint from, to;
  };
  ASSERT_TRUE(editor.OpenMap(100, 80));
  CMapView& view = editor.View();
  const QPoint end(view.horizontalScrollBar()->maximum(), view.verticalScrollBar()->maximum());
  const int page = Viewport().height() - 100;
  const Row rows[] = {{Qt::Key_Right, {}, {0, 0}, {86, 0}},
                      {Qt::Key_Down, {}, {0, 0}, {0, 100}},
                      {Qt::Key_Left, {}, {100, 7}, {14, 7}},
                      {Qt::Key_Left, {}, {14, 7}, {0, 7}},
                      {Qt::Key_Up, Qt::KeypadModifier, {30, 250}, {30, 150}},
                      {Qt::Key_Up, {}, {0, 0}, {0, 0}},
                      {Qt::Key_A, {}, {40, 40}, {40, 40}},
                      {Qt::Key_PageDown, {}, {40, 50}, {40, 50 + page}},
                      {Qt::Key_PageUp, {}, {40, 50 + 2 * page}, {40, 50 + page}},
                      {Qt::Key_PageUp, {}, {40, 50}, {40, 0}},
                      {Qt::Key_Home, {}, {500, 600}, {0, 600}},
                      {Qt::Key_End, {}, {500, 600}, {end.x(), 600}},
                      {Qt::Key_Home, Qt::ControlModifier, {500, 600}, {0, 0}},
                      {Qt::Key_End, Qt::ControlModifier, {500, 600}, end}};
  for (const Row& row : rows) {
    SCOPED_TRACE(QKeySequence(row.key | row.held).toString().toStdString());
    view.ScrollToPosition(row.from);
    QTest::keyClick(&view, row.key, row.held);
    EXPECT_EQ(view.ScrollPosition(), row.to);
  }
  view.ScrollToPosition({0, 500});
  view.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
  EXPECT_EQ(view.ScrollPosition(), QPoint(0, 600)) << "the scroll bar's own page";
}

TEST_F(Input, EveryViewShowsTheToolsCursor) {
  ASSERT_TRUE(editor.OpenMap(4, 3));
  CMapView& first = editor.View();
  editor.Run(ID_WINDOW_NEW);
  for (const int tool : {ID_TOOL_CELL_PROPERTY, ID_TOOL_POINTER}) {
    editor.Run(tool);
    const bool paints = tool == ID_TOOL_CELL_PROPERTY;
    const QImage expected = (paints ? PaintToolCursor(1) : PointerToolCursor(1)).pixmap().toImage();
    for (CMapView* view : {&first, &editor.View()})
      EXPECT_EQ(view->viewport()->cursor().pixmap().toImage(), expected) << tool;
  }
}

}  // namespace
}  // namespace quorvel
