#include "map/fill/property_settings.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

namespace quorvel {
namespace {

constexpr float kWhole = 100.0F;

float ClampedMagnitude(float percent) {
  return std::isnan(percent) ? 0.0F : std::min(std::fabs(percent), kWhole);
}

float ClampedPlace(float percent) {
  return std::isnan(percent) ? 0.0F : std::clamp(percent, 0.0F, kWhole);
}

}  // namespace

std::string FormatPercent(float percent) {
  return fmt::format("{:.2f}%", percent);
}

CValueSetting::CValueSetting(CPropertySetting& owner, float share) : owner_(&owner), share_(share) {
  StoreValue(nullptr);
}

void CValueSetting::SetOrigin(float xPercent, float yPercent) {
  originX_ = ClampedPlace(xPercent);
  originY_ = ClampedPlace(yPercent);
}

void CValueSetting::StoreValue(const void* from) {
  if (const MemberDef* member = owner_->GetMember()) member->StoreValue(&slot_, from);
}

void CValueSetting::StoreText(std::string_view text) {
  if (const MemberDef* member = owner_->GetMember()) member->StoreText(&slot_, text);
}

std::string CValueSetting::FormatValue() const {
  std::string text;
  if (const MemberDef* member = owner_->GetMember()) member->FormatValue(text, &slot_);
  return text;
}

void CPropertySetting::SetCoverage(float percent) {
  coverage_ = ClampedMagnitude(percent);
}

CValueSetting& CPropertySetting::AddValue() {
  return AppendValue(values_.empty() ? kWhole : 0.0F);
}

CValueSetting& CPropertySetting::AppendValue(float share) {
  return *values_.emplace_back(std::make_unique<CValueSetting>(*this, share));
}

CPropertySetting::Values::iterator CPropertySetting::Find(const CValueSetting* value) {
  return std::ranges::find(values_, value, &std::unique_ptr<CValueSetting>::get);
}

// Shares are kept in single precision; the rests are formed in it, quotients and products in double.

void CPropertySetting::SetShare(const CValueSetting* value, float share) {
  const auto changed = Find(value);
  if (changed == values_.end()) return;
  const float newShare = ClampedMagnitude(share);
  const float oldRest = kWhole - (*changed)->share_;
  const float newRest = kWhole - newShare;
  (*changed)->share_ = newShare;

  const double factor = oldRest < 0 ? 0.0 : static_cast<double>(newRest) / oldRest;
  const auto others = static_cast<double>(values_.size() - 1);
  for (const std::unique_ptr<CValueSetting>& other : values_) {
    if (other.get() == value) continue;
    other->share_ = static_cast<float>(oldRest == 0 ? newRest / others : other->share_ * factor);
  }
}

void CPropertySetting::RemoveValue(const CValueSetting* value) {
  const auto removed = Find(value);
  if (removed == values_.end()) return;
  const float rest = kWhole - (*removed)->share_;
  values_.erase(removed);

  const auto remaining = static_cast<double>(values_.size());
  for (const std::unique_ptr<CValueSetting>& other : values_)
    other->share_ = static_cast<float>(rest == 0 ? kWhole / remaining
                                                 : static_cast<double>(other->share_) / rest * kWhole);
}

CPropertySetting& CPropertySettingList::Add(const MemberDef* member, CoverageControl control) {
  return *settings_.emplace_back(std::make_unique<CPropertySetting>(member, control));
}

CPropertySettingList CPropertySettingList::Copy() const {
  CPropertySettingList copy;
  for (const std::unique_ptr<CPropertySetting>& setting : settings_) {
    CPropertySetting& settingCopy = copy.Add(setting->GetMember(), setting->GetControl());
    settingCopy.SetCoverage(setting->GetCoverage());
    for (const std::unique_ptr<CValueSetting>& value : setting->GetValues()) {
      CValueSetting& valueCopy = settingCopy.AppendValue(value->GetShare());
      valueCopy.SetOrigin(value->GetOriginX(), value->GetOriginY());
      valueCopy.StoreValue(value->GetValue());
    }
  }
  return copy;
}

}  // namespace quorvel
