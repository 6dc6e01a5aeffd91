#pragma once

#include <map>
#include <string_view>

#include <QList>
#include <QMenu>
#include <QMenuBar>

#include "ui/commands/command_actions.h"
#include "ui/resources/menus.h"

namespace quorvel {

/// The popup menus of a window. Popups with one title are one object under every menu bar, which is filled
/// anew: assistive technology takes an item for part of the menu in which it was first seen.
class PopupMenus {
 public:
  /// Popups become children of `window`; `actions` outlive them.
  PopupMenus(CommandActions& actions, QWidget& window) : actions_(actions), window_(window) {}

  /// Gives the bar the popups of the resource. A popup's object name is its place, "101/0" being the first of
  /// menu 101.
  void Load(const MenuResource& resource, QMenuBar& bar);
  /// The popup with this title; made, empty, when it is asked for first.
  QMenu& Popup(std::string_view title);

 private:
  CommandActions& actions_;
  QWidget& window_;
  std::map<std::string_view, QMenu*> popups_;
};

/// Lets a run of items grow and shrink: the first `count` of them stand in the menu one behind the other, the
/// first one at the end of the menu if it was not there before.
void ShowItems(QMenu& menu, const QList<QAction*>& items, qsizetype count);

}  // namespace quorvel
