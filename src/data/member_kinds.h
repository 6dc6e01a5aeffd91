#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "data/member_def.h"

namespace quorvel {

/// By kind of member: what a file calls it and what people read.
inline constexpr std::array<std::string_view, 5> kMemberKindNames = {"string", "int", "float", "index",
                                                                     "object"};

constexpr std::string_view KindName(MemberKind kind) {
  return kMemberKindNames[static_cast<std::size_t>(kind)];
}

}  // namespace quorvel
