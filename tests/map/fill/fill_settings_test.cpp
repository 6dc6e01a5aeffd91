#include "map/fill/fill_settings.h"

#include <cstring>
#include <sstream>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "tests/map/map_samples.h"

namespace quorvel {
namespace {

/// "MEMBER COVERAGE: VALUE SHARE at X,Y; ..." for each setting; floats to the bit.
std::string Describe(const CPropertySettingList& list) {
  std::string text;
  for (const auto& setting : list.GetSettings()) {
    text += fmt::format("{} {}:", setting->GetMember()->GetName(), setting->GetCoverage());
    for (const auto& value : setting->GetValues()) {
      float number = 0;
      if (setting->GetMember()->GetKind() == MemberKind::Float)
        std::memcpy(&number, value->GetValue(), sizeof number);
      text += fmt::format(" {}{} {} at {},{};", value->FormatValue(),
                          number != 0 ? fmt::format("={:a}", number) : "", value->GetShare(),
                          value->GetOriginX(), value->GetOriginY());
    }
    text += "\n";
  }
  return text;
}

std::optional<FillSettings> ReadText(const std::string& text, const ClassDef* cellClass,
                                     std::string& errorText) {
  DataBranch file("");
  std::stringbuf input(text);
  file.ReadText(&input);
  return ReadFillSettings(file, cellClass, errorText);
}

std::string TextOf(const FillSettings& settings) {
  DataBranch file("");
  WriteFillSettings(settings, file);
  std::stringbuf output;
  file.WriteText(&output);
  return output.str();
}

TEST(FillSettings, ReadEverythingInOrder) {
  const MapContents contents = ContentsOf(SampleClasses());
  std::string errorText;
  const auto settings = ReadText(
      Lines("[Fill] Width=12 Height=5000 Seed=4294967295 [Fill/Global/second] member='Count' coverage=-37.5 "
            "[Fill/Global/second/Values/z] value=3 share=60 [Fill/Global/second/Values/a] value=8x share=-40 "
            "[Fill/Global/first] member='Name' [Fill/Global/first/Values/0] [Fill/Region/Values] "
            "member='Kind' "
            "[Fill/Region/Values/Values/Values] value=2 x=10.5 y=300 [Fill/Region/Values/Values/1]"),
      contents.m_pCellClass, errorText);
  ASSERT_TRUE(settings) << errorText;
  EXPECT_EQ(errorText, "");
  EXPECT_EQ(settings->width, 12);
  EXPECT_EQ(settings->height, 1000) << "clamped as the wizard clamps it";
  EXPECT_EQ(settings->seed, 4294967295U);
  EXPECT_EQ(Describe(settings->global),
            "Count 37.5: 3 60 at 50,50; 8 -40 at 50,50;\n"
            "Name 100:  0 at 50,50;\n");  // shares as they stand, else 0; the empty text
  EXPECT_EQ(Describe(settings->region), "Kind 100: hole 100 at 10.5,100; dust 0 at 50,50;\n");
}

TEST(FillSettings, SizesAndSeedMayBeMissingOrOutOfRange) {
  for (const auto& [text, side] : {std::pair{"0", 1}, {"-7", 1}, {"99999999999", 1000}, {"", 1}}) {
    std::string errorText;
    const auto settings = ReadText(Lines(std::string("[Fill] Width=") + text), nullptr, errorText);
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->width, side) << text;
    EXPECT_FALSE(settings->height || settings->seed);
  }
}

TEST(FillSettings, RefusesByName) {
  const std::pair<std::string, std::string> rows[] = {
      {Lines("[Map] Width=3"), "Settings \"Fill\" not found.\n"},
      {Lines("[Fill/Global/0] member='Wea\x1bther' [Fill/Region/1] coverage=3"),
       "Setting \"Global/0\": there is no cell property \"Wea%1Bther\".\n"
       "Setting \"Region/1\": there is no cell property \"\".\n"}};
  const MapContents contents = ContentsOf(SampleClasses());
  for (const auto& [text, expected] : rows) {
    std::string errorText;
    EXPECT_FALSE(ReadText(text, contents.m_pCellClass, errorText));
    EXPECT_EQ(errorText, expected);
  }
}

TEST(FilterSettings, HaveTheFormOfGlobalSettings) {
  const MapContents contents = ContentsOf(SampleClasses());
  for (const auto& [member, errorText] :
       {std::pair{"Kind", ""},
        {"Weather", "Setting \"Filter/0\": there is no cell property \"Weather\".\n"}}) {
    DataBranch file("");
    file.SetLeaf("Filter/0/member", member, ValueType::String);
    file.SetLeaf("Filter/0/Values/0/value", "1", ValueType::Int);
    std::string errors;
    const auto filter = ReadFilterSettings(file, contents.m_pCellClass, errors);
    EXPECT_EQ(errors, errorText);
    EXPECT_EQ(filter ? Describe(*filter) : "", *errorText != '\0' ? "" : "Kind 100: star 0 at 50,50;\n");
  }
}

/// Values whose usual text says less than they hold must come back to the bit.
TEST(FillSettings, WrittenSettingsComeBack) {
  const MapContents contents = ContentsOf(SampleClasses());
  FillSettings settings{.width = 30, .height = 20, .seed = 3'000'000'000U, .global = {}, .region = {}};
  const auto add = [&](CPropertySettingList& list, const char* member,
                       const std::vector<const char*>& texts) {
    CPropertySetting& setting = list.Add(Member(contents, member), CoverageControl::Slider);
    setting.SetCoverage(66.666664F);
    for (const char* text : texts) setting.AddValue().StoreText(text);
  };
  add(settings.global, "Weight", {"1.0000001", "1e-20", "-3"});
  add(settings.global, "Count", {"2147483647", "-12"});
  add(settings.global, "Part", {""});
  add(settings.region, "Name", {"\"quoted'", "tau = 6.28", "\xC3\x89psilon"});
  add(settings.region, "Kind", {"2", "-1", "3"});
  for (const auto& value : settings.region.GetSettings()[0]->GetValues()) value->SetOrigin(33.333332F, 12.5F);
  CPropertySetting& heats = *settings.global.GetSettings()[0];
  heats.SetShare(heats.GetValues()[0].get(), 100.0F / 3);

  std::string errorText;
  const auto read = ReadText(TextOf(settings), contents.m_pCellClass, errorText);
  ASSERT_TRUE(read) << errorText;
  EXPECT_EQ(TextOf(*read), TextOf(settings));
  EXPECT_EQ(Describe(read->global), Describe(settings.global));
  EXPECT_EQ(Describe(read->region), Describe(settings.region));
}

}  // namespace
}  // namespace quorvel
