#include "map/cell_label.h"

#include <cstring>
#include <iterator>

#include <fmt/format.h>

namespace quorvel {
namespace {

float FloatIn(const void* slot) {
  float value = 0;
  std::memcpy(&value, slot, sizeof value);
  return value;
}

}  // namespace

void FormatCellLabel(std::string& out, const MemberDef* member, const CellRecord* record) {
  if (member == nullptr || record == nullptr || record->data == ClassInstance::None) return;
  out.assign(member->GetName(), 0, 1);
  out += ':';
  const void* slot = member->GetValuePtr(record->data);
  switch (member->GetKind()) {
    case MemberKind::Object:
      out += "(object)";
      break;
    case MemberKind::Float:
      fmt::format_to(std::back_inserter(out), "{:.2f}", FloatIn(slot));
      break;
    default: {
      std::string value;
      member->FormatValue(value, slot);
      out += value;
    }
  }
}

}  // namespace quorvel
