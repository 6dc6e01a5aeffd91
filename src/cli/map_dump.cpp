#include "cli/map_dump.h"

#include "cli/dump_words.h"
#include "data/slot.h"
#include "data/string_member.h"

namespace quorvel {

namespace {

void AppendValue(std::string& line, const MemberDef& member, ClassInstance instance) {
  const void* slot = member.GetValuePtr(instance);
  switch (member.GetKind()) {
    case MemberKind::String:
      AppendHexText(line, static_cast<const StringMember&>(member).Text(slot));
      break;
    case MemberKind::Float:
      AppendFloatBits(line, LoadSlot<float>(slot));
      break;
    case MemberKind::Int:
    case MemberKind::Index:
      AppendDecimal(line, LoadSlot<std::int32_t>(slot));
      break;
    case MemberKind::Object:
      line += '-';
      break;
  }
}

void DumpRecord(const CellRecord& record, const ClassDef& cellClass, Results& out) {
  std::string& line = out.Line();
  line += "record ";
  AppendDecimal(line, record.index);
  for (const auto& member : cellClass.Members()) {
    line += ' ';
    AppendValue(line, *member, record.data);
  }
  out.EndLine();
}

void DumpSide(std::string_view name, const CellGrid* grid, int cells, Results& out) {
  out.Line() += name;
  if (grid)
    AppendDecimal(out.Line(), cells);
  else
    out.Line() += "none";
  out.EndLine();
}

}  // namespace

void DumpMap(const MapContents& contents, Results& out) {
  const CellGrid* grid = contents.m_pGrid.get();
  out.Line().append("form ").append(NameOf(FormOf(contents)));
  out.EndLine();
  DumpSide("width ", grid, grid ? grid->Width() : 0, out);
  DumpSide("height ", grid, grid ? grid->Height() : 0, out);
  if (!grid || !contents.m_pCellClass) return;
  for (auto record = grid->Following(-1); record && !out.Failed(); record = grid->Following(record->index))
    DumpRecord(*record, *contents.m_pCellClass, out);
}

}  // namespace quorvel
