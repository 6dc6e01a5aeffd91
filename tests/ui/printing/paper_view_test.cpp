#include "ui/printing/paper_view.h"

#include <QGuiApplication>
#include <QPrinter>
#include <gtest/gtest.h>

namespace quorvel {
namespace {

/// Moved from screen to screen.
class MovedPaper : public PaperView {
 public:
  using PaperView::PaperView;
  double ratio = 1;

 protected:
  int metric(PaintDeviceMetric asked) const override {
    if (asked == PdmDevicePixelRatio) return static_cast<int>(ratio);
    if (asked == PdmDevicePixelRatioScaled) return static_cast<int>(ratio * devicePixelRatioFScale());
    return PaperView::metric(asked);
  }
};

TEST(PaperView, IsDrawnAnewForAScreenOfOtherPixels) {
  std::vector<double> scales;
  const QPageLayout paper(QPageSize(QPageSize::A4), QPageLayout::Portrait, {});
  MovedPaper view(paper, 72, 1, [&scales](int, double scale) {
    scales.push_back(scale);
    return QImage();
  });
  view.Fit({400, 500}, 1);
  QImage screen(view.size(), QImage::Format_RGB32);
  for (const double ratio : {1, 1, 2, 2, 1}) {
    view.ratio = ratio;
    view.render(&screen);
  }
  ASSERT_EQ(scales.size(), 3U) << "once for each screen that it came to";
  EXPECT_EQ(scales[1], 2 * scales[0]);
}

TEST(PaperView, DrawsPagesUnderTheWaitCursor) {
  bool hasWaited = false;
  PaperView pages(QPrinter().pageLayout(), 72, 1, [&hasWaited](int, double) {
    hasWaited = QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
    return QImage();
  });
  pages.Fit({300, 400}, 1);
  pages.grab();
  EXPECT_TRUE(hasWaited);
  EXPECT_FALSE(QGuiApplication::overrideCursor());
}

}  // namespace
}  // namespace quorvel
