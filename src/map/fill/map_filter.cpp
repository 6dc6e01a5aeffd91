#include "map/fill/map_filter.h"

#include <algorithm>

#include "data/same_value.h"

namespace quorvel {

namespace {

/// Whether there may be cells that fail it.
bool Counts(const CPropertySetting& setting) {
  const MemberDef* member = setting.GetMember();
  return member && member->GetKind() != MemberKind::Object && !setting.GetValues().empty() &&
         setting.GetCoverage() > 0;
}

bool Passes(const CPropertySetting& setting, ClassInstance instance) {
  if (!Counts(setting)) return true;
  const MemberDef* member = setting.GetMember();
  std::uint32_t standard = 0;
  const void* slot = member->GetValuePtr(instance);
  if (!slot) {
    member->ConstructValue(&standard);
    slot = &standard;
  }
  const auto& values = setting.GetValues();
  return std::any_of(values.begin(), values.end(),
                     [&](const auto& value) { return SameValue(*member, slot, *member, value->GetValue()); });
}

}  // namespace

bool IsFilterActive(const CPropertySettingList* filter) {
  return filter && std::any_of(filter->GetSettings().begin(), filter->GetSettings().end(),
                               [](const auto& setting) { return Counts(*setting); });
}

bool PassesFilter(const CPropertySettingList& filter, ClassInstance instance) {
  const auto& settings = filter.GetSettings();
  return std::all_of(settings.begin(), settings.end(),
                     [instance](const auto& setting) { return Passes(*setting, instance); });
}

}  // namespace quorvel
