#pragma once

#include <QIcon>

namespace quorvel {

/// The drawn icon of a toolbar command, sharp at every size, in colours that read on light and on dark bars.
/// A null icon for every other command.
QIcon CommandIcon(int command);

enum class WindowButton { Minimize, Restore, Close };
/// What stands on the buttons of a maximized map window.
QIcon WindowButtonIcon(WindowButton button);

/// Icon 100: the editor's own, a ring of coloured cells.
QIcon ApplicationIcon();

/// Icons 101 and 102: a page with cells on it, those of map windows and files of the two document types. The
/// application's icon for any other number.
QIcon DocumentIcon(int resourceId);

}  // namespace quorvel
