#pragma once

#include <string>
#include <string_view>

#include "data/data_tree.h"

namespace quorvel {

// The lines of the text form. A leaf is `name=value`, a branch that is empty or begins with a leaf is
// `[path]`; every line ends with CR LF. An int is written as it stands, a float gets a "." when it has none,
// a string stands in double quotes without any escaping.

/// Appends one key line.
void AppendKeyLine(std::string& out, std::string_view name, std::string_view value, ValueType type);

/// Appends one section header.
void AppendSectionLine(std::string& out, std::string_view path);

}  // namespace quorvel
