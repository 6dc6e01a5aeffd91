#pragma once

class QWidget;

namespace quorvel {

/// Shows the bundled help in a window of its own beside `parent`, or brings the one that is open to the
/// front.
void ShowHelp(QWidget& parent);

}  // namespace quorvel
