#include "data/control_escapes.h"

#include <algorithm>

namespace quorvel {
namespace {

unsigned char ByteAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

/// False: a shorter character could say the same, or no character is meant.
bool MayFollow(unsigned char lead, unsigned char second) {
  switch (lead) {
    case 0xe0:
      return second >= 0xa0;
    case 0xed:
      return second < 0xa0;
    case 0xf0:
      return second >= 0x90;
    case 0xf4:
      return second < 0x90;
    default:
      return true;
  }
}

/// Bytes of the UTF-8 character at the start of the text; 1 where there is none.
std::size_t CharacterBytes(std::string_view text) {
  const unsigned char lead = ByteAt(text, 0);
  if (lead < 0xc2 || lead > 0xf4) return 1;
  const std::size_t bytes = lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
  if (text.size() < bytes || !MayFollow(lead, ByteAt(text, 1))) return 1;
  const auto continues = [](char byte) { return (byte & 0xc0) == 0x80; };
  return std::ranges::all_of(text.substr(1, bytes - 1), continues) ? bytes : 1;
}

bool IsControl(std::string_view character) {
  const unsigned char last = ByteAt(character, character.size() - 1);
  const bool isUpper = last >= 0x80 && last < 0xa0;
  if (character.size() == 1) return last < 0x20 || last == 0x7f || isUpper;
  return character.size() == 2 && ByteAt(character, 0) == 0xc2 && isUpper;
}

}  // namespace

std::size_t CountShownBytes(std::string_view text) {
  std::size_t shown = 0;
  while (shown < text.size()) {
    const std::size_t bytes = CharacterBytes(text.substr(shown));
    if (IsControl(text.substr(shown, bytes))) break;
    shown += bytes;
  }
  return shown;
}

std::array<char, 3> ControlEscape(char byte) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(byte);
  return {'%', kDigits[value >> 4], kDigits[value & 15]};
}

void AppendWithEscapes(std::string& line, std::string_view text) {
  PutWithEscapes(text, [&line](std::string_view piece) { line += piece; });
}

std::string WithEscapes(std::string_view text) {
  std::string line;
  AppendWithEscapes(line, text);
  return line;
}

}  // namespace quorvel
