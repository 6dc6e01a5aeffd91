#pragma once

#include <string_view>

namespace quorvel {

/// One string resource. A control's text is its prompt for the message pane, then "\n" and its tooltip.
struct StringRow {
  int id;
  std::string_view text;
  /// The sentence shown when the "what's this" pointer asks.
  std::string_view whatsThis = {};
};

/// The row of `id`; an empty row when the table has none.
const StringRow& FindString(int id);

/// The part of a command's or a control's text before "\n", and the one behind it; the whole when there is
/// none.
std::string_view PromptOf(std::string_view text);
std::string_view TooltipOf(std::string_view text);

}  // namespace quorvel
