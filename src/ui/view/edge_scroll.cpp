#include "ui/view/edge_scroll.h"

#include <algorithm>

#include "map/grid/cell_metrics.h"

namespace quorvel {
namespace {

/// A pointer so many pixels further out scrolls a pixel more.
constexpr int kPixelsPerPixel = 4;

int BeyondAlong(int shown, int pointer, int position, int farthest) {
  if (pointer < 0 && position > 0) return pointer;
  if (pointer >= shown && position < farthest) return pointer - (shown - 1);
  return 0;
}

int StepAlong(int beyond, int most) {
  if (beyond == 0) return 0;
  const int wanted = beyond / kPixelsPerPixel + (beyond > 0 ? 1 : -1);
  return std::clamp(wanted, -most, most);
}

}  // namespace

QPoint BeyondEdgeOf(QSize viewport, QPoint pointer, QPoint position, QPoint farthest) {
  return {BeyondAlong(viewport.width(), pointer.x(), position.x(), farthest.x()),
          BeyondAlong(viewport.height(), pointer.y(), position.y(), farthest.y())};
}

QPoint EdgeScrollStep(QPoint beyond, float cellSizePx) {
  const CellMetrics metrics = CellMetrics::At(cellSizePx);
  return {StepAlong(beyond.x(), metrics.columnStep / 2), StepAlong(beyond.y(), metrics.height / 2)};
}

}  // namespace quorvel
