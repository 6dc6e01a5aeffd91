#include <set>

#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>

#include "tests/ui/editor.h"
#include "ui/frame/window_list.h"
#include "ui/resources/menus.h"
#include "ui/resources/shown_text.h"
#include "ui/resources/toolbar.h"

namespace quorvel {
namespace {

/// Without what stands in the menu for files and windows: the table has one row for the recent files.
QList<QAction*> ItemsOfTable(const QMenu& menu) {
  QList<QAction*> items = menu.actions();
  items.removeIf([](const QAction* item) {
    const int further = item->objectName().toInt() - ID_FILE_MRU_FILE1;
    return item->objectName() == kWindowItemName || (further > 0 && further < kRecentFileItems);
  });
  return items;
}

void ExpectMenu(const PopupMenu& expected, const QMenu& built) {
  EXPECT_EQ(built.title(), FromResource(expected.text));
  const QList<QAction*> items = ItemsOfTable(built);
  ASSERT_EQ(items.size(), static_cast<qsizetype>(expected.commands.size()));
  std::set<QString> texts;
  for (std::size_t place = 0; place < expected.commands.size(); ++place) {
    const QAction& item = *items[static_cast<qsizetype>(place)];
    SCOPED_TRACE(expected.commands[place]);
    EXPECT_EQ(item.isSeparator(), expected.commands[place] == ID_SEPARATOR);
    if (item.isSeparator()) continue;
    EXPECT_EQ(item.objectName(), QString::number(expected.commands[place]));
    EXPECT_TRUE(texts.insert(item.text()).second) << "two items with one text";
  }
}

TEST(ResourceTables, MenusAreBuiltAsTheyStand) {
  Editor editor;
  for (const MenuResource& resource : MenuResources()) {
    SCOPED_TRACE(resource.id);
    if (resource.id == IDR_GENERIC_DATA) editor.Open(editor.WriteMap("map.gdf", 3, 3));
    if (resource.id == IDR_VASTREL_MAP) editor.OpenMap(3, 3);
    const QMenuBar& bar = *editor.Frame().menuBar();
    EXPECT_EQ(bar.objectName(), QString::number(resource.id));
    ASSERT_EQ(bar.actions().size(), static_cast<qsizetype>(resource.popups.size()));
    std::set<QChar> mnemonics;
    for (std::size_t place = 0; place < resource.popups.size(); ++place) {
      const PopupMenu& popup = resource.popups[place];
      SCOPED_TRACE(popup.text);
      ExpectMenu(popup, *bar.actions()[static_cast<qsizetype>(place)]->menu());
      EXPECT_TRUE(mnemonics.insert(FromResource(popup.text)[1]).second) << "two popups under one letter";
    }
  }
}

TEST(ResourceTables, ACommandsRowIsAllOfIt) {
  Editor editor;
  std::set<QKeySequence> keys;
  std::set<int> ids;
  for (const Command* command : editor.Frame().Actions().Commands()) {
    SCOPED_TRACE(command->id);
    EXPECT_TRUE(ids.insert(command->id).second) << "two rows for one command";
    const QAction& action = editor.Action(command->id);
    EXPECT_FALSE(action.statusTip().isEmpty());
    EXPECT_FALSE(action.toolTip().isEmpty());
    EXPECT_TRUE(action.whatsThis().endsWith(u'.')) << "no sentence: " << action.whatsThis().toStdString();
    EXPECT_EQ(action.shortcuts().size(), FromResource(command->keys).split(' ', Qt::SkipEmptyParts).size());
    for (const QKeySequence& key : action.shortcuts()) {
      EXPECT_EQ(key.count(), 1);
      EXPECT_TRUE(keys.insert(key).second) << "the key has two commands: " << key.toString().toStdString();
    }
  }
}

TEST(ResourceTables, ToolbarButtonsStandInOrderWithIconsAndNames) {
  Editor editor;
  const auto* toolbar = editor.Frame().findChild<QToolBar*>(QString::number(AFX_IDW_TOOLBAR));
  ASSERT_TRUE(toolbar);
  ASSERT_EQ(static_cast<std::size_t>(toolbar->actions().size()), std::size(kToolbarButtons));
  for (QAction* action : toolbar->actions()) {
    if (action->isSeparator()) continue;
    EXPECT_FALSE(action->icon().pixmap(16, 16).isNull());
    EXPECT_EQ(toolbar->widgetForAction(action)->accessibleName(), action->toolTip());
  }
}

TEST(ResourceTables, WhatNothingHandlesIsDisabled) {
  constexpr int kUnhandled[] = {ID_EDIT_UNDO, ID_EDIT_CUT,      ID_EDIT_COPY,    ID_EDIT_PASTE,
                                ID_WIZARD,    ID_SELECT_REGION, ID_FILL_SELECTED};
  constexpr int kNeedAMap[] = {ID_FILE_CLOSE,      ID_FILE_SAVE,     ID_FILE_SAVE_AS, ID_FILE_PRINT,
                               ID_EDIT_SELECT_ALL, ID_EDIT_DESELECT, ID_ZOOM_IN,      ID_ZOOM_OUT,
                               ID_TOOL_POINTER,    ID_WINDOW_NEW,    ID_GO_TO_CELL};
  Editor editor;
  for (const int command : kUnhandled) EXPECT_FALSE(editor.Action(command).isEnabled()) << command;
  for (const int command : kNeedAMap) EXPECT_FALSE(editor.Action(command).isEnabled()) << command;
  ASSERT_TRUE(editor.OpenMap(4, 3));
  for (const int command : kUnhandled) EXPECT_FALSE(editor.Action(command).isEnabled()) << command;
  for (const int command : kNeedAMap) EXPECT_TRUE(editor.Action(command).isEnabled()) << command;
}

}  // namespace
}  // namespace quorvel
