#pragma once

#include <array>
#include <cstddef>

#include <QImage>
#include <QRect>

#include "render/cell_shapes.h"
#include "render/label_images.h"

namespace quorvel {

/// A colour under every share of black, 0 to 255. Looking them up is several times as fast as blending.
struct Shades {
  explicit Shades(QRgb ground);

  QRgb colour;
  std::array<QRgb, 256> under;
};

/// The pixels of a frame (Format_RGB32) that may be written; whatever is drawn is clipped to them. Places are
/// frame pixels.
class PixelArea {
 public:
  /// `clip` lies in the frame, which must outlive the area.
  PixelArea(QImage& frame, const QRect& clip);

  const QRect& Clip() const { return clip_; }
  /// Both rectangles not empty.
  bool Meets(const QRect& rect) const {
    return rect.left() <= clip_.right() && rect.right() >= clip_.left() && rect.top() <= clip_.bottom() &&
           rect.bottom() >= clip_.top();
  }

  void FillRect(const QRect& rect, QRgb colour);
  void Fill(QPoint corner, const CellShape& shape, QRgb pen, QRgb fill);
  void Invert(QPoint corner, const PixelRuns& runs);
  /// What a label is laid over: one colour only, or anything.
  enum class Ground { Plain, Mixed };
  /// Lays the image's black over the ground, inside `within` only; `place` is the left end of its first
  /// line's top. The shades are of the plain ground, or of what most of a mixed one is.
  void Blacken(QPoint place, const LabelImage& image, const QRect& within, const Shades& shades,
               Ground ground);

 private:
  QRgb* Row(int y) const { return pixels_ + y * stride_; }
  /// Pixels of row y from x to before `end`, as far as they lie in the clip.
  void FillClipped(int y, int x, int end, QRgb colour);

  QRgb* pixels_;
  std::ptrdiff_t stride_;  // in pixels
  QRect clip_;
};

}  // namespace quorvel
