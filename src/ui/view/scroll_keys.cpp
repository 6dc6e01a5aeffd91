#include "ui/view/scroll_keys.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "map/grid/cell_metrics.h"

namespace quorvel {
namespace {

/// By so many cells, or by so many pages.
struct StepKey {
  int key;
  int columns, rows, pages;
};

constexpr StepKey kStepKeys[] = {
    {Qt::Key_Left, -1, 0, 0}, {Qt::Key_Right, 1, 0, 0},   {Qt::Key_Up, 0, -1, 0},
    {Qt::Key_Down, 0, 1, 0},  {Qt::Key_PageUp, 0, 0, -1}, {Qt::Key_PageDown, 0, 0, 1},
};

/// To an end of the row, or to a corner of the map.
std::optional<QPoint> EndOf(int key, Qt::KeyboardModifiers held, QPoint position) {
  constexpr int kFarthest = std::numeric_limits<int>::max();
  const bool toCorner = held == Qt::ControlModifier;
  if ((key != Qt::Key_Home && key != Qt::Key_End) || (held && !toCorner)) return std::nullopt;
  const int end = key == Qt::Key_Home ? 0 : kFarthest;
  return QPoint(end, toCorner ? end : position.y());
}

}  // namespace

std::optional<QPoint> ScrolledByKey(int key, Qt::KeyboardModifiers held, const ScrollPlace& before,
                                    QSize viewport) {
  held &= ~Qt::KeypadModifier;
  const auto* step = std::ranges::find(kStepKeys, key, &StepKey::key);
  if (step == std::end(kStepKeys)) return EndOf(key, held, before.position);
  if (step->pages != 0 && held) return std::nullopt;

  const CellMetrics metrics = CellMetrics::At(before.cellSizePx);
  const int page = std::max(metrics.height, viewport.height() - metrics.height);
  return before.position +
         QPoint(step->columns * metrics.columnStep, step->rows * metrics.height + step->pages * page);
}

}  // namespace quorvel
