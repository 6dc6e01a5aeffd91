#include "map/types/map_limits.h"

#include <gtest/gtest.h>

#include "map/types/file_form.h"

namespace quorvel {
namespace {

constexpr std::int64_t kSide = 20'000'000;

TEST(MapLimits, OfSizes) {
  for (const auto& [width, height] : {std::pair{std::int64_t{1}, kSide}, {kSide, 1}, {10'000, 10'000}}) {
    std::string errorText;
    EXPECT_TRUE(CheckMapSize(width, height, errorText));
    EXPECT_EQ(errorText, "");
  }
  const std::tuple<std::int64_t, std::int64_t, const char*> rows[] = {
      {0, 0, "Map width 0 is below 1.\nMap height 0 is below 1.\n"},
      {1, -5, "Map height -5 is below 1.\n"},
      {kSide + 1, 1, "Map width 20000001 is above the limit of 20000000 cells a side.\n"},
      {1, kSide + 1, "Map height 20000001 is above the limit of 20000000 cells a side.\n"},
      {10'001, 10'000, "Map size 10001 x 10000 = 100010000 cells is above the limit of 100000000 cells.\n"},
      // beyond 32 bits
      {kSide, kSide,
       "Map size 20000000 x 20000000 = 400000000000000 cells is above the limit of 100000000 cells.\n"}};
  for (const auto& [width, height, line] : rows) {
    std::string errorText;
    EXPECT_FALSE(CheckMapSize(width, height, errorText));
    EXPECT_EQ(errorText, line);
  }
}

TEST(MapLimits, OfFiles) {
  for (const auto& [form, bytes, line] :
       {std::tuple{FileForm::Text, kMaxTextFileBytes,
                   "File size 4294967297 bytes is above the limit of 4294967296 bytes for the text form.\n"},
        {FileForm::Binary, kMaxBinaryFileBytes,
         "File size 2147483648 bytes is above the limit of 2147483647 bytes for the binary form.\n"}}) {
    std::string errorText;
    EXPECT_TRUE(CheckFileSize(form, bytes, errorText));
    EXPECT_FALSE(CheckFileSize(form, bytes + 1, errorText));
    EXPECT_EQ(errorText, line);
  }
}

TEST(MapLimits, OfValues) {
  std::string errorText;
  EXPECT_TRUE(CheckCellBlock(1'048'576, errorText));
  EXPECT_FALSE(CheckCellBlock(1'048'577, errorText));
  EXPECT_EQ(errorText, "Values of one cell take 1048577 bytes, above the limit of 1048576 bytes.\n");
  const std::tuple<FileForm, std::uint64_t, std::uint64_t, std::uint64_t, const char*> rows[] = {
      // form, most cells, bytes of each, bytes of the file
      {FileForm::Text, 4096, 1'048'576, 4'294'967'296,
       "Values of 4097 cells, 1048576 bytes each, are above the limit of 4294967296 bytes.\n"},
      {FileForm::Text, 640'640, 95, 1000,
       "Values of 640641 cells, 95 bytes each, are above the limit of 640640 cells for a file of 1000 "
       "bytes.\n"},
      {FileForm::Binary, 640'030, 95, 1000,
       "Values of 640031 cells, 95 bytes each, are above the limit of 640030 cells for a file of 1000 "
       "bytes.\n"}};
  for (const auto& [form, cells, blockBytes, fileBytes, line] : rows) {
    errorText.clear();
    EXPECT_TRUE(CheckLoadedCells(form, cells, blockBytes, fileBytes, errorText));
    EXPECT_FALSE(CheckLoadedCells(form, cells + 1, blockBytes, fileBytes, errorText));
    EXPECT_EQ(errorText, line);
  }
  EXPECT_TRUE(CheckLoadedCells(FileForm::Binary, 100'000'000, 0, 0, errorText)) << "no values take no bytes";
}

}  // namespace
}  // namespace quorvel
