#include "data/same_value.h"

#include <cstring>

#include "data/string_member.h"

namespace quorvel {

bool SameValue(const MemberDef& a, const void* slotA, const MemberDef& b, const void* slotB) {
  if (a.GetKind() != MemberKind::String) return std::memcmp(slotA, slotB, sizeof(std::uint32_t)) == 0;
  return static_cast<const StringMember&>(a).Text(slotA) == static_cast<const StringMember&>(b).Text(slotB);
}

}  // namespace quorvel
