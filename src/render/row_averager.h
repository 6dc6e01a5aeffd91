#pragma once

#include <cstdint>
#include <vector>

#include <QRgb>
#include <QSize>

namespace quorvel {

/// Shrinks a picture as its rows come: every pixel becomes the mean of the area that it stands for, where
/// pixels cut by the area's edge count by their share. So lines fade rather than vanish.
class RowAverager {
 public:
  /// Sides from 1 to 10,000,000 pixels; `to` is no longer than `from` in either direction.
  RowAverager(QSize from, QSize to);

  /// The next row, top first. True: it was the last that a row of the smaller picture needs, and `finished`
  /// was filled with that one.
  bool AddRow(const QRgb* row, QRgb* finished);

 private:
  void Accumulate(const QRgb* row, std::int64_t weight);
  void Finish(QRgb* finished);

  QSize from_;
  QSize to_;
  std::int64_t place_ = 0;           // of the next row, in parts of a row of which there are `to` to each
  std::vector<std::uint32_t> sums_;  // four channels a pixel: values by their weights, which add up to `from`
};

}  // namespace quorvel
