#include "map/types/range_text.h"

#include <algorithm>
#include <span>

#include "data/ascii_case.h"
#include "data/c_numbers.h"
#include "data/member_kinds.h"

namespace quorvel {
namespace {

/// Takes the part before the first "<" off the text. A "<" in first place separates nothing.
bool SplitOff(std::string_view& text, std::string_view& part) {
  const std::size_t separator = text.find('<');
  if (separator == text.npos || separator == 0) return false;
  part = text.substr(0, separator);
  text.remove_prefix(separator + 1);
  return true;
}

/// Position of the name that equals the text but for letter case, or -1.
int FindName(std::span<const std::string_view> names, std::string_view text) {
  const auto equals = [text](std::string_view name) { return EqualIgnoringCase(name, text); };
  const auto found = std::ranges::find_if(names, equals);
  return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

}  // namespace

NumberDefault<std::string_view> ParseRange(std::string_view text) {
  NumberDefault<std::string_view> range{"0", "0", "0"};
  if (const std::size_t colon = text.find(':'); colon != text.npos) text.remove_prefix(colon + 1);
  if (text.empty() || text == "array") return range;

  SplitOff(text, range.min);
  SplitOff(text, range.max);
  if (!text.empty()) {
    range.initial = range.max;  // with three pieces the one in the middle is the default
    range.max = text;
  }
  return range;
}

IntDefault ParseIntRange(std::string_view text) {
  const NumberDefault<std::string_view> range = ParseRange(text);
  return {ToInt(range.min), ToInt(range.max), ToInt(range.initial)};
}

FloatDefault ParseFloatRange(std::string_view text) {
  const NumberDefault<std::string_view> range = ParseRange(text);
  return {ToFloat(range.min), ToFloat(range.max), ToFloat(range.initial)};
}

int ParseDefinitionKind(std::string_view text) {
  static constexpr std::string_view kNames[] = {"class", "list"};
  return FindName(kNames, text);
}

int ParseMemberKind(std::string_view text) {
  return FindName(kMemberKindNames, text);
}

}  // namespace quorvel
