#pragma once

#include <span>
#include <string_view>

namespace quorvel {

/// A row of a popup menu; command 0 is a separator. Behind "\t" stands the key that is shown for it.
struct MenuItem {
  std::string_view text;
  int command;
};

struct PopupMenu {
  std::string_view text;
  std::span<const MenuItem> items;
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
