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

/// Most rows of a cell have only a few pixels, for which std::fill_n takes too long to begin: they are
/// written four at a time.
constexpr int kAtOnce = 4;
using Pixels = std::array<QRgb, kAtOnce>;

Pixels PixelsOf(QRgb colour) {
  return {colour, colour, colour, colour};
}

void Store(QRgb* to, const Pixels& pixels) {
  std::memcpy(to, pixels.data(), sizeof pixels);
}

/// The last four may go over what is there already.
void FillPixels(QRgb* to, int count, QRgb colour) {
  if (count < kAtOnce) {
    for (int i = 0; i < count; ++i) to[i] = colour;
    return;
  }
  const Pixels pixels = PixelsOf(colour);
  for (int i = 0; i < count - kAtOnce; i += kAtOnce) Store(to + i, pixels);
  Store(to + count - kAtOnce, pixels);
}

/// `pixels` is where the cell's corner is in this row. Where the area is wide enough, the pen is not rounded
/// down to its ends: what it takes too much of the area the area takes back.
void FillBodyRow(QRgb* pixels, const BodyRow& row, QRgb pen, QRgb fill) {
  if (row.fillRight - row.fillLeft < kAtOnce) {
    FillPixels(pixels + row.left, row.right - row.left, pen);
  } else {
    const Pixels penPixels = PixelsOf(pen);
    for (int x = row.left; x < row.fillLeft; x += kAtOnce) Store(pixels + x, penPixels);
    for (int x = row.right; x > row.fillRight; x -= kAtOnce) Store(pixels + x - kAtOnce, penPixels);
  }
  FillPixels(pixels + row.fillLeft, row.fillRight - row.fillLeft, fill);
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
  for (const BodyRow& row : shape.body) FillBodyRow(Row(corner.y() + row.y) + corner.x(), row, pen, fill);
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

void PixelArea::Blacken(QPoint place, const LabelImage& image, const QRect& within, const Shades& shades,
                        Ground ground) {
  const QRect visible = within & clip_;
  const bool isWide = place.x() < visible.left() || place.x() + image.width > visible.right() + 1;
  const InkPixel* ink = image.ink.data();
  for (const InkRow& row : image.rows) {
    const InkPixel* const end = image.ink.data() + row.end;
    const int y = place.y() + row.y;
    if (y > visible.bottom()) return;
    if (y >= visible.top()) {
      QRgb* const pixels = Row(y) + place.x();
      if (ground == Ground::Plain && !isWide) {  // nearly all rows: no pixel need be read
        for (; ink != end; ++ink) pixels[ink->x] = shades.under[ink->black];
        continue;
      }
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
