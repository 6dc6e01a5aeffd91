#pragma once

#include <functional>
#include <map>
#include <vector>

#include <QAction>
#include <QObject>

#include "ui/commands/command_target.h"

namespace quorvel {

/// The one action of every command, its object name the command's number. Menus and bars share them, so a
/// command looks the same everywhere.
class CommandActions : public QObject {
  Q_OBJECT
 public:
  /// Who is asked for a command's state and to run it, first to last.
  using Chain = std::function<std::vector<CommandTarget*>()>;

  using BusyTest = std::function<bool()>;

  /// Adds the actions to `window`, in which their keys are heard.
  CommandActions(QWidget& window, const CommandList& commands, Chain chain, BusyTest isBusy);

  /// Null for a number that no command has.
  QAction* Action(int command) const;
  CommandList Commands() const;

  /// Brings enabled states and check marks up to date; what nothing handles is disabled.
  void Refresh();
  /// Runs the command if something handles it and it is enabled.
  void Run(int command);
  /// Whether the last Refresh found the application busy.
  bool ShowsBusy() const { return showsBusy_; }

 signals:
  void Refreshed();

 private:
  struct Entry {
    const Command* command;
    QAction* action;
  };

  QAction* Make(const Command& command);
  CommandState StateOf(const Command& command) const;

  Chain chain_;
  BusyTest isBusy_;
  std::map<int, Entry> entries_;
  bool showsBusy_ = false;
};

}  // namespace quorvel
