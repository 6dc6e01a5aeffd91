#include "render/picture_sheets.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <QPainter>
#include <fmt/format.h>

#include "map/types/map_contents.h"
#include "render/label_font.h"
#include "render/painted_rows.h"
#include "render/paper_painter.h"

namespace quorvel {
namespace {

constexpr double kMarginMm = 10;
constexpr double kDotsPerMm = kPdfDotsPerInch / kMmPerInch;

/// Marks lie in the margin, between these distances from what is drawn.
constexpr double kMarkBeginMm = 1;
constexpr double kMarkEndMm = 6;
constexpr double kNameMm = 3;

double Dots(double mm) {
  return mm * kDotsPerMm;
}

/// Where a sheet ends, and where its neighbours on either side do.
std::vector<double> CutsAlong(double lengthMm, bool hasBefore, bool hasAfter) {
  std::vector<double> cuts = {0, lengthMm};
  if (hasBefore) cuts.push_back(kSheetOverlapMm);
  if (hasAfter) cuts.push_back(lengthMm - kSheetOverlapMm);
  return cuts;
}

/// The drawing of one sheet; the painter's origin is the left top of what is drawn on it.
class SheetDrawing {
 public:
  SheetDrawing(QPainter& painter, const SheetLayout& layout, std::int64_t sheet)
      : painter_(painter), layout_(layout), sheet_(sheet), part_(layout.Part(sheet)) {}

  void DrawMarks();
  void DrawName();
  void DrawMap(const MapContents& map, const MapLook& look, const RowsDone& done);

 private:
  QSizeF SizeMm() const { return part_.size() * layout_.MmPerPx(); }

  QPainter& painter_;
  const SheetLayout& layout_;
  std::int64_t sheet_;
  QRectF part_;  // map pixels
};

void SheetDrawing::DrawMarks() {
  painter_.setPen(QPen(Qt::black, Dots(0.1)));
  const auto line = [this](double x, double y, double dx, double dy) {
    painter_.drawLine(QPointF(Dots(x + kMarkBeginMm * dx), Dots(y + kMarkBeginMm * dy)),
                      QPointF(Dots(x + kMarkEndMm * dx), Dots(y + kMarkEndMm * dy)));
  };
  const QSizeF size = SizeMm();
  const std::int64_t column = sheet_ % layout_.Columns();
  const std::int64_t row = sheet_ / layout_.Columns();
  for (const double x : CutsAlong(size.width(), column > 0, column + 1 < layout_.Columns())) {
    line(x, 0, 0, -1);
    line(x, size.height(), 0, 1);
  }
  for (const double y : CutsAlong(size.height(), row > 0, row + 1 < layout_.Rows())) {
    line(0, y, -1, 0);
    line(size.width(), y, 1, 0);
  }
}

void SheetDrawing::DrawName() {
  QFont font = LabelFont::At(1).font;
  font.setPixelSize(static_cast<int>(Dots(kNameMm)));
  painter_.setFont(font);
  painter_.setPen(Qt::black);
  painter_.drawText(QPointF(Dots(kSheetOverlapMm + kMarkBeginMm), Dots(SizeMm().height() + kMarkEndMm)),
                    QString::fromStdString(layout_.Name(sheet_)));
}

void SheetDrawing::DrawMap(const MapContents& map, const MapLook& look, const RowsDone& done) {
  PaintPartOnPaper(painter_, map, look, part_, Dots(layout_.MmPerPx()), done);
}

}  // namespace

PictureSheets::PictureSheets(const PicturePlan& plan, QSizeF sheetMm, const SheetSize& size)
    : sheetMm_(sheetMm),
      layout_(plan.part, plan.look.cellSizePx, {sheetMm - QSizeF(2 * kMarginMm, 2 * kMarginMm)}, size,
              kMmPerInch / kPdfDotsPerInch) {}

/// Of upright and across the one with larger cells, else the one with fewer sheets.
std::optional<PictureSheets> PictureSheets::For(const PicturePlan& plan, const PaperRequest& paper,
                                                std::string& errorText) {
  PictureSheets sheets(plan, paper.sheetMm, paper.size);
  if (paper.mayTurn) {
    const PictureSheets turned(plan, paper.sheetMm.transposed(), paper.size);
    const auto worth = [](const PictureSheets& choice) {
      return std::pair(choice.layout_.MmPerPx(), -choice.layout_.Count());
    };
    if (worth(turned) > worth(sheets)) sheets = turned;
  }
  if (sheets.layout_.Count() <= kMaxSheets) return sheets;
  errorText += fmt::format("The map would take {} sheets of paper; the limit is {}.\n",
                           sheets.layout_.Count(), kMaxSheets);
  return std::nullopt;
}

bool PictureSheets::Draw(QPdfWriter& writer, const MapContents& map, const PicturePlan& plan,
                         PictureProgress& progress) const {
  QPainter painter(&writer);
  const std::int64_t count = layout_.Count();
  for (std::int64_t sheet = 0; sheet < count; ++sheet) {
    if (sheet > 0 && !writer.newPage()) return false;
    painter.save();
    painter.translate(Dots(kMarginMm), Dots(kMarginMm));
    SheetDrawing drawing(painter, layout_, sheet);
    if (count > 1) {
      drawing.DrawMarks();
      drawing.DrawName();
    }
    drawing.DrawMap(map, plan.look, [&](std::int64_t done, std::int64_t all) {
      progress.Report(sheet * all + done, count * all);
    });
    painter.restore();
  }
  return painter.end();
}

}  // namespace quorvel
