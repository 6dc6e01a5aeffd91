#pragma once

#include <span>
#include <string_view>

namespace quorvel {

/// Its commands by their numbers, whose rows say what their items show; 0 is a separator.
struct PopupMenu {
  std::string_view text;
  std::span<const int> commands;
};

/// A whole menu bar. 100 is the main frame's without a map, 101 and 102 those of the two document types.
struct MenuResource {
  int id;
  std::span<const PopupMenu> popups;
};

std::span<const MenuResource> MenuResources();

/// The item of the recent-file list stands for so many, their commands counting up from its own.
inline constexpr int kRecentFileItems = 4;

}  // namespace quorvel
