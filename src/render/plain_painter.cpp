#include "render/plain_painter.h"

#include <algorithm>

#include <QPainter>
#include <QPen>

namespace quorvel {
namespace {

constexpr int kPenPx = 3;
constexpr int kInvertedLinePx = 1;

/// From a pixel's corner, where its coordinates point, to the middle of a line of that width through the
/// pixel.
double ToLineCentre(int lineWidth) {
  return lineWidth % 2 != 0 ? 0.5 : 1.0;
}

void DrawOutline(QPainter& painter, QPoint corner, const std::array<QPoint, 6>& outline, QPen pen) {
  pen.setCapStyle(Qt::RoundCap);
  pen.setJoinStyle(Qt::RoundJoin);
  painter.setPen(pen);
  // Lines of one pixel are drawn on pixels, wider ones as areas.
  const double shift = pen.width() == 1 ? 0 : ToLineCentre(pen.width());
  painter.translate(corner.x() + shift, corner.y() + shift);
  painter.drawPolygon(outline.data(), static_cast<int>(outline.size()), Qt::OddEvenFill);
  painter.translate(-corner.x() - shift, -corner.y() - shift);
}

/// Each pixel once, where outline and area of a polygon would invert their common pixels twice.
void Invert(QPainter& painter, QPoint place, const QImage& mask) {
  painter.setCompositionMode(QPainter::CompositionMode_Difference);
  painter.drawImage(place, mask);
  painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

QSize BoundsOf(const std::array<QPoint, 6>& outline) {
  QSize size;
  for (const QPoint& point : outline) size = size.expandedTo(QSize(point.x(), point.y()));
  return size;
}

}  // namespace

void PlainPainter::DrawCell(QPainter& painter, QPoint corner, const CellFigure& figure,
                            const CellLook& look) const {
  if (look.hasRecord) {
    DrawBody(painter, corner, figure, look.colours);
    DrawLabel(painter, corner, figure, look.label);
  }
  const QPoint maskPlace = corner - QPoint(MaskMargin(), MaskMargin());
  if (look.isMarked) Invert(painter, maskPlace, MarkMask(figure));
  if (look.isCurrent) Invert(painter, maskPlace, RimMask(figure));
}

void PlainPainter::DrawBody(QPainter& painter, QPoint corner, const CellFigure& figure,
                            const CellColours& colours) const {
  painter.setBrush(QColor(colours.fill));
  DrawOutline(painter, corner, figure.body, QPen(QColor(colours.pen), scale_.LineWidth(kPenPx)));
}

void PlainPainter::DrawLabel(QPainter& painter, QPoint corner, const CellFigure& figure,
                             const QStringList& lines) const {
  const QRect label = figure.label.translated(corner);
  QRect strip(label.topLeft(), QSize(label.width(), font_.lineHeight));
  for (const QString& line : lines) {
    const QRect visible = strip & label;
    if (visible.isEmpty()) break;
    painter.drawImage(visible.topLeft(), font_.Draw(line, label.width()),
                      QRect(QPoint(0, 0), visible.size()));
    strip.translate(0, font_.lineHeight);
  }
}

QImage PlainPainter::MarkMask(const CellFigure& figure) const {
  return Mask(figure.body, Inside::Filled);
}

QImage PlainPainter::RimMask(const CellFigure& figure) const {
  return Mask(figure.rim, Inside::Open);
}

QImage PlainPainter::Mask(const std::array<QPoint, 6>& outline, Inside inside) const {
  const int margin = MaskMargin();
  QImage mask(BoundsOf(outline) + QSize(2 * margin, 2 * margin), QImage::Format_ARGB32_Premultiplied);
  mask.fill(Qt::transparent);
  QPainter painter(&mask);
  painter.setBrush(inside == Inside::Filled ? QBrush(Qt::white) : QBrush(Qt::NoBrush));
  DrawOutline(painter, QPoint(margin, margin), outline,
              QPen(Qt::white, std::max(1, scale_.LineWidth(kInvertedLinePx))));
  return mask;
}

}  // namespace quorvel
