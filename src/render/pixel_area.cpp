#include "render/pixel_area.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace quorvel {
namespace {

/// Black with the given share over an opaque pixel, rounded as the painting engine rounds.
QRgb Blackened(QRgb pixel, unsigned black) {
  const QRgb rest = 255U - black;
  QRgb redBlue = (pixel & 0xff00ff) * rest;
  redBlue = (redBlue + ((redBlue >> 8) & 0xff00ff) + 0x800080) >> 8;
  QRgb green = ((pixel >> 8) & 0xff) * rest;
  green = green + (green >> 8) + 0x80;
  return 0xff000000 | (redBlue & 0xff00ff) | (green & 0xff00);
}

/// As QRect's, which is not inline.
bool Contains(const QRect& outer, const QRect& inner) {
  return outer.left() <= inner.left() && outer.right() >= inner.right() && outer.top() <= inner.top() &&
         outer.bottom() >= inner.bottom();
}

/// Most rows of a cell have only a few pixels, for which std::fill_n takes too long to begin: four at a time,
/// and the last four over what may be there already.
void FillPixels(QRgb* to, int count, QRgb colour) {
  const std::array<QRgb, 4> four = {colour, colour, colour, colour};
  if (count < 4) {
    for (int i = 0; i < count; ++i) to[i] = colour;
    return;
  }
  for (int i = 0; i < count - 4; i += 4) std::memcpy(to + i, four.data(), sizeof four);
  std::memcpy(to + count - 4, four.data(), sizeof four);
}

}  // namespace

Shades::Shades(QRgb ground) : colour(ground), under() {
  for (std::size_t black = 0; black < under.size(); ++black)
    under[black] = Blackened(ground, static_cast<unsigned>(black));
}

PixelArea::PixelArea(QImage& frame, const QRect& clip)
    : pixels_(reinterpret_cast<QRgb*>(frame.bits())),
      stride_(frame.bytesPerLine() / static_cast<std::ptrdiff_t>(sizeof(QRgb))),
      clip_(clip) {}

void PixelArea::FillRect(const QRect& rect, QRgb colour) {
  const QRect part = rect & clip_;
  for (int y = part.top(); y <= part.bottom(); ++y) std::fill_n(Row(y) + part.left(), part.width(), colour);
}

void PixelArea::FillClipped(int y, int x, int end, QRgb colour) {
  if (y < clip_.top() || y > clip_.bottom()) return;
  x = std::max(x, clip_.left());
  end = std::min(end, clip_.right() + 1);
  if (x < end) FillPixels(Row(y) + x, end - x, colour);
}

void PixelArea::Fill(QPoint corner, const CellShape& shape, QRgb pen, QRgb fill) {
  if (!Contains(clip_, shape.ink.translated(corner))) {
    for (const BodyRow& row : shape.body) {
      FillClipped(corner.y() + row.y, corner.x() + row.left, corner.x() + row.right, pen);
      FillClipped(corner.y() + row.y, corner.x() + row.fillLeft, corner.x() + row.fillRight, fill);
    }
    return;
  }
  for (const BodyRow& row : shape.body) {
    QRgb* const pixels = Row(corner.y() + row.y) + corner.x();
    FillPixels(pixels + row.left, row.right - row.left, pen);
    FillPixels(pixels + row.fillLeft, row.fillRight - row.fillLeft, fill);
  }
}

void PixelArea::Invert(QPoint corner, const PixelRuns& runs) {
  const int left = clip_.left();
  const int right = clip_.right() + 1;
  for (const PixelRun& run : runs) {
    const int y = corner.y() + run.y;
    if (y < clip_.top() || y > clip_.bottom()) continue;
    const int end = std::min(corner.x() + run.x + run.length, right);
    QRgb* const pixels = Row(y);
    for (int x = std::max(corner.x() + run.x, left); x < end; ++x) pixels[x] ^= 0x00ffffff;
  }
}

void PixelArea::Blacken(QPoint place, const LabelImage& image, const QRect& within, const Shades& shades) {
  const QRect visible = within & clip_;
  const bool isWide = place.x() < visible.left() || place.x() + image.width > visible.right() + 1;
  const InkPixel* ink = image.ink.data();
  for (const InkRow& row : image.rows) {
    const InkPixel* const end = image.ink.data() + row.end;
    const int y = place.y() + row.y;
    if (y > visible.bottom()) return;
    if (y >= visible.top()) {
      QRgb* const pixels = Row(y) + place.x();
      for (; ink != end; ++ink) {
        const int x = place.x() + ink->x;
        if (isWide && (x < visible.left() || x > visible.right())) continue;
        QRgb& pixel = pixels[ink->x];
        pixel = pixel == shades.colour ? shades.under[ink->black] : Blackened(pixel, ink->black);
      }
    }
    ink = end;
  }
}

}  // namespace quorvel
