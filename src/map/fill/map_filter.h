#pragma once

#include "data/instance_store.h"
#include "map/fill/property_settings.h"

namespace quorvel {

/// Whether a cell with these values passes a filter: for every setting with a coverage above 0 and at least
/// one value, the cell's value is one of the values. None stands for a cell of defaults. Settings without a
/// member, and of object members, which have no value, are passed over. The members are those of the
/// instance's class.
bool PassesFilter(const CPropertySettingList& filter, ClassInstance instance);

/// Whether there is a filter and a setting in it that is not passed over.
bool IsFilterActive(const CPropertySettingList* filter);

}  // namespace quorvel
