#pragma once

#include <QImage>
#include <QRect>

#include "render/cell_shapes.h"
#include "render/label_images.h"

namespace quorvel {

/// The pixels of a frame (Format_RGB32) that may be written; whatever is drawn is clipped to them. Places are
/// frame pixels.
class PixelArea {
 public:
  /// `clip` lies in the frame, which must outlive the area.
  PixelArea(QImage& frame, const QRect& clip);

  const QRect& Clip() const { return clip_; }

  void FillRect(const QRect& rect, QRgb colour);
  void Fill(QPoint corner, const PixelRuns& runs, QRgb colour);
  void Invert(QPoint corner, const PixelRuns& runs);
  /// Lays the image's black over what is there, inside `within` only. `place`: the left end of its first
  /// line's top.
  void Blacken(QPoint place, const LabelImage& image, const QRect& within);

 private:
  QRgb* Row(int y) const { return pixels_ + y * stride_; }
  /// Calls paint(first pixel, count) for the part of each run that lies in the clip.
  template <class Paint>
  void ForEachRun(QPoint corner, const PixelRuns& runs, Paint paint);

  QRgb* pixels_;
  std::ptrdiff_t stride_;  // in pixels
  QRect clip_;
};

}  // namespace quorvel
