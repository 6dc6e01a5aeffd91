#include "ui/commands/command_actions.h"

#include <utility>

#include <QWidget>

#include "ui/drawings/command_icons.h"
#include "ui/resources/shown_text.h"
#include "ui/resources/string_table.h"

namespace quorvel {
namespace {

QList<QKeySequence> KeysOf(const Command& command) {
  QList<QKeySequence> keys;
  for (const QString& key : FromResource(command.keys).split(u' ', Qt::SkipEmptyParts))
    keys.append(QKeySequence(key, QKeySequence::PortableText));
  return keys;
}

}  // namespace

CommandActions::CommandActions(QWidget& window, const CommandList& commands, Chain chain, BusyTest isBusy)
    : QObject(&window), chain_(std::move(chain)), isBusy_(std::move(isBusy)) {
  for (const Command* command : commands) {
    QAction* action = Make(*command);
    window.addAction(action);
    entries_[command->id] = {command, action};
  }
}

QAction* CommandActions::Action(int command) const {
  const auto found = entries_.find(command);
  return found == entries_.end() ? nullptr : found->second.action;
}

CommandList CommandActions::Commands() const {
  CommandList commands;
  for (const auto& [id, entry] : entries_) commands.push_back(entry.command);
  return commands;
}

QAction* CommandActions::Make(const Command& command) {
  const QString tooltip = FromResource(TooltipOf(command.text));
  auto* action = new QAction(CommandIcon(command.id), tooltip, this);
  action->setObjectName(QString::number(command.id));
  action->setIconVisibleInMenu(false);
  action->setIconText(tooltip);
  if (!command.menuText.empty()) action->setText(FromResource(command.menuText));
  action->setToolTip(tooltip);
  action->setStatusTip(FromResource(PromptOf(command.text)));
  action->setWhatsThis(FromResource(command.whatsThis));
  action->setShortcuts(KeysOf(command));
  action->setMenuRole(QAction::NoRole);
  connect(action, &QAction::triggered, this, [this, id = command.id] { Run(id); });
  return action;
}

CommandState CommandActions::StateOf(const Command& command) const {
  if (isBusy_() && command.whileBusy == WhileBusy::Waits) return {};
  for (const CommandTarget* target : chain_()) {
    if (const auto state = target->StateOf(command.id)) return *state;
  }
  return {};
}

void CommandActions::Refresh() {
  showsBusy_ = isBusy_();
  for (const auto& [id, entry] : entries_) {
    const CommandState state = StateOf(*entry.command);
    entry.action->setEnabled(state.isEnabled);
    entry.action->setCheckable(state.isChecked.has_value());
    if (state.isChecked) entry.action->setChecked(*state.isChecked);
  }
  emit Refreshed();
}

void CommandActions::Run(int command) {
  const auto found = entries_.find(command);
  if (found != entries_.end() && StateOf(*found->second.command).isEnabled) {
    for (CommandTarget* target : chain_()) {
      if (target->Run(command)) break;
    }
  }
  Refresh();
}

}  // namespace quorvel
