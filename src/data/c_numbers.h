#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

// Numbers as the C library reads and writes them, always in the C locale. White space before a number is
// skipped, what follows it is ignored, and a text that holds no number is 0. A NUL byte ends the text.

/// `atoi`: decimal, clamped to 32 bits.
std::int32_t ToInt(std::string_view text);

/// `atof` of C99: decimal or hexadecimal, "inf", "nan"; too large gives an infinity, too small a denormal or
/// 0.
double ToDouble(std::string_view text);

/// `ToDouble` converted to single precision; too large gives an infinity.
float ToFloat(std::string_view text);

/// `strtoul` of a 32-bit unsigned long with base 0: decimal, 0x hexadecimal or 0 octal. Saturates at
/// 4294967295; a minus sign negates modulo 2^32.
std::uint32_t ToUnsigned(std::string_view text);

/// "%d".
std::string FormatInt(std::int32_t number);
void AppendInt(std::string& out, std::int32_t number);

/// "%f": six decimals; "inf", "-inf", "nan" and "-nan" for what is no number.
std::string FormatFloat(float number);
void AppendFloat(std::string& out, float number);

}  // namespace quorvel
