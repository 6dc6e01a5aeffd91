#include "data/index_member.h"

#include "data/c_numbers.h"
#include "data/slot.h"

namespace quorvel {
namespace {

IntDefault PositionDefault(const ListDef* list, std::int32_t initial) {
  return list ? IntDefault{0, list->CountItems() - 1, initial} : IntDefault{0, -1, 0};
}

}  // namespace

IndexMember::IndexMember(std::string_view name, ListDef* list, std::int32_t initial)
    : MemberDef(name, PositionDefault(list, initial)), list_(list) {}

void IndexMember::SetDefault(const MemberDefault& source) {
  const auto* triple = std::get_if<IntDefault>(&source);
  if (!list_ || (!triple && !std::holds_alternative<std::monostate>(source))) return;
  ReplaceDefault(PositionDefault(list_, triple ? triple->initial : 0));
}

std::uint32_t IndexMember::GetMappedValue(ClassInstance instance) const {
  const void* slot = GetValuePtr(instance);
  return list_ && slot ? list_->GetItemValue(LoadSlot<std::uint32_t>(slot)) : 0;
}

void IndexMember::StoreValue(void* slot, const void* from) const {
  StoreSlot(slot, from ? LoadSlot<std::int32_t>(from) : std::get<IntDefault>(GetDefault()).initial);
}

void IndexMember::StoreText(void* slot, std::string_view text) const {
  StoreSlot(slot, ToInt(text));
}

void IndexMember::FormatValue(std::string& out, const void* slot) const {
  const std::int32_t position = slot ? LoadSlot<std::int32_t>(slot) : -1;
  const bool known = list_ && position >= 0 && position < list_->CountItems();
  out = known ? std::string_view(list_->ItemNames()[static_cast<std::size_t>(position)]) : kUnresolved;
}

}  // namespace quorvel
