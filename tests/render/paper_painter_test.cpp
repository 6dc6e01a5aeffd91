#include "render/paper_painter.h"

#include <cstdlib>

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

#include "render/map_extent.h"
#include "render/map_painter.h"
#include "tests/render/galaxy.h"

namespace quorvel {
namespace {

/// How far the channels of two pictures are apart at most.
int LargestDifference(const QImage& a, const QImage& b) {
  int largest = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QRgb p = a.pixel(x, y);
      const QRgb q = b.pixel(x, y);
      largest = std::max({largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                          std::abs(qBlue(p) - qBlue(q))});
    }
  }
  return largest;
}

TEST(PaintOnPaper, ShowsWhatTheWindowShows) {
  const MapContents map = MakeGalaxy(7, 6);
  struct Row {
    const char* text;
    float size;
    Labels labels;
    MapRect part;
    int tolerance;  // overlapping glyphs of a text are not blended as one
  };
  const Row rows[] = {
      {"whole, no labels", 40, Labels::Hidden, MapExtent(*map.m_pGrid, 40), 0},
      {"whole, with labels", 70, Labels::Shown, MapExtent(*map.m_pGrid, 70), 2},
      {"a page out of it", 100, Labels::Shown, {150, 120, 400, 410}, 2},
      {"a page beyond its end", 30, Labels::Hidden, {100, 150, 300, 260}, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    MapLook look = LookAt(map, row.size);
    look.labels = row.labels;
    look.currentCell = {3, 2};
    QImage shown(static_cast<int>(row.part.Width()), static_cast<int>(row.part.Height()),
                 QImage::Format_RGB32);
    MapPainter().Paint(map, look, shown, row.part.left, row.part.top, shown.rect());

    QImage paper(shown.size(), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    PaintOnPaper(painter, map, look, row.part);
    painter.end();
    EXPECT_LE(LargestDifference(paper, shown), row.tolerance);
  }
}

TEST(PaintOnPaper, TellsEachRow) {
  const MapContents map = MakeGalaxy(4, 5);
  QImage paper(100, 200, QImage::Format_RGB32);
  QPainter painter(&paper);
  std::int64_t last = 0;
  PaintOnPaper(painter, map, LookAt(map, 30), MapExtent(*map.m_pGrid, 30),
               [&](std::int64_t done, std::int64_t all) {
                 EXPECT_EQ(done, last + 1);
                 EXPECT_EQ(all, 5);
                 last = done;
               });
  EXPECT_EQ(last, 5);
}

}  // namespace
}  // namespace quorvel
