#pragma once

#include <algorithm>
#include <string_view>

namespace quorvel {

/// Lower case of the letters A to Z; every other byte as it is, whatever the locale.
constexpr char AsciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return AsciiLower(x) == AsciiLower(y); });
}

constexpr bool EndsWithIgnoringCase(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() && EqualIgnoringCase(text.substr(text.size() - ending.size()), ending);
}

}  // namespace quorvel
