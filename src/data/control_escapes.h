#pragma once

#include <string>
#include <string_view>

namespace quorvel {

/// Appends text for a line that people read: control bytes, which would split the line or move the cursor, as
/// %XX, all other bytes as they are.
inline void AppendWithEscapes(std::string& line, std::string_view text) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  for (const char byte : text) {
    if (static_cast<unsigned char>(byte) < 0x20 || byte == 0x7f)
      (((line += '%') += kDigits[byte >> 4]) += kDigits[byte & 15]);
    else
      line += byte;
  }
}

}  // namespace quorvel
