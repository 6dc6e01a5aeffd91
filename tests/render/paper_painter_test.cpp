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
    Ground ground;
    MapRect part;
    int tolerance;  // overlapping glyphs of a text are not blended as one
  };
  const Row rows[] = {
      {"whole, no labels", 40, Labels::Hidden, Ground::Shown, MapExtent(*map.m_pGrid, 40), 0},
      {"whole, with labels", 70, Labels::Shown, Ground::Hidden, MapExtent(*map.m_pGrid, 70), 2},
      {"a page out of it", 100, Labels::Shown, Ground::Hidden, {150, 120, 400, 410}, 2},
      {"a page beyond its end", 30, Labels::Hidden, Ground::Shown, {100, 150, 300, 260}, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    MapLook look = LookAt(map, row.size);
    look.labels = row.labels;
    look.ground = row.ground;
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

/// Paper of another colour tells what was printed white from what was not printed.
TEST(PaintOnPaper, LaysTheCellsAloneOnThePaper) {
  constexpr QRgb kPaper = 0xfffff0c0;
  MapContents map = MakeGalaxy(1, 1);
  MakeGrid(map, 4, 1);
  for (const int column : {1, 2}) {
    CreateCell(map, {column, 0});
    SetValue(map, column, "Terrain", "0");
  }
  map.m_pCellMarks[3] = 1;
  MapLook look = LookAt(map, 40);
  look.ground = Ground::Hidden;
  look.labels = Labels::Hidden;
  look.filter = [](const CellRecord& cell) { return cell.column == 1; };

  const MapRect part = MapExtent(*map.m_pGrid, 40);
  QImage paper(static_cast<int>(part.Width()), static_cast<int>(part.Height()), QImage::Format_RGB32);
  paper.fill(kPaper);
  QPainter painter(&paper);
  PaintOnPaper(painter, map, look, part);
  painter.end();
  const auto inCell = [&paper](CellCoord cell) {
    const PixelPoint middle = CellMetrics::At(40).Outline(cell)[6];
    return paper.pixel(middle.x, middle.y);
  };
  EXPECT_EQ(paper.pixel(0, 0), kPaper) << "margin";
  EXPECT_EQ(inCell({0, 0}), kPaper) << "no record";
  EXPECT_EQ(inCell({1, 0}), 0xff1f77b4);
  EXPECT_EQ(inCell({2, 0}), qRgb((0x1f + 3 * 255) / 4, (0x77 + 3 * 255) / 4, (0xb4 + 3 * 255) / 4))
      << "faded";
  EXPECT_EQ(inCell({3, 0}), 0xff000000) << "marked: white inverted";
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
