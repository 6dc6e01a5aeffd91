#include "render/map_painter.h"

#include <random>

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

#include "render/map_extent.h"
#include "render/plain_painter.h"
#include "tests/render/galaxy.h"

namespace quorvel {
namespace {

constexpr float kSizes[] = {10, 20, 30, 40, 50, 60, 70, 80, 90, 100};
constexpr double kRatios[] = {1, 1.25, 1.5, 2};

QImage EmptyFrame(const CellGrid& grid, const MapLook& look) {
  const MapRect extent = MapExtent(grid, look.cellSizePx);
  const PixelScale scale{look.pixelRatio};
  // A little more than the map, so that the margins beyond it are seen too.
  QImage frame(static_cast<int>(scale.At(extent.right)) + 7, static_cast<int>(scale.At(extent.bottom)) + 5,
               QImage::Format_RGB32);
  frame.fill(Qt::magenta);
  return frame;
}

QImage PaintWhole(const MapContents& map, const MapLook& look) {
  QImage frame = EmptyFrame(*map.m_pGrid, look);
  MapPainter().Paint(map, look, frame, 0, 0, frame.rect());
  return frame;
}

/// The judge: ground, then cell by cell in the order of rows and columns, each drawn by pen, brush and text.
QImage PaintPlainly(const MapContents& map, const MapLook& look) {
  const CellMetrics metrics = CellMetrics::At(look.cellSizePx);
  const PixelScale scale{look.pixelRatio};
  const auto toDevice = [&](int px) { return static_cast<int>(scale.At(px)); };
  const CellGrid& grid = *map.m_pGrid;
  QImage frame = EmptyFrame(grid, look);
  QPainter painter(&frame);
  painter.fillRect(frame.rect(), QColor(look.Background()));
  const QColor margin(look.Margin());
  painter.fillRect(0, 0, toDevice(2 * metrics.quarter + 1), frame.height(), margin);
  painter.fillRect(0, 0, frame.width(), toDevice(metrics.half + 1), margin);
  painter.fillRect(toDevice(grid.Width() * metrics.columnStep), 0, frame.width(), frame.height(), margin);
  painter.fillRect(0, toDevice(grid.Height() * metrics.height), frame.width(), frame.height(), margin);
  const PlainPainter plain(scale);
  for (int index = 0; index < grid.CellCount(); ++index) {
    const CellCoord cell = grid.CoordOf(index);
    const CellCorner corner = CellCorner::Of(cell, metrics, scale);
    plain.DrawCell(painter, QPoint(static_cast<int>(corner.x), static_cast<int>(corner.y)),
                   CellFigure::Of(cell, metrics, scale), CellLook::Of(map, look, cell));
  }
  return frame;
}

/// Where the first differing pixel is, for the failure message.
std::string Difference(const QImage& a, const QImage& b) {
  if (a.size() != b.size()) return "other size";
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      if (a.pixel(x, y) == b.pixel(x, y)) continue;
      return QStringLiteral("at (%1, %2): %3 and %4")
          .arg(x)
          .arg(y)
          .arg(a.pixel(x, y), 0, 16)
          .arg(b.pixel(x, y), 0, 16)
          .toStdString();
    }
  }
  return {};
}

/// A galaxy whose cells all have a record, so that they hide the background.
MapContents MakeFullGalaxy(int width, int height) {
  MapContents map = MakeGalaxy(width, height);
  for (int index = 0; index < width * height; ++index) {
    if (!map.m_pGrid->Find(index)) CreateCell(map, map.m_pGrid->CoordOf(index));
  }
  return map;
}

TEST(MapPainter, PaintsWhatThePlainPainterDraws) {
  const MapContents maps[] = {MakeGalaxy(9, 8), MakeFullGalaxy(6, 5), MakeFullGalaxy(1, 2)};
  for (const MapContents& map : maps) {
    for (const float size : kSizes) {
      for (const double ratio : kRatios) {
        SCOPED_TRACE(testing::Message()
                     << map.m_pGrid->Count() << " cells, " << size << " px, ratio " << ratio);
        MapLook look = LookAt(map, size);
        look.pixelRatio = ratio;
        look.currentCell = {4, 3};
        EXPECT_EQ(Difference(PaintWhole(map, look), PaintPlainly(map, look)), "");
      }
    }
  }
}

TEST(MapPainter, ShowsEveryKindOfLookAsThePlainPainterDoes) {
  const MapContents map = MakeGalaxy(9, 8);
  const MapLook usual = LookAt(map, 40);
  constexpr std::pair<const char*, void (*)(MapLook&)> rows[] = {
      {"no colours", [](MapLook& look) { look.fillMember = look.outlineMember = nullptr; }},
      {"no labels", [](MapLook& look) { look.labels = Labels::Hidden; }},
      {"no ground", [](MapLook& look) { look.ground = Ground::Hidden; }},
      {"filtered",
       [](MapLook& look) { look.filter = [](const CellRecord& cell) { return cell.index % 3 != 0; }; }},
      {"current cell without record or at the edge",
       [](MapLook& look) {
         look.currentCell = {8, 7};
       }},
      {"an odd cell size", [](MapLook& look) { look.cellSizePx = 37.5F; }},
      {"a broken ratio", [](MapLook& look) { look.pixelRatio = 1.7; }},
  };
  for (const auto& [what, change] : rows) {
    MapLook look = usual;
    change(look);
    EXPECT_EQ(Difference(PaintWhole(map, look), PaintPlainly(map, look)), "") << what;
  }
}

TEST(MapPainter, PaintsPartsAsTheyAreInTheWhole) {
  const MapContents map = MakeGalaxy(9, 8);
  std::mt19937 random(3);
  MapPainter painter;
  for (const float size : kSizes) {
    for (const double ratio : {1.0, 1.25}) {
      MapLook look = LookAt(map, size);
      look.pixelRatio = ratio;
      look.currentCell = {2, 2};
      const QImage whole = PaintWhole(map, look);
      for (int i = 0; i < 20; ++i) {
        const QPoint origin(static_cast<int>(random()) % whole.width(),
                            static_cast<int>(random()) % whole.height());
        QImage part(1 + static_cast<int>(random() % 60), 1 + static_cast<int>(random() % 60),
                    QImage::Format_RGB32);
        painter.Paint(map, look, part, origin.x(), origin.y(), part.rect());
        // Beyond the whole frame there is margin only.
        QImage expected(part.size(), QImage::Format_RGB32);
        expected.fill(Qt::black);
        QPainter(&expected).drawImage(-origin, whole);
        SCOPED_TRACE(testing::Message() << size << " px, ratio " << ratio << ", part " << part.width() << "x"
                                        << part.height() << " at " << origin.x() << "," << origin.y());
        EXPECT_EQ(Difference(part, expected), "");
      }
    }
  }
}

TEST(MapPainter, PaintsNothingWithoutAGrid) {
  QImage frame(20, 20, QImage::Format_RGB32);
  frame.fill(Qt::magenta);
  MapPainter().Paint(MapContents(), {}, frame, 0, 0, frame.rect());
  EXPECT_EQ(frame.pixelColor(10, 10), Qt::magenta);
}

/// Places on a map at the limits are far beyond what the drawing library counts.
TEST(MapPainter, PaintsTheFarEndOfTheLongestMap) {
  MapContents map = MakeGalaxy(1, 1);
  MakeGrid(map, 20'000'000, 1);
  const CellCoord last{19'999'999, 0};
  SetValue(map, last.column, "Terrain", "1");
  MapLook look = LookAt(map, 100);
  look.pixelRatio = 2;
  const MapRect ink = CellInk(look, last);
  QImage frame(static_cast<int>(ink.Width()), static_cast<int>(ink.Height()), QImage::Format_RGB32);
  MapPainter().Paint(map, look, frame, ink.left, ink.top, frame.rect());
  EXPECT_EQ(frame.pixelColor(frame.width() / 2, frame.height() - 20), Qt::red);
}

TEST(MapPainter, ShowsNewTextsAfterForgettingOldOnes) {
  MapContents first = MakeGalaxy(1, 1);
  SetValue(first, 0, "name", "one");
  MapContents second = MakeGalaxy(1, 1);
  SetValue(second, 0, "name", "two");
  const MapLook look = LookAt(second, 100);
  QImage frame = EmptyFrame(*second.m_pGrid, look);
  MapPainter painter;
  painter.Paint(first, LookAt(first, 100), frame, 0, 0, frame.rect());
  painter.ForgetLabels();
  painter.Paint(second, look, frame, 0, 0, frame.rect());
  EXPECT_EQ(Difference(frame, PaintWhole(second, look)), "");
}

}  // namespace
}  // namespace quorvel
