#include "ui/printing/map_printing.h"

#include <algorithm>
#include <cstdint>
#include <functional>

#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QProgressDialog>
#include <fmt/format.h>

#include "map/document/vastrel_doc.h"
#include "platform/documents/busy_scope.h"
#include "render/display_text.h"
#include "render/map_extent.h"
#include "render/paper_painter.h"
#include "render/scaled_picture.h"
#include "ui/printing/page_tiles.h"
#include "ui/printing/print_preview.h"
#include "ui/printing/whole_pdf.h"
#include "ui/view/map_view.h"

namespace quorvel {
namespace {

constexpr char kPdfSuffix[] = ".pdf";
constexpr int kStepsPerPage = 100;

/// Cells alone: the paper is the ground.
MapLook LookOnPaper(CMapView& view) {
  MapLook look = view.Look();
  look.ground = Ground::Hidden;
  return look;
}

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

/// Told the page, from 0, and how much of it is done, in steps. False: stop.
using PageProgress = std::function<bool(int page, int step)>;

/// False: the printer refused, or the work was stopped.
bool PaintPages(QPrinter& printer, CMapView& view, const PageProgress& progress) {
  const CVastrelDoc* document = view.Document();
  if (!document || !document->m_pGrid) return false;
  const PageTiles tiles = TilesOf(printer, view);
  const MapLook look = LookOnPaper(view);
  printer.setDocName(DisplayText(document->GetTitle()));

  QPainter painter;
  if (!painter.begin(&printer)) return false;
  const PageRange pages = ChosenPages(printer, tiles.Count());
  for (int page = pages.first; page <= pages.last; ++page) {
    const int printed = page - pages.first;
    if (!progress(printed, 0) || (printed > 0 && !printer.newPage())) return false;
    PaintOnPaper(painter, *document, look, tiles.Tile(page), [&](std::int64_t done, std::int64_t all) {
      progress(printed, static_cast<int>(done * kStepsPerPage / all));
    });
  }
  return painter.end();
}

/// Pages for the screen. Labels that are too small to be read there are left out.
PagePicture PreviewPicture(const QPrinter& printer, CMapView& view) {
  constexpr double kSmallestReadableScale = 0.3;
  return [tiles = TilesOf(printer, view), look = LookOnPaper(view), &view](int page, double scale) {
    MapLook shown = look;
    if (scale < kSmallestReadableScale) shown.labels = Labels::Hidden;
    return ScaledPicture(*view.Document(), shown, tiles.Tile(page), scale);
  };
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
  const QPrinter& printer = Printer();
  auto* pages = new PaperView(printer.pageLayout(), printer.resolution(), CountPages(printer, view),
                              PreviewPicture(printer, view));
  PrintPreview preview(pages, &view);
  preview.resize(view.window()->size());
  if (preview.exec() == QDialog::Accepted) Print(view);
}

bool MapPrinting::PrintDirect(CMapView& view, const QString& printerName) {
  if (printerName.endsWith(QLatin1String(kPdfSuffix), Qt::CaseInsensitive)) {
    QPrinter file(QPrinter::HighResolution);
    file.setOutputFormat(QPrinter::PdfFormat);
    file.setOutputFileName(printerName);
    return PrintPages(file, view);
  }
  const QPrinterInfo info =
      printerName.isEmpty() ? QPrinterInfo::defaultPrinter() : QPrinterInfo::printerInfo(printerName);
  if (info.isNull()) {
    Refuse(view, printerName.isEmpty() ? "There is no default printer"
                                       : fmt::format("There is no printer {}", printerName.toStdString()));
    return false;
  }
  QPrinter printer(info, QPrinter::HighResolution);
  return PrintPages(printer, view);
}

int MapPrinting::CountPages(const QPrinter& printer, CMapView& view) {
  return TilesOf(printer, view).Count();
}

bool MapPrinting::PrintPages(QPrinter& printer, CMapView& view) {
  const BusyScope busy(&owner_);
  const PageRange pages = ChosenPages(printer, CountPages(printer, view));
  const int count = pages.last - pages.first + 1;
  QProgressDialog dialog(QString(), QObject::tr("Cancel"), 0, kStepsPerPage, &view);
  dialog.setWindowTitle(QObject::tr("Print"));
  dialog.setWindowModality(Qt::WindowModal);
  const auto progress = [&](int page, int step) {
    dialog.setLabelText(QObject::tr("Printing page %1 of %2").arg(page + 1).arg(count));
    dialog.setValue(static_cast<int>((std::int64_t{page} * kStepsPerPage + step) / count));
    return !dialog.wasCanceled();
  };
  const auto paint = [&](QPrinter& paper) {
    const bool painted = PaintPages(paper, view, progress);
    if (dialog.wasCanceled()) paper.abort();
    return painted;
  };
  std::string reason = "The printer does not take it";
  const bool toFile = printer.outputFormat() == QPrinter::PdfFormat;
  const bool printed = toFile ? PrintWholePdf(printer, paint, reason) : paint(printer);
  if (!printed && !dialog.wasCanceled()) Refuse(view, reason);
  return printed;
}

void MapPrinting::Refuse(const CMapView& view, const std::string& reason) {
  prompts_.Message(fmt::format("Cannot print {}:\n{}", view.GetDocument()->GetTitle(), reason),
                   MessageButtons::Ok, MessageIcon::Exclamation);
}

}  // namespace quorvel
