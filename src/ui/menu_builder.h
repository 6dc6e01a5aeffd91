#pragma once

#include <QList>
#include <QMenu>

#include "ui/command_actions.h"
#include "ui/resources/menus.h"

namespace quorvel {

/// The popups of a menu resource, children of `parent`. The object name of a popup is its place, "101/0"
/// being the first of menu 101.
QList<QMenu*> BuildMenus(const MenuResource& resource, const CommandActions& actions, QWidget& parent);

}  // namespace quorvel
