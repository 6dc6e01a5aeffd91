#include "map/check/map_check_values.h"

#include <charconv>
#include <cmath>

#include <fmt/format.h>

#include "data/c_numbers.h"
#include "data/index_member.h"
#include "data/list_def.h"
#include "data/slot.h"

namespace quorvel {

namespace {

/// A range is declared unless all its numbers are 0; one whose bounds are the wrong way round is a problem of
/// the types.
template <class Number>
bool IsOutside(const NumberDefault<Number>& range, Number value) {
  if (range == NumberDefault<Number>() || range.max < range.min) return false;
  return !(value >= range.min && value <= range.max);
}

template <class Number>
std::optional<std::string> RangeProblem(const MemberDef& member, Number value) {
  const auto& range = std::get<NumberDefault<Number>>(member.GetDefault());
  if (!IsOutside(range, value)) return {};
  return fmt::format("{} is {}, outside {}..{}", member.GetName(), value, range.min, range.max);
}

std::optional<std::string> PositionProblem(const IndexMember& member, std::int32_t position) {
  const ListDef* list = member.List();
  if (!list || (position >= 0 && position < list->CountItems())) return {};
  return fmt::format("{} is {}, but list {} has {} items", member.GetName(), position, list->GetName(),
                     list->CountItems());
}

template <class Number>
bool IsWholeText(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error != std::errc::invalid_argument && end == text.data() + text.size();
}

/// Infinite numbers and NaN as the writer writes them, with a point that makes them floats.
bool IsWrittenText(float number, std::string_view text) {
  return !std::isfinite(number) && text == FormatFloat(number) + '.';
}

bool IsNumberText(const MemberDef& member, const void* slot, std::string_view text) {
  if (member.GetKind() != MemberKind::Float) return IsWholeText<std::int32_t>(text);
  return IsWholeText<double>(text) || IsWrittenText(LoadSlot<float>(slot), text);
}

}  // namespace

std::optional<std::string> ValueProblem(const MemberDef& member, const void* slot) {
  switch (member.GetKind()) {
    case MemberKind::Int:
      return RangeProblem(member, LoadSlot<std::int32_t>(slot));
    case MemberKind::Float:
      return RangeProblem(member, LoadSlot<float>(slot));
    case MemberKind::Index:
      return PositionProblem(static_cast<const IndexMember&>(member), LoadSlot<std::int32_t>(slot));
    case MemberKind::String:
    case MemberKind::Object:
      break;
  }
  return {};
}

std::optional<std::string> ValueTextProblem(const MemberDef& member, std::string_view text) {
  if (member.GetKind() == MemberKind::Object)
    return fmt::format("{} is an object and holds no value", member.GetName());
  if (member.GetKind() == MemberKind::String) return {};
  std::uint32_t slot = 0;
  member.StoreText(&slot, text);
  if (IsNumberText(member, &slot, text)) return ValueProblem(member, &slot);
  return member.GetKind() == MemberKind::Float
             ? fmt::format("{} is no number, \"{}\" is read as {}", member.GetName(), text,
                           LoadSlot<float>(&slot))
             : fmt::format("{} is no whole number, \"{}\" is read as {}", member.GetName(), text,
                           LoadSlot<std::int32_t>(&slot));
}

}  // namespace quorvel
