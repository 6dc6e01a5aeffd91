#pragma once

#include <QImage>

#include "render/map_look.h"

namespace quorvel {

struct MapContents;
struct MapRect;

/// The look at a scale, with labels that could not be read there left out.
MapLook ReadableLook(MapLook look, double scale);

/// A part of the map (map pixels) at any scale, `scale` pixels a map pixel; at least one pixel wide and high.
/// From 1 on it is painted at that pixel ratio. Below, it is painted at 1 and averaged down: cells side by
/// side leave no seam, and lines keep their share of the colour. The look's own pixel ratio does not matter.
QImage ScaledPicture(const MapContents& map, MapLook look, const MapRect& part, double scale);

}  // namespace quorvel
