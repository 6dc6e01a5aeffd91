#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <system_error>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

namespace quorvel {

/// Lets numbers of this range through, and says "9 is not in 10 to 100" of any other text. Numbers are
/// decimal.
template <class Number>
CLI::Validator NumberIn(Number least, Number most) {
  const auto judge = [least, most](std::string& text) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [after, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || after != end || !(number >= least && number <= most))
      return fmt::format("{} is not in {} to {}", text, least, most);
    text = fmt::format("{}", number);  // leading zeros would make the library read it as octal
    return std::string();
  };
  return {judge, ""};
}

/// As many numbers as the array holds, parted by a separator. Wrong usage of `option` when there are more or
/// fewer, then `form` says how they are written, or when one of them is not let through.
template <std::size_t Count>
std::array<std::int32_t, Count> ParseNumbers(const std::string& option, const std::string& text,
                                             char separator, const char* form,
                                             const CLI::Validator& isAllowed) {
  std::array<std::int32_t, Count> numbers{};
  for (std::size_t i = 0, begin = 0; i < Count; ++i) {
    const std::size_t end = text.find(separator, begin);
    std::string word = text.substr(begin, end - begin);
    if (word.empty() || (end == text.npos) != (i + 1 == Count))
      throw CLI::ValidationError(option, text + " is not " + form);
    const std::string trouble = isAllowed(word);
    if (!trouble.empty()) throw CLI::ValidationError(option, trouble);
    std::from_chars(word.data(), word.data() + word.size(), numbers[i]);
    begin = end + 1;
  }
  return numbers;
}

}  // namespace quorvel
