#pragma once

#include <cstdint>
#include <memory>

#include <QRect>

#include "render/map_look.h"

class QImage;

namespace quorvel {

struct MapContents;
struct MapRect;

/// Paints parts of a map into images, fast enough for a window: the pixels of a cell's figure and of its
/// label's lines are read from PlainPainter once and kept. A part has the pixels that the same place of the
/// whole picture has, so a frame may be repainted piece by piece in any order. Needs a QGuiApplication for
/// the label font.
///
/// Device pixel (x, y) of the map is the map pixel times the look's pixel ratio, rounded (PixelScale).
class MapPainter {
 public:
  MapPainter();
  MapPainter(const MapPainter&) = delete;
  MapPainter& operator=(const MapPainter&) = delete;
  ~MapPainter();

  /// Paints the pixels of `area` of a frame (Format_RGB32) whose pixel (0, 0) is the map's device pixel
  /// (originX, originY): background, margins, then every cell whose ink meets the area. What lies beyond the
  /// map is margin. `area` is clipped to the frame. Without a grid nothing is painted.
  void Paint(const MapContents& map, const MapLook& look, QImage& frame, std::int64_t originX,
             std::int64_t originY, const QRect& area);

  /// To be called when the map's contents have been replaced: kept label lines belong to the members painted
  /// so far.
  void ForgetLabels();

 private:
  struct Caches;
  std::unique_ptr<Caches> caches_;
};

/// The device pixels that the ink of a cell can touch, of the whole map: what to repaint when the cell has
/// changed.
MapRect CellInk(const MapLook& look, CellCoord cell);

}  // namespace quorvel
