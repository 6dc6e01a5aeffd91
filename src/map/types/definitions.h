#pragma once

#include <streambuf>
#include <string>

#include "data/data_tree.h"
#include "map/types/map_contents.h"
#include "platform/documents/feedback.h"

namespace quorvel {

/// Builds the types that the branch "Classes" of a file declares: m_pClasses becomes a copy of the branch,
/// m_pTypes gets every well-formed entry in order, m_pMapClass and m_pCellClass the first classes of their
/// names, and the members of "Cell" their editors. Malformed entries and members are left out without a word
/// (`type_reader.h` has one for them); a missing branch or class adds its line to the error text.
void BuildTypes(const DataBranch& file, MapContents& contents, std::string& errorText);

/// Reads a whole text form into the tree and builds its types. True when the error text is empty at the end,
/// also of what the caller had put there.
bool LoadDefinitions(std::streambuf& file, DataBranch& tree, MapContents& contents, Feedback& feedback,
                     std::string& errorText);

}  // namespace quorvel
