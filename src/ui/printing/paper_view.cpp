#include "ui/printing/paper_view.h"

#include <algorithm>
#include <utility>

#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>

namespace quorvel {
namespace {

/// Around and between the sheets.
constexpr int kGapPx = 16;

}  // namespace

PaperView::PaperView(const QPageLayout& paper, int dotsPerInch, int pageCount, PagePicture picture)
    : paper_(paper), dotsPerInch_(dotsPerInch), pageCount_(pageCount), picture_(std::move(picture)) {
  setAccessibleName(tr("Pages"));
}

void PaperView::SetPages(int count, PagePicture picture) {
  pageCount_ = count;
  picture_ = std::move(picture);
  sheets_.clear();
  ShowPage(0);
}

int PaperView::LastPage() const {
  return std::min(firstPage_ + (showsTwo_ ? 1 : 0), pageCount_ - 1);
}

void PaperView::ShowPage(int first) {
  firstPage_ = std::clamp(first, 0, pageCount_ - 1);
  update();
}

void PaperView::ShowTwo(bool two) {
  showsTwo_ = two;
  sheets_.clear();
  update();
}

void PaperView::Fit(QSize room, double zoom) {
  const QSizeF paper = paper_.fullRectPixels(dotsPerInch_).size();
  const int columns = showsTwo_ ? 2 : 1;
  const double across = (room.width() - (columns + 1) * kGapPx) / (columns * paper.width());
  const double down = (room.height() - 2 * kGapPx) / paper.height();
  const double scale = std::max(std::min(across, down), 0.001) * zoom;
  if (scale != scale_) sheets_.clear();
  scale_ = scale;
  const QSize sheet = SheetSize();
  resize(QSize(columns * (sheet.width() + kGapPx) + kGapPx, sheet.height() + 2 * kGapPx).expandedTo(room));
  update();
}

QSize PaperView::SheetSize() const {
  return (QSizeF(paper_.fullRectPixels(dotsPerInch_).size()) * scale_).toSize();
}

/// Only the sheets in sight are kept, drawn for the screen that they are on.
const QImage& PaperView::Sheet(int page) {
  std::erase_if(sheets_,
                [this](const auto& sheet) { return sheet.first < firstPage_ || sheet.first > LastPage(); });
  QImage& sheet = sheets_[page];
  if (sheet.isNull() || sheet.devicePixelRatio() != devicePixelRatioF()) sheet = Draw(page);
  return sheet;
}

QImage PaperView::Draw(int page) const {
  const double ratio = devicePixelRatioF();
  QImage sheet((QSizeF(SheetSize()) * ratio).toSize(), QImage::Format_RGB32);
  sheet.fill(Qt::white);
  const double scale = scale_ * ratio;
  const QPointF corner = QPointF(paper_.paintRectPixels(dotsPerInch_).topLeft()) * scale;
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  QPainter(&sheet).drawImage(corner.toPoint(), picture_(page, scale));
  QGuiApplication::restoreOverrideCursor();
  sheet.setDevicePixelRatio(ratio);
  return sheet;
}

void PaperView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.fillRect(event->rect(), palette().dark());
  const QSize sheet = SheetSize();
  const int breadth = ShownCount() * (sheet.width() + kGapPx) - kGapPx;
  QPoint place((width() - breadth) / 2, (height() - sheet.height()) / 2);
  for (int page = firstPage_; page <= LastPage(); ++page) {
    const QRect paper(place, sheet);
    painter.fillRect(paper.translated(3, 3), palette().shadow());
    painter.drawImage(paper.topLeft(), Sheet(page));
    place.rx() += sheet.width() + kGapPx;
  }
}

}  // namespace quorvel
