#include "map/grid/cell_label.h"

#include <string_view>

#include <fmt/format.h>

#include "data/slot.h"

namespace quorvel {
namespace {

std::string LabelValue(const MemberDef& member, ClassInstance data) {
  const void* slot = member.GetValuePtr(data);
  if (member.GetKind() == MemberKind::Object) return "(object)";
  std::string value;
  if (member.GetKind() == MemberKind::Float) {
    value = fmt::format("{:.2f}", LoadSlot<float>(slot));
  } else {
    member.FormatValue(value, slot);
  }
  return value;
}

}  // namespace

void FormatCellLabel(std::string& out, const MemberDef* member, const CellRecord* record) {
  if (!member || !record || record->data == ClassInstance::None) return;
  const std::string_view initial = std::string_view(member->GetName()).substr(0, 1);
  out = fmt::format("{}:{}", initial, LabelValue(*member, record->data));
}

}  // namespace quorvel
