#pragma once

#include <streambuf>

#include "map/check/map_check.h"
#include "map/types/map_contents.h"

namespace quorvel {

/// Reports what is wrong with the cells of a text form: cells outside the grid or named twice, leaves that no
/// member has, values that do not fit their member. The contents are what the file was loaded as.
void CheckTextCells(std::streambuf& file, const MapContents& contents, const ProblemSink& report);

/// Reports values of records that do not fit their member.
void CheckRecords(const MapContents& contents, const ProblemSink& report);

}  // namespace quorvel
