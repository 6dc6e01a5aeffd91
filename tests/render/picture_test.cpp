#include "render/picture.h"

#include <algorithm>
#include <sstream>

#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <gtest/gtest.h>

#include "render/map_painter.h"
#include "tests/platform/temp_folder.h"
#include "tests/render/galaxy.h"

namespace quorvel {
namespace {

std::string Rendered(decltype(RenderPng) render, const MapContents& map, const PictureRequest& request) {
  std::stringbuf out;
  NullFeedback feedback;
  std::string errorText;
  EXPECT_TRUE(render(map, request, out, feedback, errorText)) << errorText;
  EXPECT_EQ(errorText, "");
  return out.str();
}

QImage ReadPng(const std::string& bytes) {
  QImage image;
  image.loadFromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()), "PNG");
  return image.convertToFormat(QImage::Format_RGB32);
}

PictureRequest RequestOf(float cellSizePx) {
  PictureRequest request;
  request.cellSizePx = cellSizePx;
  request.fillMember = "Terrain";
  request.outlineMember = "Owner";
  return request;
}

QImage Painted(const MapContents& map, const MapLook& look, const MapRect& part) {
  QImage frame(static_cast<int>(part.Width()), static_cast<int>(part.Height()), QImage::Format_RGB32);
  MapPainter().Paint(map, look, frame, part.left, part.top, frame.rect());
  return frame;
}

TEST(RenderPng, FollowsTheRequest) {
  const MapContents map = MakeGalaxy(10, 5);
  PictureRequest request = RequestOf(60);
  request.outlineMember = "";  // the first index member
  request.labels = Labels::Hidden;
  request.cells = CellRange{{7, 3}, {2, 1}};
  request.filter = [](const CellRecord& cell) { return cell.index % 2 == 0; };
  MapLook look = LookAt(map, 60);
  look.outlineMember = look.fillMember;
  look.labels = Labels::Hidden;
  look.filter = request.filter;
  EXPECT_EQ(ReadPng(Rendered(RenderPng, map, request)),
            Painted(map, look, *CellsExtent(*map.m_pGrid, 60, *request.cells)));
}

/// More rows than one band holds: a row of 86 KB, and 64 MB a band.
TEST(RenderPng, JoinsItsBands) {
  MapContents map = MakeGalaxy(1, 1);
  MakeGrid(map, 250, 9);
  map.m_pCellMarks[0] = map.m_pCellMarks[249] = map.m_pCellMarks[8 * 250] = 1;
  PictureRequest request = RequestOf(100);
  EXPECT_EQ(ReadPng(Rendered(RenderPng, map, request)),
            Painted(map, LookAt(map, 100), MapExtent(*map.m_pGrid, 100)));
}

TEST(RenderPicture, SaysWhyItCannot) {
  const MapContents map = MakeGalaxy(3, 3);
  MapContents none;
  MapContents long_ = MakeGalaxy(1, 1);
  MakeGrid(long_, 200'000, 1);
  PictureRequest outside = RequestOf(40);
  outside.cells = CellRange{{0, 0}, {3, 0}};
  const std::string offMap = "The cells 0:0 to 3:0 are not all on the map of 3 columns and 3 rows.\n";
  const std::string tooLong = "The picture would be 17200028 by 150 pixels; the limit is ";
  const std::tuple<const MapContents*, PictureRequest, std::string, std::string> rows[] = {
      {&none, RequestOf(40), "There is no map to draw.\n", "There is no map to draw.\n"},
      {&map, outside, offMap, offMap},
      {&long_, RequestOf(100), tooLong + "10000000 a side.\n", tooLong + "240000 a side.\n"}};
  for (const auto& [drawn, request, png, pdf] : rows) {
    std::stringbuf out;
    NullFeedback feedback;
    std::string pngError, pdfError;
    EXPECT_FALSE(RenderPng(*drawn, request, out, feedback, pngError));
    EXPECT_FALSE(RenderPdf(*drawn, request, out, feedback, pdfError));
    EXPECT_EQ(pngError, png);
    EXPECT_EQ(pdfError, pdf);
    EXPECT_EQ(out.str(), "") << "nothing was written";
  }
}

/// The page as an independent program draws it, one pixel a picture pixel.
QImage DrawnPage(const std::string& pdf) {
  const TempFolder folder;
  const QString file = QString::fromStdString(folder.Write("map.pdf", pdf));
  const QString page = QString::fromStdString(folder / "page");
  QProcess::execute("pdftoppm", {"-r", "1200", "-singlefile", "-aa", "no", "-aaVector", "no", file, page});
  return QImage(page + ".ppm").convertToFormat(QImage::Format_RGB32);
}

TEST(RenderPdf, ShowsCellsAndInvertedCellsOnOnePage) {
  if (QStandardPaths::findExecutable("pdftoppm").isEmpty()) GTEST_SKIP() << "needs pdftoppm";
  MapContents map = MakeGalaxy(6, 4);
  const QImage page = DrawnPage(Rendered(RenderPdf, map, RequestOf(60)));
  MapLook look = LookAt(map, 60);
  look.ground = Ground::Hidden;
  const QImage shown = Painted(map, look, MapExtent(*map.m_pGrid, 60));
  ASSERT_GE(page.width(), shown.width());
  EXPECT_LE(page.width(), shown.width() + 18) << "less than a point more, as pages are whole points";
  ASSERT_GE(page.height(), shown.height());
  EXPECT_LE(page.height(), shown.height() + 18);

  // Near the right tip of each cell: away from outlines, labels and margins.
  const CellMetrics metrics = CellMetrics::At(60);
  for (int index = 0; index < map.m_pGrid->CellCount(); ++index) {
    const CellCoord cell = map.m_pGrid->CoordOf(index);
    const QPoint at(metrics.ColumnLeft(cell.column) + metrics.Width() - 14,
                    metrics.RowTop(cell.column, cell.row) + 26);
    EXPECT_EQ(page.pixelColor(at), shown.pixelColor(at)) << "cell " << index;
  }
  EXPECT_EQ(page.pixel(0, 0), kPaperWhite);
  EXPECT_EQ(page.pixel(page.width() - 1, page.height() - 1), kPaperWhite);
}

TEST(RenderPicture, DrawsTheGroundWhereItIsAskedTo) {
  const MapContents map = MakeGalaxy(10, 5);
  PictureRequest request = RequestOf(40);
  request.ground = Ground::Hidden;
  MapLook look = LookAt(map, 40);
  look.ground = Ground::Hidden;
  EXPECT_EQ(ReadPng(Rendered(RenderPng, map, request)), Painted(map, look, MapExtent(*map.m_pGrid, 40)));
  const std::string alone = Rendered(RenderPdf, map, request);
  request.ground = Ground::Shown;
  EXPECT_GT(Rendered(RenderPdf, map, request).size(), alone.size());
}

/// Too much to hold in memory as lines and texts: pixels, in two bands of 16 MB.
TEST(RenderPdf, DrawsLargeMapsAsPixels) {
  const MapContents map = MakeGalaxy(300, 280);
  const QByteArray pdf = QByteArray::fromStdString(Rendered(RenderPdf, map, RequestOf(10)));
  EXPECT_EQ(pdf.count("/Subtype /Image"), 2);
  EXPECT_EQ(pdf.count("/FontDescriptor"), 0);
}

TEST(RenderPicture, ShowsProgressToItsEnd) {
  const MapContents map = MakeGalaxy(5, 5);
  for (const auto render : {&RenderPng, &RenderPdf}) {
    std::stringbuf out;
    FeedbackLog log;
    std::string errorText;
    EXPECT_TRUE(render(map, RequestOf(20), out, log, errorText));
    EXPECT_EQ(std::ranges::count(log.Events(), "show"), 1);
    EXPECT_EQ(std::ranges::count(log.Events(), "hide"), 1);
    EXPECT_EQ(std::ranges::count(log.Events(), "progress 100"), 1);
  }
}

}  // namespace
}  // namespace quorvel
