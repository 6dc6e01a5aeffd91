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
      const int rows = item.command == ID_FILE_MRU_FILE1 ? kRecentFileItems : 1;
      for (int row = 0; row < rows; ++row) menu->addAction(actions.Action(item.command + row));
    }
    menus.append(menu);
  }
  return menus;
}

}  // namespace quorvel
