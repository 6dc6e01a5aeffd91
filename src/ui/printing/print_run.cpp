#include "ui/printing/print_run.h"

#include <algorithm>
#include <limits>

#include "map/types/map_contents.h"
#include "render/map_extent.h"
#include "render/paper_painter.h"

namespace quorvel {

SheetLayout LayoutOf(const QPrinter& printer, const PrintedMap& printed) {
  const double mmPerDot = kMmPerInch / printer.resolution();
  const QSizeF room(printer.pageLayout().paintRectPixels(printer.resolution()).size());
  return {MapExtent(*printed.map->m_pGrid, printed.look.cellSizePx),
          printed.look.cellSizePx,
          {room * mmPerDot, 0},
          printed.size,
          mmPerDot};
}

int CountPages(const SheetLayout& layout) {
  return static_cast<int>(std::min<std::int64_t>(layout.Count(), std::numeric_limits<int>::max()));
}

double DotsPerPx(const QPrinter& printer, const SheetLayout& layout) {
  return layout.MmPerPx() * printer.resolution() / kMmPerInch;
}

bool PrintRun::Print(const PrintedMap& printed, PageRange pages, const PageProgress& progress) {
  const SheetLayout layout = LayoutOf(printer_, printed);
  for (int page = pages.first; page <= pages.last; ++page) {
    const int number = page - pages.first;
    if (!progress(number, 0) || !BeginPage()) return false;
    PaintPartOnPaper(painter_, *printed.map, printed.look, layout.Part(page), DotsPerPx(printer_, layout),
                     [&](std::int64_t done, std::int64_t all) {
                       progress(number, static_cast<int>(done * kStepsPerPage / all));
                     });
  }
  return true;
}

bool PrintRun::BeginPage() {
  return HasPages() ? printer_.newPage() : painter_.begin(&printer_);
}

}  // namespace quorvel
