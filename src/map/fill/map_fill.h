#pragma once

#include <cstdint>

#include "map/fill/property_settings.h"
#include "map/types/map_contents.h"
#include "platform/documents/feedback.h"

namespace quorvel {

/// Gives the cells of a map their values; the same map for the same settings and seed, on every machine.
///
/// First every cell in index order draws, for each global setting that has values, whether it gets the
/// property and which value: a number against the coverage, and if that succeeds another against the running
/// sum of the shares. Then each region setting lays its values out as regions that grow in step, ring by
/// ring, from a seed cell each; a cell that two regions reach in the same step goes to neither and parts
/// them. Seed cells keep what they had. A region setting with more values than the map has cells is skipped.
///
/// The map must have its grid; the settings' members are those of its cell class. Where that class has no
/// bytes, cells are passed over. When memory runs out std::bad_alloc leaves the map filled in part.
/// `listener` is told of a cell after each value it got, also when its value could not be stored for want of
/// a member; `feedback` gets the progress and is pumped all along.
void FillMap(MapContents& map, const CPropertySettingList& global, const CPropertySettingList& region,
             std::uint32_t seed, Feedback& feedback, CellListener& listener);

}  // namespace quorvel
