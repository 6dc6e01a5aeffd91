#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/member_def.h"

namespace quorvel {

class CPropertySetting;

/// "%.2f%%": coverages and shares as the wizard shows them.
std::string FormatPercent(float percent);

/// What sets a property's coverage on the wizard's page: an on/off button, a slider, or nothing.
enum class CoverageControl : std::int32_t { Button = 0, Slider = 1, None = 2 };

/// One value that cells may get: the value itself, its share among the values of its property in percent, and
/// the origin of its region in percent of the map's width and height. Belongs to a CPropertySetting.
class CValueSetting {
 public:
  CValueSetting(CPropertySetting& owner, float share);
  CValueSetting(const CValueSetting&) = delete;
  CValueSetting& operator=(const CValueSetting&) = delete;

  CPropertySetting& GetOwner() const { return *owner_; }
  float GetShare() const { return share_; }

  float GetOriginX() const { return originX_; }
  float GetOriginY() const { return originY_; }
  /// Each is clamped to 0..100; what is no number counts as 0.
  void SetOrigin(float xPercent, float yPercent);

  /// The value as its member reads it: a slot that is no part of an instance. Starts with the member's
  /// default; means nothing without a member or with an object member.
  const void* GetValue() const { return &slot_; }
  /// Copies a slot of the same member; null: the member's default.
  void StoreValue(const void* from);
  /// Stores what a text says, converted by the member's kind.
  void StoreText(std::string_view text);

  /// The value as the member formats it; empty without a member.
  std::string FormatValue() const;
  std::string FormatShare() const { return FormatPercent(share_); }

 private:
  friend class CPropertySetting;

  CPropertySetting* owner_;
  float share_;
  std::uint32_t slot_ = 0;
  float originX_ = 50.0F;
  float originY_ = 50.0F;
};

/// How one property is spread over the map: the percentage of cells that get it, and its values in order.
/// While values are added by AddValue, shared out by SetShare and removed by RemoveValue, their shares sum to
/// 100.
class CPropertySetting {
 public:
  using Values = std::vector<std::unique_ptr<CValueSetting>>;

  /// The member is not owned, may be null (nothing is stored then) and must live as long as the setting.
  CPropertySetting(const MemberDef* member, CoverageControl control) : member_(member), control_(control) {}
  CPropertySetting(const CPropertySetting&) = delete;
  CPropertySetting& operator=(const CPropertySetting&) = delete;

  const MemberDef* GetMember() const { return member_; }
  CoverageControl GetControl() const { return control_; }

  /// Percent of cells, 100 at the start.
  float GetCoverage() const { return coverage_; }
  /// A negative coverage counts with its magnitude, then 100 is the limit; what is no number counts as 0.
  void SetCoverage(float percent);

  const Values& GetValues() const { return values_; }
  /// Appends a value of the member's default: share 100 for the first, 0 for each further one, origin (50,
  /// 50).
  CValueSetting& AddValue();
  /// Appends a value with this share exactly; the others keep theirs.
  CValueSetting& AppendValue(float share);
  /// Gives one value a share, clamped as a coverage is; the others share the rest in their proportions, or
  /// equally when they had nothing. Nothing happens for a value of another setting.
  void SetShare(const CValueSetting* value, float share);
  /// Removes one value; the others grow to 100 in their proportions, or equally when they had nothing.
  /// Nothing happens for a value of another setting.
  void RemoveValue(const CValueSetting* value);

 private:
  Values::iterator Find(const CValueSetting* value);

  const MemberDef* member_;
  CoverageControl control_;
  float coverage_ = 100.0F;
  Values values_;
};

/// Settings in the order in which the fill applies them.
class CPropertySettingList {
 public:
  using Settings = std::vector<std::unique_ptr<CPropertySetting>>;

  const Settings& GetSettings() const { return settings_; }
  CPropertySetting& Add(const MemberDef* member, CoverageControl control);

  /// A copy that shares nothing with this list but the members.
  CPropertySettingList Copy() const;

 private:
  Settings settings_;
};

}  // namespace quorvel
