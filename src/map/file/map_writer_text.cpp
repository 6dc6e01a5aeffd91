#include "map/file/map_writer_text.h"

#include <cmath>

#include "data/c_numbers.h"
#include "data/slot.h"

namespace quorvel {
namespace {

/// Calls `visit` with every record of the grid, in ascending order.
template <class Visit>
void ForEachRecord(const CellGrid& grid, Visit visit) {
  for (auto record = grid.Following(-1); record; record = grid.Following(record->index)) visit(*record);
}

}  // namespace

CellLines::CellLines(const MapContents& contents) : cellClass_(contents.m_pCellClass) {
  if (!cellClass_) return;
  cellClass_->LayOut();
  for (const auto& member : cellClass_->Members()) {
    const MemberKind kind = member->GetKind();
    if (kind == MemberKind::Object) continue;
    lines_.push_back(
        {member->GetName() + (kind == MemberKind::String ? "=\"" : "="), kind, member->GetOffset()});
  }
}

void CellLines::Append(std::string& out, const CellRecord& record) const {
  out += "[Objects/Galaxy/Cells/";
  AppendInt(out, record.index);
  out += "]\r\n";
  if (record.data == ClassInstance::None) return;
  const std::byte* block = cellClass_->Block(record.data);
  for (const MemberLine& line : lines_) {
    out += line.start;
    AppendValue(out, line.kind, block + line.offset);
    out += "\r\n";
  }
}

void CellLines::AppendValue(std::string& out, MemberKind kind, const std::byte* slot) const {
  switch (kind) {
    case MemberKind::String:
      out += cellClass_->Texts().Text(LoadSlot<TextHandle>(slot));
      out += '"';
      break;
    case MemberKind::Float: {
      const auto value = LoadSlot<float>(slot);
      AppendFloat(out, value);
      if (!std::isfinite(value)) out += '.';  // without a point the value would be read as an int
      break;
    }
    default:
      AppendInt(out, LoadSlot<std::int32_t>(slot));
  }
}

std::uint64_t MeasureTextCells(const MapContents& contents) {
  const CellLines lines(contents);
  std::uint64_t bytes = 0;
  std::string text;
  ForEachRecord(*contents.m_pGrid, [&](const CellRecord& record) {
    text.clear();
    lines.Append(text, record);
    bytes += text.size();
  });
  return bytes;
}

void WriteTextCells(const MapContents& contents, std::streambuf& out, MapProgress& progress) {
  const CellLines lines(contents);
  const std::int32_t count = contents.m_pGrid->Count();
  std::int32_t written = 0;
  std::string text;
  ForEachRecord(*contents.m_pGrid, [&](const CellRecord& record) {
    text.clear();
    lines.Append(text, record);
    out.sputn(text.data(), static_cast<std::streamsize>(text.size()));
    progress.Step(written++, count);
  });
}

}  // namespace quorvel
