#include "render/pixel_area.h"

#include <algorithm>

namespace quorvel {
namespace {

/// Black with the given share over an opaque pixel, rounded as the painting engine rounds.
QRgb Blackened(QRgb pixel, std::uint8_t black) {
  const QRgb rest = 255U - black;
  QRgb redBlue = (pixel & 0xff00ff) * rest;
  redBlue = (redBlue + ((redBlue >> 8) & 0xff00ff) + 0x800080) >> 8;
  QRgb green = ((pixel >> 8) & 0xff) * rest;
  green = green + (green >> 8) + 0x80;
  return 0xff000000 | (redBlue & 0xff00ff) | (green & 0xff00);
}

}  // namespace

PixelArea::PixelArea(QImage& frame, const QRect& clip)
    : pixels_(reinterpret_cast<QRgb*>(frame.bits())),
      stride_(frame.bytesPerLine() / static_cast<std::ptrdiff_t>(sizeof(QRgb))),
      clip_(clip) {}

void PixelArea::FillRect(const QRect& rect, QRgb colour) {
  const QRect part = rect & clip_;
  for (int y = part.top(); y <= part.bottom(); ++y) std::fill_n(Row(y) + part.left(), part.width(), colour);
}

template <class Paint>
void PixelArea::ForEachRun(QPoint corner, const PixelRuns& runs, Paint paint) {
  const int left = clip_.left();
  const int right = clip_.right() + 1;
  for (const PixelRun& run : runs) {
    const int y = corner.y() + run.y;
    if (y < clip_.top() || y > clip_.bottom()) continue;
    const int start = std::max(corner.x() + run.x, left);
    const int end = std::min(corner.x() + run.x + run.length, right);
    if (start < end) paint(Row(y) + start, end - start);
  }
}

void PixelArea::Fill(QPoint corner, const PixelRuns& runs, QRgb colour) {
  ForEachRun(corner, runs, [colour](QRgb* pixels, int count) { std::fill_n(pixels, count, colour); });
}

void PixelArea::Invert(QPoint corner, const PixelRuns& runs) {
  ForEachRun(corner, runs, [](QRgb* pixels, int count) {
    for (int i = 0; i < count; ++i) pixels[i] ^= 0x00ffffff;
  });
}

void PixelArea::Blacken(QPoint place, const LabelImage& image, const QRect& within) {
  const QRect ink(place.x(), place.y() + image.top, image.width, image.height);
  const QRect part = ink & within & clip_;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    QRgb* const pixels = Row(y) + part.left();
    const std::uint8_t* const black =
        image.black.data() + std::ptrdiff_t{y - ink.top()} * image.width + (part.left() - ink.left());
    for (int x = 0; x < part.width(); ++x) pixels[x] = Blackened(pixels[x], black[x]);
  }
}

}  // namespace quorvel
