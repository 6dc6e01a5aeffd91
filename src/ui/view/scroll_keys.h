#pragma once

#include <optional>

#include <QPoint>
#include <QSize>

#include "ui/view/scroll_place.h"

namespace quorvel {

/// Where a key scrolls a view with a map of this viewport, which may lie outside what there is to scroll;
/// none for other keys. The arrows go by a column or a row, PageUp and PageDown by a viewport less one cell,
/// Home and End to the left and right edge, with Ctrl to the first and the last corner of the map.
std::optional<QPoint> ScrolledByKey(int key, Qt::KeyboardModifiers held, const ScrollPlace& before,
                                    QSize viewport);

}  // namespace quorvel
