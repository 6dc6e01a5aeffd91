#pragma once

#include <cstdint>
#include <optional>

#include "data/class_def.h"

namespace quorvel {

/// Bounds and defaults of a new map's size in cells. A number that the definitions do not give stays as it
/// was.
struct MapSizeLimits {
  std::optional<std::int32_t> minWidth, minHeight;
  std::optional<std::int32_t> maxWidth, maxHeight;
  std::optional<std::int32_t> defaultWidth, defaultHeight;
};

/// Takes the limits from the members "Width" and "Height" of the map class. False when a member is missing or
/// is of a kind without numbers; the other one's are still taken. No map class: true, and nothing is taken.
bool GetMapSizeLimits(const ClassDef* mapClass, MapSizeLimits& limits);

}  // namespace quorvel
