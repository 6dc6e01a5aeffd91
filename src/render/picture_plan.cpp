#include "render/picture_plan.h"

#include <algorithm>

#include <fmt/format.h>

#include "map/types/map_contents.h"
#include "render/colour_members.h"

namespace quorvel {
namespace {

std::optional<MapRect> PartOf(const CellGrid& grid, const PictureRequest& request, std::string& errorText) {
  if (!request.cells) return MapExtent(grid, request.cellSizePx);
  const auto part = CellsExtent(grid, request.cellSizePx, *request.cells);
  if (!part) {
    const auto& [first, last] = *request.cells;
    errorText += fmt::format("The cells {}:{} to {}:{} are not all on the map of {} columns and {} rows.\n",
                             first.column, first.row, last.column, last.row, grid.Width(), grid.Height());
  }
  return part;
}

MapLook LookOf(const MapContents& map, const PictureRequest& request, const PictureKind& kind) {
  std::string outlineMember = request.outlineMember;
  std::string fillMember = request.fillMember;
  MapLook look;
  look.cellSizePx = request.cellSizePx;
  look.outlineMember = SelectIndexMember(map.m_pCellClass, outlineMember, 0);
  look.fillMember = SelectIndexMember(map.m_pCellClass, fillMember, 0);
  look.labels = request.labels;
  look.ground = request.ground.value_or(kind.usualGround);
  look.filter = request.filter;
  return look;
}

}  // namespace

std::optional<PicturePlan> PicturePlan::For(const MapContents& map, const PictureRequest& request,
                                            const PictureKind& kind, std::string& errorText) {
  if (map.m_pGrid == nullptr) {
    errorText += "There is no map to draw.\n";
    return std::nullopt;
  }
  const auto part = PartOf(*map.m_pGrid, request, errorText);
  if (!part) return std::nullopt;
  if (std::max(part->Width(), part->Height()) > kind.maxSidePx) {
    errorText += fmt::format("The picture would be {} by {} pixels; the limit is {} a side.\n", part->Width(),
                             part->Height(), kind.maxSidePx);
    return std::nullopt;
  }
  return PicturePlan{LookOf(map, request, kind), *part};
}

}  // namespace quorvel
