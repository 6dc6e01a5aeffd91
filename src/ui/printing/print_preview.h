#pragma once

#include <functional>

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

#include "ui/printing/paper_view.h"

namespace quorvel {

/// Lays the map on one page, which the view of the pages then shows. Answers millimetres a cell.
using FitToPage = std::function<double()>;

/// Print Preview: the pages as they will be printed, one or two at a time, how many there are and how large a
/// cell comes; where it comes small, it can be fitted to a page. Closes accepted when the user wants to
/// print.
class PrintPreview : public QDialog {
  Q_OBJECT
 public:
  /// Takes the view of the pages.
  PrintPreview(PaperView* pages, double cellMm, FitToPage fitToPage, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildBar();
  QPushButton* AddButton(const QString& text, void (PrintPreview::*run)());
  void Step(int direction);
  void OnNextPage() { Step(1); }
  void OnPrevPage() { Step(-1); }
  void OnTwoPage();
  void OnFitToPage();
  void OnZoomIn();
  void OnZoomOut();
  /// Brings buttons and page numbers up to date.
  void Refresh();

  PaperView* pages_;
  QScrollArea* area_;
  QHBoxLayout* bar_;
  QLabel* numbers_ = nullptr;
  QPushButton* next_ = nullptr;
  QPushButton* previous_ = nullptr;
  QPushButton* two_ = nullptr;
  QPushButton* zoomIn_ = nullptr;
  QPushButton* zoomOut_ = nullptr;
  QPushButton* fit_ = nullptr;
  double cellMm_;
  FitToPage fitToPage_;
  bool isFitted_ = false;
  int zoom_ = 0;  // step
};

}  // namespace quorvel
