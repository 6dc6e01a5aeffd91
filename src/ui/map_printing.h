#pragma once

#include <memory>

#include <QPrinter>
#include <QString>

namespace quorvel {

class CMapView;

/// Prints what map views show, at their cell size, a map pixel as a pixel of the printer. Keeps the printer
/// and the paper that were chosen last.
class MapPrinting {
 public:
  /// Print Setup.
  void ChoosePage(QWidget* parent);
  /// Asks for the printer and the pages, then prints.
  void Print(CMapView& view);
  /// Print Preview.
  void Preview(CMapView& view);
  /// Prints everything without a question, on the default printer when no name is given. False: there is no
  /// such printer, or it refused.
  bool PrintDirect(CMapView& view, const QString& printerName);

  /// How many pages the view's map takes on this printer's paper.
  static int CountPages(const QPrinter& printer, CMapView& view);
  /// Prints the pages that the printer is set to. False: the printer refused.
  static bool PrintPages(QPrinter& printer, CMapView& view);

 private:
  QPrinter& Printer();

  std::unique_ptr<QPrinter>
      printer_;  // made when first needed: asking the system for printers takes its time
};

}  // namespace quorvel
