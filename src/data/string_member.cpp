#include "data/string_member.h"

#include "data/class_def.h"
#include "data/slot.h"

namespace quorvel {

StringMember::StringMember(std::string_view name, std::string_view initial)
    : MemberDef(name, std::string(initial)) {}

void StringMember::SetDefault(const MemberDefault& source) {
  if (!std::holds_alternative<std::string>(source)) return;
  defaultHandle_ = TextHandle::Empty;
  ReplaceDefault(source);
}

void StringMember::StoreValue(void* slot, const void* from) const {
  StoreSlot(slot, from ? LoadSlot<TextHandle>(from) : DefaultHandle());
}

void StringMember::StoreText(void* slot, std::string_view text) const {
  StoreSlot(slot, GetClass() ? GetClass()->Texts().Add(text) : TextHandle::Empty);
}

void StringMember::FormatValue(std::string& out, const void* slot) const {
  if (slot) out = Text(slot);
}

std::string_view StringMember::Text(const void* slot) const {
  return GetClass() ? GetClass()->Texts().Text(LoadSlot<TextHandle>(slot)) : std::string_view();
}

TextHandle StringMember::DefaultHandle() const {
  if (defaultHandle_ == TextHandle::Empty && GetClass()) {
    defaultHandle_ = GetClass()->Texts().Add(std::get<std::string>(GetDefault()));
  }
  return defaultHandle_;
}

}  // namespace quorvel
