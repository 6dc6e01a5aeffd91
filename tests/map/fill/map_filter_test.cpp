#include "map/fill/map_filter.h"

#include <gtest/gtest.h>

#include "tests/map/map_samples.h"

namespace quorvel {
namespace {

struct FilterRow {
  const char *what, *member;
  float coverage;
  std::vector<const char*> values;
  bool passes;
  bool isActive = true;
};

TEST(MapFilter, ACellPassesWhenItsValueIsOneOfTheValues) {
  MapContents map = EmptySampleMap(2, 1);
  SetValue(map, 0, "Name", "Vega");
  SetValue(map, 0, "Weight", "2.5");
  SetValue(map, 0, "Kind", "1");
  const FilterRow rows[] = {{"the one value", "Kind", 100, {"1"}, true},
                            {"one of several", "Count", 1, {"4", "5"}, true},
                            {"none of them", "Kind", 100, {"0", "2"}, false},
                            {"a text added again is the same text", "Name", 100, {"Sol", "Vega"}, true},
                            {"texts differ in case", "Name", 100, {"vega"}, false},
                            {"a float", "Weight", 100, {"2.50"}, true},
                            {"a property switched off", "Kind", 0, {"0"}, true, false},
                            {"a property without values", "Kind", 100, {}, true, false},
                            {"objects have no value", "Part", 100, {"x"}, true, false}};
  const ClassInstance cell = map.m_pGrid->Find(0)->data;
  for (const FilterRow& row : rows) {
    SCOPED_TRACE(row.what);
    CPropertySettingList filter;
    CPropertySetting& setting = filter.Add(map.m_pCellClass->FindMember(row.member), CoverageControl::Button);
    setting.SetCoverage(row.coverage);
    for (const char* value : row.values) setting.AddValue().StoreText(value);
    EXPECT_EQ(PassesFilter(filter, cell), row.passes);
    EXPECT_EQ(IsFilterActive(&filter), row.isActive);
  }
}

TEST(MapFilter, EverySettingMustAgreeAndMissingCellsHaveDefaults) {
  MapContents map = ContentsOf(SampleClasses());
  CPropertySettingList filter;
  EXPECT_FALSE(IsFilterActive(&filter));
  EXPECT_TRUE(PassesFilter(filter, ClassInstance::None));
  filter.Add(map.m_pCellClass->FindMember("Name"), CoverageControl::Button).AddValue().StoreText("none");
  EXPECT_TRUE(PassesFilter(filter, ClassInstance::None));
  filter.Add(map.m_pCellClass->FindMember("Count"), CoverageControl::Button).AddValue().StoreText("6");
  EXPECT_FALSE(PassesFilter(filter, ClassInstance::None));
  filter.Add(nullptr, CoverageControl::Button).AddValue();
  EXPECT_FALSE(PassesFilter(filter, ClassInstance::None));
}

}  // namespace
}  // namespace quorvel
