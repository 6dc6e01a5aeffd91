#include "map/file/map_reader.h"

#include <algorithm>
#include <new>
#include <sstream>
#include <utility>

#include "data/text_reader.h"
#include "map/file/map_file_layout.h"
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

/// What the definitions leave for the reading of the cells.
struct MapStart {
  DataBranch tree{std::string_view()};    ///< all of the text but streamed cells; its root has no name
  std::optional<std::int32_t> firstCell;  ///< the cell whose section the reader stands behind, when streaming
  MapContents contents;
  std::string errorText;
};

FileForm ReadForm(const DataBranch& tree) {
  const DataLeaf* type = tree.FindLeaf(kDataTypePath);
  return type ? FileFormOf(DataTypeFromName(type->GetValue())) : FileForm::Text;
}

/// Whether the cells from the reader's section on may be made without the tree, going by what it holds so
/// far.
bool CanStream(MapStart& start) {
  const DataBranch* cells = start.tree.GetBranch(kCellsPath);  // the reader's section would make it too
  if (cells->GetFirstBranch() || ReadForm(start.tree) != FileForm::Text) return false;
  const MapSize size = ReadTextSize(start.tree, start.contents.m_pMapClass);
  std::string refusal;
  return CellBlockBytes(start.contents) > 0 && CheckMap(start.contents, size.width, size.height, refusal);
}

/// Goes on from the section of the first cell without streaming.
void ReadCellsIntoTree(TextReader& reader, MapStart& start) {
  start.firstCell.reset();
  ReadTree(reader, start.tree, start.tree.GetBranch(reader.Section()),
           [](std::string_view) { return SectionUse::Take; });
  start.contents = MapContents();
  start.errorText.clear();
  BuildTypes(start.tree, start.contents, start.errorText);
}

/// Reads the tree, up to the cells where they can be streamed, and builds the types.
void ReadDefinitions(TextReader& reader, Road road, Feedback& feedback, MapStart& start) {
  const WaitCursor wait(feedback);
  const StatusMessage message(feedback, "Loading file definitions...");
  ReadTree(reader, start.tree, &start.tree, [&](std::string_view section) {
    if (road == Road::Streamed) start.firstCell = PlainCellIndex(section);
    return start.firstCell ? SectionUse::Stop : SectionUse::Take;
  });
  BuildTypes(start.tree, start.contents, start.errorText);
  if (start.firstCell && !CanStream(start)) ReadCellsIntoTree(reader, start);
}

void DropGrid(MapContents& contents) {
  contents.m_pGrid.reset();
  contents.m_pCellMarks.reset();
}

/// False: the road does not lead through.
bool LoadText(TextReader& reader, std::uint64_t fileBytes, MapStart& start, MapProgress& progress) {
  MapContents& contents = start.contents;
  const MapSize size = ReadTextSize(start.tree, contents.m_pMapClass);
  if (!CheckMap(contents, size.width, size.height, start.errorText)) return true;
  MakeGrid(contents, size.width, size.height);
  TextCells cells(contents, fileBytes, start.errorText);
  if (start.firstCell)
    return StreamCells(reader, *start.firstCell, cells, contents, progress) && !cells.IsRefused();
  LoadTreeCells(start.tree, cells, contents, progress);
  if (cells.IsRefused()) DropGrid(contents);
  return true;
}

/// Makes the grid and its cells. False: the road does not lead through.
bool LoadMap(std::streambuf& file, TextReader& reader, std::uint64_t fileBytes, Feedback& feedback,
             MapStart& start) {
  MapProgress progress(feedback, "Loading map...");
  const FileForm form = ReadForm(start.tree);
  start.contents.m_nDataType = DataTypeOf(form);
  if (!start.contents.m_pCellClass) return true;  // refused; the error text says so already
  if (form == FileForm::Text) return LoadText(reader, fileBytes, start, progress);
  if (!LoadBlocks(file, fileBytes, start.tree, start.contents, progress, start.errorText))
    DropGrid(start.contents);
  return true;
}

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
  if (!CheckFileSize(FileForm::Text, fileBytes, errorText)) return MapContents();
  TextReader reader(file);
  MapStart start;
  ReadDefinitions(reader, road, feedback, start);
  if (!LoadMap(file, reader, fileBytes, feedback, start)) return std::nullopt;
  errorText += start.errorText;
  return std::move(start.contents);
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
