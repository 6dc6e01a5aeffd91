#pragma once

#include "render/map_look.h"
#include "tests/map/map_samples.h"

namespace quorvel {

/// A map with every kind of member: name (string), Terrain and Owner (index), Weight (float), Planets (int)
/// and Base (object). About one cell in six has no record and one in four is marked, in no pattern that
/// repeats by columns or rows; values, names in several encodings and colours vary.
MapContents MakeGalaxy(int width, int height);

/// Terrain fills, Owner outlines.
MapLook LookAt(const MapContents& map, float cellSizePx);

}  // namespace quorvel
