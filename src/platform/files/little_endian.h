#pragma once

#include <cstddef>
#include <string>

namespace quorvel {

/// Appends an unsigned number in as many bytes as it has, the lowest first.
template <class Number>
void PutLittleEndian(std::string& to, Number number) {
  for (std::size_t i = 0; i < sizeof number; ++i) to += static_cast<char>(number >> (8 * i));
}

/// The number that begins at `from`, which holds as many bytes as it has.
template <class Number>
Number GetLittleEndian(const char* from) {
  Number number = 0;
  for (std::size_t i = 0; i < sizeof number; ++i)
    number |= static_cast<Number>(static_cast<Number>(static_cast<unsigned char>(from[i])) << (8 * i));
  return number;
}

}  // namespace quorvel
