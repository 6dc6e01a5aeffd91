#include "ui/frame/window_list.h"

#include <QMdiSubWindow>

#include "ui/commands/menu_builder.h"

namespace quorvel {
namespace {

/// "&1 map.vrl"; only the first nine have a key.
QString ItemText(qsizetype number, const QMdiSubWindow& window) {
  QString title = window.windowTitle().replace(QStringLiteral("[*]"), window.isWindowModified() ? "*" : "");
  title.replace(u'&', QStringLiteral("&&"));
  return (number < 10 ? QStringLiteral("&%1 %2") : QStringLiteral("%1 %2")).arg(number).arg(title);
}

}  // namespace

WindowList::WindowList(QMdiArea& area) : QObject(&area), area_(area), group_(new QActionGroup(this)) {
  auto* separator = new QAction(this);
  separator->setSeparator(true);
  separator->setObjectName(kWindowItemName);
  items_.append(separator);
  connect(group_, &QActionGroup::triggered, this, &WindowList::Activate);
}

void WindowList::AddTo(QMenu& menu) {
  menu_ = &menu;
  connect(&menu, &QMenu::aboutToShow, this, &WindowList::Update);
}

QAction& WindowList::Item(qsizetype place) {
  while (items_.size() <= place) {
    auto* item = new QAction(group_);
    item->setObjectName(kWindowItemName);
    item->setCheckable(true);
    item->setStatusTip(tr("Activate this window"));
    items_.append(item);
  }
  return *items_[place];
}

void WindowList::Update() {
  const QList<QMdiSubWindow*> windows = area_.subWindowList();
  for (qsizetype place = 0; place < windows.size(); ++place) {
    QAction& item = Item(place + 1);
    item.setText(ItemText(place + 1, *windows[place]));
    item.setChecked(windows[place] == area_.currentSubWindow());
  }
  if (menu_) ShowItems(*menu_, items_, windows.isEmpty() ? 0 : windows.size() + 1);
}

void WindowList::Activate(const QAction* item) {
  const qsizetype place = items_.indexOf(item) - 1;
  const QList<QMdiSubWindow*> windows = area_.subWindowList();
  if (place >= windows.size()) return;
  if (windows[place]->isMinimized()) windows[place]->showNormal();
  area_.setActiveSubWindow(windows[place]);
}

}  // namespace quorvel
