#include "ui/drawings/tool_cursors.h"

#include <cmath>
#include <numbers>

#include <QPainter>
#include <QPixmap>

namespace quorvel {
namespace {

constexpr int kCursorSidePx = 32;

using CursorDrawing = void (*)(QPainter&);

QCursor MakeCursor(CursorDrawing draw, QPoint hotSpot, double pixelRatio) {
  const int side = static_cast<int>(std::ceil(kCursorSidePx * pixelRatio));
  QPixmap pixmap(side, side);
  pixmap.setDevicePixelRatio(pixelRatio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::black, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::white);
  painter.translate(0.5, 0.5);
  draw(painter);
  painter.end();
  return QCursor(pixmap, hotSpot.x(), hotSpot.y());
}

QPolygonF CellAt(QPointF centre, double radius) {
  QPolygonF corners;
  for (int corner = 0; corner < 6; ++corner) {
    const double angle = corner * std::numbers::pi / 3;
    corners << centre + QPointF(radius * std::cos(angle), radius * std::sin(angle));
  }
  return corners;
}

void DrawPointer(QPainter& painter) {
  painter.drawPolygon(QPolygonF{{1, 1}, {1, 16}, {4.6, 12.6}, {7, 18}, {9.4, 17}, {7.1, 11.8}, {12, 11.8}});
  painter.drawPolygon(CellAt({17, 20}, 5));
}

void DrawBrush(QPainter& painter) {
  const QPolygonF handle{{7.5, 15}, {22, 0.8}, {26, 4.8}, {11.8, 19.2}};
  painter.drawPolygon(handle);
  painter.setBrush(QColor(0xe0, 0xa0, 0x30));
  painter.drawPolygon(QPolygonF{{7.5, 15}, {11.8, 19.2}, {7, 23}, {1, 25.5}, {3.6, 19.6}});
}

}  // namespace

QCursor PointerToolCursor(double pixelRatio) {
  return MakeCursor(DrawPointer, {1, 1}, pixelRatio);
}

QCursor PaintToolCursor(double pixelRatio) {
  return MakeCursor(DrawBrush, {1, 25}, pixelRatio);
}

}  // namespace quorvel
