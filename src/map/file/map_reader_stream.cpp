#include "map/file/map_reader_stream.h"

#include <charconv>
#include <system_error>
#include <unordered_map>
#include <vector>

#include "map/file/map_file_layout.h"

namespace quorvel {
namespace {

/// Finds the members of the cell class by key. A file names them in their order, so the one after the last is
/// tried first.
class MembersByKey {
 public:
  explicit MembersByKey(const ClassDef& cellClass) {
    for (const auto& member : cellClass.Members()) {
      byName_.emplace(member->GetName(), members_.size());
      members_.push_back(member.get());
    }
  }

  void BeginCell() { expected_ = 0; }

  /// Null for a key that no member has.
  const MemberDef* Find(std::string_view key) {
    if (expected_ >= members_.size() || members_[expected_]->GetName() != key) {
      const auto found = byName_.find(key);
      if (found == byName_.end()) return nullptr;
      expected_ = found->second;
    }
    return members_[expected_++];
  }

 private:
  std::vector<const MemberDef*> members_;
  std::unordered_map<std::string_view, std::size_t> byName_;
  std::size_t expected_ = 0;
};

bool IsPlainKey(std::string_view key) {
  return key.find_first_of("/\\") == key.npos;
}

/// Reads values up to the next section, which the reader then stands behind, or the end. `data` is None for a
/// cell that is passed over. Answers what ended the values: Value for a key that is not plain.
TextReader::Item ReadCellValues(TextReader& reader, ClassInstance data, MembersByKey& members) {
  members.BeginCell();
  for (;;) {
    const TextReader::Item item = reader.Next();
    if (item == TextReader::Item::Ignored) continue;
    if (item != TextReader::Item::Value || !IsPlainKey(reader.Key())) return item;
    if (data == ClassInstance::None) continue;
    if (const MemberDef* member = members.Find(reader.Key())) {
      member->StoreText(member->GetValuePtr(data), reader.Value());
    }
  }
}

}  // namespace

std::optional<std::int32_t> PlainCellIndex(std::string_view section) {
  if (!section.starts_with(kCellsPath)) return std::nullopt;
  section.remove_prefix(kCellsPath.size());
  if (section.size() < 2 || section.size() > 10 || section[0] != '/') return std::nullopt;
  if (section[1] == '0' && section.size() > 2) return std::nullopt;
  std::int32_t index = 0;
  const char* end = section.data() + section.size();
  const auto result = std::from_chars(section.data() + 1, end, index);
  if (result.ec != std::errc() || result.ptr != end || index < 0) return std::nullopt;
  return index;
}

bool StreamCells(TextReader& reader, std::int32_t firstIndex, TextCells& cells, const MapContents& contents,
                 MapProgress& progress) {
  MembersByKey members(*contents.m_pCellClass);
  for (std::int32_t index = firstIndex; !cells.IsRefused();) {
    const std::optional<CellRecord> record = cells.Make(index);
    const TextReader::Item item =
        ReadCellValues(reader, record ? record->data : ClassInstance::None, members);
    if (record) progress.Step(index, contents.m_pGrid->CellCount());
    if (item == TextReader::Item::End) return true;
    if (item == TextReader::Item::Value) return false;

    const std::optional<std::int32_t> next = PlainCellIndex(reader.Section());
    if (!next || *next <= index) return false;
    index = *next;
  }
  return true;
}

}  // namespace quorvel
