// Several map windows: how they lie, what the main title and the Window menu say of them, and their keys.

#include "ui/frame/window_arrangement.h"

#include <QMdiSubWindow>
#include <QMenu>

#include "tests/ui/editor.h"

namespace quorvel {
namespace {

class MapWindows : public testing::Test {
 protected:
  MapWindows() {
    for (const char* name : {"a.vrl", "b.vrl", "c.vrl"}) editor.Open(editor.WriteMap(name, 4, 3));
  }
  QList<QMdiSubWindow*> Windows() { return editor.Frame().MdiArea().subWindowList(); }
  std::string MainTitle() { return editor.Frame().windowTitle().toStdString(); }
  /// The items of the Window menu behind the separator that ends its own; the checked one with a star.
  std::vector<std::string> List() {
    std::vector<std::string> list;
    bool isBehind = false;
    for (const QAction* item : editor.Frame().findChild<QMenu*>("102/3")->actions()) {
      if (isBehind) list.push_back((item->isChecked() ? "*" : "") + item->text().toStdString());
      isBehind = isBehind || item->isSeparator();
    }
    return list;
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    editor.Frame().activateWindow();
    QTest::keyClick(&editor.View(), key, modifiers);
    editor.Settle();
  }

  Editor editor;
};

TEST_F(MapWindows, CascadedTheyAreLargeAndEachTitleIsSeen) {
  editor.Run(ID_WINDOW_CASCADE);
  const QRect area = editor.Frame().MdiArea().viewport()->rect();
  for (const QMdiSubWindow* window : Windows()) {
    EXPECT_TRUE(area.contains(window->geometry()));
    EXPECT_GT(window->width(), area.width() / 2);
    EXPECT_GT(window->height(), area.height() / 2);
  }
  EXPECT_EQ(Windows()[1]->pos() - Windows()[0]->pos(), Windows()[2]->pos() - Windows()[1]->pos());
  EXPECT_GT(Windows()[1]->y(), Windows()[0]->y());
  EXPECT_EQ(editor.Frame().MdiArea().currentSubWindow(), Windows()[2]) << "the front stays in front";
}

TEST_F(MapWindows, TheMainTitleNamesTheMapInFront) {
  editor.View().Document()->SetModifiedFlag();
  EXPECT_EQ(MainTitle(), "Quorvel Vastrelum - [c.vrl[*]]");
  EXPECT_TRUE(editor.Frame().isWindowModified());
  editor.Run(ID_WINDOW_TILE_HORZ);
  EXPECT_EQ(MainTitle(), "Quorvel Vastrelum - c.vrl[*]");
  editor.Frame().MdiArea().setActiveSubWindow(Windows()[0]);
  EXPECT_EQ(MainTitle(), "Quorvel Vastrelum - a.vrl[*]");
  EXPECT_FALSE(editor.Frame().isWindowModified());
  Windows()[0]->showMaximized();
  EXPECT_EQ(MainTitle(), "Quorvel Vastrelum - [a.vrl[*]]");
  for (QMdiSubWindow* window : Windows()) static_cast<CMapFrame*>(window)->CloseUnasked();
  editor.Settle();
  EXPECT_EQ(MainTitle(), "Quorvel Vastrelum");
}

TEST_F(MapWindows, AnOpenedOneComesMaximized) {
  const auto expectWhole = [this](const char* what) {
    SCOPED_TRACE(what);
    const CMapFrame& frame = *editor.Frame().ActiveFrame();
    EXPECT_TRUE(frame.isMaximized());
    EXPECT_EQ(frame.geometry(), editor.Frame().MdiArea().viewport()->rect());
    EXPECT_EQ(editor.View().viewport()->width(), editor.Frame().MdiArea().viewport()->width());
    EXPECT_TRUE(QString::fromStdString(MainTitle()).contains(" - ["));
  };
  expectWhole("the third");
  editor.Run(ID_FILE_CLOSE);
  expectWhole("the one below a closed one");
  editor.Open(editor.folder / "c.vrl");
  expectWhole("opened again");
  editor.Run(ID_WINDOW_NEW);
  expectWhole("one more of the same map");
  editor.Open(editor.folder / "a.vrl");
  expectWhole("brought to the front");
  editor.Run(ID_WINDOW_TILE_HORZ);
  editor.Run(ID_FILE_CLOSE);
  editor.Open(editor.folder / "a.vrl");
  expectWhole("opened again over tiled ones");
  while (editor.Frame().ActiveFrame()) editor.Run(ID_FILE_CLOSE);
  editor.Open(editor.folder / "b.vrl");
  expectWhole("opened again into the empty area");
}

TEST_F(MapWindows, TheWindowMenuListsThemAndBringsThemToTheFront) {
  EXPECT_EQ(List(), (std::vector<std::string>{"&1 a.vrl", "&2 b.vrl", "*&3 c.vrl"}));
  Windows()[0]->showMinimized();
  editor.Frame().MdiArea().setActiveSubWindow(Windows()[1]);
  editor.Frame().findChild<QMenu*>("102/3")->actions()[5]->trigger();
  editor.Settle();
  EXPECT_EQ(editor.Frame().ActiveFrame(), Windows()[0]);
  EXPECT_FALSE(Windows()[0]->isMinimized());
  editor.Run(ID_FILE_CLOSE);
  EXPECT_EQ(List().size(), 2U);
}

TEST_F(MapWindows, KeysWalkThroughThemAndCloseThem) {
  Press(Qt::Key_F6, Qt::ControlModifier);
  EXPECT_EQ(editor.Frame().ActiveFrame(), Windows()[0]);
  Press(Qt::Key_F6, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(editor.Frame().ActiveFrame(), Windows()[2]);
  Press(Qt::Key_F4, Qt::ControlModifier);
  EXPECT_EQ(Windows().size(), 2);
}

TEST_F(MapWindows, MinimizedOnesLineUpAndComeBackWhenTheirFileIsOpenedAgain) {
  editor.Run(ID_WINDOW_TILE_HORZ);
  for (QMdiSubWindow* window : Windows()) window->showMinimized();
  editor.Run(ID_WINDOW_ARRANGE);
  const int floor = editor.Frame().MdiArea().viewport()->height();
  for (qsizetype place = 0; place < 3; ++place) {
    EXPECT_EQ(Windows()[place]->geometry().bottom() + 1, floor);
    EXPECT_EQ(Windows()[place]->x(), place * Windows()[0]->width());
  }
  editor.Open(editor.folder / "b.vrl");
  EXPECT_EQ(editor.Frame().ActiveFrame(), Windows()[1]);
  EXPECT_TRUE(Windows()[1]->isMaximized());
}

}  // namespace
}  // namespace quorvel
