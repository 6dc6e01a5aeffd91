#include "ui/printing/map_printing.h"

#include <QRegularExpression>

#include "tests/ui/editor.h"
#include "tests/ui/modal_script.h"
#include "ui/printing/print_preview.h"
#include "ui/printing/print_size_page.h"

namespace quorvel {
namespace {

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
  const int pages = editor.app.Printing().CountPages(printer, editor.View());
  EXPECT_GE(pages, 6);
  ASSERT_TRUE(editor.app.Printing().PrintPages(printer, editor.View()));
  EXPECT_EQ(PagesInFile(), pages);

  printer.setPrintRange(QPrinter::PageRange);
  printer.setFromTo(2, 4);
  ASSERT_TRUE(editor.app.Printing().PrintPages(printer, editor.View()));
  EXPECT_EQ(PagesInFile(), 3);
}

TEST_F(PdfPrinting, PrintsAtTheSizeChosen) {
  ASSERT_TRUE(editor.OpenMap(20, 10));
  struct Row {
    SheetSize size;
    int pages;
  };
  // An A4 sheet has some 200 x 287 mm to print on; at 40 mm a cell the map is some 699 x 420.
  const Row rows[] = {{{40, {}}, 8}, {{0, {1, 1}}, 1}, {{0, {3, 5}}, 6}};
  for (const Row& row : rows) {
    editor.app.Printing().SetChoice({row.size, Labels::Hidden});
    ASSERT_TRUE(editor.app.Printing().PrintPages(printer, editor.View()));
    EXPECT_EQ(PagesInFile(), row.pages);
    EXPECT_EQ(editor.folder.Read("map.pdf").find("/FontDescriptor"), std::string::npos) << "no labels";
  }
}

TEST(PrintSizePage, ShowsAndGivesTheChoice) {
  const PrintChoice rows[] = {
      {}, {{12.5, {}}, Labels::Hidden}, {{0, {1, 1}}, Labels::Shown}, {{0, {3, 4}}, Labels::Hidden}};
  for (const PrintChoice& row : rows) {
    const PrintSizePage page(row);
    EXPECT_EQ(page.windowTitle(), "Quorvel");
    EXPECT_EQ(page.Choice().size.cellMm, row.size.cellMm);
    EXPECT_EQ(page.Choice().size.sheets, row.size.sheets);
    EXPECT_EQ(page.Choice().labels, row.labels);
  }
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
    EXPECT_EQ(press(""), "Page 1 of 2, only 2.1 mm a cell");
    const auto* pages = preview.findChild<PaperView*>();
    const auto shot = [pages] { return const_cast<PaperView*>(pages)->grab().toImage(); };
    const QImage first = shot();
    EXPECT_FALSE(ShowsColour(first, kMapMargin)) << "cells alone, without the window's ground";
    EXPECT_EQ(press("&Next Page"), "Page 2 of 2, only 2.1 mm a cell");
    EXPECT_NE(shot(), first) << "the second page has the rest";
    QTest::keyClick(&preview, Qt::Key_PageUp);
    EXPECT_EQ(shot(), first);
    EXPECT_EQ(press("&Two Page"), "Pages 1-2 of 2, only 2.1 mm a cell");
    const int width = pages->width();
    press("Zoom &In");
    EXPECT_GT(pages->width(), width);
    EXPECT_EQ(press("&Fit to page"), "Page 1 of 1, only 2 mm a cell");
    press("&Close");
  });
  editor.Run(ID_FILE_PRINT_PREVIEW);
}

}  // namespace
}  // namespace quorvel
