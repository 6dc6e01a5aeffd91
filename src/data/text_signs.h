#pragma once

#include <streambuf>

#include "data/data_tree.h"

namespace quorvel {

/// Signs that bytes are no text form, or one that another program has edited: reading them as a tree and
/// writing the tree would lose what they say. Both take an input that can seek and leave it at its start.

/// Whether the first line that is neither blank nor a comment is a section or a key line; also when there is
/// no such line and the bytes end there. A NUL where a line would begin is no text.
bool BeginsAsTextForm(std::streambuf& input, LineEnds lineEnds);

/// Whether an LF stands anywhere without a CR before it.
bool HoldsBareLineFeed(std::streambuf& input);

}  // namespace quorvel
