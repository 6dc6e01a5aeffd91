#include "ui/view/map_picture.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "map/grid/cell_metrics.h"

namespace quorvel {
namespace {

/// Above this many stale rectangles, or this share of all cells, one whole repaint is the cheaper one.
constexpr std::size_t kMaxStaleRects = 512;
constexpr int kMaxTouchedShare = 4;

/// Moves the pixels that stay in sight. Rows are walked against the move, so that none is overwritten before
/// it moved.
void ShiftPixels(QImage& image, int dx, int dy) {
  const int width = image.width() - std::abs(dx);
  const int height = image.height() - std::abs(dy);
  const qsizetype stride = image.bytesPerLine();
  constexpr int kPixelBytes = 4;
  uchar* const bits = image.bits();
  const qsizetype from = std::max(0, -dx) * kPixelBytes;
  const qsizetype to = std::max(0, dx) * kPixelBytes;
  for (int step = 0; step < height; ++step) {
    const int row = dy > 0 ? height - 1 - step : step;
    const qsizetype source = row + std::max(0, -dy);
    const qsizetype target = row + std::max(0, dy);
    std::memmove(bits + target * stride + to, bits + source * stride + from,
                 static_cast<std::size_t>(width) * kPixelBytes);
  }
}

}  // namespace

void MapPicture::Resize(QSize size) {
  if (image_.size() == size) return;
  image_ = QImage(size, QImage::Format_RGB32);
  ForgetTouches();
  stale_.assign(1, image_.rect());
}

void MapPicture::ScrollTo(std::int64_t originX, std::int64_t originY) {
  const std::int64_t dx = originX_ - originX;
  const std::int64_t dy = originY_ - originY;
  if (dx == 0 && dy == 0) return;
  TakeTouchedCells();
  isVisibleKnown_ = false;
  originX_ = originX;
  originY_ = originY;
  if (std::abs(dx) >= image_.width() || std::abs(dy) >= image_.height()) {
    stale_.assign(1, image_.rect());
    return;
  }
  ShiftPixels(image_, static_cast<int>(dx), static_cast<int>(dy));
  ShiftStale(static_cast<int>(dx), static_cast<int>(dy));
}

void MapPicture::ShiftStale(int dx, int dy) {
  for (QRect& rect : stale_) rect.translate(dx, dy);
  const QRect all = image_.rect();
  AddStale(dx > 0 ? QRect(0, 0, dx, all.height()) : QRect(all.width() + dx, 0, -dx, all.height()));
  AddStale(dy > 0 ? QRect(0, 0, all.width(), dy) : QRect(0, all.height() + dy, all.width(), -dy));
}

void MapPicture::Reset(const MapLook& look) {
  look_ = look;
  painter_.ForgetLabels();
  ForgetTouches();
  stale_.assign(1, image_.rect());
}

void MapPicture::ForgetTouches() {
  isVisibleKnown_ = false;
  touchedCount_ = 0;
}

bool MapPicture::Touch(CellCoord cell) {
  if (!isVisibleKnown_) FindVisibleCells();
  const auto [first, last] = visible_;
  if (cell.column < first.column || cell.column > last.column || cell.row < first.row ||
      cell.row > last.row) {
    return false;
  }
  const auto place =
      static_cast<std::size_t>((cell.row - first.row) * visibleColumns_ + cell.column - first.column);
  std::uint64_t& word = touched_[place / 64];
  const std::uint64_t bit = std::uint64_t{1} << (place % 64);
  if ((word & bit) != 0) return false;
  word |= bit;
  ++touchedCount_;
  return true;
}

void MapPicture::MoveCurrentCell(CellCoord cell) {
  Touch(look_.currentCell);
  look_.currentCell = cell;
  Touch(cell);
}

void MapPicture::FindVisibleCells() {
  const CellMetrics metrics = CellMetrics::At(look_.cellSizePx);
  const auto mapPx = [this](std::int64_t devicePx) {
    return static_cast<std::int64_t>(std::floor(static_cast<double>(devicePx) / look_.pixelRatio));
  };
  // One cell more on each side than the bounds say, for ink beyond them and the half-cell step of odd
  // columns.
  const auto cellAt = [](std::int64_t px, int step, int more) {
    return static_cast<std::int32_t>(std::max<std::int64_t>(0, px / step + more));
  };
  visible_.first = {cellAt(mapPx(originX_), metrics.columnStep, -2),
                    cellAt(mapPx(originY_), metrics.height, -2)};
  visible_.last = {cellAt(mapPx(originX_ + image_.width()), metrics.columnStep, 1),
                   cellAt(mapPx(originY_ + image_.height()), metrics.height, 1)};
  visibleColumns_ = visible_.last.column - visible_.first.column + 1;
  const int rows = visible_.last.row - visible_.first.row + 1;
  touched_.assign(static_cast<std::size_t>(visibleColumns_) * static_cast<std::size_t>(rows) / 64 + 1, 0);
  touchedCount_ = 0;
  isVisibleKnown_ = true;
}

/// Turns the bits into rectangles, one for each run of neighbours in a row.
void MapPicture::TakeTouchedCells() {
  if (touchedCount_ == 0) return;
  const auto cells = static_cast<int>(touched_.size() * 64);
  if (touchedCount_ > cells / kMaxTouchedShare) {
    stale_.assign(1, image_.rect());
  } else {
    const auto isTouched = [this](int place) {
      return (touched_[static_cast<std::size_t>(place) / 64] >> (place % 64) & 1) != 0;
    };
    const auto cellOf = [this](int place) {
      return CellCoord{visible_.first.column + place % visibleColumns_,
                       visible_.first.row + place / visibleColumns_};
    };
    for (int place = 0; place < cells; ++place) {
      if (touched_[static_cast<std::size_t>(place) / 64] == 0) {
        place |= 63;
        continue;
      }
      if (!isTouched(place)) continue;
      int last = place;
      while ((last + 1) % visibleColumns_ != 0 && isTouched(last + 1)) ++last;
      AddStale(InkOf(cellOf(place), cellOf(last)));
      place = last;
    }
  }
  std::ranges::fill(touched_, 0);
  touchedCount_ = 0;
}

QRect MapPicture::InkOf(CellCoord first, CellCoord last) const {
  const auto inPicture = [this](const MapRect& ink) {
    return QRect(QPoint(static_cast<int>(ink.left - originX_), static_cast<int>(ink.top - originY_)),
                 QSize(static_cast<int>(ink.Width()), static_cast<int>(ink.Height())));
  };
  QRect ink = inPicture(CellInk(look_, first));
  if (last == first) return ink;
  // The columns between lie higher or lower by half a cell.
  ink |= inPicture(CellInk(look_, {first.column + 1, first.row}));
  return ink | inPicture(CellInk(look_, last));
}

void MapPicture::AddStale(const QRect& rect) {
  const QRect inside = rect & image_.rect();
  if (inside.isEmpty()) return;
  if (stale_.size() >= kMaxStaleRects) {
    stale_.assign(1, image_.rect());
  } else {
    stale_.push_back(inside);
  }
}

std::vector<QRect> MapPicture::Refresh(const MapContents& map) {
  TakeTouchedCells();
  std::vector<QRect> drawn;
  drawn.swap(stale_);
  for (const QRect& rect : drawn) painter_.Paint(map, look_, image_, originX_, originY_, rect);
  return drawn;
}

}  // namespace quorvel
