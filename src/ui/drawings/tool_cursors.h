#pragma once

#include <QCursor>

namespace quorvel {

/// Cursors 502 and 503, drawn for the screen's pixel ratio: an arrow with a cell beside it for the pointer
/// tool, a brush for the cell property tool. Both are outlined, so that they show on every colour of a map.
QCursor PointerToolCursor(double pixelRatio);
QCursor PaintToolCursor(double pixelRatio);

}  // namespace quorvel
