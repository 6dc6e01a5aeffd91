#include "map/types/map_size_limits.h"

#include <cmath>
#include <limits>
#include <string_view>
#include <variant>

namespace quorvel {
namespace {

using Number = std::optional<std::int32_t>;

/// Truncated toward zero, clamped to 32 bits; what is no number counts as 0.
std::int32_t Truncate(float number) {
  if (std::isnan(number)) return 0;
  constexpr float kBeyond = 2147483648.0F;
  if (number >= kBeyond) return std::numeric_limits<std::int32_t>::max();
  if (number < -kBeyond) return std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(number);
}

bool TakeRange(const MemberDef* member, Number& min, Number& max, Number& initial) {
  if (!member) return false;
  if (const auto* range = std::get_if<IntDefault>(&member->GetDefault())) {
    min = range->min, max = range->max, initial = range->initial;
    return true;
  }
  if (const auto* range = std::get_if<FloatDefault>(&member->GetDefault())) {
    min = Truncate(range->min), max = Truncate(range->max), initial = Truncate(range->initial);
    return true;
  }
  return false;
}

}  // namespace

bool GetMapSizeLimits(const ClassDef* mapClass, MapSizeLimits& limits) {
  if (!mapClass) return true;
  const bool width =
      TakeRange(mapClass->FindMember("Width"), limits.minWidth, limits.maxWidth, limits.defaultWidth);
  const bool height =
      TakeRange(mapClass->FindMember("Height"), limits.minHeight, limits.maxHeight, limits.defaultHeight);
  return width && height;
}

}  // namespace quorvel
