#pragma once

#include <cstdint>

#include "map/fill/property_settings.h"
#include "map/types/map_contents.h"
#include "platform/documents/feedback.h"

namespace quorvel {

/// The fill in the plainest form, with a list of the cells that no region holds and lists of cells to grow
/// from. Slow, and the judge of the one that is not.
void FillMapByTheBook(MapContents& map, const CPropertySettingList& global,
                      const CPropertySettingList& region, std::uint32_t seed, Feedback& feedback,
                      CellListener& listener);

}  // namespace quorvel
