#include "ui/frame/frame_style.h"

#include "ui/drawings/command_icons.h"

namespace quorvel {

QIcon FrameStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
  switch (icon) {
    case SP_TitleBarMinButton:
      return WindowButtonIcon(WindowButton::Minimize);
    case SP_TitleBarNormalButton:
      return WindowButtonIcon(WindowButton::Restore);
    case SP_TitleBarCloseButton:
      return WindowButtonIcon(WindowButton::Close);
    default:
      return QProxyStyle::standardIcon(icon, option, widget);
  }
}

}  // namespace quorvel
