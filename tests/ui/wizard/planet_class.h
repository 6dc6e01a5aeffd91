#pragma once

#include <memory>

#include "data/class_def.h"
#include "data/index_member.h"
#include "data/list_def.h"
#include "data/number_members.h"
#include "data/object_member.h"
#include "data/string_member.h"

namespace quorvel {

/// A cell class with a member of each kind, and one whose list is empty.
struct PlanetClass {
  PlanetClass() {
    for (const char* name : {"Rock", "Ice", "Gas"}) terrains.AddItemName(name);
    cell.AddMember(std::make_unique<StringMember>("Name", "Sol"));
    cell.AddMember(std::make_unique<IntMember>("Count", IntDefault{0, 100, 7}));
    cell.AddMember(std::make_unique<FloatMember>("Density", FloatDefault{0, 1, 0.5F}));
    cell.AddMember(std::make_unique<IndexMember>("Terrain", &terrains));
    cell.AddMember(std::make_unique<ObjectMember>("Orbit", &orbit));
    cell.AddMember(std::make_unique<IndexMember>("Moon", &nothing));
    orbit.AddMember(std::make_unique<IntMember>("Radius"));
  }

  enum Row { kName, kCount, kDensity, kTerrain, kOrbit, kMoon };

  ListDef terrains{"Terrains"};
  ListDef nothing{"Nothing"};
  ClassDef orbit{"Orbit"};
  ClassDef cell{"Cell"};
};

}  // namespace quorvel
