#include "ui/map_printing.h"

#include <QRegularExpression>

#include "tests/ui/editor.h"
#include "ui/page_tiles.h"

namespace quorvel {
namespace {

TEST(PageTiles, LaidSideBySideTheyAreTheWholeMap) {
  struct Row {
    MapRect extent;
    QSize page;
    int pages;
    MapRect last;
  };
  constexpr Row rows[] = {{{0, 0, 100, 50}, {100, 50}, 1, {0, 0, 100, 50}},
                          {{0, 0, 101, 50}, {100, 50}, 2, {100, 0, 101, 50}},
                          {{0, 0, 250, 120}, {100, 50}, 9, {200, 100, 250, 120}},
                          {{0, 0, 0, 0}, {100, 50}, 1, {}}};
  for (const Row& row : rows) {
    const PageTiles tiles(row.extent, row.page);
    EXPECT_EQ(tiles.Count(), row.pages);
    EXPECT_EQ(tiles.Tile(row.pages - 1).Width(), row.last.Width());
    std::int64_t area = 0;
    for (int page = 0; page < tiles.Count(); ++page)
      area += tiles.Tile(page).Width() * tiles.Tile(page).Height();
    EXPECT_EQ(area, row.extent.Width() * row.extent.Height());
    EXPECT_TRUE(tiles.Tile(row.pages).IsEmpty());
  }
}

class PdfPrinting : public testing::Test {
 protected:
  PdfPrinting() : printer(QPrinter::HighResolution) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(editor.folder / "map.pdf"));
    printer.setResolution(72);  // pages of some 560 x 800 map pixels
  }
  qsizetype PagesInFile() const {
    const QString pdf = QString::fromLatin1(QByteArray::fromStdString(editor.folder.Read("map.pdf")));
    return pdf.count(QRegularExpression(QStringLiteral("/Type\\s*/Page\\b")));
  }

  Editor editor;
  QPrinter printer;
};

TEST_F(PdfPrinting, CutsTheMapIntoPages) {
  ASSERT_TRUE(editor.OpenMap(20, 10));  // 1748 x 1050 pixels
  const int pages = MapPrinting::CountPages(printer, editor.View());
  EXPECT_GE(pages, 6);
  ASSERT_TRUE(MapPrinting::PrintPages(printer, editor.View()));
  EXPECT_EQ(PagesInFile(), pages);
}

TEST_F(PdfPrinting, PrintsTheRangeAskedFor) {
  ASSERT_TRUE(editor.OpenMap(20, 10));
  printer.setPrintRange(QPrinter::PageRange);
  printer.setFromTo(2, 4);
  ASSERT_TRUE(MapPrinting::PrintPages(printer, editor.View()));
  EXPECT_EQ(PagesInFile(), 3);
}

}  // namespace
}  // namespace quorvel
