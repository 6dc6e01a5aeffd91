#pragma once

#include <iterator>
#include <string>
#include <utility>

#include <fmt/format.h>

namespace quorvel {

/// Adds a line to an error text.
template <class... Values>
void AppendLine(std::string& errorText, fmt::format_string<Values...> format, Values&&... values) {
  fmt::format_to(std::back_inserter(errorText), format, std::forward<Values>(values)...);
  errorText += '\n';
}

}  // namespace quorvel
