#pragma once

#include <memory>
#include <string>

#include "map/document/journal_records.h"
#include "map/types/map_contents.h"
#include "platform/documents/feedback.h"
#include "platform/files/edit_journal.h"

namespace quorvel {

/// Keeps an open map's changes safe from a crash: a base state, which is a map file of its own beside the
/// journal, and every value stored since. Begins with the first change after the map was opened or saved; the
/// base of a map with a million cells then costs a tenth of a second or two, later changes a short write.
/// Marks are no changes.
class MapJournal {
 public:
  /// An empty folder: nothing is kept.
  explicit MapJournal(std::string folder) : folder_(std::move(folder)) {}

  bool IsOpen() const { return static_cast<bool>(journal_); }
  /// True after something could not be written; nothing more is kept until the next Remove.
  bool HasFailed() const { return hasFailed_; }

  /// Starts with the map as it is now, in place of what was kept before, and pumps the feedback meanwhile.
  /// `head.cellClass` is filled in here. False: a line in the error text says why.
  bool Begin(JournalHead head, const MapContents& map, Feedback& feedback, std::string& errorText);
  /// Keeps the value that the record has in a member of the cell class. The journal must be open.
  bool Add(const CellRecord& record, const MemberDef& member, std::string& errorText);
  /// Continues a journal that was replayed.
  void Resume(std::unique_ptr<EditJournal> journal) { journal_ = std::move(journal); }
  /// The changes are saved, or not wanted: no file is left.
  void Remove();

 private:
  bool Fail(const std::string& reason, std::string& errorText);

  const std::string folder_;
  std::unique_ptr<EditJournal> journal_;
  bool hasFailed_ = false;
};

}  // namespace quorvel
