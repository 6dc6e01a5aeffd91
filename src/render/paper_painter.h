#pragma once

#include <cstdint>
#include <functional>

#include <QRectF>

#include "render/map_look.h"

class QPainter;

namespace quorvel {

struct MapContents;
struct MapRect;

/// Draws a part of the map (map pixels) on a printer, a PDF or another device that draws lines and texts but
/// cannot invert pixels: the part's top left corner comes to the painter's origin, a map pixel is a unit of
/// the painter's coordinates. Marked cells and the current cell go as images of what a window shows, one
/// image pixel a map pixel. So does a whole part with more than 500,000 hexagons and texts, since the library
/// keeps what is drawn on a page in memory to its end; averaged down where the painter makes map pixels
/// smaller than its own. The look's pixel ratio counts as 1. `afterRow`, if any, is told now and then how
/// many of all rows, of cells or pixels, are done.
void PaintOnPaper(QPainter& painter, const MapContents& map, const MapLook& look, const MapRect& part,
                  const std::function<void(std::int64_t done, std::int64_t all)>& afterRow = {});

/// The same of a part whose edges need not lie on whole map pixels, a map pixel `scale` units of the painter.
void PaintPartOnPaper(QPainter& painter, const MapContents& map, const MapLook& look, const QRectF& part,
                      double scale,
                      const std::function<void(std::int64_t done, std::int64_t all)>& afterRow = {});

}  // namespace quorvel
