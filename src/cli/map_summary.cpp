#include "cli/map_summary.h"

#include <iterator>
#include <variant>

#include <fmt/format.h>

#include "data/control_escapes.h"
#include "data/index_member.h"
#include "data/member_kinds.h"
#include "map/check/value_facts.h"

namespace quorvel {

namespace {

void PrintRow(Results& out, std::string_view name, std::string_view value) {
  fmt::format_to(std::back_inserter(out.Line()), "{:<12}", name);
  AppendWithEscapes(out.Line(), value);
  out.EndLine();
}

/// The facts in words; empty where there is nothing to say.
struct InWords {
  const MemberDef& member;

  std::string operator()(std::monostate) const {
    const bool isLost = member.GetKind() == MemberKind::Index && !member.GetRefType();
    return isLost ? "without its list" : "";
  }

  template <class Number>
  std::string operator()(const NumberSpan<Number>& span) const {
    return fmt::format("{} to {}", span.least, span.most);
  }

  std::string operator()(const ItemCounts& counts) const {
    const auto& names = static_cast<const IndexMember&>(member).List()->ItemNames();
    std::string text;
    for (const auto& [item, records] : counts)
      text += fmt::format("{}{} {}", text.empty() ? "" : ", ", item ? names[*item] : "<error>", records);
    return text;
  }

  std::string operator()(const TextCounts& counts) const {
    return fmt::format("{} different texts, {} cells without", counts.different, counts.empty);
  }
};

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
    std::string line = fmt::format("{}, {}", member->GetName(), KindName(member->GetKind()));
    const std::string values = grid ? std::visit(InWords{*member}, FactsOf(*member, *grid)) : std::string();
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
  if (contents.m_pGrid)
    PrintGrid(*contents.m_pGrid, CellBlockBytes(contents), out);
  else
    PrintRow(out, "size", "none, the file is refused");
  PrintTypes(*contents.m_pTypes, out);
  if (contents.m_pCellClass) PrintProperties(*contents.m_pCellClass, contents.m_pGrid.get(), out);
}

}  // namespace quorvel
