#pragma once

#include <QProxyStyle>

namespace quorvel {

/// The desktop's style, with the buttons of a maximized map window drawn in the colour of the texts around
/// them. (The library's own are dark on every scheme.)
class FrameStyle : public QProxyStyle {
  Q_OBJECT
 public:
  QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
};

}  // namespace quorvel
