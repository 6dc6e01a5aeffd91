#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace quorvel {

/// Bytes at the start of a text that a terminal shows, up to the first byte of a control character: below 32,
/// 127, U+0080 to U+009F, and 0x80 to 0x9F outside of UTF-8 characters, which many take for the same.
std::size_t CountShownBytes(std::string_view text);

/// "%XX" of a byte.
std::array<char, 3> ControlEscape(char byte);

/// Gives `put` a text in pieces for a line that people read: bytes of control characters, which would split
/// the line or command the terminal, as %XX, all others as they are. Takes no memory.
template <class Put>
void PutWithEscapes(std::string_view text, Put put) {
  for (;;) {
    const std::size_t shown = CountShownBytes(text);
    put(text.substr(0, shown));
    if (shown == text.size()) return;
    const std::array<char, 3> escape = ControlEscape(text[shown]);
    put(std::string_view(escape.data(), escape.size()));
    text.remove_prefix(shown + 1);
  }
}

/// Appends a text in that way.
void AppendWithEscapes(std::string& line, std::string_view text);
std::string WithEscapes(std::string_view text);

}  // namespace quorvel
