#pragma once

#include <string_view>

#include "data/member_def.h"

namespace quorvel {

/// A range text, "prefix:min<default<max" with every piece but the last optional, taken apart: views into the
/// text, "0" for a missing piece. "2<10<50" is 2 to 50 by default 10, "1<1000" 1 to 1000 by default 0, "64" 0
/// to 64. Nothing orders the three.
NumberDefault<std::string_view> ParseRange(std::string_view text);

/// The pieces as numbers; text that is no number counts as 0, whole numbers are clamped to 32 bits.
IntDefault ParseIntRange(std::string_view text);
FloatDefault ParseFloatRange(std::string_view text);

/// 0 for "class", 1 for "list" in any letter case, else -1.
int ParseDefinitionKind(std::string_view text);

/// Code of the member kind with this name in any letter case: "string" 0, "int" 1, "float" 2, "index" 3,
/// "object" 4; else -1.
int ParseMemberKind(std::string_view text);

}  // namespace quorvel
