#include "ui/view/cell_navigation.h"

#include <algorithm>
#include <iterator>

#include <QtCore/qnamespace.h>

namespace quorvel {
namespace {

enum Direction { kUpperRight, kAbove, kUpperLeft, kLowerLeft, kBelow, kLowerRight };

struct KeyRow {
  Qt::Key key;
  Direction fromEven;
  Direction fromOdd;  // odd columns sit half a cell lower: their row goes on above
};

constexpr KeyRow kKeys[] = {
    {Qt::Key_Up, kAbove, kAbove},
    {Qt::Key_Down, kBelow, kBelow},
    {Qt::Key_Left, kLowerLeft, kUpperLeft},
    {Qt::Key_Right, kLowerRight, kUpperRight},
    {Qt::Key_Home, kUpperLeft, kUpperLeft},
    {Qt::Key_End, kLowerLeft, kLowerLeft},
    {Qt::Key_PageUp, kUpperRight, kUpperRight},
    {Qt::Key_PageDown, kLowerRight, kLowerRight},
};

}  // namespace

std::optional<int> DirectionOfKey(int key, int column) {
  const auto* row = std::ranges::find_if(kKeys, [key](const KeyRow& known) { return known.key == key; });
  if (row == std::end(kKeys)) return std::nullopt;
  return column % 2 != 0 ? row->fromOdd : row->fromEven;
}

}  // namespace quorvel
