#include "ui/commands/menu_builder.h"

#include "ui/resources/command_ids.h"
#include "ui/resources/shown_text.h"

namespace quorvel {

QMenu& PopupMenus::Popup(std::string_view title) {
  QMenu*& popup = popups_[title];
  if (!popup) {
    popup = new QMenu(FromResource(title), &window_);
    QObject::connect(popup, &QMenu::aboutToShow, &actions_, &CommandActions::Refresh);
  }
  return *popup;
}

void PopupMenus::Load(const MenuResource& resource, QMenuBar& bar) {
  bar.clear();
  bar.setObjectName(QString::number(resource.id));
  for (const PopupMenu& row : resource.popups) {
    QMenu& popup = Popup(row.text);
    popup.setObjectName(QStringLiteral("%1/%2").arg(resource.id).arg(bar.actions().size()));
    popup.clear();
    for (const int command : row.commands) {
      if (command == ID_SEPARATOR) {
        popup.addSeparator();
      } else {
        popup.addAction(actions_.Action(command));
      }
    }
    bar.addMenu(&popup);
  }
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
