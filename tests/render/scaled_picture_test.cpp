#include "render/scaled_picture.h"

#include <gtest/gtest.h>

#include "render/map_extent.h"
#include "render/map_painter.h"
#include "tests/render/galaxy.h"

namespace quorvel {
namespace {

constexpr double kScales[] = {0.1, 0.17, 0.34, 0.7, 0.99, 1};

/// All cells black on white paper.
TEST(ScaledPicture, LeavesNoSeamBetweenCells) {
  MapContents map = MakeGalaxy(1, 1);
  MakeGrid(map, 7, 6);
  for (int index = 0; index < map.m_pGrid->CellCount(); ++index) CreateCell(map, map.m_pGrid->CoordOf(index));
  for (float size = 10; size <= 100; size += 10) {
    MapLook look;
    look.cellSizePx = size;
    look.labels = Labels::Hidden;
    look.ground = Ground::Hidden;
    const CellBounds first = CellMetrics::At(size).Bounds({1, 1});
    const CellBounds last = CellMetrics::At(size).Bounds({5, 4});
    const MapRect inside = {first.right, first.bottom, last.left, last.top};
    for (const double scale : kScales) {
      const QImage picture = ScaledPicture(map, look, inside, scale);
      QImage black(picture.size(), QImage::Format_RGB32);
      black.fill(Qt::black);
      EXPECT_EQ(picture, black) << size << " px at " << scale;
    }
  }
}

double MeanGreen(const QImage& image) {
  double sum = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) sum += qGreen(image.pixel(x, y));
  }
  return sum / image.width() / image.height();
}

TEST(ScaledPicture, KeepsSizeAndColours) {
  const MapContents map = MakeGalaxy(15, 10);
  MapLook look = LookAt(map, 60);
  look.labels = Labels::Hidden;
  const MapRect part = MapExtent(*map.m_pGrid, 60);
  QImage whole(static_cast<int>(part.Width()), static_cast<int>(part.Height()), QImage::Format_RGB32);
  MapPainter().Paint(map, look, whole, 0, 0, whole.rect());
  for (const double scale : kScales) {
    SCOPED_TRACE(scale);
    const QImage picture = ScaledPicture(map, look, part, scale);
    EXPECT_NEAR(picture.width(), whole.width() * scale, 0.5);
    EXPECT_NEAR(picture.height(), whole.height() * scale, 0.5);
    EXPECT_NEAR(MeanGreen(picture), MeanGreen(whole), 2);
  }
  EXPECT_EQ(ScaledPicture(map, look, part, 1), whole);
  EXPECT_EQ(ScaledPicture(map, look, part, 1.5).width(), 1173);
  EXPECT_EQ(ScaledPicture(map, look, {0, 0, 5, 5}, 0.01).size(), QSize(1, 1));
  EXPECT_TRUE(ScaledPicture(map, look, {}, 1).isNull());
}

}  // namespace
}  // namespace quorvel
