#include "tests/render/galaxy.h"

#include <string>

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

constexpr char kClasses[] =
    "[Classes/Terrains] type='items' 0='plain' 1='item' 2='ice' 3='sea' 4='rock' 5='forest' "
    "[Classes/Terrains/UI/Color] 0=0x1f77b4 1=0xff0000 2=0x0000ff 3=0xf0f0f0 4=0x000000 5=0x80ff80 "
    "[Classes/Owners] type='items' 0='one' 1='two' 2='three' 3='four' [Classes/Owners/UI/Color] 0=0xffff00 "
    "1=0x202020 2=0x00c8c8 3=0xffffff [Classes/Base] type='class' [Classes/Base/Guns] type='int' "
    "[Classes/Map] type='class' [Classes/Cell] type='class' [Classes/Cell/name] type='string' "
    "[Classes/Cell/Terrain] type='index' range='Terrains' [Classes/Cell/Weight] type='float' "
    "[Classes/Cell/Planets] type='int' [Classes/Cell/Base] type='object' range='Base' [Classes/Cell/Owner] "
    "type='index' range='Owners'";

}  // namespace

MapContents MakeGalaxy(int width, int height) {
  MapContents map = ContentsOf(Lines(kClasses));
  MakeGrid(map, width, height);

  Dice dice;
  for (int index = 0; index < map.m_pGrid->CellCount(); ++index) {
    const CellCoord at = map.m_pGrid->CoordOf(index);
    map.m_pCellMarks[static_cast<std::size_t>(index)] = dice.Throw(4) == 0 ? 1 : 0;
    if (dice.Throw(6) == 0) continue;
    CreateCell(map, at);
    SetValue(map, index, "name", kNames[dice.Throw(static_cast<int>(std::size(kNames)))]);
    SetValue(map, index, "Terrain", std::to_string(dice.Throw(8)));  // some without a name
    SetValue(map, index, "Weight", std::to_string(dice.Throw(10000)) + ".25");
    SetValue(map, index, "Planets", std::to_string(dice.Throw(9)));
    SetValue(map, index, "Owner", std::to_string(dice.Throw(4)));
  }
  return map;
}

MapLook LookAt(const MapContents& map, float cellSizePx) {
  MapLook look;
  look.cellSizePx = cellSizePx;
  look.outlineMember = Member(map, "Owner");
  look.fillMember = Member(map, "Terrain");
  return look;
}

}  // namespace quorvel
