#include "data/c_numbers.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <system_error>

#include <locale.h>
#include <stdlib.h>

#include "data/trim.h"

namespace quorvel {
namespace {

/// Longest "%f" of a float: a sign, 39 digits, the point and six decimals; in full, with room to spare.
constexpr std::size_t kFloatTextBytes = 64;

/// Cuts an optional sign off; true for a minus.
bool TakeMinus(std::string_view& text) {
  if (text.empty() || (text.front() != '-' && text.front() != '+')) return false;
  const bool minus = text.front() == '-';
  text.remove_prefix(1);
  return minus;
}

bool IsHexPrefix(std::string_view text) {
  return text.size() >= 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
}

/// The value of leading digits, at most `limit`.
std::uint64_t TakeDigits(std::string_view text, int base, std::uint64_t limit) {
  std::uint64_t number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number, base);
  return result.ec == std::errc::result_out_of_range || number > limit ? limit : number;
}

/// What the C library makes of the text: the judge of the rare forms (hexadecimal, nan, out of range).
double SlowToDouble(std::string_view text) {
  static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(std::string(text).c_str(), nullptr, cLocale);
}

/// The magnitude in millionths, rounded as printf rounds, half to even; none from 2^43 on. A float's 24 bits
/// times a million fit in 44, so whole numbers do exactly what takes the general conversion several times as
/// long.
std::optional<std::uint64_t> ToMillionths(float number) {
  const auto bits = std::bit_cast<std::uint32_t>(number);
  const std::uint32_t exponent = bits >> 23 & 0xff;
  if (exponent >= 127 + 43) return std::nullopt;
  const std::uint32_t leadingBit = exponent == 0 ? 0 : 0x800000;
  const std::uint64_t product = std::uint64_t{(bits & 0x7fffff) | leadingBit} * 1000000;
  const int shift = 150 - static_cast<int>(std::max(exponent, 1U));  // number = mantissa * 2^-shift
  if (shift <= 0) return product << -shift;
  if (shift > 45) return 0;  // below half a millionth

  const std::uint64_t whole = product >> shift;
  const std::uint64_t rest = product - (whole << shift);
  const std::uint64_t half = std::uint64_t{1} << (shift - 1);
  const bool up = rest > half || (rest == half && whole % 2 == 1);
  return whole + (up ? 1 : 0);
}

}  // namespace

std::int32_t ToInt(std::string_view text) {
  text = TrimLeft(text);
  const bool minus = TakeMinus(text);
  const std::int64_t largest = std::numeric_limits<std::int32_t>::max();
  const auto magnitude = static_cast<std::int64_t>(TakeDigits(text, 10, minus ? largest + 1 : largest));
  return static_cast<std::int32_t>(minus ? -magnitude : magnitude);
}

double ToDouble(std::string_view text) {
  const std::string_view number = TrimLeft(text);
  std::string_view digits = number;
  const bool minus = TakeMinus(digits);
  const bool plain = !digits.empty() && (digits[0] == '.' || (digits[0] >= '0' && digits[0] <= '9'));
  if (!plain || IsHexPrefix(digits)) return SlowToDouble(number);

  double value = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (result.ec == std::errc::result_out_of_range) return SlowToDouble(number);
  if (result.ec != std::errc()) return 0;
  return minus ? -value : value;
}

float ToFloat(std::string_view text) {
  return static_cast<float>(ToDouble(text));
}

std::uint32_t ToUnsigned(std::string_view text) {
  text = TrimLeft(text);
  const bool minus = TakeMinus(text);
  const bool hex = IsHexPrefix(text);
  const int base = hex ? 16 : !text.empty() && text[0] == '0' ? 8 : 10;
  if (hex) text.remove_prefix(2);

  constexpr std::uint64_t kTooLarge = std::uint64_t{1} << 32;
  const std::uint64_t magnitude = TakeDigits(text, base, kTooLarge);
  if (magnitude == kTooLarge) return std::numeric_limits<std::uint32_t>::max();
  return static_cast<std::uint32_t>(minus ? std::uint64_t{0} - magnitude : magnitude);
}

void AppendInt(std::string& out, std::int32_t number) {
  char text[std::numeric_limits<std::int32_t>::digits10 + 3];
  out.append(text, std::to_chars(text, text + sizeof text, number).ptr);
}

std::string FormatInt(std::int32_t number) {
  std::string text;
  AppendInt(text, number);
  return text;
}

void AppendFloat(std::string& out, float number) {
  char text[kFloatTextBytes];
  char* end = text + sizeof text;
  const std::optional<std::uint64_t> millionths = ToMillionths(number);
  if (!millionths) {
    const double exact = number;  // printf is given a double
    out.append(text, std::to_chars(text, end, exact, std::chars_format::fixed, 6).ptr);
    return;
  }
  if (std::signbit(number)) out += '-';
  char* point = std::to_chars(text, end, *millionths / 1000000).ptr;
  *point = '.';
  std::uint64_t decimals = *millionths % 1000000;
  for (char* digit = point + 6; digit != point; --digit, decimals /= 10)
    *digit = static_cast<char>('0' + decimals % 10);
  out.append(text, point + 7);
}

std::string FormatFloat(float number) {
  std::string text;
  AppendFloat(text, number);
  return text;
}

}  // namespace quorvel
