#include "data/number_members.h"

#include "data/c_numbers.h"
#include "data/slot.h"

namespace quorvel {

void IntMember::SetDefault(const MemberDefault& source) {
  if (std::holds_alternative<IntDefault>(source)) ReplaceDefault(source);
}

void IntMember::StoreValue(void* slot, const void* from) const {
  StoreSlot(slot, from ? LoadSlot<std::int32_t>(from) : std::get<IntDefault>(GetDefault()).initial);
}

void IntMember::StoreText(void* slot, std::string_view text) const {
  StoreSlot(slot, ToInt(text));
}

void IntMember::FormatValue(std::string& out, const void* slot) const {
  if (slot) out = FormatInt(LoadSlot<std::int32_t>(slot));
}

void FloatMember::SetDefault(const MemberDefault& source) {
  if (std::holds_alternative<FloatDefault>(source)) ReplaceDefault(source);
}

void FloatMember::StoreValue(void* slot, const void* from) const {
  if (from) {
    std::memmove(slot, from, kSlotBytes);  // as bits: a NaN's payload stays
  } else {
    StoreSlot(slot, std::get<FloatDefault>(GetDefault()).initial);
  }
}

void FloatMember::StoreText(void* slot, std::string_view text) const {
  StoreSlot(slot, ToFloat(text));
}

void FloatMember::FormatValue(std::string& out, const void* slot) const {
  if (slot) out = FormatFloat(LoadSlot<float>(slot));
}

}  // namespace quorvel
