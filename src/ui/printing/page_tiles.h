#pragma once

#include <QSize>

#include "render/map_extent.h"

namespace quorvel {

/// A map cut into tiles of one page each, row by row. A cell on a cut is continued on the next page, so the
/// pages laid side by side are the whole map.
class PageTiles {
 public:
  /// `page`: what fits on a page, in pixels of the printer, which are map pixels.
  PageTiles(const MapRect& extent, QSize page);

  /// At least 1, also for an empty map; at most 2^31 - 1.
  int Count() const { return count_; }
  /// The part of the map on a page, from 0; empty for a page that there is not.
  MapRect Tile(int page) const;

 private:
  MapRect extent_;
  QSize page_;
  int columns_;
  int count_;
};

}  // namespace quorvel
