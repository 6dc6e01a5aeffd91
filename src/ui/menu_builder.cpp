#include "ui/menu_builder.h"

#include "ui/resources/command_ids.h"
#include "ui/shown_text.h"

namespace quorvel {

QList<QMenu*> BuildMenus(const MenuResource& resource, const CommandActions& actions, QWidget& parent) {
  QList<QMenu*> menus;
  for (const PopupMenu& popup : resource.popups) {
    auto* menu = new QMenu(FromResource(popup.text), &parent);
    menu->setObjectName(QStringLiteral("%1/%2").arg(resource.id).arg(menus.size()));
    for (const MenuItem& item : popup.items) {
      if (item.command == ID_SEPARATOR) {
        menu->addSeparator();
        continue;
      }
      menu->addAction(actions.Action(item.command));
    }
    menus.append(menu);
  }
  return menus;
}

void ShowItems(QMenu& menu, const QList<QAction*>& items, qsizetype count) {
  for (qsizetype place = 0; place < items.size(); ++place) {
    const QList<QAction*> shown = menu.actions();
    const bool isThere = shown.contains(items[place]);
    if (place >= count) {
      menu.removeAction(items[place]);
    } else if (!isThere) {
      const qsizetype before = place == 0 ? -1 : shown.indexOf(items[place - 1]);
      menu.insertAction(before < 0 ? nullptr : shown.value(before + 1), items[place]);
    }
  }
}

}  // namespace quorvel
