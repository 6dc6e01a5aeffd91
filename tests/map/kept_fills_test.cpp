#include "map/kept_fills.h"

#include <filesystem>
#include <sstream>

#include <gmock/gmock.h>

#include "map/definitions.h"
#include "tests/map/cell_class_fixture.h"
#include "tests/map/map_samples.h"
#include "tests/platform/temp_folder.h"

namespace quorvel {
namespace {

std::vector<std::string> FilesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    names.push_back(entry.path().filename());
  std::ranges::sort(names);
  return names;
}

TEST(KeptFills, HoldAllThatMakesTheMapAgain) {
  const TempFolder folder;
  const MapContents contents = ContentsOf(SampleClasses());
  FillSettings settings;
  settings.width = 7;
  settings.height = 3;
  settings.seed = 4'294'967'295U;
  settings.global.Add(Member(contents, "Count"), CoverageControl::Slider).AddValue().StoreText("42");

  std::string errorText;
  ASSERT_TRUE(
      KeepFillSettings(folder / "state/fills", 1'000'000'000, settings, contents.m_pClasses.get(), errorText))
      << errorText;
  EXPECT_THAT(FilesIn(folder / "state/fills"), testing::ElementsAre("2001-09-09-014640.txt"));

  DataBranch file("");
  std::stringbuf text(folder.Read("state/fills/2001-09-09-014640.txt"));
  file.ReadText(&text);
  MapContents again;
  BuildTypes(file, again, errorText);
  const auto read = ReadFillSettings(file, again.m_pCellClass, errorText);
  ASSERT_TRUE(read) << errorText;
  EXPECT_EQ(read->width, 7);
  EXPECT_EQ(read->height, 3);
  EXPECT_EQ(read->seed, 4'294'967'295U);
  EXPECT_EQ(read->global.GetSettings().at(0)->GetValues().at(0)->FormatValue(), "42");
}

TEST(KeptFills, TheLastTenStay) {
  const TempFolder folder;
  folder.Write("note.md", "not a fill");
  std::string errorText;
  for (int fill = 0; fill < 12; ++fill)
    ASSERT_TRUE(KeepFillSettings(folder / "", 1'000'000'000 + fill / 2, {}, nullptr, errorText)) << errorText;
  const auto names = FilesIn(folder / "");
  ASSERT_EQ(names.size(), kKeptFills + 1);
  EXPECT_EQ(names.front(), "2001-09-09-014641-2.txt");
  EXPECT_EQ(names.back(), "note.md");
}

TEST(KeptFills, AFolderThatCannotBeMadeIsSaid) {
  const TempFolder folder;
  folder.Write("file", "");
  std::string errorText;
  EXPECT_FALSE(KeepFillSettings(folder / "file/fills", 1, {}, nullptr, errorText));
  EXPECT_THAT(errorText, testing::EndsWith("\n"));
}

}  // namespace
}  // namespace quorvel
