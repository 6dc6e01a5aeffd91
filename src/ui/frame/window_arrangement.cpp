#include "ui/frame/window_arrangement.h"

#include <algorithm>

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStyle>

namespace quorvel {
namespace {

/// What is left of the area when the last step of a usual cascade is taken.
constexpr double kShareOfArea = 0.7;

int TitleBarHeight(const QMdiSubWindow& window) {
  return window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
}

}  // namespace

void CascadeWindows(QMdiArea& area) {
  const QSize room = area.viewport()->size();
  const QSize size = room * kShareOfArea;
  QPoint place;
  for (QMdiSubWindow* window : area.subWindowList(QMdiArea::StackingOrder)) {
    if (window->isMinimized() || !window->isVisible()) continue;
    window->showNormal();
    const QSize grown = size.expandedTo(window->minimumSizeHint());
    window->setGeometry(QRect(place, grown));
    const int step = TitleBarHeight(*window);
    place += QPoint(step, step);
    if (place.x() + grown.width() > room.width() || place.y() + grown.height() > room.height()) place = {};
  }
}

void ArrangeIcons(QMdiArea& area) {
  QPoint next(0, area.viewport()->height());
  int rowHeight = 0;
  for (QMdiSubWindow* window : area.subWindowList()) {
    if (!window->isMinimized()) continue;
    if (next.x() > 0 && next.x() + window->width() > area.viewport()->width()) {
      next = {0, next.y() - rowHeight};
    }
    window->move(next.x(), next.y() - window->height());
    next.rx() += window->width();
    rowHeight = window->height();
  }
}

}  // namespace quorvel
