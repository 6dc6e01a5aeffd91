#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "map/types/map_contents.h"
#include "platform/files/file_stamp.h"

namespace quorvel {

/// The first record of a map's journal: which document it belongs to, and what its edits name. The layout of
/// all records is in docs/file-formats.md.
struct JournalHead {
  int templateId = 0;  ///< number of the template that makes such documents
  /// Number of the form that the document is saved in; the base state has one of its own.
  int dataType = DataTypeOf(FileForm::Text);
  std::string title;
  std::string path;       ///< of the document's file; empty: never saved
  FileStamp stamp;        ///< of that file when it was last read or written
  std::string cellClass;  ///< DescribeCellClass of the map
};

/// The members of the cell class that edits name by position, as text; equal for classes that hold the same.
std::string DescribeCellClass(const MapContents& map);

std::string EncodeHead(const JournalHead& head);
/// None: this is no head, or one of a version to come.
std::optional<JournalHead> DecodeHead(std::string_view record);

/// Which cells have a record. A base state in the binary form gives one to every cell.
std::string EncodeRecordedCells(const CellGrid& grid);
/// The value that a member of the map's cell class has in a cell. Of an object member: that the cell has a
/// record.
std::string EncodeValue(const CellRecord& record, const MemberDef& member);

/// Does to the map what a record of either of these two sorts says. False: the record does not fit the map,
/// which is as it was.
bool ApplyRecord(std::string_view record, MapContents& map);

}  // namespace quorvel
