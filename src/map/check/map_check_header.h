#pragma once

#include "map/check/map_check_text.h"
#include "map/types/map_contents.h"

namespace quorvel {

/// Whether the text is that of a map, rather than of definitions alone.
bool IsMapText(const DataBranch& tree);

/// Reports where "Version" and "Declare" of a map differ from what the writer would have put there.
void CheckHeader(const NumberedText& text, FileForm form, const ProblemSink& report);

/// Reports what is wrong with the map object of a text form, but for its cells.
void CheckGalaxy(const NumberedText& text, const ClassDef* mapClass, const ProblemSink& report);

/// Reports blocks of a binary map that do not lie or end where the writer would have put them. The contents
/// are what the file was loaded as.
void CheckBlocks(std::streambuf& file, const NumberedText& text, const MapContents& contents,
                 const ProblemSink& report);

}  // namespace quorvel
