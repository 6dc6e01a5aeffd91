#pragma once

#include <string>
#include <vector>

#include "data/data_tree.h"
#include "data/type_list.h"

namespace quorvel {

/// Something in a branch "Classes" that its author will not have meant.
struct TypeProblem {
  /// The leaf or branch of "Classes" that it is about.
  const DataNode* node;
  /// May hold any bytes of the file.
  std::string text;
};

/// Adds the types that a branch "Classes" declares, in order. `problems`, unless null, gets what stands in it
/// for nothing or for something else than it says: leaves, types and members that are passed over, references
/// that lead nowhere, lists whose items and colours differ in number, ranges and defaults that do not fit.
///
/// A type is found only by members declared after it; a class may name itself, for an embedded object that
/// holds nothing. An index member without its list and an object member without its class are still members.
void ReadTypes(const DataBranch& classes, TypeList& types, std::vector<TypeProblem>* problems);

}  // namespace quorvel
