#pragma once

#include <string>

#include "cli/console.h"
#include "cli/exit_code.h"
#include "data/data_tree.h"

namespace quorvel {

/// What of a file a tree is to hold.
enum class TreePart {
  All,
  WithoutObjects,  ///< not what lies below "Objects": the definitions of a map without its values
};

/// Reads a generic data file in text form into an empty root. What is not Done has been told to the console;
/// the tree then holds what could be read.
ExitCode ReadTreeFile(Console& console, const std::string& path, DataBranch& root,
                      TreePart part = TreePart::All);

/// Writes a tree's text form, whole or not at all.
ExitCode WriteTreeFile(Console& console, const std::string& path, const DataBranch& root);

}  // namespace quorvel
