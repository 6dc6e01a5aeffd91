#pragma once

#include <QRgb>
#include <QStringList>

#include "map/types/map_contents.h"
#include "render/map_look.h"

namespace quorvel {

/// The colours of a cell that has a record. A cell that the filter fails is faded into the background
/// and bears no label.
struct CellColours {
  QRgb pen = 0xff000000;
  QRgb fill = 0xff000000;
  bool isFaded = false;

  static CellColours Of(const MapLook& look, const CellRecord& record);
};

/// The lines that one member adds to a cell's label: mostly one, more where the value holds line feeds.
QStringList LabelLines(const MemberDef& member, const CellRecord& record);

/// All that one cell shows.
struct CellLook {
  bool hasRecord = false;  ///< without one there is neither area, outline nor label
  CellColours colours;
  QStringList label;
  bool isMarked = false;
  bool isCurrent = false;

  static CellLook Of(const MapContents& map, const MapLook& look, CellCoord cell);
};

}  // namespace quorvel
