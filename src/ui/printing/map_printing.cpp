#include "ui/printing/map_printing.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QProgressDialog>
#include <fmt/format.h>

#include "map/document/vastrel_doc.h"
#include "map/grid/cell_metrics.h"
#include "platform/documents/busy_scope.h"
#include "render/display_text.h"
#include "render/scaled_picture.h"
#include "ui/printing/print_preview.h"
#include "ui/printing/print_run.h"
#include "ui/printing/print_size_page.h"
#include "ui/printing/whole_pdf.h"
#include "ui/view/map_view.h"

namespace quorvel {
namespace {

/// What the view shows, the cells alone: the paper is the ground. None: it shows no map.
std::optional<PrintedMap> PrintedMapOf(CMapView& view, const PrintChoice& choice) {
  const CVastrelDoc* document = view.Document();
  if (!document || !document->m_pGrid) return std::nullopt;
  PrintedMap printed = {document, view.Look(), choice.size};
  printed.look.ground = Ground::Hidden;
  printed.look.labels = choice.labels;
  return printed;
}

PageRange ChosenPages(const QPrinter& printer, int count) {
  if (printer.printRange() != QPrinter::PageRange || printer.fromPage() == 0) return {0, count - 1};
  const int first = std::clamp(printer.fromPage(), 1, count);
  return {first - 1, std::clamp(printer.toPage(), first, count) - 1};
}

/// False: the printer refused, or the work was stopped.
bool PaintPages(QPrinter& printer, const std::optional<PrintedMap>& printed, const PageProgress& progress) {
  if (!printed) return false;
  PrintRun run(printer);
  const PageRange pages = ChosenPages(printer, CountPages(LayoutOf(printer, *printed)));
  return run.Print(*printed, pages, progress) && run.Finish();
}

/// Lets the view show the pages. Answers millimetres a cell.
double ShowPages(PaperView& pages, const QPrinter& printer, const PrintedMap& printed) {
  const SheetLayout layout = LayoutOf(printer, printed);
  pages.SetPages(CountPages(layout),
                 [layout, printed, dotsPerPx = DotsPerPx(printer, layout)](int page, double scale) {
                   const double shown = scale * dotsPerPx;
                   return ScaledPicture(*printed.map, ReadableLook(printed.look, shown),
                                        PixelsAround(layout.Part(page)), shown);
                 });
  return layout.MmPerPx() * CellMetrics::At(printed.look.cellSizePx).height;
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
  PrintSizePage size(choice_);
  QPrintDialog dialog(&printer, &view);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  dialog.setOptionTabs({&size});
  const auto follow = [&] {
    choice_ = size.Choice();
    dialog.setMinMax(1, CountPages(printer, view));
  };
  QObject::connect(&size, &PrintSizePage::ChoiceChanged, &dialog, follow);
  follow();
  if (dialog.exec() == QDialog::Accepted) PrintPages(printer, view);
}

void MapPrinting::Preview(CMapView& view) {
  const QPrinter& printer = Printer();
  auto printed = PrintedMapOf(view, choice_);
  if (!printed) return;
  auto* pages = new PaperView(printer.pageLayout(), printer.resolution(), 1, {});
  const double cellMm = ShowPages(*pages, printer, *printed);
  const auto fitToPage = [&] {
    choice_.size = printed->size = {0, {1, 1}};
    return ShowPages(*pages, printer, *printed);
  };
  PrintPreview preview(pages, cellMm, fitToPage, &view);
  preview.resize(view.window()->size());
  if (preview.exec() == QDialog::Accepted) Print(view);
}

int MapPrinting::CountPages(const QPrinter& printer, CMapView& view) const {
  const auto printed = PrintedMapOf(view, choice_);
  return printed ? quorvel::CountPages(LayoutOf(printer, *printed)) : 1;
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
    const bool painted = PaintPages(paper, PrintedMapOf(view, choice_), progress);
    if (dialog.wasCanceled()) paper.abort();
    return painted;
  };
  printer.setDocName(DisplayText(view.GetDocument()->GetTitle()));
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
