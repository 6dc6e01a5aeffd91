#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "map/fill/fill_settings.h"

namespace quorvel {

/// So many settings files of fills are kept, the newest.
inline constexpr std::size_t kKeptFills = 10;

/// Keeps what a map was made from as a settings file of its own: with the definitions, the size and the seed,
/// so that the same map can be made again. `folder` is made when missing; file names are the time in UTC and
/// sort by it. `seconds` is the time since 1970. False, with a line in the error text: the file could not be
/// written.
bool KeepFillSettings(const std::string& folder, std::int64_t seconds, const FillSettings& settings,
                      const DataBranch* classes, std::string& errorText);

}  // namespace quorvel
