#include "map/file/map_reader.h"

#include <algorithm>
#include <new>
#include <sstream>
#include <utility>

#include "data/text_reader.h"
#include "map/file/map_progress.h"
#include "map/file/map_reader_binary.h"
#include "map/file/map_reader_stream.h"
#include "map/file/map_reader_text.h"
#include "map/file/whole_input.h"
#include "map/types/definitions.h"
#include "map/types/map_limits.h"

namespace quorvel {
namespace {

std::uint64_t SizeOf(std::streambuf& file) {
  const auto end = file.pubseekoff(0, std::ios_base::end, std::ios_base::in);
  file.pubseekpos(0, std::ios_base::in);
  return static_cast<std::uint64_t>(std::max<std::streamoff>(end, 0));
}

enum class UpTo { FirstCell, End };

/// One reading of a map by one road: first its definitions, then its cells.
class MapReading {
 public:
  MapReading(std::streambuf& file, std::uint64_t fileBytes, Road road, Feedback& feedback)
      : file_(file), fileBytes_(fileBytes), reader_(file), road_(road), feedback_(feedback), tree_({}) {}

  /// Reads the tree, up to the cells where they can be streamed, and builds the types.
  void LoadDefinitions() {
    const WaitCursor wait(feedback_);
    feedback_.SetMessageText("Loading file definitions...");
    ReadTree(tree_, road_ == Road::Streamed ? UpTo::FirstCell : UpTo::End);
    BuildTypes(tree_, contents_, errorText_);
    if (firstCell_ && !CanStream()) {
      firstCell_.reset();
      ReadTree(*tree_.GetBranch(reader_.Section()), UpTo::End);
      contents_ = MapContents();
      errorText_.clear();
      BuildTypes(tree_, contents_, errorText_);
    }
    feedback_.SetMessageText({});
  }

  /// Makes the grid and its cells. False: the road does not lead through.
  bool LoadMap() {
    MapProgress progress(feedback_, "Loading map...");
    contents_.m_nDataType = ReadDataType();
    if (contents_.m_pCellClass == nullptr) return true;  // refused; the error text says so already
    if (contents_.m_nDataType == kTextForm) return LoadText(progress);
    if (!LoadBlocks(file_, fileBytes_, tree_, contents_, progress, errorText_)) DropGrid();
    return true;
  }

  MapContents TakeContents(std::string& errorText) {
    errorText += errorText_;
    return std::move(contents_);
  }

 private:
  void ReadTree(DataBranch& firstSection, UpTo upTo) {
    DataBranch* section = &firstSection;
    for (auto item = reader_.Next(); item != TextReader::Item::End; item = reader_.Next()) {
      if (item == TextReader::Item::Value) section->SetLeaf(reader_.Key(), reader_.Value(), reader_.Type());
      if (item != TextReader::Item::Section) continue;
      if (upTo == UpTo::FirstCell && (firstCell_ = PlainCellIndex(reader_.Section()))) return;
      section = tree_.GetBranch(reader_.Section());
    }
  }

  int ReadDataType() const {
    const DataLeaf* type = tree_.FindLeaf("Version/Data/type");
    return type == nullptr ? kTextForm : DataTypeFromName(type->GetValue());
  }

  /// Whether the cells from the reader's section on may be made without the tree, going by what it holds so
  /// far.
  bool CanStream() {
    const DataBranch* cells = tree_.GetBranch(kCellsPath);  // the reader's section would make it too
    if (cells->GetFirstBranch() != nullptr || ReadDataType() != kTextForm) return false;
    const MapSize size = ReadTextSize(tree_, contents_.m_pMapClass);
    std::string refusal;
    return CellBlockBytes(contents_) > 0 && CheckMap(contents_, size.width, size.height, refusal);
  }

  bool LoadText(MapProgress& progress) {
    const MapSize size = ReadTextSize(tree_, contents_.m_pMapClass);
    if (!CheckMap(contents_, size.width, size.height, errorText_)) return true;
    MakeGrid(contents_, size.width, size.height);
    TextCells cells(contents_, fileBytes_, errorText_);
    if (firstCell_)
      return StreamCells(reader_, *firstCell_, cells, contents_, progress) && !cells.IsRefused();
    LoadTreeCells(tree_, cells, contents_, progress);
    if (cells.IsRefused()) DropGrid();
    return true;
  }

  void DropGrid() {
    contents_.m_pGrid.reset();
    contents_.m_pCellMarks.reset();
  }

  std::streambuf& file_;
  const std::uint64_t fileBytes_;
  TextReader reader_;
  const Road road_;
  Feedback& feedback_;
  DataBranch tree_;  ///< all of the text but streamed cells; its root has no name
  std::optional<std::int32_t>
      firstCell_;  ///< the cell whose section the reader stands behind, when streaming
  MapContents contents_;
  std::string errorText_;
};

bool CanSeek(std::streambuf& file) {
  return file.pubseekoff(0, std::ios_base::end, std::ios_base::in) != std::streambuf::pos_type(-1);
}

MapContents ReadBestRoad(std::streambuf& file, Feedback& feedback, std::string& errorText) {
  std::optional<MapContents> contents = ReadMap(file, Road::Streamed, feedback, errorText);
  if (!contents) contents = ReadMap(file, Road::Tree, feedback, errorText);
  return std::move(contents).value_or(MapContents());
}

MapContents ReadAnyInput(std::streambuf& file, Feedback& feedback, std::string& errorText) {
  if (CanSeek(file)) return ReadBestRoad(file, feedback, errorText);
  std::stringbuf inMemory(ReadWholeInput(file), std::ios_base::in);
  return ReadBestRoad(inMemory, feedback, errorText);
}

}  // namespace

std::optional<MapContents> ReadMap(std::streambuf& file, Road road, Feedback& feedback,
                                   std::string& errorText) {
  const std::uint64_t fileBytes = SizeOf(file);
  if (!CheckFileSize(kTextForm, fileBytes, errorText)) return MapContents();
  MapReading reading(file, fileBytes, road, feedback);
  reading.LoadDefinitions();
  if (!reading.LoadMap()) return std::nullopt;
  return reading.TakeContents(errorText);
}

Outcome LoadMapFile(std::streambuf& file, MapContents& contents, Feedback& feedback,
                    std::string& errorText) try {
  contents = ReadAnyInput(file, feedback, errorText);
  return contents.m_pGrid ? Outcome::Done : Outcome::Refused;
} catch (const std::bad_alloc&) {
  errorText += "There is not enough memory to open the map.\n";
  return Outcome::NoMemory;
}

}  // namespace quorvel
