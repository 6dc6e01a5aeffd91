#pragma once

#include <QList>
#include <QMenu>

#include "ui/command_actions.h"
#include "ui/resources/menus.h"

namespace quorvel {

/// The popups of a menu resource, children of `parent`. The object name of a popup is its place, "101/0"
/// being the first of menu 101.
QList<QMenu*> BuildMenus(const MenuResource& resource, const CommandActions& actions, QWidget& parent);

/// Lets a run of items grow and shrink: the first `count` of them stand in the menu one behind the other, the
/// first one at the end of the menu if it was not there before.
void ShowItems(QMenu& menu, const QList<QAction*>& items, qsizetype count);

}  // namespace quorvel
