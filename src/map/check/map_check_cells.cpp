#include "map/check/map_check_cells.h"

#include <unordered_map>
#include <vector>

#include <fmt/format.h>

#include "data/c_numbers.h"
#include "data/text_reader.h"
#include "map/check/map_check_text.h"
#include "map/check/map_check_values.h"

namespace quorvel {

namespace {

std::string CellName(CellCoord cell, const CellGrid& grid) {
  return fmt::format("cell {}({}:{})", grid.IndexOf(cell), cell.column, cell.row);
}

/// The lines of a file that are about cells, one after the other.
class CellLines {
 public:
  CellLines(const MapContents& contents, const ProblemSink& report)
      : grid_(*contents.m_pGrid), named_(static_cast<std::size_t>(grid_.CellCount())), report_(report) {
    for (const auto& member : contents.m_pCellClass->Members())
      members_.emplace(member->GetName(), member.get());
  }

  void Read(TextReader& reader) {
    for (auto item = reader.Next(); item != TextReader::Item::End; item = reader.Next()) {
      line_ = reader.LineNumber();
      if (item == TextReader::Item::Section)
        BeginSection(reader.Section());
      else if (item == TextReader::Item::Value)
        ReadValue(reader.Key(), reader.Value());
    }
  }

 private:
  void Report(std::string problem) { report_({line_, std::move(problem)}); }

  void BeginSection(std::string_view path) {
    section_ = path;
    const auto place = PlaceAmongCells(section_);
    inCell_ = place && place->rest.empty();
    if (!place) return;
    BeginCell(place->cell);
    if (!inCell_) Report(fmt::format("section [{}] lies below a cell and is ignored", path));
  }

  void ReadValue(std::string_view key, std::string_view value) {
    if (inCell_ && key.find_first_of("/\\") == key.npos) {
      CheckLeaf(key, value);
      return;
    }
    const std::string path = fmt::format("{}/{}", section_, key);
    const auto place = PlaceAmongCells(path);
    if (!place) return;
    if (place->rest.empty()) {
      Report(fmt::format("leaf {} among the cells is ignored", key));
    } else if (!inCell_ && place->cell != cellName_) {
      BeginCell(place->cell);
    }
    if (place->rest.find_first_of("/\\") != key.npos)
      Report(fmt::format("leaf {} lies below a cell and is ignored", key));
    else if (!place->rest.empty())
      CheckLeaf(place->rest, value);
  }

  void BeginCell(std::string_view name) {
    cellName_ = name;
    const std::int32_t index = ToInt(name);
    cell_ = grid_.CoordOf(index);
    if (FormatInt(index) != name) Report(fmt::format("cell name {} is read as {}", name, index));
    if (!grid_.IsValid(cell_)) {
      Report(fmt::format("cell {} is outside the grid of {}x{} and is ignored", name, grid_.Width(),
                         grid_.Height()));
      return;
    }
    if (named_[static_cast<std::size_t>(index)]) Report(CellName(cell_, grid_) + " is named again");
    named_[static_cast<std::size_t>(index)] = true;
  }

  void CheckLeaf(std::string_view name, std::string_view value) {
    if (!grid_.IsValid(cell_)) return;
    const auto member = members_.find(name);
    if (member == members_.end()) {
      Report(fmt::format("{}: no member is named {}", CellName(cell_, grid_), name));
    } else if (const auto problem = ValueTextProblem(*member->second, value)) {
      Report(fmt::format("{}: {}", CellName(cell_, grid_), *problem));
    }
  }

  const CellGrid& grid_;
  std::vector<bool> named_;  ///< by cell index
  std::unordered_map<std::string_view, const MemberDef*> members_;
  const ProblemSink& report_;
  std::uint64_t line_ = 0;
  std::string section_, cellName_;
  bool inCell_ = false;  ///< the section is a cell's own
  CellCoord cell_;       ///< the cell named last
};

}  // namespace

void CheckTextCells(std::streambuf& file, const MapContents& contents, const ProblemSink& report) {
  file.pubseekpos(0, std::ios_base::in);
  TextReader reader(file);
  CellLines(contents, report).Read(reader);
}

void CheckRecords(const MapContents& contents, const ProblemSink& report) {
  const CellGrid& grid = *contents.m_pGrid;
  for (auto record = grid.Following(-1); record; record = grid.Following(record->index)) {
    for (const auto& member : contents.m_pCellClass->Members()) {
      if (const auto problem = ValueProblem(*member, member->GetValuePtr(record->data)))
        report({0, fmt::format("{}: {}", CellName({record->column, record->row}, grid), *problem)});
    }
  }
}

}  // namespace quorvel
