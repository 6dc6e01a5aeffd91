#pragma once

#include "data/member_def.h"

namespace quorvel {

/// Whether two slots of members of one kind, no object, hold the same value: texts byte for byte, numbers bit
/// for bit. The members may be of different classes.
bool SameValue(const MemberDef& a, const void* slotA, const MemberDef& b, const void* slotB);

}  // namespace quorvel
