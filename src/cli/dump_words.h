#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

/// The words of which dump lines are made. A line is ASCII without spaces inside a word, so scripts split it
/// at spaces. Every function appends to `line`.

/// A name: printable ASCII as it is; space, "%", "/", "\" and every other byte as "%XX".
void AppendEscapedName(std::string& line, std::string_view name);

/// A text: two lower-case hex digits a byte, "-" for the empty text.
void AppendHexText(std::string& line, std::string_view text);

/// A float: the eight hex digits of its bits.
void AppendFloatBits(std::string& line, float value);

/// A number in decimal.
void AppendDecimal(std::string& line, std::int64_t value);

/// Free text at the end of a line: bytes outside printable ASCII as "%XX", all others as they are.
void AppendMessage(std::string& line, std::string_view message);

}  // namespace quorvel
