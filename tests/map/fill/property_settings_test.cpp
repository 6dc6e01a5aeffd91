#include "map/fill/property_settings.h"

#include <limits>
#include <tuple>

#include <gmock/gmock.h>

#include "tests/map/map_samples.h"

namespace quorvel {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

std::vector<float> Shares(const CPropertySetting& setting) {
  std::vector<float> shares;
  for (const auto& value : setting.GetValues()) shares.push_back(value->GetShare());
  return shares;
}

void Append(CPropertySetting& setting, const std::vector<float>& shares) {
  for (const float share : shares) setting.AppendValue(share);
}

TEST(PropertySetting, TheFirstValueGetsEverything) {
  CPropertySetting setting(nullptr, CoverageControl::Slider);
  for (int i = 0; i < 3; ++i) setting.AddValue();
  EXPECT_EQ(Shares(setting), (std::vector<float>{100, 0, 0}));
  EXPECT_EQ(setting.GetCoverage(), 100);
  EXPECT_EQ(setting.GetValues()[2]->GetOriginX(), 50);
  EXPECT_EQ(setting.GetValues()[0]->FormatShare(), "100.00%");
}

TEST(PropertySetting, SharesAreHandedToTheOthers) {
  const std::tuple<std::vector<float>, std::size_t, float, std::vector<float>> rows[] = {
      {{100, 0, 0}, 1, 40, {60, 40, 0}},
      {{60, 40, 0}, 0, 100, {100, 0, 0}},
      {{100, 0, 0}, 0, 50, {50, 25, 25}},  // the others had nothing: equal parts
      {{50, 0, 50}, 2, 0, {100, 0, 0}},
      {{100}, 0, 30, {30}},  // no other value takes the rest
      {{60, 40}, 1, -70, {30, 70}},
      {{60, 40}, 1, -250, {0, 100}},
      {{60, 40}, 1, 101, {0, 100}},
      {{60, 40}, 1, kNaN, {100, 0}},
      {{150, 10, 20}, 0, 50, {50, 0, 0}},  // a share above 100 leaves a negative rest
      {{0.3333333432674408F, 99.66666412353516F},
       0,
       36.099998474121094F,
       {36.099998474121094F, 63.900001525878906F}},  // in single precision throughout the last bit differs
  };
  for (const auto& [before, changed, share, after] : rows) {
    CPropertySetting setting(nullptr, CoverageControl::Slider);
    Append(setting, before);
    setting.SetShare(setting.GetValues()[changed].get(), share);
    EXPECT_EQ(Shares(setting), after) << testing::PrintToString(before) << " set " << share;
  }
}

TEST(PropertySetting, RemovedSharesGoToTheOthers) {
  const std::tuple<std::vector<float>, std::size_t, std::vector<float>> rows[] = {
      {{100, 0, 0}, 0, {50, 50}},
      {{60, 40}, 1, {100}},
      {{20, 30, 50}, 2, {40, 60}},
      {{100}, 0, {}},
      {{100, 0, 0, 0}, 0, {33.333333F, 33.333333F, 33.333333F}},
      {{3.299999952316284F, 69.57142639160156F}, 0, {71.94563293457031F}},  // quotient and product in double
  };
  for (const auto& [before, removed, after] : rows) {
    CPropertySetting setting(nullptr, CoverageControl::Slider);
    Append(setting, before);
    setting.RemoveValue(setting.GetValues()[removed].get());
    EXPECT_EQ(Shares(setting), after) << testing::PrintToString(before) << " without " << removed;
  }
}

TEST(PropertySetting, ValuesOfAnotherSettingChangeNothing) {
  CPropertySetting setting(nullptr, CoverageControl::Slider), other(nullptr, CoverageControl::Slider);
  Append(setting, {60, 40});
  for (const CValueSetting* foreign :
       {static_cast<const CValueSetting*>(&other.AddValue()), static_cast<const CValueSetting*>(nullptr)}) {
    setting.SetShare(foreign, 10);
    setting.RemoveValue(foreign);
  }
  EXPECT_EQ(Shares(setting), (std::vector<float>{60, 40}));
  EXPECT_EQ(Shares(other), std::vector<float>{100});
}

TEST(PropertySetting, EveryStoreClamps) {
  constexpr std::tuple<float, float, float> rows[] = {
      {0, 0, 0},      {37.5F, 37.5F, 37.5F}, {100.5F, 100, 100},   {-30, 30, 0},
      {-250, 100, 0}, {kInfinity, 100, 100}, {-kInfinity, 100, 0}, {kNaN, 0, 0}};
  CPropertySetting setting(nullptr, CoverageControl::Slider);
  CValueSetting& value = setting.AddValue();
  for (const auto& [stored, coverage, origin] : rows) {
    SCOPED_TRACE(stored);
    setting.SetCoverage(stored);
    EXPECT_EQ(setting.GetCoverage(), coverage);
    value.SetOrigin(stored, 50);
    EXPECT_EQ(value.GetOriginX(), origin);
    value.SetOrigin(50, stored);
    EXPECT_EQ(value.GetOriginY(), origin);
  }
}

TEST(ValueSetting, HoldsTheDefaultUntilATextIsStored) {
  constexpr std::tuple<const char*, const char*, const char*, const char*> rows[] = {
      {"Name", "none", "Vega 7", "Vega 7"}, {"Kind", "dust", "-1", "<error>"}, {"Part", "Part", "7", "Part"}};
  const MapContents contents = ContentsOf(SampleClasses());
  for (const auto& [member, before, text, after] : rows) {
    CPropertySetting setting(Member(contents, member), CoverageControl::Slider);
    CValueSetting& value = setting.AddValue();
    EXPECT_EQ(value.FormatValue(), before);
    value.StoreText(text);
    EXPECT_EQ(value.FormatValue(), after);
  }
  CPropertySetting without(nullptr, CoverageControl::Slider);
  without.AddValue().StoreText("7");
  EXPECT_EQ(without.GetValues()[0]->FormatValue(), "");
}

TEST(PropertySettingList, ACopyIsDeep) {
  const MapContents contents = ContentsOf(SampleClasses());
  CPropertySettingList list;
  CPropertySetting& setting = list.Add(Member(contents, "Name"), CoverageControl::Button);
  setting.SetCoverage(25);
  setting.AppendValue(130).StoreText("Vega");  // shares are copied as they stand
  setting.GetValues()[0]->SetOrigin(10, 90);

  const CPropertySettingList copy = list.Copy();
  setting.SetCoverage(0);
  setting.GetValues()[0]->StoreText("Mira");
  setting.RemoveValue(setting.GetValues()[0].get());

  const CPropertySetting& settingCopy = *copy.GetSettings().at(0);
  const CValueSetting& value = *settingCopy.GetValues().at(0);
  EXPECT_EQ(&value.GetOwner(), &settingCopy);
  EXPECT_EQ(std::tuple(settingCopy.GetMember(), settingCopy.GetControl(), settingCopy.GetCoverage()),
            std::tuple(Member(contents, "Name"), CoverageControl::Button, 25));
  EXPECT_EQ(std::tuple(value.GetShare(), value.GetOriginX(), value.GetOriginY(), value.FormatValue()),
            std::tuple(130, 10, 90, "Vega"));
}

}  // namespace
}  // namespace quorvel
