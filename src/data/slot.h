#pragma once

#include <cstdint>
#include <cstring>

namespace quorvel {

/// What lies in a block, a buffer or a packed row for one value of any kind but object: 4 bytes, at any
/// address.
constexpr std::int32_t kSlotBytes = 4;

template <class Value>
Value LoadSlot(const void* slot) {
  static_assert(sizeof(Value) == kSlotBytes);
  Value value;
  std::memcpy(&value, slot, sizeof value);
  return value;
}

template <class Value>
void StoreSlot(void* slot, Value value) {
  static_assert(sizeof(Value) == kSlotBytes);
  std::memcpy(slot, &value, sizeof value);
}

}  // namespace quorvel
