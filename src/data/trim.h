#pragma once

#include <algorithm>
#include <string_view>

namespace quorvel {

/// White space of the C locale.
inline constexpr std::string_view kWhiteSpace = " \t\n\f\r\v";

inline std::string_view TrimLeft(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
}

inline std::string_view TrimRight(std::string_view text) {
  return text.substr(0, text.find_last_not_of(kWhiteSpace) + 1);
}

inline std::string_view Trim(std::string_view text) {
  return TrimLeft(TrimRight(text));
}

}  // namespace quorvel
