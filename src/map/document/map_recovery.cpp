#include "map/document/map_recovery.h"

#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include <fmt/format.h>

#include "map/document/vastrel_doc.h"
#include "map/file/map_reader.h"
#include "map/types/map_limits.h"
#include "platform/files/edit_journal.h"

namespace quorvel {
namespace {

constexpr std::string_view kNoFit = "Its changes do not fit its map.\n";

std::optional<MapContents> ReadBase(const std::string& path, Feedback& feedback, std::string& errorText) {
  FileSource file(path, FileSource::Accept::PlainFilesOnly, kMaxTextFileBytes);
  if (!file.IsOpen()) {
    errorText += file.Error() + "\n";
    return std::nullopt;
  }
  std::string mapErrors;  // were shown when the map was first opened, where they do not keep it from use
  MapContents map;
  const Outcome outcome = LoadMapFile(file, map, feedback, mapErrors);
  if (!file.Error().empty()) mapErrors = file.Error() + "\n";
  if (outcome == Outcome::Done && file.Error().empty()) return map;
  errorText += mapErrors;
  return std::nullopt;
}

/// The base state with all changes behind the head. The journal can be continued afterwards.
std::optional<MapContents> Replay(EditJournal& journal, const JournalHead& head, JournalReader& records,
                                  Feedback& feedback, std::string& errorText) {
  std::optional<MapContents> map = ReadBase(journal.BasePath(), feedback, errorText);
  if (!map) return std::nullopt;
  bool fits = DescribeCellClass(*map) == head.cellClass;
  while (const auto record = fits ? records.Next() : std::nullopt) fits = ApplyRecord(*record, *map);
  if (!fits) {
    errorText += kNoFit;
    return std::nullopt;
  }
  journal.CutBehind(records.Position());
  map->m_nDataType = head.dataType;
  return map;
}

const CMultiDocTemplateWithID* FindTemplate(const CWinApp& application, int templateId) {
  for (const auto& candidate : application.Templates())
    if (candidate->GetResourceID() == templateId) return candidate.get();
  return nullptr;
}

class Offer {
 public:
  Offer(CWinApp& application, Services& services, std::unique_ptr<EditJournal> journal)
      : application_(application),
        services_(services),
        journal_(std::move(journal)),
        records_(journal_->Path()) {}

  /// True: a document came back.
  bool Make() {
    const std::optional<std::string> first = records_.Next();
    if (!first) journal_->Remove();  // its program ended before it held anything
    std::optional<JournalHead> head = DecodeHead(first.value_or(""));
    const auto* docTemplate = head ? FindTemplate(application_, head->templateId) : nullptr;
    if (!docTemplate) return false;  // left for a later version
    const std::string name = head->path.empty() ? head->title : head->path;
    switch (services_.prompts.Message(
        fmt::format("Quorvel ended unexpectedly.\nRecover the changes of {}?", name),
        MessageButtons::YesNoCancel, MessageIcon::Exclamation)) {
      case Answer::Yes:
        return Recover(std::move(*head), *docTemplate, name);
      case Answer::No:
        journal_->Remove();
        return false;
      default:
        return false;
    }
  }

 private:
  bool Recover(JournalHead&& head, const CMultiDocTemplateWithID& docTemplate, const std::string& name) {
    std::string errorText;
    try {
      std::optional<MapContents> map = Replay(*journal_, head, records_, services_.feedback, errorText);
      if (map) {
        std::unique_ptr<CDocument> document = docTemplate.CreateNewDocument(application_);
        dynamic_cast<CVastrelDoc&>(*document).Recover(head, std::move(*map), std::move(journal_));
        application_.AddDocument(std::move(document));
        return true;
      }
    } catch (const std::bad_alloc&) {
      errorText = "There is not enough memory.\n";
    }
    services_.prompts.Message(fmt::format("Cannot recover {}:\n{}", name, errorText), MessageButtons::Ok,
                              MessageIcon::Exclamation);
    return false;
  }

  CWinApp& application_;
  Services& services_;
  std::unique_ptr<EditJournal> journal_;
  JournalReader records_;
};

}  // namespace

bool OfferRecovery(CWinApp& application, Services& services) {
  bool isAnyBack = false;
  if (services.journalsFolder.empty()) return false;
  for (std::unique_ptr<EditJournal>& journal : EditJournal::Abandoned(services.journalsFolder))
    isAnyBack = Offer(application, services, std::move(journal)).Make() || isAnyBack;
  return isAnyBack;
}

}  // namespace quorvel
