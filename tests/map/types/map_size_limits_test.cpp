#include "map/types/map_size_limits.h"

#include <string>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "tests/map/map_samples.h"

namespace quorvel {
namespace {

std::string Describe(const MapSizeLimits& limits) {
  std::string text;
  for (const auto& number : {limits.minWidth, limits.minHeight, limits.maxWidth, limits.maxHeight,
                             limits.defaultWidth, limits.defaultHeight}) {
    text += number ? fmt::format("{} ", *number) : "- ";
  }
  return text;
}

TEST(GetMapSizeLimits, TakesWhatTheMembersGive) {
  struct Row {
    std::string title, width, height;  ///< type and range of the members
    bool result;
    const char* limits;
  };
  const Row rows[] = {
      {"ints", "type='int' range='1<10<1000'", "type='int' range='2<20<500'", true, "1 2 1000 500 10 20 "},
      {"floats are cut off", "type='float' range='-1.9<10.9<1e20'", "type='float' range='nan'", true,
       "-1 0 2147483647 0 10 0 "},
      {"an index counts its list", "type='index' range='L'", "type='int'", true, "0 0 1 0 0 0 "},
      {"no width", "", "type='int' range='2<20<500'", false, "- 2 - 500 - 20 "},
      {"no height", "type='int' range='1<10<1000'", "", false, "1 - 1000 - 10 - "},
      {"a width without numbers", "type='string' range='1<10<1000'", "type='int' range='5'", false,
       "- 0 - 5 - 0 "}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.title);
    const MapContents contents =
        ContentsOf(Lines("[Classes/L] type='items' 0='a' 1='b' [Classes/Cell] type='class' [Classes/Map] "
                         "type='class' [Classes/Map/Width] " +
                         row.width + " [Classes/Map/Height] " + row.height));
    MapSizeLimits limits;
    EXPECT_EQ(GetMapSizeLimits(contents.m_pMapClass, limits), row.result);
    EXPECT_EQ(Describe(limits), row.limits);
  }
  MapSizeLimits limits;
  EXPECT_TRUE(GetMapSizeLimits(nullptr, limits));
  EXPECT_EQ(Describe(limits), "- - - - - - ");
}

}  // namespace
}  // namespace quorvel
