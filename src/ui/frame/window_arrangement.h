#pragma once

class QMdiArea;

namespace quorvel {

/// Lays the open windows over each other, each a title bar further right and down, large enough to work in.
/// The one in front stays there; minimized windows stay where they are.
void CascadeWindows(QMdiArea& area);

/// Puts the minimized windows in rows along the lower edge, from the left.
void ArrangeIcons(QMdiArea& area);

}  // namespace quorvel
