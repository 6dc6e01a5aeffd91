#pragma once

#include <cstdint>
#include <vector>

#include <QImage>
#include <QRect>
#include <QSize>

#include "render/map_extent.h"
#include "render/map_look.h"
#include "render/map_painter.h"

namespace quorvel {

/// The picture that a view shows: a window on the map in device pixels, kept between repaints. Changes are
/// only noted where they happen, a bit for a visible cell and nothing for any other, and drawn together by
/// Refresh.
class MapPicture {
 public:
  /// In device pixels; another size than before makes all of it stale.
  void Resize(QSize size);
  /// The map's device pixel that stands in the top left corner. What stays in sight is moved, not drawn anew.
  void ScrollTo(std::int64_t originX, std::int64_t originY);
  /// All is to be drawn with another look, or the map's contents were replaced.
  void Reset(const MapLook& look);
  /// The cell is to be drawn anew. False: it is out of sight, or was noted already.
  bool Touch(CellCoord cell);
  /// The current cell moved: its rim is to be drawn elsewhere.
  void MoveCurrentCell(CellCoord cell);

  /// Draws what is stale. The rectangles drawn, in pixels of the picture, few even when many cells changed.
  std::vector<QRect> Refresh(const MapContents& map);

  const MapLook& Look() const { return look_; }
  const QImage& Image() const { return image_; }

 private:
  void ForgetTouches();
  void FindVisibleCells();
  void TakeTouchedCells();
  void AddStale(const QRect& rect);
  void ShiftStale(int dx, int dy);
  QRect InkOf(CellCoord first, CellCoord last) const;

  MapLook look_;
  QImage image_;
  std::int64_t originX_ = 0;
  std::int64_t originY_ = 0;
  std::vector<QRect> stale_;

  // The cells that can have ink in the picture, and a bit for each that was touched, by rows.
  CellRange visible_;
  bool isVisibleKnown_ = false;
  int visibleColumns_ = 0;
  int touchedCount_ = 0;
  std::vector<std::uint64_t> touched_;

  MapPainter painter_;
};

}  // namespace quorvel
