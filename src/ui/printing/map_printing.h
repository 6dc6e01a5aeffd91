#pragma once

#include <memory>
#include <string>

#include <QPrinter>
#include <QString>

#include "ui/printing/print_choice.h"

namespace quorvel {

class CMapView;
class DocumentOwner;
class Prompts;

/// Prints what map views show, at their cell size: a map pixel as a pixel of the printer, unless another size
/// was chosen. Keeps the printer, the paper and the size that were chosen last. What cannot be printed is
/// told to the user.
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

  /// How large the map comes, from now on.
  void SetChoice(const PrintChoice& choice) { choice_ = choice; }
  /// How many pages the view's map takes on this printer's paper.
  int CountPages(const QPrinter& printer, CMapView& view) const;
  /// Prints the pages that the printer is set to. Shows how far it is, and stops when the user says so.
  /// False: not all were printed.
  bool PrintPages(QPrinter& printer, CMapView& view);

 private:
  QPrinter& Printer();
  void Refuse(const CMapView& view, const std::string& reason);

  Prompts& prompts_;
  DocumentOwner& owner_;
  PrintChoice choice_;
  // Made when first needed: asking the system for printers takes its time.
  std::unique_ptr<QPrinter> printer_;
};

}  // namespace quorvel
