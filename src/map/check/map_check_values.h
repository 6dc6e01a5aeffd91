#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/member_def.h"

namespace quorvel {

/// What is wrong with a value: a number outside its member's range, or a position outside its list. None for
/// a sound value, and where the member declares no range.
std::optional<std::string> ValueProblem(const MemberDef& member, const void* slot);

/// What is wrong with a value as a text form gives it: also text that is no number, and a leaf for an object
/// member.
std::optional<std::string> ValueTextProblem(const MemberDef& member, std::string_view text);

}  // namespace quorvel
