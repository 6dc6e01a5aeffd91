#include "map/document/journal_records.h"

#include <algorithm>
#include <cstddef>
#include <memory>

#include <fmt/format.h>

#include "data/slot.h"
#include "data/string_member.h"
#include "platform/files/little_endian.h"

namespace quorvel {
namespace {

enum class Sort : std::uint8_t { None = 0, Head = 1, RecordedCells = 2, Value = 3 };

std::string StartRecord(Sort sort) {
  return std::string(1, static_cast<char>(sort));
}

void PutText(std::string& to, std::string_view text) {
  PutLittleEndian(to, static_cast<std::uint32_t>(text.size()));
  to += text;
}

/// Takes the fields of a record from its front. Once one is missing, all are.
class Fields {
 public:
  explicit Fields(std::string_view record) : rest_(record) {}

  bool IsWhole() const { return whole_; }
  std::string_view Rest() const { return rest_; }

  std::string_view Bytes(std::size_t count) {
    whole_ = whole_ && count <= rest_.size();
    if (!whole_) return {};
    const std::string_view bytes = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return bytes;
  }
  std::uint32_t Number() {
    const std::string_view bytes = Bytes(sizeof(std::uint32_t));
    return whole_ ? GetLittleEndian<std::uint32_t>(bytes.data()) : 0;
  }
  Sort TakeSort() {
    const std::string_view byte = Bytes(1);
    return byte.empty() ? Sort::None : static_cast<Sort>(byte[0]);
  }
  std::string Text() { return std::string(Bytes(Number())); }

 private:
  std::string_view rest_;
  bool whole_ = true;
};

bool HasBit(std::string_view bits, std::int32_t index) {
  return (static_cast<unsigned char>(bits[index / 8]) >> (index % 8) & 1) != 0;
}

bool ApplyRecordedCells(std::string_view bits, MapContents& map) {
  CellGrid& grid = *map.m_pGrid;
  if (bits.size() != (static_cast<std::size_t>(grid.CellCount()) + 7) / 8) return false;
  for (auto record = grid.Following(-1); record;) {
    if (HasBit(bits, record->index)) {
      record = grid.Following(record->index);
    } else {
      map.m_pCellClass->DestroyInstance(record->data);
      record = grid.Remove(*record);
    }
  }
  return true;
}

bool StoreBytes(const MemberDef& member, ClassInstance data, std::string_view bytes) {
  if (member.GetKind() == MemberKind::Object) return bytes.empty();
  void* slot = member.GetValuePtr(data);
  if (member.GetKind() == MemberKind::String) {
    member.StoreText(slot, bytes);
    return true;
  }
  if (bytes.size() != sizeof(std::uint32_t)) return false;
  const auto value = GetLittleEndian<std::uint32_t>(bytes.data());
  member.StoreValue(slot, &value);
  return true;
}

bool ApplyValue(Fields fields, MapContents& map) {
  const std::uint32_t position = fields.Number();
  const auto index = static_cast<std::int32_t>(fields.Number());
  const auto& members = map.m_pCellClass->Members();
  if (!fields.IsWhole() || position >= members.size() || !map.m_pGrid->IsValid(index)) return false;
  std::optional<CellRecord> record = map.m_pGrid->Find(index);
  if (!record) record = CreateCell(map, map.m_pGrid->CoordOf(index));
  return record && StoreBytes(*members[position], record->data, fields.Rest());
}

}  // namespace

std::string DescribeCellClass(const MapContents& map) {
  std::string text;
  if (!map.m_pCellClass) return text;
  for (const auto& member : map.m_pCellClass->Members())
    text += fmt::format("{} {}\n", static_cast<int>(member->GetKind()), member->GetName());
  return text;
}

std::string EncodeHead(const JournalHead& head) {
  std::string record = StartRecord(Sort::Head);
  PutLittleEndian(record, static_cast<std::uint32_t>(head.templateId));
  PutLittleEndian(record, static_cast<std::uint32_t>(head.dataType));
  for (const std::string& text : {head.title, head.path, head.stamp.ToBytes(), head.cellClass})
    PutText(record, text);
  return record;
}

std::optional<JournalHead> DecodeHead(std::string_view record) {
  Fields fields(record);
  if (fields.TakeSort() != Sort::Head) return std::nullopt;
  JournalHead head;
  head.templateId = static_cast<int>(fields.Number());
  head.dataType = static_cast<int>(fields.Number());
  head.title = fields.Text();
  head.path = fields.Text();
  const std::optional<FileStamp> stamp = FileStamp::FromBytes(fields.Text());
  head.cellClass = fields.Text();
  if (!fields.IsWhole() || !fields.Rest().empty() || !stamp) return std::nullopt;
  head.stamp = *stamp;
  return head;
}

std::string EncodeRecordedCells(const CellGrid& grid) {
  std::string record = StartRecord(Sort::RecordedCells);
  record.resize(1 + (static_cast<std::size_t>(grid.CellCount()) + 7) / 8);
  for (auto cell = grid.Following(-1); cell; cell = grid.Following(cell->index))
    record[1 + cell->index / 8] = static_cast<char>(record[1 + cell->index / 8] | 1 << cell->index % 8);
  return record;
}

std::string EncodeValue(const CellRecord& record, const MemberDef& member) {
  const auto& members = member.GetClass()->Members();
  const auto position = std::ranges::find(members, &member, &std::unique_ptr<MemberDef>::get);
  std::string bytes = StartRecord(Sort::Value);
  PutLittleEndian(bytes, static_cast<std::uint32_t>(position - members.begin()));
  PutLittleEndian(bytes, static_cast<std::uint32_t>(record.index));
  const void* slot = member.GetValuePtr(record.data);
  if (!slot) return bytes;
  if (member.GetKind() == MemberKind::String) {
    bytes += static_cast<const StringMember&>(member).Text(slot);
  } else {
    PutLittleEndian(bytes, LoadSlot<std::uint32_t>(slot));
  }
  return bytes;
}

bool ApplyRecord(std::string_view record, MapContents& map) {
  Fields fields(record);
  switch (fields.TakeSort()) {
    case Sort::Value:
      return ApplyValue(fields, map);
    case Sort::RecordedCells:
      return ApplyRecordedCells(fields.Rest(), map);
    default:
      return false;
  }
}

}  // namespace quorvel
