#include "tests/render/galaxy.h"

#include <memory>
#include <string>

#include "data/index_member.h"
#include "data/list_def.h"
#include "data/number_members.h"
#include "data/object_member.h"
#include "data/string_member.h"

namespace quorvel {
namespace {

constexpr std::string_view kNames[] = {
    "Vega",    "",           "Altair & Sons", "Caf\xc3\xa9",
    "Caf\xe9", "two\nlines", "jg\xc3\x89|_",  "a name that is much longer than any cell is wide"};

/// Numbers without a pattern, the same in every run.
class Dice {
 public:
  int Throw(int sides) {
    state_ = state_ * 1664525 + 1013904223;
    return static_cast<int>((state_ >> 16) % static_cast<std::uint32_t>(sides));
  }

 private:
  std::uint32_t state_ = 7;
};

ListDef* AddList(MapContents& map, std::string_view name, std::initializer_list<std::uint32_t> colours) {
  auto list = std::make_unique<ListDef>(name);
  for (const std::uint32_t colour : colours) {
    list->AddItemName("item " + std::to_string(colour % 97));
    list->AddItemValue(colour);
  }
  return map.m_pTypes->Add(std::move(list));
}

}  // namespace

MapContents MakeGalaxy(int width, int height) {
  MapContents map;
  ListDef* terrain = AddList(map, "Terrains", {0x1f77b4, 0xff0000, 0x0000ff, 0xf0f0f0, 0x000000, 0x80ff80});
  ListDef* owner = AddList(map, "Owners", {0xffff00, 0x202020, 0x00c8c8, 0xffffff});
  ClassDef* base = map.m_pTypes->Add(std::make_unique<ClassDef>("Base"));
  base->AddMember(std::make_unique<IntMember>("Guns"));
  ClassDef* cell = map.m_pTypes->Add(std::make_unique<ClassDef>("Cell"));
  cell->AddMember(std::make_unique<StringMember>("name"));
  cell->AddMember(std::make_unique<IndexMember>("Terrain", terrain));
  cell->AddMember(std::make_unique<FloatMember>("Weight"));
  cell->AddMember(std::make_unique<IntMember>("Planets"));
  cell->AddMember(std::make_unique<ObjectMember>("Base", base));
  cell->AddMember(std::make_unique<IndexMember>("Owner", owner));
  map.m_pCellClass = cell;
  MakeGrid(map, width, height);

  Dice dice;
  for (int index = 0; index < map.m_pGrid->CellCount(); ++index) {
    const CellCoord at = map.m_pGrid->CoordOf(index);
    map.m_pCellMarks[static_cast<std::size_t>(index)] = dice.Throw(4) == 0 ? 1 : 0;
    if (dice.Throw(6) == 0) continue;
    CreateCell(map, at);
    SetText(map, at, "name", kNames[dice.Throw(static_cast<int>(std::size(kNames)))]);
    SetText(map, at, "Terrain", std::to_string(dice.Throw(8)));  // some without a name
    SetText(map, at, "Weight", std::to_string(dice.Throw(10000)) + ".25");
    SetText(map, at, "Planets", std::to_string(dice.Throw(9)));
    SetText(map, at, "Owner", std::to_string(dice.Throw(4)));
  }
  return map;
}

MapLook LookAt(const MapContents& map, float cellSizePx) {
  MapLook look;
  look.cellSizePx = cellSizePx;
  look.outlineMember = map.m_pCellClass->FindMember("Owner");
  look.fillMember = map.m_pCellClass->FindMember("Terrain");
  return look;
}

void SetText(MapContents& map, CellCoord cell, std::string_view member, std::string_view text) {
  const MemberDef* found = map.m_pCellClass->FindMember(member);
  const auto record = map.m_pGrid->Find(map.m_pGrid->IndexOf(cell));
  found->StoreText(found->GetValuePtr(record->data), text);
}

}  // namespace quorvel
