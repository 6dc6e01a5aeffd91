#include "map/fill/kept_fills.h"

#include <gmock/gmock.h>

#include "tests/platform/temp_folder.h"

namespace quorvel {
namespace {

TEST(KeptFills, TheLastTenStay) {
  const TempFolder folder;
  folder.Write("note.md", "not a fill");
  std::string errorText;
  for (int fill = 0; fill < 12; ++fill)
    ASSERT_TRUE(KeepFillSettings(folder / "", 1'000'000'000 + fill / 2, {}, nullptr, errorText)) << errorText;
  const auto names = folder.Names();
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
