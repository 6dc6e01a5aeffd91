#include "ui/printing/page_tiles.h"

#include <algorithm>
#include <limits>

namespace quorvel {
namespace {

int TilesAlong(std::int64_t length, int step) {
  constexpr std::int64_t kMost = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp<std::int64_t>((length + step - 1) / step, 1, kMost));
}

}  // namespace

PageTiles::PageTiles(const MapRect& extent, QSize page)
    : extent_(extent),
      page_(page.expandedTo({1, 1})),
      columns_(TilesAlong(extent.Width(), page_.width())),
      count_(TilesAlong(std::int64_t{columns_} * TilesAlong(extent.Height(), page_.height()), 1)) {}

MapRect PageTiles::Tile(int page) const {
  if (page < 0 || page >= count_) return {};
  const std::int64_t left = extent_.left + std::int64_t{page % columns_} * page_.width();
  const std::int64_t top = extent_.top + std::int64_t{page / columns_} * page_.height();
  return Intersection(extent_, {left, top, left + page_.width(), top + page_.height()});
}

}  // namespace quorvel
