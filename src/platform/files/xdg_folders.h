#pragma once

#include <string>
#include <string_view>

namespace quorvel {

/// The user's folder of this name for what the editor keeps between its runs:
/// $XDG_STATE_HOME (else ~/.local/state) and "/Kelmsor/Quorvel/NAME"; empty: there is no place for it.
std::string StateFolder(std::string_view name);

}  // namespace quorvel
