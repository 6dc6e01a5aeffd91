#include "map/fill/map_filter.h"

#include <algorithm>

#include "data/same_value.h"

namespace quorvel {

namespace {

bool Passes(const CPropertySetting& setting, ClassInstance instance) {
  const MemberDef* member = setting.GetMember();
  const auto& values = setting.GetValues();
  if (!member || member->GetKind() == MemberKind::Object) return true;
  if (values.empty() || !(setting.GetCoverage() > 0)) return true;

  std::uint32_t standard = 0;
  const void* slot = member->GetValuePtr(instance);
  if (!slot) {
    member->ConstructValue(&standard);
    slot = &standard;
  }
  return std::any_of(values.begin(), values.end(),
                     [&](const auto& value) { return SameValue(*member, slot, *member, value->GetValue()); });
}

}  // namespace

bool PassesFilter(const CPropertySettingList& filter, ClassInstance instance) {
  const auto& settings = filter.GetSettings();
  return std::all_of(settings.begin(), settings.end(),
                     [instance](const auto& setting) { return Passes(*setting, instance); });
}

}  // namespace quorvel
