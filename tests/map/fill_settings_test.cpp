#include "map/fill_settings.h"

#include <cstring>
#include <sstream>

#include <gmock/gmock.h>

#include "map/map_fill.h"
#include "tests/map/cell_class_fixture.h"

namespace quorvel {
namespace {

/// Reads lines as a file with the line ends of the text form.
void ReadLines(const std::vector<std::string>& lines, DataBranch& file) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  std::stringbuf input(text);
  file.ReadText(&input);
}

std::string TextOf(const DataBranch& file) {
  std::stringbuf output;
  file.WriteText(&output);
  return output.str();
}

const CPropertySetting& Setting(const CPropertySettingList& list, std::size_t position) {
  return *list.GetSettings().at(position);
}

const CValueSetting& Value(const CPropertySettingList& list, std::size_t setting, std::size_t position) {
  return *Setting(list, setting).GetValues().at(position);
}

TEST(FillSettings, ReadEverythingInOrder) {
  const MapContents contents = ContentsOfEveryKind();
  DataBranch file("");
  ReadLines({"[Fill]",
             "Width=12",
             "Height=7",
             "Seed=4294967295",  //
             "[Fill/Global/second]",
             "member=\"Wealth\"",
             "coverage=37.5",  //
             "[Fill/Global/second/Values/z]",
             "value=3",
             "share=60",  //
             "[Fill/Global/second/Values/a]",
             "value=8x",
             "share=-40",  //
             "[Fill/Global/first]",
             "member=\"Name\"",  //
             "[Fill/Region/Values]",
             "member=\"Owner\"",  // a setting of that name
             "[Fill/Region/Values/Values/Values]",
             "value=2",
             "x=10.5",
             "y=300"},
            file);
  std::string errorText;
  const auto settings = ReadFillSettings(file, contents.m_pCellClass, errorText);
  ASSERT_TRUE(settings) << errorText;
  EXPECT_EQ(errorText, "");
  EXPECT_EQ(settings->width, 12);
  EXPECT_EQ(settings->height, 7);
  EXPECT_EQ(settings->seed, 4294967295U);

  ASSERT_EQ(settings->global.GetSettings().size(), 2U);
  EXPECT_EQ(Setting(settings->global, 0).GetMember(), Member(contents, "Wealth"));
  EXPECT_EQ(Setting(settings->global, 0).GetCoverage(), 37.5F);
  EXPECT_EQ(Setting(settings->global, 0).GetControl(), CoverageControl::Slider);
  EXPECT_EQ(Value(settings->global, 0, 0).FormatValue(), "3");
  EXPECT_EQ(Value(settings->global, 0, 0).GetShare(), 60);
  EXPECT_EQ(Value(settings->global, 0, 1).FormatValue(), "8");
  EXPECT_EQ(Value(settings->global, 0, 1).GetShare(), -40) << "shares are taken as they stand";
  EXPECT_EQ(Setting(settings->global, 1).GetMember(), Member(contents, "Name"));
  EXPECT_EQ(Setting(settings->global, 1).GetCoverage(), 100);
  EXPECT_TRUE(Setting(settings->global, 1).GetValues().empty());

  ASSERT_EQ(settings->region.GetSettings().size(), 1U);
  ASSERT_EQ(Setting(settings->region, 0).GetValues().size(), 1U);
  EXPECT_EQ(Value(settings->region, 0, 0).FormatValue(), "Borea");
  EXPECT_EQ(Value(settings->region, 0, 0).GetOriginX(), 10.5F);
  EXPECT_EQ(Value(settings->region, 0, 0).GetOriginY(), 100);
}

TEST(FillSettings, WhatIsMissingHasADefault) {
  const MapContents contents = ContentsOfEveryKind();
  DataBranch file("");
  ReadLines({"[Fill/Global/0]", "member=\"Wealth\"", "[Fill/Global/0/Values/0]", "[Fill/Region/0]",
             "member=\"Name\"", "[Fill/Region/0/Values/0]"},
            file);
  std::string errorText;
  const auto settings = ReadFillSettings(file, contents.m_pCellClass, errorText);
  ASSERT_TRUE(settings) << errorText;
  EXPECT_FALSE(settings->width || settings->height || settings->seed);
  EXPECT_EQ(Value(settings->global, 0, 0).GetShare(), 0);
  EXPECT_EQ(Value(settings->global, 0, 0).FormatValue(), "0") << "the empty text, not the member's default";
  EXPECT_EQ(Value(settings->region, 0, 0).GetOriginX(), 50);
  EXPECT_EQ(Value(settings->region, 0, 0).GetOriginY(), 50);
  EXPECT_EQ(Value(settings->region, 0, 0).FormatValue(), "");
}

TEST(FillSettings, SizesAreClampedAsTheWizardClampsThem) {
  const MapContents contents = ContentsOfEveryKind();
  for (const auto& [text, side] :
       {std::pair{"0", 1}, {"-7", 1}, {"5000", 1000}, {"99999999999", 1000}, {"", 1}}) {
    DataBranch file("");
    ReadLines({"[Fill]", std::string("Width=") + text, std::string("Height=") + text}, file);
    std::string errorText;
    const auto settings = ReadFillSettings(file, contents.m_pCellClass, errorText);
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->width, side) << text;
    EXPECT_EQ(settings->height, side) << text;
  }
}

TEST(FillSettings, RefusesByName) {
  struct Row {
    std::vector<std::string> lines;
    std::string errorText;
  };
  const Row rows[] = {{{"[Map]", "Width=3"}, "Settings \"Fill\" not found.\n"},
                      {{"[Fill/Global/0]", "member=\"Weather\"", "[Fill/Region/1]", "coverage=3"},
                       "Setting \"Global/0\": there is no cell property \"Weather\".\n"
                       "Setting \"Region/1\": there is no cell property \"\".\n"}};
  const MapContents contents = ContentsOfEveryKind();
  for (const Row& row : rows) {
    DataBranch file("");
    ReadLines(row.lines, file);
    std::string errorText;
    EXPECT_FALSE(ReadFillSettings(file, contents.m_pCellClass, errorText));
    EXPECT_EQ(errorText, row.errorText);
  }
  DataBranch file("");
  ReadLines({"[Fill/Global/0]", "member=\"Name\""}, file);
  std::string errorText;
  EXPECT_FALSE(ReadFillSettings(file, nullptr, errorText)) << "no cell class, no properties";
}

TEST(FilterSettings, HaveTheFormOfGlobalSettings) {
  const MapContents contents = ContentsOfEveryKind();
  DataBranch file("");
  ReadLines({"[Filter/0]", "member=\"Owner\"", "coverage=0", "[Filter/0/Values/0]", "value=1", "share=100"},
            file);
  std::string errorText;
  const auto filter = ReadFilterSettings(file, contents.m_pCellClass, errorText);
  ASSERT_TRUE(filter) << errorText;
  EXPECT_EQ(Setting(*filter, 0).GetCoverage(), 0);
  EXPECT_EQ(Setting(*filter, 0).GetControl(), CoverageControl::Button);
  EXPECT_EQ(Value(*filter, 0, 0).FormatValue(), "Aurelia");

  DataBranch wrong("");
  ReadLines({"[Filter/0]", "member=\"Weather\"", "[Fill]"}, wrong);
  EXPECT_FALSE(ReadFilterSettings(wrong, contents.m_pCellClass, errorText));
  EXPECT_EQ(errorText, "Setting \"Filter/0\": there is no cell property \"Weather\".\n");
}

/// Values whose usual text says less than they hold must come back to the bit.
TEST(FillSettings, WrittenSettingsMakeTheSameMap) {
  MapContents map = MapOfEveryKind(30, 20), again = MapOfEveryKind(30, 20);
  FillSettings settings;
  settings.width = 30;
  settings.height = 20;
  settings.seed = 3'000'000'000U;
  const auto add = [&](CPropertySettingList& list, const char* member, std::vector<const char*> texts) {
    CPropertySetting& setting = list.Add(Member(map, member), CoverageControl::Slider);
    setting.SetCoverage(66.666664F);
    for (const char* text : texts) {
      CValueSetting& value = setting.AddValue();
      value.StoreText(text);
      value.SetOrigin(33.333332F, 12.5F);
    }
    setting.SetShare(setting.GetValues()[0].get(), 100.0F / 3);
  };
  add(settings.global, "Heat", {"1.0000001", "1e-20", "-3"});
  add(settings.global, "Wealth", {"2147483647", "-12"});
  add(settings.global, "Post", {""});
  add(settings.region, "Name", {"\"quoted'", "tau = 6.28", "Épsilon"});
  add(settings.region, "Owner", {"2", "-1", "3"});

  DataBranch written("");
  WriteFillSettings(settings, written);
  DataBranch file("");
  std::stringbuf input(TextOf(written));
  file.ReadText(&input);
  std::string errorText;
  const auto read = ReadFillSettings(file, again.m_pCellClass, errorText);
  ASSERT_TRUE(read) << errorText;
  EXPECT_EQ(read->width, settings.width);
  EXPECT_EQ(read->height, settings.height);
  EXPECT_EQ(read->seed, settings.seed);

  struct Nobody : CellListener {
    void OnCellChanged(const CellRecord&) override {}
  } nobody;
  NullFeedback feedback;
  FillMap(map, settings.global, settings.region, *settings.seed, feedback, nobody);
  FillMap(again, read->global, read->region, *read->seed, feedback, nobody);
  ASSERT_GT(map.m_pGrid->Count(), 400);
  for (std::int32_t index = 0; index < map.m_pGrid->CellCount(); ++index) {
    for (const char* member : {"Name", "Wealth", "Owner"})
      ASSERT_EQ(ValueText(again, index, member), ValueText(map, index, member)) << index;
    const auto record = map.m_pGrid->Find(index);
    if (!record) continue;
    ASSERT_EQ(std::memcmp(Member(map, "Heat")->GetValuePtr(record->data),
                          Member(again, "Heat")->GetValuePtr(again.m_pGrid->Find(index)->data), 4),
              0)
        << index;
  }
  DataBranch rewritten("");
  WriteFillSettings(*read, rewritten);
  EXPECT_EQ(TextOf(rewritten), TextOf(written));
}

}  // namespace
}  // namespace quorvel
