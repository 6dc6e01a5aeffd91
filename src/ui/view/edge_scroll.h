#pragma once

#include <QPoint>
#include <QSize>

namespace quorvel {

// A drag that has left the viewport draws the map along. All in pixels.

/// How far `pointer` is beyond the edges of the viewport behind which there is more of the map, negative to
/// the left and above; 0 along an axis where it is inside, or where the map is scrolled to its end. Scroll
/// positions reach from 0 to `farthest`.
QPoint BeyondEdgeOf(QSize viewport, QPoint pointer, QPoint position, QPoint farthest);

/// How far the map scrolls in one step after a pointer so far beyond: the farther the faster, at most half a
/// cell.
QPoint EdgeScrollStep(QPoint beyond, float cellSizePx);

}  // namespace quorvel
