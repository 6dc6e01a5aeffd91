#include "map/types/map_limits.h"

#include <functional>

#include <gtest/gtest.h>

#include "map/types/file_form.h"

namespace quorvel {
namespace {

TEST(MapLimits, AcceptTheLimitAndRefuseOneMore) {
  using Check = std::function<bool(std::string&)>;
  struct Row {
    const char* title;
    Check atLimit, beyond;
    const char* line;
  };
  const auto size = [](std::int64_t width, std::int64_t height) {
    return [=](std::string& errorText) { return CheckMapSize(width, height, errorText); };
  };
  const auto file = [](FileForm form, std::uint64_t bytes) {
    return [=](std::string& errorText) { return CheckFileSize(form, bytes, errorText); };
  };
  const auto block = [](std::uint64_t bytes) {
    return [=](std::string& errorText) { return CheckCellBlock(bytes, errorText); };
  };
  const auto all = [](std::uint64_t cells, std::uint64_t blockBytes) {
    return [=](std::string& errorText) { return CheckAllBlocks(cells, blockBytes, errorText); };
  };
  const auto records = [](FileForm form, std::uint64_t count, std::uint64_t blockBytes,
                          std::uint64_t fileBytes) {
    return [=](std::string& errorText) {
      return CheckLoadedCells(form, count, blockBytes, fileBytes, errorText);
    };
  };
  const Row rows[] = {
      {"width from below", size(1, 1), size(0, 1), "Map width 0 is below 1.\n"},
      {"height from below", size(1, 1), size(1, -5), "Map height -5 is below 1.\n"},
      {"both sides", size(1, 1), size(0, 0), "Map width 0 is below 1.\nMap height 0 is below 1.\n"},
      {"width", size(20000000, 5), size(20000001, 1),
       "Map width 20000001 is above the limit of 20000000 cells a side.\n"},
      {"height", size(5, 20000000), size(1, 20000001),
       "Map height 20000001 is above the limit of 20000000 cells a side.\n"},
      {"cells", size(10000, 10000), size(10001, 10000),
       "Map size 10001 x 10000 = 100010000 cells is above the limit of 100000000 cells.\n"},
      {"text file", file(FileForm::Text, 4294967296), file(FileForm::Text, 4294967297),
       "File size 4294967297 bytes is above the limit of 4294967296 bytes for the text form.\n"},
      {"binary file", file(FileForm::Binary, 2147483647), file(FileForm::Binary, 2147483648),
       "File size 2147483648 bytes is above the limit of 2147483647 bytes for the binary form.\n"},
      {"one cell", block(1048576), block(1048577),
       "Values of one cell take 1048577 bytes, above the limit of 1048576 bytes.\n"},
      {"all cells", all(4096, 1048576), all(4097, 1048576),
       "Values of 4097 cells, 1048576 bytes each, are above the limit of 4294967296 bytes.\n"},
      {"all cells loaded", records(FileForm::Text, 4096, 1048576, 4294967296),
       records(FileForm::Text, 4097, 1048576, 4294967296),
       "Values of 4097 cells, 1048576 bytes each, are above the limit of 4294967296 bytes.\n"},
      {"text load", records(FileForm::Text, 640640, 95, 1000), records(FileForm::Text, 640641, 95, 1000),
       "Values of 640641 cells, 95 bytes each, are above the limit of 640640 cells for a file of 1000 "
       "bytes.\n"},
      {"binary load", records(FileForm::Binary, 640030, 95, 1000),
       records(FileForm::Binary, 640031, 95, 1000),
       "Values of 640031 cells, 95 bytes each, are above the limit of 640030 cells for a file of 1000 "
       "bytes.\n"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.title);
    std::string errorText;
    EXPECT_TRUE(row.atLimit(errorText));
    EXPECT_EQ(errorText, "");
    EXPECT_FALSE(row.beyond(errorText));
    EXPECT_EQ(errorText, row.line);
  }
}

TEST(MapLimits, FormProductsBeyond32Bits) {
  std::string errorText;
  EXPECT_FALSE(CheckMapSize(2147483647, 2147483647, errorText));
  EXPECT_FALSE(CheckMapSize(20000000, 20000000, errorText));
  EXPECT_TRUE(
      CheckLoadedCells(FileForm::Binary, 100000000, 0, 0, errorText));  // cells without values take none
}

}  // namespace
}  // namespace quorvel
