#pragma once

#include <QImage>
#include <QPoint>

#include "render/cell_figure.h"
#include "render/cell_look.h"
#include "render/label_font.h"

class QPainter;

namespace quorvel {

/// Draws single cells with pen, brush, polygon and text, without antialiasing: how a cell looks is said here,
/// and every faster way of drawing is judged by it. Pens have round joins and lie on pixel centres.
class PlainPainter {
 public:
  explicit PlainPainter(PixelScale scale) : scale_(scale), font_(LabelFont::At(scale.ratio)) {}

  /// Draws all that a cell shows into an image; `corner` is the cell's corner in the painter's coordinates.
  void DrawCell(QPainter& painter, QPoint corner, const CellFigure& figure, const CellLook& look) const;

  /// Outline and area alone, which any device can show.
  void DrawBody(QPainter& painter, QPoint corner, const CellFigure& figure, const CellColours& colours) const;

  /// The pixels that are inverted, white on transparent (Format_ARGB32_Premultiplied); pixel (MaskMargin(),
  /// MaskMargin()) is the cell's corner.
  QImage MarkMask(const CellFigure& figure) const;
  QImage RimMask(const CellFigure& figure) const;
  /// Device pixels around a figure's bounds that its ink cannot leave.
  int MaskMargin() const { return scale_.LineWidth(3); }

  const LabelFont& Font() const { return font_; }

 private:
  void DrawLabel(QPainter& painter, QPoint corner, const CellFigure& figure, const QStringList& lines) const;
  enum class Inside { Open, Filled };
  QImage Mask(const std::array<QPoint, 6>& outline, Inside inside) const;

  PixelScale scale_;
  LabelFont font_;
};

}  // namespace quorvel
