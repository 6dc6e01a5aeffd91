#pragma once

#include <cstdint>
#include <functional>

#include "render/map_look.h"

class QPainter;

namespace quorvel {

struct MapContents;
struct MapRect;

/// Draws a part of the map (map pixels) on a printer, a PDF or another device that draws lines and texts but
/// cannot invert pixels: the part's top left corner comes to the painter's origin, a map pixel is a unit of
/// the painter's coordinates. Marked cells and the current cell go as images of what a window shows, one
/// image pixel a map pixel. The look's pixel ratio counts as 1.
/// `afterRow`, if any, is told after each row of cells how many of all rows are done.
void PaintOnPaper(QPainter& painter, const MapContents& map, const MapLook& look, const MapRect& part,
                  const std::function<void(std::int64_t done, std::int64_t all)>& afterRow = {});

}  // namespace quorvel
