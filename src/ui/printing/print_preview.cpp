#include "ui/printing/print_preview.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <QKeyEvent>
#include <QVBoxLayout>

namespace quorvel {
namespace {

/// How many times as large as the whole sheet in sight.
constexpr double kZooms[] = {1, 2, 4};
constexpr int kLastZoom = static_cast<int>(std::size(kZooms)) - 1;

/// A label of a smaller cell is hard to read.
constexpr double kSmallCellMm = 4;

}  // namespace

PrintPreview::PrintPreview(PaperView* pages, double cellMm, FitToPage fitToPage, QWidget* parent)
    : QDialog(parent),
      pages_(pages),
      area_(new QScrollArea(this)),
      bar_(new QHBoxLayout),
      cellMm_(cellMm),
      fitToPage_(std::move(fitToPage)) {
  setWindowTitle(tr("Print Preview"));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  BuildBar();
  area_->setFrameShape(QFrame::NoFrame);
  area_->setWidget(pages_);
  area_->installEventFilter(this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addLayout(bar_);
  layout->addWidget(area_, 1);
  Refresh();
}

void PrintPreview::BuildBar() {
  bar_->setContentsMargins(6, 6, 6, 6);
  QPushButton* print = AddButton(tr("&Print..."), &PrintPreview::accept);
  print->setDefault(true);
  next_ = AddButton(tr("&Next Page"), &PrintPreview::OnNextPage);
  previous_ = AddButton(tr("Pre&v Page"), &PrintPreview::OnPrevPage);
  two_ = AddButton(tr("&Two Page"), &PrintPreview::OnTwoPage);
  zoomIn_ = AddButton(tr("Zoom &In"), &PrintPreview::OnZoomIn);
  zoomOut_ = AddButton(tr("Zoom &Out"), &PrintPreview::OnZoomOut);
  AddButton(tr("&Close"), &PrintPreview::reject);
  numbers_ = new QLabel(this);
  bar_->addStretch(1);
  bar_->addWidget(numbers_);
  fit_ = AddButton(tr("&Fit to page"), &PrintPreview::OnFitToPage);
}

QPushButton* PrintPreview::AddButton(const QString& text, void (PrintPreview::*run)()) {
  auto* button = new QPushButton(text, this);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, run);
  bar_->addWidget(button);
  return button;
}

void PrintPreview::Step(int direction) {
  pages_->ShowPage(pages_->FirstPage() + direction * (pages_->ShowsTwo() ? 2 : 1));
  Refresh();
}

void PrintPreview::OnTwoPage() {
  pages_->ShowTwo(!pages_->ShowsTwo());
  Refresh();
}

void PrintPreview::OnFitToPage() {
  cellMm_ = fitToPage_();
  isFitted_ = true;
  Refresh();
}

void PrintPreview::OnZoomIn() {
  zoom_ = std::min(zoom_ + 1, kLastZoom);
  Refresh();
}

void PrintPreview::OnZoomOut() {
  zoom_ = std::max(zoom_ - 1, 0);
  Refresh();
}

void PrintPreview::Refresh() {
  const int first = pages_->FirstPage() + 1;
  const int last = pages_->LastPage() + 1;
  const QString shown = first == last ? tr("Page %1").arg(first) : tr("Pages %1-%2").arg(first).arg(last);
  const bool isSmall = cellMm_ < kSmallCellMm;
  numbers_->setText((isSmall ? tr("%1 of %2, only %3 mm a cell") : tr("%1 of %2, %3 mm a cell"))
                        .arg(shown)
                        .arg(pages_->PageCount())
                        .arg(cellMm_, 0, 'g', cellMm_ < 10 ? 2 : 3));
  fit_->setVisible(isSmall && !isFitted_);
  next_->setEnabled(last < pages_->PageCount());
  previous_->setEnabled(first > 1);
  two_->setEnabled(pages_->PageCount() > 1);
  two_->setText(pages_->ShowsTwo() ? tr("One Pa&ge") : tr("&Two Page"));
  zoomIn_->setEnabled(zoom_ < kLastZoom);
  zoomOut_->setEnabled(zoom_ > 0);
  pages_->Fit(area_->maximumViewportSize(), kZooms[zoom_]);
}

void PrintPreview::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_PageDown:
      return OnNextPage();
    case Qt::Key_PageUp:
      return OnPrevPage();
    case Qt::Key_Plus:
      return OnZoomIn();
    case Qt::Key_Minus:
      return OnZoomOut();
    default:
      QDialog::keyPressEvent(event);
  }
}

/// The sheets follow the room that there is for them.
bool PrintPreview::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) Refresh();
  return QDialog::eventFilter(watched, event);
}

}  // namespace quorvel
