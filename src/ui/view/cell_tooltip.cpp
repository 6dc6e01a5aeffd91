#include "ui/view/cell_tooltip.h"

#include <algorithm>

#include <QFontMetrics>
#include <QStringList>

#include "map/grid/cell_metrics.h"
#include "render/cell_figure.h"
#include "render/cell_look.h"
#include "render/label_font.h"

namespace quorvel {
namespace {

/// More lines would cover the map that they explain.
constexpr int kMaxLines = 40;

/// Whether the lines can be read whole inside a cell.
bool Fit(const QStringList& lines, QSize label) {
  const QFontMetrics metrics(LabelFont::At(1).font);
  const auto isNarrow = [&](const QString& line) { return metrics.horizontalAdvance(line) <= label.width(); };
  return lines.size() * kLabelLinePx <= label.height() && std::ranges::all_of(lines, isNarrow);
}

}  // namespace

QString CellTooltip(const MapContents& map, const MapLook& look, CellCoord cell) {
  if (!map.m_pGrid || !map.m_pGrid->IsValid(cell)) return {};
  const QStringList lines = CellLook::Of(map, {}, cell).label;
  const CellMetrics metrics = CellMetrics::At(look.cellSizePx);
  const bool isDrawn = !CellLook::Of(map, look, cell).label.isEmpty();
  if (isDrawn && Fit(lines, CellFigure::Of(cell, metrics, PixelScale{}).label.size())) return {};
  QStringList shown = lines.mid(0, kMaxLines);
  if (shown.size() < lines.size()) shown << QStringLiteral("...");
  return shown.join(u'\n');
}

}  // namespace quorvel
