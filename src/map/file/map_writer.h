#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <streambuf>
#include <string>
#include <string_view>

#include "data/data_tree.h"
#include "map/types/map_contents.h"
#include "platform/documents/feedback.h"

namespace quorvel {

/// A map file worked out before its first byte is written: everything but the cells, and the size of it all.
/// Holds for the contents that it was made of, as long as these do not change.
struct MapFilePlan {
  /// In the text form without the cells, in the binary form with final offsets.
  std::unique_ptr<DataBranch> tree;
  std::uint64_t treeBytes = 0;  ///< of the tree's text
  std::uint64_t fileBytes = 0;
  FileForm form = FileForm::Text;
};

/// Plans the file of a map with a grid in the given form, whatever `m_nDataType` says. The title names the
/// tree's root and is not written. None, and a line in the error text, when the file would pass a limit or
/// could not be opened again. Throws std::bad_alloc when memory runs out.
std::optional<MapFilePlan> PlanMapFile(const MapContents& contents, FileForm form, std::string_view title,
                                       std::string& errorText);
/// The same in the map's own form.
std::optional<MapFilePlan> PlanMapFile(const MapContents& contents, std::string_view title,
                                       std::string& errorText);

/// Writes the planned file, `plan.fileBytes` bytes. What the stream refuses is for the stream to remember.
void SaveMap(const MapFilePlan& plan, const MapContents& contents, std::streambuf& out, Feedback& feedback);

}  // namespace quorvel
