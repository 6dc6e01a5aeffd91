#pragma once

#include <optional>
#include <span>

#include "ui/commands/command.h"

namespace quorvel {

/// How a command's menu item and button stand at this moment. No `isChecked`: the command has no check mark.
struct CommandState {
  bool isEnabled = false;
  std::optional<bool> isChecked;
};

/// One row of a command map: all that there is to a command. Null functions: always enabled, no check mark.
template <class Target>
struct CommandRow {
  Command command;
  void (*run)(Target&);
  bool (*isEnabled)(const Target&) = nullptr;
  bool (*isChecked)(const Target&) = nullptr;
};

/// Appends the commands of a table.
template <class Target>
void AddCommands(std::span<const CommandRow<Target>> rows, CommandList& commands) {
  for (const CommandRow<Target>& row : rows) commands.push_back(&row.command);
}

/// Whoever handles commands: a view, a document, the frame, the application.
class CommandTarget {
 public:
  virtual ~CommandTarget() = default;
  /// Appends the commands that this target has rows for.
  virtual void AddTo(CommandList& commands) const = 0;
  /// None when this target has no row for the command.
  virtual std::optional<CommandState> StateOf(int command) const = 0;
  /// False when this target has no row for the command.
  virtual bool Run(int command) = 0;
};

/// A command map beside the object that it acts on, which must outlive it.
template <class Target>
class CommandMap final : public CommandTarget {
 public:
  CommandMap(Target& target, std::span<const CommandRow<Target>> rows) : target_(target), rows_(rows) {}

  void AddTo(CommandList& commands) const override { AddCommands(rows_, commands); }

  std::optional<CommandState> StateOf(int command) const override {
    const CommandRow<Target>* row = Find(command);
    if (!row) return std::nullopt;
    CommandState state;
    state.isEnabled = !row->isEnabled || row->isEnabled(target_);
    if (row->isChecked) state.isChecked = row->isChecked(target_);
    return state;
  }

  bool Run(int command) override {
    const CommandRow<Target>* row = Find(command);
    if (!row) return false;
    row->run(target_);
    return true;
  }

 private:
  const CommandRow<Target>* Find(int command) const {
    for (const CommandRow<Target>& row : rows_) {
      if (row.command.id == command) return &row;
    }
    return nullptr;
  }

  Target& target_;
  std::span<const CommandRow<Target>> rows_;
};

}  // namespace quorvel
