#include "ui/printing/print_run.h"

#include "map/types/map_contents.h"
#include "render/map_extent.h"
#include "render/paper_painter.h"

namespace quorvel {

PageTiles TilesOf(const QPrinter& printer, const PrintedMap& printed) {
  return {MapExtent(*printed.map->m_pGrid, printed.look.cellSizePx),
          printer.pageLayout().paintRectPixels(printer.resolution()).size()};
}

bool PrintRun::Print(const PrintedMap& printed, PageRange pages, const PageProgress& progress) {
  const PageTiles tiles = TilesOf(printer_, printed);
  for (int page = pages.first; page <= pages.last; ++page) {
    const int number = page - pages.first;
    if (!progress(number, 0) || !BeginPage()) return false;
    PaintOnPaper(painter_, *printed.map, printed.look, tiles.Tile(page),
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
