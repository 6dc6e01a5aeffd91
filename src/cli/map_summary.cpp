#include "cli/map_summary.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include <fmt/format.h>

#include "data/control_escapes.h"
#include "data/index_member.h"
#include "data/slot.h"
#include "data/string_member.h"

namespace quorvel {

namespace {

constexpr std::string_view kMemberKinds[] = {"string", "int", "float", "index", "object"};

void PrintRow(Results& out, std::string_view name, std::string_view value) {
  fmt::format_to(std::back_inserter(out.Line()), "{:<12}", name);
  AppendWithEscapes(out.Line(), value);
  out.EndLine();
}

/// Smallest and largest number of the records; empty without records.
template <class Number>
std::string Span(const std::vector<const void*>& slots) {
  if (slots.empty()) return {};
  Number least = LoadSlot<Number>(slots.front()), most = least;
  for (const void* slot : slots) {
    least = std::min(least, LoadSlot<Number>(slot));
    most = std::max(most, LoadSlot<Number>(slot));
  }
  return fmt::format("{} to {}", least, most);
}

/// How many records hold each item of the list, most frequent first.
std::string ItemCounts(const IndexMember& member, const std::vector<const void*>& slots) {
  if (member.List() == nullptr) return "without its list";
  const auto& names = member.List()->ItemNames();
  std::vector<std::pair<std::size_t, std::size_t>> counts(names.size() +
                                                          1);  // last: positions outside the list
  for (std::size_t item = 0; item < counts.size(); ++item) counts[item].second = item;
  for (const void* slot : slots)
    ++counts[std::min<std::size_t>(LoadSlot<std::uint32_t>(slot), names.size())].first;
  std::stable_sort(counts.begin(), counts.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  std::string text;
  for (const auto& [count, item] : counts) {
    if (count == 0) break;
    text += fmt::format("{}{} {}", text.empty() ? "" : ", ", item < names.size() ? names[item] : "<error>",
                        count);
  }
  return text;
}

std::string TextCounts(const StringMember& member, const std::vector<const void*>& slots) {
  std::vector<std::string_view> texts;
  texts.reserve(slots.size());
  for (const void* slot : slots) texts.push_back(member.Text(slot));
  const auto empty = std::count(texts.begin(), texts.end(), std::string_view());
  std::sort(texts.begin(), texts.end());
  const auto different = std::unique(texts.begin(), texts.end()) - texts.begin();
  return fmt::format("{} different texts, {} cells without", different, empty);
}

std::string Values(const MemberDef& member, const std::vector<const void*>& slots) {
  switch (member.GetKind()) {
    case MemberKind::String:
      return TextCounts(static_cast<const StringMember&>(member), slots);
    case MemberKind::Int:
      return Span<std::int32_t>(slots);
    case MemberKind::Float:
      return Span<float>(slots);
    case MemberKind::Index:
      return ItemCounts(static_cast<const IndexMember&>(member), slots);
    case MemberKind::Object:
      break;
  }
  return {};
}

std::vector<const void*> Slots(const MemberDef& member, const CellGrid& grid) {
  std::vector<const void*> slots;
  if (member.GetKind() == MemberKind::Object) return slots;
  slots.reserve(static_cast<std::size_t>(grid.Count()));
  for (auto record = grid.Following(-1); record; record = grid.Following(record->index))
    slots.push_back(member.GetValuePtr(record->data));
  return slots;
}

void PrintTypes(const TypeList& types, Results& out) {
  for (const auto& type : types.Types()) {
    const std::string size =
        type->GetKind() == TypeKind::Class
            ? fmt::format("class of {} members", static_cast<const ClassDef&>(*type).Members().size())
            : fmt::format("list of {} items", static_cast<const ListDef&>(*type).CountItems());
    PrintRow(out, "type", type->GetName() + ", " + size);
  }
}

void PrintProperties(const ClassDef& cellClass, const CellGrid* grid, Results& out) {
  for (const auto& member : cellClass.Members()) {
    std::string line =
        fmt::format("{}, {}", member->GetName(), kMemberKinds[static_cast<std::size_t>(member->GetKind())]);
    const std::string values = grid != nullptr ? Values(*member, Slots(*member, *grid)) : std::string();
    if (!values.empty()) line += ": " + values;
    PrintRow(out, "property", line);
  }
}

void PrintGrid(const CellGrid& grid, std::uint64_t blockBytes, Results& out) {
  PrintRow(out, "size", fmt::format("{} x {}, {} cells", grid.Width(), grid.Height(), grid.CellCount()));
  PrintRow(out, "records",
           fmt::format("{}, values of {} bytes each, {} bytes in all", grid.Count(), blockBytes,
                       blockBytes * static_cast<std::uint64_t>(grid.Count())));
}

}  // namespace

void PrintSummary(const MapContents& contents, Results& out) {
  PrintRow(out, "form", NameOf(FormOf(contents)));
  if (contents.m_pGrid != nullptr)
    PrintGrid(*contents.m_pGrid, CellBlockBytes(contents), out);
  else
    PrintRow(out, "size", "none, the file is refused");
  PrintTypes(*contents.m_pTypes, out);
  if (contents.m_pCellClass != nullptr) PrintProperties(*contents.m_pCellClass, contents.m_pGrid.get(), out);
}

}  // namespace quorvel
