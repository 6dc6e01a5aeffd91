#pragma once

#include <functional>

#include <QPainter>
#include <QPrinter>

#include "render/map_look.h"
#include "ui/printing/page_tiles.h"

namespace quorvel {

struct MapContents;

/// A map with a grid, and how it looks on paper.
struct PrintedMap {
  const MapContents* map;
  MapLook look;
};

/// Pages from 0, both included.
struct PageRange {
  int first, last;
};

/// Told the page, from 0 in its range, and how much of it is done, in steps of kStepsPerPage. False: stop.
using PageProgress = std::function<bool(int page, int step)>;
constexpr int kStepsPerPage = 100;

/// The pages of a map, a map pixel as a pixel of the printer.
PageTiles TilesOf(const QPrinter& printer, const PrintedMap& printed);

/// One job for a printer: pages of one map or of several, each map beginning on a page of its own.
class PrintRun {
 public:
  /// Nothing goes to the printer before the first page.
  explicit PrintRun(QPrinter& printer) : printer_(printer) {}

  /// False: the printer refused, or the work was stopped.
  bool Print(const PrintedMap& printed, PageRange pages, const PageProgress& progress);
  bool HasPages() const { return painter_.isActive(); }
  /// Ends the job. False: the printer did not take it, or there was no page.
  bool Finish() { return HasPages() && painter_.end(); }

 private:
  bool BeginPage();

  QPrinter& printer_;
  QPainter painter_;
};

}  // namespace quorvel
