#include "map/fill/property_settings.h"

#include <limits>
#include <tuple>

#include <gmock/gmock.h>

#include "tests/map/cell_class_fixture.h"

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
  struct Row {
    std::vector<float> before;
    std::size_t changed;
    float share;
    std::vector<float> after;
  };
  const Row rows[] = {
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
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.before) + " set " + testing::PrintToString(row.share));
    CPropertySetting setting(nullptr, CoverageControl::Slider);
    Append(setting, row.before);
    setting.SetShare(setting.GetValues()[row.changed].get(), row.share);
    EXPECT_EQ(Shares(setting), row.after);
  }
}

TEST(PropertySetting, RemovedSharesGoToTheOthers) {
  struct Row {
    std::vector<float> before;
    std::size_t removed;
    std::vector<float> after;
  };
  const Row rows[] = {
      {{100, 0, 0}, 0, {50, 50}},
      {{60, 40}, 1, {100}},
      {{20, 30, 50}, 2, {40, 60}},
      {{100}, 0, {}},
      {{100, 0, 0, 0}, 0, {33.333333F, 33.333333F, 33.333333F}},
      {{3.299999952316284F, 69.57142639160156F}, 0, {71.94563293457031F}},  // quotient and product in double
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.before) + " without " + testing::PrintToString(row.removed));
    CPropertySetting setting(nullptr, CoverageControl::Slider);
    Append(setting, row.before);
    setting.RemoveValue(setting.GetValues()[row.removed].get());
    EXPECT_EQ(Shares(setting), row.after);
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
  struct Row {
    float stored, coverage, origin;
  };
  constexpr Row rows[] = {{0, 0, 0},      {37.5F, 37.5F, 37.5F}, {100.5F, 100, 100},   {-30, 30, 0},
                          {-250, 100, 0}, {kInfinity, 100, 100}, {-kInfinity, 100, 0}, {kNaN, 0, 0}};
  CPropertySetting setting(nullptr, CoverageControl::Slider);
  CValueSetting& value = setting.AddValue();
  for (const Row& row : rows) {
    SCOPED_TRACE(row.stored);
    setting.SetCoverage(row.stored);
    EXPECT_EQ(setting.GetCoverage(), row.coverage);
    value.SetOrigin(row.stored, 50);
    EXPECT_EQ(value.GetOriginX(), row.origin);
    value.SetOrigin(50, row.stored);
    EXPECT_EQ(value.GetOriginY(), row.origin);
  }
}

TEST(ValueSetting, HoldsTheDefaultUntilATextIsStored) {
  struct Row {
    const char *member, *before, *text, *after;
  };
  constexpr Row rows[] = {{"Name", "none", "Vega 7", "Vega 7"}, {"Wealth", "5", "12abc", "12"},
                          {"Wealth", "5", "abc", "0"},          {"Heat", "1.500000", "2.25", "2.250000"},
                          {"Owner", "Free", "2", "Borea"},      {"Owner", "Free", "-1", "<error>"},
                          {"Post", "Outpost", "7", "Outpost"}};
  const MapContents contents = ContentsOfEveryKind();
  for (const Row& row : rows) {
    SCOPED_TRACE(row.member);
    CPropertySetting setting(Member(contents, row.member), CoverageControl::Slider);
    CValueSetting& value = setting.AddValue();
    EXPECT_EQ(value.FormatValue(), row.before);
    value.StoreText(row.text);
    EXPECT_EQ(value.FormatValue(), row.after);
  }
  CPropertySetting without(nullptr, CoverageControl::Slider);
  without.AddValue().StoreText("7");
  EXPECT_EQ(without.GetValues()[0]->FormatValue(), "");
}

TEST(PropertySettingList, ACopyIsDeep) {
  const MapContents contents = ContentsOfEveryKind();
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
