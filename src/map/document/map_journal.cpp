#include "map/document/map_journal.h"

#include <cerrno>
#include <new>
#include <optional>
#include <utility>

#include "map/file/map_writer.h"
#include "platform/files/atomic_file.h"
#include "platform/files/file_calls.h"

namespace quorvel {
namespace {

/// The binary form is written fast and keeps floats and texts to the bit, but holds all cells. A map too
/// large for that which is mostly empty is kept as text, as it would be saved.
FileForm BaseForm(const CellGrid& grid) {
  constexpr std::int32_t kSmallMapCells = 4'000'000;
  const bool isMostlyEmpty = grid.Count() < grid.CellCount() / 16;
  return grid.CellCount() > kSmallMapCells && isMostlyEmpty ? FileForm::Text : FileForm::Binary;
}

constexpr const char* kNoMemory = "There is not enough memory.";

bool WriteBase(const std::string& path, const MapContents& map, Feedback& feedback, std::string& errorText) {
  const std::optional<MapFilePlan> plan = PlanMapFile(map, BaseForm(*map.m_pGrid), {}, errorText);
  if (!plan) return false;
  feedback.Pump();
  AtomicFile file(path);
  if (file.Reserve(plan->fileBytes)) SaveMap(*plan, map, file, feedback);
  const bool isWritten = file.Commit(errorText);
  feedback.Pump();
  return isWritten;
}

/// False: `journal.Error()` or a line in the error text says why.
bool WriteStart(EditJournal& journal, const JournalHead& head, const MapContents& map, Feedback& feedback,
                std::string& errorText) {
  return WriteBase(journal.BasePath(), map, feedback, errorText) && journal.Append(EncodeHead(head)) &&
         journal.Append(EncodeRecordedCells(*map.m_pGrid));
}

}  // namespace

bool MapJournal::Begin(JournalHead head, const MapContents& map, Feedback& feedback, std::string& errorText) {
  Remove();
  if (folder_.empty()) return true;
  std::unique_ptr<EditJournal> journal;
  try {
    journal = EditJournal::Create(folder_);
    if (!journal) return Fail(ErrorText(errno), errorText);
    head.cellClass = DescribeCellClass(map);
    if (WriteStart(*journal, head, map, feedback, errorText)) {
      journal_ = std::move(journal);
      return true;
    }
    Fail(journal->Error(), errorText);
  } catch (const std::bad_alloc&) {
    Fail(kNoMemory, errorText);
  }
  if (journal) journal->Remove();
  return false;
}

bool MapJournal::Add(const CellRecord& record, const MemberDef& member, std::string& errorText) try {
  return journal_->Append(EncodeValue(record, member)) || Fail(journal_->Error(), errorText);
} catch (const std::bad_alloc&) {
  return Fail(kNoMemory, errorText);
}

void MapJournal::Remove() {
  if (journal_) journal_->Remove();
  journal_.reset();
  hasFailed_ = false;
}

bool MapJournal::Fail(const std::string& reason, std::string& errorText) {
  hasFailed_ = true;
  if (errorText.empty()) errorText = reason + "\n";
  return false;
}

}  // namespace quorvel
