#pragma once

class QMdiArea;

namespace quorvel {

/// Gives the window around the area the keys of map windows, which stand in no menu: close, next, previous,
/// the menu of the map window in front.
void AddWindowKeys(QMdiArea& area);

}  // namespace quorvel
