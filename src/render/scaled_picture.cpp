#include "render/scaled_picture.h"

#include <algorithm>
#include <new>

#include "map/types/map_contents.h"
#include "render/map_extent.h"
#include "render/painted_rows.h"
#include "render/pixel_scale.h"
#include "render/row_averager.h"

namespace quorvel {
namespace {

constexpr double kSmallestReadableScale = 0.3;

MapRect OnDevice(const MapRect& part, PixelScale scale) {
  return {scale.At(part.left), scale.At(part.top), scale.At(part.right), scale.At(part.bottom)};
}

QSize SizeOf(const MapRect& rect) {
  return {static_cast<int>(rect.Width()), static_cast<int>(rect.Height())};
}

}  // namespace

MapLook ReadableLook(MapLook look, double scale) {
  if (scale < kSmallestReadableScale) look.labels = Labels::Hidden;
  return look;
}

QImage ScaledPicture(const MapContents& map, MapLook look, const MapRect& part, double scale) {
  look.pixelRatio = std::max(1.0, scale);
  const MapRect painted = OnDevice(part, {look.pixelRatio});
  if (painted.IsEmpty()) return {};
  const QSize from = SizeOf(painted);
  const QSize to = look.pixelRatio == scale ? from : SizeOf(OnDevice(part, {scale})).boundedTo(from);
  QImage picture(to.expandedTo({1, 1}), QImage::Format_RGB32);
  if (picture.isNull()) throw std::bad_alloc();
  RowAverager average(from, picture.size());
  int next = 0;
  PaintRows(map, look, painted, [&](const QRgb* row) {
    if (average.AddRow(row, reinterpret_cast<QRgb*>(picture.scanLine(next)))) ++next;
    return true;
  });
  return picture;
}

}  // namespace quorvel
