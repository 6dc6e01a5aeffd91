#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace quorvel {

/// Whether a command may run while the application is busy. What runs is harmless to a long operation:
/// looking, scrolling, zooming, and the bars.
enum class WhileBusy { Waits, Runs };

/// All that is known of a command besides who carries it out: the first part of its row.
struct Command {
  int id = 0;
  /// Its item in a menu; empty for a command that stands in none.
  std::string_view menuText = {};
  /// Its keys as `QKeySequence` spells them, divided by blanks; the first one is shown in menus.
  std::string_view keys = {};
  /// Its prompt for the message pane, then "\n" and its tooltip.
  std::string_view text = {};
  /// The sentence shown when the "what's this" pointer asks.
  std::string_view whatsThis = {};
  WhileBusy whileBusy = WhileBusy::Waits;
};

/// The commands of some tables, which live as long as the program.
using CommandList = std::vector<const Command*>;

/// Those that stand in menus or in the toolbar and that nobody carries out yet: shown disabled.
std::span<const Command> UnhandledCommands();

}  // namespace quorvel
