#pragma once

#include <QFont>
#include <QImage>
#include <QString>

namespace quorvel {

/// Lines of a cell's label are this many map pixels apart, and no taller.
constexpr int kLabelLinePx = 12;

/// The face of labels and where its lines go, for one pixel ratio.
struct LabelFont {
  /// Arial, else Liberation Sans, at the largest pixel size whose ascent and descent fit a line.
  static LabelFont At(double pixelRatio);

  /// The line in black on transparent (Format_ARGB32_Premultiplied), `width` by `lineHeight` device pixels,
  /// of which it fills as much as it needs. Glyphs may overlap; laid over a cell as one image, each pixel is
  /// blended once.
  QImage Draw(const QString& line, int width) const;

  QFont font;
  int lineHeight = 0;  ///< device pixels
  int ascent = 0;      ///< from the top of a line to its baseline, in device pixels
};

}  // namespace quorvel
