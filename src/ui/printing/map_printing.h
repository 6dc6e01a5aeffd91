#pragma once

#include <memory>
#include <string>

#include <QPrinter>
#include <QString>

namespace quorvel {

class CMapView;
class DocumentOwner;
class Prompts;

/// Prints what map views show, at their cell size, a map pixel as a pixel of the printer. Keeps the printer
/// and the paper that were chosen last. What cannot be printed is told to the user.
class MapPrinting {
 public:
  /// Both outlive it. The owner is kept busy while pages are printed.
  MapPrinting(Prompts& prompts, DocumentOwner& owner) : prompts_(prompts), owner_(owner) {}

  /// Print Setup.
  void ChoosePage(QWidget* parent);
  /// Asks for the printer and the pages, then prints.
  void Print(CMapView& view);
  /// Print Preview, which leads to Print.
  void Preview(CMapView& view);

  /// How many pages the view's map takes on this printer's paper.
  static int CountPages(const QPrinter& printer, CMapView& view);
  /// Prints the pages that the printer is set to. Shows how far it is, and stops when the user says so.
  /// False: not all were printed.
  bool PrintPages(QPrinter& printer, CMapView& view);

 private:
  QPrinter& Printer();
  void Refuse(const CMapView& view, const std::string& reason);

  Prompts& prompts_;
  DocumentOwner& owner_;
  // Made when first needed: asking the system for printers takes its time.
  std::unique_ptr<QPrinter> printer_;
};

}  // namespace quorvel
