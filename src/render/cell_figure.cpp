#include "render/cell_figure.h"

#include <cstdlib>

namespace quorvel {
namespace {

constexpr int kCentre = 6;
constexpr int kLabelInsetPx = 4;  // at the top and at the bottom

std::int32_t AwayFrom(std::int32_t centre, std::int32_t coordinate, int d) {
  if (coordinate == centre) return coordinate;
  return coordinate > centre ? coordinate + d : coordinate - d;
}

}  // namespace

void GrowOutline(CellPolygon& points, int d) {
  const PixelPoint centre = points[kCentre];
  for (PixelPoint& point : points) point = {AwayFrom(centre.x, point.x, d), AwayFrom(centre.y, point.y, d)};
}

CellFigure CellFigure::Of(CellCoord cell, const CellMetrics& metrics, PixelScale scale) {
  const CellCorner corner = CellCorner::Of(cell, metrics, scale);
  const auto toDevice = [&](PixelPoint point) {
    return QPoint(static_cast<int>(scale.At(point.x) - corner.x),
                  static_cast<int>(scale.At(point.y) - corner.y));
  };
  const CellPolygon outline = metrics.Outline(cell);
  CellPolygon shrunk = outline;
  GrowOutline(shrunk, -1);

  CellFigure figure;
  for (std::size_t i = 0; i < figure.rim.size(); ++i) {
    figure.body[i] = toDevice(shrunk[i]);
    figure.rim[i] = toDevice(outline[i]);
  }
  const CellBounds bounds = metrics.Bounds(cell);
  const QPoint labelStart = toDevice({bounds.left + 2 * metrics.quarter, bounds.top + kLabelInsetPx});
  const QPoint labelEnd = toDevice({bounds.right - 2 * metrics.quarter, bounds.bottom - kLabelInsetPx});
  figure.label = QRect(labelStart, QSize(labelEnd.x() - labelStart.x(), labelEnd.y() - labelStart.y()));
  return figure;
}

}  // namespace quorvel
