#include "map/file/map_reader_text.h"

#include "data/c_numbers.h"
#include "map/file/map_file_layout.h"
#include "map/types/map_limits.h"
#include "map/types/map_size_limits.h"

namespace quorvel {
namespace {

std::int32_t IntLeaf(const DataBranch& branch, std::string_view name) {
  const DataLeaf* leaf = branch.FindLeaf(name);
  return leaf ? ToInt(leaf->GetValue()) : 0;
}

}  // namespace

MapSize ReadTextSize(const DataBranch& tree, const ClassDef* mapClass) {
  if (const DataBranch* galaxy = tree.FindBranch(kGalaxyPath)) {
    return {IntLeaf(*galaxy, "Width"), IntLeaf(*galaxy, "Height")};
  }
  MapSizeLimits limits;
  GetMapSizeLimits(mapClass, limits);
  return {limits.defaultWidth.value_or(0), limits.defaultHeight.value_or(0)};
}

TextCells::TextCells(MapContents& contents, std::uint64_t fileBytes, std::string& errorText)
    : contents_(contents),
      fileBytes_(fileBytes),
      blockBytes_(CellBlockBytes(contents)),
      maxCells_(MaxLoadedCells(FileForm::Text, blockBytes_, fileBytes)),
      errorText_(errorText) {}

std::optional<CellRecord> TextCells::Make(std::int32_t index) {
  if (refused_ || !contents_.m_pGrid->IsValid(index)) return std::nullopt;
  const std::uint64_t cells = contents_.m_pCellClass->CountInstances();
  if (cells >= maxCells_) {
    refused_ = !CheckLoadedCells(FileForm::Text, cells + 1, blockBytes_, fileBytes_, errorText_);
    return std::nullopt;
  }
  return CreateCell(contents_, contents_.m_pGrid->CoordOf(index));
}

void ReadCellValueText(const MemberDef& member, ClassInstance instance, const DataBranch& cell) {
  if (const DataLeaf* leaf = cell.FindLeaf(member.GetName())) {
    member.StoreText(member.GetValuePtr(instance), leaf->GetValue());
  } else {
    member.SetValue(instance, nullptr);
  }
}

void LoadTreeCells(const DataBranch& tree, TextCells& cells, const MapContents& contents,
                   MapProgress& progress) {
  const DataBranch* branches = tree.FindBranch(kCellsPath);
  if (!branches) return;
  const DataBranch* cell = branches->GetFirstBranch();
  for (; cell && !cells.IsRefused(); cell = cell->GetNextBranch()) {
    const std::optional<CellRecord> record = cells.Make(ToInt(cell->GetName()));
    if (!record) continue;
    for (const auto& member : contents.m_pCellClass->Members())
      ReadCellValueText(*member, record->data, *cell);
    progress.Step(record->index, contents.m_pGrid->CellCount());
  }
}

}  // namespace quorvel
