#include "render/paper_painter.h"

#include <algorithm>

#include <QFontMetrics>
#include <QImage>
#include <QPainter>

#include "map/types/cell_marks.h"
#include "map/types/map_contents.h"
#include "render/map_painter.h"
#include "render/plain_painter.h"
#include "render/scaled_picture.h"
#include "render/sheet_layout.h"
#include "render/visible_cells.h"

namespace quorvel {
namespace {

constexpr PixelScale kPaperScale{1};

using AfterRow = std::function<void(std::int64_t done, std::int64_t all)>;

/// Some 350 bytes each.
constexpr std::int64_t kMaxDrawnPieces = 500'000;
constexpr std::int64_t kBandBytes = 16'000'000;

/// Letters without accents stay between ascent and descent.
bool IsPlain(const QString& line) {
  return std::all_of(line.begin(), line.end(), [](QChar character) { return character.unicode() < 0x80; });
}

/// The drawing of one part.
class Sheet {
 public:
  Sheet(QPainter& painter, const MapContents& map, const MapLook& look, const MapRect& part)
      : painter_(painter),
        map_(map),
        look_(look),
        part_(part),
        metrics_(CellMetrics::At(look.cellSizePx)),
        cells_(VisibleCells(*map.m_pGrid, metrics_, kPaperScale, part)),
        textWidths_(plain_.Font().font) {
    look_.pixelRatio = kPaperScale.ratio;
  }

  bool IsTooMuchToDraw() const { return CountPieces() > kMaxDrawnPieces; }
  void DrawAsPixels(const AfterRow& afterRow);
  void DrawGround();
  void DrawCells(const AfterRow& afterRow);
  void DrawInvertedCells();

 private:
  std::int64_t CountPieces() const;
  template <class Draw>
  void ForEachCell(Draw draw);
  void DrawCell(CellCoord cell);
  void DrawLabel(const QRect& label, const QStringList& lines);
  void DrawInverted(CellCoord cell);
  QPoint CornerOf(CellCoord cell) const;
  QRect OnPaper(const MapRect& rect) const;

  QPainter& painter_;
  const MapContents& map_;
  MapLook look_;
  MapRect part_;
  CellMetrics metrics_;
  CellSpan cells_;
  PlainPainter plain_{kPaperScale};
  QFontMetrics textWidths_;
  MapPainter pixels_;
};

template <class Draw>
void Sheet::ForEachCell(Draw draw) {
  for (std::int32_t row = cells_.firstRow; row <= cells_.lastRow; ++row) {
    for (std::int32_t column = cells_.firstColumn; column <= cells_.lastColumn; ++column)
      draw(CellCoord{column, row});
  }
}

QPoint Sheet::CornerOf(CellCoord cell) const {
  const CellCorner corner = CellCorner::Of(cell, metrics_, kPaperScale);
  return {static_cast<int>(corner.x - part_.left), static_cast<int>(corner.y - part_.top)};
}

QRect Sheet::OnPaper(const MapRect& rect) const {
  return {static_cast<int>(rect.left - part_.left), static_cast<int>(rect.top - part_.top),
          static_cast<int>(rect.Width()), static_cast<int>(rect.Height())};
}

/// Hexagons and texts, if every cell has a record.
std::int64_t Sheet::CountPieces() const {
  const bool hasTexts = look_.labels == Labels::Shown && map_.m_pCellClass;
  const std::int64_t texts = hasTexts ? static_cast<std::int64_t>(map_.m_pCellClass->Members().size()) : 0;
  return std::int64_t{cells_.lastColumn - cells_.firstColumn + 1} * (cells_.lastRow - cells_.firstRow + 1) *
         (1 + texts);
}

/// In bands that go to the paper as they come; no finer than the paper's own pixels.
void Sheet::DrawAsPixels(const AfterRow& afterRow) {
  const double scale = std::min(1.0, painter_.transform().m11());
  const auto bandPx = static_cast<double>(part_.Width()) * sizeof(QRgb) * scale * scale;
  const auto bandRows =
      std::clamp<std::int64_t>(static_cast<std::int64_t>(kBandBytes / bandPx), 1, part_.Height());
  for (std::int64_t top = part_.top; top < part_.bottom; top += bandRows) {
    const std::int64_t rows = std::min(bandRows, part_.bottom - top);
    const QRectF place(0, static_cast<double>(top - part_.top), static_cast<double>(part_.Width()),
                       static_cast<double>(rows));
    painter_.drawImage(place, ScaledPicture(map_, look_, {part_.left, top, part_.right, top + rows}, scale));
    if (afterRow) afterRow(top + rows - part_.top, part_.Height());
  }
}

void Sheet::DrawGround() {
  painter_.fillRect(OnPaper(part_), QColor(look_.Background()));
  for (const MapRect& margin : Margins(*map_.m_pGrid, metrics_, kPaperScale, part_)) {
    if (!margin.IsEmpty()) painter_.fillRect(OnPaper(margin), QColor(look_.Margin()));
  }
}

void Sheet::DrawCells(const AfterRow& afterRow) {
  ForEachCell([this, &afterRow](CellCoord cell) {
    DrawCell(cell);
    if (afterRow && cell.column == cells_.lastColumn)
      afterRow(cell.row - cells_.firstRow + 1, cells_.lastRow - cells_.firstRow + 1);
  });
}

void Sheet::DrawCell(CellCoord cell) {
  const CellLook look = CellLook::Of(map_, look_, cell);
  if (!look.hasRecord) return;
  const CellFigure figure = CellFigure::Of(cell, metrics_, kPaperScale);
  plain_.DrawBody(painter_, CornerOf(cell), figure, look.colours);
  DrawLabel(figure.label.translated(CornerOf(cell)), look.label);
}

/// Clipping takes more room in a file than the text itself, so only what might not fit is clipped.
void Sheet::DrawLabel(const QRect& label, const QStringList& lines) {
  const LabelFont& font = plain_.Font();
  painter_.setFont(font.font);
  painter_.setPen(Qt::black);
  QRect strip(label.topLeft(), QSize(label.width(), font.lineHeight));
  for (const QString& line : lines) {
    if (strip.top() > label.bottom()) return;
    const bool fits =
        label.contains(strip) && IsPlain(line) && textWidths_.horizontalAdvance(line) <= label.width();
    if (!fits) {
      painter_.save();
      painter_.setClipRect(strip & label, Qt::IntersectClip);
    }
    if (!line.isEmpty()) painter_.drawText(strip.topLeft() + QPoint(0, font.ascent), line);
    if (!fits) painter_.restore();
    strip.translate(0, font.lineHeight);
  }
}

void Sheet::DrawInvertedCells() {
  ForEachCell([this](CellCoord cell) {
    if ((IsMarked(map_, cell) & 1) != 0 || cell == look_.currentCell) DrawInverted(cell);
  });
}

/// What a window with this ground shows in the cell's inverted pixels, and nothing beside them.
void Sheet::DrawInverted(CellCoord cell) {
  const CellFigure figure = CellFigure::Of(cell, metrics_, kPaperScale);
  QImage mask = cell == look_.currentCell ? plain_.RimMask(figure) : plain_.MarkMask(figure);
  if ((IsMarked(map_, cell) & 1) != 0 && cell == look_.currentCell)
    QPainter(&mask).drawImage(0, 0, plain_.MarkMask(figure));

  const QPoint place = CornerOf(cell) - QPoint(plain_.MaskMargin(), plain_.MaskMargin());
  QImage shown(mask.size(), QImage::Format_RGB32);
  pixels_.Paint(map_, look_, shown, part_.left + place.x(), part_.top + place.y(), shown.rect());
  QPainter cut(&mask);
  cut.setCompositionMode(QPainter::CompositionMode_SourceIn);
  cut.drawImage(0, 0, shown);
  cut.end();
  painter_.drawImage(place, mask);
}

}  // namespace

void PaintOnPaper(QPainter& painter, const MapContents& map, const MapLook& look, const MapRect& part,
                  const AfterRow& afterRow) {
  if (!map.m_pGrid || part.IsEmpty()) return;
  painter.save();
  painter.setRenderHint(QPainter::LosslessImageRendering);
  painter.setClipRect(QRect(0, 0, static_cast<int>(part.Width()), static_cast<int>(part.Height())),
                      Qt::IntersectClip);
  Sheet sheet(painter, map, look, part);
  if (sheet.IsTooMuchToDraw()) {
    sheet.DrawAsPixels(afterRow);
  } else {
    if (look.ground == Ground::Shown) sheet.DrawGround();
    sheet.DrawCells(afterRow);
    sheet.DrawInvertedCells();
  }
  painter.restore();
}

void PaintPartOnPaper(QPainter& painter, const MapContents& map, const MapLook& look, const QRectF& part,
                      double scale, const AfterRow& afterRow) {
  const MapRect around = PixelsAround(part);
  painter.save();
  painter.scale(scale, scale);
  painter.setClipRect(QRectF(QPointF(0, 0), part.size()), Qt::IntersectClip);
  painter.translate(static_cast<double>(around.left) - part.left(),
                    static_cast<double>(around.top) - part.top());
  PaintOnPaper(painter, map, look, around, afterRow);
  painter.restore();
}

}  // namespace quorvel
