#include "ui/printing/map_printing.h"

#include <QRegularExpression>

#include "tests/ui/editor.h"
#include "tests/ui/modal_script.h"
#include "ui/printing/page_tiles.h"
#include "ui/printing/print_preview.h"

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

TEST_F(PdfPrinting, CutsTheMapIntoPagesAndPrintsTheRangeAskedFor) {
  ASSERT_TRUE(editor.OpenMap(20, 10));  // 1748 x 1050 pixels
  const int pages = MapPrinting::CountPages(printer, editor.View());
  EXPECT_GE(pages, 6);
  ASSERT_TRUE(editor.app.Printing().PrintPages(printer, editor.View()));
  EXPECT_EQ(PagesInFile(), pages);

  printer.setPrintRange(QPrinter::PageRange);
  printer.setFromTo(2, 4);
  ASSERT_TRUE(editor.app.Printing().PrintPages(printer, editor.View()));
  EXPECT_EQ(PagesInFile(), 3);
}

TEST_F(PdfPrinting, SaysWhyNotAndLeavesNothingBehind) {
  ASSERT_TRUE(editor.OpenMap(3, 3));
  std::filesystem::create_directory(editor.folder / "taken.pdf");
  for (const auto& [name, reason] :
       {std::pair{"none/map.pdf", "No such file or directory"}, std::pair{"taken.pdf", "Is a directory"}}) {
    printer.setOutputFileName(QString::fromStdString(editor.folder / name));
    EXPECT_FALSE(editor.app.Printing().PrintPages(printer, editor.View()));
    EXPECT_EQ(editor.prompts.messages.back(), std::string("Cannot print map.vrl:\n") + reason);
  }
}

bool ShowsColour(const QImage& image, QRgb colour) {
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) == colour) return true;
    }
  }
  return false;
}

TEST(PrintPreview, CountsThePagesAndTurnsThem) {
  Editor editor;
  ASSERT_TRUE(editor.OpenMap(120, 3));  // 10,349 pixels wide: more than A4 has at 1200 dots an inch
  WhenModal([](QDialog& preview) {
    const auto press = [&preview](const char* text) {
      for (auto* button : preview.findChildren<QPushButton*>()) {
        if (button->text() == text) button->click();
      }
      return preview.findChild<QLabel*>()->text().toStdString();
    };
    EXPECT_EQ(press(""), "Page 1 of 2");
    const auto* pages = preview.findChild<PaperView*>();
    const auto shot = [pages] { return const_cast<PaperView*>(pages)->grab().toImage(); };
    const QImage first = shot();
    EXPECT_FALSE(ShowsColour(first, kMapMargin)) << "cells alone, without the window's ground";
    EXPECT_EQ(press("&Next Page"), "Page 2 of 2");
    EXPECT_NE(shot(), first) << "the second page has the rest";
    QTest::keyClick(&preview, Qt::Key_PageUp);
    EXPECT_EQ(shot(), first);
    EXPECT_EQ(press("&Two Page"), "Pages 1-2 of 2");
    const int width = pages->width();
    press("Zoom &In");
    EXPECT_GT(pages->width(), width);
    press("&Close");
  });
  editor.Run(ID_FILE_PRINT_PREVIEW);
}

}  // namespace
}  // namespace quorvel
