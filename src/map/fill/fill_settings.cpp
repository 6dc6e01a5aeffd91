#include "map/fill/fill_settings.h"

#include <algorithm>
#include <string_view>

#include <fmt/format.h>

#include "data/c_numbers.h"
#include "data/control_escapes.h"
#include "data/slot.h"

namespace quorvel {
namespace {

/// What tells the values of a property apart: the share of the cells they get, or the place where they begin.
enum class Spread { Shares, Origins };

// ---- Reading

/// The child itself; a path would also match the branch.
const DataBranch* Child(const DataBranch& branch, std::string_view name) {
  const DataBranch* child = branch.GetFirstBranch();
  while (child && child->GetName() != name) child = child->GetNextBranch();
  return child;
}

std::string_view Text(const DataBranch& branch, std::string_view name) {
  const DataLeaf* leaf = branch.FindLeaf(name);
  return leaf ? leaf->GetValue() : std::string_view();
}

float Number(const DataBranch& branch, std::string_view name, float otherwise) {
  const DataLeaf* leaf = branch.FindLeaf(name);
  return leaf ? ToFloat(leaf->GetValue()) : otherwise;
}

std::optional<std::int32_t> Side(const DataBranch& fill, std::string_view name) {
  const DataLeaf* leaf = fill.FindLeaf(name);
  if (!leaf) return std::nullopt;
  return ClampNewMapSide(ToInt(leaf->GetValue()));
}

void ReadValue(const DataBranch& branch, Spread spread, CPropertySetting& setting) {
  CValueSetting& value =
      spread == Spread::Shares ? setting.AppendValue(Number(branch, "share", 0.0F)) : setting.AddValue();
  if (spread == Spread::Origins) value.SetOrigin(Number(branch, "x", 50.0F), Number(branch, "y", 50.0F));
  value.StoreText(Text(branch, "value"));
}

void ReadSetting(const DataBranch& branch, Spread spread, CPropertySetting& setting) {
  setting.SetCoverage(Number(branch, "coverage", 100.0F));
  const DataBranch* values = Child(branch, "Values");
  if (!values) return;
  for (const DataBranch* value = values->GetFirstBranch(); value; value = value->GetNextBranch())
    ReadValue(*value, spread, setting);
}

struct SettingForm {
  Spread spread;
  CoverageControl control;
};

/// False, with a line for each, when settings name no member. A null branch holds no settings.
bool ReadSettings(const DataBranch* branch, SettingForm form, const ClassDef* cellClass,
                  CPropertySettingList& list, std::string& errorText) {
  bool good = true;
  const DataBranch* setting = branch ? branch->GetFirstBranch() : nullptr;
  for (; setting; setting = setting->GetNextBranch()) {
    const std::string_view name = Text(*setting, "member");
    const MemberDef* member = cellClass ? cellClass->FindMember(name) : nullptr;
    if (member) {
      ReadSetting(*setting, form.spread, list.Add(member, form.control));
    } else {
      errorText += fmt::format("Setting \"{}/{}\": there is no cell property \"{}\".\n", branch->GetName(),
                               WithEscapes(setting->GetName()), WithEscapes(name));
      good = false;
    }
  }
  return good;
}

const DataBranch* FindSettings(const DataBranch& file, std::string_view name, std::string& errorText) {
  const DataBranch* branch = Child(file, name);
  if (!branch) errorText += fmt::format("Settings \"{}\" not found.\n", name);
  return branch;
}

// ---- Writing

/// The text that reads back as this value, to the bit.
std::string ExactText(const MemberDef& member, const void* slot) {
  std::string text;
  if (member.GetKind() == MemberKind::Float) {
    text = fmt::format("{}", LoadSlot<float>(slot));
  } else if (member.GetKind() == MemberKind::Index) {
    text = FormatInt(LoadSlot<std::int32_t>(slot));
  } else if (member.GetKind() != MemberKind::Object) {
    member.FormatValue(text, slot);
  }
  return text;
}

/// Numbers without a point are left as they are: the text form would add one to a float.
ValueType NumberType(std::string_view text) {
  return text.find('.') != std::string_view::npos ? ValueType::Float : ValueType::Int;
}

void WriteNumber(DataBranch& branch, std::string_view name, float number) {
  const std::string text = fmt::format("{}", number);
  branch.SetLeaf(name, text, NumberType(text));
}

void WriteValue(const CValueSetting& value, const MemberDef& member, Spread spread, DataBranch& branch) {
  const std::string text = ExactText(member, value.GetValue());
  branch.SetLeaf("value", text,
                 member.GetKind() == MemberKind::String ? ValueType::String : NumberType(text));
  if (spread == Spread::Shares) {
    WriteNumber(branch, "share", value.GetShare());
  } else {
    WriteNumber(branch, "x", value.GetOriginX());
    WriteNumber(branch, "y", value.GetOriginY());
  }
}

void WriteSettings(const CPropertySettingList& list, Spread spread, DataBranch& branch) {
  for (const std::unique_ptr<CPropertySetting>& setting : list.GetSettings()) {
    const MemberDef* member = setting->GetMember();
    if (!member) continue;
    DataBranch* settingBranch = branch.AddBranch(std::to_string(branch.CountBranches()));
    settingBranch->SetLeaf("member", member->GetName(), ValueType::String);
    WriteNumber(*settingBranch, "coverage", setting->GetCoverage());
    DataBranch* values = settingBranch->GetBranch("Values");
    for (const std::unique_ptr<CValueSetting>& value : setting->GetValues())
      WriteValue(*value, *member, spread, *values->AddBranch(std::to_string(values->CountBranches())));
  }
}

}  // namespace

std::int32_t ClampNewMapSide(std::int32_t cells) {
  return std::clamp(cells, 1, kMaxNewMapSide);
}

std::optional<FillSettings> ReadFillSettings(const DataBranch& file, const ClassDef* cellClass,
                                             std::string& errorText) {
  const DataBranch* fill = FindSettings(file, "Fill", errorText);
  if (!fill) return std::nullopt;

  FillSettings settings;
  settings.width = Side(*fill, "Width");
  settings.height = Side(*fill, "Height");
  if (const DataLeaf* seed = fill->FindLeaf("Seed")) settings.seed = ToUnsigned(seed->GetValue());

  const bool globalGood = ReadSettings(Child(*fill, "Global"), {Spread::Shares, CoverageControl::Slider},
                                       cellClass, settings.global, errorText);
  const bool regionGood = ReadSettings(Child(*fill, "Region"), {Spread::Origins, CoverageControl::Slider},
                                       cellClass, settings.region, errorText);
  if (!globalGood || !regionGood) return std::nullopt;
  return settings;
}

std::optional<CPropertySettingList> ReadFilterSettings(const DataBranch& file, const ClassDef* cellClass,
                                                       std::string& errorText) {
  const DataBranch* filter = FindSettings(file, "Filter", errorText);
  CPropertySettingList settings;
  const SettingForm form{Spread::Shares, CoverageControl::Button};
  if (!filter || !ReadSettings(filter, form, cellClass, settings, errorText)) return std::nullopt;
  return settings;
}

void WriteFillSettings(const FillSettings& settings, DataBranch& file) {
  DataBranch& fill = *file.GetBranch("Fill");
  if (settings.width) fill.SetLeaf("Width", FormatInt(*settings.width), ValueType::Int);
  if (settings.height) fill.SetLeaf("Height", FormatInt(*settings.height), ValueType::Int);
  if (settings.seed) fill.SetLeaf("Seed", std::to_string(*settings.seed), ValueType::Int);
  WriteSettings(settings.global, Spread::Shares, *fill.GetBranch("Global"));
  WriteSettings(settings.region, Spread::Origins, *fill.GetBranch("Region"));
}

}  // namespace quorvel
