#pragma once

#include <string_view>

namespace quorvel {

/// One string resource. A command's text is its prompt for the message pane, then "\n" and its tooltip.
struct StringRow {
  int id;
  std::string_view text;
  std::string_view whatsThis =
      {};  ///< the sentence shown when the "what's this" pointer asks; empty: the prompt
};

/// The row of `id`; an empty row when the table has none.
const StringRow& FindString(int id);
std::string_view PromptOf(int id);
/// The part behind "\n"; the whole text when there is none.
std::string_view TooltipOf(int id);

}  // namespace quorvel
