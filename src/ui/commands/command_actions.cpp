#include "ui/commands/command_actions.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <QWidget>

#include "ui/drawings/command_icons.h"
#include "ui/resources/accelerators.h"
#include "ui/resources/menus.h"
#include "ui/resources/shown_text.h"
#include "ui/resources/string_table.h"
#include "ui/resources/toolbar.h"

namespace quorvel {
namespace {

constexpr int kHarmlessCommands[] = {
    ID_ZOOM_IN, ID_ZOOM_OUT,    ID_VIEW_TOOLBAR, ID_VIEW_STATUS_BAR, ID_NEXT_PANE,        ID_PREV_PANE,
    ID_HELP,    ID_HELP_FINDER, ID_WINDOW_NEW,   ID_WINDOW_CASCADE,  ID_WINDOW_TILE_HORZ, ID_WINDOW_ARRANGE};

QList<QKeySequence> KeysOf(int command) {
  QList<QKeySequence> keys;
  const auto add = [&keys, command](const Accelerator& row) {
    if (row.command == command) keys.append(QKeySequence(QLatin1String(row.key), QKeySequence::PortableText));
  };
  std::ranges::for_each(kAccelerators, add);
  std::ranges::for_each(kFurtherKeys, add);
  return keys;
}

}  // namespace

bool MayRunWhileBusy(int command) {
  return std::ranges::find(kHarmlessCommands, command) != std::end(kHarmlessCommands);
}

CommandActions::CommandActions(QWidget& window, Chain chain, BusyTest isBusy)
    : QObject(&window), chain_(std::move(chain)), isBusy_(std::move(isBusy)) {
  for (const MenuResource& menu : MenuResources()) {
    for (const PopupMenu& popup : menu.popups) {
      for (const MenuItem& item : popup.items) {
        if (item.command == ID_SEPARATOR) continue;
        Make(item.command, window)->setText(FromResource(item.text.substr(0, item.text.find('\t'))));
      }
    }
  }
  for (const int command : kToolbarButtons) {
    if (command != ID_SEPARATOR) Make(command, window);
  }
  for (const Accelerator& row : kAccelerators) Make(row.command, window);
  for (const Accelerator& row : kFurtherKeys) Make(row.command, window);
  for (int place = 0; place < kRecentFileItems; ++place) Make(ID_FILE_MRU_FILE1 + place, window);
}

QAction* CommandActions::Action(int command) const {
  const auto found = actions_.find(command);
  return found == actions_.end() ? nullptr : found->second;
}

std::vector<int> CommandActions::Commands() const {
  std::vector<int> commands;
  for (const auto& [command, action] : actions_) commands.push_back(command);
  return commands;
}

QAction* CommandActions::Make(int command, QWidget& window) {
  QAction*& action = actions_[command];
  if (action) return action;
  const QString tooltip = FromResource(TooltipOf(command));
  action = new QAction(CommandIcon(command), tooltip, this);
  action->setObjectName(QString::number(command));
  action->setIconVisibleInMenu(false);
  action->setIconText(tooltip);
  action->setToolTip(tooltip);
  action->setStatusTip(FromResource(PromptOf(command)));
  const StringRow& row = FindString(command);
  action->setWhatsThis(FromResource(row.whatsThis.empty() ? PromptOf(command) : row.whatsThis));
  action->setShortcuts(KeysOf(command));
  action->setMenuRole(QAction::NoRole);
  connect(action, &QAction::triggered, this, [this, command] { Run(command); });
  window.addAction(action);
  return action;
}

CommandState CommandActions::StateOf(int command) const {
  if (isBusy_() && !MayRunWhileBusy(command)) return {};
  for (const CommandTarget* target : chain_()) {
    if (const auto state = target->StateOf(command)) return *state;
  }
  return {};
}

void CommandActions::Refresh() {
  showsBusy_ = isBusy_();
  for (const auto& [command, action] : actions_) {
    const CommandState state = StateOf(command);
    action->setEnabled(state.isEnabled);
    action->setCheckable(state.isChecked.has_value());
    if (state.isChecked) action->setChecked(*state.isChecked);
  }
  emit Refreshed();
}

void CommandActions::Run(int command) {
  if (StateOf(command).isEnabled) {
    for (CommandTarget* target : chain_()) {
      if (target->Run(command)) break;
    }
  }
  Refresh();
}

}  // namespace quorvel
