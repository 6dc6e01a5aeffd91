#include "render/colour_members.h"

#include <memory>

#include <gtest/gtest.h>

#include "data/index_member.h"
#include "data/string_member.h"
#include "tests/render/galaxy.h"

namespace quorvel {
namespace {

/// Members by a letter for their kind: i index, s string.
std::unique_ptr<ClassDef> ClassOf(std::initializer_list<const char*> names) {
  auto cell = std::make_unique<ClassDef>("Cell");
  for (const char* name : names) {
    if (name[0] == 'i') cell->AddMember(std::make_unique<IndexMember>(name, nullptr));
    if (name[0] == 's') cell->AddMember(std::make_unique<StringMember>(name));
  }
  return cell;
}

TEST(SelectIndexMember, FindsStepsAndFallsBack) {
  struct Row {
    const char* text;
    std::initializer_list<const char*> members;
    std::string name;
    int step;
    const char* selected;  // empty: none
  };
  const Row rows[] = {
      {"a name that stands", {"i1", "s1", "i2"}, "i2", 0, "i2"},
      {"no name: the first", {"s1", "i1", "i2"}, "", 0, "i1"},
      {"an unknown name: the first", {"s1", "i1"}, "gone", 0, "i1"},
      {"a member of another kind: the first", {"s1", "i1"}, "s1", 0, "i1"},
      {"no index member", {"s1", "s2"}, "s1", 0, ""},
      {"no member at all", {}, "x", +1, ""},
      {"forwards over others", {"i1", "s1", "i2"}, "i1", +1, "i2"},
      {"forwards round the end", {"i1", "i2", "s1"}, "i2", +1, "i1"},
      {"backwards round the beginning", {"s1", "i1", "i2", "s2"}, "i1", -1, "i2"},
      {"backwards over others", {"i1", "s1", "i2"}, "i2", -1, "i1"},
      {"an unknown name steps from the first", {"i1", "i2", "i3"}, "gone", +1, "i2"},
      {"a single one stays, forwards", {"s1", "i1"}, "i1", +1, "i1"},
      {"a single one stays, backwards", {"i1", "s1"}, "i1", -1, "i1"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    const auto cell = ClassOf(row.members);
    std::string name = row.name;
    EXPECT_EQ(SelectIndexMember(cell.get(), name, row.step), cell->FindMember(row.selected));
    EXPECT_EQ(name, row.selected);
  }
  std::string name = "i1";
  EXPECT_FALSE(SelectIndexMember(nullptr, name, 0));
  EXPECT_EQ(name, "");
}

TEST(MappedColour, ReadsRedInTheHighByte) {
  MapContents map = MakeGalaxy(1, 1);
  const auto colour = [&map](const MemberDef* member) { return MappedColour(member, *map.m_pGrid->Find(0)); };
  SetValue(map, 0, "Terrain", "1");  // 0xff0000
  EXPECT_EQ(colour(Member(map, "Terrain")), qRgb(255, 0, 0));
  SetValue(map, 0, "Terrain", "8");  // six values: begins again, 0x0000ff
  EXPECT_EQ(colour(Member(map, "Terrain")), qRgb(0, 0, 255));
  EXPECT_EQ(colour(nullptr), qRgb(0, 0, 0));
}

}  // namespace
}  // namespace quorvel
