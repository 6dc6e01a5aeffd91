#include "render/painted_rows.h"

#include <algorithm>
#include <new>

#include <QImage>

#include "map/types/map_contents.h"
#include "render/map_extent.h"
#include "render/map_painter.h"

namespace quorvel {
namespace {

/// Painted at once. The larger a band, the fewer cells are painted in two; some rows of cells are enough.
constexpr std::int64_t kPaintedBytes = 64'000'000;
constexpr std::int64_t kPaintedCellRows = 32;

std::int64_t BandRows(const MapLook& look, const MapRect& part) {
  const auto enough = static_cast<std::int64_t>(kPaintedCellRows * look.cellSizePx * look.pixelRatio);
  const std::int64_t most = kPaintedBytes / (part.Width() * std::int64_t{sizeof(QRgb)});
  return std::clamp<std::int64_t>(std::min(enough, most), 1, part.Height());
}

}  // namespace

bool PaintRows(const MapContents& map, const MapLook& look, const MapRect& part, const TakeRow& take,
               const RowsDone& done) {
  if (part.IsEmpty()) return true;
  const std::int64_t bandRows = BandRows(look, part);
  QImage band(static_cast<int>(part.Width()), static_cast<int>(bandRows), QImage::Format_RGB32);
  if (band.isNull()) throw std::bad_alloc();
  MapPainter painter;
  for (std::int64_t top = part.top; top < part.bottom; top += bandRows) {
    const int rows = static_cast<int>(std::min(bandRows, part.bottom - top));
    painter.Paint(map, look, band, part.left, top, QRect(0, 0, band.width(), rows));
    for (int row = 0; row < rows; ++row) {
      if (!take(reinterpret_cast<const QRgb*>(band.constScanLine(row)))) return false;
    }
    if (done) done(top + rows - part.top, part.Height());
  }
  return true;
}

}  // namespace quorvel
