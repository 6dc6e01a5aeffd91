#include "map/file/map_writer.h"

#include "map/file/map_file_layout.h"
#include "map/file/map_progress.h"
#include "map/file/map_writer_binary.h"
#include "map/file/map_writer_text.h"
#include "map/file/map_writer_tree.h"
#include "map/types/map_limits.h"

namespace quorvel {
namespace {

void MeasureTextFile(const MapContents& contents, MapFilePlan& plan) {
  plan.treeBytes = plan.tree->TextSize();
  plan.fileBytes = plan.treeBytes + MeasureTextCells(contents);
}

void MeasureBinaryFile(const MapContents& contents, MapFilePlan& plan) {
  const BlockOffsets offsets = SettleOffsets(*plan.tree, MeasureDataBlock(contents));
  plan.treeBytes = plan.tree->TextSize();
  plan.fileBytes = offsets.text + MeasureTextBlock(contents, kMaxBinaryFileBytes);
}

/// Cells that have values after the file was loaded.
std::uint64_t CountLoadedCells(const CellGrid& grid, FileForm form) {
  return static_cast<std::uint64_t>(form == FileForm::Binary ? grid.CellCount() : grid.Count());
}

}  // namespace

std::optional<MapFilePlan> PlanMapFile(const MapContents& contents, FileForm form, std::string_view title,
                                       std::string& errorText) {
  if (!contents.m_pGrid) {
    errorText += "There is no map to save.\n";
    return std::nullopt;
  }
  if (!contents.m_pCellClass) {
    errorText += "A map without the class \"Cell\" could not be opened again.\n";
    return std::nullopt;
  }
  MapFilePlan plan;
  plan.form = form;
  plan.tree = BuildFileTree(contents, form, title);
  if (form == FileForm::Binary) {
    MeasureBinaryFile(contents, plan);
  } else {
    MeasureTextFile(contents, plan);
  }
  if (!CheckFileSize(form, plan.fileBytes, errorText) ||
      !CheckLoadedCells(form, CountLoadedCells(*contents.m_pGrid, form), CellBlockBytes(contents),
                        plan.fileBytes, errorText)) {
    return std::nullopt;
  }
  return plan;
}

std::optional<MapFilePlan> PlanMapFile(const MapContents& contents, std::string_view title,
                                       std::string& errorText) {
  return PlanMapFile(contents, FormOf(contents), title, errorText);
}

void SaveMap(const MapFilePlan& plan, const MapContents& contents, std::streambuf& out, Feedback& feedback) {
  const WaitCursor wait(feedback);
  MapProgress progress(feedback, "Saving map...");
  plan.tree->WriteText(&out);
  if (plan.form != FileForm::Binary) return WriteTextCells(contents, out, progress);

  constexpr char kPadding[kBlockAlignment] = {};
  out.sputn(kPadding, static_cast<std::streamsize>(PaddedTextBytes(plan.treeBytes) - plan.treeBytes));
  WriteBlocks(contents, out, progress);
}

}  // namespace quorvel
