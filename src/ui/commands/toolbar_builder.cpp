#include "ui/commands/toolbar_builder.h"

#include <algorithm>

#include <QFontMetrics>

#include "ui/commands/tool_button_accessible.h"
#include "ui/resources/toolbar.h"

namespace quorvel {
namespace {

/// Buttons grow with the desktop's font, so that they stay in proportion to the menus.
int IconScale(const QToolBar& toolbar) {
  constexpr int kFontHeightOfResource = 16;
  return std::max(kFontHeightOfResource, toolbar.fontMetrics().height());
}

}  // namespace

void BuildToolbar(const CommandActions& actions, QToolBar& toolbar) {
  const int side = kToolbarButtonWidthPx * IconScale(toolbar) / 16;
  toolbar.setIconSize(QSize(side, side));
  ReadToolButtonsAsPushButtons();
  for (const int command : kToolbarButtons) {
    if (command == ID_SEPARATOR) {
      toolbar.addSeparator();
      continue;
    }
    QAction* action = actions.Action(command);
    toolbar.addAction(action);
    QWidget* button = toolbar.widgetForAction(action);
    button->setObjectName(QString::number(command));
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(action->toolTip());
    button->setAccessibleDescription(action->statusTip());
  }
}

}  // namespace quorvel
