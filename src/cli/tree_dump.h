#pragma once

#include "cli/results.h"
#include "data/data_tree.h"

namespace quorvel {

/// Prints everything below `root` in pre-order: `B path` for a branch, `L path TYPE value` for a leaf. TYPE
/// is the value type's code: 0 int, 1 float, 2 string.
void DumpTree(const DataBranch& root, Results& out);

}  // namespace quorvel
