#include "ui/map_printing.h"

#include <algorithm>

#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinterInfo>

#include "map/vastrel_doc.h"
#include "render/display_text.h"
#include "render/map_extent.h"
#include "render/paper_painter.h"
#include "ui/map_view.h"
#include "ui/page_tiles.h"

namespace quorvel {
namespace {

PageTiles TilesOf(const QPrinter& printer, CMapView& view) {
  const CVastrelDoc* document = view.Document();
  const MapRect extent =
      document && document->m_pGrid ? MapExtent(*document->m_pGrid, view.CellSize()) : MapRect{};
  return {extent, printer.pageLayout().paintRectPixels(printer.resolution()).size()};
}

struct PageRange {
  int first, last;  // from 0, both included
};

PageRange ChosenPages(const QPrinter& printer, int count) {
  if (printer.printRange() != QPrinter::PageRange || printer.fromPage() == 0) return {0, count - 1};
  const int first = std::clamp(printer.fromPage(), 1, count);
  return {first - 1, std::clamp(printer.toPage(), first, count) - 1};
}

}  // namespace

QPrinter& MapPrinting::Printer() {
  if (!printer_) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer_->setCreator(QStringLiteral("Quorvel"));
  }
  return *printer_;
}

void MapPrinting::ChoosePage(QWidget* parent) {
  QPageSetupDialog dialog(&Printer(), parent);
  dialog.exec();
}

void MapPrinting::Print(CMapView& view) {
  QPrinter& printer = Printer();
  QPrintDialog dialog(&printer, &view);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  dialog.setMinMax(1, CountPages(printer, view));
  if (dialog.exec() == QDialog::Accepted) PrintPages(printer, view);
}

void MapPrinting::Preview(CMapView& view) {
  QPrintPreviewDialog dialog(&Printer(), &view);
  dialog.setWindowTitle(QObject::tr("Print Preview"));
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                   [&view](QPrinter* printer) { PrintPages(*printer, view); });
  dialog.resize(view.window()->size());
  dialog.exec();
}

bool MapPrinting::PrintDirect(CMapView& view, const QString& printerName) {
  const QPrinterInfo info =
      printerName.isEmpty() ? QPrinterInfo::defaultPrinter() : QPrinterInfo::printerInfo(printerName);
  if (info.isNull()) return false;
  QPrinter printer(info, QPrinter::HighResolution);
  return PrintPages(printer, view);
}

int MapPrinting::CountPages(const QPrinter& printer, CMapView& view) {
  return TilesOf(printer, view).Count();
}

bool MapPrinting::PrintPages(QPrinter& printer, CMapView& view) {
  const CVastrelDoc* document = view.Document();
  if (!document || !document->m_pGrid) return false;
  const PageTiles tiles = TilesOf(printer, view);
  const MapLook look = view.Look();
  printer.setDocName(DisplayText(document->GetTitle()));

  QPainter painter;
  if (!painter.begin(&printer)) return false;
  const auto [first, last] = ChosenPages(printer, tiles.Count());
  for (int page = first; page <= last; ++page) {
    if (page > first && !printer.newPage()) return false;
    PaintOnPaper(painter, *document, look, tiles.Tile(page));
  }
  return painter.end();
}

}  // namespace quorvel
