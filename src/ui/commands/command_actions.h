#pragma once

#include <functional>
#include <map>
#include <vector>

#include <QAction>
#include <QObject>

#include "ui/commands/command_target.h"

namespace quorvel {

/// True for what cannot disturb a long operation: looking, scrolling, zooming, and the bars.
bool MayRunWhileBusy(int command);

/// The one action of every command that a menu, a button or a key names, its object name the command's
/// number. Menus and bars share them, so a command looks the same everywhere.
class CommandActions : public QObject {
  Q_OBJECT
 public:
  /// Who is asked for a command's state and to run it, first to last.
  using Chain = std::function<std::vector<CommandTarget*>()>;

  using BusyTest = std::function<bool()>;

  /// Adds the actions to `window`, in which their keys are heard. While busy only commands that
  /// `MayRunWhileBusy` are enabled.
  CommandActions(QWidget& window, Chain chain, BusyTest isBusy);

  /// Null for a number that no table names.
  QAction* Action(int command) const;
  std::vector<int> Commands() const;

  /// Brings enabled states and check marks up to date; what nothing handles is disabled.
  void Refresh();
  /// Runs the command if something handles it and it is enabled.
  void Run(int command);
  /// Whether the last Refresh found the application busy.
  bool ShowsBusy() const { return showsBusy_; }

 signals:
  void Refreshed();

 private:
  QAction* Make(int command, QWidget& window);
  CommandState StateOf(int command) const;

  Chain chain_;
  BusyTest isBusy_;
  std::map<int, QAction*> actions_;
  bool showsBusy_ = false;
};

}  // namespace quorvel
