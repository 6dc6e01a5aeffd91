#include "render/row_averager.h"

#include <QImage>
#include <gtest/gtest.h>

namespace quorvel {
namespace {

QImage Shrunk(const QImage& image, QSize size) {
  QImage result(size, QImage::Format_RGB32);
  RowAverager average(image.size(), size);
  int done = 0;
  for (int y = 0; y < image.height(); ++y) {
    std::vector<QRgb> row(static_cast<std::size_t>(size.width()));
    if (!average.AddRow(reinterpret_cast<const QRgb*>(image.constScanLine(y)), row.data())) continue;
    EXPECT_LT(done, size.height());
    std::ranges::copy(row, reinterpret_cast<QRgb*>(result.scanLine(done++)));
  }
  EXPECT_EQ(done, size.height());
  return result;
}

/// The judge: the share that each pixel of the one picture has in each of the other.
QRgb MeanOver(const QImage& image, QRectF area) {
  double red = 0, green = 0, blue = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRectF common = area & QRectF(x, y, 1, 1);
      const double share = common.isEmpty() ? 0 : common.width() * common.height();
      red += share * qRed(image.pixel(x, y));
      green += share * qGreen(image.pixel(x, y));
      blue += share * qBlue(image.pixel(x, y));
    }
  }
  const double all = area.width() * area.height();
  return qRgb(qRound(red / all), qRound(green / all), qRound(blue / all));
}

TEST(RowAverager, GivesTheMeanOfEveryArea) {
  QImage image(13, 11, QImage::Format_RGB32);
  std::uint32_t dice = 7;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, dice = dice * 1664525 + 1013904223);
  }
  for (const QSize size :
       {QSize(13, 11), QSize(1, 1), QSize(12, 10), QSize(5, 4), QSize(13, 1), QSize(7, 11)}) {
    const QImage shrunk = Shrunk(image, size);
    const QSizeF step(double{13} / size.width(), double{11} / size.height());
    for (int y = 0; y < size.height(); ++y) {
      for (int x = 0; x < size.width(); ++x) {
        const QRgb mean = MeanOver(image, {QPointF(x * step.width(), y * step.height()), step});
        const QRgb got = shrunk.pixel(x, y);
        EXPECT_LE(std::abs(qRed(got) - qRed(mean)) + std::abs(qGreen(got) - qGreen(mean)) +
                      std::abs(qBlue(got) - qBlue(mean)),
                  1)
            << size.width() << "x" << size.height() << " at " << x << "," << y;
      }
    }
  }
}

/// The sums of so long rows pass 32 bits.
TEST(RowAverager, KeepsWhiteWhite) {
  QImage image(70'000, 3, QImage::Format_RGB32);
  image.fill(Qt::white);
  EXPECT_EQ(Shrunk(image, {1, 1}).pixel(0, 0), 0xffffffff);
}

}  // namespace
}  // namespace quorvel
