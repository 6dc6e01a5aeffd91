#pragma once

#include <optional>
#include <string>

#include <QPdfWriter>

#include "render/picture_plan.h"

namespace quorvel {

/// A map laid on the sheets of a PDF.
class PictureSheets {
 public:
  /// None: there would be too many sheets; a line of the error text says so.
  static std::optional<PictureSheets> For(const PicturePlan& plan, const PaperRequest& paper,
                                          std::string& errorText);

  QSizeF SheetMm() const { return sheetMm_; }
  /// Draws all sheets on a writer whose pages have that size and no margins. False: it refused.
  bool Draw(QPdfWriter& writer, const MapContents& map, const PicturePlan& plan,
            PictureProgress& progress) const;

 private:
  PictureSheets(const PicturePlan& plan, QSizeF sheetMm, const SheetSize& size);

  QSizeF sheetMm_;
  SheetLayout layout_;
};

}  // namespace quorvel
