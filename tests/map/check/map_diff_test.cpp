#include "map/check/map_diff.h"

#include <gtest/gtest.h>

#include "tests/map/map_samples.h"

namespace quorvel {
namespace {

/// A map of 3 x 2 cells whose class "Cell" has these members, given as the lines below "[Classes/Cell]".
MapContents MapOf(const std::string& members, int width = 3, int height = 2) {
  MapContents map = ContentsOf(
      Lines("[Classes/Kind] type='names' 0='none' 1='star' [Classes/Map] type='class' [Classes/Cell] "
            "type='class' ") +
      members);
  MakeGrid(map, width, height);
  return map;
}

std::string Member(const std::string& name, const std::string& kind, const std::string& range) {
  return Lines("[Classes/Cell/" + name + "] type='" + kind + "' range='" + range + "'");
}

std::string Diff(const MapContents& a, const MapContents& b) {
  std::string lines;
  const bool equal = DiffMaps(a, b, [&lines](const std::string& line) { lines += line + '\n'; });
  EXPECT_EQ(equal, lines.empty());
  return lines;
}

const std::string kText = Member("text", "string", "none");
const std::string kCount = Member("count", "int", "0<5<9");
const std::string kWeight = Member("weight", "float", "0<1<9");
const std::string kKind = Member("kind", "index", "Kind");

TEST(MapDiff, ValuesAreNamedAsTheEditorFormatsThem) {
  MapContents a = MapOf(kText + kCount + kWeight + kKind), b = MapOf(kText + kCount + kWeight + kKind);
  EXPECT_EQ(Diff(a, b), "");
  SetValue(a, 4, "text", "a b");
  SetValue(b, 4, "text", "line\n\x7f%\xc3\xa9");
  SetValue(b, 4, "count", "-3");
  SetValue(a, 4, "weight", "2.5");
  SetValue(b, 5, "kind", "1");
  SetValue(a, 5, "kind", "7");
  EXPECT_EQ(Diff(a, b),
            "4(1:1) text: a b -> line%0A%7F%\xc3\xa9\n"
            "4(1:1) count: 5 -> -3\n"
            "4(1:1) weight: 2.500000 -> 1.000000\n"
            "5(2:1) kind: <error> -> star\n");
}

TEST(MapDiff, BitsDecideNotTexts) {
  MapContents a = MapOf(kWeight), b = MapOf(kWeight);
  SetValue(a, 0, "weight", "nan");
  SetValue(b, 0, "weight", "nan");
  SetValue(a, 1, "weight", "1e-30");  // formats like 0
  SetValue(b, 1, "weight", "0");
  SetValue(a, 2, "weight", "0");
  SetValue(b, 2, "weight", "-0");
  EXPECT_EQ(Diff(a, b), "1(1:0) weight: 0.000000 -> 0.000000\n2(2:0) weight: 0.000000 -> -0.000000\n");
}

// With other defaults every cell without records differs, and one with the other's default value does not.
TEST(MapDiff, DifferentDefaultsShowInEveryCell) {
  MapContents a = MapOf(kCount, 2, 2), b = MapOf(Member("count", "int", "0<7<9"), 2, 2);
  SetValue(a, 2, "count", "7");
  SetValue(b, 3, "count", "1");
  EXPECT_EQ(Diff(a, b), "0(0:0) count: 5 -> 7\n1(1:0) count: 5 -> 7\n3(1:1) count: 5 -> 1\n");
}

TEST(MapDiff, CellsAreMatchedByCoordinateWhereBothMapsReach) {
  MapContents a = MapOf(kCount, 3, 2), b = MapOf(kCount, 2, 3);
  SetValue(a, 4, "count", "1");  // (1, 1), which is index 3 in b
  SetValue(b, 3, "count", "2");
  SetValue(a, 2, "count", "3");  // (2, 0) is outside b
  SetValue(b, 4, "count", "3");  // (0, 2) is outside a
  EXPECT_EQ(Diff(a, b), "size: 3x2 -> 2x3\n4(1:1) count: 1 -> 2\n");
}

TEST(MapDiff, MembersAreMatchedByName) {
  const MapContents a = MapOf(kText + kCount + kKind + Member("o", "object", "Cell"));
  const MapContents b = MapOf(Member("new", "int", "") + kKind + Member("count", "float", "0<5<9"));
  EXPECT_EQ(
      Diff(a, b),
      "member text: only in A\nmember count: int -> float\nmember o: only in A\nmember new: only in B\n");
}

}  // namespace
}  // namespace quorvel
