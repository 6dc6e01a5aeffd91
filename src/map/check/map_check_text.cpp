#include "map/check/map_check_text.h"

#include <fmt/format.h>

#include "data/text_reader.h"

namespace quorvel {

namespace {

/// The next component that is not empty, as branches are found by their path.
std::string_view PopName(std::string_view& path) {
  std::string_view name;
  while (name.empty() && !path.empty()) name = PopPathHead(path);
  return name;
}

}  // namespace

std::optional<CellPlace> PlaceAmongCells(std::string_view path) {
  for (const char* name : {"Objects", "Galaxy", "Cells"}) {
    if (PopName(path) != name) return {};
  }
  const std::string_view cell = PopName(path);
  if (cell.empty()) return {};
  return CellPlace{cell, path};
}

NumberedText::NumberedText(std::streambuf& file, const ProblemSink& report) {
  file.pubseekpos(0, std::ios_base::in);
  TextReader reader(file);
  std::string section;
  for (auto item = reader.Next(); item != TextReader::Item::End; item = reader.Next()) {
    if (item == TextReader::Item::Ignored) {
      report({reader.LineNumber(), "the line is ignored, it is neither a section nor key=value"});
    } else if (item == TextReader::Item::Section) {
      section = reader.Section();
      BeginSection(section, reader.LineNumber(), report);
    } else {
      SetLeaf(section, reader.Key(), reader.Value(), reader.Type(), reader.LineNumber(), report);
    }
  }
  endPosition_ = reader.Position();
}

std::uint64_t NumberedText::LineOf(const DataNode& node) const {
  const auto found = lines_.find(&node);
  return found == lines_.end() ? 0 : found->second;
}

void NumberedText::BeginSection(std::string_view path, std::uint64_t line, const ProblemSink& report) {
  section_ = nullptr;
  if (PlaceAmongCells(path)) return;
  section_ = tree_.GetBranch(path);
  NameBranches(section_, line);
  if (!sections_.insert(section_).second) report({line, fmt::format("section [{}] is given again", path)});
}

void NumberedText::SetLeaf(std::string_view section, std::string_view key, std::string_view value,
                           ValueType type, std::uint64_t line, const ProblemSink& report) {
  if (!section_ || PlaceAmongCells(fmt::format("{}/{}", section, key))) return;
  const DataLeaf* leaf = section_->SetLeaf(key, value, type);
  if (!leaf) {
    report({line, fmt::format("the line is ignored, {} names nothing", key)});
    return;
  }
  NameBranches(leaf->GetParent(), line);
  const auto [known, isNew] = lines_.emplace(leaf, line);
  if (!isNew)
    report({line, fmt::format("{} is given again, the value of line {} is lost", key, known->second)});
  known->second = line;
}

void NumberedText::NameBranches(const DataBranch* branch, std::uint64_t line) {
  while (branch && lines_.emplace(branch, line).second) branch = branch->GetParent();
}

}  // namespace quorvel
