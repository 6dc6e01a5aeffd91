// Journeys through the real windows: maps are opened, looked at, marked, saved and closed.

#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QNativeGestureEvent>
#include <QScrollBar>
#include <fmt/format.h>

#include "map/document/editing.h"
#include "tests/ui/editor.h"
#include "tests/ui/modal_script.h"

namespace quorvel {
namespace {

TEST(MapWindow, StartsEmptyAndOpensWhatTheCommandLineNames) {
  TempFolder folder;
  Editor empty;
  EXPECT_TRUE(empty.started);
  EXPECT_TRUE(empty.app.Documents().empty());
  EXPECT_EQ(empty.Frame().windowTitle(), "Quorvel Vastrelum");

  const std::string path = empty.WriteMap("galaxy.vrl", 4, 3);
  CCommandLineInfo open{CCommandLineInfo::FileOpen, {path}, {}};
  Editor editor(open);
  EXPECT_TRUE(editor.started);
  editor.Settle();
  ASSERT_TRUE(editor.Frame().ActiveFrame());
  EXPECT_TRUE(editor.Frame().ActiveFrame()->isMaximized());
  EXPECT_EQ(editor.Frame().menuBar()->objectName(), "102");
  EXPECT_TRUE(editor.Frame().windowTitle().contains("galaxy.vrl"))
      << editor.Frame().windowTitle().toStdString();
  EXPECT_TRUE(editor.View().hasFocus() || !editor.Frame().isActiveWindow());

  CCommandLineInfo missing{CCommandLineInfo::FileOpen, {folder / "none.vrl"}, {}};
  Editor refused(missing);
  EXPECT_FALSE(refused.started);
  EXPECT_EQ(refused.prompts.messages.size(), 1U);
}

TEST(MapWindow, GenericFilesHaveTheirOwnMenuAndAnOpenFileIsActivated) {
  Editor editor;
  const std::string first = editor.WriteMap("one.gdf", 4, 3);
  CVastrelDoc* document = editor.Open(first);
  EXPECT_EQ(editor.Frame().menuBar()->objectName(), "101");
  editor.Open(editor.WriteMap("two.vrl", 4, 3));
  EXPECT_EQ(editor.Frame().menuBar()->objectName(), "102");
  editor.MovePointer(editor.Middle({2, 1}));
  EXPECT_EQ(editor.Pane(ID_INDICATOR_POSITION), "6(2:1)");
  EXPECT_EQ(editor.Open(first), document);
  EXPECT_EQ(editor.Pane(ID_INDICATOR_POSITION), "") << "the other map's position";
  EXPECT_EQ(editor.app.Documents().size(), 2U);
  EXPECT_EQ(editor.View().Document(), document);
}

TEST(MapWindow, ZoomsInStepsAndKeepsTheScrollPosition) {
  Editor editor;
  ASSERT_TRUE(editor.OpenMap(100, 80));
  CMapView& view = editor.View();
  EXPECT_EQ(view.CellSize(), 100);
  editor.Run(ID_ZOOM_IN);
  EXPECT_EQ(view.CellSize(), 100) << "the largest size";
  view.ScrollToPosition({860, 500});
  for (int press = 0; press < 10; ++press) QTest::keyClick(&view, Qt::Key_Minus);
  EXPECT_EQ(view.CellSize(), 10) << "the tenth press changes nothing";
  QTest::keyClick(&view, Qt::Key_Equal);
  EXPECT_EQ(view.CellSize(), 20);
  QTest::keyClick(&view, Qt::Key_Plus);
  EXPECT_EQ(view.CellSize(), 30);

  // Clamped to what there is to scroll at 10 pixels, where the map is 802 x 805 pixels.
  EXPECT_EQ(view.ScrollPosition().x(), std::max(0, 802 - view.viewport()->width()));
}

void TurnWheel(CMapView& view, QPoint place, QPoint angleDelta, Qt::KeyboardModifiers held) {
  QWheelEvent event(place, view.viewport()->mapToGlobal(place), {}, angleDelta, Qt::NoButton, held,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(view.viewport(), &event);
}

TEST(MapWindow, TheWheelScrollsAndWithControlZooms) {
  struct Row {
    const char* what;
    QPoint angle;
    Qt::KeyboardModifiers held;
    float cellSizePx;
    QPoint moved;
  };
  const Row rows[] = {{"three rows a notch", {0, -120}, Qt::NoModifier, 100, {0, 300}},
                      {"sideways", {-120, 0}, Qt::NoModifier, 100, {258, 0}},
                      {"sideways by Shift", {0, -120}, Qt::ShiftModifier, 100, {258, 0}},
                      {"turned by the system already", {-120, 0}, Qt::ShiftModifier, 100, {258, 0}},
                      {"the largest cells", {0, 120}, Qt::ControlModifier, 100, {0, 0}},
                      {"half a step", {0, -60}, Qt::ControlModifier, 100, {0, 0}}};
  Editor editor;
  ASSERT_TRUE(editor.OpenMap(100, 80));
  CMapView& view = editor.View();
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    view.ScrollToPosition({860, 1000});
    TurnWheel(view, {200, 150}, row.angle, row.held);
    EXPECT_EQ(view.CellSize(), row.cellSizePx);
    EXPECT_EQ(view.ScrollPosition() - QPoint(860, 1000), row.moved);
  }
  TurnWheel(view, {200, 150}, {0, -60}, Qt::ControlModifier);
  EXPECT_EQ(view.CellSize(), 90) << "the other half";
}

TEST(MapWindow, ZoomingByWheelAndPinchKeepsTheCellUnderThePointer) {
  Editor editor;
  const CVastrelDoc& document = *editor.OpenMap(100, 80);
  CMapView& view = editor.View();
  const auto pinch = [&view](QPoint place, double share) {
    QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2, place,
                              place, view.viewport()->mapToGlobal(place), share, QPointF());
    QApplication::sendEvent(view.viewport(), &event);
  };
  view.ScrollToPosition({4000, 4000});
  const QPoint place(300, 200);
  editor.MovePointer(place);
  const CellCoord cell = *document.m_pCurrentCell;
  for (const int step : {-1, -1, -1, -1, -1, 1, 1, 1, -1}) {
    TurnWheel(view, place, {0, 120 * step}, Qt::ControlModifier);
    EXPECT_EQ(*document.m_pCurrentCell, cell) << "wheel, at " << view.CellSize();
  }
  EXPECT_EQ(view.CellSize(), 70);
  pinch(place, -0.5);
  EXPECT_EQ(view.CellSize(), 40) << "35, in whole steps";
  pinch(place, 0.5);
  EXPECT_EQ(view.CellSize(), 50) << "52.5";
  EXPECT_EQ(*document.m_pCurrentCell, cell) << "pinch";
  editor.MovePointer(place);
  EXPECT_EQ(*document.m_pCurrentCell, cell) << "the cell is really there";
}

TEST(MapWindow, TheMiddleButtonDragsTheMap) {
  Editor editor;
  const CVastrelDoc& document = *editor.OpenMap(100, 80);
  CMapView& view = editor.View();
  view.ScrollToPosition({1000, 1000});
  editor.PressAt({300, 200}, Qt::MiddleButton);
  editor.MovePointer({250, 230});
  EXPECT_EQ(view.ScrollPosition(), QPoint(1050, 970));
  editor.MovePointer({290, 200});
  EXPECT_EQ(view.ScrollPosition(), QPoint(1010, 1000));
  editor.LetGoUnseen();
  editor.MovePointer({100, 100});
  EXPECT_EQ(view.ScrollPosition(), QPoint(1010, 1000));
  for (int index = 0; index < 8000; ++index) ASSERT_EQ(document.m_pCellMarks[index], 0) << index;
}

TEST(MapWindow, BracketsChooseTheColouringMember) {
  Editor editor;
  ASSERT_TRUE(editor.OpenMap(4, 3));
  for (const auto& [key, shown] : {std::pair{"]", "star"},
                                   {"]", "owner"},  // round the end
                                   {"[", "star"},   // round the start
                                   {"}", "star"},   // the outline has a member of its own
                                   {"{", "owner"}}) {
    QTest::keyClicks(&editor.View(), key);
    EXPECT_EQ(editor.Pane(ID_INDICATOR_POSITION), shown) << key;
  }
  EXPECT_EQ(editor.View().Look().fillMember->GetName(), "star");
  EXPECT_EQ(editor.View().Look().outlineMember->GetName(), "owner");
}

TEST(MapWindow, CellsAreReachedAndMarkedByKeysAlone) {
  constexpr std::pair<Qt::Key, CellCoord> rows[] = {{Qt::Key_Up, {4, 3}},       {Qt::Key_Right, {5, 3}},
                                                    {Qt::Key_PageDown, {6, 4}}, {Qt::Key_Home, {5, 3}},
                                                    {Qt::Key_Left, {4, 3}},     {Qt::Key_Down, {4, 4}}};
  Editor editor;
  const CVastrelDoc& document = *editor.OpenMap(100, 80);
  CMapView& view = editor.View();
  editor.MovePointer(editor.Middle({4, 4}));
  QTest::keyPress(&view, Qt::Key_Space);
  for (const auto& [key, cell] : rows) {
    SCOPED_TRACE(key);
    QTest::keyClick(&view, key, Qt::AltModifier);
    EXPECT_EQ(*document.m_pCurrentCell, cell);
    EXPECT_EQ(IsMarked(document, cell), 1) << "the space bar is down";
  }
  EXPECT_EQ(view.ScrollPosition(), QPoint(0, 0)) << "all of them were in sight";
  QTest::keyRelease(&view, Qt::Key_Space);
  QTest::keyClick(&view, Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(IsMarked(document, {3, 4}), 0);
  QTest::keyClick(&view, Qt::Key_Space);
  EXPECT_EQ(IsMarked(document, {3, 4}), 1);
  QTest::keyClick(&view, Qt::Key_Space);
  EXPECT_EQ(IsMarked(document, {3, 4}), 0);
}

TEST(MapWindow, AKeysCellStaysUntilThePointerMovesOrTheUserScrolls) {
  Editor editor;
  const CVastrelDoc& document = *editor.OpenMap(100, 80);
  CMapView& view = editor.View();
  const auto goFar = [&] {
    view.GoToCell({60, 50});
    QTest::keyClick(&view, Qt::Key_Right, Qt::AltModifier);
    ASSERT_EQ(*document.m_pCurrentCell, (CellCoord{61, 50})) << "the map was scrolled under the pointer";
    EXPECT_TRUE(view.viewport()->rect().contains(editor.Middle({61, 50})));
    EXPECT_EQ(editor.Pane(ID_INDICATOR_POSITION), "5061(61:50)");
  };
  constexpr QPoint kPlace(300, 300);
  const std::function<void()> moves[] = {[&] { editor.MovePointer(kPlace); },
                                         [&] { editor.Run(ID_ZOOM_OUT); },
                                         [&] { QTest::keyClick(&view, Qt::Key_Up); },
                                         [&] { TurnWheel(view, kPlace, QPoint(0, 120), Qt::NoModifier); }};
  for (const auto& move : moves) {
    goFar();
    move();
    EXPECT_NE(*document.m_pCurrentCell, (CellCoord{61, 50})) << "way " << &move - moves;
  }
  goFar();
  QMouseEvent still(QEvent::MouseMove, QPoint(5, 5), QCursor::pos(), Qt::NoButton, Qt::NoButton, {});
  QApplication::sendEvent(view.viewport(), &still);
  EXPECT_EQ(*document.m_pCurrentCell, (CellCoord{61, 50})) << "the pointer rests";
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, editor.Middle({60, 50}));
  EXPECT_EQ(IsMarked(document, {60, 50}), 1) << "a press is the pointer's";
  EXPECT_EQ(IsMarked(document, {61, 50}), 0);

  view.GoToCell({0, 0});
  editor.MovePointer({-20, -20});
  QTest::keyClick(&view, Qt::Key_Down, Qt::AltModifier);
  const QPoint offMiddle = editor.Middle(*document.m_pCurrentCell) - view.viewport()->rect().center();
  EXPECT_LT(offMiddle.manhattanLength(), 100) << "off the map the cells begin in the middle of the view";
}

TEST(MapWindow, GoesToTheCellThatTheUserTypes) {
  Editor editor;
  const CVastrelDoc& document = *editor.OpenMap(100, 80);
  CMapView& view = editor.View();
  editor.MovePointer(editor.Middle({4, 4}));
  const auto type = [](QDialog& dialog, const char* text) {
    auto* place = dialog.findChild<QLineEdit*>();
    QTest::keyClicks(place, text);
    QTest::keyClick(place, Qt::Key_Return);
  };
  WhenModal([&type](QDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), "4:4");
    type(dialog, "100:0");
    EXPECT_TRUE(dialog.isVisible()) << "beside the map";
    EXPECT_TRUE(dialog.findChildren<QLabel*>().first()->text().startsWith("There is no cell \"100:0\"."));
    type(dialog, "61:50");
  });
  QTest::keyClick(&view, Qt::Key_G, Qt::ControlModifier);
  EXPECT_EQ(*document.m_pCurrentCell, (CellCoord{61, 50}));
  EXPECT_TRUE(view.viewport()->rect().contains(editor.Middle({61, 50})));

  WhenModal([&type](QDialog& dialog) { type(dialog, "203"); });
  auto* pane = editor.Frame().StatusBar().findChild<QLabel*>(QString::number(ID_INDICATOR_POSITION));
  QTest::mouseClick(pane, Qt::LeftButton);
  EXPECT_EQ(pane->text(), "203(3:2)");
  WhenModal([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  editor.Run(ID_GO_TO_CELL);
  EXPECT_EQ(*document.m_pCurrentCell, (CellCoord{3, 2}));
}

TEST(MapWindow, TwoViewsShowOneDocument) {
  Editor editor;
  CVastrelDoc& document = *editor.OpenMap(6, 5);
  CMapView& first = editor.View();
  editor.Run(ID_WINDOW_NEW);
  CMapView& second = editor.View();
  ASSERT_NE(&first, &second);
  EXPECT_EQ(first.parentWidget()->windowTitle(), "map.vrl:1[*]");
  EXPECT_EQ(second.parentWidget()->windowTitle(), "map.vrl:2[*]");
  editor.Run(ID_WINDOW_TILE_HORZ);

  const QImage before = first.viewport()->grab().toImage();
  editor.PressAt(editor.Middle({1, 1}));
  editor.Release(editor.Middle({1, 1}));
  editor.MovePointer({-5, -5});
  editor.Settle();
  const QImage after = first.viewport()->grab().toImage();
  EXPECT_NE(before, after) << "a mark made in one view shows in the other";

  second.parentWidget()->close();
  editor.Settle();
  EXPECT_EQ(document.Views().size(), 1U);
  EXPECT_EQ(first.parentWidget()->windowTitle(), "map.vrl[*]");
  EXPECT_EQ(editor.app.Documents().size(), 1U);
}

TEST(MapWindow, ClosingAsksAboutChanges) {
  Editor editor;
  editor.OpenMap(4, 3)->SetModifiedFlag();
  editor.prompts.answers = {Answer::Cancel};
  EXPECT_FALSE(editor.Frame().close());
  EXPECT_EQ(editor.prompts.TakeMessages().size(), 1U);
  for (const Answer answer : {Answer::Cancel, Answer::Discard}) {
    const bool closes = answer == Answer::Discard;
    EXPECT_TRUE(editor.Frame().ActiveFrame()->isWindowModified());
    editor.prompts.answers = {answer};
    editor.Run(ID_FILE_CLOSE);
    EXPECT_EQ(editor.prompts.TakeMessages(), std::vector<std::string>{"Save changes to map.vrl?"});
    EXPECT_EQ(editor.app.Documents().empty(), closes);
    EXPECT_EQ(editor.Frame().MdiArea().subWindowList().isEmpty(), closes);
    EXPECT_EQ(editor.Frame().menuBar()->objectName(), closes ? "100" : "102");
  }
}

TEST(MapWindow, SaveAsTakesTheNewNameAndRecentFilesFollow) {
  Editor editor;
  ASSERT_TRUE(editor.OpenMap(4, 3));
  editor.dialogs.forms = {FileForm::Text};
  editor.prompts.names = {editor.folder / "second.vrl"};
  editor.Run(ID_FILE_SAVE_AS);
  EXPECT_EQ(editor.Frame().ActiveFrame()->windowTitle(), "second.vrl[*]");
  const QAction& newest = editor.Action(ID_FILE_MRU_FILE1);
  EXPECT_TRUE(newest.text().startsWith("&1 ") && newest.text().endsWith("second.vrl"))
      << newest.text().toStdString();
  EXPECT_TRUE(editor.Action(ID_FILE_MRU_FILE1 + 1).text().endsWith("map.vrl"));
  const auto isListed = [&editor](int place) {
    const auto* file = editor.Frame().findChild<QMenu*>("102/0");
    return file->actions().contains(&editor.Action(ID_FILE_MRU_FILE1 + place));
  };
  EXPECT_TRUE(isListed(1));
  EXPECT_FALSE(isListed(2));

  std::filesystem::remove(editor.folder / "map.vrl");
  editor.Run(ID_FILE_MRU_FILE1 + 1);
  EXPECT_EQ(editor.prompts.messages.size(), 1U) << "the file has gone";
  EXPECT_FALSE(isListed(1));
}

TEST(MapWindow, FilesDroppedOnTheFrameAreOpened) {
  Editor editor;
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(QString::fromStdString(editor.WriteMap("a.vrl", 3, 3))),
                 QUrl::fromLocalFile(QString::fromStdString(editor.WriteMap("b.gdf", 3, 3)))});
  QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&editor.Frame(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&editor.Frame(), &drop);
  EXPECT_EQ(editor.app.Documents().size(), 2U);
}

}  // namespace
}  // namespace quorvel
