#pragma once

#include <functional>

#include <QPainter>
#include <QPrinter>

#include "render/map_look.h"
#include "render/sheet_layout.h"

namespace quorvel {

struct MapContents;

/// A map with a grid, and how it looks on paper.
struct PrintedMap {
  const MapContents* map;
  MapLook look;
  SheetSize size = {};  ///< neither: a map pixel as a pixel of the printer
};

/// Pages from 0, both included.
struct PageRange {
  int first, last;
};

/// Told the page, from 0 in its range, and how much of it is done, in steps of kStepsPerPage. False: stop.
using PageProgress = std::function<bool(int page, int step)>;
constexpr int kStepsPerPage = 100;

/// The pages of a map. Laid side by side they are the whole map; a cell on a cut is continued on the next
/// one.
SheetLayout LayoutOf(const QPrinter& printer, const PrintedMap& printed);
/// How many they are; no more than an int holds.
int CountPages(const SheetLayout& layout);
/// Pixels of the printer a map pixel.
double DotsPerPx(const QPrinter& printer, const SheetLayout& layout);

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
