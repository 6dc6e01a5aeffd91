#include "ui/frame/window_keys.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QShortcut>

namespace quorvel {
namespace {

void ShowSystemMenu(QMdiArea& area) {
  if (QMdiSubWindow* window = area.activeSubWindow()) window->showSystemMenu();
}

struct WindowKey {
  const char* key;
  void (*run)(QMdiArea&);
};

constexpr WindowKey kWindowKeys[] = {
    {"Ctrl+F4", [](QMdiArea& area) { area.closeActiveSubWindow(); }},
    {"Ctrl+W", [](QMdiArea& area) { area.closeActiveSubWindow(); }},
    {"Ctrl+F6", [](QMdiArea& area) { area.activateNextSubWindow(); }},
    {"Ctrl+Shift+F6", [](QMdiArea& area) { area.activatePreviousSubWindow(); }},
    {"Alt+-", ShowSystemMenu},
};

}  // namespace

void AddWindowKeys(QMdiArea& area) {
  for (const WindowKey& row : kWindowKeys) {
    auto* shortcut =
        new QShortcut(QKeySequence(QLatin1String(row.key), QKeySequence::PortableText), area.window());
    QObject::connect(shortcut, &QShortcut::activated, &area, [&area, run = row.run] { run(area); });
  }
}

}  // namespace quorvel
