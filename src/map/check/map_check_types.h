#pragma once

#include "map/check/map_check_text.h"

namespace quorvel {

/// Reports what is wrong with the branch "Classes" of a file, if it has one: types and members that are
/// skipped, references that lead nowhere, lists whose items and colours differ in number, ranges and defaults
/// that do not fit.
void CheckTypes(const NumberedText& text, const ProblemSink& report);

}  // namespace quorvel
