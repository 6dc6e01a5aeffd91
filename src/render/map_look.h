#pragma once

#include <functional>

#include <QRgb>

#include "platform/documents/cell_coord.h"

namespace quorvel {

class MemberDef;
struct CellRecord;

/// Whether a cell that has a record is shown as usual; a cell that is not is faded into the background.
using CellFilter = std::function<bool(const CellRecord&)>;

enum class Labels { Hidden, Shown };
/// What lies under the cells, background and margins. Where it is hidden, as on paper, they lie on white.
enum class Ground { Hidden, Shown };

/// Shown where a cell has no record.
constexpr QRgb kMapBackground = 0xff2b303b;
/// Shown where the outermost cells' slants and the half-cell steps leave the map's edge open, and beyond it.
constexpr QRgb kMapMargin = 0xff000000;
/// Shown in place of both where the ground is hidden.
constexpr QRgb kPaperWhite = 0xffffffff;

/// How a map is to be shown.
struct MapLook {
  float cellSizePx = 100;  ///< height of a cell in map pixels, at least 10
  double pixelRatio = 1;   ///< device pixels a map pixel, at least 1
  /// Index members of the map's cell class, whose colours a cell shows (see SelectIndexMember); null: black.
  const MemberDef* outlineMember = nullptr;
  const MemberDef* fillMember = nullptr;
  Labels labels = Labels::Shown;
  Ground ground = Ground::Shown;
  CellFilter filter;      ///< empty: every cell is shown as usual
  CellCoord currentCell;  ///< has an inverted rim; (-1, -1): no cell has

  QRgb Background() const { return ground == Ground::Shown ? kMapBackground : kPaperWhite; }
  QRgb Margin() const { return ground == Ground::Shown ? kMapMargin : kPaperWhite; }
};

}  // namespace quorvel
