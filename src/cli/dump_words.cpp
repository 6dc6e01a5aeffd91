#include "cli/dump_words.h"

#include <bit>
#include <charconv>

namespace quorvel {

namespace {

bool IsPrintable(char byte) {
  return byte >= 0x20 && byte < 0x7f;
}

bool StandsInName(char byte) {
  return IsPrintable(byte) && byte != ' ' && byte != '%' && byte != '/' && byte != '\\';
}

void AppendEscape(std::string& line, char byte) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(byte);
  line += '%';
  line += kDigits[value >> 4];
  line += kDigits[value & 15];
}

template <class Keep>
void AppendEscaped(std::string& line, std::string_view text, Keep keep) {
  for (const char byte : text) {
    if (keep(byte))
      line += byte;
    else
      AppendEscape(line, byte);
  }
}

}  // namespace

void AppendEscapedName(std::string& line, std::string_view name) {
  AppendEscaped(line, name, StandsInName);
}

void AppendMessage(std::string& line, std::string_view message) {
  AppendEscaped(line, message, IsPrintable);
}

void AppendHexText(std::string& line, std::string_view text) {
  constexpr char kDigits[] = "0123456789abcdef";
  if (text.empty()) line += '-';
  for (const char byte : text) {
    const auto value = static_cast<unsigned char>(byte);
    line += kDigits[value >> 4];
    line += kDigits[value & 15];
  }
}

void AppendFloatBits(std::string& line, float value) {
  constexpr char kDigits[] = "0123456789abcdef";
  const auto bits = std::bit_cast<std::uint32_t>(value);
  for (int shift = 28; shift >= 0; shift -= 4) line += kDigits[(bits >> shift) & 15];
}

void AppendDecimal(std::string& line, std::int64_t value) {
  char digits[24];
  line.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

}  // namespace quorvel
