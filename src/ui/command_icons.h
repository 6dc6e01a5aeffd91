#pragma once

#include <QIcon>

namespace quorvel {

/// The drawn icon of a toolbar command, sharp at every size, in colours that read on light and on dark bars.
/// A null icon for every other command.
QIcon CommandIcon(int command);

/// Icon 100: the editor's own, a ring of coloured cells.
QIcon ApplicationIcon();

}  // namespace quorvel
