#pragma once

#include <memory>
#include <string>

#include "data/index_member.h"
#include "data/number_members.h"
#include "data/object_member.h"
#include "data/string_member.h"
#include "map/types/map_contents.h"

namespace quorvel {

/// Contents whose cells have a property of every kind: Name (string, "none"), Wealth (int, 5), Heat
/// (float, 1.5), Owner (index into the list Empire of Free, Aurelia, Borea, Corvus; 0) and Post (object of
/// the class Outpost).
inline MapContents ContentsOfEveryKind() {
  MapContents contents;
  ListDef* empires = contents.m_pTypes->Add(std::make_unique<ListDef>("Empire"));
  for (const char* name : {"Free", "Aurelia", "Borea", "Corvus"}) empires->AddItemName(name);
  ClassDef* outpost = contents.m_pTypes->Add(std::make_unique<ClassDef>("Outpost"));
  outpost->AddMember(std::make_unique<IntMember>("Crew", IntDefault{0, 99, 4}));

  ClassDef* cell = contents.m_pTypes->Add(std::make_unique<ClassDef>("Cell"));
  cell->AddMember(std::make_unique<StringMember>("Name", "none"));
  cell->AddMember(std::make_unique<IntMember>("Wealth", IntDefault{0, 10, 5}));
  cell->AddMember(std::make_unique<FloatMember>("Heat", FloatDefault{0, 2, 1.5F}));
  cell->AddMember(std::make_unique<IndexMember>("Owner", empires));
  cell->AddMember(std::make_unique<ObjectMember>("Post", outpost));
  contents.m_pCellClass = cell;
  return contents;
}

/// The same with a grid.
inline MapContents MapOfEveryKind(int width, int height) {
  MapContents map = ContentsOfEveryKind();
  MakeGrid(map, width, height);
  return map;
}

inline const MemberDef* Member(const MapContents& contents, const char* name) {
  return contents.m_pCellClass->FindMember(name);
}

/// The value of a cell as its member formats it; "-" where the cell has no record.
inline std::string ValueText(const MapContents& map, std::int32_t index, const char* member) {
  const auto record = map.m_pGrid->Find(index);
  if (!record) return "-";
  std::string text;
  Member(map, member)->FormatValue(text, Member(map, member)->GetValuePtr(record->data));
  return text;
}

}  // namespace quorvel
