#include "render/cell_look.h"

#include <string>
#include <string_view>

#include "map/grid/cell_label.h"
#include "map/types/cell_marks.h"
#include "render/colour_members.h"
#include "render/display_text.h"

namespace quorvel {
namespace {

/// A quarter of the colour stays: enough to tell cells apart, little enough to step back.
QRgb Faded(QRgb colour, QRgb background) {
  const auto mix = [](int own, int ground) { return (own + 3 * ground) / 4; };
  return qRgb(mix(qRed(colour), qRed(background)), mix(qGreen(colour), qGreen(background)),
              mix(qBlue(colour), qBlue(background)));
}

/// Laying out a text takes time by its length; of a longer line no more could be seen.
constexpr int kMaxLineCharacters = 256;

}  // namespace

CellColours CellColours::Of(const MapLook& look, const CellRecord& record) {
  const QRgb pen = MappedColour(look.outlineMember, record);
  const QRgb fill = look.fillMember == look.outlineMember ? pen : MappedColour(look.fillMember, record);
  if (!look.filter || look.filter(record)) return {pen, fill, false};
  return {Faded(pen, look.Background()), Faded(fill, look.Background()), true};
}

QStringList LabelLines(const MemberDef& member, const CellRecord& record) {
  std::string bytes;
  FormatCellLabel(bytes, &member, &record);
  std::string_view value = bytes;
  QString initial;
  if (!bytes.empty() &&
      !member.GetName().empty()) {  // a label begins with a byte of the name, not a character
    initial = DisplayText(member.GetName()).left(1);
    value.remove_prefix(1);
  }
  QStringList lines;
  for (const QString& line : (initial + DisplayText(value)).split(u'\n'))
    lines.push_back(line.left(kMaxLineCharacters));
  return lines;
}

CellLook CellLook::Of(const MapContents& map, const MapLook& look, CellCoord cell) {
  CellLook result;
  result.isMarked = (IsMarked(map, cell) & 1) != 0;
  result.isCurrent = cell == look.currentCell;
  const auto record = map.m_pGrid->Find(map.m_pGrid->IndexOf(cell));
  if (!record) return result;

  result.hasRecord = true;
  result.colours = CellColours::Of(look, *record);
  if (look.labels == Labels::Hidden || result.colours.isFaded || !map.m_pCellClass) return result;
  for (const auto& member : map.m_pCellClass->Members()) {
    for (QString& line : LabelLines(*member, *record)) result.label.push_back(std::move(line));
  }
  return result;
}

}  // namespace quorvel
